#include "analysis/package_check.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "analysis/drawing_check.h"
#include "model/faults.h"
#include "model/wire_list_entry.h"

namespace analysis {

namespace {

using PadLines = std::unordered_map<std::string_view, std::size_t>;

/// The substrate pads' lines by name. Of pads with one name the first counts, as for the wire list.
void AddSubstratePads(const model::Table<model::BondRec>& bonds, model::RecordTable table,
                      const RecordLines& lines, PadLines& pads) {
  for (std::size_t i = 0; i < bonds.Count(); ++i)
    pads.emplace(bonds[i].Name, lines.Of({table, i, model::BondPart::SubstratePad}));
}

/// Reports tiers that end the viewer when its wire list opens, each once with the first pad that has it.
void CheckWireList(const model::Package& package, const RecordLines& lines, Diagnostics& found) {
  std::unordered_set<std::string_view> reported;
  PadLines pads;
  for (std::size_t i = 0; i < package.WireNames.Count(); ++i) {
    const model::WireNameRec& wire = package.WireNames[i];
    try {
      model::CheckTier(package, i);
    } catch (const model::SubscriptOutOfRange& fault) {
      if (!reported.insert(wire.Tier).second) continue;
      if (pads.empty()) {
        AddSubstratePads(package.SDBonds, model::RecordTable::SDBonds, lines, pads);
        AddSubstratePads(package.Bonds, model::RecordTable::Bonds, lines, pads);
      }
      found.List.push_back({Severity::Error,
                            "tier-fault",
                            {found.File, pads[wire.Name]},
                            "the wire list ends the viewer with \"" + std::string(fault.what()) + "\"",
                            "number tiers from 0 or 1, and give the SBP line of every wire one"});
    }
  }
}

}  // namespace

Diagnostics CheckPackage(const model::Package& package, LineCheck& lines) {
  Diagnostics found = lines.Finish(package);
  CheckDrawing(package, lines, found);
  CheckWireList(package, lines.Lines(), found);
  found.Sort();
  return found;
}

}  // namespace analysis
