#include "SpecialPoints.h"

#include "core/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>

namespace plot2d {

namespace {

constexpr int kSteps = 80;

using Function = std::function<double(double)>;

// A root of f between a and b, where f changes sign.
double Bisect(const Function& f, double a, double b) {
  double fa = f(a);
  for (int i = 0; i < kSteps; ++i) {
    const double m = (a + b) / 2;
    const double fm = f(m);
    if (!std::isfinite(fm)) break;
    if ((fm > 0) == (fa > 0)) a = m, fa = fm;
    else b = m;
  }
  return (a + b) / 2;
}

// The extremum of f in [a, b] (golden section): the largest value when maximum, else the smallest.
double Golden(const Function& f, double a, double b, bool maximum) {
  const double ratio = (std::sqrt(5.0) - 1) / 2;
  const auto better = [&](double u, double v) { return maximum ? f(u) > f(v) : f(u) < f(v); };
  double c = b - ratio * (b - a), d = a + ratio * (b - a);
  for (int i = 0; i < kSteps; ++i) {
    if (better(c, d)) b = d;
    else a = c;
    c = b - ratio * (b - a), d = a + ratio * (b - a);
  }
  return (a + b) / 2;
}

// Whether two boxes share a point; unlike QRectF::intersects, flat boxes (a level segment) count.
bool Overlap(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

using Zero = std::function<double(double, double)>;

// Where f and g are both zero, by Newton's method from start with a Jacobian of forward
// differences: the residuals are exact, so it still converges to full precision. Nothing when it
// does not converge within reach of start.
std::optional<QPointF> Newton(const Zero& f, const Zero& g, QPointF start, double reach) {
  double x = start.x(), y = start.y();
  for (int i = 0; i < 40; ++i) {
    const double fv = f(x, y), gv = g(x, y);
    if (fv == 0 && gv == 0) break;
    const double hx = 1e-7 * std::max(1.0, std::abs(x)), hy = 1e-7 * std::max(1.0, std::abs(y));
    const double fx = (f(x + hx, y) - fv) / hx, fy = (f(x, y + hy) - fv) / hy;
    const double gx = (g(x + hx, y) - gv) / hx, gy = (g(x, y + hy) - gv) / hy;
    const double det = fx * gy - fy * gx;
    if (det == 0 || !std::isfinite(det)) return std::nullopt;
    const double dx = (fv * gy - fy * gv) / det, dy = (fx * gv - fv * gx) / det;
    x -= dx, y -= dy;
    if (!std::isfinite(x) || !std::isfinite(y)) return std::nullopt;
    if (std::abs(dx) <= 1e-15 * std::max(1.0, std::abs(x)) && std::abs(dy) <= 1e-15 * std::max(1.0, std::abs(y))) break;
  }
  if (std::hypot(x - start.x(), y - start.y()) > reach) return std::nullopt;
  return QPointF(x, y);
}

// How far refinement may move a point found on the picture: a few pixels.
double Reach(const ViewTransform& view) { return 3 * std::hypot(view.XPerPixel(), view.YPerPixel()); }

bool InView(QPointF p, const ViewTransform& view) {
  return p.x() >= view.XMin() && p.x() <= view.XMax() && p.y() >= view.YMin() && p.y() <= view.YMax();
}

// Where segments a1-a2 and b1-b2 cross, if they do.
std::optional<QPointF> Crossing(QPointF a1, QPointF a2, QPointF b1, QPointF b2) {
  const QPointF r = a2 - a1, s = b2 - b1;
  const double d = r.x() * s.y() - r.y() * s.x();
  if (d == 0) return std::nullopt;
  const QPointF q = b1 - a1;
  const double t = (q.x() * s.y() - q.y() * s.x()) / d;
  const double u = (q.x() * r.y() - q.y() * r.x()) / d;
  if (t < 0 || t > 1 || u < 0 || u > 1) return std::nullopt;
  return a1 + t * r;
}

void Roots(const Drawing::Curve& c, double reach, std::vector<SpecialPoint>& out) {
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if (a.y() == 0) out.push_back({a, SpecialPoint::Kind::Root});
      if ((a.y() < 0) == (b.y() < 0) || b.y() == 0) continue;
      double x = a.x() + (b.x() - a.x()) * a.y() / (a.y() - b.y());
      if (c.Explicit) {
        x = Bisect(c.Explicit, a.x(), b.x());
      } else if (c.Zero) {
        x = Newton(c.Zero, [](double, double v) { return v; }, QPointF(x, 0), reach).value_or(QPointF(x, 0)).x();
      }
      out.push_back({QPointF(x, 0), SpecialPoint::Kind::Root});
    }
  }
}

void Extrema(const Drawing::Curve& c, std::vector<SpecialPoint>& out) {
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i + 1 < piece.size(); ++i) {
      const double before = piece[i].y() - piece[i - 1].y();
      const double after = piece[i + 1].y() - piece[i].y();
      const bool maximum = before > 0 && after <= 0;
      const bool minimum = before < 0 && after >= 0;
      if (!maximum && !minimum) continue;
      QPointF at = piece[i];
      if (c.Explicit) {
        const double x = Golden(c.Explicit, piece[i - 1].x(), piece[i + 1].x(), maximum);
        at = QPointF(x, c.Explicit(x));
      }
      out.push_back({at, maximum ? SpecialPoint::Kind::Maximum : SpecialPoint::Kind::Minimum});
    }
  }
}

void YIntercepts(const Drawing::Curve& c, double reach, std::vector<SpecialPoint>& out) {
  if (c.Explicit) {
    const double y = c.Explicit(0);
    if (std::isfinite(y)) out.push_back({QPointF(0, y), SpecialPoint::Kind::YIntercept});
    return;
  }
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if ((a.x() < 0) == (b.x() < 0) || a.x() == b.x()) continue;
      QPointF at = a + (b - a) * (-a.x() / (b.x() - a.x()));
      if (c.Zero) at.setY(Newton(c.Zero, [](double u, double) { return u; }, at, reach).value_or(at).y());
      out.push_back({at, SpecialPoint::Kind::YIntercept});
    }
  }
}

// The crossing refined on both functions: by bisection where both curves are y = f(x), else by
// Newton's method where both have a function that is zero on them.
QPointF Refined(const Drawing::Curve& c, const Drawing::Curve& d, QPointF a1, QPointF a2, QPointF b1, QPointF b2, QPointF at,
                double reach) {
  if (!c.Explicit || !d.Explicit) {
    if (!c.Zero || !d.Zero) return at;
    return Newton(c.Zero, d.Zero, at, reach).value_or(at);
  }
  const Function difference = [&](double x) { return c.Explicit(x) - d.Explicit(x); };
  const double lo = std::max(std::min(a1.x(), a2.x()), std::min(b1.x(), b2.x()));
  const double hi = std::min(std::max(a1.x(), a2.x()), std::max(b1.x(), b2.x()));
  if (!(lo < hi) || (difference(lo) > 0) == (difference(hi) > 0)) return at;
  const double x = Bisect(difference, lo, hi);
  return QPointF(x, c.Explicit(x));
}

struct Segment {
  QPointF A, B;
  std::size_t Curve;
};

// The segments of the other curves, filed by the columns of the view their x-range spans, so that
// a segment is tried only against the few that share a column with it.
class Columns {
public:
  static constexpr int kCount = 256;

  explicit Columns(const ViewTransform& view) : m_min(view.XMin()), m_width((view.XMax() - view.XMin()) / kCount) {}

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

void Intersections(const Drawing& drawing, std::size_t index, const ViewTransform& view, std::vector<SpecialPoint>& out) {
  if (!(view.XMax() > view.XMin())) return;
  auto columns = std::make_unique<Columns>(view);
  for (std::size_t other = 0; other < drawing.Curves.size(); ++other) {
    if (other == index) continue;
    for (const QPolygonF& q : drawing.Curves[other].Pieces) {
      for (qsizetype j = 1; j < q.size(); ++j) {
        if (std::max(q[j - 1].x(), q[j].x()) < view.XMin() || std::min(q[j - 1].x(), q[j].x()) > view.XMax()) continue;
        columns->File({q[j - 1], q[j], other});
      }
    }
  }
  const Drawing::Curve& c = drawing.Curves[index];
  const double reach = Reach(view);
  for (const QPolygonF& p : c.Pieces) {
    for (qsizetype i = 1; i < p.size(); ++i) {
      const QPointF a1 = p[i - 1], a2 = p[i];
      const QRectF box = QRectF(a1, a2).normalized();
      columns->Near(a1, a2, [&](const Segment& s) {
        if (!Overlap(box, QRectF(s.A, s.B).normalized())) return;
        if (const auto at = Crossing(a1, a2, s.A, s.B)) {
          out.push_back({Refined(c, drawing.Curves[s.Curve], a1, a2, s.A, s.B, *at, reach), SpecialPoint::Kind::Intersection});
        }
      });
    }
  }
}

}  // namespace

std::vector<SpecialPoint> FindSpecialPoints(const Drawing& drawing, std::size_t curve, const ViewTransform& view) {
  std::vector<SpecialPoint> found;
  if (curve >= drawing.Curves.size()) return found;
  const Drawing::Curve& c = drawing.Curves[curve];
  Roots(c, Reach(view), found);
  Extrema(c, found);
  YIntercepts(c, Reach(view), found);
  Intersections(drawing, curve, view, found);
  // In view, and one of each where two lie within a pixel of each other.
  std::vector<SpecialPoint> kept;
  for (const SpecialPoint& p : found) {
    if (!InView(p.At, view) || !std::isfinite(p.At.x()) || !std::isfinite(p.At.y())) continue;
    const bool near = std::any_of(kept.begin(), kept.end(), [&](const SpecialPoint& k) {
      return k.What == p.What && std::abs(view.ToPixelX(k.At.x()) - view.ToPixelX(p.At.x())) < 1 &&
             std::abs(view.ToPixelY(k.At.y()) - view.ToPixelY(p.At.y())) < 1;
    });
    if (!near) kept.push_back(p);
  }
  return kept;
}

QString PointText(QPointF at) {
  return QStringLiteral("(%1, %2)").arg(core::FormatNumber(at.x()), core::FormatNumber(at.y()));
}

std::pair<int, QPointF> NearestCurvePoint(const Drawing& drawing, const ViewTransform& view, QPointF pixel, double reach) {
  int best = -1;
  QPointF bestAt;
  double bestDistance = reach;
  for (std::size_t c = 0; c < drawing.Curves.size(); ++c) {
    for (const QPolygonF& piece : drawing.Curves[c].Pieces) {
      for (qsizetype i = 1; i < piece.size(); ++i) {
        const QPointF a = view.ToPixel(piece[i - 1].x(), piece[i - 1].y());
        const QPointF b = view.ToPixel(piece[i].x(), piece[i].y());
        const QPointF d = b - a;
        const double length2 = QPointF::dotProduct(d, d);
        const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(pixel - a, d) / length2, 0.0, 1.0) : 0;
        const QPointF on = a + t * d;
        const double distance = std::hypot(on.x() - pixel.x(), on.y() - pixel.y());
        if (distance < bestDistance) {
          bestDistance = distance;
          best = static_cast<int>(c);
          bestAt = piece[i - 1] + t * (piece[i] - piece[i - 1]);
        }
      }
    }
  }
  return {best, bestAt};
}

}  // namespace plot2d
