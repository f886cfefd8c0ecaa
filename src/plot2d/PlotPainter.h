#pragma once

#include <algorithm>

#include "Drawing.h"
#include "ViewTransform.h"

#include <QColor>
#include <QPainter>

namespace plot2d {

struct PlotStyle {
  bool ShowAxis = true;
  bool ShowGrid = true;
  bool ShowNumbers = true;
  bool ShowOuterFrame = true;
  bool ShowIntegral = true;
  bool TransparentBackground = false;
  QColor Back = Qt::white;
  QColor Axis = Qt::black;
  double Thickness = 2;
  // Curves are antialiased unless the plot is drawn at low quality.
  bool Antialiased = true;
  // Device pixels per logical pixel: pens, text, ticks and dots grow with it, so that a picture
  // for a high-density screen is as sharp as the screen.
  double Scale = 1;
};

// Paints a drawing into any QPainter at the view's size: background, grid, shaded regions, axes
// and their numbers, curves, dots, labels and frame, antialiased.
class PlotPainter {
public:
  PlotPainter(const ViewTransform& view, const PlotStyle& style);

  void Paint(QPainter& painter, const Drawing& drawing) const;
  // On an image of the view's size the picture is painted in this many bands of rows, shared
  // among the cores; any number gives the same picture.
  void SetBands(int bands) { m_bands = std::max(1, bands); }

  // Where the axes stand, in pixels: through the origin, or along the nearest edge when the
  // origin is out of view.
  double XAxisPixel() const;
  double YAxisPixel() const;

private:
  void Grid(QPainter& painter, double xStep, double yStep) const;
  void Axes(QPainter& painter, double xStep, double yStep) const;
  void Numbers(QPainter& painter, double xStep, double yStep) const;
  void Backdrop(QPainter& painter, const Drawing& drawing, double xStep, double yStep) const;
  QImage* DirectImage(QPainter& painter) const;
  void Curves(QPainter& painter, const Drawing& drawing) const;
  // A piece in pixels, cut to what lies within the view and a margin for the pen.
  std::vector<QPolygonF> Visible(const QPolygonF& piece) const;
  void Dots(QPainter& painter, const Drawing& drawing) const;
  void Labels(QPainter& painter, const Drawing& drawing) const;
  double XStep(const QFontMetricsF& metrics) const;
  double YStep(const QFontMetricsF& metrics) const;
  QTransform ToPixels() const;

  const ViewTransform& m_view;
  PlotStyle m_style;
  int m_bands = 2;  // one for each core of the machines it is made for
};

}  // namespace plot2d
