#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <cmath>
#include <limits>

using namespace core;

TEST(NumberText, FormatNumberIsPrintfPercentPoint15G) {
  struct Case { double value; const char* text; };
  const Case cases[] = {
      {2 * 3.14159265358979, "6.28318530717958"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {0.1 + 0.2, "0.3"},
      {0.0001, "0.0001"},
      {0.000012345, "1.2345E-05"},
      {999999999999999, "999999999999999"},
      {1E15, "1E+15"},
      {1234567890123456, "1.23456789012346E+15"},
      {12345678.9012345678, "12345678.9012346"},
      {1.7976931348623157E+308, "1.79769313486232E+308"},
      {std::pow(2, 0.5), "1.4142135623731"},
      {-1, "-1"},
      {0, "0"},
      {-0.0, "0"},
      {3.14159265358979, "3.14159265358979"},
      {2.71828182845905, "2.71828182845905"},
      {12001, "12001"},
      {-2.5, "-2.5"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatNumber(c.value), c.text) << c.text;
}

TEST(NumberText, StrPutsABlankBeforeNumbersThatAreNotNegative) {
  EXPECT_EQ(Str(18), " 18");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Str(44), " 44");
  EXPECT_EQ(Str(-1), "-1");
}

TEST(NumberText, NumericPrefixTakesTheLongestLeadingNumber) {
  struct Case { const char* text; double value; };
  const Case cases[] = {
      {"12", 12},         {"  12abc", 12},    {"-1.5e3x", -1500}, {"1e", 1},
      {"1e+", 1},         {".5", 0.5},        {"10.", 10},        {"abc", 0},
      {"", 0},            {"   ", 0},         {"+7", 7},          {"1,5", 1},
      {"3.14.15", 3.14},  {"-", 0},           {".", 0},           {"0x10", 0},
      {"1e999", 1},       {"5E-3", 0.005},    {"\t 42", 42},      {"1e-999", 0},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(NumericPrefix(c.text), c.value) << c.text;
}

TEST(NumberText, NumericPrefixOfAHugeMantissaStaysFinite) {
  const double value = NumericPrefix(QString(400, u'9'));
  EXPECT_TRUE(std::isfinite(value));
  EXPECT_GT(value, 1e307);
}

TEST(NumberText, StrictConversionAcceptsWholeNumbersOnly) {
  EXPECT_DOUBLE_EQ(StrictToDouble("2.5"), 2.5);
  EXPECT_DOUBLE_EQ(StrictToDouble("  -3e2 "), -300);
  for (const char* bad : {"", " ", "abc", "1x", "1,5", "1 2", "--1"}) {
    try {
      StrictToDouble(bad);
      ADD_FAILURE() << "no error for \"" << bad << "\"";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.Number(), RuntimeError::TypeMismatch) << bad;
    }
  }
  try {
    StrictToDouble("1e999");
    ADD_FAILURE() << "no overflow";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.Number(), RuntimeError::Overflow);
  }
}

TEST(NumberText, StrictBooleans) {
  EXPECT_TRUE(StrictToBoolean("True"));
  EXPECT_TRUE(StrictToBoolean("TRUE"));
  EXPECT_FALSE(StrictToBoolean("false"));
  EXPECT_TRUE(StrictToBoolean("-1"));
  EXPECT_FALSE(StrictToBoolean("0"));
  EXPECT_THROW(StrictToBoolean("yes"), RuntimeError);
  EXPECT_THROW(StrictToBoolean(""), RuntimeError);
  EXPECT_EQ(BooleanText(true), "True");
  EXPECT_EQ(BooleanText(false), "False");
}

TEST(NumberText, RoundingGoesToTheEvenNeighbour) {
  EXPECT_EQ(RoundToInt16(2.5), 2);
  EXPECT_EQ(RoundToInt16(3.5), 4);
  EXPECT_EQ(RoundToInt16(-2.5), -2);
  EXPECT_EQ(RoundToInt16(120.5), 120);
  EXPECT_EQ(RoundToInt32(1e9 + 0.5), 1000000000);
  EXPECT_THROW(RoundToInt16(32767.5), RuntimeError);
  EXPECT_THROW(RoundToInt16(-40000), RuntimeError);
  EXPECT_THROW(RoundToInt32(std::numeric_limits<double>::quiet_NaN()), RuntimeError);
  EXPECT_THROW(RoundToInt32(3e9), RuntimeError);
}

TEST(NumberText, MaxValueGivesTheSecondWhenEqual) {
  EXPECT_EQ(MaxValue(1, 2), 2);
  EXPECT_EQ(MaxValue(3, 2), 3);
  EXPECT_TRUE(std::signbit(MaxValue(0.0, -0.0)));
  EXPECT_FALSE(std::signbit(MaxValue(-0.0, 0.0)));
}
