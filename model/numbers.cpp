#include "model/numbers.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cstdint>

#include "model/arithmetic.h"

namespace model {

namespace {

/// A number in decimal: 0.d1d2d3... times 10 to the power `Point`.
struct Decimal {
  bool Negative = false;
  std::string Digits;
  int Point = 0;
};

/// `digits` significant digits; with 0, as many as distinguish this single from its neighbours.
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
    if (c == '-') decimal.Negative = true;
    if (c >= '0' && c <= '9') decimal.Digits += c;
  }
  const std::size_t exponent = e + (all[e + 1] == '+' ? 2 : 1);
  std::from_chars(all.data() + exponent, all.data() + all.size(), decimal.Point);
  ++decimal.Point;
  return decimal;
}

/// Rounds to `decimals` places after the point, halves away from zero.
void RoundTo(Decimal& decimal, int decimals) {
  const int keep = decimal.Point + decimals;
  if (keep >= static_cast<int>(decimal.Digits.size())) return;
  const bool up = keep >= 0 && decimal.Digits[static_cast<std::size_t>(keep)] >= '5';
  decimal.Digits.resize(static_cast<std::size_t>(std::max(keep, 0)));
  if (!up) return;
  auto digit = decimal.Digits.rbegin();
  while (digit != decimal.Digits.rend() && *digit == '9') *digit++ = '0';
  if (digit != decimal.Digits.rend()) {
    ++*digit;
  } else {
    decimal.Digits.insert(decimal.Digits.begin(), '1');
    ++decimal.Point;
  }
}

/// Lays the digits out around the point, with at least `decimals` places.
std::string Layout(const Decimal& decimal, int decimals) {
  std::string whole;
  std::string fraction;
  for (int place = std::min(decimal.Point, 0);
       place < static_cast<int>(decimal.Digits.size()) || place < decimal.Point; ++place) {
    const bool given = place >= 0 && place < static_cast<int>(decimal.Digits.size());
    (place < decimal.Point ? whole : fraction) +=
        given ? decimal.Digits[static_cast<std::size_t>(place)] : '0';
  }
  fraction.erase(fraction.find_last_not_of('0') + 1);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  const bool zero = whole.empty() && fraction.empty();
  if (static_cast<int>(fraction.size()) < decimals) fraction.resize(static_cast<std::size_t>(decimals), '0');
  std::string text = decimal.Negative && !zero ? "-" : "";
  text += whole.empty() ? "0" : whole;
  if (!fraction.empty()) text += "." + fraction;
  return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Appends the digits from `at` on to `whole`, which wraps when there are too many; returns where they end.
std::size_t AfterDigits(std::string_view text, std::size_t at, std::uint64_t& whole) {
  for (; at < text.size() && IsDigit(text[at]); ++at)
    whole = whole * 10 + static_cast<std::uint64_t>(text[at] - '0');
  return at;
}

/// Converts the number at the start of `text`: digits with at most one point, and an exponent.
float Convert(std::string text, std::size_t point) {
  if (point < text.size()) text[point] = '.';
  double value = 0.0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  // The largest value that still rounds to a single is half a step above FLT_MAX.
  constexpr double kLimit = 0x1.ffffffp127;
  return read.ec == std::errc{} && value < kLimit ? static_cast<float>(value) : 0.0F;
}

}  // namespace

float ToNumber(std::string_view text) {
  // Up to 15 digits and their power of ten are exact in a double, so that one division rounds correctly.
  constexpr std::size_t kExactDigits = 15;
  static constexpr double kTens[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  std::uint64_t whole = 0;
  const std::size_t point = AfterDigits(text, 0, whole);
  // A comma counts as a point; a second mark of either kind ends the number.
  const bool marked = point < text.size() && (text[point] == '.' || text[point] == ',');
  const std::size_t end = marked ? AfterDigits(text, point + 1, whole) : point;
  const std::size_t decimals = marked ? end - point - 1 : 0;
  const std::size_t digits = point + decimals;
  if (digits == 0) return 0.0F;
  const bool exponent = end < text.size() && (text[end] == 'e' || text[end] == 'E');
  const float value = digits > kExactDigits || exponent
                          ? Convert(std::string(text), marked ? point : text.size())
                          : static_cast<float>(double(whole) / kTens[decimals]);
  return negative ? -value : value;
}

std::string GeneralText(float value) { return GeneralText(value, 7); }

std::string GeneralText(double value) { return GeneralText(static_cast<float>(value)); }

std::string GeneralText(float value, int digits) { return Layout(ToDecimal(value, digits), 0); }

double SevenDigits(double value) {
  const std::string text = GeneralText(Single(value));
  double shown = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), shown);
  return shown;
}

std::string FixedText(float value, int decimals) {
  Decimal decimal = ToDecimal(value, 0);
  RoundTo(decimal, decimals);
  return Layout(decimal, decimals);
}

}  // namespace model
