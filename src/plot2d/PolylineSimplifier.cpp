#include "PolylineSimplifier.h"

#include <cmath>

namespace plot2d {

namespace {

constexpr double kTolerance = 0.15;     // pixels
constexpr qsizetype kLongestRun = 32;   // points that one kept segment may stand for

QPolygonF Simplified(const QPolygonF& line, const ViewTransform& view) {
  if (line.size() < 3) return line;
  QPolygonF pixels;
  pixels.reserve(line.size());
  for (const QPointF& p : line) pixels << view.ToPixel(p.x(), p.y());
  QPolygonF kept;
  kept.reserve(line.size());
  qsizetype anchor = 0;
  kept << line[0];
  for (qsizetype j = 2; j < line.size(); ++j) {
    const QPointF a = pixels[anchor];
    const QPointF d = pixels[j] - a;
    const double length2 = d.x() * d.x() + d.y() * d.y();
    const double limit2 = kTolerance * kTolerance * length2;
    bool straight = j - anchor <= kLongestRun && std::isfinite(length2);
    for (qsizetype i = anchor + 1; i < j && straight; ++i) {
      const QPointF e = pixels[i] - a;
      const double cross = d.x() * e.y() - d.y() * e.x();
      // Within the tolerance of the chord, and between its ends (or it would turn back).
      const double along = d.x() * e.x() + d.y() * e.y();
      straight = cross * cross <= limit2 && along >= 0 && along <= length2;
    }
    if (!straight) {
      anchor = j - 1;
      kept << line[anchor];
    }
  }
  kept << line.last();
  return kept;
}

}  // namespace

void SimplifyForView(std::vector<QPolygonF>& lines, const ViewTransform& view) {
  for (QPolygonF& line : lines) line = Simplified(line, view);
}

}  // namespace plot2d
