#include "IntersectionGrid.h"

#include <cmath>

namespace plot2d {

IntersectionGrid::IntersectionGrid(const ViewTransform& view)
    : m_xMin(view.XMin()), m_yMin(view.YMin()), m_cellWidth((view.XMax() - view.XMin()) / kCells),
      m_cellHeight((view.YMax() - view.YMin()) / kCells), m_cells(kCells * kCells) {}

void IntersectionGrid::File(const Segment& segment) {
  const auto id = static_cast<std::uint32_t>(m_segments.size());
  bool filed = false;
  if (m_passed.size() <= segment.Curve) m_passed.resize(segment.Curve + 1);
  std::vector<bool>& passed = m_passed[segment.Curve];
  if (passed.empty()) passed.resize(kCells * kCells);
  ForCells(segment.A, segment.B, [&](std::size_t cell) {
    m_cells[cell].push_back(id);
    passed[cell] = true;
    filed = true;
  });
  if (!filed) return;
  m_segments.push_back(segment);
  m_seen.push_back(0);
}

}  // namespace plot2d

namespace plot2d {

bool IntersectionGrid::Passes(std::size_t curve, QPointF at) const {
  if (curve >= m_passed.size() || m_passed[curve].empty()) return false;
  const double x = std::floor((at.x() - m_xMin) / m_cellWidth), y = std::floor((at.y() - m_yMin) / m_cellHeight);
  if (!(x >= -1 && x <= kCells && y >= -1 && y <= kCells)) return false;
  const int column = static_cast<int>(x), row = static_cast<int>(y);
  for (int r = std::max(0, row - 1); r <= std::min(kCells - 1, row + 1); ++r) {
    for (int c = std::max(0, column - 1); c <= std::min(kCells - 1, column + 1); ++c) {
      if (m_passed[curve][static_cast<std::size_t>(r * kCells + c)]) return true;
    }
  }
  return false;
}

}  // namespace plot2d
