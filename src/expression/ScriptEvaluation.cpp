#include "ScriptEvaluation.h"

#include "ConstantResolution.h"
#include "ExpressionNormaliser.h"
#include "MathFunctions.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "numeric/NumericKernel.h"

namespace expression {

void StartScriptEngine(script::ScriptControl& engine, core::SharedState& state) {
  engine.SetLanguage(QStringLiteral("vbscript"));
  engine.AddObject(QStringLiteral("Math"), std::make_shared<MathFunctions>(state.MathError), true);
}

ScriptEvaluation::ScriptEvaluation(core::SharedState& state, script::ScriptControl& engine)
    : m_state(state), m_engine(engine) {}

// pi and e as the program computes with them, set anew on every call: a script may have
// assigned them meanwhile.
void ScriptEvaluation::SetNumbers() {
  m_engine.ExecuteStatement(QStringLiteral("pi=") + core::FormatNumber(numeric::kPi));
  m_engine.ExecuteStatement(QStringLiteral("e=") + core::FormatNumber(numeric::kE));
}

double ScriptEvaluation::Evaluate(const QString& text, const QString& extraStatement) {
  m_state.MathError = false;
  try {
    QString normal = NormaliseExpression(m_state.FunctionTokens, text);
    SetNumbers();
    if (!extraStatement.isEmpty()) m_engine.ExecuteStatement(extraStatement);
    normal = SubstituteConstants(m_state, normal);
    return m_engine.Eval(normal).ToDouble();
  } catch (const core::RuntimeError&) {
    m_state.MathError = true;
    return 0;
  }
}

double ScriptEvaluation::EvaluateExpression(const QString& text) { return Evaluate(text, QString()); }

double ScriptEvaluation::EvaluateWith(const QString& text, const QString& name, double value) {
  return Evaluate(text, name + u'=' + core::FormatNumber(value));
}

bool ScriptEvaluation::CheckExpression(const QString& text) {
  try {
    const QString normal = NormaliseExpression(m_state.FunctionTokens, text);
    SetNumbers();
    m_engine.Eval(normal);
    return true;
  } catch (const core::RuntimeError&) {
    return false;
  }
}

}  // namespace expression
