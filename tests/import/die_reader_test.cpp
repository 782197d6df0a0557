#include "import/die_reader.h"

#include <zlib.h>

#include "import/orientation.h"
#include "import/source_file.h"
#include "model/numbers.h"
#include "tests/import/import_fixture.h"
#include "tests/pattern.h"

namespace importer {
namespace {

/// "NAME X Y WIDTH HEIGHT" of each pad, in micrometres from the die's middle.
std::string TextOf(const Die& die) {
  std::string text;
  for (const DiePad& pad : die.Pads) {
    text += (text.empty() ? "" : "; ") + pad.Name;
    for (const double value : {pad.Middle.x, pad.Middle.y, pad.Size.x, pad.Size.y})
      text += " " + model::GeneralText(static_cast<float>(value * 1000.0));
  }
  return text;
}

const std::string kHead =
    "VERSION 5.8 ;\nDESIGN x ;\nUNITS DISTANCE MICRONS 1000 ;\nDIEAREA ( 0 0 ) ( 1000000 800000 ) ;\n";

class DieReaderTest : public ImportTest {
 protected:
  std::string Pads(const std::string& def, DieRequest request = {}) const {
    request.File = Put("a.def", def);
    return TextOf(ReadDie(request));
  }
  std::string Refused(const std::string& name, const std::string& text, DieRequest request = {}) const {
    request.File = Put(name, text);
    return RefusalOf([&] { ReadDie(request); });
  }
};

TEST(Orientation, TurnsAndFlipsAsInTheFormat) {
  // A cell of 10 x 4 with a box from (1, 1) to (3, 2). Flipped orientations mirror x first, then turn.
  const std::pair<const char*, Box> cases[] = {
      {"N", {{1, 1}, {3, 2}}},  {"S", {{7, 2}, {9, 3}}},  {"W", {{2, 1}, {3, 3}}},  {"E", {{1, 7}, {2, 9}}},
      {"FN", {{7, 1}, {9, 2}}}, {"FS", {{1, 2}, {3, 3}}}, {"FW", {{1, 1}, {2, 3}}}, {"fe", {{2, 7}, {3, 9}}}};
  for (const auto& [name, box] : cases) {
    const Box turned = OrientedInCell({{1, 1}, {3, 2}}, {10, 4}, OrientationOf(name).value());
    EXPECT_EQ(turned.Low, box.Low) << name;
    EXPECT_EQ(turned.High, box.High) << name;
  }
  EXPECT_FALSE(OrientationOf("NE").has_value());
}

TEST_F(DieReaderTest, FindsPadsAmongOtherShapes) {
  const std::pair<std::string, std::string> cases[] = {
      // Relative to the pin's place, turned to the left: (10..70, 0..50) becomes (-50..0, 10..70).
      {"- a + NET a + USE SIGNAL + PORT + LAYER m5 ( 10000 0 ) ( 70000 50000 ) + PLACED ( 100000 100000 ) W "
       ";",
       "a -425 -260 50 60"},
      // The older form, corners the other way round, words that stick together, any case, comments.
      {"- b\\[0\\] + net b + layer m5 MASK 2 SPACING 5 (60000 60000) (0 0) # (1 1)\n+ fixed ( 0 0 ) n;",
       "b[0] -470 -370 60 60"},
      // Several ports, of which one is too thin, one lies on another layer and one is not placed.
      {"- VDD + PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + FIXED ( 0 0 ) N\n"
       "+ PORT + LAYER m5 ( 0 0 ) ( 900000 2000 ) + FIXED ( 0 0 ) N\n"
       "+ PORT + LAYER m2 ( 0 0 ) ( 50000 50000 ) + FIXED ( 0 0 ) N\n"
       "+ PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + COVER ( 100000 0 ) N\n"
       "+ PORT + LAYER m5 ( 0 0 ) ( 50000 50000 ) ;",
       "VDD -470 -370 60 60; VDD -370 -370 60 60"},
      // An octagon counts as its box, a bent strap does not; a "*" repeats a coordinate.
      {"- o + PORT + POLYGON m5 ( 20000 0 ) ( 40000 * ) ( 60000 20000 ) ( * 40000 ) ( 40000 60000 ) ( 20000 "
       "* )\n"
       "( 0 40000 ) ( * 20000 ) + FIXED ( 0 0 ) N ;\n"
       "- l + PORT + POLYGON m5 ( 0 0 ) ( 60000 0 ) ( 60000 5000 ) ( 5000 5000 ) ( 5000 60000 ) ( 0 60000 )\n"
       "+ FIXED ( 300000 0 ) N ;",
       "o -470 -370 60 60"},
      // Shapes of one pin that overlap are one pad, the larger one.
      {"- p + PORT + LAYER m5 ( 5000 5000 ) ( 55000 55000 ) + LAYER m5 ( 0 0 ) ( 60000 60000 ) + VIA v ( 0 0 "
       ")\n"
       "+ FIXED ( 0 0 ) N ;",
       "p -470 -370 60 60"},
  };
  // The middle of the die is at (500, 400) um.
  for (const auto& [pins, pads] : cases)
    EXPECT_EQ(Pads(kHead + "PINS 1 ;\n" + pins + "\nEND PINS\nEND DESIGN\n"), pads) << pins;
}

TEST_F(DieReaderTest, SkipsOtherSectionsInAnyOrder) {
  EXPECT_EQ(
      Pads(
          "PROPERTYDEFINITIONS\nCOMPONENTPIN note STRING ;\nEND PROPERTYDEFINITIONS\n"
          "NONDEFAULTRULES 1 ;\n- r + LAYER m5 WIDTH 5 ;\nEND NONDEFAULTRULES\nPINS 1 ;\n"
          "- a + PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + FIXED ( 0 0 ) N + PROPERTY note \"; END PINS\" ;\n"
          "END PINS\nSPECIALNETS 1 ;\n- v ( * v ) + ROUTED m5 100 ( 0 0 ) ( * 5 ) ;\nEND SPECIALNETS\n"
          "BEGINEXT \"x\" - PINS ; ENDEXT\nNETS 1 ;\n- PINS ( PIN a ) ;\nEND NETS\n"
          "TRACKS X 0 DO 5 STEP 5 LAYER m5 ;\n" +
          kHead + "END DESIGN\n"),
      "a -470 -370 60 60");
}

TEST_F(DieReaderTest, AQuoteInARemarkDoesNotSwallowThePads) {
  const std::string pin = "- a + PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + FIXED ( 0 0 ) N";
  for (const std::string remark : {"HISTORY say \" ;", "HISTORY moved; PINS were wrong ;", "HISTORY \"a b;",
                                   "TECHNOLOGY \" ;", "NETS 1 ;\n- n\\[\" \" ( x ) ;\nEND NETS"})
    EXPECT_EQ(Pads(kHead + remark + "\nPINS 1 ;\n" + pin + " ;\nEND PINS\nEND DESIGN\n"), "a -470 -370 60 60")
        << remark;
  // A pin's own text may span lines, and has to be closed.
  EXPECT_EQ(Pads(kHead + "PINS 1 ;\n" + pin + " + PROPERTY note \"; \nEND PINS\" ;\nEND PINS\nEND DESIGN\n"),
            "a -470 -370 60 60");
  EXPECT_EQ(Refused("a.def", kHead + "PINS 1 ;\n" + pin + " + PROPERTY note \"x ;\nEND PINS\n").substr(0, 32),
            "a.def:6: a quote is not closed; ");
}

constexpr char kCells[] =
    "MACRO BOND\n CLASS COVER ;\n ORIGIN 10 4 ;\n SIZE 80 BY 84 ;\n PIN PAD\n  USE POWER ;\n  PORT\n   LAYER "
    "m5 ;\n"
    "    RECT 0 0 60 76 ;\n  END\n END PAD\n TIMING\n  RISE 1 ;\n END TIMING\n OBS\n  LAYER m5 ;\n   RECT 0 "
    "0 60 60 ;\n END\nEND BOND\n"
    "PROPERTYDEFINITIONS\n MACRO BOND STRING ;\nEND PROPERTYDEFINITIONS\nMACRO CORE\n SIZE 9 BY 9 ;\nEND "
    "CORE\n"
    "END LIBRARY\n";

TEST_F(DieReaderTest, TakesPadsOfCellsAndPinsOnThem) {
  const std::string cells =
      "COMPONENTS 5 ;\n- io\\[1\\] BOND + SOURCE DIST + FIXED ( 100000 0 ) N ;\n- io2 BOND + PLACED ( 900000 "
      "0 ) FN ;\n"
      "- c CORE + PLACED ( 0 0 ) N ;\n- d GONE + PLACED ( 0 0 ) N ;\n- e BOND + UNPLACED ;\nEND COMPONENTS\n";
  // The cell's box begins at (-10, -4), so its pad at (10, 4) from the lower left corner: 110..170 x 4..80
  // um. The other one is mirrored: 80 - 70 = 10 from the left, 910..970.
  DieRequest request;
  request.LefFiles = {Put("cells.lef", kCells)};
  EXPECT_EQ(Pads(kHead + cells + "END DESIGN\n", request), "io[1] -360 -358 60 76; io2 440 -358 60 76");
  // A pin drawn on a pad, as a mark or as a whole, names it; a pin on another layer does not.
  const std::string pins =
      "PINS 3 ;\n- A + PORT + LAYER m5 ( 0 0 ) ( 1000 1000 ) + FIXED ( 150000 50000 ) N ;\n"
      "- B + PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + FIXED ( 915000 10000 ) N ;\n"
      "- C + PORT + LAYER m2 ( 0 0 ) ( 1000 1000 ) + FIXED ( 160000 50000 ) N ;\nEND PINS\n";
  EXPECT_EQ(Pads(kHead + cells + pins + "END DESIGN\n", request), "A -360 -358 60 76; B 440 -358 60 76");
  request.Rule.Names = Pattern("^io2$");
  EXPECT_EQ(Pads(kHead + cells + "END DESIGN\n", request), "io2 440 -358 60 76");
  EXPECT_EQ(Refused("a.def", kHead + cells + "END DESIGN\n"),
            "a.def: no pads found among 0 pins with 0 shapes and 5 cells (0 of them in a --lef); give the "
            "LEF of the "
            "pad cells with --lef, or a smaller --pad-min");
}

TEST_F(DieReaderTest, ReadsTheMacroOfAWholeChip) {
  DieRequest request{.File = Put("cells.lef", kCells), .Macro = "BOND"};
  const Die die = ReadDie(request);
  // The pad's middle is at (40, 42) of 80 x 84 um, which is the die's middle.
  EXPECT_EQ(TextOf(die), "PAD 0 0 60 76");
  EXPECT_EQ(die.Pads[0].Type, NetType::Power);
  EXPECT_EQ(die.Notes.size(), 1U) << "the size is the macro's";
  request.DieSize = {2.0, 1.0};
  EXPECT_EQ(ReadDie(request).Size, glm::dvec2(2.0, 1.0));
  request.PadSize = {0.05, 0.04};
  EXPECT_EQ(TextOf(ReadDie(request)), "PAD 0 0 50 40");
}

TEST_F(DieReaderTest, RepeatsTheShapesOfAMacro) {
  const auto pads = [this](const std::string& shape) {
    return TextOf(
        ReadDie({.File = Put("a.lef", "MACRO m\n SIZE 1000 BY 800 ;\n PIN a\n  PORT\n   LAYER m5 ;\n   " +
                                          shape + " ;\n  END\n END a\nEND m\n")}));
  };
  // Columns of 100, rows of 200 um; the die's middle is at (500, 400) um.
  const std::string four = "a -470 -370 60 60; a -370 -370 60 60; a -470 -170 60 60; a -370 -170 60 60";
  const std::string points = " 0 0 60 0 60 60 0 60";
  EXPECT_EQ(pads("RECT ITERATE 0 0 60 60 DO 2 BY 2 STEP 100 200"), four);
  EXPECT_EQ(pads("RECT MASK 1 ITERATE ( 0 0 ) ( 60 60 ) DO 2 BY 2 STEP 100 200"), four);
  EXPECT_EQ(pads("POLYGON ITERATE" + points + " DO 2 BY 2 STEP 100 200"), four);
  EXPECT_EQ(pads("POLYGON MASK 2" + points), "a -470 -370 60 60");
  const std::pair<std::string, std::string> refused[] = {
      {"DO 0 BY 1 STEP 1 1", "'0' is not a number of repetitions; "},
      {"DO 1.5 BY 1 STEP 1 1", "'1.5' is not a number of repetitions; "},
      {"DO 1000 BY 101 STEP 1 1", "ITERATE makes more than 100000 shapes; "},
      {"", "expected 'DO' but found ';'; "},
      {"DO 2 BY 2", "expected 'STEP' but found ';'; "}};
  for (const auto& [steps, message] : refused)
    EXPECT_EQ(RefusalOf([&] { pads("RECT ITERATE 0 0 60 60 " + steps); }).substr(0, 9 + message.size()),
              "a.lef:6: " + message);
}

TEST_F(DieReaderTest, NamesTheFaultAndItsLine) {
  const std::string pin = "PINS 1 ;\n- a + PORT + LAYER m5 ( 0 0 ) ( 60000 60000 ) + FIXED ( 0 0 ) N ;\n";
  const std::string open = "PINS 1 ;\n- a + PORT + LAYER m5 ( 0 0 ) ";
  const std::string macro = "MACRO m\n SIZE 80 BY 84 ;\n";
  const std::string port = macro + " PIN a\n  PORT\n   LAYER m5 ;\n   RECT 0 0 9 ";
  const struct {
    const char* file;
    std::string text, message;
  } cases[] = {
      {"a.def", kHead + pin, "a.def:7: the file ends in the middle of a statement; "},
      {"a.def", kHead + pin + "END PINS\nNETS 1 ;\n- n (", "a.def:9: the file ends within NETS; "},
      {"a.def", kHead + open + "( 0x 1 )", "a.def:6: '0x' is not a number; "},
      {"a.def", kHead + open + "( 1 nan )", "a.def:6: 'nan' is not a number; "},
      {"a.def", kHead + "PINS 1 ;\n- a + FIXED ( 0 0 ) NW ;", "a.def:6: 'NW' is not an orientation; "},
      {"a.def", "DIEAREA ( 0 0 ) ( 9 9 ) ;\nEND DESIGN\n", "a.def: it has no line UNITS DISTANCE MICRONS; "},
      {"a.def", "UNITS DISTANCE MICRONS 1000 ;\nEND DESIGN\n", "a.def: it has no DIEAREA; "},
      {"a.def", kHead + open + "( 9 9 ) + FIXED ( 0 0 ) N ;\nEND PINS\nEND DESIGN\n",
       "a.def: no pads found among 1 pin with 1 shape and 0 cells (0 of them in a --lef); try a smaller "
       "--pad-min"},
      {"a.def", kHead + "END DESIGN\n", "a.def: it has neither pins nor cells; "},
      {"a.def.gz", "\x1f\x8b\x08", "a.def.gz: the gzip file ends too early; "},
      {"a.lef", macro + "END m\n", "a.lef:1: the macro 'm' has no pins; "},
      {"a.lef", port + "x ;\n", "a.lef:6: 'x' is not a number; "},
      {"a.lef", port + "9 ;\n  END\n END a\nEND m\n", "a.lef:1: no pads found among 1 pin with 1 shape; "},
      {"a.lef", macro + " PIN a\n", "a.lef:4: the file ends in the middle of a statement; "},
      {"a.lef", "VERSION 5.8 ;\n", "a.lef: it has no MACRO; "},
      {"a.lef", macro + "END m\nMACRO n\nEND n\n",
       "a.lef: it has several macros: m, n; choose one with --macro"},
      {"a.xlsx", "PK", "a.xlsx: workbooks of spreadsheet programs cannot be read; save the sheet as CSV"},
      {"a.gds", "", "a.gds: its name does not end in .def, "},
      {"a.csv", "name,x,y\na,1,1\n",
       "a.csv: a table of pads does not say how large the die is; give --die-size"},
  };
  for (const auto& [file, text, message] : cases)
    EXPECT_EQ(Refused(file, text).substr(0, message.size()), message) << text;
  EXPECT_EQ(RefusalOf([&] { ReadDie({.File = folder / "none.def"}); }),
            "none.def: no such file; correct its path");
  for (const char* const file : {"a.lef", "a.csv"})
    EXPECT_EQ(RefusalOf([&] { ReadDie({.File = file, .LefFiles = {"b.lef"}}); }),
              "--lef: only a DEF places cells of another file; remove it, or give a DEF as --die");
  for (const char* const file : {"a.def", "a.csv"})
    EXPECT_EQ(RefusalOf([&] { ReadDie({.File = file, .Macro = "m"}); }),
              "--macro: only a LEF has macros; remove it, or give a LEF as --die");
}

TEST(SourceFile, UnpacksMembersAndRefusesDamage) {
  const TemporaryFolder folder;
  const std::string text = "some text, some text, some text";
  const gzFile file = gzopen((folder / "a.gz").c_str(), "wb9");
  gzputs(file, text.c_str());
  gzclose(file);
  std::string packed = GetFile(folder / "a.gz");
  EXPECT_EQ(Unzipped(packed, "a"), text);
  EXPECT_EQ(Unzipped(packed + packed, "a"), text + text);
  EXPECT_NE(RefusalOf([&] { Unzipped(packed.substr(0, packed.size() - 1), "a"); }), "");
  packed[15] = static_cast<char>(packed[15] ^ 0x55);
  EXPECT_NE(RefusalOf([&] { Unzipped(packed, "a"); }), "");
}

TEST(Die, FindsEdgesAndUniqueNames) {
  const auto pad = [](const char* name, double x, double y) {
    return DiePad{.Name = name, .Middle = {x, y}, .Size = {0.06, 0.06}};
  };
  // The last four lie in or near corners: the row on the left comes nearer to the first, the row at the
  // bottom to the third.
  Die die;
  die.Pads = {pad("l", -0.9, 0),    pad("r", 0.9, 0.1),   pad("t", 0, 0.9),    pad("b", 0.2, -0.9),
              pad("c", -0.9, -0.9), pad("d", -0.9, -0.5), pad("e", 0.9, -0.9), pad("f", 0.6, -0.9)};
  die.Size = {2, 2};
  FindSides(die);
  std::string sides;
  for (const DiePad& found : die.Pads) sides += found.Side;
  EXPECT_EQ(sides, "LRTBLLBB");

  std::vector<DiePad> pads{pad("A", 0, 0),   pad("A", 0, 0), pad("A_2", 0, 0),
                           pad("B C", 0, 0), pad("A", 0, 0), pad("B_C", 0, 0)};
  EXPECT_EQ(NamePads(pads).size(), 2U);
  std::string names;
  for (const DiePad& named : pads) names += named.Name + " ";
  EXPECT_EQ(names, "A A_3 A_2 B_C_2 A_4 B_C ") << "A_2 is taken, and a pad is named B_C";
}

}  // namespace
}  // namespace importer
