/// Fills in the net types and tiers of the wire list's entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/package.h"
#include "model/reader/name_index.h"
#include "model/reader/read_observer.h"

namespace model::reader {

/// Reads   the side file: each line of exactly two fields has a wire name and its net type.
void ReadNetTypes(std::string_view text, NameIndex& index, Package& package, ReadObserver* observer);

/// Copies the tiers of the bonds into the wire list, counted from 1 even where the file counts from 0.
/// `wirePlaces` holds the name index's number for each entry.
void SetTiers(const std::vector<std::uint32_t>& wirePlaces, NameIndex& index, Package& package);

}  // namespace model::reader
