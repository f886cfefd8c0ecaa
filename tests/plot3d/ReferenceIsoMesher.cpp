#include "ReferenceIsoMesher.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace plot3d::reference {

namespace {

using mathlang::BlockProgram;
using mathlang::Variable;

// The corners of a cube as offsets (i, j, k), and its six tetrahedra round the diagonal 0-6.
constexpr std::array<std::array<int, 3>, 8> kCorner{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                                     {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};
constexpr std::array<std::array<int, 4>, 6> kTetrahedra{{{0, 5, 1, 6}, {0, 1, 2, 6}, {0, 2, 3, 6},
                                                         {0, 3, 7, 6}, {0, 7, 4, 6}, {0, 4, 5, 6}}};

// f at one point of space, as the tree's one-point evaluation gives it.
double At(const BlockProgram& f, double x, double y, double z) {
  std::array<double, mathlang::kVariableCount> values{};
  values[static_cast<std::size_t>(Variable::X)] = x;
  values[static_cast<std::size_t>(Variable::Y)] = y;
  values[static_cast<std::size_t>(Variable::Z)] = z;
  return f.At(values);
}

class Volume {
public:
  Volume(const BlockProgram& f, const SurfaceRanges& box, int cells) : m_cells(cells), m_side(cells + 1) {
    m_min = {box.XMin, box.YMin, box.ZMin};
    m_step = {(box.XMax - box.XMin) / cells, (box.YMax - box.YMin) / cells, (box.ZMax - box.ZMin) / cells};
    m_values.resize(static_cast<std::size_t>(m_side) * static_cast<std::size_t>(m_side) * static_cast<std::size_t>(m_side));
    for (int k = 0; k < m_side; ++k) {
      for (int j = 0; j < m_side; ++j) {
        for (int i = 0; i < m_side; ++i) {
          m_values[Index(i, j, k)] = At(f, m_min.X + i * m_step.X, m_min.Y + j * m_step.Y, m_min.Z + k * m_step.Z);
        }
      }
    }
  }

  std::size_t Index(int i, int j, int k) const {
    return (static_cast<std::size_t>(k) * m_side + static_cast<std::size_t>(j)) * m_side + static_cast<std::size_t>(i);
  }
  double Value(int i, int j, int k) const { return m_values[Index(i, j, k)]; }
  Vec3 Point(int i, int j, int k) const { return {m_min.X + i * m_step.X, m_min.Y + j * m_step.Y, m_min.Z + k * m_step.Z}; }

  int Cells() const { return m_cells; }

private:
  int m_cells, m_side;
  Vec3 m_min, m_step;
  std::vector<double> m_values;
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
    for (const auto& t : kTetrahedra) Tetrahedron(t, value);
  }

private:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  // The points made on the edges that start in grid layers k and k + 1: the cubes go up layer by
  // layer, so two layers of edges are all that can still be shared.
  void Layer(int k) {
    const std::size_t size = static_cast<std::size_t>(m_volume.Cells() + 1) * static_cast<std::size_t>(m_volume.Cells() + 1) * 8;
    if (k == m_k + 1) {
      std::swap(m_layers[0], m_layers[1]);
      m_layers[1].assign(size, kNone);
    } else {
      m_layers[0].assign(size, kNone);
      m_layers[1].assign(size, kNone);
    }
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
    std::vector<std::uint32_t>& layer = m_layers[p[2] == m_k ? 0 : 1];
    std::uint32_t& vertex = layer[(static_cast<std::size_t>(p[1]) * side + static_cast<std::size_t>(p[0])) * 8 + direction];
    if (vertex == kNone) {
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
    std::array<int, 4> in{}, out{};
    int ins = 0, outs = 0;
    Vec3 inSum{}, outSum{};
    for (const int c : corners) {
      const auto [gi, gj, gk] = Grid(c);
      const Vec3 point = m_volume.Point(gi, gj, gk);
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
// evaluated together, bring the points onto the surface.
void Refine(const BlockProgram& f, const std::vector<Tetrahedra::Edge>& edges, Mesh& mesh) {
  constexpr int kRounds = 12;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    EdgeSearch search(edges[i]);
    for (int round = 0; round < kRounds; ++round) {
      const Vec3 p = Lerp(edges[i].From, edges[i].To, search.T());
      if (!search.Step(At(f, p.X, p.Y, p.Z), round)) break;
    }
    mesh.Positions[i] = Lerp(edges[i].From, edges[i].To, search.T());
  }
}

// The mesh lines of an implicit surface: where it crosses the planes of the grid, the edges
// whose two points lie in one such plane. All of its triangles' edges would cover the surface
// with a fine felt of tetrahedra.
void GridPlaneLines(Mesh& mesh) {
  const std::vector<Vec3>& at = mesh.Positions;
  // An edge between two triangles comes twice; as one number each it is quickly sorted out.
  std::vector<std::uint64_t> keys;
  for (const auto& t : mesh.Triangles) {
    for (int e = 0; e < 3; ++e) {
      std::uint32_t a = t[static_cast<std::size_t>(e)], b = t[static_cast<std::size_t>((e + 1) % 3)];
      // Points on grid edges in one plane keep that plane's coordinate exactly.
      if (at[a].X != at[b].X && at[a].Y != at[b].Y && at[a].Z != at[b].Z) continue;
      if (a > b) std::swap(a, b);
      keys.push_back(static_cast<std::uint64_t>(a) << 32 | b);
    }
  }
  std::sort(keys.begin(), keys.end());
  keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
  mesh.Lines.reserve(keys.size());
  for (const std::uint64_t key : keys) mesh.Lines.push_back({static_cast<std::uint32_t>(key >> 32), static_cast<std::uint32_t>(key)});
}

}  // namespace

Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells) {
  Mesh mesh;
  if (!source.Ok() || source.Kind != SurfaceKind::Implicit || cells < 1) return mesh;
  if (!(box.XMax > box.XMin && box.YMax > box.YMin && box.ZMax > box.ZMin)) return mesh;
  const Volume volume(source.Functions[0], box, cells);
  Tetrahedra tetrahedra(volume, mesh);
  for (int k = 0; k < cells; ++k) {
    for (int j = 0; j < cells; ++j) {
      for (int i = 0; i < cells; ++i) tetrahedra.Cube(i, j, k);
    }
  }
  Refine(source.Functions[0], tetrahedra.Edges, mesh);
  mesh.ComputeNormals();
  GridPlaneLines(mesh);
  return mesh;
}

}  // namespace plot3d::reference
