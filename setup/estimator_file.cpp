#include "setup/estimator_file.h"

#include <algorithm>
#include <utility>

#include "model/numbers.h"
#include "model/text.h"

namespace setup {

namespace {

constexpr std::string_view kNewLine = "\r\n";

// Deliberate: "BASEEXTENSTON=" and "STICHEXTENSTON=" are not the keys that ParameterText writes, so a
// saved file never restores these two extensions.
constexpr std::pair<std::string_view, ParameterKey> kKeys[] = {
    {"YAXFILE=", ParameterKey::YaxFile},
    {"MATERIAL=", ParameterKey::Material},
    {"WIREDIAMETER=", ParameterKey::WireDiameter},
    {"FREQUENCY=", ParameterKey::Frequency},
    {"BASELOOPHEIGHT=", ParameterKey::BaseLoopHeight},
    {"BASEEXTENSTON=", ParameterKey::BaseExtension},
    {"STACKLOOPHEIGHT=", ParameterKey::StackLoopHeight},
    {"STACKEXTENSION=", ParameterKey::StackExtension},
    {"STICHEXTENSTON=", ParameterKey::StitchExtension},
};

std::optional<Parameter> ReadLine(std::string_view line) {
  for (const auto& [key, meaning] : kKeys)
    if (line.size() >= key.size() && model::EqualsUpper(line.substr(0, key.size()), key))
      return Parameter{meaning, line.substr(key.size())};
  return std::nullopt;
}

/// Drops the last UTF-8 character; of other bytes, one.
void DropLastCharacter(std::string_view& text) {
  std::size_t length = 1;
  const auto continues = [&](std::size_t fromEnd) {
    return (static_cast<unsigned char>(text[text.size() - fromEnd]) & 0xC0U) == 0x80U;
  };
  while (length < 4 && length < text.size() && continues(length)) ++length;
  text.remove_suffix(length);
}

}  // namespace

std::string ParameterText(const model::Package& package, const model::WireBondSettings& settings) {
  std::string text;
  const auto line = [&](std::string_view key, std::string_view value) {
    ((text += key) += value) += kNewLine;
  };
  line("YAXFile=", model::FileNameOf(package.PackagePath));
  line("Material=", settings.Material);
  line("WireDiameter=", model::GeneralText(settings.WireDiameter));
  line("Frequency=", model::GeneralText(settings.Frequency));
  line("BaseLoopHeight=", model::GeneralText(settings.BaseLoopHeight));
  line("BaseExtension=", model::GeneralText(settings.BaseExtension));
  if (package.SDBonds.Empty()) return text;
  line("StackLoopHeight=", model::GeneralText(settings.StackLoopHeight));
  line("StackExtension=", model::GeneralText(settings.StackExtension));
  // Deliberate: the key's spelling, and that it is written only with a stacked die, though every stitch has
  // one.
  line("StichExtension=", model::GeneralText(settings.StitchExtension));
  return text;
}

std::vector<Parameter> ReadParameters(std::string_view text) {
  std::vector<Parameter> parameters;
  while (!text.empty()) {
    // Between a CR and its LF lies an empty line, which no key matches.
    const std::size_t end = std::min(text.find_first_of(kNewLine), text.size());
    if (const auto parameter = ReadLine(text.substr(0, end))) parameters.push_back(*parameter);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parameters;
}

std::optional<std::string> ParameterFileName(std::string_view packagePath) {
  std::string_view name = model::FileNameOf(packagePath);
  for (int dropped = 0; dropped < 3; ++dropped) {
    if (name.empty()) return std::nullopt;
    DropLastCharacter(name);
  }
  return std::string(name) + "zu";
}

std::string GetFilePath(std::string_view path) {
  return std::string(path.substr(0, path.size() - model::FileNameOf(path).size()));
}

}  // namespace setup
