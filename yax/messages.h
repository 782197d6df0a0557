/// Exit statuses and messages on standard error.
#pragma once

#include <string_view>

#include "model/input_error.h"

namespace yax {

/// The program's exit status.
enum class Status {
  Done = 0,
  Findings = 1,  ///< done, and there are findings
  Unusable = 2   ///< unusable input or arguments
};

using Place = model::FilePlace;

/// Ends the command with status Unusable and this message.
using Unusable = model::InputError;

/// The place of a message about the arguments.
Place CommandLine();

/// Writes the message as one line on standard error.
void Complain(const Place& place, std::string_view what, std::string_view advice);

}  // namespace yax
