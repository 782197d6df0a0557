#include "model/numbers.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>

namespace model {

namespace {

/// A number in decimal: 0.d1d2d3... times 10 to the power `point`.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

/// `digits` significant digits, or as many as it takes to tell this single from its neighbours when 0.
Decimal ToDecimal(float value, int digits) {
  std::array<char, 64> text{};
  char* const first = text.data();
  char* const last = first + text.size();
  const auto written = digits == 0
                           ? std::to_chars(first, last, value, std::chars_format::scientific)
                           : std::to_chars(first, last, value, std::chars_format::scientific, digits - 1);
  const std::string_view all(first, static_cast<std::size_t>(written.ptr - first));
  const std::size_t e = all.find('e');
  Decimal decimal;
  for (const char c : all.substr(0, e)) {
    if (c == '-') decimal.negative = true;
    if (c >= '0' && c <= '9') decimal.digits += c;
  }
  const std::size_t exponent = e + (all[e + 1] == '+' ? 2 : 1);
  std::from_chars(all.data() + exponent, all.data() + all.size(), decimal.point);
  ++decimal.point;
  return decimal;
}

/// Rounds to `decimals` places after the point, halves away from zero.
void RoundTo(Decimal& decimal, int decimals) {
  const int keep = decimal.point + decimals;
  if (keep >= static_cast<int>(decimal.digits.size())) return;
  const bool up = keep >= 0 && decimal.digits[static_cast<std::size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(std::max(keep, 0)));
  if (!up) return;
  auto digit = decimal.digits.rbegin();
  while (digit != decimal.digits.rend() && *digit == '9') *digit++ = '0';
  if (digit != decimal.digits.rend()) {
    ++*digit;
  } else {
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.point;
  }
}

/// Lays the digits out round the point, with at least `decimals` places.
std::string Layout(const Decimal& decimal, int decimals) {
  std::string whole;
  std::string fraction;
  for (int place = std::min(decimal.point, 0);
       place < static_cast<int>(decimal.digits.size()) || place < decimal.point; ++place) {
    const bool given = place >= 0 && place < static_cast<int>(decimal.digits.size());
    (place < decimal.point ? whole : fraction) +=
        given ? decimal.digits[static_cast<std::size_t>(place)] : '0';
  }
  fraction.erase(fraction.find_last_not_of('0') + 1);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  const bool zero = whole.empty() && fraction.empty();
  if (static_cast<int>(fraction.size()) < decimals) fraction.resize(static_cast<std::size_t>(decimals), '0');
  std::string text = decimal.negative && !zero ? "-" : "";
  text += whole.empty() ? "0" : whole;
  if (!fraction.empty()) text += "." + fraction;
  return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The part of `text` from which from_chars reads just the numbers of ours: no "inf", no "nan", and "+"
/// allowed.
std::string_view NumberPart(std::string_view text) {
  const bool plus = text.starts_with('+');
  if (plus) text.remove_prefix(1);
  const std::size_t digits = !plus && text.starts_with('-') ? 1 : 0;
  const bool number = text.size() > digits && (IsDigit(text[digits]) || text[digits] == '.');
  return number ? text : std::string_view{};
}

float Parse(std::string_view text) {
  const std::string_view number = NumberPart(text);
  double value = 0.0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec != std::errc{}) return 0.0F;
  // The largest value that still rounds to a single is half a step above FLT_MAX.
  constexpr double kLimit = 0x1.ffffffp127;
  return std::fabs(value) < kLimit ? static_cast<float>(value) : 0.0F;
}

}  // namespace

float ToNumber(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return Parse(text);
  std::string withPoint(text);
  withPoint[comma] = '.';
  return Parse(withPoint);
}

std::string GeneralText(float value) { return Layout(ToDecimal(value, 7), 0); }

std::string FixedText(float value, int decimals) {
  Decimal decimal = ToDecimal(value, 0);
  RoundTo(decimal, decimals);
  return Layout(decimal, decimals);
}

}  // namespace model
