#include "sheet/obstacles.h"

#include <algorithm>
#include <utility>

namespace sheet {

namespace {

bool Overlap(const Box& a, const Box& b) {
  return a.Low.x <= b.High.x && b.Low.x <= a.High.x && a.Low.y <= b.High.y && b.Low.y <= a.High.y;
}

/// Whether a line meets a box: clips the line by the box's strips in x and y.
bool Cuts(const glm::dvec2& from, const glm::dvec2& to, const Box& box) {
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

/// A point lies in a convex outline when it is on the same side of all edges.
bool Contains(const std::vector<glm::dvec2>& outline, const glm::dvec2& point) {
  bool left = false, right = false;
  for (std::size_t k = 0; k < outline.size(); ++k) {
    const glm::dvec2 edge = outline[(k + 1) % outline.size()] - outline[k];
    const glm::dvec2 to = point - outline[k];
    const double turn = edge.x * to.y - edge.y * to.x;
    left = left || turn > 0.0;
    right = right || turn < 0.0;
  }
  return !(left && right);
}

}  // namespace

Obstacles::Obstacles(const Drawing& drawing, const Page& page, const Box& within) : within_(within) {
  for (const Item& item : page.Items) {
    const std::string& layer = drawing.Layers[item.Layer];
    if (layer == layer::kPaddle || layer == layer::kFrame || layer == layer::kFindings) continue;
    const bool hollow = layer == layer::kDie || layer == layer::kRings;
    if (const auto* const line = std::get_if<Line>(&item.What)) {
      Add({{}, {line->From, line->To}, false, layer == layer::kNames});
    } else if (const auto* const circle = std::get_if<Circle>(&item.What)) {
      if (layer == layer::kDiePads) AddBox(Box{circle->Centre, circle->Centre}.Inset(-circle->Radius));
    } else if (const auto* const area = std::get_if<Area>(&item.What)) {
      for (const std::vector<glm::dvec2>& outline : area->Outlines) AddOutline(outline, !hollow);
    }
  }
}

void Obstacles::Add(Outline outline) {
  if (outline.Points.empty()) return;
  outline.Bounds = {outline.Points.front(), outline.Points.front()};
  for (const glm::dvec2& point : outline.Points) outline.Bounds.Include(point);
  if (Overlap(outline.Bounds, within_)) outlines_.push_back(std::move(outline));
}

void Obstacles::AddOutline(std::vector<glm::dvec2> outline, bool filled) {
  Add({{}, std::move(outline), filled, false});
}

void Obstacles::AddBox(const Box& box) {
  AddOutline({box.Low, {box.High.x, box.Low.y}, box.High, {box.Low.x, box.High.y}});
}

bool Obstacles::Meet(const Box& box, bool leadersCount) const {
  return std::any_of(outlines_.begin(), outlines_.end(), [&](const Outline& outline) {
    if ((outline.Leader && !leadersCount) || !Overlap(outline.Bounds, box)) return false;
    const std::vector<glm::dvec2>& points = outline.Points;
    for (std::size_t k = 0; k < points.size(); ++k)
      if (Cuts(points[k], points[(k + 1) % points.size()], box)) return true;
    return outline.Filled && points.size() > 2 && Contains(points, box.Middle());
  });
}

}  // namespace sheet
