/// Writes a package as the text of a package file and its side file: the reader's counterpart.
#pragma once

#include <string>
#include <string_view>

#include "model/package.h"

namespace model::reader {

/// The text of the package file. Reading it gives the same package: each value to at least six digits, and
/// exactly where seven to nine digits in file units can express it.
/// Needs   lengths divided by UnitScaleOf the die; a wire-list entry for each wire, in the order in which to
///         write them; no two pads of one name that have substrate pads or wires
std::string PackageText(const Package& package);

/// The side file: a line for each wire that has a net type.
std::string NetTypesText(const Package& package);

/// A name that a file can hold: blanks and control characters become "_", and an empty name becomes "_".
std::string FieldName(std::string_view name);

/// The factor by which the reader divides all lengths when the base die has this width and length in file
/// units.
float UnitScaleOf(float width, float length);

}  // namespace model::reader
