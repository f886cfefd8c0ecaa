#include "IsoMesher.h"

#include "render/Parallel.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <thread>

namespace plot3d {

namespace {

using mathlang::BlockProgram;
using mathlang::Variable;

// The corners of a cube as offsets (i, j, k), and its six tetrahedra round the diagonal 0-6.
constexpr std::array<std::array<int, 3>, 8> kCorner{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                                     {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};
constexpr std::array<std::array<int, 4>, 6> kTetrahedra{{{0, 5, 1, 6}, {0, 1, 2, 6}, {0, 2, 3, 6},
                                                         {0, 3, 7, 6}, {0, 7, 4, 6}, {0, 4, 5, 6}}};

class Volume {
public:
  // progress hears 0 to 33 from the thread that made the volume; when it answers false the
  // layers not yet begun are left out and Stopped() is true.
  Volume(const BlockProgram& f, const SurfaceRanges& box, int cells, const std::function<bool(int)>& progress)
      : m_cells(cells), m_side(cells + 1) {
    m_min = {box.XMin, box.YMin, box.ZMin};
    m_step = {(box.XMax - box.XMin) / cells, (box.YMax - box.YMin) / cells, (box.ZMax - box.ZMin) / cells};
    // Layer by layer, the layers shared among the cores: x and y are the same in every layer.
    const std::size_t layer = static_cast<std::size_t>(m_side) * static_cast<std::size_t>(m_side);
    std::vector<double> xs(layer), ys(layer);
    for (int j = 0; j < m_side; ++j) {
      for (int i = 0; i < m_side; ++i) xs[Index(i, j, 0)] = m_min.X + i * m_step.X, ys[Index(i, j, 0)] = m_min.Y + j * m_step.Y;
    }
    // Not cleared first: every value is written by its layer's evaluation, on the core that
    // evaluates it, before anything reads it (a stopped volume is not read).
    m_values.reset(new double[layer * static_cast<std::size_t>(m_side)]);
    m_codes.reset(new std::uint8_t[layer * static_cast<std::size_t>(m_side)]);
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<int> done{0};
    int reported = 0;
    render::ParallelFor(static_cast<std::size_t>(m_side), [&](std::size_t k) {
      if (m_stopped.load()) return;
      const std::vector<double> zs(layer, m_min.Z + static_cast<double>(k) * m_step.Z);
      BlockProgram::Inputs inputs{};
      inputs[static_cast<std::size_t>(Variable::X)] = xs.data();
      inputs[static_cast<std::size_t>(Variable::Y)] = ys.data();
      inputs[static_cast<std::size_t>(Variable::Z)] = zs.data();
      f.Evaluate(inputs, layer, m_values.get() + k * layer);
      Classify(k * layer, layer);
      // Only the calling thread reports, so that progress is heard on the thread it expects.
      const int percent = 33 * ++done / m_side;
      if (progress && std::this_thread::get_id() == caller && percent >= reported + 5 && !progress(reported = percent))
        m_stopped = true;
    });
  }

  bool Stopped() const { return m_stopped.load(); }

  // The cubes of row j of layer k that the surface passes through, by i: all their corners
  // defined, some inside and some not. The corners' codes are or-ed together a row at a time, so
  // that the many cubes far from the surface cost a few byte operations each.
  void CutCubes(int j, int k, std::vector<int>& into) {
    into.clear();
    const std::size_t side = static_cast<std::size_t>(m_side);
    const std::uint8_t* rows[] = {&m_codes[Index(0, j, k)], &m_codes[Index(0, j + 1, k)], &m_codes[Index(0, j, k + 1)],
                                  &m_codes[Index(0, j + 1, k + 1)]};
    m_column.resize(side);
    // Eight codes at a time, and what the row holds at all: most rows are wholly outside.
    std::uint64_t any = 0;
    std::size_t i = 0;
    for (; i + 8 <= side; i += 8) {
      std::uint64_t words[4];
      for (std::size_t r = 0; r < 4; ++r) std::memcpy(&words[r], rows[r] + i, 8);
      const std::uint64_t column = words[0] | words[1] | words[2] | words[3];
      std::memcpy(&m_column[i], &column, 8);
      any |= column;
    }
    for (; i < side; ++i) {
      m_column[i] = static_cast<std::uint8_t>(rows[0][i] | rows[1][i] | rows[2][i] | rows[3][i]);
      any |= m_column[i];
    }
    constexpr std::uint64_t kEach = 0x0101010101010101u;
    if (!(any & kInside * kEach) || !(any & kOutside * kEach)) return;
    for (i = 0; i + 1 < side; ++i) {
      if ((m_column[i] | m_column[i + 1]) == (kInside | kOutside)) into.push_back(static_cast<int>(i));
    }
  }

  std::size_t Index(int i, int j, int k) const {
    return (static_cast<std::size_t>(k) * m_side + static_cast<std::size_t>(j)) * m_side + static_cast<std::size_t>(i);
  }
  double Value(int i, int j, int k) const { return m_values[Index(i, j, k)]; }
  Vec3 Point(int i, int j, int k) const { return {m_min.X + i * m_step.X, m_min.Y + j * m_step.Y, m_min.Z + k * m_step.Z}; }

  int Cells() const { return m_cells; }

private:
  static constexpr std::uint8_t kInside = 1, kOutside = 2, kUndefined = 4;

  void Classify(std::size_t from, std::size_t count) {
    for (std::size_t n = from; n < from + count; ++n) {
      const double v = m_values[n];
      m_codes[n] = !std::isfinite(v) ? kUndefined : v < 0 ? kInside : kOutside;
    }
  }

  int m_cells, m_side;
  Vec3 m_min, m_step;
  std::unique_ptr<double[]> m_values;
  std::unique_ptr<std::uint8_t[]> m_codes;  // kInside, kOutside or kUndefined for each value
  std::vector<std::uint8_t> m_column;  // the codes of a row of cubes' four edges along i, or-ed
  std::atomic<bool> m_stopped{false};
};

// Cuts each cube into six tetrahedra and each tetrahedron by the surface. A point on a grid
// edge is made once and shared by every triangle that meets it, so the normals can be the mean of
// the faces round a point: smooth, and sound where the function's gradient vanishes on the
// surface (as the heart's does where it meets z = 0).
class Tetrahedra {
public:
  Tetrahedra(const Volume& volume, Mesh& mesh) : m_volume(volume), m_mesh(mesh) {}

  // The grid edge of each point of the mesh, with the function's values at its ends.
  struct Edge {
    Vec3 From, To;
    double AtFrom, AtTo;
  };
  std::vector<Edge> Edges;

  void Cube(int i, int j, int k) {
    std::array<double, 8> value{};
    int inside = 0;
    for (std::size_t c = 0; c < 8; ++c) {
      value[c] = m_volume.Value(i + kCorner[c][0], j + kCorner[c][1], k + kCorner[c][2]);
      if (!std::isfinite(value[c])) return;  // a hole where the function is undefined
      inside += value[c] < 0;
    }
    if (inside == 0 || inside == 8) return;
    if (k != m_k) Layer(k);
    m_i = i, m_j = j;
    for (std::size_t c = 0; c < 8; ++c) m_points[c] = m_volume.Point(i + kCorner[c][0], j + kCorner[c][1], k + kCorner[c][2]);
    for (const auto& t : kTetrahedra) Tetrahedron(t, value);
  }

private:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  // The points made on the edges that start in grid layers k and k + 1: the cubes go up layer by
  // layer, so two layers of edges are all that can still be shared. Grid layer L keeps its points
  // in the table of L's parity; what is left there from layer L - 2 was made before the cubes of
  // layer L - 1 began, so a point is known by its number, and the tables need no clearing.
  void Layer(int k) {
    const std::size_t size = static_cast<std::size_t>(m_volume.Cells() + 1) * static_cast<std::size_t>(m_volume.Cells() + 1) * 8;
    if (m_layers[0].size() != size) m_layers[0].assign(size, kNone), m_layers[1].assign(size, kNone);
    const auto now = static_cast<std::uint32_t>(m_mesh.Positions.size());
    m_madeFrom[0] = k == m_k + 1 ? m_madeFrom[1] : now;  // the first point of cube layer k - 1
    m_madeFrom[1] = now;                                 // and of cube layer k
    m_k = k;
  }

  std::array<int, 3> Grid(int corner) const {
    const auto& offset = kCorner[static_cast<std::size_t>(corner)];
    return {m_i + offset[0], m_j + offset[1], m_k + offset[2]};
  }

  // The point where the function changes sign on the edge between corners a and b of the cube.
  // Every edge of the tetrahedra runs from a grid point to one no lower on any axis, so the lower
  // point and the direction name it.
  std::uint32_t OnEdge(int a, int b, const std::array<double, 8>& value) {
    std::array<int, 3> p = Grid(a), q = Grid(b);
    double vp = value[static_cast<std::size_t>(a)], vq = value[static_cast<std::size_t>(b)];
    if (p[0] > q[0] || p[1] > q[1] || p[2] > q[2]) std::swap(p, q), std::swap(vp, vq);
    const std::size_t direction = static_cast<std::size_t>((q[0] - p[0]) + 2 * (q[1] - p[1]) + 4 * (q[2] - p[2]));
    const std::size_t side = static_cast<std::size_t>(m_volume.Cells() + 1);
    const std::size_t upper = p[2] == m_k ? 0 : 1;
    std::vector<std::uint32_t>& layer = m_layers[static_cast<std::size_t>(p[2] & 1)];
    std::uint32_t& vertex = layer[(static_cast<std::size_t>(p[1]) * side + static_cast<std::size_t>(p[0])) * 8 + direction];
    if (vertex == kNone || vertex < m_madeFrom[upper]) {
      vertex = static_cast<std::uint32_t>(m_mesh.Positions.size());
      const Vec3 from = m_volume.Point(p[0], p[1], p[2]), to = m_volume.Point(q[0], q[1], q[2]);
      m_mesh.Positions.push_back(Lerp(from, to, vp / (vp - vq)));
      Edges.push_back({from, to, vp, vq});
    }
    return vertex;
  }

  // A triangle turned so that it faces from the inside corners to the outside ones.
  void Add(std::uint32_t a, std::uint32_t b, std::uint32_t c, const Vec3& outwards) {
    const std::vector<Vec3>& at = m_mesh.Positions;
    if (Dot(Cross(at[b] - at[a], at[c] - at[a]), outwards) < 0) std::swap(b, c);
    m_mesh.Triangles.push_back({a, b, c});
  }

  void Tetrahedron(const std::array<int, 4>& corners, const std::array<double, 8>& value) {
    int cut = 0;
    for (const int c : corners) cut |= value[static_cast<std::size_t>(c)] < 0 ? 1 : 2;
    if (cut != 3) return;  // the surface passes by
    std::array<int, 4> in{}, out{};
    int ins = 0, outs = 0;
    Vec3 inSum{}, outSum{};
    for (const int c : corners) {
      const Vec3 point = m_points[static_cast<std::size_t>(c)];
      if (value[static_cast<std::size_t>(c)] < 0) {
        in[static_cast<std::size_t>(ins++)] = c;
        inSum += point;
      } else {
        out[static_cast<std::size_t>(outs++)] = c;
        outSum += point;
      }
    }
    if (ins == 0 || outs == 0) return;
    // From the middle of the inside corners to the middle of the outside ones.
    const Vec3 outwards = (1.0 / outs) * outSum - (1.0 / ins) * inSum;
    if (ins == 1 || outs == 1) {
      // One corner apart from the other three: a triangle across the edges that meet there.
      const int lone = ins == 1 ? in[0] : out[0];
      const std::array<int, 4>& rest = ins == 1 ? out : in;
      Add(OnEdge(lone, rest[0], value), OnEdge(lone, rest[1], value), OnEdge(lone, rest[2], value), outwards);
      return;
    }
    // Two and two: a quadrilateral across the four edges between the pairs, as two triangles.
    const std::uint32_t p = OnEdge(in[0], out[0], value), q = OnEdge(in[0], out[1], value);
    const std::uint32_t r = OnEdge(in[1], out[1], value), s = OnEdge(in[1], out[0], value);
    Add(p, q, r, outwards);
    Add(p, r, s, outwards);
  }

  const Volume& m_volume;
  Mesh& m_mesh;
  std::array<std::vector<std::uint32_t>, 2> m_layers;
  std::array<std::uint32_t, 2> m_madeFrom{};  // the first point that may be on grid layer k, k + 1
  std::array<Vec3, 8> m_points{};             // the corners of the cube at hand
  int m_i = 0, m_j = 0, m_k = -2;
};

// The search for the zero of f along one grid edge, by its parameter t from 0 (From) to 1 (To):
// false position with the Illinois halving, and bisection where the value falls slowly, as at a
// zero of higher order (the heart's, where the function is a cube near the surface).
class EdgeSearch {
public:
  explicit EdgeSearch(const Tetrahedra::Edge& edge)
      : m_atLo(edge.AtFrom), m_atHi(edge.AtTo), m_before(std::min(std::abs(edge.AtFrom), std::abs(edge.AtTo))),
        m_scale(std::max(std::abs(edge.AtFrom), std::abs(edge.AtTo))) {
    m_t = m_atLo / (m_atLo - m_atHi);
  }

  double T() const { return m_t; }

  // Takes the value at T() and moves T(); false once the zero is found as near as it matters.
  bool Step(double v, int round) {
    constexpr double kSettled = 1e-5;  // of the edge: far below a pixel at any grid
    if (!std::isfinite(v) || std::abs(v) <= 1e-7 * m_scale) return false;
    // Keep the end whose sign differs from the new point's; halve the value at an end kept twice.
    if ((v < 0) == (m_atLo < 0)) {
      m_lo = m_t, m_atLo = v;
      if (m_replaced == 1) m_atHi /= 2;
      m_replaced = 1;
    } else {
      m_hi = m_t, m_atHi = v;
      if (m_replaced == -1) m_atLo /= 2;
      m_replaced = -1;
    }
    const double width = m_hi - m_lo;
    double next = m_lo + width * m_atLo / (m_atLo - m_atHi);
    if ((round >= 2 && std::abs(v) > m_before / 16) || !std::isfinite(next)) next = m_lo + width / 2;
    m_before = std::abs(v);
    const double moved = std::abs(next - m_t);
    m_t = std::clamp(next, m_lo, m_hi);
    return moved > kSettled && width > kSettled;
  }

private:
  double m_t = 0.5, m_lo = 0, m_hi = 1;
  double m_atLo, m_atHi;
  double m_before;  // the size of the value at the last point
  double m_scale;   // the values' size at the ends
  int m_replaced = 0;  // which end the last step replaced
};

// Moves each point of the mesh onto the surface along its grid edge. The straight line between
// the values at the ends puts it where a function such as the heart's is far from zero, and the
// faces then step like contour lines. A few rounds of the edge searches, the points of a round
// evaluated together, bring the points onto the surface. Each search depends on its own edge
// alone, so the edges go in chunks shared among the cores, each chunk through all its rounds
// while its searches are at hand in the cache.
void Refine(const BlockProgram& f, const std::vector<Tetrahedra::Edge>& edges, Mesh& mesh) {
  constexpr int kRounds = 12;
  constexpr std::size_t kChunk = 2048;
  render::ParallelFor((edges.size() + kChunk - 1) / kChunk, [&](std::size_t chunk) {
    const std::size_t first = chunk * kChunk, count = std::min(kChunk, edges.size() - first);
    std::vector<EdgeSearch> searches(edges.begin() + static_cast<std::ptrdiff_t>(first),
                                     edges.begin() + static_cast<std::ptrdiff_t>(first + count));
    std::vector<std::uint32_t> active(count);
    for (std::size_t i = 0; i < count; ++i) active[i] = static_cast<std::uint32_t>(i);
    std::vector<double> xs(count), ys(count), zs(count), values(count);
    BlockProgram::Inputs inputs{};
    inputs[static_cast<std::size_t>(Variable::X)] = xs.data();
    inputs[static_cast<std::size_t>(Variable::Y)] = ys.data();
    inputs[static_cast<std::size_t>(Variable::Z)] = zs.data();
    for (int round = 0; round < kRounds && !active.empty(); ++round) {
      const std::size_t m = active.size();
      for (std::size_t a = 0; a < m; ++a) {
        const Tetrahedra::Edge& edge = edges[first + active[a]];
        const Vec3 p = Lerp(edge.From, edge.To, searches[active[a]].T());
        xs[a] = p.X, ys[a] = p.Y, zs[a] = p.Z;
      }
      f.Evaluate(inputs, m, values.data());
      std::size_t kept = 0;
      for (std::size_t a = 0; a < m; ++a) {
        if (searches[active[a]].Step(values[a], round)) active[kept++] = active[a];
      }
      active.resize(kept);
    }
    for (std::size_t i = 0; i < count; ++i) {
      const Tetrahedra::Edge& edge = edges[first + i];
      mesh.Positions[first + i] = Lerp(edge.From, edge.To, searches[i].T());
    }
  });
}

// The mesh lines of an implicit surface: where it crosses the planes of the grid, the edges
// whose two points lie in one such plane. All of its triangles' edges would cover the surface
// with a fine felt of tetrahedra.
void GridPlaneLines(Mesh& mesh) {
  const std::vector<Vec3>& at = mesh.Positions;
  std::vector<std::array<std::uint32_t, 2>> pairs;
  pairs.reserve(mesh.Triangles.size() * 2);
  for (const auto& t : mesh.Triangles) {
    for (int e = 0; e < 3; ++e) {
      std::uint32_t a = t[static_cast<std::size_t>(e)], b = t[static_cast<std::size_t>((e + 1) % 3)];
      // Points on grid edges in one plane keep that plane's coordinate exactly.
      if (at[a].X != at[b].X && at[a].Y != at[b].Y && at[a].Z != at[b].Z) continue;
      if (a > b) std::swap(a, b);
      pairs.push_back({a, b});
    }
  }
  // An edge between two triangles comes twice. Sorted by their first point, by counting, and
  // by the second among the few that share it, the pairs come out in order and once each.
  std::vector<std::uint32_t> start(at.size() + 1, 0);
  for (const auto& pair : pairs) ++start[pair[0] + 1];
  for (std::size_t v = 0; v < at.size(); ++v) start[v + 1] += start[v];
  std::vector<std::uint32_t> seconds(pairs.size()), next(start.begin(), start.end() - 1);
  for (const auto& pair : pairs) seconds[next[pair[0]]++] = pair[1];
  mesh.Lines.reserve(pairs.size() / 2 + 16);
  for (std::uint32_t a = 0; a < at.size(); ++a) {
    const auto from = seconds.begin() + start[a], to = seconds.begin() + start[a + 1];
    std::sort(from, to);
    for (auto b = from; b != to; ++b) {
      if (b == from || *b != *(b - 1)) mesh.Lines.push_back({a, *b});
    }
  }
}

}  // namespace

void MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells, Mesh& into,
                  const std::function<bool(int)>& progress) {
  into.Clear();
  if (!source.Ok() || source.Kind != SurfaceKind::Implicit || cells < 1) return;
  if (!(box.XMax > box.XMin && box.YMax > box.YMin && box.ZMax > box.ZMin)) return;
  Volume volume(source.Functions[0], box, cells, progress);  // about a third of the work
  if (volume.Stopped() || (progress && !progress(33))) return;
  Tetrahedra tetrahedra(volume, into);
  tetrahedra.Edges.reserve(into.Positions.capacity());  // about as many as the mesh before had
  int reported = 33;
  std::vector<int> cut;
  for (int k = 0; k < cells; ++k) {
    for (int j = 0; j < cells; ++j) {
      volume.CutCubes(j, k, cut);
      for (const int i : cut) tetrahedra.Cube(i, j, k);
    }
    const int done = 33 + 67 * (k + 1) / cells;
    if (progress && done >= reported + 5 && !progress(reported = done)) return into.Clear();
  }
  Refine(source.Functions[0], tetrahedra.Edges, into);
  // The normals and the lines read the points and write apart: one on each core.
  render::ParallelFor(2, [&](std::size_t task) { task == 0 ? into.ComputeNormals() : GridPlaneLines(into); });
}

Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells) {
  Mesh mesh;
  MeshImplicit(source, box, cells, mesh);
  return mesh;
}

}  // namespace plot3d
