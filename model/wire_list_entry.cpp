#include "model/wire_list_entry.h"

#include "model/arithmetic.h"
#include "model/faults.h"
#include "model/numbers.h"

namespace model {

std::string EntryText(const WireNameRec& wire) {
  return wire.Name2.empty() ? wire.Name : wire.Name + ":" + wire.Name2;
}

// Deliberate: a tier is used as a button's number, even of a button that is not a tier: "5" enables "Stitch".
std::optional<std::size_t> ButtonOfTier(const std::string& tier) {
  const double index = NearestWhole(double(ToNumber(tier)) - 1.0);
  if (!(index >= 0.0 && index < double(kWireListButtons))) return std::nullopt;
  return static_cast<std::size_t>(index);
}

void CheckTier(const Package& package, std::size_t entry) {
  const std::string& tier = package.WireNames[entry].Tier;
  if (tier.empty() || ButtonOfTier(tier)) return;
  AtRecord(package, {RecordTable::WireNames, entry},
           [&] { throw SubscriptOutOfRange("no button for tier " + tier); });
}

}  // namespace model
