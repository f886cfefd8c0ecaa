#include "benches/abacus/AbacusEngine.h"

#include "core/NumberText.h"
#include "expression/ScriptEvaluation.h"

#include <gtest/gtest.h>

namespace {

using abacus::AbacusEngine;
using abacus::AngleUnit;

struct Case {
  const char* Text;
  AngleUnit Unit;
  const char* Shown;    // the value's text, or empty for a failure
  const char* Message;  // the reason, or empty for a value
};

void PrintTo(const Case& c, std::ostream* os) { *os << c.Text; }

class AbacusEngineCases : public ::testing::TestWithParam<Case> {};

TEST_P(AbacusEngineCases, AnswersInTheProgramsDigitsOrInWords) {
  const Case& c = GetParam();
  AbacusEngine engine;
  const abacus::Answer answer = engine.Evaluate(QString::fromUtf8(c.Text), c.Unit);
  EXPECT_EQ(answer.Text.toStdString(), c.Shown);
  EXPECT_EQ(answer.Message.toStdString(), c.Message);
  EXPECT_EQ(answer.Ok, *c.Shown != '\0');
}

constexpr AngleUnit R = AngleUnit::Radians;
constexpr AngleUnit D = AngleUnit::Degrees;

INSTANTIATE_TEST_SUITE_P(
    Lines, AbacusEngineCases,
    ::testing::Values(
        Case{"2+3*4", R, "14", ""}, Case{"1/3", R, "0.333333333333333", ""}, Case{"2^0.5", R, "1.4142135623731", ""},
        Case{"2(3+4)", R, "14", ""}, Case{"pi", R, "3.14159265358979", ""}, Case{"e", R, "2.71828182845905", ""},
        Case{"sin(pi/6)", R, "0.5", ""}, Case{"fact(5)", R, "120", ""}, Case{"1E300*10", R, "1E+301", ""},
        Case{"  7  ", R, "7", ""}, Case{"sin(30)", D, "0.5", ""}, Case{"cos(60)", D, "0.5", ""},
        Case{"sin(180)", D, "0", ""}, Case{"cos(90)", D, "0", ""}, Case{"tan(45)", D, "1", ""},
        Case{"sin(-390)", D, "-0.5", ""}, Case{"asin(0.5)", D, "30", ""}, Case{"acos(0)", D, "90", ""},
        Case{"atan(1)", D, "45", ""}, Case{"atn(1)", D, "", "Unknown function: atn"}, Case{"acot(0)", D, "90", ""}, Case{"sqrt(16)", D, "4", ""},
        Case{"1/0", R, "", "Cannot compute: division by zero"},
        Case{"q", R, "", "Unknown name: q"}, Case{"2x+1", R, "", "Unknown name: x"},
        Case{"zz*2", R, "", "Unknown name: zz"}, Case{"foo(2)", R, "", "Unknown function: foo"},
        Case{"sqrt(-1)", R, "", "Cannot compute: a function is not defined there (as sqrt(-1) or ln(0))"},
        Case{"(1+2", R, "", "Cannot read this: expected ')'"},
        Case{"1E300*1E300", R, "", "Cannot compute: the number is too large (overflow)"},
        Case{"tan(90)", D, "", "Cannot compute: tan is not defined at 90°"},
        Case{"asin(2)", D, "", "Cannot compute: asin is not defined at 2"},
        Case{"ans+1", R, "", "No answer yet: ans stands for the last answer"},
        Case{"", R, "", "Type an expression, such as 2+3*4 or sqrt(2)"},
        Case{"2+*", R, "", "Cannot read this: syntax error"},
        Case{"\"a\"", R, "", "Cannot compute: that is not a number"},
        Case{"$", R, "", "Cannot read this: invalid character"}));

// The calculator and a point field answer alike: the same text through the program's own path,
// set up as the main form sets it up.
TEST(AbacusEngine, RadiansAnswerAsAPointField) {
  core::SharedState state;
  core::InitTables(state);
  script::ScriptControl engine;
  expression::StartScriptEngine(engine, state);
  expression::ScriptEvaluation field(state, engine);
  AbacusEngine abacus;
  for (const char* text : {"sin(1)", "ln(10)", "2pi", "sqrt(2)+1", "tan(1.5)", "xroot(27,3)", "log(100)",
                           "asin(1)", "cosh(2)", "3^-2", "int(-2.5)", "abs(-3)+sgn(-4)"}) {
    const QString line = QString::fromLatin1(text);
    const double expected = field.EvaluateExpression(line);
    ASSERT_FALSE(state.MathError) << text;
    const abacus::Answer answer = abacus.Evaluate(line, AngleUnit::Radians);
    ASSERT_TRUE(answer.Ok) << text << ": " << answer.Message.toStdString();
    EXPECT_EQ(answer.Value, expected) << text;
    EXPECT_EQ(answer.Text, core::FormatNumber(expected)) << text;
  }
}

TEST(AbacusEngine, AnsIsTheLastAnswerWithAllItsDigits) {
  AbacusEngine engine;
  EXPECT_EQ(engine.Evaluate(QStringLiteral("1/3"), AngleUnit::Radians).Text, QStringLiteral("0.333333333333333"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("ans*3"), AngleUnit::Radians).Value, 1.0);
  EXPECT_EQ(engine.Evaluate(QStringLiteral("-5"), AngleUnit::Radians).Text, QStringLiteral("-5"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("ans^2"), AngleUnit::Radians).Text, QStringLiteral("25"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("2ANS"), AngleUnit::Radians).Text, QStringLiteral("50"));
  // A failure keeps the last answer.
  EXPECT_FALSE(engine.Evaluate(QStringLiteral("1/0"), AngleUnit::Radians).Ok);
  EXPECT_EQ(engine.Evaluate(QStringLiteral("ans"), AngleUnit::Radians).Text, QStringLiteral("50"));
}

TEST(AbacusEngine, TheUnitChangesOnlyTheAngles) {
  AbacusEngine engine;
  EXPECT_EQ(engine.Evaluate(QStringLiteral("sin(30)"), AngleUnit::Radians).Text, QStringLiteral("-0.988031624092862"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("sin(30)"), AngleUnit::Degrees).Text, QStringLiteral("0.5"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("sin(30)"), AngleUnit::Radians).Text, QStringLiteral("-0.988031624092862"));
  EXPECT_EQ(engine.Evaluate(QStringLiteral("exp(1)"), AngleUnit::Degrees).Text, QStringLiteral("2.71828182845905"));
}

}  // namespace
