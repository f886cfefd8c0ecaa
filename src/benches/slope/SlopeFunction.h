#pragma once

#include "mathlang/LineParser.h"

#include <QString>

namespace slope {

// The function a student types after "y=", with its derivative from the program's own engine (the
// path of the cli's derive command): its values, its slopes, and what stands in the way in words.
class SlopeFunction {
public:
  // Reads the text ("x^2", or "y=x^2"); afterwards Problem() is empty when f can be drawn.
  void SetText(const QString& text);

  const QString& Text() const { return m_text; }
  // Why f cannot be used, in words; empty when it can.
  const QString& Problem() const { return m_problem; }
  bool Ok() const { return m_problem.isEmpty(); }
  // The engine's derivative text ("2*x"); empty when it has none.
  const QString& DerivativeText() const { return m_derivative; }
  bool HasDerivative() const { return Ok() && !m_derivative.isEmpty(); }
  // Why there is no tangent, in words, when f is drawn but has no derivative.
  const QString& DerivativeProblem() const { return m_derivativeProblem; }

  // f(x); NaN where f is undefined or unusable.
  double Value(double x) const;
  // f'(x) from the symbolic derivative; NaN where there is none.
  double Slope(double x) const;
  // (f(x0+h) - f(x0)) / h.
  double SecantSlope(double x0, double h) const;

private:
  static QString WhyNotAFunction(const QString& text);
  static double Evaluate(const mathlang::ParsedLine& line, double x);

  QString m_text;
  QString m_problem;
  QString m_derivative;
  QString m_derivativeProblem;
  mathlang::ParsedLine m_f;
  mathlang::ParsedLine m_slope;
};

}  // namespace slope
