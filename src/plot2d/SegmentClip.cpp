#include "SegmentClip.h"

#include <algorithm>

namespace plot2d {

bool ClipSegment(QPointF& a, QPointF& b, const QRectF& rect) {
  double t0 = 0, t1 = 1;
  const double dx = b.x() - a.x();
  const double dy = b.y() - a.y();
  const double p[4] = {-dx, dx, -dy, dy};
  const double q[4] = {a.x() - rect.left(), rect.right() - a.x(), a.y() - rect.top(), rect.bottom() - a.y()};
  for (int i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
      continue;
    }
    const double t = q[i] / p[i];
    if (p[i] < 0) t0 = std::max(t0, t);
    else t1 = std::min(t1, t);
    if (t0 > t1) return false;
  }
  const QPointF start = a;
  a = start + t0 * QPointF(dx, dy);
  b = start + t1 * QPointF(dx, dy);
  return true;
}

}  // namespace plot2d
