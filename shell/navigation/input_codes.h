/// The codes of keys, modifiers and mouse buttons for the main window's handlers.
#pragma once

namespace shell::navigation {

/// Modifier state: a sum of these, 0 for none.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

/// Mouse buttons; a move carries the sum of those held down.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

/// Codes of the keys that the view handles.
inline constexpr int kEscape = 27;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kD = 68;
inline constexpr int kL = 76;
inline constexpr int kR = 82;
inline constexpr int kU = 85;
inline constexpr int kKeypadPlus = 107;
inline constexpr int kKeypadMinus = 109;
inline constexpr int kEqualsPlus = 187;  ///< "=" and "+" of the main block
inline constexpr int kMinus = 189;       ///< "-" and "_" of the main block

}  // namespace shell::navigation
