#include "ConstantResolution.h"

#include "SymbolFolding.h"

#include "core/TextFunctions.h"

#include <QRegularExpression>

namespace expression {

bool IsConstantName(const core::SharedState& state, const QString& text) {
  const QString lower = text.toLower();
  for (const QString& name : state.ConstantNames) {
    if (name == lower) return true;
  }
  return false;
}

namespace {

// Whether a character next to a constant's place joins it as a factor: a digit, a letter, a
// bracket that closes (before) or opens (after), the mark that stands for pi.
bool IsFactorEnd(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u')' || c == u'#'; }
bool IsFactorStart(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'(' || c == u'#'; }

// Whether what stands before the end of a text (blanks passed over) takes a factor after it.
bool JoinsBefore(const QString& text) {
  qsizetype end = text.size();
  while (end > 0 && text[end - 1].isSpace()) --end;
  return end > 0 && IsFactorEnd(text[end - 1]);
}

// Whether what stands from a place on (blanks passed over) takes a factor before it.
bool JoinsAfter(const QString& text, qsizetype at, QChar mark) {
  while (at < text.size() && text[at].isSpace()) ++at;
  return at < text.size() && (text[at] == mark || IsFactorStart(text[at]));
}

// A number without a sign needs no brackets to stay one factor.
bool IsPlainNumber(const QString& value) {
  static const QRegularExpression number(QStringLiteral("^(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
  return number.match(value).hasMatch();
}

// Each mark becomes the value as one factor, multiplied with a number or name that stands beside
// it: with a=-1, "2ax" gives "2*(-1)*x" and not "2-1x"; with a=2, "2*2*x" and not "22x". An
// empty value (a constant that no row defines) leaves nothing, as it always did.
QString PlaceValue(const QString& text, QChar mark, const QString& value) {
  if (value.isEmpty()) return QString(text).remove(mark);
  const QString factor = IsPlainNumber(value) ? value : u'(' + value + u')';
  QString result;
  result.reserve(text.size() + 8);
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != mark) {
      result += text[i];
      continue;
    }
    if (JoinsBefore(result)) result += u'*';
    result += factor;
    if (JoinsAfter(text, i + 1, mark)) result += u'*';
  }
  return result;
}

}  // namespace

QString SubstituteConstants(const core::SharedState& state, const QString& text) {
  const QString kPiMark = QStringLiteral("##");
  // Where a constant stands, before its value goes in; a character that no typed text holds.
  const QChar kPlace(0xE000);
  QString result = core::Replace(text, QStringLiteral("pi"), kPiMark);
  for (int slot = static_cast<int>(state.ConstantNames.size()) - 1; slot >= 0; --slot) {
    result = ReplaceSymbol(state.FunctionTokens, result, state.ConstantNames[slot], QString(kPlace));
    result = PlaceValue(result, kPlace, state.ConstantValues[slot]);
  }
  return core::Replace(result, kPiMark, QStringLiteral("pi"));
}

bool StoreConstant(core::SharedState& state, const QString& line) {
  const int equals = core::InStr(line, QStringLiteral("="));
  if (equals == 0) return false;
  const QString name = core::Left(line, equals - 1);
  if (!IsConstantName(state, name)) return false;
  for (size_t slot = 0; slot < state.ConstantNames.size(); ++slot) {
    if (state.ConstantNames[slot] == name) state.ConstantValues[slot] = core::Mid(line, equals + 1);
  }
  return true;
}

}  // namespace expression
