/// The outline of a package's body, from the lines of a footprint's fabrication layer.
#pragma once

#include <optional>
#include <vector>

#include "import/box.h"

namespace importer {

/// Collects lines and finds the largest closed outline. Only its box is kept, so a corner that is cut off, as
/// a mark at lead 1, does not matter.
class BodyOutline {
 public:
  void AddLine(const glm::dvec2& from, const glm::dvec2& to) { lines_.push_back({from, to}); }
  void AddClosed(const Box& box) { closed_.push_back(box); }

  /// The box of the largest closed outline; of all lines when none is closed; nothing without lines.
  std::optional<Box> Bounds() const;

 private:
  struct Line {
    glm::dvec2 From, To;
  };
  std::vector<Line> lines_;
  std::vector<Box> closed_;
};

}  // namespace importer
