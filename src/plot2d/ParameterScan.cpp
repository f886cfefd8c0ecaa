#include "ParameterScan.h"

#include "mathlang/RootFinding.h"

#include <cmath>

namespace plot2d {

using mathlang::Function;

namespace {

constexpr int kScan = 4096;

double PixelDistance(QPointF a, QPointF b, const ViewTransform& view) {
  return std::hypot((a.x() - b.x()) / view.XPerPixel(), (a.y() - b.y()) / view.YPerPixel());
}

}  // namespace

ParameterScan::ParameterScan(const Drawing::Curve& curve) : m_curve(curve) {
  if (!curve.PointAt || !std::isfinite(curve.From) || !std::isfinite(curve.To) || curve.From == curve.To) return;
  m_step = (curve.To - curve.From) / kScan;
  m_points.reserve(kScan + 1);
  for (int i = 0; i <= kScan; ++i) m_points.push_back(curve.PointAt(curve.From + i * m_step));
}

std::optional<double> ParameterScan::Nearest(QPointF at, const ViewTransform& view, double reach) const {
  if (m_points.empty()) return std::nullopt;
  std::size_t best = 0;
  double bestDistance = INFINITY;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const double distance = PixelDistance(m_points[i], at, view);
    if (distance < bestDistance) bestDistance = distance, best = i;
  }
  // Then between the neighbours of the best sample, the nearest point by golden section.
  const Function distanceAt = [&](double t) { return PixelDistance(m_curve.PointAt(t), at, view); };
  const double centre = m_curve.From + static_cast<double>(best) * m_step;
  const double t = mathlang::Golden(distanceAt, centre - m_step, centre + m_step, false);
  if (!(distanceAt(t) <= reach)) return std::nullopt;
  return t;
}

}  // namespace plot2d
