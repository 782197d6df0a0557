#include "sheet/drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "sheet/paint_order.h"

namespace sheet {
namespace {

/// One of each shape on two pages of 100 x 50; the package's origin lies at (40, 20), at 10 : 1.
Drawing Sample(const std::string& words) {
  Drawing drawing{.Title = "A & B", .Width = 100.0, .Height = 50.0, .Scale = 10.0, .Origin = {40.0, 20.0}};
  const std::size_t under = drawing.LayerOf("UNDER");
  const std::size_t wires = drawing.LayerOf("WIRES_1");
  drawing.Pages.resize(2);
  drawing.Pages[0].Items = {
      {wires, Line{{40.0, 20.0}, {55.0, 12.5}}},
      {under, Area{.Outlines = {{{10.0, 10.0}, {20.0, 10.0}, {10.0, 20.0}}}, .Fill = kBlack}},
      {wires, Text{.At = {60.0, 40.0}, .Words = words}}};
  drawing.Pages[1].Items = {{wires, Circle{.Centre = {50.0, 25.0}, .Radius = 5.0, .Pen = Stroke{}}}};
  return drawing;
}

TEST(Drawing, CleansTextForEveryFormat) {
  const std::pair<std::string, std::string> rows[] = {
      {"VDD_1[3]", "VDD_1[3]"},
      {"tab\there\r\n", "tab here  "},
      {std::string("a\0b", 3), "a b"},
      {"\xe4\xb8\xad\xd0\xa4", "\xe4\xb8\xad\xd0\xa4"},
      {"bad\xff\xc3", "bad\xef\xbf\xbd\xef\xbf\xbd"},
      {"\xe2\x80\xa8\xef\xbf\xbe", "  "}};  // U+2028 ends a line, U+FFFE is not allowed in XML
  for (const auto& [bytes, text] : rows) EXPECT_EQ(CleanText(bytes), text);
}

TEST(Drawing, WritesDecimalsShortAndWithoutMinusZero) {
  const std::tuple<double, int, const char*> rows[] = {{1.5, 4, "1.5"},
                                                       {-0.00001, 3, "0"},
                                                       {100.0, 2, "100"},
                                                       {1e20, 1, "100000000000000000000"},
                                                       {2.5, 0, "2"}};
  for (const auto& [value, decimals, text] : rows) EXPECT_EQ(Decimal(value, decimals), text);
}

TEST(Drawing, TextIsAsWideAsItsLetters) {
  EXPECT_EQ(TextWidth("", 2.0), 0.0);
  EXPECT_NEAR(TextWidth("mmmm", 2.0), 4.0 * TextWidth("m", 2.0), 1e-3);
  EXPECT_NEAR(TextWidth("VDD", 5.0), 2.5 * TextWidth("VDD", 2.0), 1e-3);
  EXPECT_GT(TextWidth("VDD", 2.0, true), TextWidth("VDD", 2.0));
  EXPECT_NEAR(TextWidth("fi", 2.0), TextWidth("f", 2.0) + TextWidth("i", 2.0), 1e-3) << "no ligature";
}

TEST(Svg, HoldsThePagesOneBelowTheOtherInOneGroupForEachLayer) {
  const std::string svg = SvgOf(Sample("<a> & \"b\""));
  EXPECT_EQ(svg.find("<g id=", svg.find("<g id=\"WIRES_1\">") + 1), std::string::npos);
  EXPECT_LT(svg.find("<g id=\"UNDER\">"), svg.find("<g id=\"WIRES_1\">"));
  EXPECT_NE(svg.find("width=\"100mm\" height=\"100mm\" viewBox=\"0 0 100 100\""), std::string::npos);
  EXPECT_NE(svg.find("&lt;a&gt; &amp; &quot;b&quot;</text>"), std::string::npos);
  // y counts from the upper edge: 50 - 20 and 50 - 12.5; on the second page 100 - 25.
  EXPECT_NE(svg.find("<line x1=\"40\" y1=\"30\" x2=\"55\" y2=\"37.5\""), std::string::npos);
  EXPECT_NE(svg.find("<circle cx=\"50\" cy=\"75\" r=\"5\""), std::string::npos);
}

TEST(Dxf, IsTrueToSizeWithFurtherPagesAtTheRight) {
  const std::string dxf = DxfOf(Sample("A"));
  // (55 - 40) / 10 and (12.5 - 20) / 10.
  EXPECT_NE(dxf.find("0\nLINE\n8\nWIRES_1\n10\n0\n20\n0\n30\n0\n11\n1.5\n21\n-0.75\n31\n0\n"),
            std::string::npos);
  EXPECT_NE(dxf.find("0\nSOLID\n8\nUNDER\n10\n-3\n20\n-1\n"), std::string::npos);
  // The second page begins 100 + 20 further right: (50 + 120 - 40) / 10.
  EXPECT_NE(dxf.find("0\nCIRCLE\n8\nWIRES_1\n10\n13\n20\n0.5\n30\n0\n40\n0.5\n"), std::string::npos);
}

TEST(Dxf, GivesLinesThePatternAndTheNearestColourOfThePalette) {
  Drawing drawing{.Title = "T", .Scale = 1.0};
  drawing.Pages.resize(1);
  const std::tuple<const char*, Stroke, const char*> rows[] = {
      {"FRAME", {}, "10\n"},
      {"FRAME", {.Pattern = Dash::DashDot}, "6\nDASHDOT\n10\n"},
      {"FRAME", {.Colour = {0.0, 0.2, 0.65}, .Pattern = Dash::Dotted}, "6\nDOT\n62\n5\n10\n"},
      {"FRAME", {.Colour = {0.5, 0.25, 0.0}}, "62\n30\n10\n"},
      {"FRAME", {.Colour = Grey(0.4)}, "62\n8\n10\n"},
      {"WIRES_2", {.Colour = {0.0, 0.2, 0.65}}, "10\n"},
      {"WIRES_2", {.Colour = {0.85, 0.0, 0.0}}, "62\n1\n10\n"}};
  for (const auto& [layer, stroke, codes] : rows) {
    drawing.Pages[0].Items = {{drawing.LayerOf(layer), Line{{1.0, 2.0}, {3.0, 4.0}, stroke}}};
    const std::string wanted = "0\nLINE\n8\n" + std::string(layer) + "\n" + codes;
    EXPECT_NE(DxfOf(drawing).find(wanted), std::string::npos) << wanted;
  }
}

TEST(Dxf, EncodesCharactersThatTheFormatCannotHold) {
  const std::pair<std::string, std::string> rows[] = {
      {"VDD", "VDD"},
      {"\xc3\xa4\xe4\xb8\xad", "\\U+00E4\\U+4E2D"},
      {"\xf0\x9f\x98\x80", "\\U+FFFD"},  // U+1F600 has five digits
      {"50%%d", "50%%%%d"},              // %%d would read as degrees, %%% is one %
      {"a^b", "a^ b"},
      {"\\U+0041", "\\U+005CU+0041"}};
  for (const auto& [words, encoded] : rows)
    EXPECT_NE(DxfOf(Sample(words)).find("\n1\n" + encoded + "\n"), std::string::npos) << words;
}

TEST(Pdf, IsTheSameBytesEachTimeAndHasNoDate) {
  const std::string pdf = PdfOf(Sample("\xd0\xa4 fi"));
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
  EXPECT_EQ(pdf, PdfOf(Sample("\xd0\xa4 fi")));
}

}  // namespace
}  // namespace sheet
