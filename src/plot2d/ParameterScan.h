#pragma once

#include "Drawing.h"
#include "ViewTransform.h"

#include <QPointF>

#include <optional>
#include <vector>

namespace plot2d {

// A polar or parametric curve evaluated at an even spread of its parameter, to find the parameter
// of a point seen on its picture: where a special point found on the picture is refined.
class ParameterScan {
public:
  explicit ParameterScan(const Drawing::Curve& curve);

  // The parameter at which the curve passes nearest to at, if within reach pixels of it.
  std::optional<double> Nearest(QPointF at, const ViewTransform& view, double reach) const;
  // The spacing of the scan: a special point lies within one step of the nearest parameter.
  double Step() const { return m_step; }

private:
  const Drawing::Curve& m_curve;
  double m_step = 0;
  std::vector<QPointF> m_points;
};

}  // namespace plot2d
