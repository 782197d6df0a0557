/// The growable table in which a package keeps the records of one kind.
#pragma once

#include <cstddef>
#include <vector>

#include "model/large_pages.h"

namespace model {

/// A growable table with lower bound 0 that always ends in one spare, zero-filled record.
/// The real records are 0 .. UpperBound() - 1; iteration and Count() see only those.
template <class Record>
class Table {
 public:
  std::size_t UpperBound() const { return records_.size() - 1; }
  std::size_t Count() const { return UpperBound(); }
  bool Empty() const { return Count() == 0; }

  Record& operator[](std::size_t index) { return records_[index]; }
  const Record& operator[](std::size_t index) const { return records_[index]; }

  /// The record that the reader fills next.
  Record& Spare() { return records_.back(); }
  /// Makes the spare record a real one and appends a new spare.
  void Grow() { records_.emplace_back(); }
  /// Makes room for `count` real records at once.
  void Reserve(std::size_t count) { records_.reserve(count + 1); }

  auto begin() { return records_.begin(); }
  auto end() { return records_.end() - 1; }
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end() - 1; }

 private:
  using Records = std::vector<Record, LargePages<Record>>;
  Records records_ = Records(1);
};

}  // namespace model
