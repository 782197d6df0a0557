/// The layer of each wire on the sheets, and the line style of each layer.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "sheet/diagram_wires.h"
#include "sheet/drawing.h"

namespace sheet {

/// WIRES_ and the number of the tier; WIRES_STITCH for stitches; WIRES_0 for wires without such a number.
std::string LayerOf(const DiagramWire& wire);

struct WireLook {
  Ink Colour = kBlack;
  Dash Pattern = Dash::Solid;

  bool operator==(const WireLook&) const = default;
};

/// Compares texts, with numbers at their ends by value: "2" before "12".
struct NumbersInOrder {
  bool operator()(const std::string& a, const std::string& b) const;
};

using WireLooks = std::map<std::string, WireLook, NumbersInOrder>;

/// Each layer of wires with its line style. Up to 25 layers have different styles.
WireLooks LooksOf(const std::vector<DiagramWire>& wires);

/// The legend's text for a layer.
std::string MeaningOf(const std::string& wireLayer);

}  // namespace sheet
