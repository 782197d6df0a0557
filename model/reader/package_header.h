/// The header of a package file: what a package has once.
#pragma once

#include "model/package.h"
#include "model/reader/keywords.h"
#include "model/text.h"

namespace model::reader {

/// Takes a line of the header with this keyword into the scalars; any other line changes nothing.
/// At the COMPZ line the lengths are rescaled.
void TakeHeaderLine(Keyword keyword, const Tokens& tokens, PackageScalars& scalars);

}  // namespace model::reader
