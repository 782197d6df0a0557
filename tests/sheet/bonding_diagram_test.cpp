#include "sheet/bonding_diagram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "sheet/title_fields.h"
#include "sheet/wire_looks.h"
#include "tests/samples.h"
#include "tests/sheet/drawn_diagram.h"
#include "tests/temporary_folder.h"

namespace sheet {
namespace {

TEST(BondingDiagram, DrawsWiresToScaleFromTheDiesOrigin) {
  const TemporaryFolder folder;
  Drawn drawn(PutPackage(folder, Wire("VDD", 0.5, "P1")));
  const Drawing drawing = drawn.On(PaperNamed("a3"), 10.0);
  const std::vector<Line> wires = OfLayer<Line>(drawing, 0, "WIRES_1");
  ASSERT_EQ(wires.size(), 1U);
  EXPECT_NEAR(wires[0].From.x - drawing.Origin.x, 19.0, 1e-5);
  EXPECT_NEAR(wires[0].From.y - drawing.Origin.y, 5.0, 1e-5);
  EXPECT_NEAR(wires[0].To.x - drawing.Origin.x, 40.0, 1e-5);
  const std::vector<std::string> names = WordsOf(drawing, "NAMES");
  EXPECT_TRUE(Has(names, "P1") && Has(names, "VDD"));
  EXPECT_TRUE(Has(WordsOf(drawing, "NUMBERS"), "1"));
}

TEST(BondingDiagram, TakesTheLargestScaleThatFitsOrNamesAPaperThatFits) {
  const TemporaryFolder folder;
  Drawn drawn(PutPackage(folder, Wire("VDD", 0.5, "P1")));
  // From -2 to 4.5 the plan is 6.5 wide: 130 at 20 : 1, 325 at 50 : 1.
  EXPECT_EQ(drawn.On(PaperNamed("a3")).Scale, 20.0);
  EXPECT_EQ(drawn.On(PaperNamed("a4")).Scale, 20.0);
  EXPECT_EQ(drawn.On(PaperNamed("a2")).Scale, 50.0);
  // 325 does not fit into 210.
  EXPECT_EQ(drawn.RefusalOn(PaperNamed("a4"), 50.0),
            "the plan does not fit on a sheet a4 at 50 : 1; use --sheet a2");
}

TEST(BondingDiagram, MarksLeadOneOnlyIfThereIsExactlyOne) {
  const std::pair<std::vector<const char*>, std::size_t> rows[] = {
      {{"1", "2"}, 1}, {{"P1", "P2"}, 1}, {{"P1", "Q1"}, 0}, {{"11", "P10"}, 0}, {{"1A", "LEAD_1"}, 0}};
  for (const auto& [leads, marks] : rows) {
    const TemporaryFolder folder;
    Drawn drawn(PutPackage(folder, Wire("A", 0.5, leads[0]) + Wire("B", -0.5, leads[1])));
    const std::vector<Area> areas = OfLayer<Area>(drawn.On(PaperNamed("a3")), 0, "LEADS");
    EXPECT_EQ(std::count_if(areas.begin(), areas.end(), [](const Area& area) { return !area.Pen; }), marks)
        << leads[0];
  }
}

TEST(BondingDiagram, HasALegendOnlyForWhatTheSheetShows) {
  const TemporaryFolder folder;
  // A die without a size has no marks.
  Drawn bare(PutFile(folder / "bare.yax", "TECHNOLOGY WIRE_BOND\nCOMPZ 0.3\n"));
  EXPECT_FALSE(Has(WordsOf(bare.On(PaperNamed("a3")), "FRAME"), "Legend"));
  // All wires are of tier 1: there is no other sheet.
  Drawn one(PutPackage(folder, Wire("A", 0.5, "1") + Wire("B", -0.5, "2")));
  const std::vector<std::string> words = WordsOf(one.On(PaperNamed("a3"), {}, Split::Tier), "FRAME");
  EXPECT_TRUE(Has(words, "Legend") && Has(words, "lead 1"));
  EXPECT_FALSE(Has(words, "wires of the other sheets"));
  Drawn several(SamplePath("AAAc"));
  EXPECT_TRUE(
      Has(WordsOf(several.On(PaperNamed("a3"), {}, Split::Tier), "FRAME"), "wires of the other sheets"));
}

TEST(BondingDiagram, PutsWiresOnTheLayersOfTheirTiersAndFindingsTwice) {
  Drawn drawn(SamplePath("AAAc"));
  drawn.Wires[4].Offends = true;
  const Drawing drawing = drawn.On(PaperNamed("a3"));
  // The sample has 8, 12, 52 and 16 wires in tiers 1 to 4, and 8 stitches.
  const std::pair<const char*, std::size_t> rows[] = {
      {"WIRES_1", 8}, {"WIRES_2", 12}, {"WIRES_3", 52}, {"WIRES_4", 16}, {"WIRES_STITCH", 8}};
  for (const auto& [layer, count] : rows) EXPECT_EQ(OfLayer<Line>(drawing, 0, layer).size(), count) << layer;
  std::size_t red = 0;
  for (const Line& line : OfLayer<Line>(drawing, 0, "FINDINGS"))
    red += line.Pen.Width > 0.4 && line.From.x < 300 ? 1U : 0U;
  EXPECT_EQ(red, 1U);
}

TEST(BondingDiagram, SplitsIntoASheetForEachTierWithTheOthersInGrey) {
  Drawn drawn(SamplePath("bga332"));
  const Drawing drawing = drawn.On(PaperNamed("a3"), {}, Split::Tier, true);
  // Tiers 1 to 4 of 92, 61, 35 and 140 wires, then the table.
  ASSERT_GE(drawing.Pages.size(), 5U);
  const std::size_t counts[] = {92, 61, 35, 140};
  for (std::size_t page = 0; page < 4; ++page) {
    std::size_t shown = 0;
    for (const char* layer : {"WIRES_1", "WIRES_2", "WIRES_3", "WIRES_4"})
      for (const Line& line : OfLayer<Line>(drawing, page, layer))
        shown += line.Pen.Colour != Grey(0.62) ? 1U : 0U;
    EXPECT_EQ(shown, counts[page]) << page;
  }
  std::set<std::string> listed;
  for (std::size_t page = 4; page < drawing.Pages.size(); ++page)
    for (const Text& text : OfLayer<Text>(drawing, page, "TABLE")) listed.insert(text.Words);
  for (const DiagramWire& wire : drawn.Wires) EXPECT_TRUE(listed.contains(wire.Name)) << wire.Name;
}

TEST(BondingDiagram, GivesEachLayerOfWiresADifferentLook) {
  std::vector<DiagramWire> wires;
  for (const char* tier : {"", "0", "00", "x", "1", "2", "3", "4", "5", "12", "100", "101", "1000000"})
    wires.push_back({.Place = {model::RecordTable::Bonds, 0}, .Tier = tier});
  wires.push_back({.Place = {model::RecordTable::Stitches, 0}});
  const WireLooks looks = LooksOf(wires);
  std::string order;
  for (const auto& [layer, look] : looks) order += layer.substr(6) + " ";
  // The first four have no number of a tier.
  EXPECT_EQ(order, "0 1 2 3 4 5 12 100 101 1000000 STITCH ");
  for (const auto& [a, look] : looks)
    for (const auto& [b, other] : looks) EXPECT_EQ(look == other, a == b) << a << " " << b;
}

TEST(BondingDiagram, TakesOddNamesAndNotesAndPackagesWithoutWires) {
  const TemporaryFolder folder;
  const std::string longName(60, 'W');
  Drawn drawn(PutPackage(folder, Wire(longName, 0.5, "\xe4\xb8\xad") + Wire("\xff<&>", -0.5, "%%d")));
  drawn.Notes = {"tab\there", std::string(500, 'x'), "\xf0\x9f\x98\x80"};
  const Drawing drawing = drawn.On(PaperNamed("a3"));
  EXPECT_TRUE(Has(WordsOf(drawing, "NAMES"), longName));
  EXPECT_TRUE(Has(WordsOf(drawing, "NAMES"), "\xef\xbf\xbd<&>"));
  for (const std::string& bytes : {PdfOf(drawing), SvgOf(drawing), DxfOf(drawing)})
    EXPECT_GT(bytes.size(), 1000U);

  const TemporaryFolder other;
  Drawn empty(PutPackage(other, ""));
  EXPECT_EQ(empty.On(PaperNamed("a4")).Pages.size(), 1U);

  const std::string huge =
      PutFile(other / "huge.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 1e30\nCOMPW 3e38\nCOMPZ 1\n");
  EXPECT_THROW(Drawn(huge).On(PaperNamed("a4")), DoesNotFit);
}

TEST(TitleFields, TakeTheKeysOfAFileAndNameUnknownKeys) {
  TitleFields fields;
  ReadTitleFields("t", "# block\n\ntitle = A b \nrevision=B=2\r\n", fields);
  EXPECT_EQ(fields.Title, "A b");
  EXPECT_EQ(fields.Revision, "B=2");
  EXPECT_EQ(fields.Date, "");
  const std::pair<const char*, const char*> rows[] = {
      {"title = x\nTitle = y",
       "t:2: unknown key 'Title'; use one of title part package drawn checked approved date revision"},
      {"part", "t:1: 'part' has no '='; write KEY=TEXT"}};
  for (const auto& [text, message] : rows)
    EXPECT_EQ(Refusal([&] { ReadTitleFields("t", text, fields); }), message);
}

}  // namespace
}  // namespace sheet
