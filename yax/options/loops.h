/// The options for wire bond settings.
#pragma once

#include <string>

#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "setup/parameter_file.h"
#include "yax/options/tier_loops.h"

namespace CLI {
class App;
}

namespace yax {

/// The single settings that were given.
using LoopValues = setup::ParameterValues;

struct LoopOptions {
  bool DieHeight = false;  ///< start from the reader's defaults instead of the window's settings after a load
  std::string ParameterFile;  ///< a .zu file that overrides those; empty for none
  LoopValues Values;          ///< override those
  TierLoopOptions Tiers;      ///< override everything else
};

/// Adds --loops, --zu, one option for each setting, and those for single tiers.
void AddLoopOptions(CLI::App& command, LoopOptions& options);

/// The settings for a package that was just read.
/// Faults  Unusable when the parameter file cannot be used
model::WireBondSettings SettingsOf(const LoopOptions& options, const model::Package& package);

}  // namespace yax
