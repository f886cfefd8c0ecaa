#pragma once

#include "mathlang/BlockProgram.h"

#include <QString>

#include <array>

namespace plot3d {

// The kinds of surface, as FunctionKind numbers them.
enum class SurfaceKind : int { ZOfXY = 1, YOfXZ = 2, XOfYZ = 3, Implicit = 4, Spherical = 5, Parametric = 6 };

// A surface's text compiled for its kind: one function (kinds 1 to 3 and 5), F - G of an implicit
// equation (kind 4), or the three functions of u and v of "X:Y:Z" (kind 6). Error says why a text
// cannot be drawn; then nothing is.
struct SurfaceSource {
  SurfaceKind Kind = SurfaceKind::ZOfXY;
  std::array<mathlang::BlockProgram, 3> Functions;
  QString Error;

  bool Ok() const { return Error.isEmpty(); }
  static SurfaceSource Compile(const QString& equation, int kind);
};

}  // namespace plot3d
