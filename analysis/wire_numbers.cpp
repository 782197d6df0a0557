#include "analysis/wire_numbers.h"

#include <algorithm>
#include <numeric>

namespace analysis {

std::vector<std::size_t> WireNumbers(const model::Package& package, const std::vector<WireLoop>& loops,
                                     const RecordLines& lines) {
  std::vector<std::size_t> all;
  const auto addBonds = [&](const model::Table<model::BondRec>& bonds, model::RecordTable table) {
    for (std::size_t k = 0; k < bonds.Count(); ++k)
      if (model::HasWire(bonds[k])) all.push_back(lines.Of({table, k, model::BondPart::Wire}));
  };
  addBonds(package.Bonds, model::RecordTable::Bonds);
  addBonds(package.SDBonds, model::RecordTable::SDBonds);
  for (std::size_t k = 0; k < package.Stitches.Count(); ++k)
    all.push_back(lines.Of({model::RecordTable::Stitches, k}));
  std::sort(all.begin(), all.end());
  std::vector<std::size_t> numbers;
  for (const WireLoop& loop : loops)
    numbers.push_back(static_cast<std::size_t>(
                          std::lower_bound(all.begin(), all.end(), lines.Of(loop.Place)) - all.begin()) +
                      1);
  return numbers;
}

std::vector<std::size_t> InFileOrder(const std::vector<std::size_t>& numbers) {
  std::vector<std::size_t> order(numbers.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return numbers[a] < numbers[b]; });
  return order;
}

}  // namespace analysis
