/// The program's run-time faults: one family, each able to name the record that caused it.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "model/record_place.h"

namespace model {

/// A fault that ends what the program is doing, unless the running handler traps it.
///
/// what() reads "Run-time error: KIND (RECORD: REASON)", with the parts that are known, for
/// example "Run-time error: Division by zero (wire VDD_L3: its ends coincide)".
class Fault : public std::exception {
 public:
  Fault(std::string kind, std::string reason);

  /// Says which record caused it, and by which words the message names that record (none when they are
  /// empty). The first record given stays: it is the closest one.
  void SetRecord(const RecordPlace& place, const std::string& words);

  const char* what() const noexcept override { return text_.c_str(); }
  /// The kind alone, for messages that say by themselves where it happened.
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

/// More records in a table than a 16-bit counter counts.
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

/// A file that is there but cannot be opened, read or written; `kind` is the system's own text.
struct FileFault : Fault {
  FileFault(std::string kind, std::string reason) : Fault(std::move(kind), std::move(reason)) {}
};

/// Runs `work` on a record; a fault that leaves it carries that record. The words are made only then, so
/// they cost nothing on the good path.
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
