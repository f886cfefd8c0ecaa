#include "NotablePoints.h"

#include "CurveRefiner.h"
#include "IntersectionGrid.h"

#include "core/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <unordered_map>

namespace plot2d {

namespace {

// Whether the boxes of segments a1-a2 and b1-b2 share a point; flat boxes (a level segment) count.
bool Overlap(QPointF a1, QPointF a2, QPointF b1, QPointF b2) {
  return std::max(std::min(a1.x(), a2.x()), std::min(b1.x(), b2.x())) <= std::min(std::max(a1.x(), a2.x()), std::max(b1.x(), b2.x())) &&
         std::max(std::min(a1.y(), a2.y()), std::min(b1.y(), b2.y())) <= std::min(std::max(a1.y(), a2.y()), std::max(b1.y(), b2.y()));
}

int Index(std::size_t curve) { return static_cast<int>(curve); }

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

// Whether curves c and d are the two boundaries of one inequality's region, which follow each
// other in the drawing.
bool EdgesOfOneRegion(const std::vector<Drawing::Curve>& curves, std::size_t c, std::size_t d) {
  const std::size_t first = std::min(c, d), second = std::max(c, d);
  return second == first + 1 && curves[first].Edge == 1 && curves[second].Edge == 2;
}

void Roots(CurveRefiner& refiner, std::size_t curve, std::vector<NotablePoint>& out) {
  for (const QPolygonF& piece : refiner.Curves()[curve].Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if (a.y() == 0) out.push_back({a, NotablePoint::Kind::Root, Index(curve)});
      if ((a.y() < 0) == (b.y() < 0) || b.y() == 0) continue;
      const QPointF at(a.x() + (b.x() - a.x()) * a.y() / (a.y() - b.y()), 0);
      out.push_back({refiner.Root(curve, a, b, at), NotablePoint::Kind::Root, Index(curve)});
    }
  }
}

void Extrema(CurveRefiner& refiner, std::size_t curve, std::vector<NotablePoint>& out) {
  for (const QPolygonF& piece : refiner.Curves()[curve].Pieces) {
    for (qsizetype i = 1; i + 1 < piece.size(); ++i) {
      const double before = piece[i].y() - piece[i - 1].y();
      const double after = piece[i + 1].y() - piece[i].y();
      const bool maximum = before > 0 && after <= 0;
      const bool minimum = before < 0 && after >= 0;
      if (!maximum && !minimum) continue;
      const QPointF at = refiner.Extremum(curve, piece[i - 1], piece[i], piece[i + 1], maximum);
      out.push_back({at, maximum ? NotablePoint::Kind::Maximum : NotablePoint::Kind::Minimum, Index(curve)});
      // A curve that touches the axis at its turn has a double root there, with no change of
      // sign for the search of roots to find.
      if (std::abs(at.y()) <= refiner.View().YPerPixel() * 1e-6) out.push_back({QPointF(at.x(), 0), NotablePoint::Kind::Root, Index(curve)});
    }
  }
}

void YIntercepts(CurveRefiner& refiner, std::size_t curve, std::vector<NotablePoint>& out) {
  const Drawing::Curve& c = refiner.Curves()[curve];
  if (c.Explicit) {
    const double y = c.Explicit(0);
    if (std::isfinite(y)) out.push_back({QPointF(0, y), NotablePoint::Kind::YIntercept, Index(curve)});
    return;
  }
  for (const QPolygonF& piece : c.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      const QPointF a = piece[i - 1], b = piece[i];
      if ((a.x() < 0) == (b.x() < 0) || a.x() == b.x()) continue;
      const QPointF at = a + (b - a) * (-a.x() / (b.x() - a.x()));
      out.push_back({refiner.YIntercept(curve, at), NotablePoint::Kind::YIntercept, Index(curve)});
    }
  }
}

// Where two curves y = f(x) touch without crossing, their difference turns at zero without a
// change of sign: the crossings of the drawn segments miss it. Looked for at the turns of the
// difference along the curve's vertices, where the other curve comes near.
void Touchings(CurveRefiner& refiner, const IntersectionGrid& grid, std::size_t index, std::size_t from,
               std::vector<NotablePoint>& out) {
  const auto& curves = refiner.Curves();
  const Drawing::Curve& first = curves[index];
  if (!first.Explicit) return;
  for (std::size_t other = from; other < curves.size(); ++other) {
    const Drawing::Curve& second = curves[other];
    if (other == index || !second.Explicit || refiner.Coincide(index, other)) continue;
    for (const QPolygonF& piece : first.Pieces) {
      // The vertices lie on the first curve: one evaluation of the second per vertex it comes
      // near, when first needed.
      std::vector<double> d(static_cast<std::size_t>(piece.size()), std::numeric_limits<double>::quiet_NaN());
      const auto at = [&](std::size_t i) {
        const QPointF v = piece[static_cast<qsizetype>(i)];
        if (std::isnan(d[i])) d[i] = v.y() - second.Explicit(v.x());
        return d[i];
      };
      for (std::size_t i = 1; i + 1 < d.size(); ++i) {
        if (!grid.Passes(other, piece[static_cast<qsizetype>(i)])) continue;
        const double before = at(i - 1), here = at(i), after = at(i + 1);
        if (!(std::abs(here) <= std::abs(before) && std::abs(here) <= std::abs(after))) continue;
        if ((before < 0) != (after < 0)) continue;  // a crossing, found by the segments
        // Only turns that come within a few pixels of the other curve can touch it.
        if (!(std::abs(here) <= 4 * refiner.View().YPerPixel())) continue;
        const qsizetype v = static_cast<qsizetype>(i);
        if (const auto touch = refiner.Touching(index, other, piece[v - 1].x(), piece[v + 1].x(), before < 0)) {
          const auto kind = EdgesOfOneRegion(curves, index, other) ? NotablePoint::Kind::Corner : NotablePoint::Kind::Intersection;
          out.push_back({*touch, kind, Index(index), Index(other)});
        }
      }
    }
  }
}

// The segments of the drawing's curves in view, filed by cell; all but skip's.
std::unique_ptr<IntersectionGrid> FileSegments(const std::vector<Drawing::Curve>& curves, const ViewTransform& view,
                                               std::optional<std::size_t> skip) {
  auto grid = std::make_unique<IntersectionGrid>(view);
  for (std::size_t c = 0; c < curves.size(); ++c) {
    if (c == skip) continue;
    for (const QPolygonF& q : curves[c].Pieces) {
      for (qsizetype j = 1; j < q.size(); ++j) grid->File({q[j - 1], q[j], c});
    }
  }
  return grid;
}

// The points kept so far, filed by kind and the square of two pixels they lie in, so that a new
// point is compared with those in the squares about it alone.
using Filed = std::unordered_map<std::uint64_t, std::vector<std::size_t>>;

std::uint64_t FileKey(NotablePoint::Kind kind, std::int64_t column, std::int64_t row) {
  // A picture is at most 20000 pixels a side: 24 bits each, with room for the squares beside it.
  return (std::uint64_t(kind) << 48) | (std::uint64_t(column + 1) << 24) | std::uint64_t(row + 1);
}

// The points kept so far: each in view, and none within a pixel of another of its kind.
struct Kept {
  const ViewTransform& View;
  std::vector<NotablePoint> Points;
  Filed Cells;
};

bool NearKept(const Kept& kept, const NotablePoint& p) {
  const double px = kept.View.ToPixelX(p.At.x()), py = kept.View.ToPixelY(p.At.y());
  const auto column = static_cast<std::int64_t>(std::floor(px / 2)), row = static_cast<std::int64_t>(std::floor(py / 2));
  // A point less than a pixel away lies in this square or in the one beside it on the nearer side.
  const std::int64_t otherColumn = px - 2 * static_cast<double>(column) < 1 ? column - 1 : column + 1;
  const std::int64_t otherRow = py - 2 * static_cast<double>(row) < 1 ? row - 1 : row + 1;
  for (const std::int64_t c : {column, otherColumn}) {
    for (const std::int64_t r : {row, otherRow}) {
      const auto cell = kept.Cells.find(FileKey(p.What, c, r));
      if (cell == kept.Cells.end()) continue;
      const bool near = std::any_of(cell->second.begin(), cell->second.end(), [&](std::size_t k) {
        const QPointF at = kept.Points[k].At;
        return std::abs(kept.View.ToPixelX(at.x()) - px) < 1 && std::abs(kept.View.ToPixelY(at.y()) - py) < 1;
      });
      if (near) return true;
    }
  }
  return false;
}

// Keeps p if it is in view and not within a pixel of one of its kind already kept.
void Keep(Kept& kept, const NotablePoint& p) {
  if (!InView(p.At, kept.View) || !std::isfinite(p.At.x()) || !std::isfinite(p.At.y()) || NearKept(kept, p)) return;
  const auto column = static_cast<std::int64_t>(std::floor(kept.View.ToPixelX(p.At.x()) / 2));
  const auto row = static_cast<std::int64_t>(std::floor(kept.View.ToPixelY(p.At.y()) / 2));
  kept.Cells[FileKey(p.What, column, row)].push_back(kept.Points.size());
  kept.Points.push_back(p);
}

void Keep(Kept& kept, const std::vector<NotablePoint>& found) {
  for (const NotablePoint& p : found) Keep(kept, p);
}

// The crossings of curve index with the curves from from on. Where several pairs of curves meet
// at one point (lines through a common point), the point is made exact once.
void Intersections(CurveRefiner& refiner, const IntersectionGrid& grid, std::size_t index, std::size_t from, Kept& out) {
  const auto& curves = refiner.Curves();
  for (const QPolygonF& p : curves[index].Pieces) {
    for (qsizetype i = 1; i < p.size(); ++i) {
      const QPointF a1 = p[i - 1], a2 = p[i];
      grid.Near(a1, a2, [&](const IntersectionGrid::Segment& s) {
        if (s.Curve == index || s.Curve < from || !Overlap(a1, a2, s.A, s.B) || refiner.Coincide(index, s.Curve)) return;
        // In the order of the curves, so that the point is the same to the last bit whichever
        // of the two the pointer is on.
        const bool first = index < s.Curve;
        const QPointF b1 = first ? a1 : s.A, b2 = first ? a2 : s.B, c1 = first ? s.A : a1, c2 = first ? s.B : a2;
        const auto at = Crossing(b1, b2, c1, c2);
        if (!at) return;
        const auto kind = EdgesOfOneRegion(curves, index, s.Curve) ? NotablePoint::Kind::Corner : NotablePoint::Kind::Intersection;
        if (!InView(*at, out.View) || NearKept(out, {*at, kind})) return;
        Keep(out, {refiner.Crossing(std::min(index, s.Curve), std::max(index, s.Curve), b1, b2, c1, c2, *at), kind,
                   Index(index), Index(s.Curve)});
      });
    }
  }
}

// The points of one curve; its meetings with the curves from from on (the earlier ones' have
// been found from them, the same to the last bit).
void Search(CurveRefiner& refiner, const IntersectionGrid& grid, std::size_t curve, std::size_t from, Kept& kept) {
  std::vector<NotablePoint> found;
  Roots(refiner, curve, found);
  Extrema(refiner, curve, found);
  YIntercepts(refiner, curve, found);
  Keep(kept, found);
  if (refiner.View().XMax() > refiner.View().XMin()) Intersections(refiner, grid, curve, from, kept);
  found.clear();
  Touchings(refiner, grid, curve, from, found);
  Keep(kept, found);
}

}  // namespace

std::vector<NotablePoint> FindNotablePoints(const Drawing& drawing, std::size_t curve, const ViewTransform& view) {
  if (curve >= drawing.Curves.size()) return {};
  CurveRefiner refiner(drawing, view);
  const auto grid = FileSegments(drawing.Curves, view, curve);
  Kept found{view, {}, {}};
  Search(refiner, *grid, curve, 0, found);
  return std::move(found.Points);
}

std::vector<NotablePoint> FindAllNotablePoints(const Drawing& drawing, const ViewTransform& view) {
  CurveRefiner refiner(drawing, view);
  const auto grid = FileSegments(drawing.Curves, view, std::nullopt);
  Kept found{view, {}, {}};
  for (std::size_t curve = 0; curve < drawing.Curves.size(); ++curve) Search(refiner, *grid, curve, curve + 1, found);
  return std::move(found.Points);
}

QString KindName(NotablePoint::Kind kind) {
  switch (kind) {
    case NotablePoint::Kind::Root: return QStringLiteral("Root");
    case NotablePoint::Kind::Maximum: return QStringLiteral("Maximum");
    case NotablePoint::Kind::Minimum: return QStringLiteral("Minimum");
    case NotablePoint::Kind::YIntercept: return QStringLiteral("y-Intercept");
    case NotablePoint::Kind::Intersection: return QStringLiteral("Intersection");
    case NotablePoint::Kind::Corner: return QStringLiteral("Corner");
  }
  return {};
}

QString PointText(QPointF at) {
  return QStringLiteral("(%1, %2)").arg(core::FormatNumber(at.x()), core::FormatNumber(at.y()));
}

QString ShortPointText(QPointF at, QSizeF span) {
  const double x = std::abs(at.x()) < span.width() * 1e-3 ? 0 : at.x();
  const double y = std::abs(at.y()) < span.height() * 1e-3 ? 0 : at.y();
  return QStringLiteral("(%1, %2)").arg(x, 0, 'g', 6).arg(y, 0, 'g', 6);
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
