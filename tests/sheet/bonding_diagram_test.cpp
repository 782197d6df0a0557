#include "sheet/bonding_diagram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "sheet/measured_data.h"
#include "sheet/title_fields.h"
#include "tests/samples.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace sheet {
namespace {

const std::vector<Paper>& Papers() { return NamedPapers(); }
Paper PaperNamed(const std::string& name) {
  return *std::find_if(Papers().begin(), Papers().end(),
                       [&](const Paper& paper) { return paper.Name == name; });
}

yax::LoopOptions AtDieHeight() {
  yax::LoopOptions options;
  options.DieHeight = true;
  return options;
}

/// A package and its diagram.
struct Drawn {
  yax::OpenedPackage Opened;
  std::vector<DiagramWire> Wires;
  std::vector<Fact> Facts = {};
  std::vector<std::string> Notes = {}, Findings = {};

  explicit Drawn(const std::string& path) : Opened({path}, AtDieHeight()) {
    Wires = DiagramWiresOf(Opened.Package, Opened.Loops(), Opened.Lines);
  }

  Drawing On(const Paper& paper, std::optional<double> scale = {}, Split split = Split::None,
             bool table = false) {
    Facts = MeasuredData({Opened.Package, Wires, Opened.Settings, "mm", 1.0, "", ""});
    return BondingDiagram({.Package = Opened.Package,
                           .Wires = Wires,
                           .Facts = Facts,
                           .Notes = Notes,
                           .Findings = Findings,
                           .Title = {.Title = "T"},
                           .FileName = "board.yax",
                           .Digest = "0123456789ab",
                           .Paper = paper,
                           .Scale = scale,
                           .Into = split,
                           .Table = table});
  }
};

std::string PutPackage(const TemporaryFolder& folder, const std::string& wires) {
  return PutFile(folder / "board.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 0.3\n" + wires);
}

/// A wire to the right from (1.9, y), with a lead of 1 x 0.2 that ends at x = 4.5.
std::string Wire(const std::string& name, double y, const std::string& lead) {
  const std::string at = std::to_string(y);
  return "CBP " + name + " 1.9 " + at + " 0 0.08 0.08 0 R RECTANGLE\nSBP " + name + " 4 " + at +
         " 0 1 0.2 0 RECTANGLE 1 1\nWB " + name + " 1.9 " + at + " " + lead + " 4 " + at + " 0.3 0\n";
}

template <class Kind>
std::vector<Kind> OfLayer(const Drawing& drawing, std::size_t page, const std::string& layer) {
  std::vector<Kind> found;
  for (const Item& item : drawing.Pages.at(page).Items)
    if (drawing.Layers[item.Layer] == layer)
      if (const auto* const shape = std::get_if<Kind>(&item.What)) found.push_back(*shape);
  return found;
}

std::vector<std::string> WordsOf(const Drawing& drawing, const std::string& layer) {
  std::vector<std::string> words;
  for (const Text& text : OfLayer<Text>(drawing, 0, layer)) words.push_back(text.Words);
  return words;
}

bool Has(const std::vector<std::string>& words, const std::string& wanted) {
  return std::find(words.begin(), words.end(), wanted) != words.end();
}

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

TEST(BondingDiagram, TakesTheLargestScaleThatFitsAndNamesThePaperThatWouldDo) {
  const TemporaryFolder folder;
  Drawn drawn(PutPackage(folder, Wire("VDD", 0.5, "P1")));
  // From -2 to 4.5 the plan is 6.5 wide: 130 at 20 : 1, 325 at 50 : 1.
  EXPECT_EQ(drawn.On(PaperNamed("a3")).Scale, 20.0);
  EXPECT_EQ(drawn.On(PaperNamed("a4")).Scale, 20.0);
  EXPECT_EQ(drawn.On(PaperNamed("a2")).Scale, 50.0);
  try {
    drawn.On(PaperNamed("a4"), 50.0);
    ADD_FAILURE() << "325 does not fit into 210";
  } catch (const DoesNotFit& fault) {
    EXPECT_STREQ(fault.what(), "the plan does not fit on a sheet a4 at 50 : 1; use --sheet a2");
  }
}

TEST(BondingDiagram, MarksLeadOneWhereThereIsOneAlone) {
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

/// Around a text, with the room that its letters take.
struct TextBox {
  glm::dvec2 Low, High;
};

TextBox BoxOf(const Text& text) {
  const double width = TextWidth(text.Words, text.Size);
  const double start = text.Alignment == Align::Start    ? 0.0
                       : text.Alignment == Align::Middle ? -width / 2
                                                         : -width;
  const glm::dvec2 low(start, -0.24 * text.Size), high(start + width, 0.76 * text.Size);
  if (!text.Upright) return {text.At + low, text.At + high};
  return {text.At + glm::dvec2(-high.y, low.x), text.At + glm::dvec2(-low.y, high.x)};
}

TEST(BondingDiagram, NoTwoLabelsOverlapOnAnySample) {
  for (const char* name :
       {"AAAc", "caravel-qfn64", "bga332", "stacked-ram", "flipchip-bigblade", "lqfp100"}) {
    Drawn drawn(SamplePath(name));
    const bool mils = drawn.Opened.Package.UnitScale > 1.0F;
    const Drawing drawing = drawn.On(PaperNamed("a2"), mils ? 0.5 : 20.0);
    std::vector<TextBox> boxes;
    for (const char* layer : {"NUMBERS", "NAMES"})
      for (const Text& text : OfLayer<Text>(drawing, 0, layer)) boxes.push_back(BoxOf(text));
    EXPECT_GT(boxes.size(), 60U) << name;
    for (std::size_t a = 0; a < boxes.size(); ++a)
      for (std::size_t b = a + 1; b < boxes.size(); ++b)
        ASSERT_FALSE(boxes[a].Low.x < boxes[b].High.x && boxes[b].Low.x < boxes[a].High.x &&
                     boxes[a].Low.y < boxes[b].High.y && boxes[b].Low.y < boxes[a].High.y)
            << name << ": " << a << " and " << b;
  }
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

  // A die without a size shows nothing, and so carries no marks.
  const std::string flat = PutFile(other / "flat.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 0\nCOMPW 0\nCOMPZ 1\n");
  EXPECT_GT(PdfOf(Drawn(flat).On(PaperNamed("a4"))).size(), 1000U);
  const std::string huge =
      PutFile(other / "huge.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 1e30\nCOMPW 3e38\nCOMPZ 1\n");
  EXPECT_THROW(Drawn(huge).On(PaperNamed("a4")), DoesNotFit);
}

TEST(TitleFields, TakeKeysOfAFileAndNameThoseThatAreNone) {
  TitleFields fields;
  ReadTitleFields("t", "# block\n\ntitle = A b \nrevision=B=2\r\n", fields);
  EXPECT_EQ(fields.Title, "A b");
  EXPECT_EQ(fields.Revision, "B=2");
  EXPECT_EQ(fields.Date, "");
  const std::pair<const char*, const char*> rows[] = {
      {"title = x\nTitle = y",
       "t:2: unknown key 'Title'; use one of title part package drawn checked approved date revision"},
      {"part", "t:1: 'part' has no '='; write KEY=TEXT"}};
  for (const auto& [text, message] : rows) {
    try {
      ReadTitleFields("t", text, fields);
      ADD_FAILURE() << text;
    } catch (const model::InputError& error) {
      EXPECT_STREQ(error.what(), message);
    }
  }
}

}  // namespace
}  // namespace sheet
