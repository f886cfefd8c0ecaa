#include "ParameterScan.h"

#include <cmath>

namespace plot2d {

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
  // Then between the neighbours of the best sample (golden section on the distance).
  const auto distanceAt = [&](double t) { return PixelDistance(m_curve.PointAt(t), at, view); };
  const double ratio = (std::sqrt(5.0) - 1) / 2;
  const double centre = m_curve.From + static_cast<double>(best) * m_step;
  double a = centre - m_step, b = centre + m_step;
  for (int i = 0; i < 60; ++i) {
    const double c = b - ratio * (b - a), d = a + ratio * (b - a);
    if (distanceAt(c) < distanceAt(d)) b = d;
    else a = c;
  }
  const double t = (a + b) / 2;
  if (!(distanceAt(t) <= reach)) return std::nullopt;
  return t;
}

}  // namespace plot2d
