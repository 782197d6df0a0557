/// Formatted text as paragraphs of runs, without Qt.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace shell::help {

enum class Alignment : std::uint8_t { Left, Center, Right, Justified };
enum class Script : std::uint8_t { Normal, Super, Sub };
enum class FontFamily : std::uint8_t { Any, Serif, Sans, Fixed };

/// How the characters of a run look.
struct RunFormat {
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool Strike = false;
  Script Position = Script::Normal;
  int Font = 0;     ///< key into RichText::Fonts; a missing key stands for the reader's own font
  int Size = 24;    ///< half points
  int Colour = -1;  ///< 0xRRGGBB; -1 is the window's text colour
  bool operator==(const RunFormat&) const = default;
};

/// Text of one format, as UTF-8; '\n' breaks the line inside the paragraph.
struct Run {
  std::string Text;
  RunFormat Format;
  bool operator==(const Run&) const = default;
};

/// The layout of a paragraph. Units: twips, 1440 to the inch.
struct ParagraphFormat {
  Alignment Align = Alignment::Left;
  int Left = 0;
  int Right = 0;
  int First = 0;  ///< indent of the first line relative to Left; negative for a hanging indent
  int Before = 0;
  int After = 0;
  std::vector<int> Tabs;  ///< stops in the order given, measured like Left from the page's edge
  bool operator==(const ParagraphFormat&) const = default;
};

struct Paragraph {
  ParagraphFormat Format;
  std::vector<Run> Runs;
  bool operator==(const Paragraph&) const = default;
};

struct Font {
  std::string Name;
  FontFamily Family = FontFamily::Any;
  bool Symbols = false;  ///< a symbol font: it has pictures instead of letters
};

struct RichText {
  std::map<int, Font> Fonts;
  std::vector<Paragraph> Paragraphs;
};

}  // namespace shell::help
