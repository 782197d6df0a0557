/// Completion scripts, made from the parser's own tree.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace yax {

// The script with which a shell completes the program's commands, options and values.
std::string BashCompletion(const CLI::App& program);
std::string ZshCompletion(const CLI::App& program);
std::string FishCompletion(const CLI::App& program);

}  // namespace yax
