#include "yax/options/opened_package.h"

#include "analysis/fault_advice.h"

namespace yax {

OpenedPackage::OpenedPackage(const PackageOptions& file, const LoopOptions& loops, const WireOptions& wires)
    : Package(LoadPackage(file, &Lines)),
      Settings(SettingsOf(loops, Package)),
      Shapes(ShapesOf(loops.Tiers, Package)),
      Selection(SelectionOf(wires, Package)) {}

std::vector<analysis::WireLoop> OpenedPackage::LoopsOf(const model::WireInputs& inputs) const {
  try {
    return analysis::WireLoopsOf(inputs);
  } catch (const model::Fault& fault) {
    throw NotDrawn(fault);
  }
}

Unusable OpenedPackage::NotDrawn(const model::Fault& fault) const {
  return analysis::NotDrawn(Package.PackagePath, fault, Lines);
}

}  // namespace yax
