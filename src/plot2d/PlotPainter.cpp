#include "PlotPainter.h"

#include "SegmentClip.h"

#include "render/AxisTicks.h"
#include "CurveRasterizer.h"
#include "render/Parallel.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace plot2d {

namespace {

// Lengths in pixels at a device pixel ratio of 1; the painter scales them by PlotStyle::Scale.
constexpr double kTick = 4;
constexpr double kLabelGap = 4;

QFont NumberFont(double scale) {
  QFont font;
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(12 * scale))));
  return font;
}

// A number as it is printed: with a true minus sign, which is as wide as the plus and the digits.
QString Printed(QString label) { return label.replace(u'-', QChar(0x2212)); }

QColor WithAlpha(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color;
}


}  // namespace

PlotPainter::PlotPainter(const ViewTransform& view, const PlotStyle& style) : m_view(view), m_style(style) {}

QTransform PlotPainter::ToPixels() const {
  const double sx = 1 / m_view.XPerPixel();
  const double sy = 1 / m_view.YPerPixel();
  return QTransform(sx, 0, 0, -sy, -m_view.XMin() * sx, m_view.YMax() * sy);
}

double PlotPainter::XAxisPixel() const {
  if (m_view.YMin() > 0) return m_view.Height() - 0.5;
  if (m_view.YMax() < 0) return 0.5;
  return m_view.ToPixelY(0);
}

double PlotPainter::YAxisPixel() const {
  if (m_view.XMin() > 0) return 0.5;
  if (m_view.XMax() < 0) return m_view.Width() - 0.5;
  return m_view.ToPixelX(0);
}

double PlotPainter::XStep(const QFontMetricsF& metrics) const {
  // The step depends on how wide the labels are, and the labels on the step: settle it twice.
  const double k = m_style.Scale;
  double step = render::AxisTicks::StepFor(m_view.XMax() - m_view.XMin(), m_view.Width(), 80 * k);
  for (int round = 0; round < 3; ++round) {
    double widest = 0;
    for (const double v : {m_view.XMin(), m_view.XMax(), -step, step}) {
      widest = std::max(widest, metrics.horizontalAdvance(Printed(render::AxisTicks::Label(std::round(v / step) * step, step))));
    }
    step = render::AxisTicks::StepFor(m_view.XMax() - m_view.XMin(), m_view.Width(), std::max(48.0 * k, widest + 18 * k));
  }
  return step;
}

double PlotPainter::YStep(const QFontMetricsF& metrics) const {
  return render::AxisTicks::StepFor(m_view.YMax() - m_view.YMin(), m_view.Height(), std::max(36.0 * m_style.Scale, metrics.height() * 2.4));
}

void PlotPainter::Paint(QPainter& painter, const Drawing& drawing) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  // Clipped to the view: the shaded sides of curves reach far beyond it, and the raster engine is
  // slow to fill what it has not been told to leave out.
  painter.setClipRect(QRectF(0, 0, m_view.Width(), m_view.Height()));
  painter.setFont(NumberFont(m_style.Scale));
  const QFontMetricsF metrics(painter.font());
  const double xStep = XStep(metrics);
  const double yStep = YStep(metrics);
  if (QImage* device = DirectImage(painter)) {
    // Each band of rows by a painter of its own, on both cores. A painter moved by whole rows
    // and clipped to its band gives every pixel the value one painter gives it.
    const int bandHeight = (m_view.Height() + m_bands - 1) / m_bands;
    render::ParallelFor(static_cast<std::size_t>(m_bands), [&](std::size_t band) {
      const int top = static_cast<int>(band) * bandHeight;
      const int height = std::min(bandHeight, m_view.Height() - top);
      if (height <= 0) return;
      QImage rows(device->bits() + static_cast<qsizetype>(top) * device->bytesPerLine(), device->width(), height,
                  device->bytesPerLine(), device->format());
      QPainter bandPainter(&rows);
      bandPainter.setRenderHints(painter.renderHints());
      bandPainter.translate(0, -top);
      bandPainter.setClipRect(QRectF(0, 0, m_view.Width(), m_view.Height()));
      Backdrop(bandPainter, drawing, xStep, yStep);
    });
  } else {
    Backdrop(painter, drawing, xStep, yStep);
  }
  if (m_style.ShowNumbers) Numbers(painter, xStep, yStep);
  Curves(painter, drawing);
  Dots(painter, drawing);
  if (m_style.ShowIntegral) Labels(painter, drawing);
  if (m_style.ShowOuterFrame) {
    painter.setPen(QPen(m_style.Axis, m_style.Scale));
    painter.setBrush(Qt::NoBrush);
    const double inset = m_style.Scale / 2;
    painter.drawRect(QRectF(inset, inset, m_view.Width() - 2 * inset, m_view.Height() - 2 * inset));
  }
  painter.restore();
}

// What lies under the numbers and the curves: the background, the grid, the shaded regions and
// the axes.
void PlotPainter::Backdrop(QPainter& painter, const Drawing& drawing, double xStep, double yStep) const {
  if (!m_style.TransparentBackground) painter.fillRect(QRectF(0, 0, m_view.Width(), m_view.Height()), m_style.Back);
  if (m_style.ShowGrid) Grid(painter, xStep, yStep);
  for (const Drawing::Mask& mask : drawing.Masks) {
    const QRectF target(m_view.ToPixel(mask.Area.left(), mask.Area.top()), m_view.ToPixel(mask.Area.right(), mask.Area.bottom()));
    painter.drawImage(target.normalized(), mask.Image);
  }
  painter.setPen(Qt::NoPen);
  for (const Drawing::Fill& fill : drawing.Fills) {
    painter.setBrush(fill.Color);
    painter.drawPath(ToPixels().map(fill.Path));
  }
  if (m_style.ShowAxis) Axes(painter, xStep, yStep);
}

// The image the painter paints on, when it may be written to directly: of the view's size and
// untransformed. The raster engine draws at once, so its pixels are always up to date.
QImage* PlotPainter::DirectImage(QPainter& painter) const {
  auto* device = dynamic_cast<QImage*>(painter.device());
  const bool direct = device && CurveRasterizer::CanDrawInto(*device) && device->size() == QSize(m_view.Width(), m_view.Height()) &&
                      device->devicePixelRatio() == 1 && painter.transform().isIdentity();
  return direct ? device : nullptr;
}

void PlotPainter::Grid(QPainter& painter, double xStep, double yStep) const {
  // divisor 5 gives the minor grid between the major lines; each level is one call.
  const auto lines = [&](int divisor, int alpha) {
    std::vector<QLineF> batch;
    for (const double x : render::AxisTicks::Values(m_view.XMin(), m_view.XMax(), xStep / divisor)) {
      const double px = std::round(m_view.ToPixelX(x)) + 0.5;
      batch.emplace_back(QPointF(px, 0), QPointF(px, m_view.Height()));
    }
    for (const double y : render::AxisTicks::Values(m_view.YMin(), m_view.YMax(), yStep / divisor)) {
      const double py = std::round(m_view.ToPixelY(y)) + 0.5;
      batch.emplace_back(QPointF(0, py), QPointF(m_view.Width(), py));
    }
    painter.setPen(QPen(WithAlpha(m_style.Axis, alpha), std::max(1.0, std::round(m_style.Scale))));
    painter.drawLines(batch.data(), static_cast<int>(batch.size()));
  };
  painter.setRenderHint(QPainter::Antialiasing, false);
  lines(5, 18);
  lines(1, 48);
  painter.setRenderHint(QPainter::Antialiasing, true);
}

void PlotPainter::Axes(QPainter& painter, double xStep, double yStep) const {
  const double ax = XAxisPixel();
  const double ay = YAxisPixel();
  painter.setPen(QPen(m_style.Axis, 1.2 * m_style.Scale));
  const double tick = kTick * m_style.Scale;
  painter.drawLine(QPointF(0, ax), QPointF(m_view.Width(), ax));
  painter.drawLine(QPointF(ay, 0), QPointF(ay, m_view.Height()));
  for (const double x : render::AxisTicks::Values(m_view.XMin(), m_view.XMax(), xStep)) {
    const double px = m_view.ToPixelX(x);
    painter.drawLine(QPointF(px, ax - tick), QPointF(px, ax + tick));
  }
  for (const double y : render::AxisTicks::Values(m_view.YMin(), m_view.YMax(), yStep)) {
    const double py = m_view.ToPixelY(y);
    painter.drawLine(QPointF(ay - tick, py), QPointF(ay + tick, py));
  }
}

void PlotPainter::Numbers(QPainter& painter, double xStep, double yStep) const {
  const QFontMetricsF metrics(painter.font());
  const double ax = XAxisPixel();
  const double ay = YAxisPixel();
  const double gap = kLabelGap * m_style.Scale;
  painter.setPen(m_style.Axis);
  // Below the x axis unless it runs along the bottom edge; left of the y axis unless it runs
  // along the left edge.
  const bool below = ax + gap + metrics.height() < m_view.Height();
  const double labelTop = below ? ax + gap : ax - gap - metrics.height();
  for (const double x : render::AxisTicks::Values(m_view.XMin(), m_view.XMax(), xStep)) {
    if (x == 0 && m_view.XMin() < 0 && m_view.XMax() > 0) continue;
    const QString text = Printed(render::AxisTicks::Label(x, xStep));
    const double width = metrics.horizontalAdvance(text);
    const double left = m_view.ToPixelX(x) - width / 2;
    // A number that would stick out of the picture is left out rather than pushed aside.
    if (left < 1 || left + width > m_view.Width() - 1) continue;
    painter.drawText(QPointF(left, labelTop + metrics.ascent()), text);
  }
  // Beside the y axis the numbers keep clear of the ticks, which reach out across it.
  const double side = gap + kTick * m_style.Scale;
  const bool leftOfAxis = ay - side - metrics.horizontalAdvance(Printed(QStringLiteral("-00.0"))) > 0;
  for (const double y : render::AxisTicks::Values(m_view.YMin(), m_view.YMax(), yStep)) {
    if (y == 0 && m_view.YMin() < 0 && m_view.YMax() > 0) continue;
    const QString text = Printed(render::AxisTicks::Label(y, yStep));
    const double width = metrics.horizontalAdvance(text);
    const double left = leftOfAxis ? ay - side - width : ay + side;
    const double baseline = m_view.ToPixelY(y) + metrics.ascent() / 2 - 1;
    if (baseline - metrics.ascent() < 1 || baseline + metrics.descent() > m_view.Height() - 1) continue;
    painter.drawText(QPointF(left, baseline), text);
  }
  if (m_view.XMin() < 0 && m_view.XMax() > 0 && m_view.YMin() < 0 && m_view.YMax() > 0) {
    painter.drawText(QPointF(ay - side - metrics.horizontalAdvance(QStringLiteral("0")), labelTop + metrics.ascent()),
                     QStringLiteral("0"));
  }
}

// Curves go through the rasterizer, one band per core. When the painter paints on an image the
// rasterizer can write, of the view's size and untransformed, they go straight into it (the raster
// engine draws at once, so its pixels are up to date, and the clip is the view, which the
// rasterizer keeps to by itself); otherwise into a transparent layer that the painter then draws.
void PlotPainter::Curves(QPainter& painter, const Drawing& drawing) const {
  if (drawing.Curves.empty()) return;
  std::vector<std::vector<QPolygonF>> lines(drawing.Curves.size());
  for (size_t c = 0; c < drawing.Curves.size(); ++c) {
    for (const QPolygonF& piece : drawing.Curves[c].Pieces) {
      for (QPolygonF& run : Visible(piece)) lines[c].push_back(std::move(run));
    }
  }
  QImage* device = DirectImage(painter);
  const bool direct = device != nullptr;
  QImage layer;
  if (!direct) {
    layer = QImage(m_view.Width(), m_view.Height(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
  }
  QImage& target = direct ? *device : layer;
  const int bandHeight = (m_view.Height() + m_bands - 1) / m_bands;
  uchar* bits = target.bits();
  render::ParallelFor(static_cast<std::size_t>(m_bands), [&](std::size_t band) {
    const int top = static_cast<int>(band) * bandHeight;
    const int height = std::min(bandHeight, m_view.Height() - top);
    if (height <= 0) return;
    QImage rows(bits + static_cast<qsizetype>(top) * target.bytesPerLine(), target.width(), height, target.bytesPerLine(),
                target.format());
    CurveRasterizer rasterizer(rows, top);
    rasterizer.SetAntialiased(m_style.Antialiased);
    for (size_t c = 0; c < drawing.Curves.size(); ++c) {
      rasterizer.Stroke(lines[c], drawing.Curves[c].Color, m_style.Thickness, drawing.Curves[c].Line);
    }
  });
  if (!direct) painter.drawImage(QPointF(0, 0), layer);
}

std::vector<QPolygonF> PlotPainter::Visible(const QPolygonF& piece) const {
  std::vector<QPolygonF> runs;
  if (piece.size() < 2) return runs;
  const double margin = m_style.Thickness + 2;
  const QRectF bounds(-margin, -margin, m_view.Width() + 2 * margin, m_view.Height() + 2 * margin);
  QPolygonF run;
  QPointF previous = m_view.ToPixel(piece[0].x(), piece[0].y());
  for (qsizetype i = 1; i < piece.size(); ++i) {
    const QPointF current = m_view.ToPixel(piece[i].x(), piece[i].y());
    QPointF a = previous, b = current;
    if (ClipSegment(a, b, bounds)) {
      if (run.isEmpty() || run.last() != a) {
        if (run.size() > 1) runs.push_back(run);
        run.clear();
        run << a;
      }
      run << b;
    } else if (run.size() > 1) {
      runs.push_back(run);
      run.clear();
    } else {
      run.clear();
    }
    previous = current;
  }
  if (run.size() > 1) runs.push_back(run);
  return runs;
}

void PlotPainter::Dots(QPainter& painter, const Drawing& drawing) const {
  const double radius = 2.5 * m_style.Scale + m_style.Thickness;
  for (const Drawing::Dot& dot : drawing.Dots) {
    const QPointF at = m_view.ToPixel(dot.At.x(), dot.At.y());
    if (!std::isfinite(at.x()) || !std::isfinite(at.y())) continue;
    painter.setPen(QPen(dot.Color, 1.6 * m_style.Scale));
    painter.setBrush(dot.Filled ? QBrush(dot.Color) : QBrush(m_style.TransparentBackground ? Qt::white : m_style.Back));
    painter.drawEllipse(at, radius, radius);
  }
}

void PlotPainter::Labels(QPainter& painter, const Drawing& drawing) const {
  const QFontMetricsF metrics(painter.font());
  for (const Drawing::Label& label : drawing.Labels) {
    const QPointF at = m_view.ToPixel(label.At.x(), label.At.y());
    const QPointF under = m_view.ToPixel(label.Under.x(), label.Under.y());
    if (!std::isfinite(at.x()) || !std::isfinite(at.y())) continue;
    const double width = metrics.horizontalAdvance(Printed(label.Text));
    const double pad = 4 * m_style.Scale;
    QRectF box(at.x() - width / 2 - pad, 0, width + 2 * pad, metrics.height() + pad);
    box.moveCenter(QPointF(box.center().x(), std::isfinite(under.y()) ? (at.y() + under.y()) / 2 : at.y()));
    // Off the x axis and its numbers, to the side where the middle lies.
    const double axis = XAxisPixel();
    const double reach = metrics.height() + 2 * kLabelGap * m_style.Scale;
    if (box.bottom() > axis - reach && box.top() < axis + reach) {
      if (box.center().y() < axis) box.moveBottom(axis - reach);
      else box.moveTop(axis + reach);
    }
    box.moveLeft(std::clamp(box.left(), 2.0, m_view.Width() - box.width() - 2));
    box.moveTop(std::clamp(box.top(), 2.0, m_view.Height() - box.height() - 2));
    painter.setPen(Qt::NoPen);
    painter.setBrush(WithAlpha(Qt::white, 210));
    painter.drawRoundedRect(box, 3 * m_style.Scale, 3 * m_style.Scale);
    painter.setPen(label.Color);
    painter.drawText(box, Qt::AlignCenter, Printed(label.Text));
  }
}

}  // namespace plot2d
