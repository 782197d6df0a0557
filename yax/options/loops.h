/// The options for the wires' loops: wire bond settings, and the loops of single tiers.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "model/wire_shapes.h"
#include "setup/parameter_file.h"

namespace CLI {
class App;
}

namespace yax {

/// The single settings that were given.
using LoopValues = setup::ParameterValues;

/// Values for a tier's wires that replace the settings.
struct TierLoop {
  std::string Tier;
  model::LoopShape Shape;
};

struct LoopOptions {
  bool DieHeight = false;  ///< start from the reader's defaults instead of the window's settings after a load
  LoopValues Values = {};  ///< override those
  std::vector<TierLoop> Tiers = {};  ///< override everything else, later ones also earlier ones
};

/// Adds --loops, --zu, one option for each setting, and those for single tiers.
void AddLoopOptions(CLI::App& command, LoopOptions& options);

/// The settings for a package that was just read.
/// Faults  Unusable when the package has impossible heights
model::WireBondSettings SettingsOf(const LoopOptions& options, const model::Package& package);

/// The loops that differ from the settings. Tiers are counted as in the wire list.
/// Faults  Unusable when a tier has no wire
model::WireShapes ShapesOf(const LoopOptions& options, const model::Package& package);

}  // namespace yax
