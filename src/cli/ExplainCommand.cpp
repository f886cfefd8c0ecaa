#include "ExplainCommand.h"

#include "expression/ExpressionNormaliser.h"
#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"

namespace cli {

QString Explain(const core::SharedState& state, const QString& text) {
  return QStringLiteral("normalised: ") + expression::NormaliseExpression(state.FunctionTokens, text) +
         QStringLiteral("\nline: ") + plotcompiler::CompileEquation(text, false) +
         QStringLiteral("\nbare: ") + plotcompiler::CompileEquation(text, true) +
         QStringLiteral("\nrow: ") + plotcompiler::CompileInequalityRow(text) + QStringLiteral("\n\n");
}

int RunExplain(const QStringList& arguments, Streams streams) {
  core::SharedState state;
  core::InitTables(state);

  QStringList texts = arguments;
  if (!texts.isEmpty() && texts.first() == u"--") texts.removeFirst();
  ForEachText(texts, streams.In, [&](const QString& text) { streams.Out << Explain(state, text); });
  streams.Out.flush();
  return 0;
}

}  // namespace cli
