#include "PolylineSimplifier.h"

#include <cmath>

namespace plot2d {

namespace {

constexpr double kTolerance = 0.15;    // pixels
constexpr qsizetype kLongestRun = 256;  // points that one kept segment may stand for

double Cross(QPointF a, QPointF b) { return a.x() * b.y() - a.y() * b.x(); }

// A unit vector turned by the angle whose sine is s (and cosine c).
QPointF Turned(QPointF u, double s, double c) { return {u.x() * c - u.y() * s, u.x() * s + u.y() * c}; }

// In one pass (the sleeve method): from the last kept point, the directions whose line passes
// within the tolerance of every point since form a window; a point whose direction leaves the
// window ends the segment at the point before it.
QPolygonF Simplified(const QPolygonF& line, const ViewTransform& view) {
  if (line.size() < 3) return line;
  QPolygonF kept;
  kept.reserve(line.size());
  kept << line[0];
  QPointF anchor = view.ToPixel(line[0].x(), line[0].y());
  QPointF low, high;  // the window's edges, unit vectors; none yet while open is false
  bool open = false;
  qsizetype anchorIndex = 0;
  for (qsizetype j = 1; j < line.size(); ++j) {
    const QPointF p = view.ToPixel(line[j].x(), line[j].y());
    const QPointF v = p - anchor;
    const double d = std::sqrt(v.x() * v.x() + v.y() * v.y());
    bool fits = std::isfinite(d) && j - anchorIndex <= kLongestRun;
    if (fits && d > kTolerance) {
      const QPointF u = v / d;
      const double s = kTolerance / d;
      const double c = std::sqrt(1 - s * s);
      if (!open) {
        low = Turned(u, -s, c), high = Turned(u, s, c), open = true;
      } else if (Cross(low, u) >= 0 && Cross(u, high) >= 0 && low.x() * u.x() + low.y() * u.y() > 0) {
        const QPointF newLow = Turned(u, -s, c);
        const QPointF newHigh = Turned(u, s, c);
        if (Cross(low, newLow) > 0) low = newLow;
        if (Cross(newHigh, high) > 0) high = newHigh;
      } else {
        fits = false;
      }
    }
    if (!fits && j - 1 > anchorIndex) {
      // The point before is kept, and this one is looked at again from there.
      anchorIndex = j - 1;
      kept << line[anchorIndex];
      anchor = view.ToPixel(line[anchorIndex].x(), line[anchorIndex].y());
      open = false;
      --j;
    } else if (!fits) {
      anchorIndex = j;
      kept << line[j];
      anchor = p;
      open = false;
    }
  }
  if (kept.last() != line.last()) kept << line.last();
  return kept;
}

}  // namespace

void SimplifyForView(std::vector<QPolygonF>& lines, const ViewTransform& view) {
  for (QPolygonF& line : lines) line = Simplified(line, view);
}

}  // namespace plot2d
