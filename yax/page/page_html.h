/// A package as one page for any browser.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "analysis/lengths.h"
#include "yax/page/page_model.h"

namespace yax {

/// The nearest other wire of a wire.
struct NearestWire {
  std::string Clearance;  ///< in file units, as text
  std::string Name;       ///< the other wire
};

/// A wire alone has none.
using NearestWires = std::map<model::RecordPlace, NearestWire>;

struct PageInputs {
  std::string Title;  ///< the name of the package's file
  std::string Unit;   ///< of lengths in the rows
  const PageModel& Model;
  const std::string& Gltf;  ///< the model's groups as glTF
  const std::vector<analysis::WireRow>& Wires;
  const NearestWires& Nearest;
  std::string Diagram = {};  ///< the bonding diagram as SVG; when empty the page has no tab for it
};

/// The whole file: viewer, meshes and wires. Escapes all names, so they always show as text.
/// Needs   a wire of the model for each of `Wires`
std::string PageHtml(const PageInputs& inputs);

}  // namespace yax
