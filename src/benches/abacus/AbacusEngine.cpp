#include "AbacusEngine.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "expression/ConstantResolution.h"
#include "expression/ExpressionNormaliser.h"
#include "expression/MathFunctions.h"
#include "script/BuiltinFunctions.h"
#include "script/Lexer.h"

#include <QRegularExpression>

namespace abacus {

namespace {

using core::RuntimeError;

const QRegularExpression& AnswerWord() {
  static const QRegularExpression word(QStringLiteral("(?<![a-z_])ans(?![a-z_])"), QRegularExpression::CaseInsensitiveOption);
  return word;
}

QString LowerFirst(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toLower();
  return text;
}

// The main form's Form_Load: the engine with the program's functions, then pi and e.
void Start(script::ScriptControl& engine, core::SharedState& state) {
  expression::StartScriptEngine(engine, state);
  engine.ExecuteStatement(QStringLiteral("pi=3.14159265358979"));
  engine.ExecuteStatement(QStringLiteral("e=2.71828182845905"));
}

}  // namespace

QString ErrorWords(int number, const QString& description) {
  switch (number) {
    case RuntimeError::DivisionByZero: return QStringLiteral("Cannot compute: division by zero");
    case RuntimeError::Overflow: return QStringLiteral("Cannot compute: the number is too large (overflow)");
    case RuntimeError::InvalidProcedureCall:
      return QStringLiteral("Cannot compute: a function was given a value it does not take");
    case RuntimeError::WrongArgumentCount:
      return QStringLiteral("Cannot compute: a function was given the wrong number of values");
    case RuntimeError::TypeMismatch: return QStringLiteral("Cannot compute: that is not a number");
    case RuntimeError::SyntaxError:
    case RuntimeError::ExpectedCloseParen:
    case RuntimeError::ExpectedIdentifier:
    case RuntimeError::ExpectedEndOfStatement:
    case RuntimeError::InvalidCharacter:
    case RuntimeError::UnterminatedString: return QStringLiteral("Cannot read this: ") + LowerFirst(description);
    default: return QStringLiteral("Cannot compute: ") + LowerFirst(description);
  }
}

AbacusEngine::AbacusEngine() {
  core::InitTables(m_state);
  Start(m_radians.Control, m_state);
  Start(m_degrees.Control, m_state);
  m_degreeFunctions = std::make_shared<DegreeFunctions>(m_state.MathError);
  // Added after Math, so its names take the place of the radian ones.
  m_degrees.Control.AddObject(QStringLiteral("Degrees"), m_degreeFunctions, true);
  m_radians.Evaluation = std::make_unique<expression::ScriptEvaluation>(m_state, m_radians.Control);
  m_degrees.Evaluation = std::make_unique<expression::ScriptEvaluation>(m_state, m_degrees.Control);
  for (const QString& name : expression::MathFunctions(m_state.MathError).MemberNames()) m_functionNames << name.toLower();
  m_functionNames << m_degreeFunctions->MemberNames();
}

Answer AbacusEngine::Evaluate(const QString& input, AngleUnit unit) {
  Answer answer;
  QString text = input.trimmed();
  if (text.isEmpty()) {
    answer.Message = QStringLiteral("Type an expression, such as 2+3*4 or sqrt(2)");
    return answer;
  }
  if (auto problem = PutInAnswer(text)) {
    answer.Message = *problem;
    return answer;
  }
  if (QString unknown = UnknownName(text); !unknown.isEmpty()) {
    answer.Message = unknown;
    return answer;
  }
  Engine& engine = EngineFor(unit);
  m_degreeFunctions->ClearFailure();
  const double value = engine.Evaluation->EvaluateExpression(text);
  if (m_state.MathError) {
    answer.Message = WhyItFailed(engine, text);
    return answer;
  }
  answer.Ok = true;
  answer.Value = value;
  answer.Text = core::FormatNumber(value);
  m_lastAnswer = value;
  return answer;
}

// "ans" becomes the last answer with all its digits, in brackets so that "-ans" and "ans^2" keep
// their meaning for a negative one.
std::optional<QString> AbacusEngine::PutInAnswer(QString& text) const {
  if (!text.contains(AnswerWord())) return std::nullopt;
  if (!m_lastAnswer) return QStringLiteral("No answer yet: ans stands for the last answer");
  text.replace(AnswerWord(), u'(' + QString::number(*m_lastAnswer, 'g', 17) + u')');
  return std::nullopt;
}

// A name the engine would take as an empty variable, or one before "(" that is no function. The
// text is read as the engine reads it: normalised, so "2x" shows its x.
QString AbacusEngine::UnknownName(const QString& text) const {
  std::vector<script::Token> tokens;
  try {
    tokens = script::Tokenize(expression::NormaliseExpression(m_state.FunctionTokens, text));
  } catch (const RuntimeError&) {
    return QString();  // the evaluation tells what is wrong
  }
  for (size_t i = 0; i + 1 < tokens.size(); ++i) {
    if (tokens[i].Kind != script::TokenKind::Identifier) continue;
    const QString& name = tokens[i].Name;
    const script::TokenKind next = tokens[i + 1].Kind;
    if (next == script::TokenKind::Dot) continue;
    if (next == script::TokenKind::OpenParen && (m_functionNames.contains(name) || script::FindBuiltin(name))) continue;
    if (name == u"pi" || name == u"e") continue;
    // The normaliser turns "foo(2)" into "foo*(2)": a name the user wrote before a bracket was
    // meant as a function.
    const QRegularExpression call(QStringLiteral("(?<![a-z_])") + QRegularExpression::escape(name) + QStringLiteral("\\s*\\("),
                                  QRegularExpression::CaseInsensitiveOption);
    return (text.contains(call) ? QStringLiteral("Unknown function: ") : QStringLiteral("Unknown name: ")) + name;
  }
  return QString();
}

// The point field only flags a failure; the same steps again, catching the engine's error, give
// its words. A function outside its domain raises nothing, and is said plainly.
QString AbacusEngine::WhyItFailed(Engine& engine, const QString& text) const {
  if (!m_degreeFunctions->Failure().isEmpty()) return QStringLiteral("Cannot compute: ") + m_degreeFunctions->Failure();
  try {
    const QString normal =
        expression::SubstituteConstants(m_state, expression::NormaliseExpression(m_state.FunctionTokens, text));
    engine.Control.Eval(normal).ToDouble();
  } catch (const RuntimeError& error) {
    return ErrorWords(error.Number(), error.Description());
  }
  return QStringLiteral("Cannot compute: a function is not defined there (as sqrt(-1) or ln(0))");
}

}  // namespace abacus
