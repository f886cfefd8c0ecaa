#include "mathlang/BlockProgram.h"
#include "mathlang/LineParser.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <cmath>

using namespace mathlang;

namespace {

// The value of a bare expression (or the right side of a line) at x, y.
double ValueOf(const QString& text, double x = 0, double y = 0) {
  const ParsedLine line = ParseLine(text);
  EXPECT_TRUE(line.Ok()) << text.toStdString() << ": " << line.Error.toStdString();
  const double variables[kVariableCount] = {x, y, 0, 0, 0};
  return line.Ok() ? line.Tree.EvaluateAt(variables) : NAN;
}

struct Case {
  const char* text;
  double x;
  double expected;
};

void ExpectValues(std::initializer_list<Case> cases) {
  for (const auto& c : cases) {
    const double value = ValueOf(c.text, c.x, 5);
    if (std::isnan(c.expected)) {
      EXPECT_TRUE(std::isnan(value)) << c.text << " at x=" << c.x << " gave " << value;
    } else {
      EXPECT_DOUBLE_EQ(value, c.expected) << c.text << " at x=" << c.x;
    }
  }
}

}  // namespace

TEST(LineParser, ImplicitMultiplication) {
  ExpectValues({{"2x", 3, 6}, {"3(x+1)", 1, 6}, {"(x+1)(x-1)", 3, 8}, {"2sin(x)", 0.5, 2 * std::sin(0.5)},
                {"x sin(x)", 2, 2 * std::sin(2.0)}, {"xy", 3, 15}, {"2pi", 0, 2 * 3.14159265358979},
                {"x2", 3, 9}, {"2x3", 2, 16}, {"(x+1)2", 2, 9}, {"sin(x)2", 1, std::sin(1.0) * std::sin(1.0)},
                {"2 x", 4, 8}, {"x 2", 4, 8}, {"pix", 2, 2 * 3.14159265358979}, {"xexp(0)", 3, 3},
                {"2(x)(x)", 3, 18}, {"[x]x", 2.5, 5}});
}

// The insert dialog stores what the expression normaliser makes of typed text, which leaves a star
// behind a function's name: "2sin(x)" becomes "2sin*(x)", "sin(x)cos(x)" becomes "sin(x)cos*(x)".
TEST(LineParser, TheNormalisersStarBehindAFunctionMarksItsCall) {
  ExpectValues({{"2sin*(x)", 0.5, 2 * std::sin(0.5)}, {"sin(x)cos*(x)", 1, std::sin(1.0) * std::cos(1.0)},
                {"2+2cos*(x)", 0, 4}, {"x^2sqrt*(x)", 4, 32}, {"xroot*(8,3)", 0, 2}, {"sin*(x)*2", 1, 2 * std::sin(1.0)}});
  for (const char* text : {"y=sin*x", "y=sin*", "y=2*sin**(x)"}) EXPECT_FALSE(ParseLine(text).Ok()) << text;
}

TEST(LineParser, PrecedenceAsUsersType) {
  ExpectValues({{"-x^2", 3, -9}, {"2^3^2", 0, 512}, {"2^-1", 0, 0.5}, {"-2^2", 0, -4}, {"1+2*3", 0, 7},
                {"8/2/2", 0, 2}, {"2*3^2", 0, 18}, {"-x", 2, -2}, {"--x", 2, 2}, {"x^-2", 2, 0.25},
                {"(-8)^(1/3)", 0, NAN}, {"(-2)^3", 0, -8}, {"7\\2", 0, 3}, {"7 mod 3", 0, 1}, {"1/0", 0, NAN},
                {"x^2+3x-1", 2, 9}, {"10-2-3", 0, 5}, {"+x", 4, 4}});
}

TEST(LineParser, NumbersAndConstants) {
  ExpectValues({{"1.5", 0, 1.5}, {".5", 0, 0.5}, {"1E-3", 0, 0.001}, {"1e3", 0, 1000}, {"2e", 0, 2 * 2.71828182845905},
                {"e", 0, 2.71828182845905}, {"pi", 0, 3.14159265358979}, {"10.", 0, 10}});
}

TEST(LineParser, EveryFunctionName) {
  const char* names[] = {"sin", "cos", "tan", "exp", "ln", "log", "log10", "sqrt", "sqr", "abs", "sgn", "int",
                         "fix", "atan", "atn", "asin", "acos", "deg", "fact", "csc", "cosec", "sec", "cot",
                         "sinh", "cosh", "tanh", "coth", "csch", "cosech", "sech", "acsc", "acosec", "asec",
                         "acot", "asinh", "acosh", "atanh", "acsch", "acosech", "asech", "acoth", "const", "rnd"};
  for (const char* name : names) {
    const ParsedLine line = ParseLine(QString("y=%1(x)").arg(name));
    EXPECT_TRUE(line.Ok()) << name << ": " << line.Error.toStdString();
  }
  for (const char* two : {"y=xroot(x,3)", "y=xlog(x,2)", "y=randomnumber()", "y=rnd", "y=RandomNumber"}) {
    EXPECT_TRUE(ParseLine(two).Ok()) << two;
  }
  ExpectValues({{"xroot(x,3)", -8, -2}, {"xlog(x,2)", 8, 3}, {"log(x)", 1, 0}, {"log10(x)", 100, 2},
                {"sqr(x)", 16, 4}, {"atn(x)", 1, std::atan(1.0)}, {"fix(x)", -2.5, -2}, {"int(x)", -2.5, -3},
                {"sgn(x)", -3, -1}, {"abs(x)", -3, 3}, {"deg(x)", 180, 3.14159265358979},
                {"exp(x)", 1, 2.71828182845905}, {"sin x", 1, std::sin(1.0)}, {"sin x^2", 2, std::sin(4.0)},
                {"const(x)", 4, 4}, {"acosh(x)", -2, 0}});
}

TEST(LineParser, FormsOfTheEquation) {
  EXPECT_EQ(ParseLine("y=x^2").Form, LineForm::Y);
  EXPECT_EQ(ParseLine("x=sin(y)").Form, LineForm::X);
  EXPECT_EQ(ParseLine("r=2*theta").Form, LineForm::R);
  EXPECT_EQ(ParseLine("rho=theta").Form, LineForm::R);
  EXPECT_EQ(ParseLine("r=q..symb").Form, LineForm::R);
  EXPECT_EQ(ParseLine("x^2+y^2=1").Form, LineForm::Implicit);
  EXPECT_EQ(ParseLine("2x+1").Form, LineForm::Bare);
  EXPECT_EQ(ParseLine("Y=X").Form, LineForm::Y);
  const ParsedLine implicit = ParseLine("x^2+y^2=1");
  EXPECT_GE(implicit.Left, 0);
  EXPECT_GE(implicit.Right, 0);
}

TEST(LineParser, Conditions) {
  const ParsedLine chain = ParseLine("y=x;0<=x<3");
  ASSERT_TRUE(chain.Ok());
  ASSERT_EQ(chain.Comparisons.size(), 2u);
  EXPECT_TRUE(chain.Comparisons[0].Inclusive);
  EXPECT_FALSE(chain.Comparisons[1].Inclusive);
  const BlockProgram condition(chain.Tree, chain.Condition);
  EXPECT_EQ(condition.At(0), 1);
  EXPECT_EQ(condition.At(2.9), 1);
  EXPECT_EQ(condition.At(3), 0);
  EXPECT_EQ(condition.At(-0.1), 0);

  const ParsedLine joined = ParseLine("y=x;x>0 and x<3");
  EXPECT_EQ(BlockProgram(joined.Tree, joined.Condition).At(1), 1);
  EXPECT_EQ(BlockProgram(joined.Tree, joined.Condition).At(4), 0);
  const ParsedLine either = ParseLine("y=x;x<0 or x>1");
  EXPECT_EQ(BlockProgram(either.Tree, either.Condition).At(0.5), 0);
  EXPECT_EQ(BlockProgram(either.Tree, either.Condition).At(2), 1);
  const ParsedLine several = ParseLine("y=x;0<x<1;0<=y<=1");
  EXPECT_EQ(several.Comparisons.size(), 4u);
  EXPECT_EQ(BlockProgram(several.Tree, several.Condition).At(0.5, 0.5), 1);
  EXPECT_EQ(BlockProgram(several.Tree, several.Condition).At(0.5, 2), 0);
  const ParsedLine theta = ParseLine("r=theta;0<theta<20");
  EXPECT_TRUE(theta.Ok());
  EXPECT_TRUE(ParseLine("y=x;").Ok());
}

TEST(LineParser, SymbolsAndGreekNames) {
  EXPECT_EQ(ValueOf("a..symb+x", 2), 2);  // alpha is no constant here: 0
  EXPECT_TRUE(ParseLine("y=lambda*x+meu+tau+phi+beta").Ok());
  EXPECT_TRUE(ParseLine("r=f..var..symb+q..symb").Ok());
  EXPECT_TRUE(ParseLine(QString::fromUtf8("y=\u03c0x")).Ok());
}

TEST(LineParser, ErrorsHaveReasons) {
  struct Bad { const char* text; const char* reason; };
  const Bad cases[] = {
      {"", "the line is empty"},
      {"y=", "the expression ends too early"},
      {"y=sin(", "the expression ends too early"},
      {"y=foo(x)", "unknown name \"foo\""},
      {"y=x$", "unexpected character \"$\""},
      {"y=(x", "expected \")\" before end"},
      {"y=xroot(x)", "xroot takes 2 argument(s)"},
      {"y=x)", "unexpected \")\""},
      {"y=z", "unknown name \"z\""},
      {"y=x..symb", "unknown symbol \"x..symb\""},
      {"y=1=2", "unexpected \"=\""},
  };
  for (const auto& c : cases) {
    const ParsedLine line = ParseLine(c.text);
    EXPECT_FALSE(line.Ok()) << c.text;
    EXPECT_EQ(line.Error, c.reason) << c.text;
  }
  EXPECT_EQ(ParseLine(QString(1000, u'(') + "x" + QString(1000, u')')).Error, "the expression is nested too deeply");
  EXPECT_TRUE(ParseLine(QString(100, u'(') + "x" + QString(100, u')')).Ok());
}

TEST(LineParser, ConstantsAreFolded) {
  const ParsedLine line = ParseLine("y=2*pi*x+sin(0)+3^2");
  ASSERT_TRUE(line.Ok());
  int numbers = 0;
  for (const Node& n : line.Tree.Nodes()) numbers += n.Kind == NodeKind::Call;
  EXPECT_EQ(numbers, 0);  // sin(0) was folded away
  EXPECT_DOUBLE_EQ(ValueOf("2*pi*x+sin(0)+3^2", 1), 2 * 3.14159265358979 + 9);
}

// Surfaces read z, phi, u and v as variables; function rows do not know z, u and v, and phi is 0.
TEST(LineParser, TheSpaceLanguageKnowsTheSurfacesVariables) {
  struct SpaceCase {
    const char* text;
    double expected;  // at x=1, y=2, t=0, theta=3, r=0, z=4, phi=5, u=6, v=7
  };
  const SpaceCase cases[] = {{"z", 4},           {"x+y+z", 7},       {"phi*2", 10},       {"f..var..symb", 5},
                             {"u*v", 42},        {"2z", 8},          {"z2", 16},          {"sin(u)^2+cos(u)^2", 1},
                             {"q..symb+phi", 8}, {"xyz", 8},         {"uv-vu", 0},        {"alpha+z", 4}};
  const std::array<double, kVariableCount> at{1, 2, 0, 3, 0, 4, 5, 6, 7};
  for (const SpaceCase& c : cases) {
    const ParsedLine line = ParseExpression(c.text, Language::Space);
    ASSERT_TRUE(line.Ok()) << c.text << ": " << line.Error.toStdString();
    EXPECT_NEAR(line.Tree.EvaluateAt(at.data()), c.expected, 1e-12) << c.text;
    EXPECT_NEAR(BlockProgram(line.Tree, line.Right).At(at), c.expected, 1e-12) << c.text;
  }
  EXPECT_EQ(ParseExpression("z").Error, "unknown name \"z\"");
  EXPECT_EQ(ParseExpression("u+1").Error, "unknown name \"u\"");
  EXPECT_DOUBLE_EQ(ValueOf("phi+1", 3), 1);  // still 0 in the plane
  const ParsedLine implicit = ParseLine("x^2+y^2+z^2=4", true, Language::Space);
  ASSERT_TRUE(implicit.Ok()) << implicit.Error.toStdString();
}
