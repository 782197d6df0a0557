/// Diagnostics as messages and as JSON.
#pragma once

#include <string>
#include <vector>

#include "analysis/diagnostics.h"

namespace formats {

/// A line for each error and finding, then for each kind of note one line with the number of notes; with
/// `listNotes` also a line for each note.
std::string MessagesOf(const analysis::Diagnostics& diagnostics, bool listNotes);

/// One line with the number of lines read and of lines ignored.
std::string SummaryOf(const analysis::Diagnostics& diagnostics);

/// The diagnostics as one JSON object.
std::string JsonOf(const analysis::Diagnostics& diagnostics, bool listNotes);
/// A JSON list of such objects.
std::string JsonOf(const std::vector<analysis::Diagnostics>& files, bool listNotes);

}  // namespace formats
