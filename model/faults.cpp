#include "model/faults.h"

#include <utility>

namespace model {

Fault::Fault(std::string kind, std::string reason) : kind_(std::move(kind)), reason_(std::move(reason)) {
  Compose();
}

void Fault::NameRecord(const std::string& record) {
  if (!record_.empty()) return;
  record_ = record;
  Compose();
}

void Fault::Compose() {
  text_ = "Run-time error: " + kind_;
  const std::string separator = record_.empty() || reason_.empty() ? "" : ": ";
  const std::string detail = record_ + separator + reason_;
  if (!detail.empty()) text_ += " (" + detail + ")";
}

}  // namespace model
