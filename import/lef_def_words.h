/// The words of a LEF or DEF text, each with its line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "import/box.h"
#include "model/input_error.h"

namespace importer {

/// Goes through the words that blanks and line ends separate. "#" begins a comment where a word could begin,
/// a text in double quotes is one word, and a ";" or bracket next to a word is a word by itself. A quote that
/// is not closed is a word like any other.
class LefDefWords {
 public:
  /// The text must outlive this; `file` is its name in messages.
  LefDefWords(std::string_view text, std::string file) : rest_(text), file_(std::move(file)) {}

  /// Whether quoted text may span lines. Where it may not, a stray quote in a remark cannot swallow the lines
  /// after it.
  void LetQuotesSpanLines(bool span) { quotesSpanLines_ = span; }

  /// Goes to the next word; false at the end.
  bool Next();
  /// Makes Next return the current word once more.
  void PutBack() { again_ = true; }
  std::string_view Word() const { return word_; }
  std::size_t Line() const { return line_; }
  /// True when the word is this keyword, given in upper case and written in any case.
  bool Is(std::string_view keyword) const;

  // Each reads on from the current word.
  // Faults  InputError with the line, when what follows is something else, or the text ends

  /// Goes to the next word; the text must not end here.
  std::string_view Take();
  /// The current word as a number, and the next one.
  double Number() const;
  double TakeNumber() {
    Take();
    return Number();
  }
  /// Goes to the next word, which must be this keyword.
  void TakeKeyword(std::string_view keyword);
  /// The next word as a name, without the backslashes that escape its characters.
  std::string TakeName();
  /// Goes to the ";" that ends the statement, from any word of it.
  void SkipStatement();
  /// The same for a statement of free text, which ends with a ";" that stands alone or ends its line.
  void SkipText();
  /// Skips to after "END" and this name.
  void SkipSection(std::string_view name);

  [[noreturn]] void Fail(const std::string& what, const std::string& advice) const;

 private:
  void SkipBlanks();
  std::size_t LengthOfWord() const;

  std::string_view rest_;
  std::string_view word_;
  std::string file_;
  std::size_t nextLine_ = 1;  ///< line of the first byte of rest_
  std::size_t line_ = 1;      ///< line of word_
  bool again_ = false;
  bool quotesSpanLines_ = false;
};

/// The points of an outline: its box, and the area that it encloses.
class Outline {
 public:
  void Add(const glm::dvec2& point);
  std::size_t Count() const { return count_; }
  const Box& Bounds() const { return bounds_; }
  /// True when the outline fills most of its box, as rectangles and octagons do, and bent straps do not.
  bool FillsItsBox() const;

 private:
  std::size_t count_ = 0;
  glm::dvec2 first_{0.0}, last_{0.0};
  Box bounds_;
  double twiceArea_ = 0.0;
};

}  // namespace importer
