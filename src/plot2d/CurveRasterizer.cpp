#include "CurveRasterizer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot2d {

CurveRasterizer::CurveRasterizer(QImage& target, int firstRow)
    : m_image(target), m_bits(target.bits()), m_stride(target.bytesPerLine()), m_width(target.width()),
      m_height(target.height()), m_firstRow(firstRow),
      m_cells() {}

bool CurveRasterizer::CanDrawInto(const QImage& image) {
  return image.format() == QImage::Format_ARGB32_Premultiplied || image.format() == QImage::Format_RGB32;
}

void CurveRasterizer::Stroke(const std::vector<QPolygonF>& lines, QColor color, double width, Drawing::Style style) {
  if (++m_curve == kStamps) {  // the stamps wrapped round: start them again
    std::fill(m_cells.begin(), m_cells.end(), 0);
    m_curve = 1;
  }
  m_touched.clear();
  m_solid = qPremultiply(color.rgba());
  // Only antialiased lines keep coverage per pixel; an aliased picture never needs the memory.
  if (m_antialiased && m_cells.empty()) m_cells.assign(static_cast<size_t>(m_width) * static_cast<size_t>(m_height), 0);
  const double radius = std::max(0.5, width / 2);
  // The pen patterns of a dashed and a dotted line, in multiples of the width.
  Pattern pattern;
  if (style == Drawing::Style::Dashed) pattern = {4 * std::max(1.0, width), 6 * std::max(1.0, width)};
  if (style == Drawing::Style::Dotted) pattern = {std::max(1.0, width), 3 * std::max(1.0, width)};
  for (const QPolygonF& line : lines) {
    double arc = 0;
    for (qsizetype i = 1; i < line.size(); ++i) {
      Segment(line[i - 1], line[i], radius, arc, pattern);
      // Only a pattern needs to know how far along the line a segment starts.
      if (pattern.Period > 0) arc += std::hypot(line[i].x() - line[i - 1].x(), line[i].y() - line[i - 1].y());
    }
    if (line.size() == 1) Segment(line[0], line[0], radius, 0, pattern);
  }
  if (m_antialiased) Blend(color);
}

// Called for every pixel a segment reaches: inlined into the loop that finds them.
[[gnu::always_inline]] inline void CurveRasterizer::Cover(int x, int y, double coverage) {
  const size_t at = static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x);
  const auto c = static_cast<std::uint32_t>(coverage * 255 + 0.5);
  std::uint32_t& cell = m_cells[at];
  if (cell >> 8 != m_curve) {
    cell = m_curve << 8 | c;
    m_touched.push_back(static_cast<std::uint32_t>(at));
  } else if (c > (cell & 0xFF)) {
    cell = (cell & ~0xFFu) | c;
  }
}

// Pixels whose centre lies within radius + 0.5 of the segment, row by row: on each row only the
// stretch that the band around the segment crosses is looked at.
void CurveRasterizer::Segment(QPointF a, QPointF b, double radius, double arcStart, const Pattern& pattern) {
  // Into the band's own rows.
  a.ry() -= m_firstRow;
  b.ry() -= m_firstRow;
  if (!m_antialiased && pattern.Period == 0) return SolidSpans(a, b, radius);
  // Antialiased, a pixel is touched while any part of it is within the radius; aliased, only while
  // its centre is.
  const double reach = m_antialiased ? radius + 0.5 : radius;
  const double reach2 = reach * reach;
  // Pixels this close are covered whole: no square root for them.
  const double whole2 = reach >= 1 ? (reach - 1) * (reach - 1) : -1;
  const double dx = b.x() - a.x();
  const double dy = b.y() - a.y();
  const double length2 = dx * dx + dy * dy;
  const double length = std::sqrt(length2);
  const double inverse2 = length2 > 0 ? 1 / length2 : 0;
  const int top = std::max(0, static_cast<int>(std::floor(std::min(a.y(), b.y()) - reach)));
  const int bottom = std::min(m_height - 1, static_cast<int>(std::ceil(std::max(a.y(), b.y()) + reach)));
  const double left = std::min(a.x(), b.x()) - reach;
  const double right = std::max(a.x(), b.x()) + reach;
  int previousX0 = static_cast<int>(std::floor(left));
  for (int y = top; y <= bottom; ++y) {
    const double py = y + 0.5;
    double from = left, to = right;
    if (std::abs(dy) > 1e-9 && length > 0) {
      // Where the row meets the band |cross| <= reach * length around the segment's line.
      const double base = a.x() + (py - a.y()) * dx / dy;
      const double half = reach * length / std::abs(dy);
      from = std::max(from, base - half);
      to = std::min(to, base + half);
    }
    const int x0 = std::max(0, static_cast<int>(std::floor(from - 0.5)));
    const int x1 = std::min(m_width - 1, static_cast<int>(std::ceil(to - 0.5)));
    // A steep segment takes a new row, and so new cache lines, every pixel or two: the rows two
    // ahead are asked for now, where the segment will reach them.
    if (y + 2 <= bottom && m_antialiased) {
      const std::size_t ahead = static_cast<std::size_t>(y + 2) * static_cast<std::size_t>(m_width) +
                                static_cast<std::size_t>(std::clamp(x0 + 2 * (x0 - previousX0), 0, m_width - 1));
      __builtin_prefetch(&m_cells[ahead], 1);
      __builtin_prefetch(m_bits + static_cast<qsizetype>(ahead) * 4, 1);
    }
    previousX0 = x0;
    for (int x = x0; x <= x1; ++x) {
      const double px = x + 0.5;
      const double t = std::clamp(((px - a.x()) * dx + (py - a.y()) * dy) * inverse2, 0.0, 1.0);
      const double ex = px - (a.x() + t * dx);
      const double ey = py - (a.y() + t * dy);
      const double distance2 = ex * ex + ey * ey;
      if (distance2 >= reach2) continue;
      if (pattern.Period > 0 && std::fmod(arcStart + t * length, pattern.Period) > pattern.On) continue;
      if (!m_antialiased) {
        reinterpret_cast<QRgb*>(m_bits + static_cast<qsizetype>(y) * m_stride)[x] = m_solid;
        continue;
      }
      Cover(x, y, distance2 <= whole2 ? 1.0 : std::min(1.0, reach - std::sqrt(distance2)));
    }
  }
}

// A capsule meets a row in one interval: the union of the band around the segment (within the
// segment's own length) and the discs at its ends.
void CurveRasterizer::SolidSpans(QPointF a, QPointF b, double radius) {
  const double dx = b.x() - a.x();
  const double dy = b.y() - a.y();
  const double length2 = dx * dx + dy * dy;
  const double length = std::sqrt(length2);
  const int top = std::max(0, static_cast<int>(std::ceil(std::min(a.y(), b.y()) - radius - 0.5)));
  const int bottom = std::min(m_height - 1, static_cast<int>(std::floor(std::max(a.y(), b.y()) + radius - 0.5)));
  const double r2 = radius * radius;
  for (int y = top; y <= bottom; ++y) {
    const double py = y + 0.5;
    double from = std::numeric_limits<double>::infinity();
    double to = -from;
    const auto take = [&](double l, double r) {
      if (l <= r) from = std::min(from, l), to = std::max(to, r);
    };
    for (const QPointF& end : {a, b}) {
      const double h = py - end.y();
      if (h * h <= r2) {
        const double w = std::sqrt(r2 - h * h);
        take(end.x() - w, end.x() + w);
      }
    }
    if (length > 0) {
      // The band: |cross| <= radius * length; the slab: 0 <= projection <= length^2.
      double bandFrom = -std::numeric_limits<double>::infinity(), bandTo = -bandFrom;
      if (dy != 0) {
        const double base = a.x() + (py - a.y()) * dx / dy;
        const double half = radius * length / std::abs(dy);
        bandFrom = base - half, bandTo = base + half;
      } else if (std::abs(py - a.y()) > radius) {
        bandFrom = 1, bandTo = 0;  // the row misses a horizontal band
      }
      // Away from the segment's ends the slab holds the band's whole row, with room to spare:
      // the row's projections onto the segment are checked by products alone, and the slab's
      // two divisions are left out. The room (far more than rounding) keeps the result exactly
      // what the slab would give.
      bool withinSlab = false;
      if (dx != 0 && dy != 0) {
        const double room = 1e-6 * (length + radius) * (length + radius);
        const double across = (py - a.y()) * dy;
        const double pFrom = (bandFrom - a.x()) * dx + across, pTo = (bandTo - a.x()) * dx + across;
        withinSlab = std::min(pFrom, pTo) >= room && std::max(pFrom, pTo) <= length2 - room;
      }
      if (withinSlab) {
        take(bandFrom, bandTo);
      } else {
        double slabFrom = -std::numeric_limits<double>::infinity(), slabTo = -slabFrom;
        if (dx != 0) {
          const double s0 = a.x() - (py - a.y()) * dy / dx;
          const double s1 = a.x() + (length2 - (py - a.y()) * dy) / dx;
          slabFrom = std::min(s0, s1), slabTo = std::max(s0, s1);
        } else {
          const double t = (py - a.y()) * dy;
          if (t < 0 || t > length2) slabFrom = 1, slabTo = 0;
        }
        take(std::max(bandFrom, slabFrom), std::min(bandTo, slabTo));
      }
    }
    if (!(from <= to)) continue;
    // Pixels whose centres x + 0.5 lie in [from, to].
    const int x0 = std::max(0, static_cast<int>(std::ceil(from - 0.5)));
    const int x1 = std::min(m_width - 1, static_cast<int>(std::floor(to - 0.5)));
    if (x0 > x1) continue;
    QRgb* row = reinterpret_cast<QRgb*>(m_bits + static_cast<qsizetype>(y) * m_stride);
    std::fill(row + x0, row + x1 + 1, m_solid);
  }
}

void CurveRasterizer::Blend(QColor color) {
  const QRgb source = color.rgba();
  const int sr = qRed(source), sg = qGreen(source), sb = qBlue(source), sa = qAlpha(source);
  const bool opaque = m_image.format() == QImage::Format_RGB32;
  // Rows of 32-bit pixels are packed whenever the image owns its memory, and then a pixel's index
  // is its place in memory too: no division by the width for every pixel.
  const bool packed = m_stride == static_cast<qsizetype>(m_width) * 4;
  const auto pixelAt = [&](std::uint32_t at) {
    if (packed) return reinterpret_cast<QRgb*>(m_bits) + at;
    const std::uint32_t row = at / static_cast<std::uint32_t>(m_width);
    return reinterpret_cast<QRgb*>(m_bits + static_cast<qsizetype>(row) * m_stride) + (at - row * static_cast<std::uint32_t>(m_width));
  };
  // The pixels are read here for the first time, in the order the segments touched them: one
  // row after another where a curve is steep. Asking for them a few pixels ahead hides most of
  // the wait for memory.
  constexpr std::size_t kAhead = 16;
  const std::size_t count = m_touched.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i + kAhead < count) __builtin_prefetch(pixelAt(m_touched[i + kAhead]), 1);
    const std::uint32_t at = m_touched[i];
    const int alpha = static_cast<int>(m_cells[at] & 0xFF) * sa / 255;
    if (alpha == 0) continue;
    QRgb* pixel = pixelAt(at);
    const QRgb d = *pixel;
    const int inverse = 255 - alpha;
    // Premultiplied source over destination.
    const int r = (sr * alpha + qRed(d) * inverse + 127) / 255;
    const int g = (sg * alpha + qGreen(d) * inverse + 127) / 255;
    const int b = (sb * alpha + qBlue(d) * inverse + 127) / 255;
    const int a = opaque ? 255 : alpha + (qAlpha(d) * inverse + 127) / 255;
    *pixel = qRgba(r, g, b, a);
  }
}

}  // namespace plot2d
