#include "model/numbers.h"

#include <gtest/gtest.h>

#include <clocale>

#include "model/arithmetic.h"

namespace model {
namespace {

TEST(ToNumber, ReadsTheNumberAtTheStart) {
  const std::pair<const char*, float> cases[] = {
      {"1.5", 1.5F},
      {"1,5", 1.5F},
      {"+2", 2.0F},
      {"-3.25mil", -3.25F},
      {".5", 0.5F},
      {"5.", 5.0F},
      {"-.5", -0.5F},
      {"1e3", 1000.0F},
      {"1E-2x", 0.01F},
      {"2e", 2.0F},
      {"2e+", 2.0F},
      {"0x10", 0.0F},
      {"1,2,3", 1.2F},
      {"1.000,5", 1.0F},
      {"1,e2", 100.0F},
      {"3.4e38", 3.4e38F},
      {"16777217", 16777216.0F},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(ToNumber(text), value) << text;
}

TEST(ToNumber, IsZeroWithoutANumberOrBeyondASingle) {
  for (const char* text : {"", "-", ".", "+", "--1", "+-1", "-+1", "nan", "inf", "-inf", "e5", "x1", " ", ",",
                           "3.5e38", "-1e39", "1e999", "1e-999"})
    EXPECT_EQ(ToNumber(text), 0.0F) << text;
}

TEST(ToNumber, ReadsLongNumbersAndThoseWithAnExponentToo) {
  const std::pair<const char*, float> cases[] = {
      {"0000000000000000000001.5", 1.5F},
      {"123456789012345678901234567890", 1.2345679e29F},
      {"99999999999999999999,5x", 1e20F},
      {"0.00000000000000000000000000000000000001", 1e-38F},
      {"1.5e1,5", 15.0F},
      {"1,5e+2.5", 150.0F},
      {"15.E-1", 1.5F},
      {"-12345678901234567890", -12345678901234567890.0F},
      // 15 digits are converted exactly; the half way point between two singles goes to the even one.
      {"16777217.0000000", 16777216.0F},
      {"16777219.0000000", 16777220.0F},
      {"16777217.0000001", 16777218.0F},
      {"999999999999999", 1e15F},
      {"0.00000000000001", 1e-14F},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(ToNumber(text), value) << text;
}

TEST(ToNumber, RoundsToSingleAtTheEndOfTheRange) {
  // FLT_MAX is 3.40282347e38; the next step would be 3.40282367e38, and the half way point goes up.
  EXPECT_EQ(ToNumber("3.4028235e38"), FLT_MAX);
  EXPECT_EQ(ToNumber("3.4028236e38"), 0.0F);
}

TEST(NumberText, GeneralFormatHasSevenDigitsAndNoExponent) {
  const std::pair<float, const char*> cases[] = {
      {0.7F, "0.7"},
      {1.25F, "1.25"},
      {1e9F, "1000000000"},
      {-1.0F, "-1"},
      {0.0F, "0"},
      {1.0F / 3.0F, "0.3333333"},
      {1e-10F, "0.0000000001"},
      {123456.78F, "123456.8"},
      {1e20F, "100000000000000000000"},
      {-0.0F, "0"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(GeneralText(value), text);
}

TEST(NumberText, FixedFormatRoundsDecimalHalvesAwayFromZero) {
  EXPECT_EQ(FixedText(1.25F, 1), "1.3");
  EXPECT_EQ(FixedText(0.35F, 1), "0.4");  // the nearest single lies below 0.35: the decimal text decides
  EXPECT_EQ(FixedText(-1.25F, 1), "-1.3");
  EXPECT_EQ(FixedText(1.24F, 1), "1.2");
  EXPECT_EQ(FixedText(9.96F, 1), "10.0");
  EXPECT_EQ(FixedText(0.9995F, 3), "1.000");
  EXPECT_EQ(FixedText(0.0004F, 3), "0.000");
  EXPECT_EQ(FixedText(-0.0004F, 3), "0.000");
  EXPECT_EQ(FixedText(0.05F, 1), "0.1");
  EXPECT_EQ(FixedText(0.005F, 1), "0.0");
  EXPECT_EQ(FixedText(12.0F, 3), "12.000");
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
  EXPECT_NO_THROW(CountIn16Bits(32767, "rings"));
  EXPECT_THROW(CountIn16Bits(32768, "rings"), Overflow);
}

TEST(Faults, ComposeTheirMessageFromTheKnownParts) {
  DivisionByZero fault("its ends coincide");
  EXPECT_STREQ(fault.what(), "Run-time error: Division by zero (its ends coincide)");
  fault.NameRecord("wire VDD_L3");
  fault.NameRecord("scene");  // the closest name stays
  EXPECT_STREQ(fault.what(), "Run-time error: Division by zero (wire VDD_L3: its ends coincide)");
  Overflow bare;
  EXPECT_STREQ(bare.what(), "Run-time error: Overflow");
  bare.NameRecord("ring 3");
  EXPECT_STREQ(bare.what(), "Run-time error: Overflow (ring 3)");
}

}  // namespace
}  // namespace model
