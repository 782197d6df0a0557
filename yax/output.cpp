#include "yax/output.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "model/faults.h"
#include "model/whole_file.h"
#include "yax/messages.h"

namespace yax {

void WriteOutput(const std::string& output, std::string_view bytes) {
  constexpr char kAdvice[] = "give a file in a folder that can be written";
  if (output == "-") {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0)
      throw Unusable({.File = "standard output"}, std::generic_category().message(errno),
                     "see where it leads to");
    return;
  }
  try {
    model::WriteWholeFile(output, bytes, model::Content::MadeAgain);
  } catch (const model::FileFault& fault) {
    throw Unusable({.File = output}, fault.Kind(), kAdvice);
  }
}

}  // namespace yax
