#include "shell/help/rtf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "model/files.h"

namespace shell {
namespace {

/// A run as its formats in angle brackets and its text; what is as at the start is not named.
std::string Described(const help::Run& run) {
  const help::RunFormat& format = run.Format;
  std::string marks;
  const auto mark = [&marks](const std::string& text) { marks += (marks.empty() ? "" : " ") + text; };
  if (format.Bold) mark("b");
  if (format.Italic) mark("i");
  if (format.Underline) mark("ul");
  if (format.Strike) mark("strike");
  if (format.Position == help::Script::Super) mark("super");
  if (format.Position == help::Script::Sub) mark("sub");
  if (format.Font != 0) mark("f" + std::to_string(format.Font));
  if (format.Size != 24) mark("fs" + std::to_string(format.Size));
  if (format.Colour >= 0) mark("cf" + std::to_string(format.Colour));
  return "<" + marks + ">" + run.Text;
}

std::string Described(const help::Paragraph& paragraph) {
  const help::ParagraphFormat& format = paragraph.Format;
  std::string text;
  if (format.Align != help::Alignment::Left)
    text += std::string(1, "lcrj"[static_cast<int>(format.Align)]) + " ";
  const auto length = [&text](const char* name, int twips) {
    if (twips != 0) text += name + std::to_string(twips) + " ";
  };
  length("li", format.Left);
  length("ri", format.Right);
  length("fi", format.First);
  length("sb", format.Before);
  length("sa", format.After);
  for (const int stop : format.Tabs) length("tx", stop);
  for (const help::Run& run : paragraph.Runs) text += Described(run);
  return text;
}

/// The paragraphs of `bytes`, each closed by "|".
std::string Described(const std::string& bytes) {
  const std::optional<help::RichText> text = help::ReadRtf(bytes);
  if (!text) return "no RTF";
  std::string described;
  for (const help::Paragraph& paragraph : text->Paragraphs) described += Described(paragraph) + "|";
  return described;
}

struct Case {
  const char* Rtf;
  const char* Paragraphs;
};

void ExpectEach(std::initializer_list<Case> cases) {
  for (const Case& each : cases) EXPECT_EQ(Described(std::string(each.Rtf)), each.Paragraphs) << each.Rtf;
}

TEST(Rtf, FormatsLastUntilSwitchedOffOrTheirGroupEnds) {
  ExpectEach(
      {{R"({\rtf1 a{\b b{\i c}d}e})", "<>a<b>b<b i>c<b>d<>e|"},
       {R"({\rtf1\b a\b0 b\ul c\ulnone d\strike e\strike0 f})", "<b>a<>b<ul>c<>d<strike>e<>f|"},
       {R"({\rtf1 10{\super 6} H{\sub 2}O\super x\nosupersub y})", "<>10<super>6<> H<sub>2<>O<super>x<>y|"},
       {R"({\rtf1\fs36\b a\plain b\fs c})", "<b fs36>a<>bc|"},
       // Runs of one format are one run, however they were written.
       {"{\\rtf1 a{}b{c}\\b0\r\nd}", "<>abcd|"}});
}

TEST(Rtf, ParagraphsKeepTheirOwnFormat) {
  ExpectEach({{R"({\rtf1\qc a\par\qr b\par\qj c\par\ql d\par})", "c <>a|r <>b|j <>c|<>d|"},
              {R"({\rtf1\sb120\sa60\li720\ri360\fi-360 a\par\par\pard b})",
               "li720 ri360 fi-360 sb120 sa60 <>a|li720 ri360 fi-360 sb120 sa60 |<>b|"},
              {"{\\rtf1{\\qc a\\par}b\\\nc\\line d}", "c <>a|<>b|<>c\nd|"},
              {R"({\rtf1\pard\tx2000\tx5000\b Key\tab Shift\b0\tab None\par Up\tab a\tab b\par})",
               "tx2000 tx5000 <b>Key\tShift<>\tNone|tx2000 tx5000 <>Up\ta\tb|"}});
}

TEST(Rtf, ListsShowTheTextOfTheirMarks) {
  ExpectEach({{R"({\rtf1{\fonttbl{\f0 Arial;}{\f1\fcharset2 Symbol;}}
{\*\listtable{\list{\listlevel{\leveltext\'01\u-3913 ?;}}}}
\pard\li720\fi-360{\listtext\f1\'b7\tab}one\par
\pard\li1440\fi-360{\listtext -\tab}two\par
\pard\li720\fi-360{\pntext\f0\'b7\tab}{\*\pn\pnlvlblt{\pntxtb x}}three\par
{\*\pntext\f0\bullet\tab}\'95 four\par})",
               "li720 fi-360 <f1>\u2022\t<>one|li1440 fi-360 <>-\ttwo|"
               // The same byte of a font of letters is the dot that stands in its code page.
               "li720 fi-360 <>\u00B7\tthree|li720 fi-360 <>\u2022\t\u2022 four|"}});
}

TEST(Rtf, FontsAndColoursComeFromTheirTables) {
  const std::optional<help::RichText> text = help::ReadRtf(
      R"({\rtf1\deff2{\fonttbl{\f0\froman\fcharset0 Times New Roman{\*\falt Tms};}\f2\fswiss Arial;{\f5\fmodern Courier;}}
{\colortbl;\red255\green0\blue16;\red0\green128\blue0;}a\cf1 b\cf2\f5 c\cf0\f0 d\cf9 e\plain f})");
  ASSERT_TRUE(text.has_value());
  ASSERT_EQ(text->Paragraphs.size(), 1U);
  // 0xFF0010 = 16711696, 0x008000 = 32768. Colour 0 and those beyond the table are the window's own.
  EXPECT_EQ(Described(text->Paragraphs[0]), "<f2>a<f2 cf16711696>b<f5 cf32768>c<>de<f2>f");
  ASSERT_EQ(text->Fonts.size(), 3U);
  EXPECT_EQ(text->Fonts.at(0).Name, "Times New Roman");
  EXPECT_EQ(text->Fonts.at(0).Family, help::FontFamily::Serif);
  EXPECT_EQ(text->Fonts.at(2).Name, "Arial");
  EXPECT_EQ(text->Fonts.at(2).Family, help::FontFamily::Sans);
  EXPECT_EQ(text->Fonts.at(5).Family, help::FontFamily::Fixed);
}

TEST(Rtf, CharactersOfEverySpelling) {
  ExpectEach({{R"({\rtf1 \'e4\'80\'9F\\\{\}\~\-\_x})", "<>\u00E4\u20AC\u0178\\{}\u00A0\u00AD\u2011x|"},
              {R"({\rtf1\emdash\endash\lquote\rquote\ldblquote\rdblquote\bullet  x})",
               "<>\u2014\u2013\u2018\u2019\u201C\u201D\u2022 x|"},
              {"{\\rtf1 \xE4\x95}", "<>\u00E4\u2022|"},
              {R"({\rtf1 \u8722?5})", "<>\u22125|"},
              {R"({\rtf1 \u8722 ?5\u-3 ?})", "<>\u22125\uFFFD|"},
              {R"({\rtf1\uc2 a\u8722\'97\'97b{\uc0\u955 c}\u955 ??d})", "<>a\u2212b\u03BBc\u03BBd|"},
              {R"({\rtf1\u955\tab x{\u955}y})", "<>\u03BBx\u03BBy|"},
              // -10179 is 0xD83D, -8704 is 0xDE00: together U+1F600. One half alone is none.
              {R"({\rtf1 \u-10179?\u-8704?})", "<>\U0001F600|"},
              {R"({\rtf1 \u55357?x\u56832?\u55357?})", "<>\uFFFDx\uFFFD\uFFFD|"}});
}

TEST(Rtf, TextOutsideThePageIsNotShown) {
  ExpectEach(
      {{R"({\rtf1{\stylesheet{\s1\b heading 1;}}{\info{\title T}{\author A}}{\*\generator x{y}z;}\pard\s1 a})",
        "<>a|"},
       {R"({\rtf1\viewkind4\foo12 a\unknownword-7 b{\header h\par}{\*\wow\par{\pntext x}}c})", "<>abc|"},
       {R"({\rtf1{\field{\*\fldinst HYPERLINK "x"}{\fldrslt\ul link}}!})", "<ul>link<>!|"},
       {"{\\rtf1 a\\bin4 }}{{b{\\pict\\bin3 }}}}c}trailing", "<>abc|"}});
}

TEST(Rtf, GroupsBeyondTheDepthAreLeftOutWhole) {
  const std::string open(help::kMaxRtfDepth + 10, '{');
  const std::string close(help::kMaxRtfDepth + 10, '}');
  EXPECT_EQ(Described("{\\rtf1 a" + open + "\\b x\\par\\bin1 }" + close + "b}"), "<>ab|");
}

TEST(Rtf, HugeInputTakesLinearTimeAndBoundedRoom) {
  const auto repeated = [](const std::string& piece) {
    std::string bytes = "{\\rtf1 ";
    while (bytes.size() < help::kMaxRtfBytes + 1000) bytes += piece;
    return bytes;
  };
  std::string stops = "{\\rtf1";
  for (int stop = 1; stop < 50'000; ++stop) stops += "\\tx" + std::to_string(stop);
  const auto start = std::chrono::steady_clock::now();
  for (const char* piece : {"{", "}", "{\\*", "\\par", "\\u-10179", "{\\fonttbl\\f1;"})
    EXPECT_TRUE(help::ReadRtf(repeated(piece))) << piece;
  EXPECT_TRUE(help::ReadRtf(stops + repeated("{}")));
  const std::optional<help::RichText> word = help::ReadRtf(repeated("x"));
  ASSERT_EQ(word->Paragraphs.size(), 1U);
  EXPECT_LT(word->Paragraphs[0].Runs[0].Text.size(), help::kMaxRtfBytes);
  // Some seconds do, with sanitizers too; squared time would be hours.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(HelpPages, AreWholeAndHoldTheirHeadings) {
  const std::pair<const char*, std::vector<const char*>> pages[] = {
      {"NavHelp.rtf", {"Navigation", "Keys", "Mouse", "Wheel", "Buttons", "Scroll bars", "Reset"}},
      {"YaxViewHelp.rtf",
       {"Viewer", "Menu", "Package file", "Net types", "Wire bond setup", "Wire list", "Estimator", "flat"}}};
  for (const auto& [name, headings] : pages) {
    const std::string bytes = model::ReadWholeFile(std::string(YAX_HELP_FOLDER "/") + name);
    EXPECT_EQ(
        std::count_if(bytes.begin(), bytes.end(), [](char c) { return c != '\n' && (c < ' ' || c > '~'); }),
        0);
    std::string text, large;
    const help::RichText page = help::ReadRtf(bytes).value();
    for (const help::Paragraph& paragraph : page.Paragraphs)
      for (const help::Run& run : paragraph.Runs) (run.Format.Size > 24 ? large : text) += run.Text + "\n";
    for (const char* heading : headings) EXPECT_NE(large.find(heading), std::string::npos) << heading;
    // The last brace of the file closes the first: nothing after it, and nothing of the page is lost before.
    EXPECT_TRUE(text.ends_with("End of this page.\n")) << name;
    EXPECT_EQ((text + large).find_first_of("\\{}"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace shell
