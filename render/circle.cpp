#include <cmath>

#include "model/arithmetic.h"
#include "render/scene.h"

namespace render {

namespace {

struct RimPoint {
  double Sine, Cosine;
};

constexpr std::size_t kRimPoints = std::tuple_size_v<model::DiscRim>;

/// The rim of the unit circle from 0 to 360 degrees in steps of 10; each angle is a single.
std::array<RimPoint, kRimPoints> UnitRim() {
  std::array<RimPoint, kRimPoints> rim{};
  for (std::size_t step = 0; step < kRimPoints; ++step) {
    const double t = double(model::Single(model::kSinglePi / 180.0 * (10.0 * double(step))));
    rim[step] = {std::sin(t), std::cos(t)};
  }
  return rim;
}

}  // namespace

void Scene::DrawCircle(float centreX, float centreZ, float y, float diameter) {
  static const std::array<RimPoint, kRimPoints> kUnitRim = UnitRim();
  const double radius = double(diameter) / 2.0;
  model::DiscRim rim;
  for (std::size_t point = 0; point < kRimPoints; ++point) {
    rim[point] = {model::Single(double(centreX) + radius * kUnitRim[point].Sine), y,
                  model::Single(double(centreZ) + radius * kUnitRim[point].Cosine)};
  }
  pen_.Disc(rim);
}

}  // namespace render
