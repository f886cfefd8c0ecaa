#include "EquationCompiler.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/TextFunctions.h"

#include <QStringList>

namespace plotcompiler {

namespace {

using core::InStr;
using core::Left;
using core::Mid;
using core::Replace;
using core::TryStep;

// Protection marks of the compiler; none may occur in user text.
const QString kTheta = QStringLiteral("@~@");
const QString kCommand = QStringLiteral("###");
const QString kOpenList = QStringLiteral("##");
const QString kCloseList = QStringLiteral("&&");

QString DropFirstAndLast(const QString& s) { return Mid(s, 2, s.size() - 2); }

bool Has(const QString& s, const char16_t* what) { return core::Contains(s, QString::fromUtf16(what)); }

// The editor's Greek symbols spelled out; theta protected while "declare" is cut apart.
QString SpellSymbols(QString s, bool bare) {
  s = Replace(s, QStringLiteral("q..symb"), bare ? QStringLiteral("x") : QStringLiteral("theta"));
  s = Replace(s, QStringLiteral("varho"), QStringLiteral("symb"));
  s = Replace(s, QStringLiteral("var..symb"), QStringLiteral("symb"));
  s = Replace(s, QStringLiteral("a..symb"), QStringLiteral("alpha"));
  s = Replace(s, QStringLiteral("b..symb"), QStringLiteral("beta"));
  s = Replace(s, QStringLiteral("f..symb"), QStringLiteral("phi"));
  s = Replace(s, QStringLiteral("t..symb"), QStringLiteral("tau"));
  s = Replace(s, QStringLiteral("m..symb"), QStringLiteral("meu"));
  s = Replace(s, QStringLiteral("l..symb"), QStringLiteral("lambda"));
  s = Replace(s, QStringLiteral("r..symb"), QStringLiteral("rho"));
  s = Replace(s, QStringLiteral("theta"), kTheta);
  // "command" goes to its mark and back at once; the pair is kept, so a typed "###" reads as
  // "command" from here on.
  s = Replace(s, QStringLiteral("command"), kCommand);
  s = Replace(s, kCommand, QStringLiteral("command"));
  if (bare) {
    s = Replace(s, QStringLiteral("y="), QString());
    s = Replace(s, QStringLiteral("r="), QString());
    s = Replace(s, QStringLiteral("x="), QString());
  }
  return s;
}

// Position of the domain part: ",domain", or ",(domain" when the forms stand in brackets.
int DomainPosition(const QString& s) {
  int d = InStr(s, QStringLiteral(",domain"));
  if (Has(s, u"domain") && d == 0) d = InStr(s, QStringLiteral(",(domain"));
  return d;
}

// Domain forms joined by "and" become conditions joined by ";". A piece that cannot be read
// stays as it is.
QString JoinedConditions(const QString& s) {
  QStringList pieces = core::Split(s, QStringLiteral("and"));
  for (QString& piece : pieces) {
    if (const auto chain = TryDomainToInequality(piece)) piece = *chain;
  }
  return pieces.join(u';');
}

// The conditions of the domain part s: one form, or several joined by "and". A single form that
// cannot be read leaves the conditions as they were.
QString Conditions(const QString& s, const QString& before) {
  if (Has(s, u"and")) return JoinedConditions(s);
  return TryDomainToInequality(s).value_or(before);
}

// "declare(y=x,domain(...))": returns the finished line.
QString FormA(QString s) {
  QString head;
  QString tail;
  TryStep([&] { s = Replace(s, QStringLiteral("declare"), QString()); });
  TryStep([&] { s = DropFirstAndLast(s); });
  int d = 0;
  TryStep([&] { d = DomainPosition(s); });
  TryStep([&] { head = Left(s, d - 1); });
  TryStep([&] { s = Mid(s, d + 1); });
  TryStep([&] { tail = Conditions(s, tail); });
  s = head + u';' + tail;
  return Replace(s, kTheta, QStringLiteral("theta"));
}

// The comma that separates the expression from its condition: the last comma that no ")" of a
// bracket opened after it follows. 0 when there is none.
qsizetype ConditionComma(const QString& s) {
  bool open = false;
  qsizetype p = 0;
  for (qsizetype i = 1; i <= s.size(); ++i) {
    const QChar c = s.at(i - 1);
    if (c == u',') {
      p = i;
      open = false;
    } else if (c == u'(') {
      open = true;
    } else if (c == u')' && !open) {
      p = 0;
    }
  }
  return p;
}

// "declare(y=x^2,x>0)" or "y=declare(x^2,x>0)": the condition stays as typed. Returns s for the
// finishing steps.
QString FormB(QString s) {
  QString lhs;
  QString head;
  QString tail;
  QChar first;
  TryStep([&] { s = Replace(s, QStringLiteral("declare"), QString()); });
  if (!s.isEmpty()) first = s.at(0);
  TryStep([&] {
    if (first == u'(') s = DropFirstAndLast(s);
  });
  TryStep([&] { lhs = Left(s, InStr(s, QStringLiteral("=")) - 1); });
  TryStep([&] { s = Mid(s, InStr(s, QStringLiteral("=")) + 1); });
  TryStep([&] {
    if (first != u'(') s = DropFirstAndLast(s);
  });
  qsizetype p = 0;
  TryStep([&] { p = ConditionComma(s); });
  // Without a separating comma the whole rest is the condition and the expression is empty.
  TryStep([&] { head = lhs + u'=' + (p > 0 ? Left(s, p - 1) : QString()); });
  TryStep([&] { tail = Mid(s, p + 1); });
  return head + u';' + tail;
}

// "y=declare(x,domain(x,0,1,0))". Returns s for the finishing steps.
QString FormC(QString s) {
  QString lhs;
  QString head;
  QString tail;
  TryStep([&] { lhs = Left(s, InStr(s, QStringLiteral("=")) - 1); });
  TryStep([&] { s = Mid(s, InStr(s, QStringLiteral("=")) + 1); });
  TryStep([&] { s = Replace(s, QStringLiteral("declare"), QString()); });
  TryStep([&] { s = DropFirstAndLast(s); });
  int d = 0;
  TryStep([&] { d = Has(s, u"and") ? DomainPosition(s) : InStr(s, QStringLiteral(",domain")); });
  TryStep([&] { head = lhs + u'=' + Left(s, d - 1); });
  TryStep([&] { s = Mid(s, d + 1); });
  TryStep([&] { tail = Conditions(s, tail); });
  return head + u';' + tail;
}

// Theta back, the normaliser's "[x^]" closed, integer brackets to "fix(", a leading list bracket
// and the last character kept as list brackets.
QString Finish(QString s) {
  TryStep([&] { s = Replace(s, kTheta, QStringLiteral("theta")); });
  TryStep([&] { s = Replace(s, QStringLiteral("x^]"), QStringLiteral("x)")); });
  TryStep([&] {
    if (Left(s, 1) == QStringLiteral("[")) {
      s = kOpenList + Mid(s, 2);
      s = Left(s, s.size() - 1) + kCloseList;
    }
  });
  TryStep([&] {
    if (!Has(s, u"command")) {
      s = Replace(s, QStringLiteral("]"), QStringLiteral(")"));
      s = Replace(s, QStringLiteral("["), QStringLiteral("fix("));
    }
  });
  TryStep([&] { s = Replace(s, kOpenList, QStringLiteral("[")); });
  TryStep([&] { s = Replace(s, kCloseList, QStringLiteral("]")); });
  return s;
}

}  // namespace

QString CompileEquation(const QString& text, bool bare) {
  QString s = SpellSymbols(text, bare);
  if (Has(s, u"declare")) {
    if (s.startsWith(QStringLiteral("declare")) && Has(s, u"domain")) return FormA(s);
    s = Has(s, u"domain") ? FormC(s) : FormB(s);
  }
  return Finish(s);
}

std::optional<QString> TryDomainToInequality(const QString& text) {
  if (!Has(text, u"domain")) return text;
  QString s = core::Trim(text);
  if (s.startsWith(u'(') && s.endsWith(u')')) s = DropFirstAndLast(s);
  s = Replace(s, QStringLiteral("domain"), QString());
  if (s.size() < 2) return std::nullopt;
  s = DropFirstAndLast(s);
  const QStringList q = core::Split(s, QStringLiteral(","));
  if (q.size() < 4) return std::nullopt;
  const double bounds = core::NumericPrefix(q[3]);
  if (bounds == 0) return q[1] + u'<' + q[0] + u'<' + q[2];
  if (bounds == 1) return q[1] + QStringLiteral("<=") + q[0] + QStringLiteral("<=") + q[2];
  if (bounds == 2) return q[1] + u'<' + q[0] + QStringLiteral("<=") + q[2];
  if (bounds == 3) return q[1] + QStringLiteral("<=") + q[0] + u'<' + q[2];
  return QString();
}

QString DomainToInequality(const QString& text) { return TryDomainToInequality(text).value_or(QString()); }

}  // namespace plotcompiler
