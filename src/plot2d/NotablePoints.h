#pragma once

#include "Drawing.h"
#include "ViewTransform.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <vector>

namespace plot2d {

struct NotablePoint {
  // Corner: where the two boundaries of an inequality's region meet.
  enum class Kind : std::uint8_t { Root, Maximum, Minimum, YIntercept, Intersection, Corner };
  QPointF At;
  Kind What = Kind::Root;
  // The index in the drawing of the curve it was found on, and for an intersection or a corner
  // the other curve's: so that a point can be named after the rows it belongs to.
  int Curve = -1;
  int Other = -1;
};

// The special points of one curve of a drawing that lie in the view: its roots, local extrema,
// the y-intercept, its intersections with the other curves, and for the boundary of an
// inequality the corners of its region. Found on the sampled curve, then made exact on the
// functions behind the curves (see CurveRefiner): the same points and digits at any zoom and
// quality. One of each kind where two lie within a pixel of each other.
std::vector<NotablePoint> FindNotablePoints(const Drawing& drawing, std::size_t curve, const ViewTransform& view);

// The special points of every curve, curve by curve, each point once: what the tips would show
// over the whole drawing. The curves share their refinement, so this costs less than asking for
// each curve in turn.
std::vector<NotablePoint> FindAllNotablePoints(const Drawing& drawing, const ViewTransform& view);

// The name a tip gives the kind: "Root", "Maximum", "Minimum", "y-Intercept", "Intersection",
// "Corner".
QString KindName(NotablePoint::Kind kind);

// "(x, y)" to 15 significant digits, as a click on a special point copies it.
QString PointText(QPointF at);

// "(x, y)" to six digits, as the tips show a point in a view of the given span. A coordinate
// smaller than a thousandth of the span shows as 0: at that scale it is 0, and 9.09e-09 beside the
// origin reads like an error.
QString ShortPointText(QPointF at, QSizeF span);

// The point of a curve nearest to pixel, within reach pixels: its index and the point, or -1.
std::pair<int, QPointF> NearestCurvePoint(const Drawing& drawing, const ViewTransform& view, QPointF pixel, double reach);

}  // namespace plot2d
