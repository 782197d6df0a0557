#include "analysis/wire_list_check.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "model/faults.h"
#include "model/wire_list_entry.h"

namespace analysis {

namespace {

using PadLines = std::unordered_map<std::string_view, std::size_t>;

/// The substrate pads' lines by name. Of pads with one name the first counts, as for the wire list.
PadLines LinesOf(const model::Table<model::BondRec>& bonds, const std::vector<BondLines>& lines) {
  PadLines found;
  for (std::size_t i = 0; i < bonds.Count(); ++i) found.emplace(bonds[i].Name, lines[i].SubstratePad);
  return found;
}

}  // namespace

void CheckWireList(const model::Package& package, const PackageLines& lines, formats::CheckReport& report) {
  std::unordered_set<std::string_view> told;
  PadLines pads;
  for (std::size_t i = 0; i < package.WireNames.Count(); ++i) {
    const model::WireNameRec& wire = package.WireNames[i];
    try {
      model::CheckTier(package, i);
    } catch (const model::SubscriptOutOfRange& fault) {
      if (!told.insert(wire.Tier).second) continue;
      if (pads.empty()) {
        pads = LinesOf(package.SDBonds, lines.SDBonds);
        pads.merge(LinesOf(package.Bonds, lines.Bonds));
      }
      report.Remarks.push_back({formats::Level::Error,
                                "tier-fault",
                                {report.File, pads[wire.Name]},
                                "the wire list ends the viewer with \"" + std::string(fault.what()) + "\"",
                                "number tiers from 0 or 1 on, and give the SBP line of every wire one"});
    }
  }
}

}  // namespace analysis
