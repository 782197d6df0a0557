/// What a check reports of a package file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/input_error.h"

namespace analysis {

enum class Severity {
  Error,    ///< ends the viewer
  Finding,  ///< the viewer ignores it, reads it as 0, overwrites it or does not draw it, and says nothing
  Note      ///< may be intended
};

/// What a rule measured.
struct RuleValue {
  std::string Rule;
  std::optional<double> Value, Limit;  ///< none where the rule has no limit
  std::string Unit;
  std::size_t OtherLine = 0;  ///< line of the other record of a pair, else 0
};

struct Diagnostic {
  analysis::Severity Severity;
  const char* Kind;  ///< a short name for programs
  model::FilePlace Place;
  std::string What;
  std::string Advice;
  std::optional<RuleValue> Measured = {};  ///< set for a rule
};

struct Diagnostics {
  std::string File;
  std::vector<Diagnostic> List = {};
  std::size_t Lines = 0;    ///< lines of the package file
  std::size_t Ignored = 0;  ///< lines that the viewer ignores

  std::size_t Count(Severity severity) const;
  /// Puts the list into the order of the files and their lines.
  void Sort();
};

}  // namespace analysis
