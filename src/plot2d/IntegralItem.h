#pragma once

#include "BlockProgram.h"
#include "Drawing.h"
#include "LineParser.h"
#include "Quadrature.h"
#include "ViewTransform.h"

namespace plot2d {

// The shaded area between a function and the x axis (or a second function) from Min to Max, with
// the value of the integral written beside it.
class IntegralItem {
public:
  IntegralItem(const QString& first, const QString* second, double from, double to, QColor color);

  QString Problem() const { return m_problem; }
  const IntegralValue& Value() const { return m_value; }
  // The label: "∫ = 2", with the parts above and below the axis when it has both.
  QString Text() const;

  void Draw(const ViewTransform& view, int quality, Drawing& drawing) const;

private:
  ParsedLine m_first;
  ParsedLine m_second;
  bool m_hasSecond;
  BlockProgram m_top;
  BlockProgram m_bottom;
  BlockProgram m_difference;
  double m_from, m_to;
  QColor m_color;
  QString m_problem;
  IntegralValue m_value;
};

}  // namespace plot2d
