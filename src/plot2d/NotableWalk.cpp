#include "NotableWalk.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace plot2d {

namespace {

bool Meets(NotablePoint::Kind kind) {
  return kind == NotablePoint::Kind::Intersection || kind == NotablePoint::Kind::Corner;
}

int RowOf(const Drawing& drawing, int curve) {
  if (curve < 0 || static_cast<std::size_t>(curve) >= drawing.Curves.size()) return 0;
  return drawing.Curves[static_cast<std::size_t>(curve)].Row;
}

// The stop of the same curve that p lies within a pixel of, among the last ones: the points come
// by x, so only stops less than a pixel to the left can be near.
NotableWalk::Stop* NearStop(std::vector<NotableWalk::Stop>& stops, const std::vector<int>& curves, const NotablePoint& p,
                            const ViewTransform& view) {
  const double px = view.ToPixelX(p.At.x()), py = view.ToPixelY(p.At.y());
  for (std::size_t i = stops.size(); i-- > 0;) {
    if (curves[i] != p.Curve || px - view.ToPixelX(stops[i].At.x()) >= 1) return nullptr;
    if (std::abs(view.ToPixelY(stops[i].At.y()) - py) < 1) return &stops[i];
  }
  return nullptr;
}

// "of row 2", "of rows 1 and 3", or nothing for a curve that is no row's.
QString RowsText(const NotableWalk::Stop& stop) {
  const int low = std::min(stop.Row, stop.OtherRow), high = std::max(stop.Row, stop.OtherRow);
  if (low > 0 && low != high) return QStringLiteral(" of rows %1 and %2").arg(low).arg(high);
  if (high > 0) return QStringLiteral(" of row %1").arg(high);
  return {};
}

}  // namespace

void NotableWalk::Find(const Drawing& drawing, const ViewTransform& view) {
  std::vector<NotablePoint> points = FindAllNotablePoints(drawing, view);
  // By curve, then by x: the order a reader expects, the same on every walk over one drawing.
  std::stable_sort(points.begin(), points.end(), [](const NotablePoint& a, const NotablePoint& b) {
    return a.Curve != b.Curve ? a.Curve < b.Curve : a.At.x() < b.At.x();
  });
  m_stops.clear();
  std::vector<int> curves;  // the curve of each stop, while they are gathered
  for (const NotablePoint& p : points) {
    Stop* stop = NearStop(m_stops, curves, p, view);
    if (stop == nullptr) {
      m_stops.push_back({p.At, {}, RowOf(drawing, p.Curve), 0});
      curves.push_back(p.Curve);
      stop = &m_stops.back();
    }
    if (std::find(stop->Kinds.begin(), stop->Kinds.end(), p.What) == stop->Kinds.end()) stop->Kinds.push_back(p.What);
    if (Meets(p.What) && stop->OtherRow == 0) stop->OtherRow = RowOf(drawing, p.Other);
  }
  for (Stop& stop : m_stops) std::sort(stop.Kinds.begin(), stop.Kinds.end());
  m_current = -1;
  m_active = true;
}

void NotableWalk::Clear() {
  m_stops.clear();
  m_current = -1;
  m_active = false;
}

void NotableWalk::Step(int by) {
  const int count = static_cast<int>(m_stops.size());
  if (count == 0) return;
  if (m_current < 0) {
    m_current = by > 0 ? 0 : count - 1;
    return;
  }
  m_current = ((m_current + by) % count + count) % count;
}

void NotableWalk::ToFirst() { m_current = m_stops.empty() ? -1 : 0; }

void NotableWalk::ToLast() { m_current = static_cast<int>(m_stops.size()) - 1; }

const NotableWalk::Stop* NotableWalk::Current() const {
  return m_current >= 0 && static_cast<std::size_t>(m_current) < m_stops.size() ? &m_stops[static_cast<std::size_t>(m_current)]
                                                                              : nullptr;
}

QString NotableWalk::KindsText(const Stop& stop) {
  QStringList names;
  for (const NotablePoint::Kind kind : stop.Kinds) names << KindName(kind);
  if (names.size() < 2) return names.join(QString());
  const QString last = names.takeLast();
  return names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

QString NotableWalk::TipText(QSizeF span) const {
  const Stop* stop = Current();
  if (stop == nullptr) return {};
  return QStringLiteral("%1 %2").arg(KindsText(*stop), ShortPointText(stop->At, span));
}

QString NotableWalk::SpokenText(QSizeF span) const {
  if (m_stops.empty()) return QStringLiteral("No notable points in view");
  const Stop* stop = Current();
  if (stop == nullptr) return {};
  return QStringLiteral("%1%2 at %3, point %4 of %5")
      .arg(KindsText(*stop), RowsText(*stop), ShortPointText(stop->At, span))
      .arg(m_current + 1)
      .arg(m_stops.size());
}

}  // namespace plot2d
