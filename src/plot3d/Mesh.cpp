#include "Mesh.h"

namespace plot3d {

void Mesh::ComputeNormals() {
  Normals.assign(Positions.size(), Vec3{});  // keeps the capacity of a mesh used again
  for (const auto& t : Triangles) {
    // The cross product's length is twice the area: larger faces weigh more.
    const Vec3 n = Cross(Positions[t[1]] - Positions[t[0]], Positions[t[2]] - Positions[t[0]]);
    for (const std::uint32_t v : t) Normals[v] += n;
  }
  for (Vec3& n : Normals) n = Normalized(n);
}

}  // namespace plot3d
