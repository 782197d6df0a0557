#include "shell/title.h"

#include "model/text.h"
#include "model/version.h"

namespace model {

std::string WindowTitle(const std::string& packagePath) {
  const std::string minor = std::to_string(kVersionMinor);
  return std::string(kProgramTitle) + " - " + std::to_string(kVersionMajor) + "." + minor + minor + "." +
         std::to_string(kVersionRevision) + " - " + std::string(FileNameOf(packagePath));
}

}  // namespace model
