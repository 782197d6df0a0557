/// The wires of a package as its bonding diagram shows them.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <string>
#include <vector>

#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/package.h"
#include "model/record_place.h"

namespace sheet {

/// A wire for the sheets. Texts may contain any bytes.
struct DiagramWire {
  model::RecordPlace Place;  ///< a bond's wire, or a stitch
  std::size_t Number = 0;    ///< 1 for the first wire of the file
  std::string Name = {};     ///< as in the wire list: "A", or "A:B" for a stitch
  std::string Lead = {};
  std::string Tier = {}, NetType = {};
  bool Offends = false;                                ///< has a finding
  glm::dvec2 From{}, To{};                             ///< file units
  double PlanLength = 0.0, Length = 0.0, Angle = 0.0;  ///< file units, degrees

  bool IsStitch() const { return Place.Table == model::RecordTable::Stitches; }
};

/// The wires of the loops, numbered in the order of the file's lines.
std::vector<DiagramWire> DiagramWiresOf(const model::Package& package,
                                        const std::vector<analysis::WireLoop>& loops,
                                        const analysis::RecordLines& lines);

}  // namespace sheet
