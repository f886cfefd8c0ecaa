#pragma once

#include "Drawing.h"
#include "ViewTransform.h"

#include <QPointF>

#include <optional>
#include <vector>

namespace plot2d {

// Finds the parameter of a polar or parametric curve at a point seen on its picture, where a
// special point found on the picture is refined. The curve is evaluated once at an even spread
// of its parameter, and those points are filed in a grid, so that each lookup looks at a few of
// them rather than at all: a curve may be asked about hundreds of crossings.
class ParameterRefiner {
public:
  ParameterRefiner(const Drawing::Curve& curve, const ViewTransform& view);

  // The parameter at which the curve passes nearest to at, if within reach pixels of it.
  std::optional<double> Nearest(QPointF at, double reach) const;
  // The spacing of the spread: a special point lies within one step of the nearest parameter.
  double Step() const { return m_step; }

private:
  std::size_t CellOf(int column, int row) const { return static_cast<std::size_t>(row) * kCells + static_cast<std::size_t>(column); }
  int ColumnOf(double x) const;
  int RowOf(double y) const;
  double PixelDistance2(QPointF a, QPointF b) const;
  std::optional<std::size_t> NearestSample(QPointF at) const;

  static constexpr int kCells = 64;

  const Drawing::Curve& m_curve;
  const ViewTransform& m_view;
  double m_step = 0;
  std::vector<QPointF> m_points;
  QRectF m_box;
  std::vector<std::vector<std::uint32_t>> m_cells;
};

}  // namespace plot2d
