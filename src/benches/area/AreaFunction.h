#pragma once

#include "mathlang/BlockProgram.h"
#include "mathlang/Quadrature.h"

#include <QString>

namespace area {

// The bench's f(x): a row's text after "y=", compiled and parsed as the program compiles a
// function row, so it reads exactly what the plot draws.
class AreaFunction {
public:
  AreaFunction() = default;
  explicit AreaFunction(const QString& text);

  bool Ok() const { return m_problem.isEmpty(); }
  // Why the text cannot be used, in words; empty when it can.
  QString Problem() const { return m_problem; }
  // The row as the plot takes it: "y=" and the text.
  QString Row() const { return m_row; }

  // f(x); NaN where f is undefined.
  double At(double x) const { return m_program.At(x); }
  // The integral over [a, b] by the program's adaptive quadrature, run to full precision.
  mathlang::IntegralValue Integral(double a, double b) const;

private:
  QString m_row;
  QString m_problem = QStringLiteral("No function yet.");
  mathlang::BlockProgram m_program;
};

}  // namespace area
