/// Reads and writes the estimator's parameter file (".zu").
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// The setting that a line of the file sets.
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
  std::string_view Value;  ///< the rest of the line, unchanged
};

/// A line that is not empty.
struct ParameterLine {
  std::size_t Number;  ///< counted from 1, including empty lines
  std::string_view Text;
  std::optional<Parameter> Known;  ///< empty when the line begins with no known key
};

/// The spelling of the keys; letter case does not matter.
enum class KeyTexts {
  OfLoad,    ///< as the window's load reads them
  AsWritten  ///< as ParameterText writes them
};

/// The text of the parameter file; every line ends in CR LF.
/// Reads   the package's name and whether it has bonds on a stacked die
std::string ParameterText(const model::Package& package, const model::WireBondSettings& settings);

/// The lines of a parameter file except empty ones. Lines end in CR LF, LF or CR.
/// Returns views into `text`
std::vector<ParameterLine> ReadParameterLines(std::string_view text, KeyTexts texts);

/// The settings that the window's load reads from a parameter file, in the file's order.
/// Returns views into `text`
std::vector<Parameter> ReadParameters(std::string_view text);

/// The values in a parameter file, each of which may be missing.
struct ParameterValues {
  std::optional<std::string> PackageName;  ///< without its folder
  std::optional<std::string> Material;
  std::optional<float> WireDiameter, Frequency;
  std::optional<float> BaseLoopHeight, StackLoopHeight;
  std::optional<float> BaseExtension, StackExtension, StitchExtension;
};

/// The values in a parameter file, with the keys as ParameterText writes them, in any letter case. `file` is
/// its name in messages; `onUnknown` gets each line without a known key.
/// Deliberate: unlike the window's load, this reads the base and the stitch extension.
/// Faults  InputError for an unknown material or a value that is not a number
ParameterValues ReadParameterValues(std::string_view text, const std::string& file,
                                    const std::function<void(const ParameterLine&)>& onUnknown = {});

/// Copies the given `values` into `settings`.
void Apply(const ParameterValues& values, model::WireBondSettings& settings);

/// The name of a package's parameter file: its last three characters become "zu".
/// Returns nothing for a name of less than three characters
std::optional<std::string> ParameterFileName(std::string_view packagePath);

/// The folder of a file, with the separator at its end; "" when the path names none.
std::string GetFilePath(std::string_view path);

}  // namespace setup
