#include "sheet/plan_fit.h"

#include <array>

#include "sheet/title_block.h"

namespace sheet {

namespace {

/// The margin between the plan and the box around it, for the mark at lead 1 and for leaders.
constexpr double kGather = 5.0;

LabelColumns Scaled(const LabelColumns& unit, double size) {
  return {size, unit.Number * size, unit.Lead * size, unit.Name * size};
}

/// Puts labels close to the plan if they fit there, else at the edge of the paper.
std::optional<PlanFit> TryFit(std::size_t count, const LabelColumns& columns, const Box& extent,
                              const Box& room, double scale) {
  const Box inside = room.Inset(columns.Depth());
  const glm::dvec2 half = extent.Size() * scale / 2.0 + kGather;
  if (inside.Size().x < 2.0 * half.x || inside.Size().y < 2.0 * half.y) return std::nullopt;
  const glm::dvec2 middle = room.Middle();
  PlanFit fit{
      scale, columns, {middle - half, middle + half, columns.Pitch()}, middle - extent.Middle() * scale};
  if (count > fit.Room.Capacity()) fit.Room = {inside.Low, inside.High, columns.Pitch()};
  return fit;
}

}  // namespace

SheetLayout::SheetLayout(const Paper& paper)
    : Frame(FrameOf(paper)), BlockWidth(std::clamp(0.26 * paper.Width, 82.0, 120.0)) {
  constexpr double kInset = 5.0;
  constexpr double kScaleBarHeight = 8.0;
  const double split = Frame.High.x - BlockWidth;
  Plan = {Frame.Low + glm::dvec2(kInset, kInset + kScaleBarHeight), {split - kInset, Frame.High.y - kInset}};
  Side = {{split, Frame.Low.y + TitleBlockHeight() + kInset}, Frame.High - glm::dvec2(kInset, kInset)};
  ScaleBar = {Frame.Low + kInset, {split - kInset, Frame.Low.y + kInset + kScaleBarHeight}};
}

std::optional<PlanFit> FitPlan(const LabelNeeds& labels, const Box& extent, const Box& room,
                               const std::optional<double>& scale) {
  const std::vector<double> scales =
      scale ? std::vector<double>{*scale} : std::vector<double>{50.0, 20.0, 10.0, 5.0, 2.0, 1.0};
  for (const double tried : scales) {
    std::optional<PlanFit> fit;
    for (const double size : {2.5, 2.2, 1.9, 1.6, 1.4}) {
      const std::optional<PlanFit> next =
          TryFit(labels.Count, Scaled(labels.Columns, size), extent, room, tried);
      if (!next) continue;
      fit = next;
      if (labels.Count <= fit->Room.Capacity()) break;
    }
    if (fit) return fit;
  }
  return std::nullopt;
}

}  // namespace sheet
