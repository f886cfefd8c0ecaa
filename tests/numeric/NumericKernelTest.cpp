#include "numeric/NumericKernel.h"
#include "numeric/VbRandom.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace numeric;

namespace {

bool Fails(double value) { return std::isnan(value); }

}  // namespace

TEST(NumericKernel, FailuresAreNaNNeverInfinities) {
  EXPECT_TRUE(Fails(Divide(1, 0)));
  EXPECT_TRUE(Fails(Divide(1e308, 1e-308)));
  EXPECT_TRUE(Fails(Power(-8, 1.0 / 3)));
  EXPECT_TRUE(Fails(Power(0, -1)));
  EXPECT_TRUE(Fails(Power(2, 1024)));
  EXPECT_TRUE(Fails(Ln(0)));
  EXPECT_TRUE(Fails(SquareRoot(-1)));
  EXPECT_DOUBLE_EQ(Power(-2, 3), -8);
  EXPECT_DOUBLE_EQ(Power(-2, -2), 0.25);
}

TEST(NumericKernel, ExpIsAPowerOfThe15DigitE) {
  EXPECT_EQ(Exp(1), 2.71828182845905);
  EXPECT_EQ(Exp(0), 1);
  EXPECT_NE(Exp(2), std::exp(2.0));
  EXPECT_TRUE(Fails(Exp(710)));
}

TEST(NumericKernel, InverseSinesAndCosinesAtTheirEnds) {
  EXPECT_EQ(Asin(1), 1.570796326794895);
  EXPECT_EQ(Asin(-1), -1.570796326794895);
  EXPECT_TRUE(Fails(Asin(1.0000001)));
  EXPECT_EQ(Acos(0), 3.14159265358979 / 2);
  EXPECT_DOUBLE_EQ(Acos(-1), 3.14159265358979);
  EXPECT_DOUBLE_EQ(Acos(1), 0);
  EXPECT_TRUE(Fails(Acos(-1.5)));
}

TEST(NumericKernel, Factorial) {
  EXPECT_EQ(Fact(3.7), 6);
  EXPECT_EQ(Fact(-3), -6);
  EXPECT_EQ(Fact(-2.5), -6);
  EXPECT_EQ(Fact(0), 1);
  EXPECT_TRUE(std::isfinite(Fact(170)));
  EXPECT_TRUE(Fails(Fact(171)));
  EXPECT_TRUE(Fails(Fact(1e300)));
}

TEST(NumericKernel, Roots) {
  EXPECT_DOUBLE_EQ(XRoot(-8, 3), -2);
  EXPECT_TRUE(Fails(XRoot(-8, 2)));
  EXPECT_DOUBLE_EQ(XRoot(8, 3), 2);
  EXPECT_EQ(XRoot(0, 2), 0);
  EXPECT_EQ(XRoot(0, 0), 0);     // even k, no division takes place
  EXPECT_TRUE(Fails(XRoot(8, 0)));
  EXPECT_TRUE(Fails(XRoot(-8, 0)));
  EXPECT_DOUBLE_EQ(XRoot(-32, 5), -2);
}

TEST(NumericKernel, Logarithms) {
  EXPECT_NEAR(XLog(8, 2), 3, 1e-15);
  EXPECT_TRUE(Fails(XLog(8, 0)));
  EXPECT_TRUE(Fails(XLog(8, 1)));
  EXPECT_TRUE(Fails(XLog(0, 10)));
  EXPECT_NEAR(XLog(1000, 10), 3, 1e-15);
}

TEST(NumericKernel, HyperbolicFunctions) {
  EXPECT_NEAR(Sinh(1), std::sinh(1.0), 1e-14);
  EXPECT_NEAR(Cosh(1), std::cosh(1.0), 1e-14);
  EXPECT_NEAR(Tanh(0.5), std::tanh(0.5), 1e-14);
  EXPECT_TRUE(Fails(Coth(0)));
  EXPECT_TRUE(Fails(Csch(0)));
  EXPECT_NEAR(Sech(0), 1, 1e-15);
  EXPECT_TRUE(Fails(Sech(800)));  // the overflow of a term fails, as computed
  EXPECT_NEAR(Asinh(2), std::asinh(2.0), 1e-14);
  EXPECT_NEAR(Acosh(2), std::acosh(2.0), 1e-14);
  EXPECT_TRUE(Fails(Acosh(0.5)));
  EXPECT_EQ(Acosh(-2), 0);
  EXPECT_NEAR(Atanh(0.5), std::atanh(0.5), 1e-14);
  EXPECT_EQ(Atanh(2), 0);
  EXPECT_TRUE(Fails(Atanh(1)));
  EXPECT_NEAR(Acsch(2), std::asinh(0.5), 1e-14);
  EXPECT_TRUE(Fails(Acsch(0)));
  EXPECT_NEAR(Asech(0.5), std::acosh(2.0), 1e-14);
  EXPECT_TRUE(Fails(Asech(0)));
  EXPECT_TRUE(Fails(Asech(2)));
  EXPECT_NEAR(Acoth(2), std::atanh(0.5), 1e-14);
  EXPECT_TRUE(Fails(Acoth(0.5)));
}

TEST(NumericKernel, Trigonometry) {
  EXPECT_EQ(Deg(180), 3.14159265358979);
  EXPECT_NEAR(Tan(1), std::tan(1.0), 1e-15);
  EXPECT_NEAR(Cot(1), 1 / std::tan(1.0), 1e-15);
  EXPECT_TRUE(Fails(Csc(0)));
  EXPECT_TRUE(Fails(Cot(0)));
  EXPECT_NEAR(Sec(0), 1, 1e-15);
  EXPECT_NEAR(Acot(0), 3.14159265358979 / 2, 1e-15);
  EXPECT_NEAR(Acsc(2), std::asin(0.5), 1e-15);
  EXPECT_NEAR(Asec(2), std::acos(0.5), 1e-15);
  EXPECT_TRUE(Fails(Acsc(0)));
}

TEST(VbRandom, TheSameSequenceOnEveryStartWithinZeroToOne) {
  VbRandom a;
  VbRandom b;
  for (int i = 0; i < 1000; ++i) {
    const float value = a.Next();
    EXPECT_EQ(value, b.Next());
    EXPECT_GE(value, 0.0f);
    EXPECT_LT(value, 1.0f);
  }
  const float last = a.Next();
  EXPECT_EQ(a.Next(0), last);  // 0 repeats the last value
  VbRandom c;
  VbRandom d;
  EXPECT_EQ(c.Next(-5), d.Next(-5));  // a negative argument reseeds
}
