/// Text rules of the package files: letter case, blanks, fields and file names. Bytes beyond ASCII stay as
/// they are.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace model {

/// Upper case of the ASCII letters; every other byte stays.
std::string UpperCase(std::string_view text);

/// True when `text`, converted to upper case, equals `upper`.
bool EqualsUpper(std::string_view text, std::string_view upper);

/// A word of a file or the command line as messages show it: in single quotes, cut at 60 bytes, control
/// characters as "?".
std::string Quoted(std::string_view word);

/// Text without the byte order mark that some editors put at its start.
std::string_view WithoutByteOrderMark(std::string_view text);

/// The most letters of a pattern, and of a text to search: std::regex recurses for each of them.
inline constexpr std::size_t kMostForRegex = 1000;

/// The part of a path after its last separator, or all of it.
std::string_view FileNameOf(std::string_view path);

/// Drops every carriage return, wherever it stands.
void DropCarriageReturns(std::string& text);

/// The lines of a text, one after the other. The text must outlive them.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  /// The next line, without its line feed; false at the end.
  bool Next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t feed = rest_.find('\n');
    line = rest_.substr(0, feed);
    rest_.remove_prefix(feed == std::string_view::npos ? rest_.size() : feed + 1);
    return true;
  }

 private:
  std::string_view rest_;
};

/// The fields of the line being read, always 11: missing ones are empty, further ones are dropped.
/// The views last as long as the line that was split.
class Tokens {
 public:
  static constexpr std::size_t kCount = 11;

  /// Splits `line` at runs of spaces and tabs.
  void SplitLine(std::string_view line);

  std::string_view operator[](std::size_t field) const { return fields_[field]; }

  /// The number of fields on the line, including those beyond the eleventh.
  std::size_t Found() const { return found_; }

 private:
  std::array<std::string_view, kCount> fields_;
  std::size_t found_ = 0;
};

}  // namespace model
