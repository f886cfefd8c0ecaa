#include "RowKind.h"

#include "expression/ConstantResolution.h"
#include "plotcompiler/EquationCompiler.h"

#include <QRegularExpression>

namespace rows {

RowKind KindOfRow(const QString& text, bool noteVisible) {
  if (noteVisible) return RowKind::Note;
  if (text.isEmpty()) return RowKind::Empty;
  if (text.startsWith(QStringLiteral("command"))) return RowKind::Command;
  if (text.startsWith(u'[')) return RowKind::Point;
  if (text.contains(QStringLiteral("declare"))) return RowKind::Declaration;
  return RowKind::Function;
}

std::optional<ConstantRow> ConstantOfRow(const core::SharedState& state, const QString& text, bool noteVisible) {
  if (noteVisible) return std::nullopt;
  static const QRegularExpression form(
      QStringLiteral("^([^=]+)=\\s*([-+]?(\\d+\\.?\\d*|\\.\\d+)([eE][-+]?\\d+)?)\\s*$"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  // A constant by the replot's own test, so that a slider shows exactly where the row sets a value.
  // (The empty name counts as one there: a row that compiles without a name is none.)
  const QString line = plotcompiler::CompileEquation(text, false);
  const qsizetype equals = line.indexOf(u'=');
  if (equals <= 0 || !expression::IsConstantName(state, line.left(equals))) return std::nullopt;
  return ConstantRow{match.captured(1), match.captured(2).toDouble()};
}

}  // namespace rows
