/// The command menu as a pop-up menu.
#pragma once

#include <QMenu>
#include <string_view>

#include "shell/commands.h"

namespace shell::ui {

class CommandMenuPopup final : public QMenu {
 public:
  CommandMenuPopup(Commands& commands, QWidget* parent);

  /// Enables or greys an entry; `name` as in the menu's table.
  void SetEnabled(std::string_view name, bool enabled);
};

}  // namespace shell::ui
