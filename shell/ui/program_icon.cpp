#include "shell/ui/program_icon.h"

namespace shell::ui {

QIcon ProgramIcon() {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128}) icon.addFile(QString(":/icon/%1.png").arg(side));
  return icon;
}

}  // namespace shell::ui
