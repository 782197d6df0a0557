/// The match of pads and leads that keeps their order around the die.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <glm/vec2.hpp>

namespace importer {

/// The largest number of pairs of a pad and a lead: more would take longer than about five seconds.
inline constexpr std::size_t kMostOrderPairs = 400'000'000;

/// For each pad its lead, or none where there are more pads than leads.
///
/// Sorts pads and leads by their angle around the origin. Of all matches that keep this order around the die
/// and give a partner to each of the smaller group, finds the one with the smallest sum of squared distances.
/// The result is exact: coordinates are whole nanometres. Of matches with equal sums it takes the one with
/// the earliest partner for the first of the smaller group, counter-clockwise from the left, and so on.
/// Needs   places in millimetres, within 1 m of the origin; at most kMostOrderPairs pairs
/// Source  Maes, "On a cyclic string-to-string correction problem", Information Processing Letters 35 (1990):
///         best paths from different starts do not cross, which lets the starts be halved again and again
std::vector<std::optional<std::size_t>> MatchInOrder(const std::vector<glm::dvec2>& pads,
                                                     const std::vector<glm::dvec2>& leads);

}  // namespace importer
