#include "setup/parameter_file.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "model/input_error.h"
#include "model/numbers.h"
#include "model/text.h"

namespace setup {

namespace {

constexpr std::string_view kNewLine = "\r\n";

struct Key {
  ParameterKey Meaning;
  std::string_view Written;
  std::string_view Loaded;
};

// Deliberate: the window's load spells two keys differently from ParameterText, so in the window a saved file
// never restores these two extensions.
constexpr Key kKeys[] = {
    {ParameterKey::YaxFile, "YAXFILE", "YAXFILE"},
    {ParameterKey::Material, "MATERIAL", "MATERIAL"},
    {ParameterKey::WireDiameter, "WIREDIAMETER", "WIREDIAMETER"},
    {ParameterKey::Frequency, "FREQUENCY", "FREQUENCY"},
    {ParameterKey::BaseLoopHeight, "BASELOOPHEIGHT", "BASELOOPHEIGHT"},
    {ParameterKey::BaseExtension, "BASEEXTENSION", "BASEEXTENSTON"},
    {ParameterKey::StackLoopHeight, "STACKLOOPHEIGHT", "STACKLOOPHEIGHT"},
    {ParameterKey::StackExtension, "STACKEXTENSION", "STACKEXTENSION"},
    {ParameterKey::StitchExtension, "STICHEXTENSION", "STICHEXTENSTON"},
};

std::optional<Parameter> ReadLine(std::string_view line, KeyTexts texts) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  for (const Key& key : kKeys)
    if (model::EqualsUpper(line.substr(0, equals), texts == KeyTexts::AsWritten ? key.Written : key.Loaded))
      return Parameter{key.Meaning, line.substr(equals + 1)};
  return std::nullopt;
}

constexpr std::pair<ParameterKey, std::optional<float> ParameterValues::*> kNumbers[] = {
    {ParameterKey::WireDiameter, &ParameterValues::WireDiameter},
    {ParameterKey::Frequency, &ParameterValues::Frequency},
    {ParameterKey::BaseLoopHeight, &ParameterValues::BaseLoopHeight},
    {ParameterKey::BaseExtension, &ParameterValues::BaseExtension},
    {ParameterKey::StackLoopHeight, &ParameterValues::StackLoopHeight},
    {ParameterKey::StackExtension, &ParameterValues::StackExtension},
    {ParameterKey::StitchExtension, &ParameterValues::StitchExtension},
};

/// Checks first, because ToNumber silently reads text without a number as 0.
bool BeginsNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('.') || text.starts_with(',')) text.remove_prefix(1);
  return !text.empty() && std::isdigit(static_cast<unsigned char>(text.front())) != 0;
}

std::string MaterialOf(const model::FilePlace& place, std::string_view value) {
  for (const model::WireMaterial& material : model::kWireMaterials)
    if (model::UpperCase(value) == model::UpperCase(material.Name)) return material.Name;
  throw model::InputError(place, model::Quoted(value) + " is not a wire material", "write Au, Al or Cu");
}

float NumberOf(const model::FilePlace& place, std::string_view value) {
  if (!BeginsNumber(value))
    throw model::InputError(place, model::Quoted(value) + " is not a number", "write one such as 12.5");
  return model::ToNumber(value);
}

void Take(const model::FilePlace& place, const Parameter& parameter, ParameterValues& values) {
  if (parameter.Key == ParameterKey::YaxFile) values.PackageName = parameter.Value;
  if (parameter.Key == ParameterKey::Material) values.Material = MaterialOf(place, parameter.Value);
  for (const auto& [key, setting] : kNumbers)
    if (key == parameter.Key) values.*setting = NumberOf(place, parameter.Value);
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
    text.append(key).append(value).append(kNewLine);
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
  // Deliberate: the key's spelling, and that it is written only with a stacked die, although every stitch has
  // an extension.
  line("StichExtension=", model::GeneralText(settings.StitchExtension));
  return text;
}

std::vector<ParameterLine> ReadParameterLines(std::string_view text, KeyTexts texts) {
  std::vector<ParameterLine> lines;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find_first_of(kNewLine), text.size());
    const std::string_view line = text.substr(0, end);
    if (!line.empty()) lines.push_back({number, line, ReadLine(line, texts)});
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(kNewLine) ? kNewLine.size() : std::min<std::size_t>(text.size(), 1));
  }
  return lines;
}

std::vector<Parameter> ReadParameters(std::string_view text) {
  std::vector<Parameter> parameters;
  for (const ParameterLine& line : ReadParameterLines(text, KeyTexts::OfLoad))
    if (line.Known) parameters.push_back(*line.Known);
  return parameters;
}

ParameterValues ReadParameterValues(std::string_view text, const std::string& file,
                                    const std::function<void(const ParameterLine&)>& onUnknown) {
  ParameterValues values;
  for (const ParameterLine& line : ReadParameterLines(text, KeyTexts::AsWritten)) {
    if (line.Known)
      Take({.File = file, .Line = line.Number}, *line.Known, values);
    else if (onUnknown)
      onUnknown(line);
  }
  return values;
}

void Apply(const ParameterValues& values, model::WireBondSettings& settings) {
  const auto set = [](auto& setting, const auto& value) {
    if (value) setting = *value;
  };
  set(settings.Material, values.Material);
  set(settings.WireDiameter, values.WireDiameter);
  set(settings.Frequency, values.Frequency);
  set(settings.BaseLoopHeight, values.BaseLoopHeight);
  set(settings.StackLoopHeight, values.StackLoopHeight);
  set(settings.BaseExtension, values.BaseExtension);
  set(settings.StackExtension, values.StackExtension);
  set(settings.StitchExtension, values.StitchExtension);
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
