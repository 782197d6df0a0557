#include "yax/options/zu_file.h"

#include <cctype>
#include <utility>

#include "model/faults.h"
#include "model/files.h"
#include "model/numbers.h"
#include "model/text.h"
#include "setup/parameter_file.h"
#include "yax/messages.h"

namespace yax {

namespace {

using setup::ParameterKey;

constexpr std::pair<ParameterKey, std::optional<float> LoopValues::*> kNumbers[] = {
    {ParameterKey::WireDiameter, &LoopValues::WireDiameter},
    {ParameterKey::Frequency, &LoopValues::Frequency},
    {ParameterKey::BaseLoopHeight, &LoopValues::BaseLoopHeight},
    {ParameterKey::BaseExtension, &LoopValues::BaseExtension},
    {ParameterKey::StackLoopHeight, &LoopValues::StackLoopHeight},
    {ParameterKey::StackExtension, &LoopValues::StackExtension},
    {ParameterKey::StitchExtension, &LoopValues::StitchExtension},
};

/// ToNumber takes anything; a value without a digit where a number begins would silently be 0.
bool BeginsNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('.') || text.starts_with(',')) text.remove_prefix(1);
  return !text.empty() && std::isdigit(static_cast<unsigned char>(text.front())) != 0;
}

std::string MaterialOf(const Place& place, std::string_view value) {
  for (const char* material : {"Au", "Al", "Cu"})
    if (model::UpperCase(value) == model::UpperCase(material)) return material;
  throw Unusable(place, model::Quoted(value) + " is not a wire material", "write Au, Al or Cu");
}

float NumberOf(const Place& place, std::string_view value) {
  if (!BeginsNumber(value))
    throw Unusable(place, model::Quoted(value) + " is not a number", "write one such as 12.5");
  return model::ToNumber(value);
}

void Take(const Place& place, const setup::Parameter& parameter, LoopValues& values) {
  if (parameter.Key == ParameterKey::Material) values.Material = MaterialOf(place, parameter.Value);
  for (const auto& [key, setting] : kNumbers)
    if (key == parameter.Key) values.*setting = NumberOf(place, parameter.Value);
}

}  // namespace

LoopValues ReadParameterFile(const std::string& path) {
  try {
    return ReadParameterText(path, model::ReadWholeFile(path));
  } catch (const model::FileFault& fault) {
    throw Unusable({.File = path}, fault.Kind(), "give the path of a .zu file");
  }
}

LoopValues ReadParameterText(const std::string& name, std::string_view text) {
  LoopValues values;
  for (const setup::ParameterLine& line : setup::ReadParameterLines(text, setup::KeyTexts::AsWritten)) {
    const Place place{.File = name, .Line = line.Number};
    if (line.Known) {
      Take(place, *line.Known, values);
    } else {
      Complain(place, model::Quoted(line.Text) + " has none of the nine keys and is ignored",
               "correct or remove it");
    }
  }
  return values;
}

}  // namespace yax
