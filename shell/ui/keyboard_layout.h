/// What a key of the present keyboard layout gives without modifiers. Qt reports it with them only.
#pragma once

#include <cstdint>

namespace shell::ui {

/// The ASCII character of a key without modifiers. A layout without Latin letters, such as the Russian one,
/// gives d, l, r and u by the keys' places on a US keyboard.
/// `keycode` and `state` are those of the X event: a layout may be one of several groups that the state
/// names. Returns 0 for other characters, and where the display is not X
char UnshiftedCharacter(std::uint32_t keycode, std::uint32_t state);

}  // namespace shell::ui
