#include "InequalityCompiler.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/TextFunctions.h"

#include <QStringList>

namespace plotcompiler {

namespace {

using core::InStr;
using core::Left;
using core::Mid;
using core::Occurrences;
using core::Replace;
using core::TryStep;

// Symbols back to the editor's spelling, the normaliser's bare tokens for theta and rho included.
QString EditorSymbols(QString s) {
  static const std::pair<const char16_t*, const char16_t*> kSymbols[] = {
      {u"theta", u"q..symb"}, {u"_ 44_", u"q..symb"}, {u"alpha", u"a..symb"},
      {u"beta", u"b..symb"},  {u"phi", u"f..symb"},   {u"tau", u"t..symb"},
      {u"meu", u"m..symb"},   {u"lambda", u"l..symb"}, {u"lamda", u"l..symb"},
      {u"rho", u"r..symb"},   {u"_ 36_", u"r..symb"}};
  for (const auto& [find, by] : kSymbols) s = Replace(s, QString::fromUtf16(find), QString::fromUtf16(by));
  return s;
}

// The chain "p0<p1<p2" (with "<=" where it is inclusive) as variable p1, bounds p0 and p2 and the
// bounds code of the domain form.
QString DomainOfChain(const QString& chain) {
  int bounds = 0;
  const qsizetype equals = Occurrences(chain, QStringLiteral("="));
  if (equals == 2) {
    bounds = 1;
  } else if (equals == 1) {
    bounds = InStr(chain, QStringLiteral("<=")) > InStr(chain, QStringLiteral("<")) ? 2 : 3;
  }
  const QStringList p = core::Split(Replace(chain, QStringLiteral("="), QString()), QStringLiteral("<"));
  return QStringLiteral("domain(") + core::At(p, 1) + u',' + core::At(p, 0) + u',' + core::At(p, 2) +
         u',' + QString::number(bounds) + u')';
}

bool IsChain(const QString& s) {
  return Occurrences(s, QStringLiteral("<")) == 2 && Occurrences(s, QStringLiteral(">")) != 1;
}

// "declare(head,v<...)" for one plain comparison, taking the sign's side from the condition.
QString PlainComparison(const QString& head, const QString& s, const QString& o) {
  const QString c = Mid(o, InStr(o, QStringLiteral(";")) + 1);
  const QString sign = Occurrences(c, QStringLiteral(">")) == 1 ? QStringLiteral(">") : QStringLiteral("<");
  QString v;
  TryStep([&] { v = Left(c, InStr(c, sign) - 1); });
  for (const char16_t* sign16 : {u"<", u">"}) {
    const QString comparison = QString::fromUtf16(sign16);
    if (Occurrences(s, comparison) == 1) {
      return QStringLiteral("declare(") + head + u',' + v + Mid(s, InStr(s, comparison)) + u')';
    }
  }
  return QString();
}

// Several conditions: each chain becomes a domain form, a plain condition stays, all joined by
// "and" in brackets.
QString SeveralConditions(const QString& o) {
  const QString head = Left(o, InStr(o, QStringLiteral(";")) - 1);
  const QStringList pieces = core::Split(o, QStringLiteral(";"));
  QString result = QStringLiteral("declare(") + head + QStringLiteral(",(") + InequalityToDomain(pieces.at(1)) + u')';
  for (qsizetype i = 2; i < pieces.size(); ++i) {
    result += QStringLiteral(" and (") + InequalityToDomain(pieces.at(i)) + u')';
  }
  return result + u')';
}

// Where the bracket that opens the text closes, or -1 when it stays open.
qsizetype ClosingBracketOfFirst(const QString& s) {
  int depth = 0;
  for (qsizetype i = 0; i < s.size(); ++i) {
    if (s[i] == u'(') ++depth;
    if (s[i] == u')' && --depth == 0) return i;
  }
  return -1;
}

}  // namespace

QString InequalityToDomain(const QString& text) {
  if (!IsChain(text)) return text;
  return DomainOfChain(text);
}

QString CompileInequalityRow(const QString& text) {
  QString s = EditorSymbols(text);
  const QString o = s;  // the conditions are counted in this copy
  if (Left(s, 7) == QStringLiteral("command")) return s;
  // A whole text in brackets loses them; "(x+1)*(x-1)" starts and ends with one but is no such
  // text, and keeps its own.
  if (s.startsWith(u'(') && s.endsWith(u')') && ClosingBracketOfFirst(s) == s.size() - 1) s = Mid(s, 2, s.size() - 2);
  s = Replace(s, QStringLiteral("=<"), QStringLiteral("<="));
  if (!core::Contains(s, QStringLiteral(";")) || s.startsWith(u'[')) return s;

  const QString head = Left(s, InStr(s, QStringLiteral(";")) - 1);
  s = Mid(s, InStr(s, QStringLiteral(";")) + 1);
  // "3>x>0" is read as "3<x<0": the chain is not turned round.
  if (Occurrences(s, QStringLiteral(">")) == 2) s = Replace(s, QStringLiteral(">"), QStringLiteral("<"));

  const qsizetype semicolons = Occurrences(o, QStringLiteral(";"));
  QString result;
  TryStep([&] {
    if ((Occurrences(o, QStringLiteral("<")) == 1 || Occurrences(o, QStringLiteral(">")) == 1) &&
        semicolons == 1) {
      result = PlainComparison(head, s, o);
    } else if (Occurrences(s, QStringLiteral("<")) == 2 && semicolons == 1) {
      result = QStringLiteral("declare(") + head + u',' + DomainOfChain(s) + u')';
    } else if (semicolons >= 2) {
      result = SeveralConditions(o);
    }
  });
  return result;
}

}  // namespace plotcompiler
