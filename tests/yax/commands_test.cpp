#include "model/version.h"
#include "tests/yax/yax_program.h"

namespace {

TEST_F(YaxTest, TheExitStatusSeparatesSuccessFindingsAndErrors) {
  const std::string one = OneWire();
  PutFile(folder / "dirty.yax", std::string(kOneWire) + "# a remark\n");
  PutFile(folder / "small.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ .3\n");
  // 15 mils apart, so both are findings only below a limit.
  PutFile(folder / "two.yax", std::string(kOneWire) +
                                  "CBP B 15 -5 0 6 6 0 R RECTANGLE\nSBP B 30 -5 0 6 6 0 RECTANGLE 0 1\n"
                                  "WB B 15 -5 0 30 -5 5 0\n");
  const std::string two = folder / "two.yax";
  PutFile(folder / "none.yax", "COMPL 4\n");
  PutFile(folder / "high.yax", "COMPW 431\nCOMPZ 3.4028235e38\n");
  PutFile(folder / "dot.yax", std::string(kOneWire) + "WB A 1 1 0 1 1 0 0\nRING X ARC -9 9 9 -9 1\n");
  const std::string dot = folder / "dot.yax";
  PutFile(folder / "noted.yax", kOneWire);
  PutFile(folder / "noted.yax.vu", "Z POWER\n");
  PutFile(folder / "kept.png", "old");
  PutFile(folder / "a.rules", "max-length 14 mil plan\n");
  const std::string to = " -o " + (folder / "a.png");
  const struct {
    std::string arguments;
    int status;
    std::string out, err;  ///< a part of each; empty for nothing at all
  } cases[] = {
      {"check " + one, 0, "read 7 lines, 0 ignored\n", ""},
      {"check " + (folder / "dirty.yax"), 1, "read 8 lines, 1 ignored\n",
       "dirty.yax:8: finding: unknown keyword '#'"},
      {"check --json " + (folder / "dirty.yax"), 1, "\"ignored\": 1", ""},
      {"check " + (folder / "noted.yax"), 0, "read 7", "noted.yax: note: 1 net type without wire; --notes"},
      {"check " + (folder / "absent.yax"), 2, "", "absent.yax: no such file"},
      {"check --unit mil --rules " + (folder / "a.rules") + " " + one, 1, "read 7",
       "one.yax:7: finding: max-length: wire 'A' is 15 mil long in plan"},
      {"wires " + one, 0, "\nA,,base,1,,15,", ""},
      {"wires --limit-length 15 --loops die-height " + one, 1, "\nA,",
       "one.yax:7: the length of wire 'A' is"},
      {"wires --limit-angle 0 " + one, 0, "\nA,", ""},
      {"wires --limit-angle x " + one, 2, "", "--limit-angle 'x' is not a number"},
      {"wires --tier-loop-height 7=1 " + one, 2, "", "one.yax: no wire has tier 7"},
      {"clearance " + one, 0, "# wires: 1, diameter: 1.0000 mil, touching pairs: 0\n", ""},
      {"clearance " + two, 0, " A     B ", ""},
      {"clearance --limit 14.5 " + two, 1, "others below 14.5000 mil: 1", ""},
      {"clearance --wire-diameter 15 " + two, 1, "touching pairs: 1\n", ""},
      {"clearance " + (folder / "small.yax"), 2, "", "small.yax: the die's size suggests mm; pass --unit"},
      {"clearance --unit mm " + (folder / "small.yax"), 0, "# wires: 0, diameter: 0.025400 mm", ""},
      {"clearance --net-pattern '(' " + two, 2, "", "'(' is not a regular expression"},
      {"clearance --net-pattern '^V' " + two, 2, "", "'^V' has no group"},
      {"wires " + dot, 2, "",
       "dot.yax:8: Run-time error: Division by zero (wire A: its ends coincide); move one end"},
      {"clearance " + dot, 2, "", "dot.yax:8: "},
      {"wires --loops die-height " + (folder / "high.yax"), 2, "",
       "high.yax: Run-time error: Overflow; correct COMPZ or SD_COMPZ"},
      {"export -o - " + dot, 2, "",
       "dot.yax:9: Run-time error: Division by zero (ring 1: its bulge is 0); give field"},
      {"render -o - " + dot, 2, "", "dot.yax:9: "},
      {"diagram --unit mil -o " + (folder / "b.pdf") + " --set part=\xf4\x8f\xbf\xbd " + one, 0, "",
       "one.yax: note: no font has all characters of '\xf4\x8f\xbf\xbd'; missing characters appear as boxes; "
       "install a "
       "font"},
      {"diagram --unit mil -o " + (folder / "b.svg") + " --set part=\xf4\x8f\xbf\xbd " + one, 0, "", ""},
      {"diagram --unit mil -o " + (folder / "b.pdf") + " --title " + (folder / "absent") + " " + one, 2, "",
       "absent: no such file"},
      {"diagram --unit mil -o " + (folder / "b.pdf") + " --title " + (folder / "") + " " + one, 2, "",
       ": Is a directory; give the path of a text file"},
      {"estimate " + one, 0, "\nA,,base,1,,0.", ""},
      {"estimate --plane 1 " + one, 2, "",
       "one.yax:7: the plane at 1 lies above a point of wire 'A', at 0 mil; give a plane below"},
      {"estimate --wire-diameter 0 " + one, 2, "", "the wire diameter is not above 0"},
      {"estimate --resistivity 0 " + one, 2, "", "the resistivity is not above 0"},
      {"estimate --resistivity 1e38 " + one, 2, "", "wire 'A' is too long or too thin"},
      {"estimate --coupling 1.5 " + one, 2, "", "--coupling '1.5' is not from 0 to 1"},
      {"estimate --frequency -1 " + one, 2, "", "the frequency is below 0"},
      {"estimate " + (folder / "small.yax"), 2, "", "pass --unit"},
      {"--help", 0, "Usage: yax ", ""},
      {"render --help", 0, "Usage: yax render ", ""},
      {"completion --version", 0, std::string("yax ") + model::kVersionText + "\n", ""},
      {"frob", 2, "", "yax: unknown command 'frob'; see yax --help"},
      {"clearance --json --limit 1 --limit 2 " + one, 2, "", "yax: --limit is given more than once; see"},
      {"wires --summary -o " + (folder / "") + " " + one, 2, "", ": Is a directory; give a file"},
      {"export -o - " + one, 0, "glTF", ""},
      {"wires -o /dev/stdout " + one, 0, "A", ""},
      {"wires -o /dev/full " + one, 2, "", "/dev/full: No space left on device"},
      {"export -o " + (folder / "a.stl") + " " + one, 2, "", "a.stl: unknown export format"},
      {"export -o " + (folder / "a.glb") + " " + (folder / "small.yax"), 2, "", "pass --unit"},
      {"render " + one + " -o " + (folder / "b.bmp"), 0, "", ""},
      {"", 2, "", "yax: "},
      {"render" + to, 2, "", "FILE.yax"},
      {"render " + one, 2, "", "--output"},
      {"render " + one + to + " --size 10", 2, "", "--size '10'"},
      {"render " + one + to + " --no-such", 2, "", "--no-such"},
      {"render " + one + to + " --format gif", 2, "", "--format"},
      {"render " + one + to + " --view above", 2, "", "--view"},
      {"render " + one + to + " --view top --look 1", 2, "", "--look"},
      {"render " + one + to + " --look 1 --cam 0,32767,0", 2, "", "--look"},
      {"render " + one + to + " --look -1 --cam 0,-32768,0", 2, "", "--look"},
      {"render " + one + " " + one + to, 2, "", "yax: "},
      {"render " + one + to + " --tier 4", 2, "", "--tier 4"},
      {"render " + (folder / "absent.yax") + to, 2, "", "absent.yax: no such file"},
      {"render " + (folder / "") + to, 2, "", "it is not a regular file"},
      {"render " + (folder / "none.yax") + to, 2, "", "none.yax: it has no COMPZ line"},
      {"render " + one + " -o " + (folder / "a.gif"), 2, "", "a.gif: "},
      {"render " + one + " -o " + (folder / "absent/a.png"), 2, "", "absent/a.png: "},
      {"render " + one + " -o " + (folder / "kept.png") + " --zu " + (folder / "absent.zu"), 2, "",
       "absent.zu: "},
  };
  for (const auto& [arguments, status, out, err] : cases) {
    const Ended ended = Yax(arguments);
    EXPECT_EQ(ended.status, status) << arguments << "\n" << ended.err;
    EXPECT_NE(ended.out.find(out), std::string::npos) << arguments << "\n" << ended.out;
    EXPECT_NE(ended.err.find(err), std::string::npos) << arguments << "\n" << ended.err;
    EXPECT_EQ(ended.out.empty(), out.empty()) << arguments << "\n" << ended.out;
    EXPECT_EQ(ended.Lines(), err.empty() ? 0U : 1U) << arguments << "\n" << ended.err;
    EXPECT_EQ(GetFile(folder / "a.png"), "") << arguments;
  }
  EXPECT_EQ(GetFile(folder / "kept.png"), "old");
}

TEST_F(YaxTest, AClosedPipeIsNotAnError) {
  // More than a pipe holds.
  const std::string command = "bash -c '" YAX_PROGRAM " export --unit mm -o - " + SamplePath("bga332") +
                              " 2>" + (folder / "err") + " | true; exit ${PIPESTATUS[0]}'";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 0);
  EXPECT_EQ(GetFile(folder / "err"), "");
  EXPECT_EQ(std::system(YAX_PROGRAM " --help >/dev/full 2>/dev/null"), 2 << 8) << "a full disk is";
}

TEST_F(YaxTest, ReadsRulesFromAPipe) {
  const auto pipe = [](const std::string& rule) {
    return "sh -c '(sleep .1; echo " + rule + ") | \"$0\" \"$@\"'";
  };
  // The sheet claims no more than was measured.
  const std::string sheet = folder / "a.svg";
  const std::pair<const char*, const char*> rows[] = {
      {"max-length 15 mil plan", "keeps all rules"},  // from x 15 to 30
      {"max-length 1 mil tier 9", "there is nothing to measure"}};
  for (const auto& [rule, verdict] : rows) {
    EXPECT_EQ(Yax("diagram --unit mil --rules /dev/stdin -o " + sheet + " " + OneWire(), pipe(rule)).status,
              0);
    EXPECT_NE(GetFile(sheet).find(verdict), std::string::npos) << rule;
  }
}

TEST_F(YaxTest, ExportsAnObjectWithItsColoursBesideIt) {
  const std::string one = OneWire();
  ASSERT_EQ(Yax("export -o " + (folder / "a.b.obj") + " " + one).status, 0);
  EXPECT_NE(GetFile(folder / "a.b.obj").find("\nmtllib a.b.mtl\n"), std::string::npos);
  EXPECT_NE(GetFile(folder / "a.b.mtl").find("newmtl rgb_255_255_0\n"), std::string::npos);
  // When one file cannot be written, the other is not replaced.
  ASSERT_EQ(std::system(("mkdir " + (folder / "c.obj")).c_str()), 0);
  PutFile(folder / "c.mtl", "of an earlier export");
  EXPECT_EQ(Yax("export -o " + (folder / "c.obj") + " " + one).status, 2);
  EXPECT_EQ(GetFile(folder / "c.mtl"), "of an earlier export");
}

TEST_F(YaxTest, DrawsTheWiresOfTheFindingsOnly) {
  const std::string loops = " --unit mm --net-pattern '^(V..)_' --base-loop-height .3 --base-extension .3 ";
  const auto yellow = [&](const std::string& options, int status) {
    const std::string bytes =
        PictureOf("clearance --size 200x150" + loops + options + SamplePath("bga332") + " --picture", status);
    std::size_t count = 0;
    for (std::size_t at = 54; at + 3 <= bytes.size(); at += 3)
      count += bytes.compare(at, 3, std::string("\0\xff\xff", 3)) == 0;
    return count;
  };
  EXPECT_GT(yellow("", 1), 20U);
  EXPECT_EQ(yellow("--tier-loop-height 4=.4 ", 0), 0U) << "no findings, no wires";
}

}  // namespace
