#include "Camera.h"

#include "GridMesher.h"

#include <algorithm>
#include <cmath>

namespace plot3d {

Vec3 Camera::ToCube(Vec3 p, const SurfaceRanges& box) {
  const auto unit = [](double v, double lo, double hi) { return hi > lo ? 2 * (v - lo) / (hi - lo) - 1 : 0; };
  return {unit(p.X, box.XMin, box.XMax), unit(p.Y, box.YMin, box.YMax), unit(p.Z, box.ZMin, box.ZMax)};
}

// Turn about z, then tilt about the screen's x axis.
Camera::Turn Camera::Turning() const {
  return {std::cos(Azimuth), std::sin(Azimuth), std::cos(Elevation), std::sin(Elevation)};
}

Vec3 Camera::ToView(Vec3 d) const { return Turning()(d); }

Camera::Projection Camera::Projecting(QSize size) const {
  // The cube's diagonal is 2*sqrt(3): at Zoom 1 it spans the shorter side of the picture.
  const double scale = Zoom * std::min(size.width(), size.height()) / (2 * std::sqrt(3.0));
  return {Turning(), scale, size.width() / 2.0, size.height() / 2.0};
}

Camera::Projected Camera::Project(Vec3 p, const SurfaceRanges& box, QSize size) const {
  return Projecting(size)(ToCube(p, box));
}

}  // namespace plot3d
