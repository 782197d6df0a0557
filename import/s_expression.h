/// One element of a KiCad file, parsed by libsexp.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/input_error.h"

struct elt;

namespace importer {

/// An element in brackets within a text: where it stands, and its first word.
struct ElementSpan {
  std::string_view Text;
  std::string_view Name;
  std::size_t Line = 0;  ///< line of the file where it begins
};

/// The element with which a text begins.
/// Faults  InputError with the line when the text begins with something else, or brackets or quotes are not
/// closed
ElementSpan WholeElement(std::string_view text, const std::string& file);

/// The elements directly within one. Their contents are skipped, so that a file of any size takes little
/// memory.
std::vector<ElementSpan> ElementsWithin(const ElementSpan& outer);

/// A parsed element.
class SExpression {
 public:
  /// Faults  InputError with the line when the library cannot read it, or it is too large or too deep to be
  /// parsed
  SExpression(const ElementSpan& span, const std::string& file);

  /// The n-th item after the element's name; empty when it is an element or missing.
  std::string Word(std::size_t number) const;
  /// The words of the first element of this name, at any depth, up to the first element among them.
  std::vector<std::string> WordsOf(std::string_view name) const;
  /// The last of them; empty when there is none.
  std::string LastWordOf(std::string_view name) const;
  /// The numbers that such an element begins with.
  /// Faults  InputError with the line when there are fewer than `least`
  std::vector<double> NumbersOf(std::string_view name, std::size_t least) const;
  /// The same as a point; the origin when there is no such element.
  glm::dvec2 PointOf(std::string_view name) const;
  /// All points "(xy X Y)", at any depth.
  std::vector<glm::dvec2> Points() const;

  [[noreturn]] void Fail(const std::string& what, const std::string& advice) const;

 private:
  struct Free {
    void operator()(elt* element) const;
  };

  std::string file_;
  std::size_t line_;
  std::unique_ptr<elt, Free> root_;
};

}  // namespace importer
