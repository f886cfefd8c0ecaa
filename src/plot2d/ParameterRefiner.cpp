#include "ParameterRefiner.h"

#include "RootRefiner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot2d {

namespace {

// Enough samples that neighbouring ones lie a few pixels apart on a curve that fills the view;
// the lookup refines between them where that is not near enough.
constexpr int kSamples = 512;

}  // namespace

ParameterRefiner::ParameterRefiner(const Drawing::Curve& curve, const ViewTransform& view)
    : m_curve(curve), m_view(view) {
  if (!curve.PointAt || !std::isfinite(curve.From) || !std::isfinite(curve.To) || curve.From == curve.To) return;
  m_step = (curve.To - curve.From) / kSamples;
  m_points.reserve(kSamples + 1);
  // The box by hand: QRectF leaves out boxes of no size, such as a single point's.
  double left = INFINITY, right = -INFINITY, top = INFINITY, bottom = -INFINITY;
  for (int i = 0; i <= kSamples; ++i) {
    const QPointF p = curve.PointAt(curve.From + i * m_step);
    m_points.push_back(p);
    if (!std::isfinite(p.x()) || !std::isfinite(p.y())) continue;
    left = std::min(left, p.x()), right = std::max(right, p.x());
    top = std::min(top, p.y()), bottom = std::max(bottom, p.y());
  }
  if (left <= right) m_box = QRectF(QPointF(left, top), QPointF(right, bottom));
  m_cells.resize(kCells * kCells);
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const QPointF p = m_points[i];
    if (std::isfinite(p.x()) && std::isfinite(p.y())) m_cells[CellOf(ColumnOf(p.x()), RowOf(p.y()))].push_back(static_cast<std::uint32_t>(i));
  }
}

int ParameterRefiner::ColumnOf(double x) const {
  const double at = m_box.width() > 0 ? std::floor((x - m_box.left()) / m_box.width() * kCells) : 0;
  return static_cast<int>(std::clamp(at, 0.0, kCells - 1.0));
}

int ParameterRefiner::RowOf(double y) const {
  const double at = m_box.height() > 0 ? std::floor((y - m_box.top()) / m_box.height() * kCells) : 0;
  return static_cast<int>(std::clamp(at, 0.0, kCells - 1.0));
}

double ParameterRefiner::PixelDistance2(QPointF a, QPointF b) const {
  const double dx = (a.x() - b.x()) / m_view.XPerPixel(), dy = (a.y() - b.y()) / m_view.YPerPixel();
  return dx * dx + dy * dy;
}

// The sample nearest to at: the grid's cells in rings about at's cell, until no nearer sample
// can lie further out.
std::optional<std::size_t> ParameterRefiner::NearestSample(QPointF at) const {
  const int column = ColumnOf(at.x()), row = RowOf(at.y());
  // A box flat in one direction (a straight curve) has cells as long as its other side.
  const double across = m_box.width() / kCells / m_view.XPerPixel(), down = m_box.height() / kCells / m_view.YPerPixel();
  const double cellPixels = across > 0 && down > 0 ? std::min(across, down) : std::max(across, down);
  std::optional<std::size_t> best;
  double bestDistance = std::numeric_limits<double>::infinity();
  for (int ring = 0; ring < kCells; ++ring) {
    for (int r = std::max(0, row - ring); r <= std::min(kCells - 1, row + ring); ++r) {
      const bool edgeRow = r == row - ring || r == row + ring;
      for (int c = std::max(0, column - ring); c <= std::min(kCells - 1, column + ring); ++c) {
        if (!edgeRow && c != column - ring && c != column + ring) continue;
        for (const std::uint32_t i : m_cells[CellOf(c, r)]) {
          const double d = PixelDistance2(m_points[i], at);
          if (d < bestDistance) bestDistance = d, best = i;
        }
      }
    }
    // Every sample beyond this ring lies at least ring cells away from at's cell.
    const double beyond = ring * cellPixels;
    if (best && beyond * beyond >= bestDistance) break;
  }
  return best;
}

std::optional<double> ParameterRefiner::Nearest(QPointF at, double reach) const {
  if (m_points.empty()) return std::nullopt;
  const auto sample = NearestSample(at);
  if (!sample) return std::nullopt;
  const double centre = m_curve.From + static_cast<double>(*sample) * m_step;
  // A sample within a pixel is near enough: what asks refines within a step of it anyway.
  if (PixelDistance2(m_points[*sample], at) <= 1) return centre;
  // Else between the neighbours of the nearest sample, the nearest point of the curve itself.
  const refine::Function distance = [&](double t) {
    const double d = PixelDistance2(m_curve.PointAt(t), at);
    return std::isnan(d) ? std::numeric_limits<double>::infinity() : d;
  };
  const double t = refine::Lowest(distance, centre - m_step, centre + m_step);
  if (!(distance(t) <= reach * reach)) return std::nullopt;
  return t;
}

}  // namespace plot2d
