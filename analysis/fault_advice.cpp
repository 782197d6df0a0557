#include "analysis/fault_advice.h"

namespace analysis {

using model::RecordTable;

std::string AdviceOn(const model::Fault& fault) {
  if (dynamic_cast<const model::TooManyRecords*>(&fault) != nullptr) return "split the package";
  const RecordTable table = fault.Record().value_or(model::RecordPlace{}).Table;
  // The only divisions are those by a wire's length in plan and by a ring's bulge.
  if (dynamic_cast<const model::DivisionByZero*>(&fault) == nullptr)
    return "correct the record, or use other settings";
  if (table == RecordTable::Rings || table == RecordTable::SRings)
    return "give field 8 the bulge of its sides, or make it straight";
  return table == RecordTable::Stitches ? "move one end of the stitch" : "move one end of the wire";
}

model::InputError NotDrawn(const std::string& packageFile, const model::Fault& fault,
                           const RecordLines& lines) {
  const std::size_t line = fault.Record() ? lines.Of(*fault.Record()) : 0;
  return {{packageFile, line}, fault.what(), AdviceOn(fault)};
}

}  // namespace analysis
