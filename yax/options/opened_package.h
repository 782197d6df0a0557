/// A package opened for a command: read, with the settings, loops and wires that the options choose.
#pragma once

#include <vector>

#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/for_each_wire.h"
#include "render/scene.h"
#include "yax/messages.h"
#include "yax/options/loops.h"
#include "yax/options/package_options.h"
#include "yax/options/wires_options.h"

namespace yax {

struct OpenedPackage {
  /// Faults  Unusable when the package cannot be read, or an option does not fit it
  OpenedPackage(const PackageOptions& file, const LoopOptions& loops, const WireOptions& wires = {});

  model::WireInputs Wires() const { return {Package, Settings, Selection, &Shapes}; }
  render::SceneInputs Inputs(const render::Appearance& appearance) const {
    return {Package, Settings, appearance, Selection, &Shapes};
  }
  /// The loops of the chosen wires.
  /// Faults  Unusable when one of them cannot be drawn
  std::vector<analysis::WireLoop> Loops() const { return LoopsOf(Wires()); }
  /// The loops of all wires, chosen or not.
  std::vector<analysis::WireLoop> AllLoops() const { return LoopsOf({Package, Settings, {}, &Shapes}); }
  /// The error with which the command ends when the package cannot be drawn.
  Unusable NotDrawn(const model::Fault& fault) const;

  analysis::RecordLines Lines;
  const model::Package Package;
  const model::WireBondSettings Settings;
  const model::WireShapes Shapes;  ///< wires whose loops differ from the settings
  model::WireSelection Selection;

 private:
  std::vector<analysis::WireLoop> LoopsOf(const model::WireInputs& inputs) const;
};

}  // namespace yax
