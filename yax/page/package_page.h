/// The page of a package that a command has opened.
#pragma once

#include <string>

#include "analysis/nets.h"
#include "yax/options/opened_package.h"

namespace yax {

/// The page with the chosen wires. Their clearances are measured to all wires.
/// Faults  Fault when something cannot be drawn; Unusable without a usable unit or wire diameter
std::string PageOf(const OpenedPackage& opened, const analysis::NetRule& nets);

}  // namespace yax
