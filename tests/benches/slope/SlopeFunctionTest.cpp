#include "benches/slope/SlopeFunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

namespace {

// The cases' names for the test list: their texts, with the characters a test name cannot hold
// replaced, so that each run lists them under the same names.
std::string Plain(std::string text) {
  for (char& c : text) {
    if (c == '[' || c == ']' || c == ';' || c == '#' || c == '\\' || c == '"' || c == '$') c = '_';
  }
  return text;
}

struct SlopeCase {
  const char* Text;
  double X0;
  double H;
  double Secant;
  double Tangent;
  const char* Derivative;
};

void PrintTo(const SlopeCase& c, std::ostream* os) {
  *os << Plain(std::string(c.Text) + " at " + std::to_string(c.X0) + " step " + std::to_string(c.H));
}

class SlopeCases : public ::testing::TestWithParam<SlopeCase> {};

TEST_P(SlopeCases, SecantTangentAndDerivativeText) {
  const SlopeCase& c = GetParam();
  slope::SlopeFunction f;
  f.SetText(QString::fromUtf8(c.Text));
  ASSERT_TRUE(f.Ok()) << f.Problem().toStdString();
  ASSERT_TRUE(f.HasDerivative());
  EXPECT_EQ(f.DerivativeText(), QString::fromUtf8(c.Derivative));
  EXPECT_DOUBLE_EQ(f.SecantSlope(c.X0, c.H), c.Secant);
  EXPECT_DOUBLE_EQ(f.Slope(c.X0), c.Tangent);
}

INSTANTIATE_TEST_SUITE_P(Slope, SlopeCases,
                         ::testing::Values(SlopeCase{"x^2", 1, 0.5, 2.5, 2, "2*x"},
                                           SlopeCase{"y=x^2", 1, 0.5, 2.5, 2, "2*x"},
                                           SlopeCase{"sin(x)", 0, 0.5, std::sin(0.5) / 0.5, 1, "cos(x)"},
                                           SlopeCase{"x^3", 2, 1, 19, 12, "3*x^2"},
                                           SlopeCase{"x^2", 1, -0.5, 1.5, 2, "2*x"},
                                           SlopeCase{"2x+1", -3, 0.25, 2, 2, "2"}));

struct ProblemCase {
  const char* Text;
  const char* Says;
};

void PrintTo(const ProblemCase& c, std::ostream* os) { *os << Plain(std::string(c.Text)); }

class ProblemCases : public ::testing::TestWithParam<ProblemCase> {};

TEST_P(ProblemCases, SaysWhyInWords) {
  const ProblemCase& c = GetParam();
  slope::SlopeFunction f;
  f.SetText(QString::fromUtf8(c.Text));
  EXPECT_FALSE(f.Ok());
  EXPECT_FALSE(f.HasDerivative());
  EXPECT_TRUE(f.Problem().contains(QString::fromUtf8(c.Says))) << f.Problem().toStdString();
  EXPECT_TRUE(std::isnan(f.Value(1)));
  EXPECT_TRUE(std::isnan(f.SecantSlope(1, 0.5)));
}

INSTANTIATE_TEST_SUITE_P(Slope, ProblemCases,
                         ::testing::Values(ProblemCase{"x^2+y^2=1", "implicit curve has no derivative"},
                                           ProblemCase{"(1,2),(3,4)", "list of points"},
                                           ProblemCase{"[1,2]", "list of points"},
                                           ProblemCase{"", "Type a function of x"},
                                           ProblemCase{"   ", "Type a function of x"}, ProblemCase{"x*y", "uses y"},
                                           ProblemCase{"sin(", "cannot be read"},
                                           ProblemCase{"foo(x)", "cannot be read"}));

TEST(SlopeFunction, ASecantWithoutTangentWhereTheDerivativeFails) {
  slope::SlopeFunction f;
  f.SetText(QStringLiteral("xlog(2,x)"));
  ASSERT_TRUE(f.Ok()) << f.Problem().toStdString();
  EXPECT_FALSE(f.HasDerivative());
  EXPECT_TRUE(f.DerivativeProblem().contains(QStringLiteral("cannot differentiate xlog(2,x)")));
  // log base x of 2: 1 at x = 2, 1/2 at x = 4.
  EXPECT_DOUBLE_EQ(f.SecantSlope(2, 2), -0.25);
  EXPECT_TRUE(std::isnan(f.Slope(2)));
}

TEST(SlopeFunction, UndefinedPointsAreNaN) {
  slope::SlopeFunction f;
  f.SetText(QStringLiteral("sqrt(x)"));
  ASSERT_TRUE(f.Ok());
  EXPECT_TRUE(std::isnan(f.Value(-1)));
  EXPECT_TRUE(std::isnan(f.SecantSlope(-1, 0.5)));
  EXPECT_TRUE(std::isnan(f.SecantSlope(1, 0)));
  EXPECT_DOUBLE_EQ(f.SecantSlope(1, 3), 1.0 / 3);
}

}  // namespace
