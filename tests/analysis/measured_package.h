/// Packages with everything that rules measure, for the tests of the rules.
#pragma once

#include <string>
#include <vector>

#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/package.h"
#include "yax/options/opened_package.h"

namespace analysis {

struct Measured {
  RecordLines Lines;
  model::Package Package;
  std::vector<WireLoop> Loops;

  explicit Measured(const std::string& path) : Package(yax::LoadPackage(path, &Lines)) {
    yax::LoopOptions options;
    options.DieHeight = true;
    const model::WireBondSettings settings = yax::SettingsOf(options, Package);
    Loops = WireLoopsOf({Package, settings, {}, nullptr});
  }
};

/// The diameter of all wires, file units.
inline constexpr double kDiameter = 0.0254;

}  // namespace analysis
