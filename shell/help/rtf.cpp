#include "shell/help/rtf.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "shell/help/characters.h"
#include "shell/help/rtf_words.h"

namespace shell::help {

namespace {

constexpr std::size_t kMaxFontName = 64;
constexpr char32_t kBullet = 0x2022;

bool IsControl(char32_t character) { return character < ' ' && character != '\t' && character != '\n'; }

/// QTextDocument splits a paragraph at line and paragraph separators, and treats the placeholder characters
/// of objects and frames as real objects and frames.
bool IsSpecial(char32_t character) {
  return character == 0x2028 || character == 0x2029 || character == 0xFFFC ||
         (character >= 0xFDD0 && character <= 0xFDEF);
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  RichText Read() {
    while (at_ < bytes_.size() && !closed_) {
      const char c = bytes_[at_++];
      if (c == '{') {
        OpenGroup();
      } else if (c == '}') {
        CloseGroup();
      } else if (c == '\\') {
        ReadControl();
      } else if (c != '\r' && c != '\n') {
        Byte(static_cast<unsigned char>(c));
      }
    }
    EndParagraph();
    if (text_.Paragraphs.back().Runs.empty()) text_.Paragraphs.pop_back();
    return std::move(text_);
  }

 private:
  enum class Destination : std::uint8_t { Page, Fonts, Colours, Hidden };

  /// The state that a closing brace restores.
  struct Group {
    RunFormat Run;
    ParagraphFormat Paragraph;
    Destination To = Destination::Page;
    int FallbackLength = 1;
  };

  void OpenGroup() {
    starred_ = false;
    fallback_ = 0;
    if (open_.size() < kMaxRtfDepth) {
      open_.push_back(group_);
    } else {
      ++tooDeep_;
    }
  }

  void CloseGroup() {
    starred_ = false;
    fallback_ = 0;
    if (tooDeep_ > 0) {
      --tooDeep_;
      return;
    }
    // The outermost group ends the text; its format is kept for a last paragraph without \par.
    closed_ = open_.size() <= 1;
    if (closed_) return;
    group_ = std::move(open_.back());
    open_.pop_back();
  }

  void ReadControl() {
    if (at_ == bytes_.size()) return;
    const char c = bytes_[at_];
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
      ReadWord();
      return;
    }
    ++at_;
    if (c == '\'') {
      ReadHex();
    } else {
      ObeySymbol(c);
    }
  }

  void ReadWord() {
    const RtfWord word = ReadRtfWord(bytes_, at_);
    const bool starred = std::exchange(starred_, false);
    // The bytes after this word may be braces, so they are skipped even in hidden groups.
    if (word.Name == "bin") at_ += std::min(bytes_.size() - at_, word.Count());
    if (TakenAsFallback() || tooDeep_ > 0) return;
    if (starred && (word.Name == "pntext" || word.Name == "listtext")) group_.To = beforeStar_;
    if (group_.To != Destination::Hidden) Obey(word);
  }

  void ReadHex() {
    int value = 0;
    const char* const start = bytes_.data() + at_;
    const char* const end = start + std::min<std::size_t>(bytes_.size() - at_, 2);
    const char* const stop = std::from_chars(start, end, value, 16).ptr;
    at_ += static_cast<std::size_t>(stop - start);
    if (stop == start + 2 && value >= 0) Byte(static_cast<unsigned char>(value));
  }

  void ObeySymbol(char c) {
    if (c == '~') {
      Character(0xA0);
    } else if (c == '-') {
      Character(0xAD);
    } else if (c == '_') {
      Character(0x2011);
    } else if (c == '\\' || c == '{' || c == '}') {
      Character(static_cast<char32_t>(c));
    } else if (c == '\t') {
      Character('\t');
    } else if (TakenAsFallback() || tooDeep_ > 0) {
      return;
    } else if (c == '*') {
      if (!starred_) beforeStar_ = group_.To;
      starred_ = true;
      group_.To = Destination::Hidden;
    } else if ((c == '\n' || c == '\r') && group_.To == Destination::Page) {
      EndParagraph();
    }
  }

  void Obey(const RtfWord& word) {
    if (HidesItsGroup(word.Name)) {
      group_.To = Destination::Hidden;
    } else if (word.Name == "fonttbl") {
      group_.To = Destination::Fonts;
    } else if (word.Name == "colortbl") {
      group_.To = Destination::Colours;
      colour_ = -1;
    } else if (group_.To == Destination::Fonts) {
      ObeyInFonts(word);
    } else if (group_.To == Destination::Colours) {
      ObeyInColours(word);
    } else if (const char32_t character = CharacterOfRtfWord(word.Name); character != 0) {
      Character(character);
    } else if (word.Name == "par" || word.Name == "row" || word.Name == "page" || word.Name == "sect") {
      EndParagraph();
    } else if (word.Name == "deff") {
      tables_.DefaultFont = word.ValueOr(0);
      group_.Run.Font = tables_.DefaultFont;
    } else if (!ApplyToRun(word, tables_, group_.Run) && !ApplyToParagraph(word, group_.Paragraph)) {
      ObeyUnicode(word);
    }
  }

  void ObeyInFonts(const RtfWord& word) {
    if (word.Name == "f") {
      font_ = word.ValueOr(0);
      fontEntry_ = {};
    } else if (word.Name == "froman") {
      fontEntry_.Family = FontFamily::Serif;
    } else if (word.Name == "fswiss") {
      fontEntry_.Family = FontFamily::Sans;
    } else if (word.Name == "fmodern") {
      fontEntry_.Family = FontFamily::Fixed;
    } else if (word.Name == "fcharset") {
      fontEntry_.Symbols = word.ValueOr(0) == 2;
    } else {
      ObeyUnicode(word);
    }
  }

  void ObeyInColours(const RtfWord& word) {
    static constexpr std::pair<std::string_view, int> kShifts[] = {{"red", 16}, {"green", 8}, {"blue", 0}};
    for (const auto& [name, shift] : kShifts)
      if (name == word.Name)
        colour_ = (std::max(colour_, 0) & ~(0xFF << shift)) | (std::clamp(word.ValueOr(0), 0, 255) << shift);
  }

  void ObeyUnicode(const RtfWord& word) {
    if (word.Name == "uc") {
      group_.FallbackLength = std::max(word.ValueOr(1), 0);
    } else if (word.Name == "u" && word.Value) {
      Unicode(*word.Value);
      fallback_ = group_.FallbackLength;
    }
  }

  /// Takes one UTF-16 unit, signed or unsigned; a character above U+FFFF comes as two units.
  void Unicode(int value) {
    const auto unit = static_cast<char32_t>(value) & 0xFFFF;
    const bool high = unit >= 0xD800 && unit < 0xDC00;
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (low && half_ != 0) {
      Character(0x10000 + ((std::exchange(half_, 0) - 0xD800) << 10) + (unit - 0xDC00));
      return;
    }
    DropHalfPair();
    if (high) {
      half_ = unit;
    } else {
      Character(low || IsSpecial(unit) ? kReplacement : unit);
    }
  }

  void DropHalfPair() {
    if (std::exchange(half_, 0) != 0) Append(kReplacement);
  }

  /// True when the character just read is the fallback after a \u, for readers that do not know \u.
  bool TakenAsFallback() {
    if (fallback_ == 0) return false;
    --fallback_;
    return true;
  }

  void Byte(unsigned char byte) {
    // Most writers use this byte of a symbol font as a bullet; the font may be missing here.
    Character(byte == 0xB7 && HasSymbolFont() ? kBullet : FromCodePage1252(byte));
  }

  bool HasSymbolFont() const {
    const auto font = text_.Fonts.find(group_.Run.Font);
    return font != text_.Fonts.end() && font->second.Symbols;
  }

  void Character(char32_t character) {
    if (TakenAsFallback() || tooDeep_ > 0) return;
    DropHalfPair();
    Append(character);
  }

  void Append(char32_t character) {
    if (IsControl(character)) return;
    switch (group_.To) {
      case Destination::Page:
        AppendToPage(character);
        break;
      case Destination::Fonts:
        AppendToFonts(character);
        break;
      case Destination::Colours:
        if (character == ';') tables_.Colours.push_back(std::exchange(colour_, -1));
        break;
      case Destination::Hidden:
        break;
    }
  }

  void AppendToPage(char32_t character) {
    std::vector<Run>& runs = paragraph_.Runs;
    if (runs.empty() || runs.back().Format != group_.Run) runs.push_back({{}, group_.Run});
    AppendUtf8(runs.back().Text, character);
  }

  void AppendToFonts(char32_t character) {
    if (character != ';') {
      if (fontEntry_.Name.size() < kMaxFontName) AppendUtf8(fontEntry_.Name, character);
    } else if (text_.Fonts.size() < kMaxRtfFonts) {
      text_.Fonts[font_] = std::exchange(fontEntry_, {});
    }
  }

  void EndParagraph() {
    DropHalfPair();
    paragraph_.Format = group_.Paragraph;
    text_.Paragraphs.push_back(std::exchange(paragraph_, {}));
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  bool closed_ = false;

  Group group_;
  std::vector<Group> open_;
  std::size_t tooDeep_ = 0;

  bool starred_ = false;  // after "\*": the next word decides whether the optional group is known
  Destination beforeStar_ = Destination::Page;
  int fallback_ = 0;
  char32_t half_ = 0;

  RtfTables tables_;
  int font_ = 0;
  Font fontEntry_;
  int colour_ = -1;

  Paragraph paragraph_;
  RichText text_;
};

}  // namespace

std::optional<RichText> ReadRtf(std::string_view bytes) {
  if (!bytes.starts_with("{\\rtf")) return std::nullopt;
  return Reader(bytes.substr(0, kMaxRtfBytes)).Read();
}

}  // namespace shell::help
