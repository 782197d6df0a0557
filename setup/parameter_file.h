/// The estimator's parameter file (".zu"): its text, its keys, its names.
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

/// What a parameter file sets of its nine things.
struct ParameterValues {
  std::optional<std::string> PackageName;  ///< without its folder
  std::optional<std::string> Material;
  std::optional<float> WireDiameter, Frequency;
  std::optional<float> BaseLoopHeight, StackLoopHeight;
  std::optional<float> BaseExtension, StackExtension, StitchExtension;
};

/// The values of a parameter file by the keys with which it is written, in any letter case. `file` is its
/// name in messages; `onUnknown` gets each line that has no key. Deliberate: the window's own load knows two
/// keys by other texts than it writes and so drops the base and the stitch extension; here they count. Faults
/// InputError for a material or a number that is none
ParameterValues ReadParameterValues(std::string_view text, const std::string& file,
                                    const std::function<void(const ParameterLine&)>& onUnknown = {});

/// Sets in `settings` what is given in `values`.
void Apply(const ParameterValues& values, model::WireBondSettings& settings);

/// The name of a package's parameter file: its last three characters become "zu".
/// Returns nothing for a name of less than three characters
std::optional<std::string> ParameterFileName(std::string_view packagePath);

/// The folder of a file, with the separator at its end; "" when the path names none.
std::string GetFilePath(std::string_view path);

}  // namespace setup
