#include "yax/options/option_text.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

#include "model/text.h"
#include "yax/messages.h"

namespace yax {

namespace {

/// The number that the whole of `text` represents; empty when it is not a number or is out of range.
template <class Value>
std::optional<Value> Exactly(std::string_view text) {
  Value value{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

[[noreturn]] void Refuse(std::string_view option, std::string_view text, std::string_view wanted,
                         std::string_view advice) {
  std::string what(option);
  what.append(" ").append(model::Quoted(text)).append(" is not ").append(wanted);
  throw Unusable(CommandLine(), what, advice);
}

}  // namespace

float NumberOf(std::string_view option, std::string_view text) {
  return static_cast<float>(DoubleOf(option, text));
}

double DoubleOf(std::string_view option, std::string_view text) {
  const std::optional<double> value = Exactly<double>(text);
  if (!value || !(std::fabs(*value) <= double(FLT_MAX)))
    Refuse(option, text, "a number", "give one such as 12.5");
  return *value;
}

std::int16_t Whole16Of(std::string_view option, std::string_view text) {
  const std::optional<std::int16_t> value = Exactly<std::int16_t>(text);
  if (!value) Refuse(option, text, "a whole number", "give one from -32768 to 32767");
  return *value;
}

std::array<std::int16_t, 3> Whole16TripleOf(std::string_view option, std::string_view text) {
  std::array<std::int16_t, 3> triple{};
  std::string_view rest = text;
  for (std::size_t i = 0; i < triple.size(); ++i) {
    const std::size_t length = i + 1 < triple.size() ? rest.find(',') : rest.size();
    const std::optional<std::int16_t> value =
        length == std::string_view::npos ? std::nullopt : Exactly<std::int16_t>(rest.substr(0, length));
    if (!value) Refuse(option, text, "X,Y,Z", "give three whole numbers from -32768 to 32767, such as 0,0,5");
    triple[i] = *value;
    rest.remove_prefix(i + 1 < triple.size() ? length + 1 : length);
  }
  return triple;
}

render::PixelSize SizeOf(std::string_view option, std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross != std::string_view::npos) {
    const std::optional<int> width = Exactly<int>(text.substr(0, cross));
    const std::optional<int> height = Exactly<int>(text.substr(cross + 1));
    if (width && height && *width > 0 && *height > 0) return {*width, *height};
  }
  Refuse(option, text, "a size", "give WIDTHxHEIGHT in pixels, such as 1024x768");
}

}  // namespace yax
