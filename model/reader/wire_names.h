/// What the wire list tells of its entries besides their names: net types and tiers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/reader/name_index.h"
#include "model/package.h"
#include "model/reader/read_observer.h"

namespace model {

/// Takes the side file: a wire name and its net type on each line of exactly two fields.
void ReadNetTypes(std::string_view text, NameIndex& index, Package& package, ReadObserver* observer);

/// Copies the tiers of the bonds into the wire list, counted from 1 even where the file counts from 0.
/// `wirePlaces` holds the number in the index of each entry's name.
void SetTiers(const std::vector<std::uint32_t>& wirePlaces, NameIndex& index, Package& package);

/// The entry as the wire list shows it: "A", or "A:B" for a stitch.
std::string EntryText(const WireNameRec& wire);

inline constexpr std::size_t kWireListButtons = 9;

/// The number of the wire list's button that a tier enables; nothing when there is none of that number.
std::optional<std::size_t> ButtonOfTier(const std::string& tier);

/// Faults  SubscriptOutOfRange when the entry has a tier that addresses no button
void MindTier(const WireNameRec& wire);

}  // namespace model
