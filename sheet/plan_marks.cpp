#include "sheet/plan_marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/common.hpp>

#include "analysis/pads.h"
#include "sheet/paint_order.h"

namespace sheet {

namespace {

/// Boxes and lines on paper that a letter must keep clear of.
class Obstacles {
 public:
  Obstacles(const DiagramInputs& inputs, const Pencil& pencil) {
    const double unit = inputs.Millimetres;
    for (const analysis::Pad& pad : analysis::DiePads(inputs.Package)) {
      const glm::dvec2 at = pencil.OnPaper(pad.Shape.Centre * unit);
      const double half = std::max(pad.Shape.Half.x, pad.Shape.Half.y) * unit * pencil.On().Scale;
      boxes_.push_back({at - half, at + half});
    }
    for (const DiagramWire& wire : inputs.Wires)
      AddLine(pencil.OnPaper(wire.From * unit), pencil.OnPaper(wire.To * unit));
    if (inputs.Package.SDCompW == 0.0F) return;
    const std::array<glm::dvec2, 4> corners =
        analysis::RectangleOf(analysis::StackedDieOf(inputs.Package)).Corners();
    for (std::size_t k = 0; k < 4; ++k)
      AddLine(pencil.OnPaper(corners[k] * unit), pencil.OnPaper(corners[(k + 1) % 4] * unit));
  }

  bool Meet(const Box& box) const {
    return std::any_of(boxes_.begin(), boxes_.end(),
                       [&](const Box& other) {
                         return box.Low.x < other.High.x && other.Low.x < box.High.x &&
                                box.Low.y < other.High.y && other.Low.y < box.High.y;
                       }) ||
           std::any_of(lines_.begin(), lines_.end(),
                       [&](const Box& line) { return Cuts(line.Low, line.High, box); });
  }

 private:
  void AddLine(const glm::dvec2& from, const glm::dvec2& to) { lines_.push_back({from, to}); }

  /// Whether any of a line lies in a box: its share that lies within both of the box's strips.
  static bool Cuts(const glm::dvec2& from, const glm::dvec2& to, const Box& box) {
    double first = 0.0, last = 1.0;
    for (int axis = 0; axis < 2; ++axis) {
      const double step = to[axis] - from[axis];
      if (step == 0.0) {
        if (from[axis] < box.Low[axis] || from[axis] > box.High[axis]) return false;
        continue;
      }
      const double low = (box.Low[axis] - from[axis]) / step, high = (box.High[axis] - from[axis]) / step;
      first = std::max(first, std::min(low, high));
      last = std::min(last, std::max(low, high));
    }
    return first <= last;
  }

  std::vector<Box> boxes_;
  std::vector<Box> lines_;  ///< from Low to High, in any direction
};

void WriteLetter(const char* letter, const glm::dvec2& middle, double size, Pencil& pencil) {
  pencil.Add(layer::kNumbers, Text{.At = middle - glm::dvec2(0.0, 0.36 * size),
                                   .Words = letter,
                                   .Size = size,
                                   .Alignment = Align::Middle,
                                   .Bold = true});
}

/// Writes the letter of an edge inside the die, near the edge's middle, where it covers nothing.
void DrawEdgeLetter(const char* letter, const glm::dvec2& normal, const glm::dvec2& half,
                    const Obstacles& obstacles, Pencil& pencil) {
  const double largest = std::min(4.0, 0.35 * std::min(half.x, half.y));
  const glm::dvec2 edge = pencil.On().Origin + normal * half;
  const glm::dvec2 along(-normal.y, normal.x);
  for (const double size : {largest, 0.75 * largest, 0.5 * largest})
    for (double depth = 0.7 * size; depth < 6.0 * size; depth += 0.3 * size)
      for (const double beside : {0.0, 1.0, -1.0, 2.5, -2.5, 4.0, -4.0}) {
        const glm::dvec2 middle = edge - depth * normal + beside * size * along;
        if (obstacles.Meet({middle - 0.6 * size, middle + 0.6 * size})) continue;
        return WriteLetter(letter, middle, size, pencil);
      }
  WriteLetter(letter, edge - largest * normal, largest, pencil);
}

void DrawArrow(const glm::dvec2& from, const glm::dvec2& direction, double length, const char* name,
               Pencil& pencil) {
  const glm::dvec2 tip = from + direction * length;
  const glm::dvec2 across(-direction.y, direction.x);
  const Stroke thin{.Width = 0.18};
  pencil.Add(layer::kDie, Line{from, tip, thin});
  pencil.Add(
      layer::kDie,
      Area{.Outlines = {{tip, tip - direction * 2.0 + across * 0.5, tip - direction * 2.0 - across * 0.5}},
           .Fill = kBlack});
  pencil.Add(layer::kDie, Text{.At = tip + direction * 1.8 - glm::dvec2(0.0, 0.8),
                               .Words = name,
                               .Size = 2.3,
                               .Alignment = Align::Middle});
}

}  // namespace

bool HasDieMarks(const DiagramInputs& inputs, double scale) {
  constexpr double kSmallest = 2.0;
  const analysis::PlanRectangle die = analysis::RectangleOf(analysis::BaseDieOf(inputs.Package));
  return die.ShorterSide() * inputs.Millimetres * scale >= kSmallest;
}

void DrawDieMarks(const DiagramInputs& inputs, Pencil& pencil) {
  const glm::dvec2 half = analysis::RectangleOf(analysis::BaseDieOf(inputs.Package)).Half *
                          inputs.Millimetres * pencil.On().Scale;
  if (!HasDieMarks(inputs, pencil.On().Scale)) return;
  const glm::dvec2 origin = pencil.On().Origin;
  const double corner = std::min(3.0, 0.25 * std::min(half.x, half.y));
  const glm::dvec2 low = origin - half;
  pencil.Add(layer::kDie,
             Area{.Outlines = {{low, low + glm::dvec2(corner, 0.0), low + glm::dvec2(0.0, corner)}},
                  .Fill = kBlack});

  const Stroke centre{.Width = 0.13, .Colour = Grey(0.4), .Pattern = Dash::Centre};
  // They end before the edges' letters.
  const glm::dvec2 reach = half - glm::min(glm::dvec2(9.0), 0.3 * half);
  pencil.Add(layer::kDie, Line{origin - glm::dvec2(reach.x, 0.0), origin + glm::dvec2(reach.x, 0.0), centre});
  pencil.Add(layer::kDie, Line{origin - glm::dvec2(0.0, reach.y), origin + glm::dvec2(0.0, reach.y), centre});
  const double arrow = std::min(12.0, 0.4 * std::min(half.x, half.y));
  pencil.Add(layer::kDie, Circle{.Centre = origin, .Radius = 0.9, .Pen = Stroke{.Width = 0.18}});
  DrawArrow(origin, {1.0, 0.0}, arrow, "x", pencil);
  DrawArrow(origin, {0.0, 1.0}, arrow, "y", pencil);

  const Obstacles obstacles(inputs, pencil);
  DrawEdgeLetter("T", {0.0, 1.0}, half, obstacles, pencil);
  DrawEdgeLetter("B", {0.0, -1.0}, half, obstacles, pencil);
  DrawEdgeLetter("L", {-1.0, 0.0}, half, obstacles, pencil);
  DrawEdgeLetter("R", {1.0, 0.0}, half, obstacles, pencil);
}

void DrawScaleBar(const DiagramInputs& inputs, const glm::dvec2& start, Pencil& pencil) {
  constexpr double kLongest = 50.0;
  // The largest of 1, 2, 5 times a power of ten that is not longer than that on paper.
  const double paperPerUnit = inputs.Millimetres / inputs.NumberScale * pencil.On().Scale;
  const double power = std::pow(10.0, std::floor(std::log10(kLongest / paperPerUnit)));
  double length = power;
  for (const double step : {2.0, 5.0})
    if (step * power * paperPerUnit <= kLongest) length = step * power;
  const glm::dvec2 end = start + glm::dvec2(length * paperPerUnit, 0.0);
  const Stroke stroke{.Width = 0.35};
  pencil.Add(layer::kFrame, Line{start, end, stroke});
  for (const glm::dvec2& tick : {start, end})
    pencil.Add(layer::kFrame, Line{tick - glm::dvec2(0.0, 1.0), tick + glm::dvec2(0.0, 1.0), stroke});
  pencil.Add(layer::kFrame, Text{.At = (start + end) / 2.0 + glm::dvec2(0.0, 1.4),
                                 .Words = Decimal(length, 6) + " " + inputs.Unit,
                                 .Size = 2.5,
                                 .Alignment = Align::Middle});
}

}  // namespace sheet
