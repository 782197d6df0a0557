#include <cmath>
#include <string>

#include "model/arithmetic.h"
#include "model/text.h"
#include "sheet/pencil.h"
#include "sheet/plan.h"

namespace sheet {

namespace {

using Outline = std::vector<glm::dvec2>;

constexpr int kSteps = 48;
constexpr Ink kRingFill = Grey(0.88);
const Stroke kRingEdge{.Width = 0.4, .Colour = Grey(0.3)};

/// The centre lines of a ring's four sides, which may bow outwards.
/// Units  millimetres, y down as in the records of rings
class Sides {
 public:
  template <class Ring>
  Sides(const Ring& ring, double unit)
      : x1_(double(ring.X1) * unit),
        x2_(double(ring.X2) * unit),
        y1_(double(ring.Y1) * unit),
        y2_(double(ring.Y2) * unit),
        half_(std::fabs(double(ring.Width)) * unit / 2.0),
        bulge_(model::EqualsUpper(ring.Kind, "ARC") ? double(ring.Param) * unit : 0.0),
        bowed_(model::EqualsUpper(ring.Kind, "ARC")) {}

  double Half() const { return half_; }
  bool Bowed() const { return bowed_; }

  static bool IsUpright(char side) { return side == 'L' || side == 'R'; }
  double From(char side) const { return IsUpright(side) ? y1_ : x1_; }
  double To(char side) const { return IsUpright(side) ? y2_ : x2_; }

  /// The place at `position` along a side, moved outwards by `out`. Returned with y up.
  glm::dvec2 At(char side, double position, double out) const {
    const double line = side == 'B' ? y1_ : side == 'T' ? y2_ : side == 'L' ? x1_ : x2_;
    const double outwards = side == 'B' || side == 'R' ? 1.0 : -1.0;
    const double place = line + outwards * (Bow(side, position) + out);
    return IsUpright(side) ? glm::dvec2(place, -position) : glm::dvec2(position, -place);
  }

 private:
  /// The bulge of a bowed side at a position: its circle passes through both corners and the tip of the
  /// bulge.
  double Bow(char side, double position) const {
    if (!bowed_) return 0.0;
    const double chord = std::fabs(From(side) - To(side));
    const double radius = (model::Divide(chord * chord, 4.0 * bulge_, "its bulge is 0") + bulge_) / 2.0;
    const double beside = position - (From(side) + To(side)) / 2.0;
    return bulge_ - (radius - std::sqrt(std::fabs(radius * radius - beside * beside)));
  }

  double x1_, x2_, y1_, y2_, half_, bulge_;
  bool bowed_;
};

/// The closed line around the ring, `out` outside its centre line.
Outline Around(const Sides& sides, double out) {
  Outline outline;
  for (const char side : {'B', 'R', 'T', 'L'}) {
    // Anticlockwise: along the lower and the right side forwards, then back.
    const bool forwards = side == 'B' || side == 'L';
    const bool upright = Sides::IsUpright(side);
    const double low = upright ? sides.To(side) - out : sides.From(side) - out;
    const double high = upright ? sides.From(side) + out : sides.To(side) + out;
    const int steps = sides.Bowed() ? kSteps : 1;
    for (int k = 0; k <= steps; ++k) {
      const double share = static_cast<double>(k) / steps;
      outline.push_back(
          sides.At(side, forwards ? low + share * (high - low) : high - share * (high - low), out));
    }
  }
  return outline;
}

/// A piece of a side. The viewer lengthens a piece by half the width at both ends, but shortens it on upright
/// straight sides.
Outline PieceOf(const Sides& sides, char side, double from, double to) {
  const bool upright = Sides::IsUpright(side);
  const double step = upright && sides.Bowed() ? -1.0 : 1.0;
  const double first = from - step * sides.Half();
  const double last = (upright && sides.Bowed() ? from - std::fabs(from - to) : to) + step * sides.Half();
  const int steps = sides.Bowed() ? kSteps : 1;
  Outline outline;
  for (const double out : {sides.Half(), -sides.Half()}) {
    for (int k = 0; k <= steps; ++k) {
      const double share = static_cast<double>(out > 0.0 ? k : steps - k) / steps;
      outline.push_back(sides.At(side, first + share * (last - first), out));
    }
  }
  return outline;
}

}  // namespace

void AddRings(const model::Package& package, double millimetresPerUnit, std::vector<PlanShape>& shapes) {
  const double unit = double(package.UnitScale) * millimetresPerUnit;
  std::vector<PlanShape> fills;
  const auto add = [&](std::vector<Outline> outlines) {
    shapes.push_back({layer::kRings, Area{.Outlines = outlines, .Pen = kRingEdge}});
    fills.push_back({layer::kRings, Area{.Outlines = std::move(outlines), .Fill = kRingFill}});
  };
  for (std::size_t k = 0; k < package.Rings.Count(); ++k) {
    const Sides sides(package.Rings[k], unit);
    model::AtRecord(package, {model::RecordTable::Rings, k}, [&] {
      add({Around(sides, sides.Half()), Around(sides, -sides.Half())});
    });
  }
  for (std::size_t k = 0; k < package.SRings.Count(); ++k) {
    const model::SRingRec& ring = package.SRings[k];
    const Sides sides(ring, unit);
    for (const model::SRSegRec& piece : ring.Segs) {
      if (piece.Name != "B" && piece.Name != "T" && piece.Name != "L" && piece.Name != "R") continue;
      model::AtRecord(package, {model::RecordTable::SRings, k}, [&] {
        add({PieceOf(sides, piece.Name[0], double(piece.A) * unit, double(piece.B) * unit)});
      });
    }
  }
  shapes.insert(shapes.end(), fills.begin(), fills.end());
}

}  // namespace sheet
