/// The package of a command: the options that choose it, and the package opened as they say.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/record_lines.h"
#include "analysis/units.h"
#include "analysis/wire_loops.h"
#include "model/for_each_wire.h"
#include "model/reader/read_package.h"
#include "render/scene.h"
#include "yax/messages.h"
#include "yax/options/loops.h"
#include "yax/options/wires_options.h"

namespace yax {

struct PackageOptions {
  std::string File = {};
  LoopOptions Loops = {};
  WireOptions Wires = {};
  std::optional<analysis::LengthUnit> Unit = {};  ///< of the file; empty when none was given
};

/// Adds FILE.yax.
void AddPackageOption(CLI::App& command, PackageOptions& options);

/// Adds --unit.
void AddUnitOption(CLI::App& command, PackageOptions& options);

/// Reads the package as the viewer does at its start.
/// Faults  Unusable when there is no such file, it cannot be read, or it has no COMPZ line
model::Package LoadPackage(const std::string& file, model::reader::ReadObserver* observer = nullptr);

/// A package with the settings, loops and wires that the options choose.
struct OpenedPackage {
  /// Reads the package.
  /// Faults  Unusable when it cannot be read, or an option does not fit it
  explicit OpenedPackage(PackageOptions options);
  /// The same for a package that was just read.
  OpenedPackage(PackageOptions options, model::Package package, analysis::RecordLines lines);

  model::WireInputs Wires() const { return {Package, Settings, Selection, &Shapes}; }
  render::SceneInputs Inputs(const render::Appearance& appearance) const {
    return {Package, Settings, appearance, Selection, &Shapes};
  }
  /// The loops of the chosen wires.
  /// Faults  Unusable when one of them cannot be drawn
  std::vector<analysis::WireLoop> Loops() const { return LoopsOf(Wires()); }
  /// The loops of all wires, chosen or not.
  std::vector<analysis::WireLoop> AllLoops() const { return LoopsOf({Package, Settings, {}, &Shapes}); }
  /// The unit of the file: the given one, or mils.
  /// Faults  Unusable when none was given and the base die is so small that it must be millimetres
  analysis::LengthUnit Unit() const;
  /// The wires' diameter in file units.
  /// Faults  Unusable unless it is above 0; as Unit
  double WireDiameter() const;
  /// The error with which the command ends when the package cannot be drawn.
  Unusable NotDrawn(const model::Fault& fault) const;

  const PackageOptions Options;
  analysis::RecordLines Lines;
  const model::Package Package;
  const model::WireBondSettings Settings = SettingsOf(Options.Loops, Package);
  const model::WireShapes Shapes = ShapesOf(Options.Loops, Package);  ///< loops that differ from the settings
  model::WireSelection Selection = SelectionOf(Options.Wires, Package);

 private:
  std::vector<analysis::WireLoop> LoopsOf(const model::WireInputs& inputs) const;
};

}  // namespace yax
