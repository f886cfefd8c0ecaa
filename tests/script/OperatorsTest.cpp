// The language's operators and values, with the results observed on a real engine.
#include "ScriptTestSupport.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using script::Value;
using script::ValueType;

namespace {

struct Case {
  const char* text;
  double value;
};

void ExpectValues(std::initializer_list<Case> cases) {
  auto engine = ReadyEngine();
  for (const auto& c : cases) {
    try {
      EXPECT_DOUBLE_EQ(engine.Eval(c.text).ToDouble(), c.value) << c.text;
    } catch (const core::RuntimeError& e) {
      ADD_FAILURE() << c.text << " raised " << e.Number() << " " << e.what();
    }
  }
}

void ExpectErrors(std::initializer_list<std::pair<const char*, int>> cases) {
  auto engine = ReadyEngine();
  for (const auto& [text, number] : cases) EXPECT_EQ(ErrorOf(engine, text), number) << text;
}

}  // namespace

TEST(Operators, EmptyCountsAsZero) {
  ExpectValues({{"undefinedvar + 1", 1}, {"-undefinedvar^2", 0}, {"undefinedvar", 0}});
}

TEST(Operators, ComparisonsAndLogicGiveTrueAsMinusOne) {
  ExpectValues({{"2=2", -1}, {"(1=1)*5", -5}, {"3 > 2 And 2 > 1", -1}, {"Not 0", -1},
                {"1<2<3", -1}, {"3>2>1", 0}, {"1<>1", 0}, {"2>=2", -1}, {"2<=1", 0},
                {"True Or False", -1}, {"True Xor True", 0}, {"5 And 3", 1}, {"5 Or 3", 7},
                {"Not 1", -2}, {"True Eqv True", -1}, {"False Imp False", -1}, {"Not 1 = 2", -1}});
}

TEST(Operators, IntegerArithmeticMovesUpInsteadOfFailing) {
  auto engine = ReadyEngine();
  EXPECT_EQ(engine.Eval("32767+1"), Value::Long(32768));
  EXPECT_EQ(engine.Eval("2147483647+1"), Value::Double(2147483648.0));
  EXPECT_EQ(engine.Eval("65536*65536"), Value::Double(4294967296.0));
  EXPECT_EQ(engine.Eval("1+1"), Value::Integer(2));
  EXPECT_EQ(engine.Eval("-32768").Type(), ValueType::Long);
  EXPECT_EQ(engine.Eval("True+True"), Value::Integer(-2));
  EXPECT_EQ(engine.Eval("4/2"), Value::Double(2));
  EXPECT_EQ(engine.Eval("2^2"), Value::Double(4));
}

TEST(Operators, LiteralForms) {
  ExpectValues({{"1.5E3", 1500}, {".5", 0.5}, {"10.", 10}, {"&H10", 16}, {"010", 10}, {"&HFFFF", -1},
                {"&H10000", 65536}, {"&O17", 15}, {"1e-3", 0.001}, {"2.5e+2", 250}});
}

TEST(Operators, NamesAreCaseInsensitive) {
  auto engine = ReadyEngine();
  EXPECT_EQ(engine.Eval("SIN(1)"), engine.Eval("sin(1)"));
  EXPECT_EQ(engine.Eval("Sin(1)"), engine.Eval("sin(1)"));
  engine.ExecuteStatement("X=3");
  EXPECT_DOUBLE_EQ(engine.Eval("x").ToDouble(), 3);
}

TEST(Operators, UnaryMinusBindsTighterThanPowerWhichGoesLeftToRight) {
  ExpectValues({{"-3^2", 9}, {"-2^-2", 0.25}, {"2^3^2", 64}, {"2^-2^2", 0.0625}, {"1+-2", -1},
                {"2--3", 5}, {"2*-3", -6}, {"- -3", 3}, {"+3", 3}, {"2+3*4", 14}, {"(2+3)*4", 20},
                {"10-2-3", 5}, {"12/2/3", 2}, {"2*3^2", 18}, {"7 Mod 3 * 2", 1}, {"1+7 Mod 3", 2}});
}

TEST(Operators, IntegerDivisionRoundsHalvesToEven) {
  ExpectValues({{"7 \\ 2.5", 3}, {"10 \\ 3.5", 2}, {"-7 \\ 2", -3}, {"4.6 \\ 1.5", 2}, {"4.6 \\ 1.49", 5},
                {"7 Mod 2.5", 1}, {"2.5 Mod 1", 0}, {"3 Mod -2", 1}, {"-3 Mod 2", -1}, {"11.6 Mod 5.5", 0}});
}

TEST(Operators, BuiltInFunctions) {
  ExpectValues({{"Int(-0.5)", -1}, {"Int(-2.5)", -3}, {"Fix(-2.5)", -2}, {"CInt(2.5)", 2}, {"CInt(3.5)", 4},
                {"CLng(2.5)", 2}, {"Round(2.5)", 2}, {"Round(3.5)", 4}, {"Round(1.2345, 2)", 1.23},
                {"Abs(-3)", 3}, {"Sgn(-2)", -1}, {"Sgn(0)", 0}, {"Sqr(16)", 4}, {"Log(1)", 0},
                {"Atn(1)*4", std::atan(1.0) * 4}, {"Exp(0)", 1}, {"Cos(0)", 1}, {"Sin(0)", 0},
                {"Tan(0)", 0}, {"CDbl(\"2.5\")", 2.5}, {"Abs(Empty)", 0}, {"Int(True)", -1}});
  auto engine = ReadyEngine();
  const double r = engine.Eval("Rnd").ToDouble();
  EXPECT_GE(r, 0);
  EXPECT_LT(r, 1);
  EXPECT_NE(engine.Eval("Rnd()").ToDouble(), r);
}

TEST(Operators, StringsConcatenateAndConvert) {
  auto engine = ReadyEngine();
  EXPECT_EQ(engine.Eval("\"a\" & 1"), Value::String("a1"));
  EXPECT_EQ(engine.Eval("\"1\" + \"2\""), Value::String("12"));
  EXPECT_EQ(engine.Eval("\"1\" + 2"), Value::Double(3));
  EXPECT_EQ(engine.Eval("\"say \"\"hi\"\"\""), Value::String("say \"hi\""));
  EXPECT_EQ(engine.Eval("1 & True"), Value::String("1True"));
  EXPECT_EQ(engine.Eval("\"b\" > \"a\""), Value::Boolean(true));
  EXPECT_EQ(ErrorOf(engine, "\"abc\" * 2"), core::RuntimeError::TypeMismatch);
}

TEST(Operators, Errors) {
  ExpectErrors({{"1/0", 11}, {"5 \\ 0", 11}, {"5 Mod 0", 11}, {"0/0", 6}, {"1E308*10", 6}, {"2^1024", 6},
                {"Exp(710)", 6}, {"Sqr(-1)", 5}, {"Log(0)", 5}, {"Log(-1)", 5}, {"(-8)^(1/3)", 5},
                {"0^-1", 11}, {"CInt(40000)", 6}, {"Round(1, -1)", 5}, {"Sqr(1, 2)", 450}, {"Sin()", 450},
                {"1e999", 6}, {"99999999999999999999 * 1e300", 6}});
}

TEST(Operators, SyntaxErrors) {
  ExpectErrors({{"2sin*(1)", 1025}, {"2 x", 1025}, {"(1+2", 1006}, {"1+2)", 1025}, {"", 1002}, {"1+", 1002},
                {"*2", 1002}, {"(1,2)", 1006}, {"\"abc", 1033}, {"1 $ 2", 1032}, {"[x]", 1032},
                {"f(1", 1006}, {"sin(,)", 1002}, {"()", 1002}, {"1:2", 1025}, {"a.b", 424}, {"_ 44_", 1032}});
}

TEST(Operators, UnknownFunctionsAreTypeMismatches) {
  ExpectErrors({{"log10(100)", 13}, {"foo(1)", 13}, {"asin(1)", 13}, {"undefinedvar(1)", 13}});
}

TEST(Operators, RealArithmeticKeepsTheGeneralRules) {
  auto engine = ReadyEngine();
  EXPECT_EQ(engine.Eval("1.5+1"), Value::Double(2.5));
  EXPECT_EQ(engine.Eval("True+1.5"), Value::Double(0.5));
  EXPECT_EQ(engine.Eval("undefinedvar*2.5"), Value::Double(0));
  EXPECT_EQ(engine.Eval("2.5-0.5"), Value::Double(2));
  EXPECT_EQ(engine.Eval("\"1\"+1.5"), Value::Double(2.5));
  EXPECT_EQ(engine.Eval("1.5 & 1"), Value::String("1.51"));
  EXPECT_EQ(ErrorOf(engine, "1.5/0"), 11);
  EXPECT_EQ(ErrorOf(engine, "0.0/0"), 6);
  EXPECT_EQ(ErrorOf(engine, "(-8.0)^(1/3)"), 5);
  EXPECT_EQ(ErrorOf(engine, "0.0^-1.5"), 11);
  EXPECT_EQ(ErrorOf(engine, "1e308+1e308"), 6);
  EXPECT_EQ(ErrorOf(engine, "-1e308-1e308"), 6);
}

TEST(Operators, AVariableCanGoFromTextToNumber) {
  auto engine = ReadyEngine();
  engine.ExecuteStatement("x=\"abc\"");
  EXPECT_EQ(engine.Eval("x & 1"), Value::String("abc1"));
  engine.ExecuteStatement("x=2.5");
  EXPECT_EQ(engine.Eval("x*2"), Value::Double(5));
  EXPECT_EQ(engine.Eval("x & \"\""), Value::String("2.5"));
}
