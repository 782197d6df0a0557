#include "model/numbers.h"

#include <gtest/gtest.h>

#include <clocale>

#include "model/arithmetic.h"

namespace model {
namespace {

using Reads = std::pair<const char*, float>;
using Writes = std::pair<float, const char*>;

TEST(ToNumber, ReadsTheNumberAtTheStart) {
  for (const auto& [text, value] :
       {Reads("1.5", 1.5F), Reads("1,5", 1.5F), Reads("+2", 2.0F), Reads("-3.25mil", -3.25F),
        Reads(".5", 0.5F), Reads("5.", 5.0F), Reads("-.5", -0.5F), Reads("1e3", 1000.0F),
        Reads("1E-2x", 0.01F), Reads("2e", 2.0F), Reads("2e+", 2.0F), Reads("0x10", 0.0F),
        Reads("1,2,3", 1.2F), Reads("1.000,5", 1.0F), Reads("1,e2", 100.0F), Reads("3.4028235e38", FLT_MAX),
        Reads("16777217", 16777216.0F)})
    EXPECT_EQ(ToNumber(text), value) << text;
}

TEST(ToNumber, IsZeroWithoutANumberOrBeyondASingle) {
  // FLT_MAX is 3.40282347e38; the next step would be 3.40282367e38, and the half way point goes up.
  for (const char* text : {"", "-", ".", "+", "--1", "+-1", "-+1", "nan", "inf", "-inf", "e5", "x1", " ", ",",
                           "3.4028236e38", "-1e39", "1e999", "1e-999"})
    EXPECT_EQ(ToNumber(text), 0.0F) << text;
}

TEST(ToNumber, ReadsLongNumbersAndThoseWithAnExponentToo) {
  for (const auto& [text, value] :
       {Reads("0000000000000000000001.5", 1.5F), Reads("123456789012345678901234567890", 1.2345679e29F),
        Reads("99999999999999999999,5x", 1e20F), Reads("0.00000000000000000000000000000000000001", 1e-38F),
        Reads("1.5e1,5", 15.0F), Reads("1,5e+2.5", 150.0F), Reads("15.E-1", 1.5F),
        Reads("-12345678901234567890", -12345678901234567890.0F),
        // 15 digits are converted exactly; the half way point between two singles goes to the even one.
        Reads("16777217.0000000", 16777216.0F), Reads("16777219.0000000", 16777220.0F),
        Reads("16777217.0000001", 16777218.0F), Reads("999999999999999", 1e15F),
        Reads("0.00000000000001", 1e-14F)})
    EXPECT_EQ(ToNumber(text), value) << text;
}

TEST(NumberText, GeneralFormatHasSevenDigitsAndNoExponent) {
  for (const auto& [value, text] :
       {Writes(0.7F, "0.7"), Writes(1e9F, "1000000000"), Writes(-1.0F, "-1"), Writes(0.0F, "0"),
        Writes(1.0F / 3.0F, "0.3333333"), Writes(1e-10F, "0.0000000001"), Writes(123456.78F, "123456.8"),
        Writes(1e20F, "100000000000000000000"), Writes(-0.0F, "0")})
    EXPECT_EQ(GeneralText(value), text);
}

TEST(NumberText, FixedFormatRoundsDecimalHalvesAwayFromZero) {
  // The nearest single lies below 0.35: the decimal text decides.
  for (const auto& [value, text] :
       {Writes(1.25F, "1.3"), Writes(0.35F, "0.4"), Writes(-1.25F, "-1.3"), Writes(1.24F, "1.2"),
        Writes(9.96F, "10.0"), Writes(0.05F, "0.1"), Writes(0.005F, "0.0")})
    EXPECT_EQ(FixedText(value, 1), text);
  for (const auto& [value, text] : {Writes(0.9995F, "1.000"), Writes(0.0004F, "0.000"),
                                    Writes(-0.0004F, "0.000"), Writes(12.0F, "12.000")})
    EXPECT_EQ(FixedText(value, 3), text);
}

TEST(Arithmetic, NearestRoundsHalvesToEvenAndFaultsOutsideItsRange) {
  EXPECT_EQ(Nearest(0.5), 0);
  EXPECT_EQ(Nearest(1.5), 2);
  EXPECT_EQ(Nearest(-2.5), -2);
  EXPECT_EQ(Nearest(-0.51), -1);
  EXPECT_EQ(Nearest(32767.49), 32767);
  EXPECT_EQ(Nearest(-32768.5), -32768);  // the half goes to the even neighbour, which still fits
  EXPECT_THROW(Nearest(32767.5), Overflow);
  EXPECT_THROW(Nearest(-32768.51), Overflow);
  EXPECT_EQ(NearestLong(2147483647.4), 2147483647);
  EXPECT_THROW(NearestLong(2147483647.5), Overflow);
  EXPECT_EQ(Add16(32757, 10), 32767);
  EXPECT_THROW(Add16(32758, 10), Overflow);
  EXPECT_THROW(Add16(-32768, -1), Overflow);
}

TEST(Arithmetic, SinglesDivisionsAndCountersFault) {
  EXPECT_EQ(Single(double(FLT_MAX)), FLT_MAX);
  EXPECT_THROW(Single(1e39), Overflow);
  EXPECT_THROW(Single(0.0 / (Single(0.0) * 1.0)), Overflow);
  EXPECT_THROW(Divide(0.0, 0.0, "x"), DivisionByZero);
  EXPECT_NO_THROW(CountIn16Bits(32767, RecordTable::Rings));
  try {
    CountIn16Bits(32768, RecordTable::Rings);
    FAIL() << "no fault at 32768 records";
  } catch (const TooManyRecords& fault) {
    EXPECT_STREQ(fault.what(), "Run-time error: Overflow (32768 rings, at most 32767 can be drawn)");
    EXPECT_EQ(fault.Record(), (RecordPlace{RecordTable::Rings, 32767}));
  }
}

TEST(Faults, ComposeTheirMessageFromTheKnownParts) {
  DivisionByZero fault("its ends coincide");
  EXPECT_STREQ(fault.what(), "Run-time error: Division by zero (its ends coincide)");
  fault.SetRecord({RecordTable::Bonds, 7}, "wire VDD_L3");
  fault.SetRecord({RecordTable::Rings, 2}, "ring 3");  // the closest record stays
  EXPECT_EQ(fault.Record(), (RecordPlace{RecordTable::Bonds, 7}));
  EXPECT_STREQ(fault.what(), "Run-time error: Division by zero (wire VDD_L3: its ends coincide)");
  Overflow bare;
  EXPECT_STREQ(bare.what(), "Run-time error: Overflow");
  bare.SetRecord({RecordTable::Rings, 2}, "ring 3");
  EXPECT_STREQ(bare.what(), "Run-time error: Overflow (ring 3)");
}

}  // namespace
}  // namespace model
