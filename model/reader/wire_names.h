/// Fills in what wire list entries have besides their names: net types and tiers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/package.h"
#include "model/reader/name_index.h"
#include "model/reader/read_observer.h"

namespace model::reader {

/// Takes the side file: a wire name and its net type on each line of exactly two fields.
void ReadNetTypes(std::string_view text, NameIndex& index, Package& package, ReadObserver* observer);

/// Copies the tiers of the bonds into the wire list, counted from 1 even where the file counts from 0.
/// `wirePlaces` holds the number in the index of each entry's name.
void SetTiers(const std::vector<std::uint32_t>& wirePlaces, NameIndex& index, Package& package);

}  // namespace model::reader
