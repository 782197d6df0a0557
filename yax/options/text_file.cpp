#include "yax/options/text_file.h"

#include <sha256.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "model/faults.h"
#include "model/files.h"
#include "model/text.h"
#include "yax/messages.h"

namespace yax {

namespace {

std::string BytesOf(const std::string& file) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    throw Unusable({.File = file}, "no such file", "give the path of a text file");
  try {
    return model::ReadToEnd(file);
  } catch (const model::FileFault& fault) {
    throw Unusable({.File = file}, fault.Kind(), "give the path of a text file");
  }
}

}  // namespace

CLI::Option* AddFileOption(CLI::App& command, const char* name, const char* description,
                           const std::function<void(const std::string&)>& take) {
  const auto takeNamed = [take](const std::string& file) {
    if (!file.empty()) take(file);
  };
  return command.add_option_function<std::string>(name, takeNamed, description)->type_name("FILE");
}

std::string TextOf(const std::string& file) {
  return std::string(model::WithoutByteOrderMark(BytesOf(file)));
}

std::string DigestOf(const std::string& file) {
  const std::string bytes = BytesOf(file);
  char digest[SHA256_DIGEST_STRING_LENGTH];
  SHA256Data(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), digest);
  return {digest, 12};
}

}  // namespace yax
