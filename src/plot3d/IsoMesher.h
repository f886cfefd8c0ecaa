#pragma once

#include "GridMesher.h"
#include "Mesh.h"
#include "SurfaceSource.h"

#include <functional>

namespace plot3d {

// The mesh of an implicit surface F = G in the box: F - G is sampled on a grid of cells per side,
// each cube is split into six tetrahedra along its diagonal, and each tetrahedron that the surface
// passes through gives one or two triangles with corners where F - G changes sign along its edges
// (linearly interpolated, so that a sphere is round, not stepped). Normals are the gradient of the
// sampled function. Where F - G is undefined the surface has a hole.
// progress, when given, hears the share done, 0 to 100, as the layers of cubes are worked through.
void MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells, Mesh& into,
                  const std::function<void(int)>& progress = {});
Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells);

}  // namespace plot3d
