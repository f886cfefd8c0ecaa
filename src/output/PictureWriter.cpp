#include "PictureWriter.h"

#include "plot2d/SegmentClip.h"

#include "core/RuntimeError.h"
#include "plot2d/PlotPainter.h"

#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <functional>

namespace output {

namespace {

using plot2d::Drawing;
using plot2d::PlotStyle;
using plot2d::ViewTransform;

constexpr double kPixelsPerInch = 96;  // 15 twips to the pixel
constexpr int kCannotWrite = 75;       // the "Path/File access error" of a picture that cannot be written

// Calls use with the scene at its own size in logical pixels: the scene itself, or, when it is
// shown on a dense screen, a copy sampled again at a ratio of 1.
void WithFlat(const plot2d::Plot& scene, const std::function<void(const plot2d::Plot&)>& use) {
  if (scene.DevicePixelRatio() == 1) return use(scene);
  plot2d::Plot flat = scene;
  flat.OnProgress = nullptr;
  flat.OnFinished = nullptr;
  flat.SetDevicePixelRatio(1);
  flat.Redraw();
  use(flat);
}



bool Finite(QPointF p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

// A curve's pieces in pixels, cut to the view and a margin for the pen: a vector file keeps
// coordinates of a size that every reader takes, even where a curve runs off to infinity.
QPainterPath CurvePath(const ViewTransform& view, const std::vector<QPolygonF>& pieces, double margin) {
  const QRectF bounds(-margin, -margin, view.Width() + 2 * margin, view.Height() + 2 * margin);
  QPainterPath path;
  for (const QPolygonF& piece : pieces) {
    QPolygonF run;
    const auto flush = [&] {
      if (run.size() > 1) path.addPolygon(run);
      run.clear();
    };
    for (qsizetype i = 1; i < piece.size(); ++i) {
      QPointF a = view.ToPixel(piece[i - 1].x(), piece[i - 1].y());
      QPointF b = view.ToPixel(piece[i].x(), piece[i].y());
      if (!Finite(a) || !Finite(b) || !plot2d::ClipSegment(a, b, bounds)) {
        flush();
        continue;
      }
      if (run.isEmpty() || run.last() != a) {
        flush();
        run << a;
      }
      run << b;
    }
    flush();
  }
  return path;
}

void Curves(QPainter& painter, const ViewTransform& view, const PlotStyle& style, const std::vector<Drawing::Curve>& curves) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setClipRect(QRectF(0, 0, view.Width(), view.Height()));
  painter.setBrush(Qt::NoBrush);
  for (const Drawing::Curve& curve : curves) {
    QPen pen(curve.Color, style.Thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    // The patterns of the plot's own dashes and dots, in multiples of the width.
    if (curve.Line == Drawing::Style::Dashed) pen.setCapStyle(Qt::FlatCap), pen.setDashPattern({4, 6});
    if (curve.Line == Drawing::Style::Dotted) pen.setCapStyle(Qt::FlatCap), pen.setDashPattern({1, 3});
    painter.setPen(pen);
    painter.drawPath(CurvePath(view, curve.Pieces, style.Thickness + 2));
  }
  painter.restore();
}

// The points, as the plot's painter draws them at a ratio of 1.
void Dots(QPainter& painter, const ViewTransform& view, const PlotStyle& style, const std::vector<Drawing::Dot>& dots) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  const double radius = 2.5 + style.Thickness;
  for (const Drawing::Dot& dot : dots) {
    const QPointF at = view.ToPixel(dot.At.x(), dot.At.y());
    if (!Finite(at)) continue;
    painter.setPen(QPen(dot.Color, 1.6));
    painter.setBrush(dot.Filled ? QBrush(dot.Color) : QBrush(style.TransparentBackground ? Qt::white : style.Back));
    painter.drawEllipse(at, radius, radius);
  }
  painter.restore();
}

// The drawing in three layers, so that the curves and dots, which the plot's painter rasterises,
// are paths here: what lies under the curves (background, grid, regions, axes, numbers) and what
// lies over them (labels, frame) are painted by the plot's own painter.
void PaintVectors(QPainter& painter, const plot2d::Plot& scene) {
  const ViewTransform view = scene.View();
  const PlotStyle style = scene.StyleAt(1);
  const Drawing& drawing = scene.LastDrawing();
  Drawing under;
  under.Fills = drawing.Fills;
  under.Masks = drawing.Masks;
  PlotStyle underStyle = style;
  underStyle.ShowOuterFrame = false;
  plot2d::PlotPainter(view, underStyle).Paint(painter, under);
  Curves(painter, view, style, drawing.Curves);
  Dots(painter, view, style, drawing.Dots);
  Drawing over;
  over.Labels = drawing.Labels;
  PlotStyle overStyle = style;
  overStyle.ShowGrid = overStyle.ShowAxis = overStyle.ShowNumbers = false;
  overStyle.TransparentBackground = true;  // the background is painted already
  plot2d::PlotPainter(view, overStyle).Paint(painter, over);
}

void OpenForWriting(QFile& file) {
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) throw core::RuntimeError(kCannotWrite, file.errorString());
}

void Finish(QPainter& painter, QFile& file) {
  painter.end();
  file.close();
  if (file.error() != QFileDevice::NoError) throw core::RuntimeError(kCannotWrite, file.errorString());
}

using Painting = std::function<void(QPainter&)>;

void Svg(const QString& name, QSize size, const Painting& paint) {
  QFile file(name);
  OpenForWriting(file);
  QSvgGenerator svg;
  svg.setOutputDevice(&file);
  svg.setSize(size);
  svg.setViewBox(QRect(QPoint(0, 0), size));
  svg.setResolution(static_cast<int>(kPixelsPerInch));
  svg.setTitle(QStringLiteral("Quillograph"));
  svg.setDescription(QStringLiteral("A graph drawn with Quillograph"));
  QPainter painter;
  if (!painter.begin(&svg)) throw core::RuntimeError(kCannotWrite, QStringLiteral("The SVG file could not be started."));
  paint(painter);
  Finish(painter, file);
}

void Pdf(const QString& name, QSize size, const Painting& paint) {
  QFile file(name);
  OpenForWriting(file);
  QPdfWriter pdf(&file);
  pdf.setCreator(QStringLiteral("Quillograph"));
  pdf.setTitle(QStringLiteral("Quillograph"));
  pdf.setResolution(static_cast<int>(kPixelsPerInch));
  pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
  pdf.setPageSize(QPageSize(QSizeF(size.width() / kPixelsPerInch, size.height() / kPixelsPerInch), QPageSize::Inch,
                            QStringLiteral("Picture"), QPageSize::ExactMatch));
  QPainter painter;
  if (!painter.begin(&pdf)) throw core::RuntimeError(kCannotWrite, QStringLiteral("The PDF file could not be started."));
  // The page is the picture's size in whole device units; the drawing is stretched onto it.
  painter.scale(pdf.width() / static_cast<double>(size.width()), pdf.height() / static_cast<double>(size.height()));
  paint(painter);
  Finish(painter, file);
}

QSize Positive(QSize size) { return size.expandedTo(QSize(1, 1)); }

}  // namespace

QImage FlatPicture(const plot2d::Plot& scene) {
  QImage picture;
  WithFlat(scene, [&](const plot2d::Plot& flat) {
    picture = flat.Picture(flat.TransparentBackground() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  });
  picture.setDevicePixelRatio(1);
  return picture;
}

QImage FlatPicture(const plot3d::Plot3D& scene) {
  QImage picture = scene.Picture();
  if (scene.DevicePixelRatio() != 1 || picture.size() != scene.Size()) {
    plot3d::Plot3D flat = scene;
    flat.OnProgress = nullptr;
    flat.OnFinished = nullptr;
    flat.Cancelled = nullptr;
    flat.SetDevicePixelRatio(1);
    flat.Refresh();
    picture = flat.Picture();
  }
  picture.setDevicePixelRatio(1);
  return picture;
}

void WriteSvg(const plot2d::Plot& scene, const QString& name) {
  WithFlat(scene, [&](const plot2d::Plot& flat) {
    Svg(name, Positive(flat.Size()), [&](QPainter& painter) { PaintVectors(painter, flat); });
  });
}

void WriteSvg(const plot3d::Plot3D& scene, const QString& name) {
  const QImage picture = FlatPicture(scene);
  Svg(name, Positive(picture.size()), [&](QPainter& painter) { painter.drawImage(QPoint(0, 0), picture); });
}

void WritePdf(const plot2d::Plot& scene, const QString& name) {
  WithFlat(scene, [&](const plot2d::Plot& flat) {
    Pdf(name, Positive(flat.Size()), [&](QPainter& painter) { PaintVectors(painter, flat); });
  });
}

void WritePdf(const plot3d::Plot3D& scene, const QString& name) {
  const QImage picture = FlatPicture(scene);
  Pdf(name, Positive(picture.size()), [&](QPainter& painter) { painter.drawImage(QPoint(0, 0), picture); });
}

}  // namespace output
