#pragma once

#include "ViewTransform.h"

#include <QPointF>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace plot2d {

struct Segment {
  QPointF A, B;
  std::size_t Curve;
};

// Segments of curves, filed by the columns of the view their x-range spans, so that
// a segment is tried only against the few that share a column with it.
class SegmentColumns {
public:
  static constexpr int kCount = 256;

  explicit SegmentColumns(const ViewTransform& view) : m_min(view.XMin()), m_width((view.XMax() - view.XMin()) / kCount) {}

  void File(const Segment& s) {
    const auto [first, last] = Span(s.A.x(), s.B.x());
    for (int i = first; i <= last; ++i) m_columns[static_cast<std::size_t>(i)].push_back(s);
  }

  // Each segment that shares a column with the one from a to b, once.
  template <typename Visit>
  void Near(QPointF a, QPointF b, Visit visit) const {
    const auto [first, last] = Span(a.x(), b.x());
    for (int i = first; i <= last; ++i) {
      for (const Segment& s : m_columns[static_cast<std::size_t>(i)]) {
        // A segment filed in several columns is visited in the first that both share.
        if (std::max(first, Column(std::min(s.A.x(), s.B.x()))) < i) continue;
        visit(s);
      }
    }
  }

private:
  int Column(double x) const {
    const double at = std::floor((x - m_min) / m_width);
    return static_cast<int>(std::clamp(at, 0.0, kCount - 1.0));
  }
  std::pair<int, int> Span(double x1, double x2) const { return {Column(std::min(x1, x2)), Column(std::max(x1, x2))}; }

  double m_min, m_width;
  std::array<std::vector<Segment>, kCount> m_columns;
};

}  // namespace plot2d
