/// The options that shape the loops of one tier.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_shapes.h"

namespace CLI {
class App;
}

namespace yax {

/// Values for a tier's wires that replace the settings.
struct TierLoop {
  std::string Tier;
  model::LoopShape Shape;
};

struct TierLoopOptions {
  std::vector<TierLoop> Loops;  ///< later ones override earlier ones
};

/// Adds --tier-loop-height and --tier-extension.
void AddTierLoopOptions(CLI::App& command, TierLoopOptions& options);

/// Tiers are counted as in the wire list.
/// Faults  Unusable when a tier has no wire
model::WireShapes ShapesOf(const TierLoopOptions& options, const model::Package& package);

}  // namespace yax
