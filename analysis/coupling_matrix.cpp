#include "analysis/coupling_matrix.h"

#include <Eigen/Cholesky>
#include <Eigen/SparseCholesky>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace analysis {

namespace {

/// Fills the lower triangle alone, since the decompositions read no more.
bool DenseIsPositiveDefinite(Eigen::Index wires, const std::vector<Coupling>& couplings) {
  Eigen::MatrixXd matrix = Eigen::MatrixXd::Identity(wires, wires);
  for (const Coupling& pair : couplings) matrix(pair.Second, pair.First) = pair.K;
  return Eigen::LLT<Eigen::Ref<Eigen::MatrixXd>>(matrix).info() == Eigen::Success;
}

bool SparseIsPositiveDefinite(Eigen::Index wires, const std::vector<Coupling>& couplings) {
  std::vector<Eigen::Triplet<double>> entries;
  entries.reserve(couplings.size() + static_cast<std::size_t>(wires));
  for (Eigen::Index wire = 0; wire < wires; ++wire) entries.emplace_back(wire, wire, 1.0);
  for (const Coupling& pair : couplings)
    entries.emplace_back(static_cast<int>(pair.Second), static_cast<int>(pair.First), pair.K);
  Eigen::SparseMatrix<double> matrix(wires, wires);
  matrix.setFromTriplets(entries.begin(), entries.end());
  return Eigen::SimplicialLLT<Eigen::SparseMatrix<double>>(matrix).info() == Eigen::Success;
}

}  // namespace

bool IsPositiveDefinite(std::size_t wires, const std::vector<Coupling>& couplings) {
  // When more than a tenth of the pairs couple, the sparse decomposition fills up and is slower.
  const bool dense = couplings.size() * 20 > wires * wires;
  const auto count = static_cast<Eigen::Index>(wires);
  return dense ? DenseIsPositiveDefinite(count, couplings) : SparseIsPositiveDefinite(count, couplings);
}

std::vector<Coupling> AtLeast(const std::vector<Coupling>& couplings, double least) {
  std::vector<Coupling> kept;
  std::copy_if(couplings.begin(), couplings.end(), std::back_inserter(kept),
               [least](const Coupling& pair) { return std::fabs(pair.K) >= least; });
  return kept;
}

double UsableLeast(std::size_t wires, const std::vector<Coupling>& couplings, double least) {
  int low = static_cast<int>(std::floor(least * 1000.0));
  int high = 1000;
  while (high - low > 1) {
    const int middle = (low + high) / 2;
    (IsPositiveDefinite(wires, AtLeast(couplings, middle / 1000.0)) ? high : low) = middle;
  }
  return high / 1000.0;
}

}  // namespace analysis
