#pragma once

#include "mathlang/BlockProgram.h"
#include "Drawing.h"
#include "mathlang/LineParser.h"
#include "mathlang/Quadrature.h"
#include "ViewTransform.h"

namespace plot2d {

// The shaded area between a function and the x axis (or a second function) from Min to Max, with
// the value of the integral written beside it.
class IntegralItem {
public:
  IntegralItem(const QString& first, const QString* second, double from, double to, QColor color);

  QString Problem() const { return m_problem; }
  const mathlang::IntegralValue& Value() const { return m_value; }
  // The label: "∫ = 2", with the parts above and below the axis when it has both.
  QString Text() const;

  void Draw(const ViewTransform& view, int quality, Drawing& drawing) const;

private:
  mathlang::ParsedLine m_first;
  mathlang::ParsedLine m_second;
  bool m_hasSecond;
  mathlang::BlockProgram m_top;
  mathlang::BlockProgram m_bottom;
  mathlang::BlockProgram m_difference;
  double m_from, m_to;
  QColor m_color;
  QString m_problem;
  mathlang::IntegralValue m_value;
};

}  // namespace plot2d
