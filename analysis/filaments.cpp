#include "analysis/filaments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <glm/geometric.hpp>
#include <span>
#include <tuple>

namespace analysis {

namespace {

using glm::dvec3;

constexpr double kVacuumOver4Pi = 1e-7;  ///< the magnetic constant over 4 pi, henry per metre

/// Two filaments count as parallel when the sine of their angle is smaller than this. The closed form for
/// skew filaments divides by the sine and loses digits; at this sine it loses as much as the formula for
/// parallel filaments neglects.
constexpr double kParallelSine = 1e-6;

/// A point of the Gauss-Legendre rule on -1 to 1.
struct RulePoint {
  double At, Weight;
};

constexpr std::array<RulePoint, 2> kTwoPoints{{{-0.57735026918962576, 1.0}, {0.57735026918962576, 1.0}}};
constexpr std::array<RulePoint, 3> kThreePoints{{{-0.77459666924148338, 0.55555555555555556},
                                                 {0.0, 0.88888888888888889},
                                                 {0.77459666924148338, 0.55555555555555556}}};
constexpr std::array<RulePoint, 4> kFourPoints{{{-0.86113631159405258, 0.34785484513745386},
                                                {-0.33998104358485626, 0.65214515486254614},
                                                {0.33998104358485626, 0.65214515486254614},
                                                {0.86113631159405258, 0.34785484513745386}}};

/// From this distance on, in half lengths, the rule of four points keeps its error below 1e-7.
constexpr double kNearest = 4.0;

/// The rule for a filament whose middle is `distance` half lengths away. With n points the relative error at
/// a distance of q is about (q + sqrt(q^2 - 1))^(-2n).
std::span<const RulePoint> RuleFor(double distance) {
  if (distance >= 30.0) return kTwoPoints;
  if (distance >= 8.0) return kThreePoints;
  return kFourPoints;
}

dvec3 At(const FilamentFrame& filament, double at) {
  return filament.Middle + (at * filament.Length / 2.0) * filament.Along;
}

/// The integral of 1 / sqrt(R^2 + r^2) over both filaments, by points on both.
double FarIntegral(const FilamentFrame& a, const FilamentFrame& b, std::span<const RulePoint> ruleA,
                   std::span<const RulePoint> ruleB, double squaredRadius) {
  double sum = 0.0;
  for (const RulePoint& onA : ruleA) {
    const dvec3 point = At(a, onA.At);
    double row = 0.0;
    for (const RulePoint& onB : ruleB) {
      const dvec3 apart = At(b, onB.At) - point;
      row += onB.Weight / std::sqrt(glm::dot(apart, apart) + squaredRadius);
    }
    sum += onA.Weight * row;
  }
  return sum * a.Length * b.Length / 4.0;
}

/// The distance of a point from a filament.
double DistanceFrom(const FilamentFrame& filament, const dvec3& point) {
  const double along = std::clamp(glm::dot(point - filament.Start, filament.Along), 0.0, filament.Length);
  return glm::distance(point, filament.Start + along * filament.Along);
}

/// The integral of 1 / R over the side of a triangle, R the distance from the opposite corner; the other
/// sides are r1 and r2.
double LineIntegral(double r1, double r2, double side) {
  return std::log((r1 + r2 + side) / (r1 + r2 - side));
}

/// The same double integral, over `line` in closed form and over `piece` by points.
double HalfFarIntegral(const FilamentFrame& line, const FilamentFrame& piece, std::span<const RulePoint> rule,
                       double squaredRadius) {
  double sum = 0.0;
  for (const RulePoint& on : rule) {
    const dvec3 toStart = At(piece, on.At) - line.Start;
    const dvec3 toEnd = toStart - line.Length * line.Along;
    sum += on.Weight * LineIntegral(std::sqrt(glm::dot(toStart, toStart) + squaredRadius),
                                    std::sqrt(glm::dot(toEnd, toEnd) + squaredRadius), line.Length);
  }
  return sum * piece.Length / 2.0;
}

/// Filament b, reversed when it runs against a. The integrals of distances do not depend on the direction.
struct SameWay {
  SameWay(const FilamentFrame& a, const FilamentFrame& b)
      : Start(b.Start), Along(b.Along), Cosine(glm::dot(a.Along, b.Along)) {
    if (Cosine >= 0.0) return;
    Start += b.Length * Along;
    Along = -Along;
    Cosine = -Cosine;
  }

  dvec3 Start, Along;
  double Cosine;
};

/// The closed form for parallel filaments: z asinh(z / d) - sqrt(z^2 + d^2) at the four differences z of
/// their ends.
double ParallelIntegral(const FilamentFrame& a, const FilamentFrame& b, const SameWay& turned,
                        double squaredRadius) {
  const double start = glm::dot(turned.Start - a.Start, a.Along);
  const double end = start + b.Length;
  // The distance of filaments that are not quite parallel is taken in the middle of their overlap.
  const double middle = (std::max(0.0, start) + std::min(a.Length, end)) / 2.0;
  const dvec3 apart = turned.Start + (middle - start) * turned.Along - (a.Start + middle * a.Along);
  const dvec3 across = glm::cross(apart, a.Along);
  const double distance = std::sqrt(glm::dot(across, across) + squaredRadius);
  const auto part = [distance](double z) { return z * std::asinh(z / distance) - std::hypot(z, distance); };
  return part(a.Length - start) + part(end) - part(a.Length - end) - part(start);
}

/// The closed form for filaments at an angle. Their places x and y count from the feet of the common
/// perpendicular of their lines.
///
///        x1 ----- a ----- x2
///       /
///      d    y1 --- b --- y2
double SkewIntegral(const FilamentFrame& a, const FilamentFrame& b, const SameWay& turned,
                    const dvec3& normal, double squaredRadius) {
  const double squaredSine = glm::dot(normal, normal);
  const double sine = std::sqrt(squaredSine);
  const dvec3 apart = a.Start - turned.Start;
  const double x1 = glm::dot(glm::cross(apart, turned.Along), normal) / squaredSine;
  const double y1 = glm::dot(glm::cross(apart, a.Along), normal) / squaredSine;
  const double x2 = x1 + a.Length;
  const double y2 = y1 + b.Length;
  const double acrossLines = glm::dot(apart, normal) / sine;
  const double distance = std::sqrt(acrossLines * acrossLines + squaredRadius);

  const dvec3 alongA = a.Length * a.Along;
  const dvec3 alongB = b.Length * turned.Along;
  const auto between = [squaredRadius](const dvec3& v) { return std::sqrt(glm::dot(v, v) + squaredRadius); };
  const double r11 = between(apart);
  const double r12 = between(apart - alongB);
  const double r21 = between(apart + alongA);
  const double r22 = between(apart + alongA - alongB);

  // The difference of two angles by one arc tangent, which is safe because each is less than a right angle.
  struct Arc {
    double Cosine, Sine;
    double Minus(const Arc& other) const {
      return std::atan2(Sine * other.Cosine - Cosine * other.Sine, Cosine * other.Cosine + Sine * other.Sine);
    }
  };
  const double level = distance * distance * turned.Cosine;
  const auto arc = [=](double x, double y, double r) {
    return Arc{distance * r * sine, level + x * y * squaredSine};
  };
  const double arcs = arc(x2, y2, r22).Minus(arc(x2, y1, r21)) + arc(x1, y1, r11).Minus(arc(x1, y2, r12));
  return x2 * LineIntegral(r21, r22, b.Length) - x1 * LineIntegral(r11, r12, b.Length) +
         y2 * LineIntegral(r12, r22, a.Length) - y1 * LineIntegral(r11, r21, a.Length) -
         distance / sine * arcs;
}

double NearIntegral(const FilamentFrame& a, const FilamentFrame& b, double squaredRadius) {
  const SameWay turned(a, b);
  const dvec3 normal = glm::cross(a.Along, turned.Along);
  if (glm::dot(normal, normal) < kParallelSine * kParallelSine)
    return ParallelIntegral(a, b, turned, squaredRadius);
  return SkewIntegral(a, b, turned, normal, squaredRadius);
}

/// The double integral by the fastest way whose error is below 1e-7.
double Integral(const FilamentFrame& a, const FilamentFrame& b, double squaredRadius) {
  const auto& [longer, shorter] = a.Length >= b.Length ? std::tie(a, b) : std::tie(b, a);
  const double halfLonger = longer.Length / 2.0;
  const double halfShorter = shorter.Length / 2.0;
  const double distance = glm::distance(a.Middle, b.Middle);
  const double longerAway = (distance - halfShorter) / halfLonger;
  if (longerAway >= kNearest)
    return FarIntegral(longer, shorter, RuleFor(longerAway), RuleFor((distance - halfLonger) / halfShorter),
                       squaredRadius);
  const double shorterAway = DistanceFrom(longer, shorter.Middle) / halfShorter;
  if (shorterAway >= kNearest) return HalfFarIntegral(longer, shorter, RuleFor(shorterAway), squaredRadius);
  return NearIntegral(a, b, squaredRadius);
}

}  // namespace

FilamentFrame::FilamentFrame(const Filament& filament)
    : Start(filament.A),
      Middle((filament.A + filament.B) / 2.0),
      Along(filament.B - filament.A),
      Length(glm::length(Along)) {
  if (Length > 0.0) Along /= Length;
}

double MutualInductance(const FilamentFrame& a, const FilamentFrame& b, double radius) {
  const double cosine = glm::dot(a.Along, b.Along);
  // Filaments at a right angle, and those without length, do not couple.
  if (cosine == 0.0) return 0.0;
  return kVacuumOver4Pi * cosine * Integral(a, b, radius * radius);
}

}  // namespace analysis
