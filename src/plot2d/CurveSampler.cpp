#include "CurveSampler.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot2d {

using mathlang::BlockProgram;

namespace {

enum GapState : std::uint8_t { kDone, kBroken };

constexpr int kMaxRounds = 64;
// A gap whose parameter interval is this many halvings below the first spacing is not split
// further; if the curve still jumps across it, that is a jump, not a steep piece.
constexpr double kFinestSplit = 1.0 / (1ull << 40);
constexpr double kJumpPixels = 2.0;
// Points a curve may take, as a multiple of its first samples. Near an endless wiggle (sin(1/x)
// at 0) the splitting would otherwise go on for tens of seconds and gigabytes; at this many the
// picture is a solid band there already, and the window stays responsive.
constexpr std::size_t kPointsPerSample = 256;
constexpr std::size_t kLeastBudget = 1 << 16;

double Distance(double ax, double ay, double bx, double by) {
  const double dx = bx - ax;
  const double dy = by - ay;
  return std::sqrt(dx * dx + dy * dy);  // an overflow gives infinity, which compares as far
}

// Distance of m from the chord a-b, in pixels.
double Deviation(double ax, double ay, double bx, double by, double mx, double my) {
  const double dx = bx - ax;
  const double dy = by - ay;
  const double length = std::sqrt(dx * dx + dy * dy);
  if (length == 0) return Distance(ax, ay, mx, my);
  return std::abs(dx * (my - ay) - dy * (mx - ax)) / length;
}

}  // namespace

CurveSampler::CurveSampler(const CurveSource& source, const ViewTransform& view, int quality)
    : m_source(source), m_view(view) {
  const double coarseness = 100.0 / std::clamp(quality, 1, 100);
  m_tolerance = 0.25 * coarseness;
  m_shortest = 0.5 * coarseness;
  m_longest = 8.0 * coarseness;
}

int CurveSampler::SamplesFor(double pixels, int quality) {
  // One even sample every two pixels; the refinement adds what the curve's bends call for.
  const double count = pixels / 2 * std::clamp(quality, 1, 100) / 100.0;
  return static_cast<int>(std::clamp(count, 16.0, 20000.0));
}

QPointF CurveSource::PointAt(double s) const {
  switch (Kind) {
    case Mode::YOfX: return {s, First.At(s)};
    case Mode::XOfY: return {First.At(0, s), s};
    case Mode::Polar: {
      const double r = First.At(0, 0, 0, s);
      return {r * std::cos(s), r * std::sin(s)};
    }
    case Mode::Parametric: return {First.At(s, 0, s, s), Second.At(s, 0, s, s)};
    case Mode::ParametricPolar: {
      const double r = First.At(s, 0, s, s), theta = Second.At(s, 0, s, s);
      return {r * std::cos(theta), r * std::sin(theta)};
    }
  }
  return {};
}

void CurveSampler::Evaluate(const std::vector<double>& s, std::vector<Point>& points, Scratch& scratch) const {
  const size_t n = s.size();
  points.assign(n, Point{});
  // The lists keep their memory from round to round; each starts at zero, as new ones would.
  for (std::vector<double>* list : {&scratch.First, &scratch.Second, &scratch.X, &scratch.Y, &scratch.T, &scratch.Theta, &scratch.R}) {
    list->assign(n, 0.0);
  }
  std::vector<double>& first = scratch.First;
  std::vector<double>& second = scratch.Second;
  std::vector<double>& x = scratch.X;
  std::vector<double>& y = scratch.Y;
  std::vector<double>& t = scratch.T;
  std::vector<double>& theta = scratch.Theta;
  std::vector<double>& r = scratch.R;
  BlockProgram::Inputs inputs{};
  using Mode = CurveSource::Mode;
  switch (m_source.Kind) {
    case Mode::YOfX:
      inputs[0] = s.data();
      m_source.First.Evaluate(inputs, n, first.data());
      for (size_t i = 0; i < n; ++i) x[i] = s[i], y[i] = first[i];
      break;
    case Mode::XOfY:
      inputs[1] = s.data();
      m_source.First.Evaluate(inputs, n, first.data());
      for (size_t i = 0; i < n; ++i) x[i] = first[i], y[i] = s[i];
      break;
    case Mode::Polar:
      inputs[3] = s.data();
      m_source.First.Evaluate(inputs, n, first.data());
      for (size_t i = 0; i < n; ++i) {
        theta[i] = s[i];
        r[i] = first[i];
        x[i] = r[i] * std::cos(s[i]);
        y[i] = r[i] * std::sin(s[i]);
      }
      break;
    case Mode::Parametric:
    case Mode::ParametricPolar:
      inputs[0] = inputs[2] = inputs[3] = s.data();
      m_source.First.Evaluate(inputs, n, first.data());
      m_source.Second.Evaluate(inputs, n, second.data());
      for (size_t i = 0; i < n; ++i) {
        t[i] = s[i];
        if (m_source.Kind == Mode::Parametric) {
          x[i] = first[i], y[i] = second[i];
        } else {
          x[i] = first[i] * std::cos(second[i]);
          y[i] = first[i] * std::sin(second[i]);
        }
      }
      break;
  }
  std::vector<double>& allowed = scratch.Allowed;
  if (m_source.HasCondition) {
    allowed.resize(n);
    const BlockProgram::Inputs conditionInputs{x.data(), y.data(), t.data(), theta.data(), r.data()};
    m_source.Condition.Evaluate(conditionInputs, n, allowed.data());
  }
  for (size_t i = 0; i < n; ++i) {
    Point& p = points[i];
    p.S = s[i];
    p.X = x[i], p.Y = y[i], p.T = t[i], p.Theta = theta[i], p.R = r[i];
    p.Defined = std::isfinite(x[i]) && std::isfinite(y[i]);
    p.Allowed = !m_source.HasCondition || allowed[i] != 0;
    p.Px = m_view.ToPixelX(x[i]);
    p.Py = m_view.ToPixelY(y[i]);
  }
}

bool CurveSampler::OffScreenTogether(const Point& a, const Point& b) const {
  const double w = m_view.Width();
  const double h = m_view.Height();
  return (a.Px < 0 && b.Px < 0) || (a.Px > w && b.Px > w) || (a.Py < 0 && b.Py < 0) || (a.Py > h && b.Py > h);
}

// A comparison ends the curve where its truth changes while both its sides are numbers outside:
// the condition's own bound, not the edge of where the function is defined. Its look follows the
// comparison: a bound that belongs to the curve ("<=") is filled.
std::optional<bool> CurveSampler::BoundBetween(const Point& inside, const Point& outside) const {
  const auto at = [](const BlockProgram& p, const Point& q) { return p.At(q.X, q.Y, q.T, q.Theta, q.R); };
  for (const CurveSource::Bound& bound : m_source.Comparisons) {
    if ((at(bound.Test, inside) != 0) == (at(bound.Test, outside) != 0)) continue;
    if (std::isfinite(at(bound.Left, outside)) && std::isfinite(at(bound.Right, outside))) return bound.Inclusive;
  }
  return std::nullopt;
}

SampledCurve CurveSampler::Sample(double from, double to, int initialSamples) const {
  const int count = std::max(2, initialSamples);
  std::vector<double> parameters(static_cast<size_t>(count) + 1);
  for (int i = 0; i <= count; ++i) parameters[static_cast<size_t>(i)] = from + (to - from) * i / count;
  std::vector<Point> points;
  Scratch scratch;
  Evaluate(parameters, points, scratch);
  const double finest = std::abs(to - from) / count * kFinestSplit;

  // Only the intervals still being looked into are kept from round to round; every new point
  // goes to the end, and all are put in order once at the end.
  struct Interval {
    Point A, B;
    std::uint32_t IndexA, IndexB;  // their places in points
  };
  // The points in order along the curve: every midpoint goes between the two ends of its
  // interval, which are neighbours at the time, so the order is kept as it grows and never has
  // to be sorted.
  std::vector<std::uint32_t> following(points.size());
  for (std::uint32_t i = 0; i < following.size(); ++i) following[i] = i + 1;
  following.back() = std::numeric_limits<std::uint32_t>::max();  // the last point is followed by none
  std::vector<Interval> open;
  std::vector<double> brokenAt;  // the left parameter of every jump
  const auto examine = [&](const Point& a, const Point& b, std::uint32_t ia, std::uint32_t ib) {
    const bool bothValid = a.Valid() && b.Valid();
    if (std::abs(b.S - a.S) <= finest) {
      if (bothValid && Distance(a.Px, a.Py, b.Px, b.Py) > kJumpPixels) brokenAt.push_back(a.S);
      return;
    }
    const bool edge = a.Valid() != b.Valid();
    const bool worth = bothValid && !OffScreenTogether(a, b) && Distance(a.Px, a.Py, b.Px, b.Py) > m_shortest;
    if (edge || worth) open.push_back({a, b, ia, ib});
  };
  for (std::uint32_t i = 0; i + 1 < points.size(); ++i) examine(points[i], points[i + 1], i, i + 1);

  std::vector<double> middles;
  std::vector<Point> midpoints;
  const std::size_t budget = std::max(kLeastBudget, kPointsPerSample * static_cast<std::size_t>(count));
  for (int round = 0; round < kMaxRounds && !open.empty(); ++round) {
    if (points.size() + open.size() > budget) break;
    middles.clear();
    for (const Interval& interval : open) middles.push_back((interval.A.S + interval.B.S) / 2);
    Evaluate(middles, midpoints, scratch);
    std::vector<Interval> current;
    current.swap(open);
    for (size_t i = 0; i < current.size(); ++i) {
      const Point& a = current[i].A;
      const Point& b = current[i].B;
      const Point& m = midpoints[i];
      const auto im = static_cast<std::uint32_t>(points.size());
      points.push_back(m);
      following[current[i].IndexA] = im;
      following.push_back(current[i].IndexB);
      // A straight, short piece is done; anything else is looked into again.
      if (a.Valid() && b.Valid() && m.Valid() && Distance(a.Px, a.Py, b.Px, b.Py) <= m_longest &&
          Deviation(a.Px, a.Py, b.Px, b.Py, m.Px, m.Py) <= m_tolerance) {
        continue;
      }
      examine(a, m, current[i].IndexA, im);
      examine(m, b, im, current[i].IndexB);
    }
  }
  // Put in order by parameter: along the curve, from the smaller end.
  std::vector<Point> sorted;
  sorted.reserve(points.size());
  for (std::uint32_t i = 0; i < points.size(); i = following[i]) sorted.push_back(points[i]);
  if (to < from) std::reverse(sorted.begin(), sorted.end());
  points.swap(sorted);
  std::sort(brokenAt.begin(), brokenAt.end());
  std::vector<std::uint8_t> gaps(points.size() - 1, kDone);
  for (size_t i = 0; i + 1 < points.size(); ++i) {
    if (std::binary_search(brokenAt.begin(), brokenAt.end(), points[i].S)) gaps[i] = kBroken;
  }
  return Assemble(points, gaps);
}

SampledCurve CurveSampler::Assemble(const std::vector<Point>& points, const std::vector<std::uint8_t>& gaps) const {
  SampledCurve curve;
  QPolygonF piece;
  // A lone point between two breaks (the sign flips at a pole's very edge) draws nothing.
  const auto flush = [&] {
    if (piece.size() > 1) curve.Pieces.push_back(piece);
    piece.clear();
  };
  for (size_t i = 0; i < points.size(); ++i) {
    const Point& p = points[i];
    if (p.Valid()) piece.append(QPointF(p.X, p.Y));
    if (i + 1 == points.size()) break;
    const Point& next = points[i + 1];
    // An end made by the condition.
    if (p.Valid() != next.Valid() && (p.Valid() ? !next.Allowed : !p.Allowed)) {
      const Point& inside = p.Valid() ? p : next;
      const Point& outside = p.Valid() ? next : p;
      if (const auto inclusive = BoundBetween(inside, outside)) {
        curve.Ends.push_back({QPointF(inside.X, inside.Y), *inclusive});
      }
    }
    if (!p.Valid() || !next.Valid() || gaps[i] == kBroken) flush();
  }
  flush();
  return curve;
}

}  // namespace plot2d
