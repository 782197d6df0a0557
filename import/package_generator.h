/// Leads and paddle of the common outlines QFN and QFP from a few numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "import/lead_frame.h"

namespace importer {

/// True when the text begins with "qfn:" or "qfp:".
bool IsOutline(std::string_view text);

/// The outline, seen from above. Lead 1 is the uppermost of the left side; numbers run counter-clockwise.
/// Outer ends are on the body's edge. Inner tips are a lead's length from the edge or, with `tip=`, on the
/// square or rectangle at that distance from the centre; the leads then fan in.
/// Units   `unit` is the unit of all lengths in the text, in millimetres
/// Faults  ArgumentError when a part is missing, unknown, not a number, or does not fit
LeadFrame Outlined(const std::string& text, double unit);

/// "WxL" as two lengths above 0; nothing for any other text.
std::optional<glm::dvec2> SizeIn(std::string_view text);

}  // namespace importer
