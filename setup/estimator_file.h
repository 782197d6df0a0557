/// The estimator's parameter file (".zu"): its text, its keys, its names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// The keys that reading knows.
enum class ParameterKey {
  YaxFile,
  Material,
  WireDiameter,
  Frequency,
  BaseLoopHeight,
  BaseExtension,
  StackLoopHeight,
  StackExtension,
  StitchExtension
};

struct Parameter {
  ParameterKey Key;
  std::string_view Value;  ///< the rest of the line, as it stands
};

/// The text of the parameter file, CR LF after every line.
/// Reads   the package's name and whether it has bonds on a stacked die
std::string ParameterText(const model::Package& package, const model::WireBondSettings& settings);

/// The lines of a parameter file whose keys are known, in the file's order. Lines end in CR LF, LF or CR.
/// Returns views into `text`
std::vector<Parameter> ReadParameters(std::string_view text);

/// The name of a package's parameter file: its last three characters become "zu".
/// Returns nothing for a name of less than three characters
std::optional<std::string> ParameterFileName(std::string_view packagePath);

/// The folder of a file, with the separator at its end; "" when the path names none.
std::string GetFilePath(std::string_view path);

}  // namespace setup
