/// Makes completion scripts for shells from the parser's options.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace yax {

// Scripts that complete the program's commands, options and values.
std::string BashCompletion(const CLI::App& program);
std::string ZshCompletion(const CLI::App& program);
std::string FishCompletion(const CLI::App& program);

}  // namespace yax
