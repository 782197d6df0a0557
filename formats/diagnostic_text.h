/// Diagnostics as messages and as JSON.
#pragma once

#include <string>
#include <vector>

#include "analysis/diagnostics.h"

namespace formats {

/// A line for each error and finding, then one for each kind of note with their number; with `listNotes` a
/// line for each note too.
std::string MessagesOf(const analysis::Diagnostics& diagnostics, bool listNotes);

/// How many lines were read and how many of them ignored, as one line.
std::string SummaryOf(const analysis::Diagnostics& diagnostics);

/// All of it as one JSON object.
std::string JsonOf(const analysis::Diagnostics& diagnostics, bool listNotes);
/// A list of these objects.
std::string JsonOf(const std::vector<analysis::Diagnostics>& files, bool listNotes);

}  // namespace formats
