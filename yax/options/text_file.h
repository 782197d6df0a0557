/// Text files that options name.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace yax {

/// Adds an option that names a file; `take` gets the name during the parse. An empty name stands for no file.
CLI::Option* AddFileOption(CLI::App& command, const char* name, const char* description,
                           const std::function<void(const std::string& file)>& take);

/// The whole file or pipe, without the byte order mark that some editors write.
/// Faults  Unusable when there is no such file or it cannot be read
std::string TextOf(const std::string& file);

/// The first 12 digits of the file's SHA-256.
/// Faults  Unusable when it cannot be read
std::string DigestOf(const std::string& file);

}  // namespace yax
