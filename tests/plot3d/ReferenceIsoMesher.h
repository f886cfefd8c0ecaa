#pragma once

#include "plot3d/IsoMesher.h"

namespace plot3d::reference {

// The implicit mesh made the plain way, to hold the mesher to: every value of the grid and of the
// edge searches evaluated one point at a time, each search to its end before the next, every cube
// visited, the edges' points kept in tables cleared for each layer, the mesh lines sorted.
Mesh MeshImplicit(const SurfaceSource& source, const SurfaceRanges& box, int cells);

}  // namespace plot3d::reference
