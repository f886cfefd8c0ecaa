#pragma once

#include "GridMesher.h"
#include "Mesh.h"
#include "SurfaceSource.h"

#include <functional>

namespace plot3d {

// The mesh of an implicit surface F = G in the box: F - G is sampled on a grid of cells per side,
// each cube is split into six tetrahedra along its diagonal, and each tetrahedron that the surface
// passes through gives one or two triangles with corners where F - G changes sign along its edges
// (found on the function itself, so that a sphere is round, not stepped). Triangles share their
// corners, and normals are the mean of the faces round a corner. Where F - G is undefined the
// surface has a hole. The mesh's Lines are its crossings with the grid's planes.
// progress, when given, hears the share done, 0 to 100, as the layers of cubes are worked through;
// when it answers false the work stops and the mesh is left empty.
void MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells, Mesh& into,
                  const std::function<bool(int)>& progress = {});
Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells);

}  // namespace plot3d
