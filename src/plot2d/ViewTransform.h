#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>

namespace plot2d {

// The mapping between the plot's coordinates and the picture's pixels. A range given the wrong
// way round is taken the right way round, and one of zero width is widened, so nothing divides by
// zero.
class ViewTransform {
public:
  ViewTransform(double xMin, double xMax, double yMin, double yMax, QSize size);

  double XMin() const { return m_xMin; }
  double XMax() const { return m_xMax; }
  double YMin() const { return m_yMin; }
  double YMax() const { return m_yMax; }
  int Width() const { return m_width; }
  int Height() const { return m_height; }

  double ToPixelX(double x) const { return (x - m_xMin) * m_xScale; }
  double ToPixelY(double y) const { return (m_yMax - y) * m_yScale; }
  QPointF ToPixel(double x, double y) const { return {ToPixelX(x), ToPixelY(y)}; }
  double ToDataX(double px) const { return m_xMin + px / m_xScale; }
  double ToDataY(double py) const { return m_yMax - py / m_yScale; }
  // Plot units per pixel.
  double XPerPixel() const { return 1 / m_xScale; }
  double YPerPixel() const { return 1 / m_yScale; }

private:
  double m_xMin, m_xMax, m_yMin, m_yMax;
  int m_width, m_height;
  double m_xScale, m_yScale;
};

}  // namespace plot2d
