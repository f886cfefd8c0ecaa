#pragma once

#include "core/SharedState.h"
#include "script/ScriptControl.h"

#include <QString>

namespace expression {

// Readies the engine: the language "vbscript" and the program's MathFunctions as "Math" with
// global members, reporting failures into the state's MathError.
void StartScriptEngine(script::ScriptControl& engine, core::SharedState& state);

// Every number the program computes for points, ranges and bounds: the text normalised, the
// user's constants put in, and the result of the script engine.
class ScriptEvaluation {
public:
  ScriptEvaluation(core::SharedState& state, script::ScriptControl& engine);

  // Clears MathError; on any failure sets it and returns 0.
  double EvaluateExpression(const QString& text);
  // The same with one more variable set first: name = value.
  double EvaluateWith(const QString& text, const QString& name, double value);
  // Whether the normalised text evaluates (without constants). MathError is left as it is.
  bool CheckExpression(const QString& text);

private:
  double Evaluate(const QString& text, const QString& extraStatement);
  void SetNumbers();

  core::SharedState& m_state;
  script::ScriptControl& m_engine;
};

}  // namespace expression
