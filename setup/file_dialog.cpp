#include "setup/file_dialog.h"

#include <filesystem>

#include "model/files.h"
#include "model/text.h"

namespace setup {

std::string OverwriteQuestion(const std::string& target, const std::string& packagePath) {
  if (!model::FileExists(target)) return "";
  const std::string name(model::FileNameOf(target));
  std::error_code error;
  // By file, not by name: a link or another spelling of the path destroys the package just as well.
  if (!packagePath.empty() && std::filesystem::equivalent(target, packagePath, error))
    return name +
           " is the package file itself. If you replace it, the package is lost.\nReplace it all the same?";
  return name + " already exists.\nDo you want to replace it?";
}

}  // namespace setup
