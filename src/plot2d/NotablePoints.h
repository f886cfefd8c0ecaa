#pragma once

#include "Drawing.h"
#include "ViewTransform.h"

#include <QPointF>
#include <QString>

#include <vector>

namespace plot2d {

struct NotablePoint {
  // Corner: where the two boundaries of an inequality's region meet.
  enum class Kind : std::uint8_t { Root, Maximum, Minimum, YIntercept, Intersection, Corner };
  QPointF At;
  Kind What = Kind::Root;
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

// The point of a curve nearest to pixel, within reach pixels: its index and the point, or -1.
std::pair<int, QPointF> NearestCurvePoint(const Drawing& drawing, const ViewTransform& view, QPointF pixel, double reach);

}  // namespace plot2d
