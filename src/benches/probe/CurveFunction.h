#pragma once

#include "mathlang/BlockProgram.h"

#include <QString>

#include <optional>

namespace probe {

// y = f(x) in the line language of the rows, as the plot draws it: "x^3-3x" or "y=x^3-3x", with
// conditions behind ";" if any. Undefined values are NaN, as in the plot, never infinities.
class CurveFunction {
public:
  // The function of a row's text, or why there is none (in words) in error.
  static std::optional<CurveFunction> Parse(const QString& text, QString& error);

  double At(double x) const;
  // The row text the plot draws: "y=" and the expression.
  QString Row() const { return m_row; }

private:
  CurveFunction() = default;

  mathlang::BlockProgram m_value;
  mathlang::BlockProgram m_condition;
  bool m_hasCondition = false;
  QString m_row;
};

}  // namespace probe
