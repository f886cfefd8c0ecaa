#pragma once

#include "Drawing.h"
#include "ParameterRefiner.h"
#include "ViewTransform.h"

#include <QPointF>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace plot2d {

// Makes the special points that the search finds on the picture of a drawing exact: each is
// refined on the functions behind the curves, whatever kind of curve they are (y = f(x) has its
// f; x = f(y) and implicit curves a function that is zero on them; polar and parametric curves
// their point at each parameter). What it gives depends neither on the zoom nor on the quality of
// the picture. Where a refinement fails (a point where curves touch without crossing, a kink) the
// point keeps the precision of the picture. One refiner serves any number of searches over the
// same drawing and view.
class CurveRefiner {
public:
  CurveRefiner(const Drawing& drawing, const ViewTransform& view);

  const std::vector<Drawing::Curve>& Curves() const { return m_curves; }
  const ViewTransform& View() const { return m_view; }

  // Where the curve crosses the x axis, seen at between the vertices a and b.
  QPointF Root(std::size_t curve, QPointF a, QPointF b, QPointF at);
  // Where the curve turns, seen at the vertex at between before and after.
  QPointF Extremum(std::size_t curve, QPointF before, QPointF at, QPointF after, bool maximum);
  // Where the curve crosses the y axis, seen at.
  QPointF YIntercept(std::size_t curve, QPointF at);
  // Where curves c and d cross, seen at the crossing of their segments a1-a2 and b1-b2.
  QPointF Crossing(std::size_t c, std::size_t d, QPointF a1, QPointF a2, QPointF b1, QPointF b2, QPointF at);
  // Whether curves c and d are one curve twice (two rows with the same equation): then they share
  // every point, and no crossing of their pictures is a point of their own.
  bool Coincide(std::size_t c, std::size_t d);
  // Where two curves y = f(x) and y = g(x) touch without crossing, about the turn of f - g seen
  // between x0 and x1: the point where the difference turns at zero, if it does.
  std::optional<QPointF> Touching(std::size_t c, std::size_t d, double x0, double x1, bool fromBelow);

private:
  using Zero = std::function<double(double, double)>;

  // The zero function of a curve: its own, or for y = f(x) one made of f.
  const Zero& ZeroOf(std::size_t curve) const { return m_curves[curve].Zero; }
  // How far refinement may move a point seen on the picture, in plot units.
  double ReachX() const;
  double ReachY() const;
  double Reach() const;
  bool Near(QPointF refined, QPointF seen) const;
  const ParameterRefiner& Scan(std::size_t curve);
  std::optional<double> ParameterNear(std::size_t curve, QPointF at);
  std::optional<QPointF> OnParameter(std::size_t curve, QPointF at, const std::function<double(QPointF)>& h,
                                     double touch = 0);
  std::optional<QPointF> ExplicitCrossing(std::size_t c, std::size_t d, double lo, double hi, double x);
  std::optional<QPointF> ParametricCrossing(std::size_t c, std::size_t d, QPointF at);
  std::optional<QPointF> ParameterTurn(std::size_t curve, QPointF before, QPointF after, bool maximum);
  std::optional<QPointF> ImplicitTurn(std::size_t curve, QPointF at, double reach);

  const std::vector<Drawing::Curve>& m_curves;
  const ViewTransform& m_view;
  std::vector<std::unique_ptr<ParameterRefiner>> m_scans;
  std::vector<std::int8_t> m_coincide;  // by pair of curves: -1 not yet known, else 0 or 1
};

}  // namespace plot2d
