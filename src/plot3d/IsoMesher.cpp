#include "IsoMesher.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace plot3d {

namespace {

using plot2d::BlockProgram;
using plot2d::Variable;

// The corners of a cube as offsets (i, j, k), and its six tetrahedra round the diagonal 0-6.
constexpr std::array<std::array<int, 3>, 8> kCorner{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                                     {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};
constexpr std::array<std::array<int, 4>, 6> kTetrahedra{{{0, 5, 1, 6}, {0, 1, 2, 6}, {0, 2, 3, 6},
                                                         {0, 3, 7, 6}, {0, 7, 4, 6}, {0, 4, 5, 6}}};

class Volume {
public:
  Volume(const BlockProgram& f, const SurfaceRanges& box, int cells) : m_cells(cells), m_side(cells + 1) {
    m_min = {box.XMin, box.YMin, box.ZMin};
    m_step = {(box.XMax - box.XMin) / cells, (box.YMax - box.YMin) / cells, (box.ZMax - box.ZMin) / cells};
    const std::size_t count = static_cast<std::size_t>(m_side) * m_side * m_side;
    std::vector<double> xs(count), ys(count), zs(count);
    for (int k = 0; k < m_side; ++k) {
      for (int j = 0; j < m_side; ++j) {
        for (int i = 0; i < m_side; ++i) {
          const std::size_t n = Index(i, j, k);
          xs[n] = m_min.X + i * m_step.X, ys[n] = m_min.Y + j * m_step.Y, zs[n] = m_min.Z + k * m_step.Z;
        }
      }
    }
    BlockProgram::Inputs inputs{};
    inputs[static_cast<std::size_t>(Variable::X)] = xs.data();
    inputs[static_cast<std::size_t>(Variable::Y)] = ys.data();
    inputs[static_cast<std::size_t>(Variable::Z)] = zs.data();
    m_values.resize(count);
    f.Evaluate(inputs, count, m_values.data());
  }

  std::size_t Index(int i, int j, int k) const {
    return (static_cast<std::size_t>(k) * m_side + static_cast<std::size_t>(j)) * m_side + static_cast<std::size_t>(i);
  }
  double Value(int i, int j, int k) const { return m_values[Index(i, j, k)]; }
  Vec3 Point(int i, int j, int k) const { return {m_min.X + i * m_step.X, m_min.Y + j * m_step.Y, m_min.Z + k * m_step.Z}; }

  // The gradient at a grid point by differences, central inside and one-sided at the faces.
  Vec3 Gradient(int i, int j, int k) const {
    const auto along = [&](int di, int dj, int dk, int at, double step) {
      const int lo = at > 0 ? -1 : 0, hi = at < m_cells ? 1 : 0;
      const double a = Value(i + lo * di, j + lo * dj, k + lo * dk), b = Value(i + hi * di, j + hi * dj, k + hi * dk);
      return (b - a) / ((hi - lo) * step);
    };
    return {along(1, 0, 0, i, m_step.X), along(0, 1, 0, j, m_step.Y), along(0, 0, 1, k, m_step.Z)};
  }

  int Cells() const { return m_cells; }

private:
  int m_cells, m_side;
  Vec3 m_min, m_step;
  std::vector<double> m_values;
};

class Tetrahedra {
public:
  Tetrahedra(const Volume& volume, Mesh& mesh) : m_volume(volume), m_mesh(mesh) {}

  void Cube(int i, int j, int k) {
    std::array<double, 8> value{};
    int inside = 0;
    for (std::size_t c = 0; c < 8; ++c) {
      value[c] = m_volume.Value(i + kCorner[c][0], j + kCorner[c][1], k + kCorner[c][2]);
      if (!std::isfinite(value[c])) return;  // a hole where the function is undefined
      inside += value[c] < 0;
    }
    if (inside == 0 || inside == 8) return;
    m_i = i, m_j = j, m_k = k;
    for (const auto& t : kTetrahedra) Tetrahedron(t, value);
  }

private:
  // The point where the function changes sign on the edge between corners a and b of the cube.
  std::uint32_t OnEdge(int a, int b, const std::array<double, 8>& value) {
    const auto grid = [&](int c) { return std::array<int, 3>{m_i + kCorner[static_cast<std::size_t>(c)][0],
                                                             m_j + kCorner[static_cast<std::size_t>(c)][1],
                                                             m_k + kCorner[static_cast<std::size_t>(c)][2]}; };
    const auto [ai, aj, ak] = grid(a);
    const auto [bi, bj, bk] = grid(b);
    const double va = value[static_cast<std::size_t>(a)], vb = value[static_cast<std::size_t>(b)];
    const double t = va / (va - vb);
    m_mesh.Positions.push_back(Lerp(m_volume.Point(ai, aj, ak), m_volume.Point(bi, bj, bk), t));
    m_mesh.Normals.push_back(Normalized(Lerp(m_volume.Gradient(ai, aj, ak), m_volume.Gradient(bi, bj, bk), t)));
    return static_cast<std::uint32_t>(m_mesh.Positions.size() - 1);
  }

  void Tetrahedron(const std::array<int, 4>& corners, const std::array<double, 8>& value) {
    std::array<int, 4> in{}, out{};
    int ins = 0, outs = 0;
    for (const int c : corners) {
      if (value[static_cast<std::size_t>(c)] < 0) in[static_cast<std::size_t>(ins++)] = c;
      else out[static_cast<std::size_t>(outs++)] = c;
    }
    if (ins == 0 || outs == 0) return;
    if (ins == 1 || outs == 1) {
      // One corner apart from the other three: a triangle across the edges that meet there.
      const int lone = ins == 1 ? in[0] : out[0];
      const std::array<int, 4>& rest = ins == 1 ? out : in;
      m_mesh.Triangles.push_back({OnEdge(lone, rest[0], value), OnEdge(lone, rest[1], value), OnEdge(lone, rest[2], value)});
      return;
    }
    // Two and two: a quadrilateral across the four edges between the pairs, as two triangles.
    const std::uint32_t p = OnEdge(in[0], out[0], value), q = OnEdge(in[0], out[1], value);
    const std::uint32_t r = OnEdge(in[1], out[1], value), s = OnEdge(in[1], out[0], value);
    m_mesh.Triangles.push_back({p, q, r});
    m_mesh.Triangles.push_back({p, r, s});
  }

  const Volume& m_volume;
  Mesh& m_mesh;
  int m_i = 0, m_j = 0, m_k = 0;
};

}  // namespace

void MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells, Mesh& into,
                  const std::function<void(int)>& progress) {
  into.Clear();
  if (!source.Ok() || source.Kind != SurfaceKind::Implicit || cells < 1) return;
  if (!(box.XMax > box.XMin && box.YMax > box.YMin && box.ZMax > box.ZMin)) return;
  const Volume volume(source.Functions[0], box, cells);  // about a third of the work
  if (progress) progress(33);
  Tetrahedra tetrahedra(volume, into);
  int reported = 33;
  for (int k = 0; k < cells; ++k) {
    for (int j = 0; j < cells; ++j) {
      for (int i = 0; i < cells; ++i) tetrahedra.Cube(i, j, k);
    }
    const int done = 33 + 67 * (k + 1) / cells;
    if (progress && done >= reported + 5) progress(reported = done);
  }
}

Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells) {
  Mesh mesh;
  MeshImplicit(source, box, cells, mesh);
  return mesh;
}

}  // namespace plot3d
