#include <cmath>
#include <optional>
#include <string>

#include "model/arithmetic.h"
#include "model/side.h"
#include "model/text.h"
#include "render/scene.h"

namespace render {

using model::Side;
using model::Single;

namespace {

constexpr std::size_t kSamples = 100;

bool IsArc(const std::string& kind) { return model::EqualsUpper(kind, "ARC"); }

/// Radius of the circle through a chord's ends whose arc stands out by h: (c^2 / (4 h) + h) / 2.
float ArcRadius(float chord, float h) {
  const double c = double(chord);
  return Single((model::Divide(c * c, 4.0 * double(h), "its bulge is 0") + double(h)) / 2.0);
}

}  // namespace

float Snap(Side side, float centreX, float centreY, float radius, float h, float p) {
  const double d = double(Single(double(p) - double(IsUpright(side) ? centreY : centreX)));
  const double r = double(radius);
  const double s = double(Single(std::sqrt(std::fabs(r * r - d * d))));
  return Single(double(h) - (r - s));
}

/// What whole and segmented rings share: the corners of the outline, the band and its bulge.
struct Scene::RingOutline {
  float X1, X2, Y1, Y2, Width, Param;

  template <class Ring>
  explicit RingOutline(const Ring& ring)
      : X1(ring.X1), X2(ring.X2), Y1(ring.Y1), Y2(ring.Y2), Width(ring.Width), Param(ring.Param) {}

  /// The coordinate at which a side lies: x of an upright one, else y.
  float Line(Side side) const {
    switch (side) {
      case Side::Bottom:
        return Y1;
      case Side::Top:
        return Y2;
      case Side::Left:
        return X1;
      case Side::Right:
        break;
    }
    return X2;
  }
};

/// Part of a side: from `Start`, in steps of `Length` / 99, upwards or downwards.
struct Scene::Span {
  float Start;
  float Length;
  double Direction;

  std::array<float, kSamples> Positions() const {
    const float step = Single(double(Length) / 99.0);
    std::array<float, kSamples> positions{};
    for (std::size_t k = 0; k < kSamples; ++k)
      positions[k] = Single(double(Start) + Direction * double(k) * double(step));
    return positions;
  }
};

/// One bowed side, or a part of it, as 99 plates. Each is longer by half the width at both ends, so that
/// neighbours overlap and the band has no gaps.
void Scene::DrawArcSide(Side side, const RingOutline& ring, const Span& span) {
  const bool upright = IsUpright(side);
  const double a = double(ring.Width) / 2.0;
  const float chord = upright ? Single(std::fabs(double(ring.Y1) - double(ring.Y2)))
                              : Single(std::fabs(double(ring.X1) - double(ring.X2)));
  const float radius = ArcRadius(chord, ring.Param);
  const float centreX = Single((double(ring.X1) + double(ring.X2)) / 2.0);
  const float centreY = Single((double(ring.Y1) + double(ring.Y2)) / 2.0);
  const double line = double(ring.Line(side));
  // All sides bow outwards: y counts downwards here, so the bottom side lies at the larger y.
  const double outwards = side == Side::Bottom || side == Side::Right ? 1.0 : -1.0;

  const std::array<float, kSamples> positions = span.Positions();
  std::array<float, kSamples> bowed{};
  for (std::size_t k = 0; k < kSamples; ++k)
    bowed[k] =
        Single(line + outwards * double(Snap(side, centreX, centreY, radius, ring.Param, positions[k])));

  for (std::size_t k = 0; k + 1 < kSamples; ++k) {
    const double from = double(positions[k]) - span.Direction * a;
    const double to = double(positions[k + 1]) + span.Direction * a;
    const double b0 = double(bowed[k]);
    const double b1 = double(bowed[k + 1]);
    // The near and far edges of an upright band change places with the direction, so that its top face looks
    // up.
    const double near = upright ? span.Direction * a : -a;
    const PlanPoint corners[] = {{Single(from), Single(b0 + near)},
                                 {Single(to), Single(b1 + near)},
                                 {Single(to), Single(b1 - near)},
                                 {Single(from), Single(b0 - near)}};
    const auto at = [&](int corner) {
      return upright ? PlanPoint{corners[corner].Y, corners[corner].X} : corners[corner];
    };
    DrawPlate(at(0), at(1), at(2), at(3));
  }
}

void Scene::DrawArcRing(std::size_t ring) {
  const RingOutline outline(in_.Package.Rings[ring]);
  const float width = Single(std::fabs(double(outline.X1) - double(outline.X2)));
  const float length = Single(std::fabs(double(outline.Y1) - double(outline.Y2)));
  // Deliberate: upright sides are sampled from Y2 upwards even when Y2 is the larger one.
  DrawArcSide(Side::Bottom, outline, {outline.X1, width, 1.0});
  DrawArcSide(Side::Top, outline, {outline.X1, width, 1.0});
  DrawArcSide(Side::Left, outline, {outline.Y2, length, 1.0});
  DrawArcSide(Side::Right, outline, {outline.Y2, length, 1.0});
}

void Scene::DrawRings() {
  pen_.Begin(model::Part::Rings, {});
  const model::Table<model::RingRec>& rings = in_.Package.Rings;
  model::CountIn16Bits(rings.Count(), model::RecordTable::Rings);
  for (std::size_t i = 0; i < rings.Count(); ++i)
    model::AtRecord(in_.Package, {model::RecordTable::Rings, i}, [&] { DrawRing(i); });
}

void Scene::DrawRing(std::size_t ring) {
  if (IsArc(in_.Package.Rings[ring].Kind)) return DrawArcRing(ring);
  const RingOutline outline(in_.Package.Rings[ring]);
  DrawStraightSide(Side::Bottom, outline, outline.X1, outline.X2);
  DrawStraightSide(Side::Top, outline, outline.X1, outline.X2);
  DrawStraightSide(Side::Left, outline, outline.Y1, outline.Y2);
  DrawStraightSide(Side::Right, outline, outline.Y1, outline.Y2);
}

/// A straight side, or a part of it, longer by half the width at both ends. On a well-formed ring the sides
/// at Y1 and Y2 thus cover the corner squares, and those at X1 and X2, which run from Y1 down to Y2, meet
/// them edge to edge.
void Scene::DrawStraightSide(Side side, const RingOutline& ring, float start, float end) {
  const double a = double(ring.Width) / 2.0;
  const double line = double(ring.Line(side));
  const float first = Single(double(start) - a);
  const float last = Single(double(end) + a);
  const float low = Single(line - a);
  const float high = Single(line + a);
  if (IsUpright(side)) return DrawPlate({low, first}, {low, last}, {high, last}, {high, first});
  DrawPlate({first, low}, {last, low}, {last, high}, {first, high});
}

void Scene::DrawArcSRing(std::size_t ring) {
  const RingOutline outline(in_.Package.SRings[ring]);
  for (const model::SRSegRec& segment : in_.Package.SRings[ring].Segs) {
    // Deliberate: side letters count only in upper case.
    const std::optional<Side> side = model::ExactSideOf(segment.Name);
    if (!side) continue;
    const float length = Single(std::fabs(double(segment.A) - double(segment.B)));
    // Segments of the upright sides are given from their upper end downwards.
    DrawArcSide(*side, outline, {segment.A, length, IsUpright(*side) ? -1.0 : 1.0});
  }
}

void Scene::DrawSRings() {
  pen_.Begin(model::Part::Rings, {});
  const model::Table<model::SRingRec>& rings = in_.Package.SRings;
  model::CountIn16Bits(rings.Count(), model::RecordTable::SRings);
  for (std::size_t i = 0; i < rings.Count(); ++i)
    model::AtRecord(in_.Package, {model::RecordTable::SRings, i}, [&] { DrawSRing(i); });
}

void Scene::DrawSRing(std::size_t ring) {
  if (IsArc(in_.Package.SRings[ring].Kind)) return DrawArcSRing(ring);
  const RingOutline outline(in_.Package.SRings[ring]);
  for (const model::SRSegRec& segment : in_.Package.SRings[ring].Segs)
    if (const auto side = model::ExactSideOf(segment.Name))
      DrawStraightSide(*side, outline, segment.A, segment.B);
}

void Scene::RenderRingSide(float, float, float, float, float) {}

}  // namespace render
