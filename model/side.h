/// The four sides of a die or ring, and the letters that name them.
#pragma once

#include <optional>
#include <string_view>

namespace model {

enum class Side { Left, Right, Top, Bottom };

/// True for a side that runs along y.
constexpr bool IsUpright(Side side) { return side == Side::Left || side == Side::Right; }

/// The side that "L", "R", "T" or "B" names in upper case; nothing for any other text.
constexpr std::optional<Side> ExactSideOf(std::string_view text) {
  if (text == "L") return Side::Left;
  if (text == "R") return Side::Right;
  if (text == "T") return Side::Top;
  if (text == "B") return Side::Bottom;
  return std::nullopt;
}

/// The same for a letter of either case.
constexpr std::optional<Side> SideOf(std::string_view text) {
  if (text == "l") return Side::Left;
  if (text == "r") return Side::Right;
  if (text == "t") return Side::Top;
  if (text == "b") return Side::Bottom;
  return ExactSideOf(text);
}

}  // namespace model
