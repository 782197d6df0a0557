/// The error for the value of an option of an import.
#pragma once

#include <string>
#include <utility>

#include "model/input_error.h"

namespace importer {

/// An unusable value. The caller that knows where the option was given names that place instead of the
/// option.
class ArgumentError : public model::InputError {
 public:
  ArgumentError(std::string option, std::string what, std::string advice)
      : InputError({.File = "--" + option}, std::move(what), std::move(advice)), Option(std::move(option)) {}

  std::string Option;  ///< without its dashes
};

}  // namespace importer
