#pragma once

#include "Vec3.h"

#include <QPointF>
#include <QSize>

namespace plot3d {

struct SurfaceRanges;

// How the box is seen: turned by Azimuth about its vertical axis, tilted by Elevation towards the
// viewer (radians; pi/2 looks straight down), scaled by Zoom. The box is shown as a cube whatever
// its ranges, with an orthographic projection that fits it in the picture at Zoom 1.
struct Camera {
  double Azimuth = -0.9;
  double Elevation = 0.45;
  double Zoom = 1;

  // A point of the box's space in the picture: x and y in pixels (y downwards), and its depth,
  // larger nearer the viewer.
  struct Projected {
    double X, Y, Depth;
  };
  Projected Project(Vec3 p, const SurfaceRanges& box, QSize size) const;
  // A direction of the cube's space as the viewer sees it: x right, y up, z towards the viewer.
  Vec3 ToView(Vec3 direction) const;
  // The point of the box's space in the cube [-1, 1]^3.
  static Vec3 ToCube(Vec3 p, const SurfaceRanges& box);
};

}  // namespace plot3d
