#include "IntersectionGrid.h"

#include <cmath>

namespace plot2d {

IntersectionGrid::IntersectionGrid(const ViewTransform& view)
    : m_xMin(view.XMin()), m_yMin(view.YMin()), m_cellWidth((view.XMax() - view.XMin()) / kCells),
      m_cellHeight((view.YMax() - view.YMin()) / kCells), m_cells(kCells * kCells) {}

void IntersectionGrid::File(const Segment& segment) {
  const auto id = static_cast<std::uint32_t>(m_segments.size());
  bool filed = false;
  ForCells(segment.A, segment.B, [&](std::size_t cell) {
    m_cells[cell].push_back(id);
    filed = true;
  });
  if (!filed) return;
  m_segments.push_back(segment);
  m_seen.push_back(0);
}

}  // namespace plot2d
