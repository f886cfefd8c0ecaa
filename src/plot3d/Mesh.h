#pragma once

#include "Vec3.h"

#include <array>
#include <cstdint>
#include <vector>

namespace plot3d {

// A surface as triangles over shared vertices, with a unit normal at each vertex.
struct Mesh {
  std::vector<Vec3> Positions;
  std::vector<Vec3> Normals;
  std::vector<std::array<std::uint32_t, 3>> Triangles;
  // The edges drawn as mesh lines. Left empty by meshes over a parameter grid, whose triangles
  // come in pairs with the first two edges of each on the grid.
  std::vector<std::array<std::uint32_t, 2>> Lines;

  bool Empty() const { return Triangles.empty(); }
  // Empties the mesh and keeps its memory.
  void Clear() { Positions.clear(), Normals.clear(), Triangles.clear(), Lines.clear(); }
  // Normals as the area-weighted mean of the faces round each vertex.
  void ComputeNormals();
};

}  // namespace plot3d
