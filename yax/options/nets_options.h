/// The option that says which wires belong to one net.
#pragma once

#include "analysis/nets.h"

namespace CLI {
class App;
}

namespace yax {

/// Adds --net-pattern.
void AddNetOptions(CLI::App& command, analysis::NetRule& rule);

}  // namespace yax
