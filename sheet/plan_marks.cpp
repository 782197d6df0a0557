#include "sheet/plan_marks.h"

#include <algorithm>
#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include "analysis/pads.h"
#include "sheet/obstacles.h"
#include "sheet/paint_order.h"

namespace sheet {

namespace {

constexpr double kSmallestDie = 2.0;
constexpr double kSmallestLetter = 1.8;

Box Around(const glm::dvec2& middle, double half) { return {middle - half, middle + half}; }

struct Letter {
  const char* Words;
  double Size;
  bool Bold;
  const char* Layer;
  bool OverLeaders;
};

/// Writes a letter at the first place where it covers nothing, or nothing but leaders.
/// Returns  whether there is such a place
bool WriteLetter(const Letter& letter, const std::vector<glm::dvec2>& places, Obstacles& obstacles,
                 Pencil& pencil) {
  for (const bool leadersCount : {true, false}) {
    if (!leadersCount && !letter.OverLeaders) break;
    for (const glm::dvec2& middle : places) {
      const Box box = Around(middle, 0.6 * letter.Size);
      if (obstacles.Meet(box, leadersCount)) continue;
      obstacles.AddBox(box);
      pencil.Add(letter.Layer, Text{.At = middle - glm::dvec2(0.0, 0.36 * letter.Size),
                                    .Words = letter.Words,
                                    .Size = letter.Size,
                                    .Alignment = Align::Middle,
                                    .Bold = letter.Bold});
      return true;
    }
  }
  return false;
}

struct DieEdge {
  const char* Letter;
  glm::dvec2 Normal;
};

/// Places for the letter of an edge, those nearest to the edge's middle first.
std::vector<glm::dvec2> PlacesAt(const DieEdge& edge, const glm::dvec2& half, const glm::dvec2& origin,
                                 double size, bool inside) {
  const glm::dvec2 along(-edge.Normal.y, edge.Normal.x);
  const double reach = std::fabs(glm::dot(along, half));
  std::vector<glm::dvec2> offsets;  // along the edge, away from the edge
  for (double away = 0.7; away < (inside ? 3.8 : 2.6); away += inside ? 0.3 : 0.1)
    for (const double beside : {0.0, 1.0, -1.0, 2.5, -2.5, 4.0, -4.0})
      if (std::fabs(beside) * size <= reach) offsets.emplace_back(beside, away);
  std::stable_sort(offsets.begin(), offsets.end(), [](const glm::dvec2& a, const glm::dvec2& b) {
    return std::fabs(a.x) + a.y < std::fabs(b.x) + b.y;
  });
  std::vector<glm::dvec2> places;
  places.reserve(offsets.size());
  for (const glm::dvec2& offset : offsets)
    places.push_back(origin + edge.Normal * half + size * offset.x * along +
                     (inside ? -size : size) * offset.y * edge.Normal);
  return places;
}

/// Writes the letter of an edge inside the die, else outside near the edge; omits it where it would cover
/// something.
void DrawEdgeLetter(const DieEdge& edge, const glm::dvec2& half, Obstacles& obstacles, Pencil& pencil) {
  const double largest = std::min(4.0, 0.35 * std::min(half.x, half.y));
  const auto write = [&](double size, bool inside) {
    return WriteLetter({edge.Letter, size, true, layer::kNumbers, inside},
                       PlacesAt(edge, half, pencil.On().Origin, size, inside), obstacles, pencil);
  };
  for (const double size : {largest, 0.75 * largest, 0.5 * largest})
    if (size >= kSmallestLetter && write(size, true)) return;
  for (const double size : {3.0, 2.4, kSmallestLetter})
    if (write(size, false)) return;
}

/// Draws an axis with its name beside the tip; omits the name where it would cover something.
void DrawArrow(const glm::dvec2& direction, double length, const char* name, Obstacles& obstacles,
               Pencil& pencil) {
  constexpr double kName = 2.3;
  const glm::dvec2 from = pencil.On().Origin;
  const glm::dvec2 tip = from + direction * length;
  const glm::dvec2 across(-direction.y, direction.x);
  const glm::dvec2 back = tip - direction * std::min(2.0, 0.4 * length);
  const double wide = std::min(0.5, 0.1 * length);
  pencil.Add(layer::kDie, Line{from, tip, {.Width = 0.18}});
  pencil.Add(layer::kDie,
             Area{.Outlines = {{tip, back + across * wide, back - across * wide}}, .Fill = kBlack});
  obstacles.AddOutline({from, tip});
  std::vector<glm::dvec2> places;
  for (const double beyond : {1.8, 1.2, 2.4, 0.6, 3.0, 0.0, 3.6})
    for (const double beside : {0.0, 0.8, -0.8, 1.6, -1.6, 2.4, -2.4, 2.8, -2.8})
      places.push_back(tip + beyond * direction + beside * across);
  WriteLetter({name, kName, false, layer::kDie, true}, places, obstacles, pencil);
}

}  // namespace

bool HasDieMarks(const DiagramInputs& inputs, double scale) {
  const analysis::PlanRectangle die = analysis::RectangleOf(analysis::BaseDieOf(inputs.Package));
  return die.ShorterSide() * inputs.Millimetres * scale >= kSmallestDie;
}

void DrawDieMarks(const DiagramInputs& inputs, const Page& page, Pencil& pencil) {
  const glm::dvec2 half = analysis::RectangleOf(analysis::BaseDieOf(inputs.Package)).Half *
                          inputs.Millimetres * pencil.On().Scale;
  if (!HasDieMarks(inputs, pencil.On().Scale)) return;
  const glm::dvec2 origin = pencil.On().Origin;
  // Letters beside the die stand up to 10 mm from it.
  Obstacles obstacles(pencil.On(), page, {origin - half - 12.0, origin + half + 12.0});
  const double shorter = std::min(half.x, half.y);
  const double corner = std::clamp(0.25 * shorter, 0.8, 3.0);
  const glm::dvec2 low = origin - half;
  const std::vector<glm::dvec2> mark{low, low + glm::dvec2(corner, 0.0), low + glm::dvec2(0.0, corner)};
  pencil.Add(layer::kDie, Area{.Outlines = {mark}, .Fill = kBlack});
  obstacles.AddOutline(mark);

  const Stroke centre{.Width = 0.13, .Colour = Grey(0.4), .Pattern = Dash::Centre};
  // The axes end before the edges' letters.
  const glm::dvec2 reach = half - glm::min(glm::dvec2(9.0), 0.3 * half);
  pencil.Add(layer::kDie, Line{origin - glm::dvec2(reach.x, 0.0), origin + glm::dvec2(reach.x, 0.0), centre});
  pencil.Add(layer::kDie, Line{origin - glm::dvec2(0.0, reach.y), origin + glm::dvec2(0.0, reach.y), centre});
  pencil.Add(layer::kDie,
             Circle{.Centre = origin, .Radius = std::min(0.9, 0.25 * shorter), .Pen = Stroke{.Width = 0.18}});
  const double arrow = std::clamp(0.4 * shorter, 3.0, 12.0);
  DrawArrow({1.0, 0.0}, arrow, "x", obstacles, pencil);
  DrawArrow({0.0, 1.0}, arrow, "y", obstacles, pencil);
  for (const DieEdge& edge : {DieEdge{"T", {0.0, 1.0}}, DieEdge{"B", {0.0, -1.0}}, DieEdge{"L", {-1.0, 0.0}},
                              DieEdge{"R", {1.0, 0.0}}})
    DrawEdgeLetter(edge, half, obstacles, pencil);
}

void DrawLeadMark(const Label& label, const Page& page, Pencil& pencil) {
  constexpr double kTip = 0.5;
  const glm::dvec2 tip = pencil.OnPaper(label.Anchor) + kTip * label.Towards;
  const glm::dvec2 across(-label.Towards.y, label.Towards.x);
  const Obstacles obstacles(pencil.On(), page, Around(tip, 5.0));
  // The lead's own leader starts at the tip, so it is not an obstacle.
  for (const double length : {2.6, 2.0, 1.5}) {
    const glm::dvec2 back = tip + length * label.Towards;
    const std::vector<glm::dvec2> mark{tip, back + 0.45 * length * across, back - 0.45 * length * across};
    Box box{tip, tip};
    for (const glm::dvec2& point : mark) box.Include(point);
    if (length > 1.5 && obstacles.Meet(box)) continue;
    return pencil.Add(layer::kLeads, Area{.Outlines = {mark}, .Fill = kBlack});
  }
}

void DrawScaleBar(const DiagramInputs& inputs, const Box& room, Pencil& pencil) {
  const double longest = std::min(50.0, room.Size().x);
  const glm::dvec2 start = room.Low;
  // The largest of 1, 2, 5 times a power of ten that is not longer than that on paper.
  const double paperPerUnit = inputs.Millimetres / inputs.NumberScale * pencil.On().Scale;
  const double power = std::pow(10.0, std::floor(std::log10(longest / paperPerUnit)));
  double length = power;
  for (const double step : {2.0, 5.0})
    if (step * power * paperPerUnit <= longest) length = step * power;
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
