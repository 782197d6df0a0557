#include "shell/ui/keyboard_layout.h"

#include <QGuiApplication>
#include <algorithm>
#include <memory>
#include <string_view>

// Last: its macros break other headers.
#include <X11/XKBlib.h>
#include <X11/keysym.h>

namespace shell::ui {

namespace {

struct FreeLayout {
  void operator()(XkbDescPtr layout) const { XkbFreeKeyboard(layout, XkbAllComponentsMask, True); }
};
using Layout = std::unique_ptr<XkbDescRec, FreeLayout>;

/// Asks the server each time: Qt reads all events, so Xlib's copy of the layout would never be updated.
Layout PresentLayout(Display* display) {
  Layout layout(XkbGetMap(display, XkbKeySymsMask | XkbKeyTypesMask, XkbUseCoreKbd));
  if (layout && XkbGetNames(display, XkbKeyNamesMask, layout.get()) != Success) layout.reset();
  return layout;
}

/// The symbol of a key without modifiers (its first level).
KeySym Unshifted(const XkbDescRec& layout, unsigned keycode, unsigned group) {
  const unsigned groups = XkbKeyNumGroups(&layout, keycode);
  return groups == 0 ? NoSymbol : XkbKeySymEntry(&layout, keycode, 0, std::min(group, groups - 1));
}

bool HasLatinLetters(const XkbDescRec& layout, unsigned group) {
  for (unsigned keycode = layout.min_key_code; keycode <= layout.max_key_code; ++keycode)
    if (Unshifted(layout, keycode, group) == XK_l) return true;
  return false;
}

char LetterOfPlace(std::string_view place) {
  if (place == "AC03") return 'd';
  if (place == "AC09") return 'l';
  if (place == "AD04") return 'r';
  if (place == "AD07") return 'u';
  return 0;
}

}  // namespace

char UnshiftedCharacter(std::uint32_t keycode, std::uint32_t state) {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  const Layout layout = x11 != nullptr ? PresentLayout(x11->display()) : nullptr;
  if (!layout || keycode < layout->min_key_code || keycode > layout->max_key_code) return 0;
  const unsigned group = XkbGroupForCoreState(state);
  const KeySym symbol = Unshifted(*layout, keycode, group);
  if (symbol > ' ' && symbol <= '~') return static_cast<char>(symbol);
  if (HasLatinLetters(*layout, group)) return 0;
  const char* const name = layout->names->keys[keycode].name;
  return LetterOfPlace({name, std::find(name, name + XkbKeyNameLength, '\0')});
}

}  // namespace shell::ui
