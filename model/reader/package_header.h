/// The header of a package file: what a package has once.
#pragma once

#include "model/package.h"
#include "model/text.h"

namespace model::reader {

/// What a line is to the header.
enum class HeaderLine {
  Unknown,
  Word,    ///< a keyword with a word in field 1
  Number,  ///< a keyword with a number in field 1
  End      ///< COMPZ, with a number in field 1
};

/// Takes one line of the header into the scalars; a line with an unknown keyword changes nothing.
/// At the COMPZ line the lengths are rescaled.
HeaderLine TakeHeaderLine(const Tokens& tokens, PackageScalars& scalars);

}  // namespace model::reader
