#include "shell/title.h"

#include "model/text.h"
#include "model/version.h"

namespace shell {

std::string WindowTitle(const std::string& packagePath) {
  const std::string minor = std::to_string(model::kVersionMinor);
  return std::string(kProgramTitle) + " - " + std::to_string(model::kVersionMajor) + "." + minor + minor +
         "." + std::to_string(model::kVersionRevision) + " - " + std::string(model::FileNameOf(packagePath));
}

}  // namespace shell
