/// Whether couplings of inductors are physically possible.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/inductance.h"

namespace analysis {

/// True when the matrix with ones on the diagonal, these couplings, and 0 for every other pair is positive
/// definite: then no currents have a negative energy. All couplings of a package together always pass;
/// without the small ones they may not.
/// Source  a matrix is positive definite exactly when it has a Cholesky decomposition
bool IsPositiveDefinite(std::size_t wires, const std::vector<Coupling>& couplings);

/// The couplings of at least this size.
std::vector<Coupling> AtLeast(const std::vector<Coupling>& couplings, double least);

/// A limit above `least`, in thousandths, for which the couplings that remain are positive definite; close to
/// the smallest such limit.
/// Returns at most 1, where none remain
double UsableLeast(std::size_t wires, const std::vector<Coupling>& couplings, double least);

}  // namespace analysis
