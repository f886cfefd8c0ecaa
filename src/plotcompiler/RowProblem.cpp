#include "RowProblem.h"

#include "expression/SymbolFolding.h"
#include "mathlang/LineParser.h"

#include <QRegularExpression>

namespace plotcompiler {

namespace {

// Where a constant stood in the text, once it is looked at: a character no typed text holds, so
// that a shorter name is not found inside a longer one that was there before it.
const QChar kPlace(0xE001);

// The text between the first pair of double quotes of a parser's message.
QString Quoted(const QString& message) {
  static const QRegularExpression quoted(QStringLiteral("\"([^\"]*)\""));
  const QRegularExpressionMatch match = quoted.match(message);
  return match.hasMatch() ? match.captured(1) : QString();
}

// Opening less closing brackets of both kinds, and whether a closing one came before its opening.
struct Brackets {
  int Open = 0;
  bool ClosedTooSoon = false;
};

Brackets CountBrackets(const QString& line) {
  Brackets count;
  for (const QChar c : line) {
    if (c == u'(' || c == u'[') ++count.Open;
    if (c == u')' || c == u']') count.ClosedTooSoon = count.ClosedTooSoon || --count.Open < 0;
  }
  return count;
}

QString Capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

}  // namespace

QString RowProblem::OfLine(const QString& line) {
  const mathlang::ParsedLine parsed = mathlang::ParseLine(line);
  if (!parsed.Ok()) return Worded(parsed.Error, line);
  // The plot refuses this one only once it has the line's form in hand.
  if (parsed.Form == mathlang::LineForm::R && parsed.Tree.Uses(parsed.Right, mathlang::Variable::R)) {
    return QStringLiteral("r stands on both sides of the \"=\"");
  }
  return {};
}

QString RowProblem::UnsetConstants(const core::SharedState& state, const QString& compiled) {
  QStringList unset;
  QString rest = compiled;
  // From the last slot to the first, as the values go in: long names before their letters.
  for (int slot = static_cast<int>(state.ConstantNames.size()) - 1; slot >= 0; --slot) {
    const QString& name = state.ConstantNames[static_cast<std::size_t>(slot)];
    if (name.isEmpty()) continue;
    const QString marked = expression::ReplaceSymbol(state.FunctionTokens, rest, name, QString(kPlace));
    if (marked == rest) continue;
    rest = marked;
    if (state.ConstantValues[static_cast<std::size_t>(slot)].isEmpty() && !unset.contains(name)) unset.prepend(name);
  }
  if (unset.isEmpty()) return {};
  return (unset.size() == 1 ? QStringLiteral("Unknown name: ") : QStringLiteral("Unknown names: ")) +
         unset.join(QStringLiteral(", "));
}

QString RowProblem::Worded(const QString& parserError, const QString& line) {
  const Brackets brackets = CountBrackets(line);
  if (brackets.ClosedTooSoon) return QStringLiteral("A bracket is closed that was never opened");
  if (brackets.Open > 0) return QStringLiteral("A bracket is not closed");
  const QString quoted = Quoted(parserError);
  if (parserError.startsWith(u"unknown name")) return QStringLiteral("Unknown name: ") + quoted;
  if (parserError.startsWith(u"unknown symbol")) return QStringLiteral("Unknown symbol: ") + quoted;
  if (parserError.startsWith(u"unexpected character")) return QStringLiteral("A character that has no meaning here: ") + quoted;
  if (parserError.startsWith(u"unexpected")) return QStringLiteral("Something is missing before \"%1\"").arg(quoted);
  if (parserError.startsWith(u"expected")) return QStringLiteral("\"%1\" is missing").arg(quoted);
  if (parserError == u"the expression ends too early") return QStringLiteral("Something is missing at the end");
  if (parserError == u"the line is empty") return QStringLiteral("Nothing stands where the curve should be");
  return Capitalised(parserError);
}

}  // namespace plotcompiler
