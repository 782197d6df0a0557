#include "analysis/diagnostics.h"

#include <algorithm>
#include <tuple>

namespace analysis {

std::size_t Diagnostics::Count(analysis::Severity severity) const {
  return static_cast<std::size_t>(std::count_if(
      List.begin(), List.end(), [severity](const Diagnostic& one) { return one.Severity == severity; }));
}

void Diagnostics::Sort() {
  // The side file's name begins with the package file's, so it comes after it.
  std::stable_sort(List.begin(), List.end(), [](const Diagnostic& a, const Diagnostic& b) {
    return std::tie(a.Place.File, a.Place.Line) < std::tie(b.Place.File, b.Place.Line);
  });
}

}  // namespace analysis
