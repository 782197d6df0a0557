#include "import/lef_def_words.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "import/names.h"
#include "import/source_file.h"
#include "model/text.h"

namespace importer {

namespace {

constexpr bool IsBlank(char letter) {
  return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r' || letter == '\f' ||
         letter == '\v';
}

constexpr std::array<bool, 256> Blanks() {
  std::array<bool, 256> blanks{};
  for (std::size_t letter = 0; letter < blanks.size(); ++letter)
    blanks[letter] = IsBlank(static_cast<char>(letter));
  return blanks;
}

constexpr std::array<bool, 256> kBlanks = Blanks();

/// True when only blanks precede the line's end.
bool EndsLine(std::string_view rest) {
  const std::size_t next = rest.find_first_not_of(" \t\r\f\v");
  return next == std::string_view::npos || rest[next] == '\n';
}

}  // namespace

void LefDefWords::SkipBlanks() {
  const char* at = rest_.data();
  const char* const end = at + rest_.size();
  for (; at != end; ++at) {
    if (*at == '\n') {
      ++nextLine_;
    } else if (*at == '#') {
      at = std::find(at, end, '\n');
      if (at == end) break;
      ++nextLine_;
    } else if (!kBlanks[static_cast<unsigned char>(*at)]) {
      break;
    }
  }
  rest_.remove_prefix(static_cast<std::size_t>(at - rest_.data()));
}

/// The length in bytes of the word at the start of the rest.
std::size_t LefDefWords::LengthOfWord() const {
  if (rest_.front() == '"') {
    for (std::size_t at = 1; at < rest_.size(); ++at) {
      if (rest_[at] == '"') return at + 1;
      if (rest_[at] == '\n' && !quotesSpanLines_) break;
      if (rest_[at] == '\\') ++at;
    }
    if (quotesSpanLines_) Fail("a quote is not closed", "close it, or remove it");
  }
  const char* const first = rest_.data();
  const char* const end = first + rest_.size();
  const char* at = first;
  while (at != end && !kBlanks[static_cast<unsigned char>(*at)]) ++at;
  auto length = static_cast<std::size_t>(at - first);
  if (length == 1) return length;
  if (*first == '(' || *first == ')' || *first == ';') return 1;
  if (first[length - 1] == ';' && first[length - 2] != '\\') --length;
  // Only numbers, since a name may end in a bracket.
  const bool number = (*first >= '0' && *first <= '9') || *first == '-' || *first == '+' || *first == '*';
  if (number && length > 1 && first[length - 1] == ')') --length;
  return length;
}

bool LefDefWords::Next() {
  if (again_) {
    again_ = false;
    return !word_.empty();
  }
  SkipBlanks();
  line_ = nextLine_;
  if (rest_.empty()) {
    word_ = {};
    return false;
  }
  const std::size_t length = LengthOfWord();
  word_ = rest_.substr(0, length);
  rest_.remove_prefix(length);
  if (word_.front() == '"')
    nextLine_ += static_cast<std::size_t>(std::count(word_.begin(), word_.end(), '\n'));
  return true;
}

bool LefDefWords::Is(std::string_view keyword) const { return model::EqualsUpper(word_, keyword); }

void LefDefWords::Fail(const std::string& what, const std::string& advice) const {
  throw model::InputError({file_, line_}, what, advice);
}

std::string_view LefDefWords::Take() {
  if (!Next()) Fail("the file ends in the middle of a statement", "the file may be cut off; get it again");
  return word_;
}

double LefDefWords::Number() const {
  const std::optional<double> number = NumberIn(word_);
  if (!number) Fail(model::Quoted(word_) + " is not a number", "correct it");
  return *number;
}

void LefDefWords::TakeKeyword(std::string_view keyword) {
  Take();
  if (!Is(keyword))
    Fail("expected " + model::Quoted(keyword) + " but found " + model::Quoted(word_), "correct it");
}

std::string LefDefWords::TakeName() {
  std::string_view word = Take();
  if (word == ";") Fail("a name is missing", "correct the statement");
  if (word.size() > 1 && word.starts_with('"') && word.ends_with('"')) word = word.substr(1, word.size() - 2);
  return Unescaped(word);
}

void LefDefWords::SkipStatement() {
  while (word_ != ";") Take();
}

void LefDefWords::SkipText() {
  const auto isBlank = [this](std::size_t at) {
    return at >= rest_.size() || kBlanks[static_cast<unsigned char>(rest_[at])];
  };
  std::size_t end = rest_.find(';');
  while (end != std::string_view::npos && end > 0 && !isBlank(end - 1) && !EndsLine(rest_.substr(end + 1)))
    end = rest_.find(';', end + 1);
  const std::size_t length = end == std::string_view::npos ? rest_.size() : end;
  nextLine_ += static_cast<std::size_t>(
      std::count(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(length), '\n'));
  rest_.remove_prefix(length);
  Take();
}

void LefDefWords::SkipSection(std::string_view name) {
  bool end = false;
  while (!(end && Is(name))) {
    end = Is("END");
    if (!Next()) Fail("the file ends within " + std::string(name), "the file may be cut off; get it again");
  }
}

void Outline::Add(const glm::dvec2& point) {
  if (count_++ == 0) {
    first_ = point;
    bounds_ = {point, point};
  } else {
    twiceArea_ += last_.x * point.y - point.x * last_.y;
    bounds_ = Around(bounds_, {point, point});
  }
  last_ = point;
}

bool Outline::FillsItsBox() const {
  constexpr double kMost = 0.75;
  const double area = std::fabs(twiceArea_ + last_.x * first_.y - first_.x * last_.y) / 2.0;
  return count_ > 2 && area >= kMost * bounds_.Area();
}

}  // namespace importer
