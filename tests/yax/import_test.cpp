#include <filesystem>
#include <sstream>

#include "tests/yax/yax_program.h"

namespace {

/// "PAD,LEAD" of each wire of a package, in its order.
std::string WiresOf(const std::string& package) {
  std::istringstream lines(GetFile(package));
  std::string wires;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string keyword, pad, x, y, lead;
    if (fields >> keyword >> pad >> x >> y >> lead && keyword == "WB") wires += pad + "," + lead + "\n";
  }
  return wires;
}

const std::string kSources = YAX_SAMPLES "/sources/";

class ImportProgram : public YaxTest {
 protected:
  /// What the import says on standard output; the package is at `a`.
  std::string Import(const std::string& arguments, int status = 0) const {
    const Ended ended = Yax("import -o " + (folder / "a.yax") + " " + arguments);
    EXPECT_EQ(ended.status, status) << arguments << "\n" << ended.err;
    return ended.out;
  }
  void ExpectSound() const {
    const Ended check = Yax("check " + (folder / "a.yax"));
    EXPECT_EQ(check.status, 0) << check.err;
    EXPECT_NE(check.out.find(", 0 ignored"), std::string::npos) << check.out;
  }
};

TEST_F(ImportProgram, MakesTheSamplesFromTheirRecipes) {
  for (const std::string name : {"cob32", "stagger40"}) {
    const std::string sample = YAX_SAMPLES "/" + name;
    const std::string summary = Import("--recipe " + sample + ".recipe");
    EXPECT_EQ(GetFile(folder / "a.yax"), GetFile(sample + ".yax"));
    EXPECT_EQ(GetFile(folder / "a.yax.vu"), GetFile(sample + ".yax.vu"));
    // The first is in micrometres, which need no decimals.
    EXPECT_EQ(summary.find('.', summary.find("longest ")) < summary.find(" ("), name != "cob32") << summary;
    ExpectSound();
  }
}

TEST_F(ImportProgram, TakesTheCommandLineOverTheRecipe) {
  PutFile(folder / "r.recipe",
          "\xEF\xBB\xBF"
          "die = \"" +
              kSources +
              "caravel-pads.def\"  # the frame\ndie-size = \"3.6x5.2\"\n"
              "die-height = 9\npackage = 'qfn:64,body=9x9,pitch=0.5,lead=0.4x0.25,paddle=7x7'\n"
              "lef = []\nunused = [19, 1]\nbond = [\"vssd2=9\",\n  \"vdda2=10\"]\n");
  const std::string summary = Import("--die-height 0.28 --unused 19 --recipe " + (folder / "r.recipe"), 1);
  EXPECT_EQ(summary.substr(0, 59), "63 pads, 64 leads, 63 wires; leads free: 19; 1 crossing; lo");
  EXPECT_NE(GetFile(folder / "a.yax").find("\nCOMPZ 0.28\n"), std::string::npos);
  ExpectSound();
}

TEST_F(ImportProgram, ReadsItsListsOfWiresBack) {
  const std::string kept = folder / "kept.yax", again = folder / "a.yax", list = folder / "list.csv";
  const auto ends = [&](const std::string& package) {
    return Yax("wires --format bond-list " + package).out;
  };
  // From a chip and an outline; the wire to the paddle crosses its neighbour, so that the status is 1.
  const std::string sources = "--die " + kSources +
                              "caravel-pads.def --die-size 3.6x5.2 --die-height 0.28 --package "
                              "qfn:64,body=9x9,pitch=0.5,lead=0.4x0.25,paddle=7x7 ";
  Import(sources + "--bond vssa=PADDLE", 1);
  std::filesystem::rename(again, kept);
  for (const std::string format : {"bond-list", "net-list"}) {
    ASSERT_EQ(Yax("wires --format " + format + " -o " + list + " " + kept).status, 0);
    Import(sources + "--bonds " + list, 1);
    EXPECT_EQ(WiresOf(again), WiresOf(kept)) << format;
    EXPECT_EQ(ends(again), ends(kept)) << format;
    ExpectSound();
  }
  // A bond list alone is die, package and wires; leads without a size are points at the wires' ends.
  const std::string sample = YAX_SAMPLES "/cob32.yax";
  ASSERT_EQ(Yax("wires --format bond-list -o " + list + " " + sample).status, 0);
  const std::string summary =
      Import("--unit um --die " + list + " --die-size 2200x1800 --die-height 280 --package " + list +
             " --bonds " + list);
  // One of the 32 wires goes down to the paddle, which does not count as a lead.
  EXPECT_EQ(summary.substr(0, 27), "32 pads, 31 leads, 32 wires");
  EXPECT_EQ(WiresOf(again), WiresOf(sample));
  ExpectSound();
}

TEST_F(ImportProgram, WritesBothFilesOrNone) {
  const std::string package =
      "--die-height 0.28 --package qfn:4,body=9x9,lead=0.4x0.25 --die-size 1x1 --die " +
      PutFile(folder / "d.csv", "name,x,y,width,height\nA,-.4,0,.06,.06\n");
  const Ended piped = Yax("import -o - " + package);
  EXPECT_EQ(piped.out.substr(0, 21), "TECHNOLOGY WIRE_BOND\n");
  EXPECT_EQ(piped.err.substr(0, 24), "1 pad, 4 leads, 1 wire; ");
  EXPECT_EQ(folder.FileCount(), 3U) << "the table, and what the program said";
  // The old file stays as it is when the other one cannot be written.
  PutFile(folder / "c.yax", "old");
  ASSERT_EQ(std::system(("mkdir " + (folder / "c.yax.vu")).c_str()), 0);
  const Ended refused = Yax("import -o " + (folder / "c.yax") + " " + package);
  EXPECT_EQ(refused.err.substr(refused.err.rfind('/') + 1, 10), "c.yax.vu: ");
  EXPECT_EQ(GetFile(folder / "c.yax"), "old");
  EXPECT_EQ(folder.FileCount(), 5U) << "and the old file and the folder";
  EXPECT_EQ(Import(package).substr(0, 24), "1 pad, 4 leads, 1 wire; ");
  EXPECT_EQ(GetFile(folder / "a.yax.vu"), "A SIGNAL\n");
}

TEST_F(ImportProgram, RefusesWithOneLineAndWritesNothing) {
  PutFile(folder / "d.csv", "name,x,y\nA,-.4,0\n");
  PutFile(folder / "e.csv", "name,x,y\nA,-.4,zero\n");
  const std::string most = "--die-height 1 --die-size 1x1 --package qfn:4,body=9x9,lead=0.4x0.25 ";
  const std::string die = "--die " + (folder / "d.csv") + " ";
  const std::pair<std::string, std::string> cases[] = {
      {most, "yax: --die is missing; "},
      {most + "--die " + (folder / "e.csv"), "e.csv:2: 'zero' is not a number; "},
      {most + die + "--die-height 0", "given more than once"},
      {most + die + "--land", "yax: --land needs a value (D); "},
      {most + die + "--pads '('", "yax: --pads: '(' is not a regular expression; "},
      {most + die + "--offset 1", "yax: --offset: '1' is not X,Y; "},
      {most + die + "--bond Z=1", "yax: --bond: there is no pad 'Z'; "},
      {most + die + "--pad-min -1", "yax: --pad-min: '-1' is below 0; "},
      {most + die + "--pad-aspect 0.5", "yax: --pad-aspect: '0.5' is below 1; "},
      {most + die + "--pad-size 0x5", "yax: --pad-size: '0x5' is not two lengths above 0; "},
      {most + die + "--land -1", "yax: --land: '-1' is below 0; "},
      {most + die + "--rotate 45", "--rotate '45' is not 0, 90, 180 or 270; "},
      {most + die + "--unit inch", "--unit 'inch' is not mil, mm or um; "},
      {"--recipe " + (folder / "none.recipe"), "none.recipe: no such file; "},
      {"--die-height 1 --die-size 1x1 " + die + "--package a.kicad_pcb",
       "yax: --package: a board has many footprints; "},
  };
  const auto expectRefusal = [this](const std::string& arguments, const std::string& message) {
    const Ended ended = Yax("import -o " + (folder / "a.yax") + " " + arguments);
    EXPECT_EQ(ended.status, 2) << arguments << "\n" << ended.err;
    EXPECT_NE(ended.err.find(message), std::string::npos) << arguments << "\n" << ended.err;
    EXPECT_EQ(ended.Lines(), 1U) << ended.err;
    EXPECT_EQ(ended.out + GetFile(folder / "a.yax") + GetFile(folder / "a.yax.vu"), "") << arguments;
  };
  for (const auto& [arguments, message] : cases) expectRefusal(arguments, message);
  const std::pair<const char*, const char*> recipes[] = {
      {"colour = 3\n", "unknown key 'colour'; "},
      {"die = d\ndie-height = 1\npackage = p\ndie-size = 5\n", "die-size: '5' is not two lengths above 0; "},
      {"package = qfn:4,body=9x9\n", "package: it takes one value; put a text with commas"},
      {"die = a\nmacro = m\ndie = b\n", "duplicate key 'die'; "},
      {"unit = inch\n", "unit 'inch' is not mil, mm or um; "}};
  for (const auto& [text, message] : recipes)
    expectRefusal("--recipe " + PutFile(folder / "a.recipe", text), std::string("a.recipe: ") + message);
}

TEST_F(ImportProgram, DoesWhatItsGuideShows) {
  // The commands stand in fenced blocks, the answer to the first one behind four blanks.
  std::istringstream guide(GetFile(YAX_GUIDE_IMPORT));
  std::string script = "set -e\n";
  std::string answer;
  bool inBlock = false;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("```")) {
      inBlock = !inBlock;
    } else if (inBlock && !line.starts_with("export PATH")) {
      script += line + "\n";
    } else if (line.starts_with("    ")) {
      answer += line.substr(4) + "\n";
    }
  }
  PutFile(folder / "guide.sh", script);
  const std::string programs = std::filesystem::path(YAX_PROGRAM).parent_path();
  const std::string command = "cd " + (folder / "") +
                              " && ln -s " YAX_SAMPLES " samples && PATH=" + programs +
                              ":$PATH bash guide.sh >out 2>err";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 0) << GetFile(folder / "err");
  EXPECT_EQ(GetFile(folder / "err"), "");
  EXPECT_EQ(GetFile(folder / "out").substr(0, answer.size()), answer);
  EXPECT_EQ(GetFile(folder / "caravel.png").substr(1, 3), "PNG");
}

}  // namespace
