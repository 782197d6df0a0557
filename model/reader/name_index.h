/// Finds the records of a package by name, without a scan. Lives as long as one load.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace model::reader {

/// First and last record of one name in the tables that are searched by name.
struct NamePlaces {
  static constexpr std::uint32_t kNone = UINT32_MAX;

  std::uint32_t FirstBond = kNone, LastBond = kNone;
  std::uint32_t FirstSDBond = kNone, LastSDBond = kNone;
  std::uint32_t FirstWire = kNone;
  std::uint32_t FirstSRing = kNone;
};

/// A hash table of names. The names are views: the text they stand in must outlive the index.
class NameIndex {
 public:
  NameIndex();

  /// Makes room for `names` names at once.
  void Reserve(std::size_t names);
  /// The index of the name's places; adds the name when it is new.
  std::uint32_t Add(std::string_view name);
  /// The index of the name's places, or NamePlaces::kNone for an unknown name.
  std::uint32_t Find(std::string_view name);
  NamePlaces& At(std::uint32_t number) { return entries_[number].Places; }

 private:
  struct Entry {
    std::string_view Name;
    std::size_t Hash;
    NamePlaces Places;
  };

  bool IsNext(std::string_view name);
  std::uint32_t& SlotOf(std::string_view name, std::size_t hash);
  void Widen(std::size_t slots);

  std::vector<std::uint32_t> slots_;  ///< numbers of entries, or NamePlaces::kNone; a power of two of them
  std::vector<Entry> entries_;
  std::uint32_t last_ = NamePlaces::kNone;  ///< the entry that was found last; kNone + 1 is the first
};

}  // namespace model::reader
