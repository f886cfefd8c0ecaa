#pragma once

#include "mathlang/BlockProgram.h"
#include "ViewTransform.h"

#include <QPolygonF>

#include <array>
#include <vector>

namespace plot2d {

// The zero set of Difference (F - G of an implicit equation F = G) in the view, as polylines in
// plot coordinates. A coarse grid finds the cells where the sign changes (corners and centre) or
// where the function is undefined at some corner; those are split down to leaves of about a
// pixel. From every leaf the curve crosses, the neighbours across the crossed edges are looked at
// too, so a curve that only grazes a coarse cell is followed through it. Each crossing is
// refined on its edge (regula falsi); one where the function does not come to zero (a pole, as in
// tan(x*y)=1) is rejected, so no spurious segment joins two branches.
class ImplicitTracer {
public:
  ImplicitTracer(const mathlang::BlockProgram& difference, const ViewTransform& view, int quality);
  // Keeps only the parts where condition holds.
  void SetCondition(const mathlang::BlockProgram* condition) { m_condition = condition; }

  std::vector<QPolygonF> Trace() const;

private:
  // A square of the grid, in leaves from the view's lower-left corner.
  struct Cell {
    int X = 0, Y = 0;
    int Size = 1;
  };
  struct Segment {
    QPointF A, B;
  };

  double XAt(double leafX) const { return m_view.XMin() + leafX * m_leafWidth; }
  double YAt(double leafY) const { return m_view.YMin() + leafY * m_leafHeight; }
  std::vector<double> Values(const std::vector<double>& xs, const std::vector<double>& ys) const;
  // The function's values at a cell's corners (counter-clockwise from the lower left) and centre.
  using Samples = std::array<double, 5>;
  std::vector<Cell> CoarseCells(std::vector<Samples>& samples) const;
  // Each cell's quarters are sampled where the cell's own samples do not already tell.
  std::vector<Cell> Split(const std::vector<Cell>& cells, std::vector<Samples>& samples) const;
  // samples, where given, are the leaves' own; otherwise they are computed.
  std::vector<Cell> Contour(const std::vector<Cell>& leaves, const std::vector<Samples>* samples,
                            std::vector<Segment>& segments) const;
  // The same as Split and Contour, large batches in two halves at once.
  std::vector<Cell> SplitInHalves(const std::vector<Cell>& cells, std::vector<Samples>& samples) const;
  std::vector<Cell> ContourInHalves(const std::vector<Cell>& leaves, const std::vector<Samples>* samples,
                                    std::vector<Segment>& segments) const;
  std::vector<QPolygonF> Chain(const std::vector<Segment>& segments) const;

  const mathlang::BlockProgram& m_difference;
  const ViewTransform& m_view;
  const mathlang::BlockProgram* m_condition = nullptr;
  double m_leafWidth;   // plot units
  double m_leafHeight;
  int m_columns;        // leaves across and up the view
  int m_rows;
};

}  // namespace plot2d
