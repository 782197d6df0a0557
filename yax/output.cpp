#include "yax/output.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "model/faults.h"
#include "yax/messages.h"

namespace yax {

namespace {

void Send(std::FILE* stream, const std::string& name, std::string_view bytes) {
  const bool sent = stream != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
                    std::fflush(stream) == 0;
  // A closed pipe is not an error: head(1) does that.
  if (!sent && errno != EPIPE)
    throw Unusable({.File = name}, std::generic_category().message(errno), "check the output");
}

}  // namespace

bool IsStream(const std::string& output) {
  struct stat found {};
  return output == "-" ||
         (stat(output.c_str(), &found) == 0 && (S_ISCHR(found.st_mode) || S_ISFIFO(found.st_mode)));
}

void WriteOutput(const std::string& output, std::string_view bytes) {
  if (output == "-") return Send(stdout, "standard output", bytes);
  if (IsStream(output)) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(output.c_str(), "wbe"),
                                                                 std::fclose);
    return Send(stream.get(), output, bytes);
  }
  WriteOutputs({{output, bytes}});
}

void WriteOutputs(const std::vector<model::FileToWrite>& files) {
  std::string failed;
  try {
    model::WriteWholeFiles(files, model::Durability::Fast, failed);
  } catch (const model::FileFault& fault) {
    throw Unusable({.File = failed}, fault.Kind(), "give a file in a folder that can be written");
  }
}

}  // namespace yax
