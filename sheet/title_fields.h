/// Reads the fields of a title block from a file of "KEY = value" lines and from single settings.
#pragma once

#include <string>
#include <string_view>

#include "model/input_error.h"
#include "sheet/diagram_inputs.h"

namespace sheet {

/// Takes one "KEY=text"; `place` is its place for messages.
/// Faults  InputError for text without "=" or a key that a title block does not have
void SetTitleField(const model::FilePlace& place, std::string_view setting, TitleFields& fields);

/// Takes every line of a file except empty ones and those that begin with "#".
/// Faults  InputError
void ReadTitleFields(const std::string& file, std::string_view text, TitleFields& fields);

}  // namespace sheet
