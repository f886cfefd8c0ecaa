#include "EvalCommand.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "expression/ConstantResolution.h"
#include "expression/ScriptEvaluation.h"
#include "numeric/NumericKernel.h"

namespace cli {

namespace {

struct EvalOptions {
  bool Script = false;
  QStringList Statements;
  QStringList Constants;
  QStringList Texts;
};

// Options are recognised by their exact names only, so that "-x^2" is a text.
std::optional<EvalOptions> Parse(const QStringList& arguments, QTextStream& err) {
  EvalOptions options;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    if (a == u"--") {
      options.Texts << arguments.mid(i + 1);
      break;
    }
    if (a == u"--script") {
      options.Script = true;
    } else if (a == u"--exec" || a == u"--const") {
      if (i + 1 >= arguments.size()) {
        err << "quillograph-cli eval: " << a << " needs a value\n";
        return std::nullopt;
      }
      (a == u"--exec" ? options.Statements : options.Constants) << arguments[++i];
    } else {
      options.Texts << a;
    }
  }
  return options;
}

QString ErrorLine(const core::RuntimeError& error) {
  return QStringLiteral("Error %1: %2").arg(error.Number()).arg(error.Description());
}

class Calculator {
public:
  explicit Calculator(bool script) : m_script(script), m_evaluation(m_state, m_engine) {
    core::InitTables(m_state);
    expression::StartScriptEngine(m_engine, m_state);
    if (m_script) {
      m_engine.ExecuteStatement(QStringLiteral("pi=") + core::FormatNumber(numeric::kPi));
      m_engine.ExecuteStatement(QStringLiteral("e=") + core::FormatNumber(numeric::kE));
    }
  }

  void Execute(const QString& statement, QTextStream& err) {
    try {
      m_engine.ExecuteStatement(statement);
    } catch (const core::RuntimeError& error) {
      err << "quillograph-cli eval: --exec " << statement << ": " << ErrorLine(error) << '\n';
    }
  }

  void Define(const QString& constant, QTextStream& err) {
    if (!expression::StoreConstant(m_state, constant)) {
      err << "quillograph-cli eval: --const " << constant << ": not NAME=VALUE with a constant name\n";
    }
  }

  QString Line(const QString& text) {
    if (!m_script) {
      const double value = m_evaluation.EvaluateExpression(text);
      return m_state.MathError ? QStringLiteral("MathError") : core::FormatNumber(value);
    }
    try {
      return core::FormatNumber(m_engine.Eval(text).ToDouble());
    } catch (const core::RuntimeError& error) {
      return ErrorLine(error);
    }
  }

private:
  bool m_script;
  core::SharedState m_state;
  script::ScriptControl m_engine;
  expression::ScriptEvaluation m_evaluation;
};

}  // namespace

int RunEval(const QStringList& arguments, Streams streams) {
  const auto options = Parse(arguments, streams.Err);
  if (!options) {
    streams.Err.flush();
    return 2;
  }
  Calculator calculator(options->Script);
  for (const QString& statement : options->Statements) calculator.Execute(statement, streams.Err);
  for (const QString& constant : options->Constants) calculator.Define(constant, streams.Err);
  streams.Err.flush();
  // Each answer goes out at once, for a calculator answering line by line.
  ForEachText(options->Texts, streams.In, [&](const QString& text) {
    streams.Out << calculator.Line(text) << '\n';
    streams.Out.flush();
  });
  return 0;
}

}  // namespace cli
