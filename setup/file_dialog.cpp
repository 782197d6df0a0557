#include "setup/file_dialog.h"

#include <filesystem>

#include "model/files.h"
#include "model/text.h"

namespace setup {

std::string OverwriteQuestion(const std::string& target, const std::string& packagePath) {
  if (!model::FileExists(target)) return "";
  const std::string name(model::FileNameOf(target));
  std::error_code error;
  // Compare files, not names: writing to a link or to another spelling of the path also replaces the package.
  if (!packagePath.empty() && std::filesystem::equivalent(target, packagePath, error))
    return name +
           " is the package file itself. If you replace it, the package is lost.\nReplace it all the same?";
  return name + " already exists.\nDo you want to replace it?";
}

}  // namespace setup
