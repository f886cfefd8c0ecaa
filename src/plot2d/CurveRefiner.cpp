#include "CurveRefiner.h"

#include "IntersectionRefiner.h"
#include "RootRefiner.h"

#include <algorithm>
#include <cmath>

namespace plot2d {

namespace {

// Refinement may move a point this many pixels from where the picture shows it: the simplified
// picture lies within a pixel of the curve, and a crossing of curves at a narrow angle a little
// further along them.
constexpr double kReachPixels = 4;

double Distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

// Equal, or both undefined: two curves of one equation are undefined at the same places.
bool Identical(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// How near zero a coordinate must turn to touch its axis: a millionth of a pixel, far below what
// a turn that misses the axis could be seen by.
double Touch(double perPixel) { return 1e-6 * perPixel; }

}  // namespace

CurveRefiner::CurveRefiner(const Drawing& drawing, const ViewTransform& view)
    : m_curves(drawing.Curves), m_view(view), m_scans(drawing.Curves.size()),
      m_coincide(drawing.Curves.size() * drawing.Curves.size(), -1) {}

double CurveRefiner::ReachX() const { return kReachPixels * m_view.XPerPixel(); }
double CurveRefiner::ReachY() const { return kReachPixels * m_view.YPerPixel(); }
double CurveRefiner::Reach() const { return std::hypot(ReachX(), ReachY()); }
bool CurveRefiner::Near(QPointF refined, QPointF seen) const { return Distance(refined, seen) <= Reach(); }

const ParameterRefiner& CurveRefiner::Scan(std::size_t curve) {
  if (!m_scans[curve]) m_scans[curve] = std::make_unique<ParameterRefiner>(m_curves[curve], m_view);
  return *m_scans[curve];
}

std::optional<double> CurveRefiner::ParameterNear(std::size_t curve, QPointF at) {
  return Scan(curve).Nearest(at, kReachPixels);
}

// A point of a polar or parametric curve where h of it is zero, within a step of the parameter
// nearest to at. Where h touches zero without a change of sign (a petal of a rose tangent to an
// axis) it is where h turns, if it turns within touch of zero. Nothing where there is none within
// reach.
std::optional<QPointF> CurveRefiner::OnParameter(std::size_t curve, QPointF at, const std::function<double(QPointF)>& h,
                                                 double touch) {
  const Drawing::Curve& c = m_curves[curve];
  const auto t = ParameterNear(curve, at);
  if (!t) return std::nullopt;
  const refine::Function along = [&](double u) { return h(c.PointAt(u)); };
  const double step = Scan(curve).Step();
  auto zero = refine::RootNear(along, *t, step);
  if (!zero && touch > 0) {
    // The picture may cross the axis a little way from where the curve touches it.
    const auto turn = refine::Turn(along, *t - 4 * step, *t + 4 * step, along(*t) < 0);
    if (turn && std::abs(along(*turn)) <= touch) zero = turn;
  }
  if (!zero) return std::nullopt;
  const QPointF refined = c.PointAt(*zero);
  if (!Near(refined, at)) return std::nullopt;
  return refined;
}

QPointF CurveRefiner::Root(std::size_t curve, QPointF a, QPointF b, QPointF at) {
  const Drawing::Curve& c = m_curves[curve];
  std::optional<double> x;
  if (c.Explicit) {
    x = refine::Root(c.Explicit, std::min(a.x(), b.x()), std::max(a.x(), b.x()));
    if (!x) x = refine::RootNear(c.Explicit, at.x(), ReachX());
  } else if (c.Zero) {
    x = refine::RootNear([&](double u) { return c.Zero(u, 0); }, at.x(), ReachX());
  } else if (c.PointAt) {
    if (const auto p = OnParameter(curve, at, [](QPointF q) { return q.y(); }, Touch(m_view.YPerPixel()))) x = p->x();
  }
  return x && std::abs(*x - at.x()) <= ReachX() ? QPointF(*x, 0) : at;
}

QPointF CurveRefiner::YIntercept(std::size_t curve, QPointF at) {
  const Drawing::Curve& c = m_curves[curve];
  std::optional<double> y;
  if (c.Explicit) {
    y = c.Explicit(0);
  } else if (c.Zero) {
    y = refine::RootNear([&](double v) { return c.Zero(0, v); }, at.y(), ReachY());
  } else if (c.PointAt) {
    if (const auto p = OnParameter(curve, at, [](QPointF q) { return q.x(); }, Touch(m_view.XPerPixel()))) y = p->y();
  }
  return y && std::isfinite(*y) && (c.Explicit || std::abs(*y - at.y()) <= ReachY()) ? QPointF(0, *y) : at;
}

QPointF CurveRefiner::Extremum(std::size_t curve, QPointF before, QPointF at, QPointF after, bool maximum) {
  const Drawing::Curve& c = m_curves[curve];
  if (c.Explicit) {
    const auto x = refine::Turn(c.Explicit, std::min(before.x(), after.x()), std::max(before.x(), after.x()), maximum);
    return x ? QPointF(*x, c.Explicit(*x)) : at;
  }
  const double reach = std::max(Distance(before, at), Distance(after, at));
  if (c.Zero) return ImplicitTurn(curve, at, reach).value_or(at);
  if (c.PointAt) {
    const auto refined = ParameterTurn(curve, before, after, maximum);
    if (refined && Distance(*refined, at) <= reach) return *refined;
  }
  return at;
}

// Where the curve F = 0 has a level tangent: F = 0 and dF/dx = 0, the derivative over a step
// where F is smooth along x.
std::optional<QPointF> CurveRefiner::ImplicitTurn(std::size_t curve, QPointF at, double reach) {
  const Zero& f = ZeroOf(curve);
  const double y = at.y();
  const auto along = [&](double v) { return [&f, v](double u) { return f(u, v); }; };
  const auto h = refine::SmoothStep(along(y), at.x(), 16 * std::max({1.0, std::abs(at.x()), reach}));
  if (!h) return std::nullopt;
  const double step = *h;
  const Zero slope = [&](double u, double v) { return refine::Slope(along(v), u, step); };
  return refine::CommonZero(f, slope, at, reach);
}

// The turn of y along the parameter, between the parameters of the neighbouring vertices.
std::optional<QPointF> CurveRefiner::ParameterTurn(std::size_t curve, QPointF before, QPointF after, bool maximum) {
  const Drawing::Curve& c = m_curves[curve];
  const auto from = ParameterNear(curve, before), to = ParameterNear(curve, after);
  if (!from || !to || *from == *to) return std::nullopt;
  const auto t = refine::Turn([&](double s) { return c.PointAt(s).y(); }, std::min(*from, *to), std::max(*from, *to), maximum);
  if (!t) return std::nullopt;
  return c.PointAt(*t);
}

QPointF CurveRefiner::Crossing(std::size_t c, std::size_t d, QPointF a1, QPointF a2, QPointF b1, QPointF b2, QPointF at) {
  const Drawing::Curve& first = m_curves[c];
  const Drawing::Curve& second = m_curves[d];
  std::optional<QPointF> refined;
  if (first.Explicit && second.Explicit) {
    const double lo = std::max(std::min(a1.x(), a2.x()), std::min(b1.x(), b2.x()));
    const double hi = std::min(std::max(a1.x(), a2.x()), std::max(b1.x(), b2.x()));
    refined = ExplicitCrossing(c, d, lo, hi, at.x());
  } else if (first.Explicit && second.Zero) {
    refined = ExplicitCrossing(c, d, at.x(), at.x(), at.x());
  } else if (second.Explicit && first.Zero) {
    refined = ExplicitCrossing(d, c, at.x(), at.x(), at.x());
  } else if (first.Zero && second.Zero) {
    refined = refine::CommonZero(first.Zero, second.Zero, at, Reach());
  } else if (first.PointAt && second.Zero) {
    refined = OnParameter(c, at, [&](QPointF p) { return second.Zero(p.x(), p.y()); });
  } else if (second.PointAt && first.Zero) {
    refined = OnParameter(d, at, [&](QPointF p) { return first.Zero(p.x(), p.y()); });
  } else if (first.PointAt && second.PointAt) {
    refined = ParametricCrossing(c, d, at);
  }
  return refined && Near(*refined, at) ? *refined : at;
}

// Curve c is y = f(x); d is y = g(x) (the root of f - g) or has a zero function G (the root of
// G(x, f(x))). Tried over [lo, hi] where the segments overlap, else about x.
std::optional<QPointF> CurveRefiner::ExplicitCrossing(std::size_t c, std::size_t d, double lo, double hi, double x) {
  const auto& f = m_curves[c].Explicit;
  const auto& g = m_curves[d].Explicit;
  const Zero& other = m_curves[d].Zero;
  const refine::Function difference = g ? refine::Function([&](double u) { return f(u) - g(u); })
                                        : refine::Function([&](double u) { return other(u, f(u)); });
  std::optional<double> root = lo < hi ? refine::Root(difference, lo, hi) : std::nullopt;
  if (!root) root = refine::RootNear(difference, x, ReachX());
  if (!root) return std::nullopt;
  return QPointF(*root, f(*root));
}

std::optional<QPointF> CurveRefiner::ParametricCrossing(std::size_t c, std::size_t d, QPointF at) {
  const auto s = ParameterNear(c, at), t = ParameterNear(d, at);
  if (!s || !t) return std::nullopt;
  const auto& p = m_curves[c].PointAt;
  const auto st = refine::CommonPoint(p, m_curves[d].PointAt, *s, *t, Reach());
  if (!st) return std::nullopt;
  return p(st->first);
}

bool CurveRefiner::Coincide(std::size_t c, std::size_t d) {
  const auto key = std::minmax(c, d);
  std::int8_t& known = m_coincide[key.first * m_curves.size() + key.second];
  if (known >= 0) return known == 1;
  const Drawing::Curve& first = m_curves[key.first];
  const Drawing::Curve& second = m_curves[key.second];
  // The same to the last bit at a few places spread over the view (or the parameter) is the same
  // equation: two different ones agree so only where they meet.
  constexpr double kPlaces[] = {0.1234, 0.3579, 0.5, 0.6543, 0.8765};
  bool same = true;
  for (const double u : kPlaces) {
    const double x = m_view.XMin() + u * (m_view.XMax() - m_view.XMin());
    const double y = m_view.YMin() + (1 - u) * (m_view.YMax() - m_view.YMin());
    if (first.Explicit && second.Explicit) {
      same = same && Identical(first.Explicit(x), second.Explicit(x));
    } else if (first.Zero && second.Zero && !first.Explicit && !second.Explicit) {
      same = same && Identical(first.Zero(x, y), second.Zero(x, y));
    } else if (first.PointAt && second.PointAt && first.From == second.From && first.To == second.To) {
      const double t = first.From + u * (first.To - first.From);
      const QPointF p = first.PointAt(t), q = second.PointAt(t);
      same = same && Identical(p.x(), q.x()) && Identical(p.y(), q.y());
    } else {
      same = false;
    }
  }
  known = same ? 1 : 0;
  return same;
}

std::optional<QPointF> CurveRefiner::Touching(std::size_t c, std::size_t d, double x0, double x1, bool fromBelow) {
  const auto& f = m_curves[c].Explicit;
  const auto& g = m_curves[d].Explicit;
  const refine::Function difference = [&](double u) { return f(u) - g(u); };
  const auto x = refine::Turn(difference, std::min(x0, x1), std::max(x0, x1), fromBelow);
  // Where the difference turns short of zero, the curves pass each other by.
  if (!x || !(std::abs(difference(*x)) <= m_view.YPerPixel() * 1e-6)) return std::nullopt;
  return QPointF(*x, f(*x));
}

}  // namespace plot2d
