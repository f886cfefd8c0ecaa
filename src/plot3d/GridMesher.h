#pragma once

#include "Mesh.h"
#include "SurfaceSource.h"

namespace plot3d {

// The ranges a surface is drawn over: the box, and the parameters of kinds 5 and 6.
struct SurfaceRanges {
  double XMin = -5, XMax = 5, YMin = -5, YMax = 5, ZMin = -5, ZMax = 5;
  double ThetaMin = 0, ThetaMax = 6.283185307179586, PhiMin = 0, PhiMax = 3.141592653589793;
  double UMin = -5, UMax = 5, VMin = -5, VMax = 5;

  friend bool operator==(const SurfaceRanges&, const SurfaceRanges&) = default;
};

// Steps per side of the grid for GridCount 1 to 6 (outside that, the nearest of them).
int GridSteps(int gridCount);

// The mesh of a surface given on a grid of two parameters: kinds 1 to 3 over two sides of the box,
// cut cleanly where they leave it along the third; kind 5 over theta and phi; kind 6 over u and v.
// Points where the function is undefined leave holes.
Mesh MeshOnGrid(const SurfaceSource& source, const SurfaceRanges& ranges, int steps);
// The same into a mesh that is kept between redraws: its memory is used again.
void MeshOnGrid(const SurfaceSource& source, const SurfaceRanges& ranges, int steps, Mesh& into);

}  // namespace plot3d
