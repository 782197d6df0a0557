/// Numbers as text, read and written alike in every locale.
#pragma once

#include <string>
#include <string_view>

namespace model {

/// Reads the number at the start of `text`: optional sign, digits with at most one point,
/// optional exponent. The first "," counts as "."; what follows the number is ignored.
/// Returns 0 when there is no number, or when it is beyond the range of a single.
float ToNumber(std::string_view text);

/// The general number format: at most 7 significant digits, no exponent, no trailing zeros ("0.7",
/// "1000000000").
std::string GeneralText(float value);
/// The same of a double, which is rounded to a single first.
std::string GeneralText(double value);
/// The same with this many significant digits.
std::string GeneralText(float value, int digits);

/// Rounds to the seven digits that GeneralText shows.
/// Faults  Overflow beyond the range of a single
double SevenDigits(double value);

/// A fixed number of decimals; decimal halves round away from zero ("0.0": 1.25 gives "1.3").
std::string FixedText(float value, int decimals);

}  // namespace model
