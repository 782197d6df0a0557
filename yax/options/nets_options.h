/// The option that groups wires into nets.
#pragma once

#include "analysis/nets.h"

namespace CLI {
class App;
}

namespace yax {

/// Adds --net-pattern.
void AddNetOptions(CLI::App& command, analysis::NetRule& rule);

}  // namespace yax
