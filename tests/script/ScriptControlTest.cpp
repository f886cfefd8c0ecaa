#include "ScriptTestSupport.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QStringList>

using script::ScriptControl;
using script::Value;

namespace {

// An object whose members record their calls: "exp" shadows the built-in, "twice" doubles.
class Recorder : public script::ScriptObject {
public:
  int Calls = 0;
  QStringList MemberNames() const override { return {"exp", "Twice", "none"}; }
  Value Invoke(int member, std::span<const Value> arguments) override {
    ++Calls;
    if (member == 2) {
      if (!arguments.empty()) throw core::RuntimeError::Of(core::RuntimeError::WrongArgumentCount);
      return Value::Integer(7);
    }
    if (arguments.size() != 1) throw core::RuntimeError::Of(core::RuntimeError::WrongArgumentCount);
    return Value::Double(member == 0 ? -1 : 2 * arguments[0].ToDouble());
  }
};

}  // namespace

TEST(ScriptControl, OnlyVbscriptIsALanguage) {
  ScriptControl engine;
  EXPECT_THROW(engine.Eval("1"), core::RuntimeError);
  EXPECT_THROW(engine.SetLanguage("JScript"), core::RuntimeError);
  engine.SetLanguage("VBScript");
  EXPECT_EQ(engine.Language(), "VBScript");
  EXPECT_EQ(engine.Eval("1"), Value::Integer(1));
}

TEST(ScriptControl, StatementsAssignVariablesThatLiveOn) {
  auto engine = ReadyEngine();
  engine.ExecuteStatement("pi=3.14159265358979");
  engine.ExecuteStatement("x = 0.5");
  EXPECT_DOUBLE_EQ(engine.Eval("2*pi").ToDouble(), 6.28318530717958);
  EXPECT_DOUBLE_EQ(engine.Eval("x").ToDouble(), 0.5);
  engine.ExecuteStatement("y=x*4 : z=y+1");
  EXPECT_DOUBLE_EQ(engine.Eval("z").ToDouble(), 3);
  engine.ExecuteStatement("");
}

TEST(ScriptControl, EqualsInsideEvalCompares) {
  auto engine = ReadyEngine();
  engine.ExecuteStatement("y=2");
  EXPECT_EQ(engine.Eval("y=2"), Value::Boolean(true));
  EXPECT_EQ(engine.Eval("y=3"), Value::Boolean(false));
  EXPECT_DOUBLE_EQ(engine.Eval("y").ToDouble(), 2);
}

TEST(ScriptControl, BadStatements) {
  auto engine = ReadyEngine();
  const auto errorOf = [&](const QString& text) -> int {
    try {
      engine.ExecuteStatement(text);
    } catch (const core::RuntimeError& e) {
      return e.Number();
    }
    return 0;
  };
  EXPECT_EQ(errorOf("1=2"), 1010);
  EXPECT_EQ(errorOf("x"), 1011);
  EXPECT_EQ(errorOf("x=1/0"), 11);
  EXPECT_EQ(errorOf("sin=2"), 501);
  EXPECT_EQ(errorOf("x=1 2"), 1025);
  EXPECT_EQ(errorOf("x="), 1002);
}

TEST(ScriptControl, CachedTextsSeeNewValues) {
  auto engine = ReadyEngine();
  engine.ExecuteStatement("x=1");
  EXPECT_DOUBLE_EQ(engine.Eval("x*10").ToDouble(), 10);
  engine.ExecuteStatement("x=2");
  EXPECT_DOUBLE_EQ(engine.Eval("x*10").ToDouble(), 20);
  EXPECT_EQ(ErrorOf(engine, "1/"), 1002);
  EXPECT_EQ(ErrorOf(engine, "1/"), 1002);  // a cached failure fails again
}

TEST(ScriptControl, GlobalMembersWinOverBuiltIns) {
  auto engine = ReadyEngine();
  EXPECT_DOUBLE_EQ(engine.Eval("exp(0)").ToDouble(), 1);  // compiled and cached before the object
  auto recorder = std::make_shared<Recorder>();
  engine.AddObject("Rec", recorder, true);
  EXPECT_DOUBLE_EQ(engine.Eval("exp(0)").ToDouble(), -1);
  EXPECT_DOUBLE_EQ(engine.Eval("TWICE(21)").ToDouble(), 42);
  EXPECT_DOUBLE_EQ(engine.Eval("rec.twice(2)").ToDouble(), 4);
  EXPECT_DOUBLE_EQ(engine.Eval("none").ToDouble(), 7);  // called without brackets
  EXPECT_DOUBLE_EQ(engine.Eval("none()").ToDouble(), 7);
  EXPECT_EQ(ErrorOf(engine, "twice(1,2)"), 450);
  EXPECT_EQ(ErrorOf(engine, "rec.missing(1)"), 438);
  EXPECT_EQ(recorder->Calls, 6);
}

TEST(ScriptControl, MembersOfAnObjectWithoutGlobalMembersNeedItsName) {
  auto engine = ReadyEngine();
  engine.AddObject("Rec", std::make_shared<Recorder>(), false);
  EXPECT_EQ(ErrorOf(engine, "twice(1)"), 13);
  EXPECT_DOUBLE_EQ(engine.Eval("Rec.Twice(1)").ToDouble(), 2);
  EXPECT_DOUBLE_EQ(engine.Eval("exp(0)").ToDouble(), 1);
}

TEST(ScriptControl, DeepNestingEvaluates) {
  auto engine = ReadyEngine();
  const QString nested = QString(10000, u'(') + "1" + QString(10000, u')');
  EXPECT_DOUBLE_EQ(engine.Eval(nested).ToDouble(), 1);
  const QString minus = QString(10000, u'-') + "1";
  EXPECT_DOUBLE_EQ(engine.Eval(minus).ToDouble(), 1);
  const QString calls = QString("abs(").repeated(10000) + "-2" + QString(10000, u')');
  EXPECT_DOUBLE_EQ(engine.Eval(calls).ToDouble(), 2);
  EXPECT_EQ(ErrorOf(engine, QString(10000, u'(')), 1002);
}

TEST(ScriptControl, LongTextsAndHostileInput) {
  auto engine = ReadyEngine();
  const QString sum = QString("1+").repeated(50000) + "1";
  EXPECT_DOUBLE_EQ(engine.Eval(sum).ToDouble(), 50001);
  for (const QString& text : {QString(100000, u'x'), QString(100000, u'"'), QString("\"").repeated(3),
                              QString("1e99999"), QString("2^99999"), QString("&H"), QString("&HFFFFFFFFF"),
                              QString(QChar(0)), QString::fromUtf8("\u03b1+1"), QString("\x01\x7f"),
                              QString("x=1"), QString("::"), QString("\n"), QString("sin(1)cos(1)")}) {
    try {
      engine.Eval(text);
    } catch (const core::RuntimeError&) {
    }
    try {
      engine.ExecuteStatement(text);
    } catch (const core::RuntimeError&) {
    }
  }
  EXPECT_DOUBLE_EQ(engine.Eval(QString(100000, u'x')).ToDouble(), 0);  // an unknown name is Empty
}
