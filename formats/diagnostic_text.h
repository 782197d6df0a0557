/// Diagnostics as messages and as JSON.
#pragma once

#include <string>

#include "analysis/diagnostics.h"

namespace formats {

/// A line for each error and finding, then one for each kind of note with their number; with `listNotes` a
/// line for each note too.
std::string MessagesOf(const analysis::Diagnostics& diagnostics, bool listNotes);

/// How many lines were read and how many of them ignored, as one line.
std::string SummaryOf(const analysis::Diagnostics& diagnostics);

/// All of it as one JSON object.
std::string JsonOf(const analysis::Diagnostics& diagnostics, bool listNotes);

}  // namespace formats
