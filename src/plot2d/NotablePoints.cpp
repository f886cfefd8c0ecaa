#include "NotablePoints.h"

#include "ParameterScan.h"
#include "mathlang/RootFinding.h"
#include "SegmentColumns.h"

#include "core/NumberText.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace plot2d {

using mathlang::Function;
using mathlang::Golden;
using mathlang::Newton;
using mathlang::Zero;

namespace {

// Whether two boxes share a point; unlike QRectF::intersects, flat boxes (a level segment) count.
bool Overlap(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

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

double Distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

// The search over one drawing and view: how far refinement may move a point found on the picture
// (a few pixels), and the parameter scans of polar and parametric curves, made when first needed.
class Search {
public:
  Search(const Drawing& drawing, const ViewTransform& view)
      : Curves(drawing.Curves), View(view), Reach(3 * std::hypot(view.XPerPixel(), view.YPerPixel())),
        m_scans(drawing.Curves.size()) {}

  const ParameterScan& Scan(std::size_t curve) {
    if (!m_scans[curve]) m_scans[curve] = std::make_unique<ParameterScan>(Curves[curve]);
    return *m_scans[curve];
  }

  // A point of a polar or parametric curve refined from at: where h of the curve's point is zero,
  // within a step of the parameter nearest to at. Nothing where there is none within reach.
  std::optional<QPointF> OnParameter(std::size_t curve, QPointF at, const std::function<double(QPointF)>& h) {
    const Drawing::Curve& c = Curves[curve];
    const ParameterScan& scan = Scan(curve);
    const auto t = scan.Nearest(at, View, 3);
    if (!t) return std::nullopt;
    const auto zero = mathlang::Bracketed([&](double u) { return h(c.PointAt(u)); }, *t - scan.Step(), *t + scan.Step());
    if (!zero) return std::nullopt;
    const QPointF refined = c.PointAt(*zero);
    if (!(Distance(refined, at) <= Reach)) return std::nullopt;
    return refined;
  }

  const std::vector<Drawing::Curve>& Curves;
  const ViewTransform& View;
  const double Reach;

private:
  std::vector<std::unique_ptr<ParameterScan>> m_scans;
};

// A root of other than y = f(x), refined from the point found on the picture.
QPointF RefinedRoot(Search& search, std::size_t curve, QPointF at) {
  const Drawing::Curve& c = search.Curves[curve];
  if (c.Zero) return {Newton(c.Zero, [](double, double v) { return v; }, at, search.Reach).value_or(at).x(), 0};
  if (c.PointAt) return {search.OnParameter(curve, at, [](QPointF p) { return p.y(); }).value_or(at).x(), 0};
  return at;
}

void Roots(Search& search, std::size_t curve, std::vector<NotablePoint>& out) {
  const Drawing::Curve& c = search.Curves[curve];
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if (a.y() == 0) out.push_back({a, NotablePoint::Kind::Root});
      if ((a.y() < 0) == (b.y() < 0) || b.y() == 0) continue;
      QPointF at(a.x() + (b.x() - a.x()) * a.y() / (a.y() - b.y()), 0);
      if (c.Explicit) at.setX(mathlang::Bisect(c.Explicit, a.x(), b.x()));
      else at = RefinedRoot(search, curve, at);
      out.push_back({at, NotablePoint::Kind::Root});
    }
  }
}

QPointF RefinedExtremum(Search& search, std::size_t curve, QPointF before, QPointF at, QPointF after, bool maximum) {
  const Drawing::Curve& c = search.Curves[curve];
  if (c.Explicit) {
    const double x = Golden(c.Explicit, before.x(), after.x(), maximum);
    return {x, c.Explicit(x)};
  }
  const double reach = std::max(Distance(before, at), Distance(after, at));
  if (c.Zero) {
    // Where the curve F = 0 has a level tangent: F = 0 and dF/dx = 0, dF/dx by central differences.
    const Zero slope = [&](double x, double y) {
      const double h = 1e-6 * std::max(1.0, std::abs(x));
      return (c.Zero(x + h, y) - c.Zero(x - h, y)) / (2 * h);
    };
    return Newton(c.Zero, slope, at, reach).value_or(at);
  }
  if (!c.PointAt) return at;
  // Between the parameters of the neighbouring vertices, where the picture turns.
  const ParameterScan& scan = search.Scan(curve);
  const auto from = scan.Nearest(before, search.View, 3), to = scan.Nearest(after, search.View, 3);
  if (!from || !to || *from == *to) return at;
  const double u = Golden([&](double s) { return c.PointAt(s).y(); }, std::min(*from, *to), std::max(*from, *to), maximum);
  // Where the parameter wraps round between the neighbours, the section may find another turn.
  const QPointF refined = c.PointAt(u);
  return Distance(refined, at) <= reach ? refined : at;
}

void Extrema(Search& search, std::size_t curve, std::vector<NotablePoint>& out) {
  for (const QPolygonF& piece : search.Curves[curve].Pieces) {
    for (qsizetype i = 1; i + 1 < piece.size(); ++i) {
      const double before = piece[i].y() - piece[i - 1].y();
      const double after = piece[i + 1].y() - piece[i].y();
      const bool maximum = before > 0 && after <= 0;
      const bool minimum = before < 0 && after >= 0;
      if (!maximum && !minimum) continue;
      const QPointF at = RefinedExtremum(search, curve, piece[i - 1], piece[i], piece[i + 1], maximum);
      out.push_back({at, maximum ? NotablePoint::Kind::Maximum : NotablePoint::Kind::Minimum});
      // A curve that touches the axis at its turn has a double root there, with no change of
      // sign for the search of roots to find.
      if (std::abs(at.y()) <= search.View.YPerPixel() * 1e-6) out.push_back({QPointF(at.x(), 0), NotablePoint::Kind::Root});
    }
  }
}

void YIntercepts(Search& search, std::size_t curve, std::vector<NotablePoint>& out) {
  const Drawing::Curve& c = search.Curves[curve];
  if (c.Explicit) {
    const double y = c.Explicit(0);
    if (std::isfinite(y)) out.push_back({QPointF(0, y), NotablePoint::Kind::YIntercept});
    return;
  }
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if ((a.x() < 0) == (b.x() < 0) || a.x() == b.x()) continue;
      QPointF at = a + (b - a) * (-a.x() / (b.x() - a.x()));
      if (c.Zero) at.setY(Newton(c.Zero, [](double u, double) { return u; }, at, search.Reach).value_or(at).y());
      else if (c.PointAt) at.setY(search.OnParameter(curve, at, [](QPointF p) { return p.x(); }).value_or(at).y());
      out.push_back({QPointF(0, at.y()), NotablePoint::Kind::YIntercept});
    }
  }
}

// A crossing of curves c and d, found between segments a1-a2 and b1-b2, refined: by bisection
// where both are y = f(x), by Newton's method where both have a function that is zero on them,
// and on the parameter where one is polar or parametric and the other has such a function.
QPointF RefinedCrossing(Search& search, std::size_t c, std::size_t d, QPointF a1, QPointF a2, QPointF b1, QPointF b2,
                        QPointF at) {
  const Drawing::Curve& first = search.Curves[c];
  const Drawing::Curve& second = search.Curves[d];
  if (first.Explicit && second.Explicit) {
    const Function difference = [&](double x) { return first.Explicit(x) - second.Explicit(x); };
    const double lo = std::max(std::min(a1.x(), a2.x()), std::min(b1.x(), b2.x()));
    const double hi = std::min(std::max(a1.x(), a2.x()), std::max(b1.x(), b2.x()));
    if (!(lo < hi)) return at;
    const auto x = mathlang::Bracketed(difference, lo, hi);
    return x ? QPointF(*x, first.Explicit(*x)) : at;
  }
  if (first.Zero && second.Zero) return Newton(first.Zero, second.Zero, at, search.Reach).value_or(at);
  if (first.PointAt && second.Zero) {
    return search.OnParameter(c, at, [&](QPointF p) { return second.Zero(p.x(), p.y()); }).value_or(at);
  }
  if (second.PointAt && first.Zero) {
    return search.OnParameter(d, at, [&](QPointF p) { return first.Zero(p.x(), p.y()); }).value_or(at);
  }
  return at;
}

// Where two curves y = f(x) touch without crossing, their difference turns at zero without a
// change of sign: the crossings of the drawn segments miss it. Looked for at the turns of the
// difference along the curve's vertices.
void Touchings(Search& search, std::size_t index, std::vector<NotablePoint>& out) {
  const Drawing::Curve& first = search.Curves[index];
  if (!first.Explicit) return;
  const double tolerance = search.View.YPerPixel() * 1e-6;
  for (std::size_t other = 0; other < search.Curves.size(); ++other) {
    const Drawing::Curve& second = search.Curves[other];
    if (other == index || !second.Explicit) continue;
    const Function difference = [&](double x) { return first.Explicit(x) - second.Explicit(x); };
    for (const QPolygonF& piece : first.Pieces) {
      // The vertices lie on the first curve: one evaluation of the second per vertex.
      std::vector<double> d(static_cast<std::size_t>(piece.size()));
      for (qsizetype i = 0; i < piece.size(); ++i) d[std::size_t(i)] = piece[i].y() - second.Explicit(piece[i].x());
      for (std::size_t i = 1; i + 1 < d.size(); ++i) {
        if (!(std::abs(d[i]) <= std::abs(d[i - 1]) && std::abs(d[i]) <= std::abs(d[i + 1]))) continue;
        if ((d[i - 1] < 0) != (d[i + 1] < 0)) continue;  // a crossing, found by the segments
        // Only turns that come within a few pixels of the other curve can touch it.
        if (!(std::abs(d[i]) <= 4 * search.View.YPerPixel())) continue;
        const qsizetype v = static_cast<qsizetype>(i);
        const double x = Golden(difference, piece[v - 1].x(), piece[v + 1].x(), d[i - 1] < 0);
        if (std::abs(difference(x)) <= tolerance) out.push_back({QPointF(x, first.Explicit(x)), NotablePoint::Kind::Intersection});
      }
    }
  }
}

void Intersections(Search& search, std::size_t index, std::vector<NotablePoint>& out) {
  const ViewTransform& view = search.View;
  if (!(view.XMax() > view.XMin())) return;
  auto columns = std::make_unique<SegmentColumns>(view);
  for (std::size_t other = 0; other < search.Curves.size(); ++other) {
    if (other == index) continue;
    for (const QPolygonF& q : search.Curves[other].Pieces) {
      for (qsizetype j = 1; j < q.size(); ++j) {
        if (std::max(q[j - 1].x(), q[j].x()) < view.XMin() || std::min(q[j - 1].x(), q[j].x()) > view.XMax()) continue;
        columns->File({q[j - 1], q[j], other});
      }
    }
  }
  for (const QPolygonF& p : search.Curves[index].Pieces) {
    for (qsizetype i = 1; i < p.size(); ++i) {
      const QPointF a1 = p[i - 1], a2 = p[i];
      const QRectF box = QRectF(a1, a2).normalized();
      columns->Near(a1, a2, [&](const Segment& s) {
        if (!Overlap(box, QRectF(s.A, s.B).normalized())) return;
        if (const auto at = Crossing(a1, a2, s.A, s.B)) {
          const QPointF refined = RefinedCrossing(search, index, s.Curve, a1, a2, s.A, s.B, *at);
          out.push_back({refined, NotablePoint::Kind::Intersection});
        }
      });
    }
  }
}

}  // namespace

std::vector<NotablePoint> FindNotablePoints(const Drawing& drawing, std::size_t curve, const ViewTransform& view) {
  std::vector<NotablePoint> found;
  if (curve >= drawing.Curves.size()) return found;
  Search search(drawing, view);
  Roots(search, curve, found);
  Extrema(search, curve, found);
  YIntercepts(search, curve, found);
  Intersections(search, curve, found);
  Touchings(search, curve, found);
  // In view, and one of each where two lie within a pixel of each other.
  std::vector<NotablePoint> kept;
  for (const NotablePoint& p : found) {
    if (!InView(p.At, view) || !std::isfinite(p.At.x()) || !std::isfinite(p.At.y())) continue;
    const bool near = std::any_of(kept.begin(), kept.end(), [&](const NotablePoint& k) {
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
