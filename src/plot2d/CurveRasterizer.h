#pragma once

#include "Drawing.h"

#include <QColor>
#include <QImage>
#include <QPolygonF>

#include <cstdint>
#include <vector>

namespace plot2d {

// Strokes thick antialiased polylines straight into an image, many times faster than a general
// path stroker for the long curves of a plot. Each segment is a capsule whose coverage comes
// from the distance to the segment; within one curve a pixel keeps the largest coverage any of
// its segments gives it, so joints are not darkened twice, and then it is blended once.
class CurveRasterizer {
public:
  // target must be Format_ARGB32_Premultiplied or Format_RGB32. Its first row stands for row
  // firstRow of the picture, so that two rasterizers can each draw one band of it.
  explicit CurveRasterizer(QImage& target, int firstRow = 0);

  static bool CanDrawInto(const QImage& image);

  // Without antialiasing a pixel is in or out and takes the colour at once: much faster, for
  // drawing at low quality.
  void SetAntialiased(bool on) { m_antialiased = on; }

  // Polylines in pixels, already clipped to (a margin around) the image.
  void Stroke(const std::vector<QPolygonF>& lines, QColor color, double width, Drawing::Style style);

private:
  struct Pattern {
    double On = 0;      // 0 for a solid line
    double Period = 0;
  };

  void Segment(QPointF a, QPointF b, double radius, double arcStart, const Pattern& pattern);
  // The aliased solid case: row by row, the one span of pixel centres within radius.
  void SolidSpans(QPointF a, QPointF b, double radius);
  void Cover(int x, int y, double coverage);
  void Blend(QColor color);

  QImage& m_image;
  uchar* m_bits;       // taken once: scanLine() checks for sharing on every call
  qsizetype m_stride;
  int m_width, m_height;
  int m_firstRow;
  // Per pixel, which curve last wrote it (the upper 24 bits) and the coverage that curve gives it
  // (the lowest 8): one memory access where two arrays would take two.
  static constexpr std::uint32_t kStamps = 1u << 24;
  std::vector<std::uint32_t> m_cells;
  std::vector<std::uint32_t> m_touched;  // pixels of the current curve
  std::uint32_t m_curve = 0;
  bool m_antialiased = true;
  QRgb m_solid = 0;  // the colour of an aliased curve, premultiplied
};

}  // namespace plot2d
