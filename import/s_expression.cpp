#include "import/s_expression.h"

#include <sfsexp/sexp.h>

#include <algorithm>
#include <functional>

#include "import/source_file.h"
#include "model/text.h"

namespace importer {

namespace {

/// Goes over brackets, words and quoted texts without looking into them.
class Scanner {
 public:
  Scanner(std::string_view text, std::size_t line) : text_(text), line_(line) {}

  std::size_t At() const { return at_; }
  std::size_t Line() const { return line_; }
  char Letter() const { return text_[at_]; }

  /// Goes to the next byte that is not blank; false at the end.
  bool SkipBlanks() {
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\n') ++line_;
      if (static_cast<unsigned char>(text_[at_]) > ' ') return true;
    }
    return false;
  }

  /// Skips a word or a quoted text; false when a quote is not closed.
  bool SkipWord() {
    if (text_[at_] != '"') {
      at_ = std::min(text_.find_first_of("() \t\r\n\"", at_), text_.size());
      return true;
    }
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\n') ++line_;
      if (text_[at_] == '\\')
        ++at_;
      else if (text_[at_] == '"')
        return ++at_, true;
    }
    at_ = text_.size();
    return false;
  }

  void SkipBracket() { ++at_; }

  /// Skips the element that begins here; false when it is not closed.
  bool SkipElement() {
    std::size_t depth = 0;
    while (SkipBlanks()) {
      const char letter = Letter();
      if (letter != '(' && letter != ')') {
        if (!SkipWord()) return false;
        continue;
      }
      depth += letter == '(' ? 1 : static_cast<std::size_t>(-1);
      ++at_;
      if (depth == 0) return true;
    }
    return false;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_;
};

std::string_view NameOf(std::string_view element) {
  element.remove_prefix(1);
  element.remove_prefix(std::min(element.find_first_not_of(" \t\r\n"), element.size()));
  return element.substr(0, element.find_first_of("() \t\r\n\""));
}

/// The depth of nested brackets in a text.
std::size_t DepthOf(std::string_view text) {
  std::size_t depth = 0;
  std::size_t most = 0;
  for (Scanner scanner(text, 0); scanner.SkipBlanks();) {
    if (scanner.Letter() == '(') {
      most = std::max(most, ++depth);
    } else if (scanner.Letter() == ')') {
      --depth;
    } else {
      scanner.SkipWord();
      continue;
    }
    scanner.SkipBracket();
  }
  return most;
}

bool IsValue(const elt* element) { return element->ty == SEXP_VALUE && element->val != nullptr; }

/// The first element of this name within a list, the list itself excluded.
const elt* Find(const elt* list, std::string_view name) {
  for (const elt* item = list; item != nullptr; item = item->next) {
    if (item->ty != SEXP_LIST || item->list == nullptr) continue;
    if (IsValue(item->list) && item->list->val == name) return item->list;
    if (const elt* found = Find(item->list, name)) return found;
  }
  return nullptr;
}

void AddPoints(const elt* list, const std::function<void(const elt*)>& add) {
  for (const elt* item = list; item != nullptr; item = item->next) {
    if (item->ty != SEXP_LIST || item->list == nullptr) continue;
    if (IsValue(item->list) && item->list->val == std::string_view("xy")) add(item->list);
    AddPoints(item->list, add);
  }
}

std::vector<std::string> WordsBehind(const elt* name) {
  std::vector<std::string> words;
  if (name == nullptr) return words;
  for (const elt* item = name->next; item != nullptr && IsValue(item); item = item->next)
    words.emplace_back(item->val);
  return words;
}

std::vector<double> NumbersIn(const std::vector<std::string>& words) {
  std::vector<double> numbers;
  for (const std::string& word : words) {
    const std::optional<double> number = NumberIn(word);
    if (!number) break;
    numbers.push_back(*number);
  }
  return numbers;
}

}  // namespace

ElementSpan WholeElement(std::string_view text, const std::string& file) {
  text = model::WithoutByteOrderMark(text);
  Scanner scanner(text, 1);
  if (!scanner.SkipBlanks() || scanner.Letter() != '(')
    throw model::InputError({file, scanner.Line()}, "it does not begin with a bracket",
                            "give a file of KiCad 5 or later");
  const std::size_t start = scanner.At();
  const std::size_t line = scanner.Line();
  if (!scanner.SkipElement())
    throw model::InputError({file, scanner.Line()}, "the file ends within brackets or quotes",
                            "the file may be cut off; get it again");
  const std::string_view element = text.substr(start, scanner.At() - start);
  return {element, NameOf(element), line};
}

std::vector<ElementSpan> ElementsWithin(const ElementSpan& outer) {
  std::vector<ElementSpan> elements;
  Scanner scanner(outer.Text, outer.Line);
  scanner.SkipBracket();
  while (scanner.SkipBlanks() && scanner.Letter() != ')') {
    const std::size_t start = scanner.At();
    const std::size_t line = scanner.Line();
    if (scanner.Letter() != '(') {
      scanner.SkipWord();
      continue;
    }
    scanner.SkipElement();
    const std::string_view element = outer.Text.substr(start, scanner.At() - start);
    elements.push_back({element, NameOf(element), line});
  }
  return elements;
}

void SExpression::Free::operator()(elt* element) const { destroy_sexp(element); }

SExpression::SExpression(const ElementSpan& span, const std::string& file) : file_(file), line_(span.Line) {
  // libsexp frees its elements recursively, even along a list, so a large one would overflow the stack.
  constexpr std::size_t kMostBytes = 100'000;
  constexpr std::size_t kDeepest = 100;
  if (span.Text.size() > kMostBytes || DepthOf(span.Text) > kDeepest)
    Fail("the element is too large to be part of a package", "simplify it");
  std::string text(span.Text);
  // libsexp stops at a NUL.
  std::replace(text.begin(), text.end(), '\0', ' ');
  root_.reset(parse_sexp(text.data(), text.size()));
  if (root_ == nullptr || root_->ty != SEXP_LIST || root_->list == nullptr)
    Fail("the element cannot be read", "correct its brackets and quotes");
}

void SExpression::Fail(const std::string& what, const std::string& advice) const {
  throw model::InputError({file_, line_}, what, advice);
}

std::string SExpression::Word(std::size_t number) const {
  const elt* item = root_->list->next;
  for (; item != nullptr && number > 0; --number) item = item->next;
  return item != nullptr && IsValue(item) ? item->val : "";
}

std::vector<std::string> SExpression::WordsOf(std::string_view name) const {
  return WordsBehind(Find(root_->list, name));
}

std::string SExpression::LastWordOf(std::string_view name) const {
  const std::vector<std::string> words = WordsOf(name);
  return words.empty() ? "" : words.back();
}

std::vector<double> SExpression::NumbersOf(std::string_view name, std::size_t least) const {
  std::vector<double> numbers = NumbersIn(WordsOf(name));
  if (numbers.size() < least)
    Fail(model::Quoted(name) + " needs " + std::to_string(least) + " numbers here", "correct it");
  return numbers;
}

glm::dvec2 SExpression::PointOf(std::string_view name) const {
  if (Find(root_->list, name) == nullptr) return glm::dvec2(0.0);
  const std::vector<double> numbers = NumbersOf(name, 2);
  return {numbers[0], numbers[1]};
}

std::vector<glm::dvec2> SExpression::Points() const {
  std::vector<glm::dvec2> points;
  AddPoints(root_->list, [&points](const elt* name) {
    const std::vector<double> numbers = NumbersIn(WordsBehind(name));
    if (numbers.size() >= 2) points.emplace_back(numbers[0], numbers[1]);
  });
  return points;
}

}  // namespace importer
