#include "yax/zu_file.h"

#include <array>
#include <cctype>
#include <utility>

#include "model/faults.h"
#include "model/files.h"
#include "model/numbers.h"
#include "model/text.h"
#include "yax/messages.h"

namespace yax {

namespace {

constexpr std::pair<std::string_view, std::optional<float> LoopValues::*> kNumbers[] = {
    {"WIREDIAMETER", &LoopValues::WireDiameter},
    {"FREQUENCY", &LoopValues::Frequency},
    {"BASELOOPHEIGHT", &LoopValues::BaseLoopHeight},
    {"BASEEXTENSION", &LoopValues::BaseExtension},
    {"STACKLOOPHEIGHT", &LoopValues::StackLoopHeight},
    {"STACKEXTENSION", &LoopValues::StackExtension},
    // Deliberate: this is how the file spells it.
    {"STICHEXTENSION", &LoopValues::StitchExtension},
};

/// ToNumber takes anything; a value without a digit where a number begins would silently be 0.
bool BeginsNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  if (text.starts_with('.') || text.starts_with(',')) text.remove_prefix(1);
  return !text.empty() && std::isdigit(static_cast<unsigned char>(text.front())) != 0;
}

std::string Quoted(std::string_view text) { return std::string(1, '\'').append(text).append(1, '\''); }

std::string MaterialOf(const Place& place, std::string_view value) {
  for (const char* material : {"Au", "Al", "Cu"})
    if (model::UpperCase(value) == model::UpperCase(material)) return material;
  throw Unusable(place, Quoted(value) + " is no wire material", "write Au, Al or Cu");
}

void TakeLine(const Place& place, std::string_view line, LoopValues& values) {
  const std::size_t equals = line.find('=');
  const std::string_view value = equals == std::string_view::npos ? "" : line.substr(equals + 1);
  const std::string key = model::UpperCase(line.substr(0, equals));
  if (equals != std::string_view::npos) {
    for (const auto& [name, setting] : kNumbers) {
      if (key != name) continue;
      if (!BeginsNumber(value))
        throw Unusable(place, Quoted(value) + " is not a number", "write one such as 12.5");
      values.*setting = model::ToNumber(value);
      return;
    }
    if (key == "MATERIAL") {
      values.Material = MaterialOf(place, value);
      return;
    }
    if (key == "YAXFILE") return;
  }
  Complain(place, Quoted(line) + " holds none of the nine keys and is ignored", "correct or remove it");
}

}  // namespace

LoopValues ReadParameterFile(const std::string& path) {
  try {
    return ReadParameterText(path, model::ReadWholeFile(path));
  } catch (const model::Fault& fault) {
    throw Unusable({.File = path}, fault.what(), "give the path of a .zu file");
  }
}

LoopValues ReadParameterText(const std::string& name, std::string_view text) {
  LoopValues values;
  Place place{.File = name};
  while (!text.empty()) {
    ++place.Line;
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty()) TakeLine(place, line, values);
  }
  return values;
}

}  // namespace yax
