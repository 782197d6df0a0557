/// The program's arithmetic: 16-bit whole numbers, singles and divisions that fault instead of wrapping.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>

#include "model/faults.h"

namespace model {

/// Deliberate: the drawing converts angles with pi in single precision, which is 9e-8 above std::numbers::pi.
inline constexpr double kSinglePi = double(std::numbers::pi_v<float>);

/// Rounds a result to single precision, in which all lengths and angles are stored.
/// Faults  Overflow beyond the range of a single (infinities and not-a-numbers included)
inline float Single(double value) {
  if (!(std::fabs(value) <= double(FLT_MAX))) throw Overflow();
  return static_cast<float>(value);
}

/// The nearest whole number, halves to even.
double NearestWhole(double value);

/// The nearest 16-bit whole number, halves to even.
/// Faults  Overflow outside -32768 .. 32767
std::int16_t Nearest(double value);

/// The nearest 32-bit whole number, halves to even.
/// Faults  Overflow outside the 32-bit range
std::int32_t NearestLong(double value);

/// a + b in 16 bits.
/// Faults  Overflow
std::int16_t Add16(std::int16_t a, std::int16_t b);

/// a / b, where b comes from a file.
/// Faults  DivisionByZero when b is 0 (0/0 too), with `reason`
double Divide(double a, double b, const char* reason);

/// Checks that a 16-bit counter can count the `count` records of a table.
/// Faults  TooManyRecords from 32,768 records on; the fault's record is the first one beyond the limit
void CountIn16Bits(std::size_t count, RecordTable table);

}  // namespace model
