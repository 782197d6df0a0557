/// The program's icon, drawn by itself.
#pragma once

#include <QIcon>

namespace shell::ui {

/// A die with bond wires to the pads around it.
QIcon ProgramIcon();

}  // namespace shell::ui
