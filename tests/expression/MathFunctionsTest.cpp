#include "core/RuntimeError.h"
#include "expression/MathFunctions.h"
#include "script/ScriptControl.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using expression::MathFunctions;
using script::Value;

namespace {

// Calls a member through the engine, as script text does.
struct MathFixture : ::testing::Test {
  bool mathError = false;
  script::ScriptControl engine;

  void SetUp() override {
    engine.SetLanguage("vbscript");
    engine.AddObject("Math", std::make_shared<MathFunctions>(mathError), true);
  }

  double Call(const QString& text) {
    mathError = false;
    return engine.Eval(text).ToDouble();
  }
};

}  // namespace

TEST(MathFunctions, ThirtyFourMembersInTheirOrder) {
  bool flag = false;
  const QStringList names = MathFunctions(flag).MemberNames();
  EXPECT_EQ(names, QStringList({"sqrt", "Deg", "exp", "asin", "acos", "fact", "ln", "atan", "csc", "cosec",
                                "sec", "cot", "sinh", "cosh", "tanh", "tan", "coth", "csch", "cosech", "sech",
                                "acsc", "acosec", "asec", "acot", "asinh", "acosh", "atanh", "acsch", "acosech",
                                "asech", "acoth", "xroot", "xlog", "RandomNumber"}));
}

TEST_F(MathFixture, EdgeCases) {
  EXPECT_EQ(Call("asin(1)"), 1.570796326794895);
  EXPECT_FALSE(mathError);
  EXPECT_EQ(Call("asin(1.0000001)"), 0);
  EXPECT_TRUE(mathError);
  EXPECT_EQ(Call("acos(0)"), 3.14159265358979 / 2);
  EXPECT_DOUBLE_EQ(Call("xroot(-8, 3)"), -2);
  EXPECT_FALSE(mathError);
  EXPECT_EQ(Call("xroot(-8, 2)"), 0);
  EXPECT_TRUE(mathError);
  EXPECT_NEAR(Call("xlog(8, 2)"), 3, 1e-15);
  EXPECT_FALSE(mathError);
  EXPECT_EQ(Call("xlog(8, 0)"), 0);
  EXPECT_TRUE(mathError);
  EXPECT_EQ(Call("acosh(0.5)"), 0);
  EXPECT_TRUE(mathError);
  EXPECT_EQ(Call("acosh(-2)"), 0);
  EXPECT_FALSE(mathError);
  EXPECT_EQ(Call("sqrt(-1)"), 0);
  EXPECT_TRUE(mathError);
  EXPECT_EQ(Call("Deg(180)"), 3.14159265358979);
}

TEST_F(MathFixture, AFailureInsideAMemberFailsTheMember) {
  for (const char* text : {"csc(0)", "coth(0)", "fact(171)", "ln(0)", "ln(-1)", "exp(1000)", "sinh(800)",
                           "acoth(1)", "xroot(8, 0)", "xlog(8, 1)", "asech(0)", "acsch(0)", "atanh(1)"}) {
    EXPECT_EQ(Call(text), 0) << text;
    EXPECT_TRUE(mathError) << text;
  }
}

TEST_F(MathFixture, AFailedMemberReturnsZeroToTheRestOfTheExpression) {
  EXPECT_EQ(Call("1+sqrt(-1)"), 1);
  EXPECT_TRUE(mathError);
}

TEST_F(MathFixture, TheFlagIsNeverClearedByAMember) {
  mathError = false;
  engine.Eval("sqrt(-1)");
  engine.Eval("sqrt(4)");
  EXPECT_TRUE(mathError);
}

TEST_F(MathFixture, MembersWinOverBuiltInsOfTheSameName) {
  EXPECT_EQ(Call("exp(1)"), 2.71828182845905);  // a power of the 15-digit e, not the built-in
  EXPECT_EQ(Call("tan(0.5)"), std::sin(0.5) / std::cos(0.5));
  EXPECT_EQ(Call("EXP(1)"), 2.71828182845905);
}

TEST_F(MathFixture, Definitions) {
  EXPECT_EQ(Call("fact(3.7)"), 6);
  EXPECT_EQ(Call("fact(-3)"), -6);
  EXPECT_EQ(Call("fact(-2.5)"), -6);
  EXPECT_EQ(Call("fact(0)"), 1);
  EXPECT_NEAR(Call("asinh(2)"), std::asinh(2.0), 1e-14);
  EXPECT_NEAR(Call("cosec(1)"), 1 / std::sin(1.0), 1e-15);
  EXPECT_NEAR(Call("acosec(2)"), std::asin(0.5), 1e-15);
  EXPECT_NEAR(Call("acosech(2)"), std::asinh(0.5), 1e-14);
  EXPECT_NEAR(Call("atan(1)"), std::atan(1.0), 1e-15);
  EXPECT_NEAR(Call("Math.sqrt(2)"), std::sqrt(2.0), 1e-15);
  EXPECT_FALSE(mathError);
}

TEST_F(MathFixture, RandomNumberIsFromZeroUpToOne) {
  for (int i = 0; i < 100; ++i) {
    const double r = Call("RandomNumber()");
    EXPECT_GE(r, 0);
    EXPECT_LT(r, 1);
  }
  EXPECT_NE(Call("RandomNumber"), Call("RandomNumber"));
}

TEST_F(MathFixture, WrongArgumentsAreScriptErrors) {
  for (const char* text : {"sqrt()", "sqrt(1, 2)", "xroot(8)", "RandomNumber(1)", "sqrt(\"abc\")", "xlog(8, 99999)"}) {
    EXPECT_THROW(engine.Eval(text), core::RuntimeError) << text;
  }
}
