/// The header of a package file: what a package has once.
#pragma once

#include "model/package.h"
#include "model/text.h"

namespace model {

/// Takes one line of the header into the scalars; a line with an unknown keyword changes nothing.
/// Returns true for the COMPZ line, which ends the header: the lengths are rescaled then.
bool TakeHeaderLine(const Tokens& tokens, PackageScalars& scalars);

}  // namespace model
