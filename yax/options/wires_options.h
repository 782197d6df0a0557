/// The options that choose wires.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_selection.h"

namespace CLI {
class App;
}

namespace yax {

/// The group of the options for wires in the help.
inline constexpr char kWiresGroup[] = "Wires";

/// Filters of the wire list. Each adds the wires that it matches, like the list's buttons with Shift; without
/// a filter all wires are chosen.
struct WireOptions {
  std::vector<std::string> Tiers;
  std::vector<std::string> Nets;   ///< words whose first letter is the net type
  std::vector<std::string> Names;  ///< texts of the list: "A", or "A:B" for a stitch
  bool Stitches = false;
};

/// Adds --tier, --net, --stitches and --name.
void AddWireOptions(CLI::App& command, WireOptions& options);

/// Faults  Unusable when a filter matches no wire
model::WireSelection SelectionOf(const WireOptions& options, const model::Package& package);

}  // namespace yax
