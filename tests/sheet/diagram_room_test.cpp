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

TEST(DiagramRoom, LabelsFewerOf32000WiresAndSaysSo) {
  // Wires of 10 length from the die's edges outwards, 8000 on each side of 160.
  std::string text = "TECHNOLOGY WIRE_BOND\nCOMPL 160\nCOMPW 160\nCOMPZ 0.3\n";
  for (int k = 0; k < 32000; ++k) {
    const double along = -79.99 + 0.02 * (k / 4);
    const bool upright = k % 2 == 1;
    const double out = k % 4 < 2 ? 1.0 : -1.0;
    const auto at = [&](double far) {
      return std::to_string(upright ? along : out * far) + " " + std::to_string(upright ? out * far : along);
    };
    const std::string name = "N" + std::to_string(k);
    text += "CBP " + name + " " + at(79.9) + " 0 0.01 0.01 0 " + "RTLB"[k % 4] + " RECTANGLE\nWB " + name +
            " " + at(79.9) + " L " + at(90.0) + " 0 0\n";
  }
  const TemporaryFolder folder;
  Drawn drawn(PutFile(folder / "board.yax", text));
  ASSERT_EQ(drawn.Wires.size(), 32000U);
  const Drawing drawing = drawn.On(PaperNamed("a3"));
  EXPECT_GT(ExpectNoOverlap(drawing, "32,000"), 400U);
  const std::vector<std::string> words = WordsOf(drawing, "FRAME");
  EXPECT_TRUE(std::any_of(words.begin(), words.end(), [](const std::string& line) {
    return line.find(" of 32000 wires are labelled; there is no room for more.") != std::string::npos;
  }));
}

TEST(DiagramRoom, KeepsMarksOfATinyDieApart) {
  // On paper the dies are 4.5 and 2.2 wide at 1 : 1. Leads beside them leave room for some letters at most.
  for (const double scale : {1.125, 0.55}) {
    const TemporaryFolder folder;
    Drawn drawn(PutPackage(folder, Wire("A", 0.5, "1") + Wire("B", -0.5, "2")));
    const Drawing drawing = drawn.On(PaperNamed("a4"), scale);
    ExpectNoOverlap(drawing, std::to_string(scale));
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
    std::string advice;
    try {
      drawn.On(PaperNamed("a4"), scale, Split::None, table);
    } catch (const DoesNotFit& fault) {
      advice = fault.what();
    }
    const std::size_t at = advice.rfind(' '), by = advice.rfind('x');
    if (scale == 1000.0) {
      EXPECT_EQ(advice,
                "the plan is larger than any sheet; give a smaller --scale, or see that --unit is right");
      continue;
    }
    const Paper paper{"", std::stod(advice.substr(at)), std::stod(advice.substr(by + 1))};
    EXPECT_LE(paper.Width, 5080.0);
    EXPECT_NO_THROW(drawn.On(paper, scale, Split::None, table)) << advice;
    const Paper smaller{"", paper.Width - 10.0, paper.Height};
    EXPECT_THROW(drawn.On(smaller, scale, Split::None, table), DoesNotFit) << advice;
  }
  // A tier of 60 letters widens the table alone.
  const TemporaryFolder other;
  std::string wide = Wire("VDD", 0.5, "P1");
  wide.replace(wide.find("RECTANGLE 1 1"), 13, "RECTANGLE 1 " + std::string(60, 'W'));
  Drawn tiered(PutPackage(other, wide));
  EXPECT_NO_THROW(tiered.On({"", 180.0, 200.0}, 1.0));
  try {
    tiered.On({"", 180.0, 200.0}, 1.0, Split::None, true);
    ADD_FAILURE() << "the table has room";
  } catch (const DoesNotFit& fault) {
    EXPECT_STREQ(fault.what(), "the table does not fit on this sheet; use --sheet a4");
  }
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
