/// Whether the couplings of inductors are ones that a circuit can have.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/inductance.h"

namespace analysis {

/// True when no currents give a negative energy: the matrix with ones on its diagonal and these couplings, 0
/// for every other pair, is positive definite. The whole matrix of Inductances always is; one that lost its
/// small couplings may not be. Source  the Cholesky decomposition exists for exactly these matrices
bool IsPositiveDefinite(std::size_t wires, const std::vector<Coupling>& couplings);

/// The couplings of at least this size.
std::vector<Coupling> AtLeast(const std::vector<Coupling>& couplings, double least);

/// A size above `least`, in thousandths, at which the couplings that remain are positive definite; close to
/// the smallest such size. Returns at most 1, where none remain.
double UsableLeast(std::size_t wires, const std::vector<Coupling>& couplings, double least);

}  // namespace analysis
