#include "analysis/inductance.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <thread>
#include <utility>

namespace analysis {

namespace {

/// How many wires a thread takes at a time.
constexpr std::size_t kBlock = 16;

std::vector<FilamentFrame> PiecesOf(const std::vector<glm::dvec3>& axis) {
  std::vector<FilamentFrame> pieces;
  for (std::size_t k = 1; k < axis.size(); ++k) pieces.emplace_back(Filament{axis[k - 1], axis[k]});
  return pieces;
}

std::vector<FilamentFrame> ImageOf(std::vector<glm::dvec3> axis, double plane) {
  for (glm::dvec3& point : axis) point.z = 2.0 * plane - point.z;
  return PiecesOf(axis);
}

double Sum(const std::vector<FilamentFrame>& first, const std::vector<FilamentFrame>& second, double radius) {
  double sum = 0.0;
  for (const FilamentFrame& a : first)
    for (const FilamentFrame& b : second) sum += MutualInductance(a, b, radius);
  return sum;
}

}  // namespace

Inductances::Inductances(const BondWires& wires) : radius_(wires.Conductor.Radius) {
  const InternalImpedance direct = ImpedanceOf(wires.Conductor, 0.0);
  const InternalImpedance internal = ImpedanceOf(wires.Conductor, wires.Frequency);
  for (const std::vector<glm::dvec3>& axis : wires.Axes) {
    wires_.push_back(PiecesOf(axis));
    if (wires.Plane) images_.push_back(ImageOf(axis, *wires.Plane));
    WireImpedance impedance;
    for (const FilamentFrame& piece : wires_.back()) impedance.Length += piece.Length;
    impedance.DirectResistance = direct.Resistance * impedance.Length;
    impedance.Resistance = internal.Resistance * impedance.Length;
    const std::size_t number = wires_.size() - 1;
    impedance.Inductance = External(number, number) + internal.Inductance * impedance.Length;
    impedances_.push_back(impedance);
  }
}

/// The image of a current flows back, so its part is subtracted.
double Inductances::External(std::size_t first, std::size_t second) const {
  const double direct = Sum(wires_[first], wires_[second], radius_);
  return images_.empty() ? direct : direct - Sum(wires_[first], images_[second], radius_);
}

double Inductances::CouplingOf(std::size_t first, std::size_t second) const {
  return External(first, second) / std::sqrt(impedances_[first].Inductance * impedances_[second].Inductance);
}

/// The couplings that one thread finds.
class Inductances::Search {
 public:
  Search(const Inductances& wires, double least)
      : Nearest(wires.wires_.size()), wires_(&wires), least_(least) {}

  /// Couples each wire of a block with all wires after it. Couplings that are large enough go to `kept`.
  void RunBlock(std::size_t block, std::vector<Coupling>& kept) {
    const std::size_t count = Nearest.size();
    for (std::size_t first = block * kBlock; first < std::min((block + 1) * kBlock, count); ++first)
      for (std::size_t second = first + 1; second < count; ++second)
        Take({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(second),
              wires_->CouplingOf(first, second)},
             kept);
  }

  /// Of equal couplings the first wire counts, so the result does not depend on which thread found them.
  void Merge(const Search& other) {
    for (std::uint32_t wire = 0; wire < Nearest.size(); ++wire)
      if (other.Nearest[wire].Wire != Neighbour::kNone) TakeNearest(wire, other.Nearest[wire]);
    LargestLeftOut = std::max(LargestLeftOut, other.LargestLeftOut);
  }

  std::vector<Neighbour> Nearest;
  double LargestLeftOut = 0.0;

 private:
  void Take(const Coupling& pair, std::vector<Coupling>& kept) {
    TakeNearest(pair.First, {pair.Second, pair.K});
    TakeNearest(pair.Second, {pair.First, pair.K});
    if (std::fabs(pair.K) >= least_)
      kept.push_back(pair);
    else
      LargestLeftOut = std::max(LargestLeftOut, std::fabs(pair.K));
  }

  void TakeNearest(std::uint32_t wire, const Neighbour& found) {
    Neighbour& known = Nearest[wire];
    const double more = std::fabs(found.K) - std::fabs(known.K);
    if (known.Wire == Neighbour::kNone || more > 0.0 || (more == 0.0 && found.Wire < known.Wire))
      known = found;
  }

  const Inductances* wires_;
  double least_;
};

Couplings Inductances::Couple(double least) const {
  std::vector<std::vector<Coupling>> kept((wires_.size() + kBlock - 1) / kBlock);
  std::vector<Search> searches(
      std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kept.size() + 1), Search(*this, least));
  std::atomic<std::size_t> next = 0;
  const auto run = [&](Search& search) {
    for (std::size_t block = next++; block < kept.size(); block = next++) search.RunBlock(block, kept[block]);
  };
  {
    std::vector<std::jthread> threads;
    for (std::size_t k = 1; k < searches.size(); ++k) threads.emplace_back(run, std::ref(searches[k]));
    run(searches.front());
  }
  Search& all = searches.front();
  for (std::size_t k = 1; k < searches.size(); ++k) all.Merge(searches[k]);
  Couplings found{.Kept = {}, .Nearest = std::move(all.Nearest), .LargestLeftOut = all.LargestLeftOut};
  std::size_t count = 0;
  for (const std::vector<Coupling>& block : kept) count += block.size();
  found.Kept.reserve(count);
  for (std::vector<Coupling>& block : kept) {
    found.Kept.insert(found.Kept.end(), block.begin(), block.end());
    block = {};
  }
  return found;
}

}  // namespace analysis
