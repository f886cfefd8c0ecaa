#include "Camera.h"

#include "GridMesher.h"

#include <algorithm>
#include <cmath>

namespace plot3d {

Vec3 Camera::ToCube(Vec3 p, const SurfaceRanges& box) {
  const auto unit = [](double v, double lo, double hi) { return hi > lo ? 2 * (v - lo) / (hi - lo) - 1 : 0; };
  return {unit(p.X, box.XMin, box.XMax), unit(p.Y, box.YMin, box.YMax), unit(p.Z, box.ZMin, box.ZMax)};
}

Vec3 Camera::ToView(Vec3 d) const {
  // Turn about z, then tilt about the screen's x axis.
  const double ca = std::cos(Azimuth), sa = std::sin(Azimuth);
  const double x = ca * d.X - sa * d.Y, y = sa * d.X + ca * d.Y;
  const double ce = std::cos(Elevation), se = std::sin(Elevation);
  return {x, ce * d.Z + se * y, se * d.Z - ce * y};
}

Camera::Projected Camera::Project(Vec3 p, const SurfaceRanges& box, QSize size) const {
  const Vec3 v = ToView(ToCube(p, box));
  // The cube's diagonal is 2*sqrt(3): at Zoom 1 it spans the shorter side of the picture.
  const double scale = Zoom * std::min(size.width(), size.height()) / (2 * std::sqrt(3.0));
  return {size.width() / 2.0 + scale * v.X, size.height() / 2.0 - scale * v.Y, v.Z};
}

}  // namespace plot3d
