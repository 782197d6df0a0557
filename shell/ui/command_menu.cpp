#include "shell/ui/command_menu.h"

#include <QAction>
#include <QVector>

namespace shell::ui {

CommandMenuPopup::CommandMenuPopup(Commands& commands, QWidget* parent) : QMenu(parent) {
  setObjectName("DoMnu");
  QVector<QMenu*> levels{this};
  const std::span<const MenuEntry> entries = CommandMenu();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const MenuEntry& entry = entries[i];
    levels.resize(entry.Level);
    QAction* action = nullptr;
    if (std::string_view(entry.Caption) == "-") {
      action = levels.back()->addSeparator();
    } else if (i + 1 < entries.size() && entries[i + 1].Level > entry.Level) {
      QMenu* const submenu = levels.back()->addMenu(entry.Caption);
      levels.append(submenu);
      action = submenu->menuAction();
    } else {
      action = levels.back()->addAction(entry.Caption);
      connect(action, &QAction::triggered, this, [this, &commands, click = entry.Click] {
        // Assistive technology triggers an entry without closing the menu.
        hide();
        (commands.*click)();
      });
    }
    action->setObjectName(entry.Name);
  }
}

void CommandMenuPopup::SetEnabled(std::string_view name, bool enabled) {
  const QString wanted = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
  for (QAction* const action : findChildren<QAction*>(wanted)) action->setEnabled(enabled);
}

}  // namespace shell::ui
