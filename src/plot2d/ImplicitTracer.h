#pragma once

#include "BlockProgram.h"
#include "ViewTransform.h"

#include <QPolygonF>

#include <vector>

namespace plot2d {

// The zero set of Difference (F - G of an implicit equation F = G) in the view, as polylines in
// plot coordinates. A coarse grid finds the cells where the sign changes (corners and centre) or
// where the function is undefined at some corner; those are split down to about a pixel, and in
// each leaf the curve is drawn between the edge crossings. A crossing where the function does not
// come near zero (a pole, as in tan(x*y)=1) is rejected, so no spurious segment joins two
// branches.
class ImplicitTracer {
public:
  ImplicitTracer(const BlockProgram& difference, const ViewTransform& view, int quality);
  // Keeps only the parts where condition holds.
  void SetCondition(const BlockProgram* condition) { m_condition = condition; }

  std::vector<QPolygonF> Trace() const;

private:
  struct Cell {
    double X = 0, Y = 0;  // lower-left corner, plot coordinates
    int Level = 0;
  };
  struct Segment {
    QPointF A, B;
  };

  void Leaves(const std::vector<Cell>& cells, int level, std::vector<Segment>& segments) const;
  void Contour(const std::vector<Cell>& leaves, std::vector<Segment>& segments) const;
  std::vector<QPolygonF> Chain(std::vector<Segment>& segments) const;

  const BlockProgram& m_difference;
  const ViewTransform& m_view;
  const BlockProgram* m_condition = nullptr;
  double m_leafWidth;   // plot units
  double m_leafHeight;
  int m_levels;         // splits from the coarse grid to a leaf
};

}  // namespace plot2d
