#pragma once

#include "CurveSampler.h"
#include "Drawing.h"
#include "mathlang/LineParser.h"

namespace plot2d {

// A parametric curve: (X(t), Y(t)) for type 1, r = X(t) and theta = Y(t) for type 2, t from Min
// to Max. The parameter may be written t, x or theta.
class ParametricItem {
public:
  ParametricItem(const QString& x, const QString& y, double from, double to, int type, QColor color);

  QString Problem() const { return m_problem; }
  void Draw(const ViewTransform& view, int quality, Drawing& drawing) const;

private:
  mathlang::ParsedLine m_x, m_y;
  CurveSource m_source;
  double m_from, m_to;
  QColor m_color;
  QString m_problem;
};

}  // namespace plot2d
