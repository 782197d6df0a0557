/// Which wires to draw: the wire list writes it, the wires read it.
#pragma once

#include <string>
#include <unordered_set>

namespace model {

struct WireSelection {
  bool Shown = false;                     ///< while the wire list is shown, only selected wires are drawn
  std::unordered_set<std::string> Names;  ///< texts of the selected entries ("A", or "A:B" for a stitch)

  /// True when the wire of this exact name is to be drawn.
  bool Draws(const std::string& name) const { return !Shown || Names.contains(name); }
};

}  // namespace model
