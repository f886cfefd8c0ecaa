#include "ColumnRegion.h"

#include <QPolygonF>

namespace plot2d {

QPainterPath ColumnRegion(const std::vector<double>& xs, const std::vector<double>& top,
                          const std::vector<double>& bottom, const std::function<bool(std::size_t)>& keep) {
  QPainterPath path;
  QPolygonF upper, lower;
  const auto flush = [&] {
    if (upper.size() >= 2) {
      QPolygonF region = upper;
      for (auto it = lower.crbegin(); it != lower.crend(); ++it) region << *it;
      path.addPolygon(region);
      path.closeSubpath();
    }
    upper.clear();
    lower.clear();
  };
  for (std::size_t i = 0; i < xs.size(); ++i) {
    if (!keep(i)) {
      flush();
      continue;
    }
    upper << QPointF(xs[i], top[i]);
    lower << QPointF(xs[i], bottom[i]);
  }
  flush();
  return path;
}

}  // namespace plot2d
