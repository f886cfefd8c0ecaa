#include "ChainRule.h"

#include "mathlang/Derivative.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace chain {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The names of the line language that are spelled with an x, or start where a run of letters
// could make an x look like part of a name; the rest are copied letter by letter.
const QStringList& KnownNames() {
  static const QStringList names = [] {
    QStringList n = {"exp",   "xroot", "xlog",  "sinh",   "cosh",  "tanh",         "coth",   "csch",   "sech",  "asinh",
                     "acosh", "atanh", "acsch", "asech",  "acoth", "acosech",      "cosech", "acosec", "cosec", "asin",
                     "acos",  "atan",  "acsc",  "asec",   "acot",  "sin",          "cos",    "tan",    "log10", "log",
                     "ln",    "sqrt",  "sqr",   "abs",    "sgn",   "int",          "fix",    "atn",    "deg",   "fact",
                     "csc",   "sec",   "cot",   "const",  "rnd",   "randomnumber", "theta",  "rho",    "alpha", "beta",
                     "phi",   "tau",   "meu",   "lambda", "pi",    "and",          "or",     "mod"};
    std::sort(n.begin(), n.end(), [](const QString& a, const QString& b) { return a.size() > b.size(); });
    return n;
  }();
  return names;
}

bool LooksLikePointList(const QString& text) {
  if (!text.startsWith(u'(') && !text.startsWith(u'[')) return false;
  int depth = 0;
  for (const QChar c : text) {
    if (c == u'(' || c == u'[') ++depth;
    if (c == u')' || c == u']') --depth;
    if (c == u',' && depth == 1) return true;
  }
  return false;
}

// A text that needs no brackets of its own inside a product: one number or one name.
QString Bracketed(const QString& text) {
  static const QRegularExpression atom(QStringLiteral("^[A-Za-z0-9.]+$"));
  return atom.match(text).hasMatch() ? text : QStringLiteral("(%1)").arg(text);
}

}  // namespace

ChainRule::ChainRule() {
  m_steps[Composition].Name = QStringLiteral("f(g(x))");
  m_steps[Composition].Caption = QStringLiteral("the composition: (g) put in for x in f");
  m_steps[InnerSlope].Name = QStringLiteral("g′(x)");
  m_steps[InnerSlope].Caption = QStringLiteral("the inner derivative");
  m_steps[OuterSlope].Name = QStringLiteral("f′(x)");
  m_steps[OuterSlope].Caption = QStringLiteral("the outer derivative");
  m_steps[OuterAtInner].Name = QStringLiteral("f′(g(x))");
  m_steps[OuterAtInner].Caption = QStringLiteral("the outer derivative taken at g(x)");
  m_steps[Product].Name = QStringLiteral("g′(x)·f′(g(x))");
  m_steps[Product].Caption = QStringLiteral("their product: the derivative of f(g(x))");
}

QString ChainRule::Substitute(const QString& text, const QString& inner) {
  const QString put = QStringLiteral("(%1)").arg(inner);
  QString result;
  qsizetype i = 0;
  while (i < text.size()) {
    if (!text[i].isLetter()) {
      result += text[i++];
      continue;
    }
    const QString rest = text.mid(i);
    const auto known = std::find_if(KnownNames().begin(), KnownNames().end(),
                                    [&](const QString& name) { return rest.startsWith(name, Qt::CaseInsensitive); });
    if (known != KnownNames().end()) {
      result += text.mid(i, known->size());
      i += known->size();
    } else {
      result += text[i].toLower() == u'x' ? put : QString(text[i]);
      ++i;
    }
  }
  return result;
}

QString ChainRule::Body(const QString& text) {
  QString body = text.trimmed();
  if (body.startsWith(u"y=")) body = body.mid(2).trimmed();
  return body;
}

QString ChainRule::WhyNot(const QString& name, const QString& body, mathlang::ParsedLine& line) {
  if (body.isEmpty()) return QStringLiteral("Type %1, a function of x, such as sin(x) or x^2.").arg(name);
  if (body.contains(u'=')) {
    return QStringLiteral(
               "%1 = \"%2\" is an equation, not a function of x: type the right-hand side of "
               "y = %1(x) alone.")
        .arg(name, body);
  }
  if (LooksLikePointList(body)) {
    return QStringLiteral("%1 = \"%2\" is a list of points, not a function: points have no derivative.")
        .arg(name, body);
  }
  line = mathlang::ParseExpression(body);
  if (!line.Ok()) return QStringLiteral("%1 cannot be read: %2.").arg(name, line.Error);
  using mathlang::Variable;
  for (const auto& [variable, other] : {std::pair{Variable::Y, "y"}, std::pair{Variable::T, "t"},
                                        std::pair{Variable::Theta, "theta"}, std::pair{Variable::R, "r"}}) {
    if (line.Tree.Uses(variable)) {
      return QStringLiteral("%1 may use x alone, but it uses %2: type a function of x.")
          .arg(name, QLatin1String(other));
    }
  }
  return {};
}

void ChainRule::Set(const QString& f, const QString& g) {
  for (ChainStep& step : m_steps) step.Text.clear(), step.Line = {};
  m_direct.clear();
  m_f = {};
  m_g = {};
  const QString outer = Body(f), inner = Body(g);
  m_problem = WhyNot(QStringLiteral("f"), outer, m_f);
  if (m_problem.isEmpty()) m_problem = WhyNot(QStringLiteral("g"), inner, m_g);
  if (!m_problem.isEmpty()) return;
  const auto outerSlope = mathlang::Derivative(QStringLiteral("y=") + outer);
  const auto innerSlope = mathlang::Derivative(QStringLiteral("y=") + inner);
  SetStep(Composition, Substitute(outer, inner));
  if (innerSlope) SetStep(InnerSlope, *innerSlope);
  if (outerSlope) SetStep(OuterSlope, *outerSlope);
  if (outerSlope) SetStep(OuterAtInner, Substitute(*outerSlope, inner));
  if (outerSlope && innerSlope) {
    SetStep(Product, Bracketed(*innerSlope) + u'*' + Bracketed(m_steps[OuterAtInner].Text));
  }
  if (const auto direct = mathlang::Derivative(QStringLiteral("y=") + m_steps[Composition].Text)) m_direct = *direct;
  FindProblem(outer, inner);
}

bool ChainRule::SetStep(Step step, const QString& text) {
  m_steps[step].Text = text;
  m_steps[step].Line = mathlang::ParseExpression(text);
  return m_steps[step].Line.Ok();
}

void ChainRule::FindProblem(const QString& outer, const QString& inner) {
  const auto cannot = [](const QString& name, const QString& body) {
    return QStringLiteral("Our derivative cannot differentiate %1 = %2, so the chain rule has no %1′ to use.")
        .arg(name, body);
  };
  if (m_steps[OuterSlope].Text.isEmpty()) {
    m_problem = cannot(QStringLiteral("f"), outer);
  } else if (m_steps[InnerSlope].Text.isEmpty()) {
    m_problem = cannot(QStringLiteral("g"), inner);
  }
  for (const ChainStep& step : m_steps) {
    if (m_problem.isEmpty() && !step.Line.Ok()) {
      m_problem =
          QStringLiteral("The step %1 = %2 cannot be read back: %3.").arg(step.Name, step.Text, step.Line.Error);
    }
  }
}

double ChainRule::Evaluate(const mathlang::ParsedLine& line, double x) {
  if (!line.Ok() || line.Tree.Root() < 0) return kNaN;
  double variables[mathlang::kVariableCount] = {};
  variables[static_cast<int>(mathlang::Variable::X)] = x;
  const double value = line.Tree.EvaluateAt(variables);
  return std::isfinite(value) ? value : kNaN;
}

double ChainRule::Value(int step, double x) const {
  if (step < 0 || step >= kStepCount || m_steps[step].Text.isEmpty()) return kNaN;
  return Evaluate(m_steps[step].Line, x);
}

double ChainRule::F(double x) const { return Evaluate(m_f, x); }

double ChainRule::G(double x) const { return Evaluate(m_g, x); }

}  // namespace chain
