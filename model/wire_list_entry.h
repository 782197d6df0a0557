/// How the wire list shows an entry, and which of its buttons the entry's tier enables.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "model/package.h"

namespace model {

/// The entry as the wire list shows it: "A", or "A:B" for a stitch.
std::string EntryText(const WireNameRec& wire);

inline constexpr std::size_t kWireListButtons = 9;

/// The number of the wire list's button that a tier enables; nothing when no button has that number.
std::optional<std::size_t> ButtonOfTier(const std::string& tier);

/// Checks the tier of an entry of the package's wire list.
/// Faults  SubscriptOutOfRange when the entry has a tier that addresses no button
void CheckTier(const Package& package, std::size_t entry);

}  // namespace model
