#include "model/arithmetic.h"

#include <limits>
#include <string>

namespace model {

double NearestWhole(double value) {
  // remainder() rounds its quotient to nearest-even whatever the floating-point environment says.
  return value - std::remainder(value, 1.0);
}

namespace {

template <class Whole>
Whole NearestIn(double value) {
  const double whole = NearestWhole(value);
  if (!(whole >= double(std::numeric_limits<Whole>::min()) &&
        whole <= double(std::numeric_limits<Whole>::max())))
    throw Overflow();
  return static_cast<Whole>(whole);
}

}  // namespace

std::int16_t Nearest(double value) { return NearestIn<std::int16_t>(value); }

std::int32_t NearestLong(double value) { return NearestIn<std::int32_t>(value); }

std::int16_t Add16(std::int16_t a, std::int16_t b) { return NearestIn<std::int16_t>(double(a + b)); }

double Divide(double a, double b, const char* reason) {
  if (b == 0.0) throw DivisionByZero(reason);
  return a / b;
}

void CountIn16Bits(std::size_t count, RecordTable table) {
  constexpr std::size_t kMost = 32767;
  if (count <= kMost) return;
  TooManyRecords fault(std::to_string(count) + " " + TableName(table) + ", at most 32767 can be drawn");
  fault.SetRecord({table, kMost}, {});
  throw fault;
}

}  // namespace model
