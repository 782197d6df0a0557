/// What the command tells about the clearances of a package.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/segment_distance.h"
#include "analysis/wire_loops.h"
#include "yax/options/nets.h"
#include "yax/options/unit.h"

namespace formats {

enum class Finding { None, BelowLimit, Touching };

/// Two wires and the room between them, in file units.
struct ClearanceRow {
  std::string Name, Other;
  std::string Net, OtherNet;
  double Clearance = 0.0;  ///< from surface to surface; not above 0 where they touch
  analysis::Point3 Where{};
  Finding Kind = Finding::None;
};

struct ClearanceReport {
  yax::LengthUnit Unit;
  double WireDiameter = 0.0;
  std::optional<double> Limit;
  std::size_t Wires = 0;
  std::vector<ClearanceRow> Rows;  ///< worst first

  std::size_t Count(Finding kind) const;
};

struct ClearanceInputs {
  const std::vector<analysis::WireLoop>& loops;
  const yax::NetOptions& nets;
  const yax::LengthUnit& unit;
  double wireDiameter;
  std::optional<double> limit;
  bool all;
};

/// For every wire the pair with its nearest other one; with `all` every other finding too.
ClearanceReport MeasureClearances(const ClearanceInputs& inputs);

/// A line a pair, in columns; a last line, which begins with "#", counts.
std::string ColumnsOf(const ClearanceReport& report);
std::string JsonOf(const ClearanceReport& report);

}  // namespace formats
