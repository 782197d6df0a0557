/// The icon of the program in window managers and in its "About" window.
#pragma once

#include <QIcon>

namespace shell::ui {

/// The desktop icon in the sizes that window managers ask for.
QIcon ProgramIcon();

}  // namespace shell::ui
