#include "yax/options/text_file.h"

#include "model/faults.h"
#include "model/files.h"
#include "yax/messages.h"

namespace yax {

std::string TextOf(const std::string& file) {
  try {
    if (model::FileExists(file)) return model::ReadWholeFile(file);
  } catch (const model::Fault& fault) {
    throw Unusable({.File = file}, fault.what(), "give the path of a text file");
  }
  throw Unusable({.File = file}, "there is no such file", "give the path of a text file");
}

}  // namespace yax
