#include "benches/probe/CurveAnalysis.h"

#include "mathlang/Derivative.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using probe::CurveAnalysis;
using probe::CurveFunction;

// The findings' texts for a function over a range, its derivatives the symbolic ones.
std::vector<std::string> Findings(const char* text, double from, double to) {
  QString error;
  const auto f = CurveFunction::Parse(QString::fromLatin1(text), error);
  if (!f) return {"error: " + error.toStdString()};
  std::optional<CurveFunction> first, second;
  if (const auto d1 = mathlang::Derivative(f->Row())) {
    first = CurveFunction::Parse(*d1, error);
    if (const auto d2 = mathlang::Derivative(*d1)) second = CurveFunction::Parse(*d2, error);
  }
  const CurveAnalysis analysis(*f, first, second, from, to);
  std::vector<std::string> texts;
  for (const auto& item : analysis.Items()) texts.push_back(item.Text.toStdString());
  return texts;
}

struct Case {
  const char* Text;
  double From, To;
  std::vector<std::string> Expected;
};

void PrintTo(const Case& c, std::ostream* os) { *os << c.Text; }

class CurveAnalysisCases : public ::testing::TestWithParam<Case> {};

TEST_P(CurveAnalysisCases, FindsWhatTheClosedFormSays) {
  const Case& c = GetParam();
  EXPECT_EQ(Findings(c.Text, c.From, c.To), c.Expected);
}

INSTANTIATE_TEST_SUITE_P(
    ClosedForms, CurveAnalysisCases,
    ::testing::Values(
        Case{"x^3-3x", -5, 5,
             {"Root: x = -1.73205080756888", "Root: x = 0", "Root: x = 1.73205080756888", "Maximum: (-1, 2)",
              "Minimum: (1, -2)", "Inflection point: (0, 0)", "y-intercept: (0, 0)", "Rises: -5 < x < -1",
              "Falls: -1 < x < 1", "Rises: 1 < x < 5"}},
        Case{"y=1/(x-2)", -10, 10,
             {"Not defined at x = 2", "y-intercept: (0, -0.5)", "Vertical asymptote: x = 2",
              "Horizontal asymptote: y = 0 (as x → ±∞)", "Falls: -10 < x < 2", "Falls: 2 < x < 10"}},
        Case{"1/(x-2)", -9.7, 9.9,
             {"y-intercept: (0, -0.5)", "Vertical asymptote: x = 2", "Horizontal asymptote: y = 0 (as x → ±∞)",
              "Falls: -9.7 < x < 2", "Falls: 2 < x < 9.9"}},
        Case{"sqrt(x)", -4, 9, {"Not defined: x < 0", "Root: x = 0", "y-intercept: (0, 0)", "Rises: 0 < x < 9"}},
        Case{"ln(x)", -1, 5,
             {"Not defined: x ≤ 0", "Root: x = 1", "Vertical asymptote: x = 0", "Rises: 0 < x < 5"}},
        Case{"x^2-4", -5, 5,
             {"Root: x = -2", "Root: x = 2", "Minimum: (0, -4)", "y-intercept: (0, -4)", "Falls: -5 < x < 0",
              "Rises: 0 < x < 5"}},
        Case{"(2x+1)/(x-3)", -10, 10,
             {"Not defined at x = 3", "Root: x = -0.5", "y-intercept: (0, -0.333333333333333)",
              "Vertical asymptote: x = 3", "Horizontal asymptote: y = 2 (as x → ±∞)", "Falls: -10 < x < 3",
              "Falls: 3 < x < 10"}},
        Case{"x^2", -3, 3, {"Root: x = 0", "Minimum: (0, 0)", "y-intercept: (0, 0)", "Falls: -3 < x < 0", "Rises: 0 < x < 3"}},
        Case{"y=", -3, 3, {"error: Cannot read this: the expression ends too early"}},
        Case{"x^2+y^2=1", -3, 3, {"error: The probe takes y = f(x): type a function of x, such as x^3-3x"}}));

TEST(CurveAnalysis, TableStepsEvenlyAndSaysWhereFIsUndefined) {
  QString error;
  const auto f = CurveFunction::Parse(QStringLiteral("sqrt(x)"), error);
  ASSERT_TRUE(f);
  const CurveAnalysis analysis(*f, std::nullopt, std::nullopt, -0.2, 0.4);
  EXPECT_EQ(CurveAnalysis::TableText(analysis.Table(0.1)),
            QStringLiteral("x\tf(x)\n-0.2\tundefined\n-0.1\tundefined\n0\t0\n0.1\t0.316227766016838\n"
                           "0.2\t0.447213595499958\n0.3\t0.547722557505166\n0.4\t0.632455532033676\n"));
  EXPECT_TRUE(analysis.Table(0).empty());
  EXPECT_TRUE(analysis.Table(-1).empty());
}

}  // namespace

namespace {

TEST(CurveAnalysis, AnEvenPoleBetweenSamplesIsFound) {
  const auto texts = Findings("1/(x-0.123)^2", -1, 1);
  EXPECT_NE(std::find(texts.begin(), texts.end(), "Vertical asymptote: x = 0.123"), texts.end());
}

// Curves with endless findings, no findings, or none defined still give an answer.
TEST(CurveAnalysis, OddCurvesGiveAnAnswer) {
  for (const char* text : {"sin(1/x)", "tan(x)", "5", "0", "x^x", "exp(x)", "1/0", "sqrt(-1-x^2)", "x; x>1", "fact(x)",
                           "int(x)", "abs(x)", "sgn(x)", "rnd", "10^x", "x^2; 0<x<1"}) {
    const auto texts = Findings(text, -5, 5);
    EXPECT_LE(texts.size(), 400u) << text;
  }
  EXPECT_EQ(Findings("sqrt(-1-x^2)", -5, 5), std::vector<std::string>{"Not defined anywhere from -5 to 5"});
}

}  // namespace
