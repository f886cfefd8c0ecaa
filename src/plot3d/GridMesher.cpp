#include "GridMesher.h"

#include <algorithm>
#include <cmath>

namespace plot3d {

namespace {

using mathlang::BlockProgram;
using mathlang::Variable;

// A grid vertex of kinds 1 to 3: the two free coordinates and the function's value.
struct Sample {
  double A, B, W;
};

Sample Between(const Sample& p, const Sample& q, double w) {
  const double t = (w - p.W) / (q.W - p.W);
  return {p.A + t * (q.A - p.A), p.B + t * (q.B - p.B), w};
}

// The polygon's part where W >= bound (keepAbove) or W <= bound: one pass of Sutherland-Hodgman.
std::vector<Sample> ClipPolygon(const std::vector<Sample>& polygon, double bound, bool keepAbove) {
  std::vector<Sample> out;
  const auto inside = [&](const Sample& s) { return keepAbove ? s.W >= bound : s.W <= bound; };
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Sample& p = polygon[i];
    const Sample& q = polygon[(i + 1) % polygon.size()];
    if (inside(p)) out.push_back(p);
    if (inside(p) != inside(q)) out.push_back(Between(p, q, bound));
  }
  return out;
}

// Evaluates f over the (steps + 1)^2 grid of two variables, row by row of b.
std::vector<double> OnGrid(const BlockProgram& f, Variable a, double aMin, double aMax, Variable b, double bMin, double bMax,
                           int steps) {
  const std::size_t side = static_cast<std::size_t>(steps) + 1, count = side * side;
  std::vector<double> as(count), bs(count), out(count);
  for (std::size_t j = 0; j < side; ++j) {
    for (std::size_t i = 0; i < side; ++i) {
      as[j * side + i] = aMin + (aMax - aMin) * static_cast<double>(i) / steps;
      bs[j * side + i] = bMin + (bMax - bMin) * static_cast<double>(j) / steps;
    }
  }
  BlockProgram::Inputs inputs{};
  inputs[static_cast<std::size_t>(a)] = as.data();
  inputs[static_cast<std::size_t>(b)] = bs.data();
  f.Evaluate(inputs, count, out.data());
  return out;
}

class GraphMesher {
public:
  using Corner = std::array<std::size_t, 2>;  // i along the first free axis, j along the second

  GraphMesher(const SurfaceSource& source, const SurfaceRanges& r, int steps, Mesh& into)
      : m_kind(source.Kind), m_steps(steps), m_mesh(into) {
    switch (m_kind) {
      case SurfaceKind::ZOfXY: Set(Variable::X, r.XMin, r.XMax, Variable::Y, r.YMin, r.YMax, r.ZMin, r.ZMax); break;
      case SurfaceKind::YOfXZ: Set(Variable::X, r.XMin, r.XMax, Variable::Z, r.ZMin, r.ZMax, r.YMin, r.YMax); break;
      default: Set(Variable::Y, r.YMin, r.YMax, Variable::Z, r.ZMin, r.ZMax, r.XMin, r.XMax); break;
    }
    m_values = OnGrid(source.Functions[0], m_a, m_aMin, m_aMax, m_b, m_bMin, m_bMax, steps);
  }

  void Run() {
    const std::size_t side = static_cast<std::size_t>(m_steps) + 1;
    m_mesh.Positions.reserve(side * side);
    m_mesh.Triangles.reserve(2 * (side - 1) * (side - 1));
    for (std::size_t j = 0; j < side; ++j) {
      for (std::size_t i = 0; i < side; ++i) m_mesh.Positions.push_back(Place(At(i, j)));
    }
    for (std::size_t j = 0; j + 1 < side; ++j) {
      for (std::size_t i = 0; i + 1 < side; ++i) {
        Triangle({Corner{i, j}, Corner{i + 1, j}, Corner{i + 1, j + 1}});
        Triangle({Corner{i, j}, Corner{i + 1, j + 1}, Corner{i, j + 1}});
      }
    }
    m_mesh.ComputeNormals();
  }

private:
  void Set(Variable a, double aMin, double aMax, Variable b, double bMin, double bMax, double wMin, double wMax) {
    m_a = a, m_aMin = aMin, m_aMax = aMax, m_b = b, m_bMin = bMin, m_bMax = bMax, m_wMin = wMin, m_wMax = wMax;
  }

  Sample At(std::size_t i, std::size_t j) const {
    const std::size_t side = static_cast<std::size_t>(m_steps) + 1;
    return {m_aMin + (m_aMax - m_aMin) * static_cast<double>(i) / m_steps,
            m_bMin + (m_bMax - m_bMin) * static_cast<double>(j) / m_steps, m_values[j * side + i]};
  }

  Vec3 Place(const Sample& s) const {
    switch (m_kind) {
      case SurfaceKind::ZOfXY: return {s.A, s.B, s.W};
      case SurfaceKind::YOfXZ: return {s.A, s.W, s.B};
      default: return {s.W, s.A, s.B};
    }
  }

  std::uint32_t Add(const Sample& s) {
    m_mesh.Positions.push_back(Place(s));
    return static_cast<std::uint32_t>(m_mesh.Positions.size() - 1);
  }

  // One triangle of a cell: whole where it lies in the box, cut at the box where it leaves it,
  // left out where the function is undefined at a corner.
  void Triangle(const std::array<Corner, 3>& corners) {
    const std::size_t side = static_cast<std::size_t>(m_steps) + 1;
    std::array<std::uint32_t, 3> t{};
    bool inside = true;
    for (std::size_t k = 0; k < 3; ++k) {
      t[k] = static_cast<std::uint32_t>(corners[k][1] * side + corners[k][0]);
      const double w = m_values[t[k]];
      if (!std::isfinite(w)) return;
      inside = inside && w >= m_wMin && w <= m_wMax;
    }
    if (inside) {
      m_mesh.Triangles.push_back(t);
      return;
    }
    std::vector<Sample> polygon;
    for (const auto& [i, j] : corners) polygon.push_back(At(i, j));
    polygon = ClipPolygon(ClipPolygon(polygon, m_wMin, true), m_wMax, false);
    if (polygon.size() < 3) return;
    const std::uint32_t first = Add(polygon[0]);
    std::uint32_t previous = Add(polygon[1]);
    for (std::size_t k = 2; k < polygon.size(); ++k) {
      const std::uint32_t next = Add(polygon[k]);
      m_mesh.Triangles.push_back({first, previous, next});
      previous = next;
    }
  }

  SurfaceKind m_kind;
  int m_steps;
  Variable m_a = Variable::X, m_b = Variable::Y;
  double m_aMin = 0, m_aMax = 0, m_bMin = 0, m_bMax = 0, m_wMin = 0, m_wMax = 0;
  std::vector<double> m_values;
  Mesh& m_mesh;
};

// Kinds 5 and 6: every grid point is a point of space; triangles with an undefined corner go.
void ParametricMesh(const SurfaceSource& source, const SurfaceRanges& r, int steps, Mesh& mesh) {
  const bool spherical = source.Kind == SurfaceKind::Spherical;
  const Variable a = spherical ? Variable::Theta : Variable::U, b = spherical ? Variable::Phi : Variable::V;
  const double aMin = spherical ? r.ThetaMin : r.UMin, aMax = spherical ? r.ThetaMax : r.UMax;
  const double bMin = spherical ? r.PhiMin : r.VMin, bMax = spherical ? r.PhiMax : r.VMax;
  const std::size_t side = static_cast<std::size_t>(steps) + 1;
  if (spherical) {
    const std::vector<double> radius = OnGrid(source.Functions[0], a, aMin, aMax, b, bMin, bMax, steps);
    for (std::size_t j = 0; j < side; ++j) {
      const double phi = bMin + (bMax - bMin) * static_cast<double>(j) / steps;
      for (std::size_t i = 0; i < side; ++i) {
        const double theta = aMin + (aMax - aMin) * static_cast<double>(i) / steps, rho = radius[j * side + i];
        mesh.Positions.push_back({rho * std::sin(phi) * std::cos(theta), rho * std::sin(phi) * std::sin(theta), rho * std::cos(phi)});
      }
    }
  } else {
    std::array<std::vector<double>, 3> xyz;
    for (std::size_t k = 0; k < 3; ++k) xyz[k] = OnGrid(source.Functions[k], a, aMin, aMax, b, bMin, bMax, steps);
    for (std::size_t n = 0; n < side * side; ++n) mesh.Positions.push_back({xyz[0][n], xyz[1][n], xyz[2][n]});
  }
  const auto index = [side](std::size_t i, std::size_t j) { return static_cast<std::uint32_t>(j * side + i); };
  const auto add = [&](std::uint32_t p, std::uint32_t q, std::uint32_t s) {
    if (Finite(mesh.Positions[p]) && Finite(mesh.Positions[q]) && Finite(mesh.Positions[s])) mesh.Triangles.push_back({p, q, s});
  };
  for (std::size_t j = 0; j + 1 < side; ++j) {
    for (std::size_t i = 0; i + 1 < side; ++i) {
      add(index(i, j), index(i + 1, j), index(i + 1, j + 1));
      add(index(i, j), index(i + 1, j + 1), index(i, j + 1));
    }
  }
  mesh.ComputeNormals();
}

}  // namespace

int GridSteps(int gridCount) {
  static constexpr int kSteps[] = {50, 75, 100, 125, 150, 200};
  return kSteps[std::clamp(gridCount, 1, 6) - 1];
}

Mesh MeshOnGrid(const SurfaceSource& source, const SurfaceRanges& ranges, int steps) {
  Mesh mesh;
  MeshOnGrid(source, ranges, steps, mesh);
  return mesh;
}

void MeshOnGrid(const SurfaceSource& source, const SurfaceRanges& ranges, int steps, Mesh& into) {
  into.Clear();
  if (!source.Ok() || steps < 1 || source.Kind == SurfaceKind::Implicit) return;
  if (source.Kind == SurfaceKind::Spherical || source.Kind == SurfaceKind::Parametric) {
    ParametricMesh(source, ranges, steps, into);
  } else {
    GraphMesher(source, ranges, steps, into).Run();
  }
}

}  // namespace plot3d
