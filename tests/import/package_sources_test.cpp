#include <cmath>

#include "import/kicad_footprint.h"
#include "import/package_generator.h"
#include "model/numbers.h"
#include "tests/import/import_fixture.h"

namespace importer {
namespace {

std::string Short(double value) {
  return model::GeneralText(static_cast<float>(std::round(value * 1e6) / 1e6));
}

/// "NUMBER inner x y outer x y width", in millimetres.
std::string TextOf(const Lead& lead) {
  std::string text = lead.Label();
  for (const double value : {lead.Inner.x, lead.Inner.y, lead.Outer.x, lead.Outer.y, lead.Width})
    text += " " + Short(value);
  return text;
}

std::string TextOf(const std::optional<Paddle>& paddle) {
  return paddle ? Short(paddle->Size.x) + " x " + Short(paddle->Size.y) : "none";
}

TEST(PackageGenerator, LaysLeadsCounterClockwiseFromTheUpperLeft) {
  const LeadFrame frame = Outlined("qfn:16,body=5x4,pitch=0.65,lead=0.4x0.3,paddle=3x2", 1.0);
  ASSERT_EQ(frame.Leads.size(), 16U);
  // Four leads at 0.65 reach from -0.975 to 0.975; the body ends at 2.5 and 2.
  EXPECT_EQ(TextOf(frame.Leads[0]), "1 -2.1 0.975 -2.5 0.975 0.3");
  EXPECT_EQ(TextOf(frame.Leads[3]), "4 -2.1 -0.975 -2.5 -0.975 0.3");
  EXPECT_EQ(TextOf(frame.Leads[4]), "5 -0.975 -1.6 -0.975 -2 0.3");
  EXPECT_EQ(TextOf(frame.Leads[8]), "9 2.1 -0.975 2.5 -0.975 0.3");
  EXPECT_EQ(TextOf(frame.Leads[12]), "13 0.975 1.6 0.975 2 0.3");
  EXPECT_EQ(TextOf(frame.DiePaddle), "3 x 2");
  // The outer ends stand at the pitch, the tips lie on the line to the middle.
  const LeadFrame fan = Outlined("qfp:8,body=10000x10000,pitch=2000,lead=200,tip=2500", 1e-3);
  EXPECT_EQ(TextOf(fan.Leads[0]), "1 -2.5 0.5 -5 1 0.2");
  EXPECT_EQ(TextOf(fan.DiePaddle), "none");
}

TEST(PackageGenerator, RefusesImpossibleOutlines) {
  for (const char* const text :
       {"qfn:", "qfn:x", "qfn:1e9,body=5x5", "qfn:6,body=5x5,pitch=1,lead=0.4x0.3",
        "qfn:16,pitch=0.65,lead=0.4x0.3", "qfn:16,body=5x5,lead=0.4x0.3", "qfn:16,body=5x5,pitch=0.65",
        "qfn:16,body=5x5,pitch=0.65,lead=0.3", "qfn:16,body=5,pitch=0.65,lead=0.4x0.3",
        "qfn:64,body=5x5,pitch=0.65,lead=0.4x0.3", "qfn:16,body=5x5,pitch=0.3,lead=0.4x0.3",
        "qfn:16,body=5x5,pitch=0.65,lead=3x0.3", "qfp:16,body=5x5,pitch=0.65,lead=0.3,tip=3",
        "qfn:16,body=5x5,pitch=0.65,lead=0.4x0.3,paddle=6x6", "qfn:16,body=5x5,pitch=-1,lead=0.4x0.3",
        "qfn:16,body=5x5,pitch=0.65,lead=0.4x0.3,colour=3"})
    EXPECT_EQ(RefusalOf([&] { Outlined(text, 1.0); }).substr(0, 11), "--package: ") << text;
}

/// Lines on the fabrication layer: a square of 4 x 4 with one corner cut off, and lines that are not an
/// outline.
const std::string kBody =
    "(fp_line (start -1 -2) (end 2 -2) (layer F.Fab)) (fp_line (start 2 -2) (end 2 2) (layer F.Fab))\n"
    "(fp_line (start 2 2) (end -2 2) (layer \"F.Fab\"))\n"
    "(fp_line (start -2 2) (end -2 -1) (stroke (width 0.1) (type solid)) (layer \"F.Fab\"))\n"
    "(fp_line (start -2 -1) (end -1 -2) (layer \"F.Fab\")) (fp_line (start -9 -9) (end 9 9) (layer "
    "\"F.SilkS\"))\n"
    "(fp_line (start 2.5 0) (end 3 0) (layer \"F.Fab\")) (fp_text user \"${REFERENCE}\" (at 0 9) (layer "
    "\"F.Fab\"))\n";

TEST(KicadFootprint, ReadsTheFormsOfAllVersions) {
  // Two leads, left and below, that reach out of the body; a paddle.
  const std::string cases[] = {
      // KiCad 5: module, bare words.
      "(module QFN (layer F.Cu) (tedit 5A02F25C)\n" + kBody +
          "(pad 1 smd rect (at -2 -0.5) (size 1 0.3) (layers F.Cu F.Paste F.Mask))\n"
          "(pad 2 smd oval (at 0.5 2 90) (size 1 0.3) (layers F.Cu F.Paste F.Mask))\n"
          "(pad 3 smd rect (at 0 0) (size 2 2) (layers F.Cu F.Mask)))",
      // KiCad 6 to 8: footprint, quotes, locked, uuid, custom shapes, paste, vias.
      "(footprint \"Q F \\\" N\" (version 20240108) (generator \"pcbnew\") (layer \"F.Cu\") (descr \"a ) "
      "b\")\n"
      "(property \"Reference\" \"REF**\" (at 0 -4 0) (layer \"F.SilkS\") (uuid \"x\"))\n" +
          kBody +
          "(pad \"1\" smd roundrect locked (at -2 -0.5) (size 1 0.3) (layers \"F.Cu\" \"F.Mask\") (uuid "
          "\"a\"))\n"
          "(pad \"2\" smd custom (at 0.5 2 90) (size 0.2 0.2) (layers \"F.Cu\") (options (anchor rect))\n"
          "  (primitives (gr_poly (pts (xy -0.5 -0.15) (xy 0.5 -0.15) (xy 0.5 0.15) (xy -0.5 0.15)) (width "
          "0))))\n"
          "(pad \"\" smd rect (at 0.5 0.5) (size 0.8 0.8) (layers \"F.Paste\"))\n"
          "(pad \"\" np_thru_hole circle (at 3 3) (size 1 1) (drill 1) (layers \"*.Cu\" \"*.Mask\"))\n"
          "(pad \"3\" thru_hole circle (at 0.4 0.4) (size 0.5 0.5) (drill 0.2) (layers \"*.Cu\"))\n"
          "(pad \"3\" thru_hole circle (at -0.4 0.4) (size 0.5 0.5) (drill 0.2) (layers \"*.Cu\"))\n"
          "(pad \"3\" smd rect (at 0 0) (size 3 3) (layers \"B.Cu\"))\n"
          "(pad \"3\" smd rect (at 0 0) (size 2 2) (property pad_prop_heatsink) (layers \"F.Cu\" "
          "\"F.Mask\")))",
  };
  for (const std::string& text : cases) {
    const LeadFrame frame = FootprintOf(text, "f.kicad_mod");
    ASSERT_EQ(frame.Leads.size(), 2U) << text;
    // y runs up here; leads end where they leave the body, at 2.
    EXPECT_EQ(TextOf(frame.Leads[0]), "1 -1.5 0.5 -2 0.5 0.3");
    EXPECT_EQ(TextOf(frame.Leads[1]), "2 0.5 -1.5 0.5 -2 0.3");
    EXPECT_EQ(TextOf(frame.DiePaddle), "2 x 2");
  }
}

TEST(KicadFootprint, TakesPaddlesInPartsAndOriginsOffCentre) {
  const auto part = [](const char* place) {
    return std::string("(pad EP smd rect (at ") + place + ") (size 1.4 1.4) (layers F.Cu))\n";
  };
  const LeadFrame frame = FootprintOf(
      "(footprint X (pad 1 smd rect (at 7 10) (size 1 0.3) (layers F.Cu))\n"
      "(pad 2 smd rect (at 13 10) (size 1 0.3) (layers F.Cu))\n" +
          part("9.2 9.2") + part("10.8 9.2") + part("9.2 10.8") + part("10.8 10.8") + ")",
      "f");
  EXPECT_EQ(TextOf(frame.Leads[0]), "1 -2.5 0 -3.5 0 0.3");
  EXPECT_EQ(TextOf(frame.Leads[1]), "2 2.5 0 3.5 0 0.3");
  EXPECT_EQ(frame.Notes.size(), 1U) << "the origin is off centre";
  // Squares of 1.4 at +-0.8.
  EXPECT_EQ(TextOf(frame.DiePaddle), "3 x 3");
}

/// A board with two footprints, the second of which has two leads.
std::string Board(const std::string& place, const std::string& side, const std::string& angle) {
  const auto pad = [&](const char* start, const char* end) {
    return start + angle + ") (size 1 0.3) (layers \"" + side + ".Cu\") " + end + ")\n";
  };
  return "(kicad_pcb (version 20240108)\n(net 1 \"VDD\")\n"
         "(footprint \"R\" (layer \"F.Cu\") (at 1 1) (fp_text reference R1 (at 0 0)))\n"
         "(footprint \"U\" (layer \"" +
         side + ".Cu\")\n" + place + "(property \"Reference\" \"U1\" (at 0 0))\n" +
         pad("(pad \"1\" smd rect (at -2 0.5", "(net 1 \"/VDD\") (pinfunction \"VP\")") +
         pad("(pad \"2\" smd rect (at 2 0.5", "(net 2 \"unconnected-(U1-Pad2)\")") + "))\n";
}

TEST(KicadFootprint, LiesAsOnItsBoard) {
  const auto leads = [](const std::string& text) {
    return FootprintOnBoard(text, "b.kicad_pcb", "U1").Leads;
  };
  // Turned counter-clockwise by 90 degrees, (-2, -0.5) with y up comes to (0.5, -2).
  const std::vector<Lead> turned = leads(Board("(at 100 50 90)", "F", " 90"));
  EXPECT_EQ(TextOf(turned[0]), "1 0.5 -1.5 0.5 -2.5 0.3");
  EXPECT_EQ(turned[0].Name + " " + turned[0].PlainNet(), "VP VDD");
  EXPECT_FALSE(turned[1].HasNet());
  EXPECT_EQ(TextOf(leads(Board("(at 100 50)", "F", ""))[0]), "1 -1.5 -0.5 -2.5 -0.5 0.3");
  // Seen from the back, left and right change places.
  EXPECT_EQ(TextOf(leads(Board("(at 100 50)", "B", ""))[0]), "1 1.5 -0.5 2.5 -0.5 0.3");
  EXPECT_EQ(RefusalOf([&] { FootprintOnBoard(Board("", "F", ""), "b.kicad_pcb", "U2"); }),
            "b.kicad_pcb: no footprint has the reference 'U2'; it has R1, U1");
}

TEST(KicadFootprint, UndoesEscapesInNames) {
  const auto pad = [](const char* number, const char* at, const std::string& net) {
    return std::string("(pad ") + number + " smd rect (at " + at + ") (size 1 0.3) (layers F.Cu) (net \"" +
           net + "\") (pinfunction \"" + net + "\"))\n";
  };
  const LeadFrame frame =
      FootprintOf("(footprint X\n" + pad("1", "2 0 0 unlocked", "/A{slash}B{colon}{space}") +
                      pad("2", "-2 0", "~{RESET}{brace}{none}{backslash}") + ")",
                  "f");
  EXPECT_EQ(frame.Leads[0].PlainNet() + "|" + frame.Leads[1].Name, "A/B: |~{RESET}{{none}\\");
}

TEST(KicadFootprint, NamesTheFaultAndItsLine) {
  const std::string pad = "(pad 1 smd rect (at 2 0) (size 1 0.3) (layers F.Cu))\n";
  const std::pair<std::string, std::string> cases[] = {
      {"", "f:1: it does not begin with a bracket; "},
      {"\n(footprint X\n(pad 1", "f:3: the file ends within brackets or quotes; "},
      {"(footprint \"X\n)", "f:2: the file ends within brackets or quotes; "},
      {"(kicad_sch)", "f:1: it is not a footprint; "},
      {"(footprint X)", "f:1: the footprint has no pads; "},
      {"(footprint X (pad \"\" smd rect (at 2 0) (size 1 1) (layers F.Cu)))",
       "f:1: none of the footprint's pads is a lead; "},
      {"(footprint X\n" + pad + "(pad 2 smd rect (at 2) (size 1 1) (layers F.Cu)))",
       "f:3: 'at' needs 2 numbers here; "},
      {"(footprint X\n" + pad + "(pad 2 smd rect (at -2 0) (size 0 1) (layers F.Cu)))",
       "f:3: the pad has no size; "},
      {"(footprint X\n" + pad + "(pad 1 smd rect (at -2 0) (size 1 1) (layers F.Cu)))",
       "f:3: duplicate lead '1'; "},
      {"(footprint X\n" + pad + "(pad 2 smd rect (at -2 0 left) (size 1 1) (layers F.Cu)))",
       "f:3: the angle 'left' is not a number; "},
      {"(footprint X\n" + pad + "(fp_arc (start 0 0) (end 1 0) (angle x) (layer F.Fab)))",
       "f:3: the angle 'x' is not a number; "},
      {"(footprint X (pad 1 smd rect " + std::string(200, '(') + std::string(200, ')') + "))",
       "f:1: the element is too large to be part of a package; "},
  };
  for (const auto& [text, message] : cases)
    EXPECT_EQ(RefusalOf([&] { FootprintOf(text, "f"); }).substr(0, message.size()), message) << text;
}

}  // namespace
}  // namespace importer
