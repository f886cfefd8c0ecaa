#include "ImplicitTracer.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace plot2d {

namespace {

constexpr int kLevels = 3;  // a coarse cell is 2^3 leaves wide

// Values at many points in one batch.
std::vector<double> Values(const BlockProgram& program, const std::vector<double>& xs, const std::vector<double>& ys) {
  std::vector<double> out(xs.size());
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  inputs[1] = ys.data();
  program.Evaluate(inputs, xs.size(), out.data());
  return out;
}

int SignOf(double v) { return std::isnan(v) ? 2 : (v > 0 ? 1 : 0); }

}  // namespace

ImplicitTracer::ImplicitTracer(const BlockProgram& difference, const ViewTransform& view, int quality)
    : m_difference(difference), m_view(view) {
  const double leafPixels = std::max(1.0, 100.0 / std::clamp(quality, 1, 100));
  m_leafWidth = leafPixels * view.XPerPixel();
  m_leafHeight = leafPixels * view.YPerPixel();
  m_levels = kLevels;
}

std::vector<QPolygonF> ImplicitTracer::Trace() const {
  const double cellWidth = m_leafWidth * (1 << m_levels);
  const double cellHeight = m_leafHeight * (1 << m_levels);
  const int columns = static_cast<int>(std::ceil((m_view.XMax() - m_view.XMin()) / cellWidth));
  const int rows = static_cast<int>(std::ceil((m_view.YMax() - m_view.YMin()) / cellHeight));
  // The coarse grid's corners, then its centres, in one batch.
  std::vector<double> xs, ys;
  xs.reserve(static_cast<size_t>((columns + 1) * (rows + 1) + columns * rows));
  ys.reserve(xs.capacity());
  for (int j = 0; j <= rows; ++j) {
    for (int i = 0; i <= columns; ++i) xs.push_back(m_view.XMin() + i * cellWidth), ys.push_back(m_view.YMin() + j * cellHeight);
  }
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      xs.push_back(m_view.XMin() + (i + 0.5) * cellWidth), ys.push_back(m_view.YMin() + (j + 0.5) * cellHeight);
    }
  }
  const std::vector<double> v = Values(m_difference, xs, ys);
  const auto corner = [&](int i, int j) { return v[static_cast<size_t>(j * (columns + 1) + i)]; };
  const size_t centres = static_cast<size_t>((columns + 1) * (rows + 1));
  std::vector<Cell> interesting;
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      const int s[5] = {SignOf(corner(i, j)), SignOf(corner(i + 1, j)), SignOf(corner(i, j + 1)),
                        SignOf(corner(i + 1, j + 1)), SignOf(v[centres + static_cast<size_t>(j * columns + i)])};
      bool mixed = false;
      for (int k = 1; k < 5; ++k) mixed |= s[k] != s[0];
      if (mixed) interesting.push_back({m_view.XMin() + i * cellWidth, m_view.YMin() + j * cellHeight, 0});
    }
  }
  std::vector<Segment> segments;
  Leaves(interesting, 0, segments);
  return Chain(segments);
}

// Splits cells level by level, keeping the quarters whose corners or centre differ in sign or
// definedness; at the last level the kept cells are contoured.
void ImplicitTracer::Leaves(const std::vector<Cell>& cells, int level, std::vector<Segment>& segments) const {
  if (level == m_levels) {
    Contour(cells, segments);
    return;
  }
  const double w = m_leafWidth * (1 << (m_levels - level - 1));
  const double h = m_leafHeight * (1 << (m_levels - level - 1));
  std::vector<Cell> quarters;
  std::vector<double> xs, ys;
  for (const Cell& c : cells) {
    for (int q = 0; q < 4; ++q) {
      const Cell quarter{c.X + (q & 1) * w, c.Y + (q >> 1) * h, level + 1};
      quarters.push_back(quarter);
      const double px[5] = {0, w, 0, w, w / 2};
      const double py[5] = {0, 0, h, h, h / 2};
      for (int k = 0; k < 5; ++k) xs.push_back(quarter.X + px[k]), ys.push_back(quarter.Y + py[k]);
    }
  }
  const std::vector<double> v = Values(m_difference, xs, ys);
  std::vector<Cell> kept;
  for (size_t i = 0; i < quarters.size(); ++i) {
    const int first = SignOf(v[i * 5]);
    bool mixed = false;
    for (size_t k = 1; k < 5; ++k) mixed |= SignOf(v[i * 5 + k]) != first;
    if (mixed) kept.push_back(quarters[i]);
  }
  Leaves(kept, level + 1, segments);
}

// Marching squares in each leaf, with the centre deciding the two saddle cases and a check that
// the function really comes near zero at each crossing.
void ImplicitTracer::Contour(const std::vector<Cell>& leaves, std::vector<Segment>& segments) const {
  const double w = m_leafWidth;
  const double h = m_leafHeight;
  std::vector<double> xs, ys;
  for (const Cell& c : leaves) {
    const double px[5] = {0, w, w, 0, w / 2};
    const double py[5] = {0, 0, h, h, h / 2};
    for (int k = 0; k < 5; ++k) xs.push_back(c.X + px[k]), ys.push_back(c.Y + py[k]);
  }
  const std::vector<double> v = Values(m_difference, xs, ys);

  // Edge k runs from corner k to corner k+1 (counter-clockwise from lower left).
  struct Crossing {
    QPointF At;
    double Low, High;  // the smaller and larger magnitudes at its ends
  };
  std::vector<std::pair<Crossing, Crossing>> pending;
  std::vector<double> checkX, checkY;
  for (size_t i = 0; i < leaves.size(); ++i) {
    const double* f = &v[i * 5];
    QPointF corners[4];
    for (int k = 0; k < 4; ++k) corners[k] = QPointF(xs[i * 5 + static_cast<size_t>(k)], ys[i * 5 + static_cast<size_t>(k)]);
    std::vector<Crossing> crossings;
    int edgesOf[4];
    for (int k = 0; k < 4; ++k) {
      edgesOf[k] = -1;
      const double a = f[k];
      const double b = f[(k + 1) % 4];
      if (std::isnan(a) || std::isnan(b) || (a > 0) == (b > 0)) continue;
      const double t = a / (a - b);
      const QPointF p = corners[k] + t * (corners[(k + 1) % 4] - corners[k]);
      edgesOf[k] = static_cast<int>(crossings.size());
      crossings.push_back({p, std::min(std::abs(a), std::abs(b)), std::max(std::abs(a), std::abs(b))});
    }
    if (crossings.size() == 2) {
      pending.push_back({crossings[0], crossings[1]});
    } else if (crossings.size() == 4) {
      // A saddle: join each crossing to the neighbour on the side that agrees with the centre.
      const bool centrePositive = f[4] > 0;
      const bool firstPositive = f[0] > 0;
      if (centrePositive == firstPositive) {
        pending.push_back({crossings[static_cast<size_t>(edgesOf[0])], crossings[static_cast<size_t>(edgesOf[1])]});
        pending.push_back({crossings[static_cast<size_t>(edgesOf[2])], crossings[static_cast<size_t>(edgesOf[3])]});
      } else {
        pending.push_back({crossings[static_cast<size_t>(edgesOf[0])], crossings[static_cast<size_t>(edgesOf[3])]});
        pending.push_back({crossings[static_cast<size_t>(edgesOf[1])], crossings[static_cast<size_t>(edgesOf[2])]});
      }
    }
  }
  for (const auto& [a, b] : pending) {
    checkX.push_back(a.At.x()), checkY.push_back(a.At.y());
    checkX.push_back(b.At.x()), checkY.push_back(b.At.y());
  }
  const std::vector<double> residual = Values(m_difference, checkX, checkY);
  std::vector<double> allowed;
  if (m_condition) {
    std::vector<double> mx, my;
    for (const auto& [a, b] : pending) mx.push_back((a.At.x() + b.At.x()) / 2), my.push_back((a.At.y() + b.At.y()) / 2);
    allowed = Values(*m_condition, mx, my);
  }
  for (size_t i = 0; i < pending.size(); ++i) {
    const auto& [a, b] = pending[i];
    // Near a root the interpolated point is far closer to zero than the ends; at a pole it is
    // not (or the function is undefined there).
    const bool nearZeroA = std::abs(residual[2 * i]) <= 0.5 * a.High;
    const bool nearZeroB = std::abs(residual[2 * i + 1]) <= 0.5 * b.High;
    if (!nearZeroA || !nearZeroB) continue;
    if (m_condition && allowed[i] == 0) continue;
    segments.push_back({a.At, b.At});
  }
}

// Joins segments that share end points into polylines, so the painter strokes few long lines.
std::vector<QPolygonF> ImplicitTracer::Chain(std::vector<Segment>& segments) const {
  const auto key = [&](const QPointF& p) {
    const qint64 ix = qRound64((p.x() - m_view.XMin()) / m_leafWidth * 4096);
    const qint64 iy = qRound64((p.y() - m_view.YMin()) / m_leafHeight * 4096);
    return (ix << 32) ^ iy;
  };
  QMultiHash<qint64, size_t> ends;
  for (size_t i = 0; i < segments.size(); ++i) {
    ends.insert(key(segments[i].A), i);
    ends.insert(key(segments[i].B), i);
  }
  std::vector<bool> used(segments.size(), false);
  const auto next = [&](const QPointF& at) -> std::optional<size_t> {
    for (auto it = ends.constFind(key(at)); it != ends.cend() && it.key() == key(at); ++it) {
      if (!used[*it]) return *it;
    }
    return std::nullopt;
  };
  std::vector<QPolygonF> lines;
  for (size_t start = 0; start < segments.size(); ++start) {
    if (used[start]) continue;
    used[start] = true;
    // Grow forwards from B and backwards from A, then put the backward part in front.
    QPolygonF forward{segments[start].A, segments[start].B};
    QPolygonF backward;
    for (int direction = 0; direction < 2; ++direction) {
      QPolygonF& grown = direction == 0 ? forward : backward;
      QPointF tip = direction == 0 ? segments[start].B : segments[start].A;
      while (const auto found = next(tip)) {
        used[*found] = true;
        const Segment& s = segments[*found];
        tip = key(s.A) == key(tip) ? s.B : s.A;
        grown.append(tip);
      }
    }
    QPolygonF line;
    line.reserve(backward.size() + forward.size());
    for (auto it = backward.crbegin(); it != backward.crend(); ++it) line.append(*it);
    line.append(forward);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace plot2d
