#include "shell/entry_ranges.h"

namespace shell {

EntryRanges RangesOf(const std::vector<bool>& flags) {
  EntryRanges ranges;
  for (std::size_t i = 0; i < flags.size(); ++i) {
    if (!flags[i]) continue;
    if (!ranges.empty() && ranges.back().Last + 1 == i)
      ranges.back().Last = i;
    else
      ranges.push_back({i, i});
  }
  return ranges;
}

}  // namespace shell
