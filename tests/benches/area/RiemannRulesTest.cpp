#include "benches/area/AreaFunction.h"
#include "benches/area/OrderStudy.h"
#include "benches/area/RiemannRules.h"
#include "numeric/NumericKernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace area {
namespace {

TEST(RiemannRules, SquareOnTheUnitIntervalWithFourPieces) {
  const AreaFunction f(QStringLiteral("x^2"));
  ASSERT_TRUE(f.Ok()) << f.Problem().toStdString();
  const auto at = [&f](double x) { return f.At(x); };
  const struct {
    Rule Which;
    double Sum;
  } cases[] = {{Rule::Left, 0.21875},
               {Rule::Right, 0.46875},
               {Rule::Midpoint, 0.328125},
               {Rule::Trapezoid, 0.34375},
               {Rule::Simpson, 1.0 / 3}};
  for (const auto& c : cases) {
    SCOPED_TRACE(RuleName(c.Which).toStdString());
    EXPECT_EQ(RiemannSum(at, 0, 1, 4, c.Which), c.Sum);  // exactly: every step is exact in binary
  }
}

TEST(RiemannRules, SimpsonTakesTheNextEvenCount) {
  EXPECT_EQ(UsableCount(Rule::Simpson, 5), 6);
  EXPECT_EQ(UsableCount(Rule::Simpson, 1), 2);
  EXPECT_EQ(UsableCount(Rule::Simpson, 6), 6);
  EXPECT_EQ(UsableCount(Rule::Left, 5), 5);
  const auto cube = [](double x) { return x * x * x; };
  // Simpson's rule is exact for cubics, with n = 3 taken as 4.
  EXPECT_NEAR(RiemannSum(cube, 0, 2, 3, Rule::Simpson), 4, 1e-14);
}

TEST(RiemannRules, UndefinedSamplesAndNoPieces) {
  const auto reciprocal = [](double x) { return x == 0 ? std::nan("") : 1 / x; };
  EXPECT_TRUE(std::isnan(RiemannSum(reciprocal, 0, 1, 4, Rule::Left)));
  EXPECT_FALSE(std::isnan(RiemannSum(reciprocal, 0, 1, 4, Rule::Right)));
  EXPECT_TRUE(std::isnan(RiemannSum(reciprocal, 0, 1, 0, Rule::Midpoint)));
}

TEST(AreaFunction, TheIntegralToFullPrecision) {
  const struct {
    const char* Text;
    double A, B, Integral;
  } cases[] = {{"x^2", 0, 1, 1.0 / 3},
               {"sin(x)", 0, std::numbers::pi, 2},
               // The program's exp(x) is its 15-digit e to the power x.
               {"exp(x)", 0, 1, (numeric::kE - 1) / std::log(numeric::kE)},
               {"1/(1+x^2)", 0, 1, std::numbers::pi / 4},
               {"2x+1", -1, 2, 6}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    const AreaFunction f(QString::fromUtf8(c.Text));
    ASSERT_TRUE(f.Ok());
    EXPECT_NEAR(f.Integral(c.A, c.B).Total, c.Integral, 4e-16 * std::max(1.0, std::abs(c.Integral)));
  }
}

TEST(AreaFunction, BadTextsSayWhy) {
  for (const char* text : {"", "x^", "y^2", "x=2", "sin(x", "t*x", "x;x>0", "foo(x)"}) {
    SCOPED_TRACE(text);
    const AreaFunction f(QString::fromUtf8(text));
    EXPECT_FALSE(f.Ok());
    EXPECT_FALSE(f.Problem().isEmpty());
  }
}

// Left and right sums of sin over [0, π] equal the trapezoid sum, since sin is 0 at both ends,
// so there they close in at order 2; over [0, π/2] they show their usual order 1.
TEST(OrderStudy, SlopesShowTheOrders) {
  const AreaFunction f(QStringLiteral("sin(x)"));
  const struct {
    double B;
    Rule Which;
    double Slope;
  } cases[] = {{std::numbers::pi, Rule::Left, -2},      {std::numbers::pi, Rule::Right, -2},
               {std::numbers::pi, Rule::Midpoint, -2},  {std::numbers::pi, Rule::Trapezoid, -2},
               {std::numbers::pi, Rule::Simpson, -4},   {std::numbers::pi / 2, Rule::Left, -1},
               {std::numbers::pi / 2, Rule::Right, -1}, {std::numbers::pi / 2, Rule::Midpoint, -2},
               {std::numbers::pi / 2, Rule::Trapezoid, -2}, {std::numbers::pi / 2, Rule::Simpson, -4}};
  for (const auto& c : cases) {
    SCOPED_TRACE(RuleName(c.Which).toStdString() + " to " + std::to_string(c.B));
    const OrderStudy study(f, 0, c.B, f.Integral(0, c.B).Total);
    EXPECT_EQ(study.Of(c.Which).Counts.size(), OrderStudy::StudiedCounts().size());
    EXPECT_NEAR(study.Of(c.Which).Slope, c.Slope, 0.1);
  }
}

TEST(OrderStudy, ExactRulesHaveNoLine) {
  // The midpoint, trapezoid and Simpson rules are exact for a straight line: no error to fit.
  const AreaFunction f(QStringLiteral("3x+1"));
  const OrderStudy study(f, 0, 2, 8);
  EXPECT_TRUE(std::isnan(study.Of(Rule::Simpson).Slope));
  EXPECT_TRUE(study.Of(Rule::Trapezoid).Errors.empty());
  EXPECT_NEAR(study.Of(Rule::Left).Slope, -1, 1e-9);
}

TEST(OrderStudy, FitSlope) {
  EXPECT_NEAR(OrderStudy::FitSlope({2, 4, 8}, {1, 0.25, 0.0625}), -2, 1e-12);
  EXPECT_TRUE(std::isnan(OrderStudy::FitSlope({2}, {1})));
}

}  // namespace
}  // namespace area
