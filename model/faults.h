/// The program's run-time faults: one family, each able to name the record that caused it.
#pragma once

#include <exception>
#include <string>

namespace model {

/// A fault that ends what the program is doing, unless the running handler traps it.
///
/// what() reads "Run-time error: KIND (RECORD: REASON)", with the parts that are known, for
/// example "Run-time error: Division by zero (wire VDD_L3: its ends coincide)".
class Fault : public std::exception {
 public:
  Fault(std::string kind, std::string reason);

  /// Says which record was at work. The first name given stays: it is the closest one.
  void NameRecord(const std::string& record);

  const char* what() const noexcept override { return text_.c_str(); }
  /// The kind alone, for messages that say by themselves where it happened.
  const std::string& Kind() const { return kind_; }

 private:
  void Compose();

  std::string kind_;
  std::string reason_;
  std::string record_;
  std::string text_;
};

/// A whole number beyond 16 bits, or a real number beyond the range of a single.
struct Overflow : Fault {
  explicit Overflow(std::string reason = {}) : Fault("Overflow", std::move(reason)) {}
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

/// Runs `work`; a fault that leaves it carries the name that `record` gives.
/// `record` is called only then, so naming costs nothing on the good path.
template <class Record, class Work>
void Naming(Record&& record, Work&& work) {
  try {
    work();
  } catch (Fault& fault) {
    fault.NameRecord(record());
    throw;
  }
}

}  // namespace model
