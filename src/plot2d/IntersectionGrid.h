#pragma once

#include "ViewTransform.h"

#include <QPointF>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace plot2d {

// The segments of the drawn curves filed by the cells of the view that they pass through, so
// that a segment is tried for crossings only against the few that pass the same cells. Unlike a
// filing by columns, a steep curve or a level line costs only the cells it crosses. What lies
// outside the view is left out: crossings there are not shown.
class IntersectionGrid {
public:
  struct Segment {
    QPointF A, B;
    std::size_t Curve;
  };

  explicit IntersectionGrid(const ViewTransform& view);

  void File(const Segment& segment);

  // Whether a filed segment of the curve passes the cell of at or one beside it: whether the
  // curve comes near at, to within a cell.
  bool Passes(std::size_t curve, QPointF at) const;

  // Each filed segment that shares a cell with the one from a to b, once.
  template <typename Visit>
  void Near(QPointF a, QPointF b, Visit visit) const {
    ++m_serial;
    ForCells(a, b, [&](std::size_t cell) {
      for (const std::uint32_t id : m_cells[cell]) {
        if (m_seen[id] == m_serial) continue;
        m_seen[id] = m_serial;
        visit(m_segments[id]);
      }
    });
  }

private:
  static constexpr int kCells = 64;

  // Calls f with each cell the segment from a to b passes through, row by row.
  template <typename F>
  void ForCells(QPointF a, QPointF b, F f) const;

  double m_xMin, m_yMin, m_cellWidth, m_cellHeight;
  std::vector<Segment> m_segments;
  std::vector<std::vector<std::uint32_t>> m_cells;
  std::vector<std::vector<bool>> m_passed;  // by curve, by cell: a segment of the curve passes it
  mutable std::vector<std::uint32_t> m_seen;  // the serial of the last search that visited each
  mutable std::uint32_t m_serial = 0;
};

template <typename F>
void IntersectionGrid::ForCells(QPointF a, QPointF b, F f) const {
  // In cell units.
  const double ax = (a.x() - m_xMin) / m_cellWidth, ay = (a.y() - m_yMin) / m_cellHeight;
  const double bx = (b.x() - m_xMin) / m_cellWidth, by = (b.y() - m_yMin) / m_cellHeight;
  const double low = std::min(ay, by), high = std::max(ay, by);
  if (!(high >= 0 && low < kCells) || !(std::max(ax, bx) >= 0 && std::min(ax, bx) < kCells)) return;
  const int firstRow = std::max(0, static_cast<int>(std::floor(low)));
  const int lastRow = std::min(kCells - 1, static_cast<int>(std::floor(high)));
  const auto xAt = [&](double y) { return ay == by ? ax : ax + (bx - ax) * (y - ay) / (by - ay); };
  for (int row = firstRow; row <= lastRow; ++row) {
    const double y0 = std::max(low, double(row)), y1 = std::min(high, double(row + 1));
    const double x0 = ay == by ? std::min(ax, bx) : std::min(xAt(y0), xAt(y1));
    const double x1 = ay == by ? std::max(ax, bx) : std::max(xAt(y0), xAt(y1));
    if (x1 < 0 || x0 >= kCells) continue;
    const int firstColumn = std::max(0, static_cast<int>(std::floor(x0)));
    const int lastColumn = std::min(kCells - 1, static_cast<int>(std::floor(x1)));
    for (int column = firstColumn; column <= lastColumn; ++column) f(static_cast<std::size_t>(row * kCells + column));
  }
}

}  // namespace plot2d
