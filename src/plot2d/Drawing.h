#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

namespace plot2d {

// What a redraw found, in plot coordinates, ready to be painted at any size.
struct Drawing {
  enum class Style : std::uint8_t { Solid, Dashed, Dotted };
  struct Curve {
    std::vector<QPolygonF> Pieces;
    QColor Color;
    Style Line = Style::Solid;
    int Row = 0;   // the row it was added for, 0 where it is no row's
    // For y = f(x), the function, so that points found on the picture can be made exact.
    std::function<double(double)> Explicit;
    // Where known, a function of (x, y) that is zero on the curve and changes sign across it.
    std::function<double(double, double)> Zero;
    // For polar and parametric curves, the point at each value of the parameter, over From to To.
    std::function<QPointF(double)> PointAt;
    double From = 0, To = 0;
    // 1 and 2 for the first and second boundary of an inequality's region, which follow each
    // other: where they meet are the region's corners.
    int Edge = 0;
  };
  struct Fill {
    QPainterPath Path;
    QColor Color;
  };
  // A region known cell by cell (the side of an implicit curve), as an image over Area.
  struct Mask {
    QImage Image;
    QRectF Area;
  };
  struct Dot {
    QPointF At;
    QColor Color;
    bool Filled = true;
  };
  // A text set over the picture, in the middle between At and Under (the top and the bottom of
  // what it describes), clear of the x axis and its numbers.
  struct Label {
    QPointF At;
    QString Text;
    QColor Color;
    QPointF Under;
  };

  std::vector<Fill> Fills;
  std::vector<Mask> Masks;
  std::vector<Curve> Curves;
  std::vector<Dot> Dots;
  std::vector<Label> Labels;
};

}  // namespace plot2d
