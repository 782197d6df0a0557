#include "model/faults.h"

namespace model {

namespace {

std::string Text(const std::string& kind, const std::string& record, const std::string& reason) {
  const std::string separator = record.empty() || reason.empty() ? "" : ": ";
  const std::string detail = record + separator + reason;
  return "Run-time error: " + kind + (detail.empty() ? "" : " (" + detail + ")");
}

}  // namespace

Fault::Fault(std::string kind, std::string reason)
    : kind_(std::move(kind)), reason_(std::move(reason)), text_(Text(kind_, {}, reason_)) {}

void Fault::SetRecord(const RecordPlace& place, const std::string& words) {
  if (record_) return;
  record_ = place;
  text_ = Text(kind_, words, reason_);
}

}  // namespace model
