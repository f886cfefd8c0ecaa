#include "benches/chain/ChainCheck.h"
#include "benches/chain/ChainRule.h"

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

using chain::ChainRule;

struct StepCase {
  const char* F;
  const char* G;
  const char* Composition;
  const char* InnerSlope;
  const char* OuterSlope;
  const char* OuterAtInner;
  const char* Product;
};

void PrintTo(const StepCase& c, std::ostream* os) { *os << Plain(std::string(c.F) + " of " + c.G); }

class StepCases : public ::testing::TestWithParam<StepCase> {};

TEST_P(StepCases, EachStepHasTheEnginesText) {
  const StepCase& c = GetParam();
  ChainRule rule;
  rule.Set(QString::fromUtf8(c.F), QString::fromUtf8(c.G));
  ASSERT_TRUE(rule.Ok()) << rule.Problem().toStdString();
  const auto& steps = rule.Steps();
  EXPECT_EQ(steps[ChainRule::Composition].Text, QString::fromUtf8(c.Composition));
  EXPECT_EQ(steps[ChainRule::InnerSlope].Text, QString::fromUtf8(c.InnerSlope));
  EXPECT_EQ(steps[ChainRule::OuterSlope].Text, QString::fromUtf8(c.OuterSlope));
  EXPECT_EQ(steps[ChainRule::OuterAtInner].Text, QString::fromUtf8(c.OuterAtInner));
  EXPECT_EQ(steps[ChainRule::Product].Text, QString::fromUtf8(c.Product));
}

INSTANTIATE_TEST_SUITE_P(
    Chain, StepCases,
    ::testing::Values(StepCase{"sin(x)", "x^2", "sin((x^2))", "2*x", "cos(x)", "cos((x^2))", "(2*x)*(cos((x^2)))"},
                      StepCase{"y=sin(x)", "y=x^2", "sin((x^2))", "2*x", "cos(x)", "cos((x^2))", "(2*x)*(cos((x^2)))"},
                      StepCase{"x^3", "2x+1", "(2x+1)^3", "2", "3*x^2", "3*(2x+1)^2", "2*(3*(2x+1)^2)"},
                      StepCase{"exp(x)", "3x", "exp((3x))", "3", "exp(x)", "exp((3x))", "3*(exp((3x)))"}));

struct SubstituteCase {
  const char* Text;
  const char* Inner;
  const char* Result;
};

void PrintTo(const SubstituteCase& c, std::ostream* os) { *os << Plain(std::string(c.Text) + " with " + c.Inner); }

class SubstituteCases : public ::testing::TestWithParam<SubstituteCase> {};

TEST_P(SubstituteCases, PutTheInnerTextInForEveryX) {
  const SubstituteCase& c = GetParam();
  EXPECT_EQ(ChainRule::Substitute(QString::fromUtf8(c.Text), QString::fromUtf8(c.Inner)), QString::fromUtf8(c.Result));
}

INSTANTIATE_TEST_SUITE_P(
    Chain, SubstituteCases,
    ::testing::Values(SubstituteCase{"sin(x)", "x^2", "sin((x^2))"}, SubstituteCase{"exp(x)", "2", "exp((2))"},
                      SubstituteCase{"xroot(x,3)", "u", "xroot((u),3)"}, SubstituteCase{"2x", "a+1", "2(a+1)"},
                      SubstituteCase{"x sin(x)", "g", "(g) sin((g))"}, SubstituteCase{"X^2", "y", "(y)^2"},
                      SubstituteCase{"x2", "x+1", "(x+1)2"}, SubstituteCase{"sinh(x)*pi", "x", "sinh((x))*pi"}));

TEST(ChainRule, TheProductOfSinOfXSquaredIsTwoXCosXSquared) {
  ChainRule rule;
  rule.Set(QStringLiteral("sin(x)"), QStringLiteral("x^2"));
  for (const double x : {-1.7, -0.3, 0.4, 1.1, 2.6}) {
    EXPECT_NEAR(rule.Value(ChainRule::Product, x), 2 * x * std::cos(x * x), 1e-12) << x;
    EXPECT_NEAR(rule.Value(ChainRule::Composition, x), std::sin(x * x), 1e-12) << x;
  }
  EXPECT_EQ(rule.DirectText(), QStringLiteral("2*x*cos(x^2)"));
}

TEST(ChainRule, TheProductOfTheCubeOfALineIsSixTimesItsSquare) {
  ChainRule rule;
  rule.Set(QStringLiteral("x^3"), QStringLiteral("2x+1"));
  for (const double x : {-2.0, -0.5, 0.0, 1.5})
    EXPECT_DOUBLE_EQ(rule.Value(ChainRule::Product, x), 6 * (2 * x + 1) * (2 * x + 1));
}

struct ProblemCase {
  const char* F;
  const char* G;
  const char* Says;
};

void PrintTo(const ProblemCase& c, std::ostream* os) { *os << Plain(std::string(c.F) + " of " + c.G); }

class ProblemCases : public ::testing::TestWithParam<ProblemCase> {};

TEST_P(ProblemCases, SayWhatIsWrongInWords) {
  const ProblemCase& c = GetParam();
  ChainRule rule;
  rule.Set(QString::fromUtf8(c.F), QString::fromUtf8(c.G));
  EXPECT_FALSE(rule.Ok());
  EXPECT_TRUE(rule.Problem().contains(QString::fromUtf8(c.Says))) << rule.Problem().toStdString();
  EXPECT_TRUE(std::isnan(rule.Value(ChainRule::Product, 1)));
  EXPECT_FALSE(chain::ChainCheck::Run(rule).Agrees);
}

INSTANTIATE_TEST_SUITE_P(Chain, ProblemCases,
                         ::testing::Values(ProblemCase{"zork(x)", "x", "f cannot be read"},
                                           ProblemCase{"sin(x)", "q", "g cannot be read"},
                                           ProblemCase{"sin(x)", "blob(x)+1", "g cannot be read"},
                                           ProblemCase{"x^2+y^2=1", "x", "f = \"x^2+y^2=1\" is an equation"},
                                           ProblemCase{"(1,2),(3,4)", "x", "list of points"},
                                           ProblemCase{"", "x", "Type f"}, ProblemCase{"sin(x)", " ", "Type g"},
                                           ProblemCase{"sin(x)", "x*y", "g may use x alone, but it uses y"},
                                           ProblemCase{"xlog(2,x)", "x^2", "cannot differentiate f = xlog(2,x)"},
                                           ProblemCase{"x^2", "xlog(2,x)", "cannot differentiate g = xlog(2,x)"},
                                           ProblemCase{"sin(", "x", "f cannot be read"}));

struct CheckCase {
  const char* F;
  const char* G;
  bool Agrees;
  const char* Words;
};

void PrintTo(const CheckCase& c, std::ostream* os) { *os << Plain(std::string(c.F) + " of " + c.G); }

class CheckCases : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckCases, TheProductMeetsTheCentralDifference) {
  const CheckCase& c = GetParam();
  ChainRule rule;
  rule.Set(QString::fromUtf8(c.F), QString::fromUtf8(c.G));
  const auto result = chain::ChainCheck::Run(rule);
  EXPECT_EQ(result.Agrees, c.Agrees);
  EXPECT_EQ(result.Words, QString::fromUtf8(c.Words));
}

INSTANTIATE_TEST_SUITE_P(
    Chain, CheckCases,
    ::testing::Values(
        CheckCase{"sin(x)", "x^2", true,
                  "Checked at x = -1.7, -0.9, -0.3, 0.4, 1.1: agrees to 1e-9 with the central difference of f(g(x))."},
        CheckCase{"x^3", "2x+1", true,
                  "Checked at x = -1.7, -0.9, -0.3, 0.4, 1.1: agrees to 1e-9 with the central difference of f(g(x))."},
        CheckCase{"sqrt(x)", "x-5", true,
                  "Checked at x = 5.2, 7.5: agrees to 1e-9 with the central difference of f(g(x))."},
        CheckCase{"ln(x)", "x-10", false,
                  "Not checked: f(g(x)) or its derivative is undefined at every point tried."}));

// A jump of int at g(x) = -1, where x = -1.7: the rule's product is 0 there, but the function jumps.
TEST(ChainCheck, AJumpIsADisagreementInWords) {
  ChainRule rule;
  rule.Set(QStringLiteral("int(x)"), QStringLiteral("x+0.7"));
  const auto result = chain::ChainCheck::Run(rule);
  EXPECT_FALSE(result.Agrees);
  EXPECT_TRUE(result.Words.startsWith(
      QStringLiteral("At x = -1.7 the product g′(x)·f′(g(x)) gives 0, but the central difference of f(g(x)) gives ")))
      << result.Words.toStdString();
  EXPECT_TRUE(result.Words.endsWith(QStringLiteral(", more than 1e-9.")));
}

TEST(ChainCheck, TheCentralDifferenceIsNearlyExact) {
  const auto e = chain::ChainCheck::CentralDerivative([](double x) { return std::exp(x); }, 1);
  EXPECT_NEAR(e, std::exp(1.0), 1e-12);
  const auto c = chain::ChainCheck::CentralDerivative([](double x) { return std::sin(x * x); }, 2.6);
  EXPECT_NEAR(c, 2 * 2.6 * std::cos(2.6 * 2.6), 1e-10);
}

}  // namespace
