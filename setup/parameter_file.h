/// The estimator's parameter file (".zu"): its text, its keys, its names.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// What a line of the file sets.
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

/// A line with something in it.
struct ParameterLine {
  std::size_t Number;  ///< counted from 1, with the empty ones
  std::string_view Text;
  std::optional<Parameter> Known;  ///< nothing when it begins with no key
};

/// By which texts the keys are known, in any letter case.
enum class KeyTexts {
  OfLoad,    ///< those that the window's load knows
  AsWritten  ///< those that ParameterText writes
};

/// The text of the parameter file, CR LF after every line.
/// Reads   the package's name and whether it has bonds on a stacked die
std::string ParameterText(const model::Package& package, const model::WireBondSettings& settings);

/// The lines of a parameter file, but for empty ones. Lines end in CR LF, LF or CR.
/// Returns views into `text`
std::vector<ParameterLine> ReadParameterLines(std::string_view text, KeyTexts texts);

/// What the window's load takes from a parameter file, in the file's order.
/// Returns views into `text`
std::vector<Parameter> ReadParameters(std::string_view text);

/// The name of a package's parameter file: its last three characters become "zu".
/// Returns nothing for a name of less than three characters
std::optional<std::string> ParameterFileName(std::string_view packagePath);

/// The folder of a file, with the separator at its end; "" when the path names none.
std::string GetFilePath(std::string_view path);

}  // namespace setup
