#include "core/NumberText.h"
#include "expression/ConstantResolution.h"
#include "expression/ScriptEvaluation.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using namespace expression;

namespace {

struct Evaluation : ::testing::Test {
  core::SharedState state;
  script::ScriptControl engine;
  ScriptEvaluation evaluation{state, engine};

  void SetUp() override {
    core::InitTables(state);
    StartScriptEngine(engine, state);
  }

  void Define(int slot, const QString& value) { state.ConstantValues[static_cast<size_t>(slot)] = value; }
};

}  // namespace

TEST_F(Evaluation, EdgeCases) {
  EXPECT_EQ(core::FormatNumber(evaluation.EvaluateExpression("2pi")), "6.28318530717958");
  EXPECT_FALSE(state.MathError);

  EXPECT_EQ(evaluation.EvaluateExpression("1/0"), 0);
  EXPECT_TRUE(state.MathError);

  EXPECT_EQ(evaluation.EvaluateExpression("sqrt(-1)"), 0);
  EXPECT_TRUE(state.MathError);

  EXPECT_EQ(evaluation.EvaluateExpression("2*sin(1)"), 0);  // normalised to "2sin*(1)"
  EXPECT_TRUE(state.MathError);
  EXPECT_DOUBLE_EQ(evaluation.EvaluateExpression("sin(1)*2"), std::sin(1.0) * 2);
  EXPECT_FALSE(state.MathError);

  EXPECT_TRUE(IsConstantName(state, "A"));
  EXPECT_FALSE(IsConstantName(state, "e"));
  EXPECT_TRUE(IsConstantName(state, ""));

  EXPECT_EQ(SubstituteConstants(state, "pi*a"), "pi*");
  EXPECT_EQ(SubstituteConstants(state, "alpha"), "");
  Define(0, "9");  // a: alpha still goes as a whole, before its letters
  EXPECT_EQ(SubstituteConstants(state, "alpha"), "");
  EXPECT_EQ(SubstituteConstants(state, "alpha+a"), "+9");
  Define(20, "0.5");
  EXPECT_EQ(SubstituteConstants(state, "alpha"), "0.5");
}

TEST_F(Evaluation, SquareRootsAfterAFactorEvaluate) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"2*sqrt(2)", 2 * std::sqrt(2.0)}, {"2sqrt(2)", 2 * std::sqrt(2.0)}, {"sqrt(2)", std::sqrt(2.0)},
      {"2sqr(9)", 6}, {"1+sqrt(16)/2", 3}, {"(1+1)sqrt(4)", 4}, {"sqrt(sqrt(16))", 2},
      {"pisqrt(4)", 2 * 3.14159265358979},
  };
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(evaluation.EvaluateExpression(c.text), c.value) << c.text;
    EXPECT_FALSE(state.MathError) << c.text;
  }
  EXPECT_DOUBLE_EQ(evaluation.EvaluateWith("xsqrt(4)", "x", 3), 6);
  EXPECT_FALSE(state.MathError);
}

TEST_F(Evaluation, MathErrorIsClearedAtTheStartOfEachEvaluation) {
  state.MathError = true;
  EXPECT_EQ(evaluation.EvaluateExpression("1+1"), 2);
  EXPECT_FALSE(state.MathError);
  state.MathError = true;
  EXPECT_EQ(evaluation.EvaluateWith("x^2", "x", 3), 9);
  EXPECT_FALSE(state.MathError);
}

TEST_F(Evaluation, AConstantGoesInAsOneFactor) {
  struct Case {
    const char* value;  // of a
    const char* text;
    const char* substituted;
  } cases[] = {
      {"2", "y=2ax^2", "y=2*2*x^2"},
      {"-1", "y=2ax^2", "y=2*(-1)*x^2"},
      {"2+3", "y=ax", "y=(2+3)*x"},
      {"2", "y=a*x", "y=2*x"},
      {"1+2", "y=a*x", "y=(1+2)*x"},
      {"1+2", "y=2*a", "y=2*(1+2)"},
      {"-1", "y=a^2", "y=(-1)^2"},
      {"-1", "y=x^a", "y=x^(-1)"},
      {"2", "y=sin(a)", "y=sin(2)"},
      {"2", "y=aa", "y=2*2"},
      {"0.5", "y=a(x+1)", "y=0.5*(x+1)"},
      {"2", "y=(x+1)a", "y=(x+1)*2"},
      {"2", "y=2pi a", "y=2pi *2"},
      {"3", "y=api", "y=3*pi"},
      {"1e3", "y=ax", "y=1e3*x"},
      {"2", "y=sin(x) a", "y=sin(x) *2"},
  };
  for (const Case& c : cases) {
    Define(0, c.value);
    EXPECT_EQ(SubstituteConstants(state, c.text), c.substituted) << c.value << " in " << c.text;
  }
  // The same in number fields: a point (2a, 1) with a=2 is (4, 1).
  Define(0, "2");
  EXPECT_EQ(evaluation.EvaluateExpression("2a"), 4);
  Define(0, "-1");
  EXPECT_EQ(evaluation.EvaluateExpression("2a"), -2);
  EXPECT_EQ(evaluation.EvaluateExpression("a^2"), 1);
  Define(0, "1+2");
  EXPECT_EQ(evaluation.EvaluateExpression("2*a"), 6);
  EXPECT_EQ(evaluation.EvaluateExpression("2a"), 6);
}

TEST_F(Evaluation, AnUndefinedConstantIsDeleted) {
  EXPECT_EQ(SubstituteConstants(state, "y=a*x"), "y=*x");
  EXPECT_EQ(evaluation.EvaluateExpression("2*b"), 0);
  EXPECT_TRUE(state.MathError);
}

TEST_F(Evaluation, LongNamesGoBeforeTheirLetters) {
  Define(21, "7");  // beta
  Define(1, "2");   // b
  Define(4, "5");   // f (a letter of "phi")
  EXPECT_EQ(SubstituteConstants(state, "beta+b"), "7+2");
  EXPECT_EQ(SubstituteConstants(state, "sin(b)+f"), "sin(2)+5");
  EXPECT_EQ(SubstituteConstants(state, "theta+rho"), "theta+rho");
  EXPECT_EQ(SubstituteConstants(state, "exp(b)"), "exp(2)");
  EXPECT_DOUBLE_EQ(evaluation.EvaluateExpression("beta*b"), 14);
}

TEST_F(Evaluation, PiAndEAreThe15DigitValues) {
  EXPECT_EQ(evaluation.EvaluateExpression("pi"), 3.14159265358979);
  EXPECT_EQ(evaluation.EvaluateExpression("e"), 2.71828182845905);
  EXPECT_EQ(evaluation.EvaluateExpression("e^1"), 2.71828182845905);
  engine.ExecuteStatement("pi=3");
  EXPECT_EQ(evaluation.EvaluateExpression("pi"), 3.14159265358979);  // set anew on every call
}

TEST_F(Evaluation, TypedTextIsNormalisedFirst) {
  EXPECT_EQ(evaluation.EvaluateWith("2x+1", "x", 3), 7);
  EXPECT_EQ(evaluation.EvaluateWith("x2", "x", 3), 9);
  EXPECT_EQ(evaluation.EvaluateWith("(x+1)(x-1)", "x", 3), 8);
  EXPECT_NEAR(evaluation.EvaluateWith("sin(2x)", "x", 1), std::sin(2.0), 1e-15);
  EXPECT_EQ(evaluation.EvaluateExpression("SQRT(16)"), 4);
  EXPECT_EQ(evaluation.EvaluateExpression("1 000"), 1000);
  EXPECT_NEAR(evaluation.EvaluateExpression("asinh(1)"), std::asinh(1.0), 1e-14);
  EXPECT_EQ(evaluation.EvaluateExpression("[x]"), 0);
  EXPECT_TRUE(state.MathError);
}

TEST_F(Evaluation, EvaluateWithABadNameFails) {
  EXPECT_EQ(evaluation.EvaluateWith("x", "", 1), 0);
  EXPECT_TRUE(state.MathError);
  EXPECT_EQ(evaluation.EvaluateWith("x", "sin", 1), 0);
  EXPECT_TRUE(state.MathError);
}

TEST_F(Evaluation, CheckExpressionLeavesMathErrorAndConstantsAlone) {
  state.MathError = true;
  EXPECT_TRUE(evaluation.CheckExpression("sin(1)*2"));
  EXPECT_TRUE(state.MathError);
  state.MathError = false;
  EXPECT_FALSE(evaluation.CheckExpression("2*sin(1)"));
  EXPECT_FALSE(state.MathError);
  EXPECT_FALSE(evaluation.CheckExpression("1/0"));
  EXPECT_FALSE(state.MathError);
  Define(0, "1/0");
  EXPECT_TRUE(evaluation.CheckExpression("a"));  // constants are not put in: a is Empty
}

TEST_F(Evaluation, StoreConstantDoesWhatAConstantRowDoes) {
  EXPECT_TRUE(StoreConstant(state, "a=2.5"));
  EXPECT_EQ(state.ConstantValues[0], "2.5");
  EXPECT_TRUE(StoreConstant(state, "alpha=1=2"));
  EXPECT_EQ(state.ConstantValues[20], "1=2");
  EXPECT_TRUE(StoreConstant(state, "A=3"));  // a constant name, but no slot is spelled "A"
  EXPECT_EQ(state.ConstantValues[0], "2.5");
  EXPECT_TRUE(StoreConstant(state, "=9"));  // the empty name fills the empty slots
  EXPECT_EQ(state.ConstantValues[7], "9");
  EXPECT_EQ(state.ConstantValues[14], "9");
  EXPECT_FALSE(StoreConstant(state, "x=1"));
  EXPECT_FALSE(StoreConstant(state, "a"));
  EXPECT_DOUBLE_EQ(evaluation.EvaluateExpression("a*2"), 5);
}

TEST_F(Evaluation, HostileTextsComeBackWithMathError) {
  for (const QString& text : {QString(10000, u'(') + "1" + QString(10000, u')'), QString(100000, u'9'),
                              QString("\"\"\""), QString("2^99999"), QString("1e99999"), QString("zzz(1)"),
                              QString("<~>"), QString("```"), QString(QChar(0)), QString::fromUtf8("\u4e2d")}) {
    evaluation.EvaluateExpression(text);
    evaluation.CheckExpression(text);
    evaluation.EvaluateWith(text, "x", 1);
  }
  EXPECT_EQ(evaluation.EvaluateExpression(QString(10000, u'(') + "1" + QString(10000, u')')), 1);
  EXPECT_FALSE(state.MathError);
}
