/// Reads   the header of a package file.
#pragma once

#include "model/package.h"
#include "model/reader/keywords.h"
#include "model/text.h"

namespace model::reader {

/// Stores a header line with this keyword in the scalars; any other line changes nothing.
/// At the COMPZ line the lengths are rescaled.
void TakeHeaderLine(Keyword keyword, const Tokens& tokens, PackageScalars& scalars);

}  // namespace model::reader
