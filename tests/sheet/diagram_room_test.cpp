#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "sheet/bonding_diagram.h"
#include "tests/samples.h"
#include "tests/sheet/drawn_diagram.h"
#include "tests/temporary_folder.h"

namespace sheet {
namespace {

/// Of the labels, edge letters and axes of a sheet no two overlap.
/// Returns  how many there are
std::size_t ExpectNoOverlap(const Drawing& drawing, const std::string& what) {
  std::vector<TextBox> boxes;
  for (const char* layer : {"NUMBERS", "NAMES", "DIE"})
    for (const Text& text : OfLayer<Text>(drawing, 0, layer)) boxes.push_back(BoxOf(text));
  for (std::size_t a = 0; a < boxes.size(); ++a)
    for (std::size_t b = a + 1; b < boxes.size(); ++b)
      if (boxes[a].Low.x < boxes[b].High.x && boxes[b].Low.x < boxes[a].High.x &&
          boxes[a].Low.y < boxes[b].High.y && boxes[b].Low.y < boxes[a].High.y) {
        ADD_FAILURE() << what << ": " << a << " and " << b;
        return 0;
      }
  return boxes.size();
}

TEST(DiagramRoom, NoTwoLabelsOverlapOnTheSheetOfAnySample) {
  for (const std::string name : kSamples) {
    Drawn drawn(SamplePath(name));
    drawn.Millimetres = name == "cob32"                                        ? 1e-3
                        : name == "stacked-ram" || name == "flipchip-bigblade" ? 25.4e-3
                                                                               : 1.0;
    EXPECT_GT(ExpectNoOverlap(drawn.On(PaperNamed("a3")), name), 60U) << name;
  }
}

TEST(DiagramRoom, LabelsFewerOf2000WiresAndSaysSo) {
  std::string wires;
  for (int k = 0; k < 2000; ++k) wires += Wire("N" + std::to_string(k), -1.9 + 0.0019 * k, "L");
  const TemporaryFolder folder;
  const Drawing drawing = Drawn(PutPackage(folder, wires)).On(PaperNamed("a3"));
  EXPECT_GT(ExpectNoOverlap(drawing, "2000"), 400U);
  std::string words;
  for (const std::string& line : WordsOf(drawing, "FRAME")) words += line + "\n";
  EXPECT_NE(words.find(" of 2000 wires are labelled; there is no room for more."), std::string::npos)
      << words;
}

TEST(DiagramRoom, KeepsMarksOfATinyDieApart) {
  // On paper the dies are 4.5 and 2.2 wide at 1 : 1. Leads beside them leave room for some letters at most.
  for (const double scale : {1.125, 0.55}) {
    const TemporaryFolder folder;
    Drawn drawn(PutPackage(folder, Wire("A", 0.5, "1") + Wire("B", -0.5, "2")));
    const Drawing drawing = drawn.On(PaperNamed("a4"), scale);
    EXPECT_GT(ExpectNoOverlap(drawing, std::to_string(scale)), 10U);
    for (const Text& text : OfLayer<Text>(drawing, 0, "NUMBERS")) EXPECT_GE(text.Size, 1.4);
    // None of them lies on a wire or lead: these run from 1.9 to 4.5 at y of 0.5 and -0.5.
    for (const char* layer : {"NUMBERS", "DIE"})
      for (const Text& text : OfLayer<Text>(drawing, 0, layer)) {
        const TextBox box = BoxOf(text);
        for (const double y : {0.5, -0.5}) {
          const double at = drawing.Origin.y + y * scale, left = drawing.Origin.x + 1.9 * scale;
          EXPECT_FALSE(box.Low.y < at && at < box.High.y && left < box.High.x &&
                       box.Low.x < left + 2.6 * scale)
              << text.Words << " at " << scale;
        }
      }
  }
}

TEST(DiagramRoom, NamesASheetThatDoesFit) {
  const TemporaryFolder folder;
  Drawn drawn(PutPackage(folder, Wire("VDD", 0.5, "P1")));
  // At 500 : 1 the plan is 3.25 m wide and 2 m high; at 700 : 1 4.55 m, too wide with labels and a title
  // block of 120 in a sheet of 5.08 m at 1000 : 1.
  for (const auto& [scale, table] :
       {std::pair(100.0, false), {500.0, false}, {700.0, true}, {1000.0, false}}) {
    const std::string advice = drawn.RefusalOn(PaperNamed("a4"), scale, table);
    const std::size_t at = advice.rfind(' '), by = advice.rfind('x');
    if (scale == 1000.0) {
      EXPECT_EQ(advice, "the plan is larger than any sheet; give a smaller --scale, or check --unit");
      continue;
    }
    const Paper paper{"", std::stod(advice.substr(at)), std::stod(advice.substr(by + 1))};
    EXPECT_LE(paper.Width, 5080.0);
    EXPECT_EQ(drawn.RefusalOn(paper, scale, table), "") << advice;
    EXPECT_NE(drawn.RefusalOn({"", paper.Width - 10.0, paper.Height}, scale, table), "") << advice;
  }
  // A tier of 60 letters widens the table alone.
  const TemporaryFolder other;
  std::string wide = Wire("VDD", 0.5, "P1");
  wide.replace(wide.find("RECTANGLE 1 1"), 13, "RECTANGLE 1 " + std::string(60, 'W'));
  Drawn tiered(PutPackage(other, wide));
  EXPECT_EQ(tiered.RefusalOn({"", 180.0, 200.0}, 1.0), "");
  EXPECT_EQ(tiered.RefusalOn({"", 180.0, 200.0}, 1.0, true),
            "the table does not fit on this sheet; use --sheet a4");
}

TEST(DiagramRoom, BreaksWordsThatAreWiderThanTheirColumn) {
  const TemporaryFolder folder;
  Drawn drawn(PutPackage(folder, Wire("VDD", 0.5, "P1")));
  std::string note;
  for (int k = 0; k < 100; ++k) note += std::to_string(k);
  drawn.Notes = {"see " + note + "\xe4\xb8\xad. End"};
  const Drawing drawing = drawn.On(PaperNamed("a3"));
  std::string all;
  for (const Text& text : OfLayer<Text>(drawing, 0, "FRAME"))
    if (text.At.x > 300.0) {
      all += text.Words;
      EXPECT_LT(BoxOf(text).High.x, 410.0) << text.Words;
    }
  EXPECT_NE(all.find("see" + note + "\xe4\xb8\xad. End"), std::string::npos);
}

}  // namespace
}  // namespace sheet
