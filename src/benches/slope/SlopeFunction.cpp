#include "SlopeFunction.h"

#include "mathlang/Derivative.h"

#include <cmath>
#include <limits>

namespace slope {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A point list is a bracketed pair (or several) with a comma at the outer level.
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

QString OtherVariable(const mathlang::ParsedLine& line) {
  using mathlang::Variable;
  const std::pair<Variable, const char*> others[] = {
      {Variable::Y, "y"}, {Variable::T, "t"}, {Variable::Theta, "theta"}, {Variable::R, "r"}};
  for (const auto& [variable, name] : others) {
    if (line.Tree.Uses(variable)) return QString::fromLatin1(name);
  }
  return {};
}

}  // namespace

void SlopeFunction::SetText(const QString& text) {
  QString body = text.trimmed();
  if (body.startsWith(u"y=")) body = body.mid(2).trimmed();
  m_text = body;
  m_derivative.clear();
  m_derivativeProblem.clear();
  m_problem = WhyNotAFunction(body);
  if (!m_problem.isEmpty()) return;
  m_f = mathlang::ParseExpression(body);
  if (!m_f.Ok()) {
    m_problem = QStringLiteral("f cannot be read: %1.").arg(m_f.Error);
    return;
  }
  if (const QString other = OtherVariable(m_f); !other.isEmpty()) {
    m_problem = QStringLiteral("f may use x alone, but it uses %1: type a function of x.").arg(other);
    return;
  }
  const auto derivative = mathlang::Derivative(QStringLiteral("y=") + body);
  if (derivative) m_slope = mathlang::ParseExpression(*derivative);
  if (derivative && m_slope.Ok()) {
    m_derivative = *derivative;
  } else {
    m_derivativeProblem = QStringLiteral(
                              "Our derivative cannot differentiate %1, so there is no tangent; the "
                              "secant still shows the slope between two points.")
                              .arg(body);
  }
}

QString SlopeFunction::WhyNotAFunction(const QString& text) {
  if (text.isEmpty()) return QStringLiteral("Type a function of x after \"y =\", such as x^2 or sin(x).");
  if (text.contains(u'=')) {
    return QStringLiteral(
               "\"%1\" is an equation, not y as a function of x: an implicit curve has no "
               "derivative f'(x) here, so there is no secant and no tangent. Type the right-hand "
               "side of y = f(x) alone.")
        .arg(text);
  }
  if (LooksLikePointList(text)) {
    return QStringLiteral(
               "\"%1\" is a list of points, not a function: points have no derivative, so there is "
               "no secant and no tangent. Type a function of x.")
        .arg(text);
  }
  return {};
}

double SlopeFunction::Evaluate(const mathlang::ParsedLine& line, double x) {
  double variables[mathlang::kVariableCount] = {};
  variables[static_cast<int>(mathlang::Variable::X)] = x;
  const double value = line.Tree.EvaluateAt(variables);
  return std::isfinite(value) ? value : kNaN;
}

double SlopeFunction::Value(double x) const { return Ok() ? Evaluate(m_f, x) : kNaN; }

double SlopeFunction::Slope(double x) const { return HasDerivative() ? Evaluate(m_slope, x) : kNaN; }

double SlopeFunction::SecantSlope(double x0, double h) const {
  if (h == 0) return kNaN;
  return (Value(x0 + h) - Value(x0)) / h;
}

}  // namespace slope
