/// The program's run-time faults: one family, each able to name the record that caused it.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "model/record_place.h"

namespace model {

/// A run-time fault; it ends the program unless a handler or a command catches it.
///
/// what() reads "Run-time error: KIND (RECORD: REASON)", with the parts that are known, for
/// example "Run-time error: Division by zero (wire VDD_L3: its ends coincide)".
class Fault : public std::exception {
 public:
  Fault(std::string kind, std::string reason);

  /// Sets the record that caused the fault and the name that the message gives it (may be empty). Later calls
  /// change nothing: the first record is the closest to the cause.
  void SetRecord(const RecordPlace& place, const std::string& words);

  const char* what() const noexcept override { return text_.c_str(); }
  /// The kind alone, for messages that name the place themselves.
  const std::string& Kind() const { return kind_; }
  /// The record that caused it, where that is known.
  const std::optional<RecordPlace>& Record() const { return record_; }

 private:
  std::string kind_;
  std::string reason_;
  std::optional<RecordPlace> record_;
  std::string text_;
};

/// A whole number beyond 16 bits, or a real number beyond the range of a single.
struct Overflow : Fault {
  explicit Overflow(std::string reason = {}) : Fault("Overflow", std::move(reason)) {}
};

/// More records in a table than a 16-bit counter can count.
struct TooManyRecords : Overflow {
  using Overflow::Overflow;
};

struct DivisionByZero : Fault {
  explicit DivisionByZero(std::string reason = {}) : Fault("Division by zero", std::move(reason)) {}
};

struct SubscriptOutOfRange : Fault {
  explicit SubscriptOutOfRange(std::string reason = {})
      : Fault("Subscript out of range", std::move(reason)) {}
};

/// A file that cannot be opened, read or written; `kind` is the system's error text.
struct FileFault : Fault {
  FileFault(std::string kind, std::string reason) : Fault(std::move(kind), std::move(reason)) {}
};

/// Runs `work` on a record and adds the record to a fault that leaves it. The record's name is made only
/// then, so it costs nothing without a fault.
template <class Work>
void AtRecord(const Package& package, const RecordPlace& place, Work&& work) {
  try {
    work();
  } catch (Fault& fault) {
    fault.SetRecord(place, RecordName(package, place));
    throw;
  }
}

}  // namespace model
