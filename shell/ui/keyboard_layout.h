/// The character of a key without modifiers in the current keyboard layout. Qt reports only the one with
/// them.
#pragma once

#include <cstdint>

namespace shell::ui {

/// The ASCII character of a key without modifiers. On a layout without Latin letters, such as the Russian
/// one, d, l, r and u are the keys at their positions on a US keyboard. `keycode` and `state` are those of
/// the X event; the state selects one of several layout groups. Returns 0 for other characters, and when the
/// display is not X
char UnshiftedCharacter(std::uint32_t keycode, std::uint32_t state);

}  // namespace shell::ui
