#include "model/text.h"

#include <algorithm>

namespace model {

namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
  return upper;
}

bool EqualsUpper(std::string_view text, std::string_view upper) {
  return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                    [](char a, char b) { return Upper(a) == b; });
}

std::string Quoted(std::string_view word) {
  constexpr std::size_t kMost = 60;
  std::string quoted = "'";
  for (const char letter : word.substr(0, kMost)) {
    const bool control = static_cast<unsigned char>(letter) < ' ' || letter == '\x7f';
    quoted += control ? '?' : letter;
  }
  return quoted + (word.size() > kMost ? "...'" : "'");
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

std::string_view FileNameOf(std::string_view path) {
  const std::size_t separator = path.rfind('/');
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

void DropCarriageReturns(std::string& text) {
  // Most files have none, and a search is cheaper than erasing, which visits every byte one by one.
  if (text.find('\r') != std::string::npos) std::erase(text, '\r');
}

void Tokens::SplitLine(std::string_view line) {
  found_ = 0;
  const char* at = line.data();
  const char* const end = at + line.size();
  for (;;) {
    while (at != end && IsBlank(*at)) ++at;
    if (at == end) break;
    const char* const start = at;
    while (at != end && !IsBlank(*at)) ++at;
    if (found_ < kCount) fields_[found_] = std::string_view(start, static_cast<std::size_t>(at - start));
    ++found_;
  }
  for (std::size_t field = found_; field < kCount; ++field) fields_[field] = {};
}

}  // namespace model
