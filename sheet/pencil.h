/// Draws shapes on one page of a drawing.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sheet/drawing.h"

namespace sheet {

/// The layers of every diagram in the order of painting; the wires' layers come after DIE_PADS.
namespace layer {
inline constexpr char kPaddle[] = "PADDLE";
inline constexpr char kRings[] = "RINGS";
inline constexpr char kNames[] = "NAMES";
inline constexpr char kLeads[] = "LEADS";
inline constexpr char kDie[] = "DIE";
inline constexpr char kDiePads[] = "DIE_PADS";
inline constexpr char kNumbers[] = "NUMBERS";
inline constexpr char kFrame[] = "FRAME";
inline constexpr char kTable[] = "TABLE";
inline constexpr char kFindings[] = "FINDINGS";
}  // namespace layer

/// A rectangle on paper.
struct Box {
  glm::dvec2 Low{}, High{};

  glm::dvec2 Size() const { return High - Low; }
  glm::dvec2 Middle() const { return (Low + High) / 2.0; }
  Box Inset(double by) const { return {Low + by, High - by}; }
  /// Extends it to a point.
  void Include(const glm::dvec2& point) {
    Low = glm::dvec2(std::min(Low.x, point.x), std::min(Low.y, point.y));
    High = glm::dvec2(std::max(High.x, point.x), std::max(High.y, point.y));
  }
};

class Pencil {
 public:
  Pencil(Drawing& drawing, Page& page) : drawing_(drawing), page_(page) {}

  void Add(std::string_view layer, Shape shape) {
    page_.Items.push_back({drawing_.LayerOf(layer), std::move(shape)});
  }
  void Frame(std::string_view layer, const Box& box, double width) {
    Add(layer, Area{.Outlines = {{box.Low, {box.High.x, box.Low.y}, box.High, {box.Low.x, box.High.y}}},
                    .Pen = Stroke{.Width = width}});
  }

  /// The point on paper for a point of the package in millimetres from its origin.
  glm::dvec2 OnPaper(const glm::dvec2& place) const { return drawing_.Origin + place * drawing_.Scale; }

  const Drawing& On() const { return drawing_; }

 private:
  Drawing& drawing_;
  Page& page_;
};

}  // namespace sheet
