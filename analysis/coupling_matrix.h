/// Whether a circuit can have these couplings of its inductors.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/inductance.h"

namespace analysis {

/// True when no currents give a negative energy. Then the matrix of ones on the diagonal, these couplings,
/// and 0 for every other pair is positive definite. With all couplings of a package it always is; without the
/// small ones it may not be.
/// Source  a matrix is positive definite exactly when it has a Cholesky decomposition
bool IsPositiveDefinite(std::size_t wires, const std::vector<Coupling>& couplings);

/// The couplings of at least this size.
std::vector<Coupling> AtLeast(const std::vector<Coupling>& couplings, double least);

/// A limit above `least`, in thousandths, for which the couplings that remain are positive definite; close to
/// the smallest such limit.
/// Returns at most 1, where none remain
double UsableLeast(std::size_t wires, const std::vector<Coupling>& couplings, double least);

}  // namespace analysis
