#pragma once

#include "Drawing.h"
#include "ViewTransform.h"

#include <QPointF>
#include <QString>

#include <vector>

namespace plot2d {

struct NotablePoint {
  enum class Kind : std::uint8_t { Root, Maximum, Minimum, YIntercept, Intersection };
  QPointF At;
  Kind What = Kind::Root;
};

// The special points of one curve of a drawing that lie in the view: its roots, local extrema,
// the y-intercept and its intersections with the other curves. Found on the sampled curve, then
// refined: on f itself for y = f(x) (bisection, golden section); by Newton's method for curves
// with a function that is zero on them (x = f(y), implicit); on the parameter for polar and
// parametric curves. Points where two curves touch, and crossings of two polar or parametric
// curves, keep the precision of the picture.
std::vector<NotablePoint> FindNotablePoints(const Drawing& drawing, std::size_t curve, const ViewTransform& view);

// "(x, y)" at full precision, as a click on a special point copies it.
QString PointText(QPointF at);

// The point of a curve nearest to pixel, within reach pixels: its index and the point, or -1.
std::pair<int, QPointF> NearestCurvePoint(const Drawing& drawing, const ViewTransform& view, QPointF pixel, double reach);

}  // namespace plot2d
