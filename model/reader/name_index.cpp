#include "model/reader/name_index.h"

#include <bit>
#include <functional>

namespace model::reader {

NameIndex::NameIndex() : slots_(256, NamePlaces::kNone) {}

std::uint32_t& NameIndex::SlotOf(std::string_view name, std::size_t hash) {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
    std::uint32_t& number = slots_[slot];
    if (number == NamePlaces::kNone) return number;
    const Entry& entry = entries_[number];
    if (entry.Hash == hash && entry.Name == name) return number;
  }
}

void NameIndex::Reserve(std::size_t names) {
  entries_.reserve(names);
  if (names * 2 > slots_.size()) Widen(std::bit_ceil(names * 2));
}

/// Files mostly list pads, wires and net types in the same order, so the entry after the last one found is
/// tried first.
bool NameIndex::IsNext(std::string_view name) {
  if (last_ + 1 >= entries_.size() || entries_[last_ + 1].Name != name) return false;
  ++last_;
  return true;
}

std::uint32_t NameIndex::Add(std::string_view name) {
  const std::size_t hash = std::hash<std::string_view>{}(name);
  std::uint32_t& slot = SlotOf(name, hash);
  if (slot != NamePlaces::kNone) return slot;
  const auto number = static_cast<std::uint32_t>(entries_.size());
  slot = number;
  entries_.push_back({name, hash, {}});
  if (entries_.size() * 2 > slots_.size()) Widen(slots_.size() * 4);
  return number;
}

std::uint32_t NameIndex::Find(std::string_view name) {
  if (IsNext(name)) return last_;
  const std::uint32_t number = SlotOf(name, std::hash<std::string_view>{}(name));
  if (number != NamePlaces::kNone) last_ = number;
  return number;
}

void NameIndex::Widen(std::size_t slots) {
  slots_.assign(slots, NamePlaces::kNone);
  const std::size_t mask = slots_.size() - 1;
  for (std::uint32_t number = 0; number < entries_.size(); ++number) {
    std::size_t slot = entries_[number].Hash & mask;
    while (slots_[slot] != NamePlaces::kNone) slot = (slot + 1) & mask;
    slots_[slot] = number;
  }
}

}  // namespace model::reader
