#pragma once

#include "DegreeFunctions.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <QString>

#include <memory>
#include <optional>

namespace abacus {

enum class AngleUnit { Radians, Degrees };

// One line's answer: the value as the program formats it, or why there is none, in words.
struct Answer {
  bool Ok = false;
  double Value = 0;
  QString Text;     // the value, 15 significant digits ("0.333333333333333")
  QString Message;  // empty when Ok: "Cannot compute: division by zero", "Unknown name: q"
};

// The calculator behind the window: every line is evaluated by the program's own path for number
// fields (ScriptEvaluation::EvaluateExpression, pi and e as the main form sets them), so the
// answers are the ones a point field gives. In degrees, a second engine has the trigonometric
// functions in degrees in place of the radian ones. "ans" stands for the last answer.
//
// Where the point field would quietly take an unknown name as 0 (or as an empty constant), the
// calculator says "Unknown name": a learner who typed "2x" should hear that x has no value.
class AbacusEngine {
public:
  AbacusEngine();
  AbacusEngine(const AbacusEngine&) = delete;
  AbacusEngine& operator=(const AbacusEngine&) = delete;

  Answer Evaluate(const QString& text, AngleUnit unit);

  std::optional<double> LastAnswer() const { return m_lastAnswer; }

private:
  struct Engine {
    script::ScriptControl Control;
    std::unique_ptr<expression::ScriptEvaluation> Evaluation;
  };

  Engine& EngineFor(AngleUnit unit) { return unit == AngleUnit::Degrees ? m_degrees : m_radians; }
  std::optional<QString> PutInAnswer(QString& text) const;
  QString UnknownName(const QString& text) const;
  QString WhyItFailed(Engine& engine, const QString& text) const;

  core::SharedState m_state;
  Engine m_radians;
  Engine m_degrees;
  std::shared_ptr<DegreeFunctions> m_degreeFunctions;
  QStringList m_functionNames;  // lower case: what may stand before "("
  std::optional<double> m_lastAnswer;
};

// The words for an error of the script engine: "Cannot compute: division by zero".
QString ErrorWords(int number, const QString& description);

}  // namespace abacus
