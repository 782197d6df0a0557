/// Leads and paddle from a footprint of KiCad, by itself or on a board.
#pragma once

#include <string>
#include <string_view>

#include "import/lead_frame.h"

namespace importer {

/// The footprint of a .kicad_mod file.
/// Faults  InputError with the line when the text is not a footprint, ends too early, or has no pads that
///         are leads
LeadFrame FootprintOf(std::string_view text, const std::string& file);

/// The footprint with this reference of a .kicad_pcb file, turned as on its board, about its origin. One on
/// the back is seen from the back.
/// Faults  InputError as above, or when no footprint has the reference
LeadFrame FootprintOnBoard(std::string_view text, const std::string& file, const std::string& reference);

}  // namespace importer
