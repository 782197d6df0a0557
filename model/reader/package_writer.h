/// Writes a package as the text of a package file and its side file: the reader's counterpart.
#pragma once

#include <string>
#include <string_view>

#include "model/package.h"

namespace model::reader {

/// The package file. Read again, it gives the same package: each value at least to its sixth digit, and
/// exactly where seven to nine digits in the file's units can say so. Needs   lengths divided by UnitScaleOf
/// the die; a wire-list entry for each wire, in the order in which they are to
///         be written; no two pads of one name that have substrate pads or wires
std::string PackageText(const Package& package);

/// The side file: a line for each wire that has a net type.
std::string NetTypesText(const Package& package);

/// A name as it can stand in a file: blanks and control characters become "_", as does a name without a
/// letter.
std::string FieldName(std::string_view name);

/// What the reader divides all lengths by when the base die is this wide and long in file units.
float UnitScaleOf(float width, float length);

}  // namespace model::reader
