/// How the sheets draw wires: the layer of a wire, and what the wires of a layer look like.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "sheet/bonding_diagram.h"

namespace sheet {

/// WIRES_ and the number of the tier; WIRES_STITCH; WIRES_0 without such a number.
std::string LayerOf(const DiagramWire& wire);

struct WireLook {
  Ink Colour = kBlack;
  Dash Pattern = Dash::Solid;

  bool operator==(const WireLook&) const = default;
};

/// Texts in their order, but numbers at their ends by their value: "2" before "12".
struct NumbersInOrder {
  bool operator()(const std::string& a, const std::string& b) const;
};

using WireLooks = std::map<std::string, WireLook, NumbersInOrder>;

/// Each layer of wires with its look. No two have one as long as the looks last, which
/// is for 25 layers.
WireLooks LooksOf(const std::vector<DiagramWire>& wires);

/// What a line of the legend says of a layer.
std::string MeaningOf(const std::string& wireLayer);

}  // namespace sheet
