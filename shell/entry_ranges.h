/// Ranges of neighbouring entries of a list, made from one flag per entry.
#pragma once

#include <cstddef>
#include <vector>

namespace shell {

struct EntryRange {
  std::size_t First = 0, Last = 0;  ///< both included
  bool operator==(const EntryRange&) const = default;
};
using EntryRanges = std::vector<EntryRange>;

/// The set flags as the fewest ranges, in order.
EntryRanges RangesOf(const std::vector<bool>& flags);

}  // namespace shell
