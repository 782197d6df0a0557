#include "shell/ui/display.h"

#include <X11/Xlib.h>

namespace shell::ui {

DisplayConnection::DisplayConnection(const char* name) : display_(XOpenDisplay(name)) {}

DisplayConnection::~DisplayConnection() {
  if (display_ != nullptr) XCloseDisplay(static_cast<Display*>(display_));
}

}  // namespace shell::ui
