#include "ImplicitTracer.h"

#include "EdgeTable.h"

#include "render/Parallel.h"

#include <QLineF>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace plot2d {

using mathlang::BlockProgram;

namespace {

constexpr int kCoarse = 8;       // a coarse cell is 8 leaves wide
constexpr int kRefinements = 12;  // regula falsi steps for each crossing

int SignOf(double v) { return std::isnan(v) ? 2 : (v > 0 ? 1 : 0); }

// The corners of a leaf counter-clockwise from the lower left, in leaves.
constexpr std::array<std::array<int, 2>, 4> kCorners = {{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
// The neighbour across edge k (from corner k to corner k+1).
constexpr std::array<std::array<int, 2>, 4> kAcross = {{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};

}  // namespace

ImplicitTracer::ImplicitTracer(const BlockProgram& difference, const ViewTransform& view, int quality)
    : m_difference(difference), m_view(view) {
  // Leaves of two pixels at full quality: the crossings are refined to the curve itself, so the
  // chord across a leaf strays from a smooth curve by a small fraction of a pixel.
  const double leafPixels = std::max(2.0, 200.0 / std::clamp(quality, 1, 100));
  m_leafWidth = leafPixels * view.XPerPixel();
  m_leafHeight = leafPixels * view.YPerPixel();
  m_columns = static_cast<int>(std::ceil(view.Width() / leafPixels / kCoarse)) * kCoarse;
  m_rows = static_cast<int>(std::ceil(view.Height() / leafPixels / kCoarse)) * kCoarse;
}

std::vector<double> ImplicitTracer::Values(const std::vector<double>& xs, const std::vector<double>& ys) const {
  std::vector<double> out(xs.size());
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  inputs[1] = ys.data();
  m_difference.Evaluate(inputs, xs.size(), out.data());
  return out;
}

namespace {

// Below this many cells a batch is worked on by the calling thread alone.
constexpr size_t kHalvedFrom = 4096;

// The first or second half of a batch.
template <typename T>
std::vector<T> Half(const std::vector<T>& all, size_t half) {
  const auto middle = static_cast<std::ptrdiff_t>(all.size() / 2);
  return half == 0 ? std::vector<T>(all.begin(), all.begin() + middle) : std::vector<T>(all.begin() + middle, all.end());
}

template <typename T>
void Append(std::vector<T>& to, std::vector<T>& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

}  // namespace

// Every cell is split and contoured on its own, so a large batch is worked on in two halves, one
// on each core, and put back together in the cells' order: the same result as in one piece.
// A curve that crosses much of the view (sin(x*y)=c) otherwise keeps one core busy long after
// the rest of the scene is done.
std::vector<ImplicitTracer::Cell> ImplicitTracer::SplitInHalves(const std::vector<Cell>& cells, std::vector<Samples>& samples) const {
  if (cells.size() < kHalvedFrom) return Split(cells, samples);
  std::array<std::vector<Cell>, 2> kept;
  std::array<std::vector<Samples>, 2> keptSamples;
  render::ParallelFor(2, [&](size_t h) {
    keptSamples[h] = Half(samples, h);
    kept[h] = Split(Half(cells, h), keptSamples[h]);
  });
  samples.swap(keptSamples[0]);
  Append(samples, keptSamples[1]);
  Append(kept[0], kept[1]);
  return std::move(kept[0]);
}

std::vector<ImplicitTracer::Cell> ImplicitTracer::ContourInHalves(const std::vector<Cell>& leaves, const std::vector<Samples>* samples,
                                                                  std::vector<Segment>& segments) const {
  if (leaves.size() < kHalvedFrom) return Contour(leaves, samples, segments);
  std::array<std::vector<Cell>, 2> neighbours;
  std::array<std::vector<Segment>, 2> found;
  render::ParallelFor(2, [&](size_t h) {
    const std::vector<Samples> known = samples ? Half(*samples, h) : std::vector<Samples>{};
    neighbours[h] = Contour(Half(leaves, h), samples ? &known : nullptr, found[h]);
  });
  Append(segments, found[0]);
  Append(segments, found[1]);
  Append(neighbours[0], neighbours[1]);
  return std::move(neighbours[0]);
}

std::vector<QPolygonF> ImplicitTracer::Trace() const {
  std::vector<Samples> samples;
  std::vector<Cell> cells = CoarseCells(samples);
  while (!cells.empty() && cells.front().Size > 1) cells = SplitInHalves(cells, samples);
  // Contour the leaves, then the neighbours the curve leads into, until it leads nowhere new.
  std::vector<Segment> segments;
  // One bit a leaf: whether it has been contoured or is waiting to be.
  std::vector<bool> seen(static_cast<size_t>(m_columns) * static_cast<size_t>(m_rows), false);
  const auto bit = [&](const Cell& c) { return static_cast<size_t>(c.Y) * static_cast<size_t>(m_columns) + static_cast<size_t>(c.X); };
  for (const Cell& c : cells) seen[bit(c)] = true;
  const std::vector<Samples>* known = &samples;  // the split leaves come with theirs
  while (!cells.empty()) {
    std::vector<Cell> next;
    const std::vector<Cell> neighbours = ContourInHalves(cells, known, segments);
    known = nullptr;
    for (const Cell& c : neighbours) {
      if (c.X < 0 || c.Y < 0 || c.X >= m_columns || c.Y >= m_rows || seen[bit(c)]) continue;
      seen[bit(c)] = true;
      next.push_back(c);
    }
    cells.swap(next);
  }
  return Chain(segments);
}

// The coarse cells whose corners and centre differ in sign or definedness.
std::vector<ImplicitTracer::Cell> ImplicitTracer::CoarseCells(std::vector<Samples>& samples) const {
  const int columns = m_columns / kCoarse;
  const int rows = m_rows / kCoarse;
  std::vector<double> xs, ys;
  for (int j = 0; j <= rows; ++j) {
    for (int i = 0; i <= columns; ++i) xs.push_back(XAt(i * kCoarse)), ys.push_back(YAt(j * kCoarse));
  }
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) xs.push_back(XAt(i * kCoarse + kCoarse / 2)), ys.push_back(YAt(j * kCoarse + kCoarse / 2));
  }
  const std::vector<double> v = Values(xs, ys);
  const auto corner = [&](int i, int j) { return SignOf(v[static_cast<size_t>(j * (columns + 1) + i)]); };
  const size_t centres = static_cast<size_t>((columns + 1) * (rows + 1));
  const auto value = [&](int i, int j) { return v[static_cast<size_t>(j * (columns + 1) + i)]; };
  std::vector<Cell> cells;
  samples.clear();
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      const int first = corner(i, j);
      const double centre = v[centres + static_cast<size_t>(j * columns + i)];
      const bool mixed = corner(i + 1, j) != first || corner(i, j + 1) != first || corner(i + 1, j + 1) != first ||
                         SignOf(centre) != first;
      if (!mixed) continue;
      cells.push_back({i * kCoarse, j * kCoarse, kCoarse});
      samples.push_back({value(i, j), value(i + 1, j), value(i + 1, j + 1), value(i, j + 1), centre});
    }
  }
  return cells;
}

// The quarters of the cells that still differ in sign or definedness at corners or centre. A
// cell's corners and centre are corners of its quarters: only the middles of its edges and the
// quarters' centres are new. Every point is reached through the same whole leaf numbers as when
// it is sampled on its own, so its value is the same.
std::vector<ImplicitTracer::Cell> ImplicitTracer::Split(const std::vector<Cell>& cells, std::vector<Samples>& samples) const {
  constexpr size_t kNew = 8;  // four middles of edges (bottom, right, top, left), four centres
  std::vector<double> xs(cells.size() * kNew), ys(cells.size() * kNew);
  for (size_t c = 0; c < cells.size(); ++c) {
    const Cell& cell = cells[c];
    const int half = cell.Size / 2;
    const int middles[4][2] = {{half, 0}, {2 * half, half}, {half, 2 * half}, {0, half}};
    for (size_t k = 0; k < 4; ++k) {
      xs[c * kNew + k] = XAt(cell.X + middles[k][0]);
      ys[c * kNew + k] = YAt(cell.Y + middles[k][1]);
    }
    for (int q = 0; q < 4; ++q) {
      xs[c * kNew + 4 + static_cast<size_t>(q)] = XAt(cell.X + (q & 1) * half + half / 2.0);
      ys[c * kNew + 4 + static_cast<size_t>(q)] = YAt(cell.Y + (q >> 1) * half + half / 2.0);
    }
  }
  const std::vector<double> v = Values(xs, ys);
  std::vector<Cell> kept;
  std::vector<Samples> keptSamples;
  kept.reserve(cells.size() * 2);
  keptSamples.reserve(cells.size() * 2);
  for (size_t c = 0; c < cells.size(); ++c) {
    const Samples& s = samples[c];
    const double* n = &v[c * kNew];
    // The 3x3 points of the cell, row by row from the bottom.
    const double grid[3][3] = {{s[0], n[0], s[1]}, {n[3], s[4], n[1]}, {s[3], n[2], s[2]}};
    const int half = cells[c].Size / 2;
    for (int q = 0; q < 4; ++q) {
      const int qx = q & 1, qy = q >> 1;
      const Samples quarter = {grid[qy][qx], grid[qy][qx + 1], grid[qy + 1][qx + 1], grid[qy + 1][qx], n[4 + q]};
      const int first = SignOf(quarter[0]);
      bool mixed = false;
      for (size_t k = 1; k < 5; ++k) mixed |= SignOf(quarter[k]) != first;
      if (!mixed) continue;
      kept.push_back({cells[c].X + qx * half, cells[c].Y + qy * half, half});
      keptSamples.push_back(quarter);
    }
  }
  samples.swap(keptSamples);
  return kept;
}

// Marching squares in each leaf, the centre deciding the saddles. Returns the neighbours across
// the edges the curve crosses.
std::vector<ImplicitTracer::Cell> ImplicitTracer::Contour(const std::vector<Cell>& leaves, const std::vector<Samples>* samples,
                                                          std::vector<Segment>& segments) const {
  std::vector<double> xs(leaves.size() * 5), ys(leaves.size() * 5);
  for (size_t i = 0; i < leaves.size(); ++i) {
    const Cell& c = leaves[i];
    for (size_t k = 0; k < 4; ++k) xs[i * 5 + k] = XAt(c.X + kCorners[k][0]), ys[i * 5 + k] = YAt(c.Y + kCorners[k][1]);
    xs[i * 5 + 4] = XAt(c.X + 0.5), ys[i * 5 + 4] = YAt(c.Y + 0.5);
  }
  std::vector<double> v;
  if (samples) {
    v.resize(leaves.size() * 5);
    for (size_t i = 0; i < leaves.size(); ++i) std::copy((*samples)[i].begin(), (*samples)[i].end(), v.begin() + static_cast<std::ptrdiff_t>(i * 5));
  } else {
    v = Values(xs, ys);
  }

  // Every crossed edge, oriented from its lower-left end so that the two leaves sharing it find
  // the very same point.
  struct Crossing {
    QPointF Low, High;  // ends
    double FLow, FHigh;
    QPointF At;
    double Scale = 0;   // the larger magnitude at the ends, before refining
    bool Settled = false;
  };
  // Two leaves share an edge: its crossing is found once.
  EdgeTable crossingOfEdge(leaves.size());
  const auto edgeKey = [](const Cell& leaf, int k) {
    const int x = leaf.X + (k == 1 ? 1 : 0);
    const int y = leaf.Y + (k == 2 ? 1 : 0);
    return (static_cast<qint64>(x) << 33) ^ (static_cast<qint64>(y) << 1) ^ (k % 2);
  };
  std::vector<Crossing> crossings;
  std::vector<std::array<int, 2>> pairs;  // indices into crossings, per segment
  std::vector<Cell> neighbours;
  // Edges with one undefined end: the domain's boundary on them, found by bisection from the
  // defined end, stands in for the undefined corner.
  struct Boundary {
    QPointF Defined, Undefined;
    double Value;
  };
  std::vector<Boundary> boundaries;
  std::vector<std::array<int, 4>> boundaryOf(leaves.size(), {-1, -1, -1, -1});
  for (size_t i = 0; i < leaves.size(); ++i) {
    const double* f = &v[i * 5];
    for (int k = 0; k < 4; ++k) {
      const int k1 = (k + 1) % 4;
      if (std::isnan(f[k]) == std::isnan(f[k1])) continue;
      const int defined = std::isnan(f[k]) ? k1 : k;
      const int undefined = std::isnan(f[k]) ? k : k1;
      boundaryOf[i][static_cast<size_t>(k)] = static_cast<int>(boundaries.size());
      boundaries.push_back({QPointF(xs[i * 5 + static_cast<size_t>(defined)], ys[i * 5 + static_cast<size_t>(defined)]),
                            QPointF(xs[i * 5 + static_cast<size_t>(undefined)], ys[i * 5 + static_cast<size_t>(undefined)]),
                            f[defined]});
    }
  }
  for (int step = 0; step < 24 && !boundaries.empty(); ++step) {
    std::vector<double> bx, by;
    for (const Boundary& b : boundaries) {
      const QPointF m = (b.Defined + b.Undefined) / 2;
      bx.push_back(m.x()), by.push_back(m.y());
    }
    const std::vector<double> bv = Values(bx, by);
    for (size_t j = 0; j < boundaries.size(); ++j) {
      const QPointF m(bx[j], by[j]);
      if (std::isnan(bv[j])) boundaries[j].Undefined = m;
      else boundaries[j].Defined = m, boundaries[j].Value = bv[j];
    }
  }

  for (size_t i = 0; i < leaves.size(); ++i) {
    const double* f = &v[i * 5];
    int edgeCrossing[4] = {-1, -1, -1, -1};
    int count = 0;
    for (int k = 0; k < 4; ++k) {
      const int k1 = (k + 1) % 4;
      const bool forward = k < 2;  // edges 0 and 1 run away from the lower left; 2 and 3 towards it
      const int from = forward ? k : k1;
      const int to = forward ? k1 : k;
      QPointF a(xs[i * 5 + static_cast<size_t>(from)], ys[i * 5 + static_cast<size_t>(from)]);
      QPointF b(xs[i * 5 + static_cast<size_t>(to)], ys[i * 5 + static_cast<size_t>(to)]);
      double fa = f[from];
      double fb = f[to];
      if (const int j = boundaryOf[i][static_cast<size_t>(k)]; j >= 0) {
        // The undefined end moves in to the domain's boundary.
        if (std::isnan(fa)) a = boundaries[static_cast<size_t>(j)].Defined, fa = boundaries[static_cast<size_t>(j)].Value;
        else b = boundaries[static_cast<size_t>(j)].Defined, fb = boundaries[static_cast<size_t>(j)].Value;
      }
      if (std::isnan(fa) || std::isnan(fb) || (fa > 0) == (fb > 0)) continue;
      const qint64 key = edgeKey(leaves[i], k);
      if (const int known = crossingOfEdge.FindOrAdd(key, static_cast<int>(crossings.size())); known >= 0) {
        edgeCrossing[k] = known;
      } else {
        edgeCrossing[k] = static_cast<int>(crossings.size());
        crossings.push_back({a, b, fa, fb, a, std::max(std::abs(fa), std::abs(fb)), false});
      }
      neighbours.push_back({leaves[i].X + kAcross[static_cast<size_t>(k)][0], leaves[i].Y + kAcross[static_cast<size_t>(k)][1], 1});
      ++count;
    }
    if (count == 2) {
      int found[2], n = 0;
      for (int k = 0; k < 4; ++k) {
        if (edgeCrossing[k] >= 0) found[n++] = edgeCrossing[k];
      }
      pairs.push_back({found[0], found[1]});
    } else if (count == 4) {
      // A saddle: pair each crossing with the neighbour on the side that agrees with the centre.
      if ((f[4] > 0) == (f[0] > 0)) {
        pairs.push_back({edgeCrossing[0], edgeCrossing[1]});
        pairs.push_back({edgeCrossing[2], edgeCrossing[3]});
      } else {
        pairs.push_back({edgeCrossing[0], edgeCrossing[3]});
        pairs.push_back({edgeCrossing[1], edgeCrossing[2]});
      }
    }
  }

  // Regula falsi (Illinois) on every crossing at once; the last value tells a root from a pole.
  std::vector<double> residual(crossings.size(), 0);
  std::vector<int> lastSide(crossings.size(), 0);
  // Each round evaluates only the crossings that have not settled yet.
  std::vector<size_t> active(crossings.size());
  for (size_t i = 0; i < active.size(); ++i) active[i] = i;
  const double settledWidth = 1e-9 * std::max(m_leafWidth, m_leafHeight);
  // The rounds' lists keep their memory from round to round.
  std::vector<double> px, py, values;
  std::vector<size_t> still;
  for (int step = 0; step < kRefinements && !active.empty(); ++step) {
    px.clear(), py.clear(), still.clear();
    for (const size_t i : active) {
      Crossing& c = crossings[i];
      const double t = c.FLow / (c.FLow - c.FHigh);
      c.At = c.Low + std::clamp(t, 0.0, 1.0) * (c.High - c.Low);
      px.push_back(c.At.x()), py.push_back(c.At.y());
    }
    values.resize(px.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = px.data();
    inputs[1] = py.data();
    m_difference.Evaluate(inputs, px.size(), values.data());
    for (size_t j = 0; j < active.size(); ++j) {
      const size_t i = active[j];
      Crossing& c = crossings[i];
      const double r = values[j];
      residual[i] = r;
      if (std::isnan(r) || r == 0 || std::abs(r) <= 1e-15 * c.Scale) continue;
      if ((r > 0) == (c.FLow > 0)) {
        c.Low = c.At, c.FLow = r;
        if (lastSide[i] == -1) c.FHigh /= 2;
        lastSide[i] = -1;
      } else {
        c.High = c.At, c.FHigh = r;
        if (lastSide[i] == 1) c.FLow /= 2;
        lastSide[i] = 1;
      }
      const QPointF gap = c.High - c.Low;
      if (QPointF::dotProduct(gap, gap) > settledWidth * settledWidth) still.push_back(i);
    }
    active.swap(still);
  }
  std::vector<double> allowed;
  if (m_condition && !pairs.empty()) {
    std::vector<double> mx, my;
    for (const auto& [a, b] : pairs) {
      mx.push_back((crossings[static_cast<size_t>(a)].At.x() + crossings[static_cast<size_t>(b)].At.x()) / 2);
      my.push_back((crossings[static_cast<size_t>(a)].At.y() + crossings[static_cast<size_t>(b)].At.y()) / 2);
    }
    std::vector<double> out(mx.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = mx.data();
    inputs[1] = my.data();
    m_condition->Evaluate(inputs, mx.size(), out.data());
    allowed = std::move(out);
  }
  // A root: the function came down to a small fraction of its values at the edge's ends; at a
  // pole it grows instead.
  const auto root = [&](int index) {
    const Crossing& c = crossings[static_cast<size_t>(index)];
    const double r = std::abs(residual[static_cast<size_t>(index)]);
    return std::isfinite(r) && r <= 1e-3 * c.Scale + 1e-12;
  };
  for (size_t i = 0; i < pairs.size(); ++i) {
    const auto [a, b] = pairs[i];
    if (!root(a) || !root(b)) continue;
    if (m_condition && allowed[i] == 0) continue;
    // Where the curve passes exactly through a corner both crossings are that corner.
    if (crossings[static_cast<size_t>(a)].At == crossings[static_cast<size_t>(b)].At) continue;
    segments.push_back({crossings[static_cast<size_t>(a)].At, crossings[static_cast<size_t>(b)].At});
  }
  return neighbours;
}

// Joins segments that share end points into polylines, so the painter strokes few long lines.
// End points are matched through a sorted array of their keys; every end knows its place in it,
// so following a line needs neither a search nor its keys computed again.
std::vector<QPolygonF> ImplicitTracer::Chain(const std::vector<Segment>& segments) const {
  const auto key = [&](const QPointF& p) {
    const qint64 ix = qRound64((p.x() - m_view.XMin()) / m_leafWidth * 4096);
    const qint64 iy = qRound64((p.y() - m_view.YMin()) / m_leafHeight * 4096);
    return (ix << 32) ^ iy;
  };
  struct End {
    qint64 Key;
    std::uint32_t Segment;
    bool operator<(const End& other) const { return Key < other.Key; }
  };
  // End 2i is segment i's A, 2i + 1 its B.
  std::vector<qint64> keyOf(segments.size() * 2);
  std::vector<End> ends(segments.size() * 2);
  for (size_t i = 0; i < segments.size(); ++i) {
    keyOf[2 * i] = key(segments[i].A);
    keyOf[2 * i + 1] = key(segments[i].B);
    ends[2 * i] = {keyOf[2 * i], static_cast<std::uint32_t>(i)};
    ends[2 * i + 1] = {keyOf[2 * i + 1], static_cast<std::uint32_t>(i)};
  }
  std::sort(ends.begin(), ends.end());
  // The first place of each end's key in the sorted array.
  std::vector<std::uint32_t> groupOf(segments.size() * 2);
  {
    std::vector<std::uint32_t> first(ends.size());
    for (std::uint32_t p = 0; p < ends.size(); ++p) first[p] = p > 0 && ends[p].Key == ends[p - 1].Key ? first[p - 1] : p;
    // Each segment's two ends find their places; a segment whose ends share a key takes the same.
    std::vector<std::uint8_t> placed(segments.size(), 0);
    for (std::uint32_t p = 0; p < ends.size(); ++p) {
      const std::uint32_t s = ends[p].Segment;
      const bool isA = keyOf[2 * s] == ends[p].Key && !(placed[s] & 1);
      groupOf[2 * s + (isA ? 0 : 1)] = first[p];
      placed[s] |= isA ? 1 : 2;
    }
  }
  std::vector<bool> used(segments.size(), false);
  const auto next = [&](std::uint32_t group, qint64 k) -> std::optional<size_t> {
    for (std::uint32_t p = group; p < ends.size() && ends[p].Key == k; ++p) {
      if (!used[ends[p].Segment]) return ends[p].Segment;
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
      size_t tipEnd = 2 * start + (direction == 0 ? 1 : 0);
      while (const auto found = next(groupOf[tipEnd], keyOf[tipEnd])) {
        used[*found] = true;
        const bool fromA = keyOf[2 * *found] == keyOf[tipEnd];
        tipEnd = 2 * *found + (fromA ? 1 : 0);
        grown.append(fromA ? segments[*found].B : segments[*found].A);
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
