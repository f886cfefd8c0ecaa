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

  // ToView and Project with the camera's sines and cosines worked out once, for the many points
  // of a mesh: the same numbers, to the last bit.
  struct Turn {
    double CosAzimuth, SinAzimuth, CosElevation, SinElevation;
    Vec3 operator()(Vec3 d) const {
      const double x = CosAzimuth * d.X - SinAzimuth * d.Y, y = SinAzimuth * d.X + CosAzimuth * d.Y;
      return {x, CosElevation * d.Z + SinElevation * y, SinElevation * d.Z - CosElevation * y};
    }
  };
  Turn Turning() const;
  struct Projection {
    Turn Turned;
    double Scale, CentreX, CentreY;
    // A point of the cube [-1, 1]^3 (ToCube of a point of the box) in the picture.
    Projected operator()(Vec3 cube) const {
      const Vec3 v = Turned(cube);
      return {CentreX + Scale * v.X, CentreY - Scale * v.Y, v.Z};
    }
  };
  Projection Projecting(QSize size) const;
  // The point of the box's space in the cube [-1, 1]^3.
  static Vec3 ToCube(Vec3 p, const SurfaceRanges& box);
};

}  // namespace plot3d
