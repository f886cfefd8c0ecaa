#include "Plot.h"

#include "mathlang/Derivative.h"
#include "render/Contrast.h"
#include "render/Parallel.h"
#include "render/PictureFile.h"
#include "PlotPainter.h"

#include "core/RuntimeError.h"


#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace plot2d {

namespace {

Drawing::Style StyleOf(bool hasLineStyle, std::int32_t lineStyle) {
  if (!hasLineStyle) return Drawing::Style::Solid;
  if (lineStyle == 1) return Drawing::Style::Dashed;
  if (lineStyle == 2) return Drawing::Style::Dotted;
  return Drawing::Style::Solid;
}

}  // namespace

Plot::Plot() = default;

QColor Plot::ColorOf(double value) {
  if (!std::isfinite(value)) return Qt::black;
  const auto v = static_cast<std::int64_t>(value) & 0xFFFFFF;
  return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF), static_cast<int>((v >> 16) & 0xFF));
}

void Plot::ClearAll(bool, bool, bool, bool, bool) {
  m_functions.clear();
  m_points.clear();
  m_integrals.clear();
  m_inequalities.clear();
  m_parametrics.clear();
  m_problems.clear();
  m_drawing = Drawing{};
}

void Plot::Remember(int row, const QString& what, const QString& problem) {
  if (!problem.isEmpty()) m_problems << QStringLiteral("%1 %2: %3").arg(what).arg(row).arg(problem);
}

void Plot::AddFunction(std::int16_t index, const QString& line, double color, bool option2, std::int32_t& kind,
                       bool option0, bool option3, bool hasLineStyle, std::int32_t lineStyle) {
  FunctionItem::Options options;
  options.Color = ColorOf(color);
  options.ShadeGreater = option0;
  options.ShadeLess = option2;
  options.EndDots = option3;
  options.Line = StyleOf(hasLineStyle, lineStyle);
  m_functions.emplace_back(index, line, options);
  const FunctionItem& item = m_functions.back();
  if (item.Kind() != 0) kind = item.Kind();
  Remember(index, QStringLiteral("row"), item.Problem());
}

void Plot::AddPoint(std::int16_t, double& a, double& b, std::int32_t form, double color, bool option3) {
  QPointF at(a, b);
  if (form == 2) at = QPointF(a * std::cos(b), a * std::sin(b));
  m_points.push_back({at, ColorOf(color), option3});
}

void Plot::AddIntegral(const QString& functionA, double min, double max, double color, bool& hasSecond,
                       QString& functionB) {
  m_integrals.emplace_back(functionA, hasSecond ? &functionB : nullptr, min, max, ColorOf(color));
  Remember(static_cast<int>(m_integrals.size()), QStringLiteral("integral"), m_integrals.back().Problem());
  m_integralMode = 1;
}

void Plot::AddInequality(const QString& first, double lineColor, double fillColor, bool hasSecond, const QString& second) {
  QColor fill = ColorOf(fillColor);
  fill.setAlpha(70);
  m_inequalities.emplace_back(first, hasSecond ? &second : nullptr, ColorOf(lineColor), fill);
  Remember(static_cast<int>(m_inequalities.size()), QStringLiteral("inequality"), m_inequalities.back().Problem());
}

void Plot::AddParametric(const QString& x, const QString& y, double min, double max, std::int32_t type, double color) {
  m_parametrics.emplace_back(x, y, min, max, type, ColorOf(color));
  Remember(static_cast<int>(m_parametrics.size()), QStringLiteral("parametric curve"), m_parametrics.back().Problem());
}

int Plot::QualityPercent() const {
  if (!std::isfinite(m_quality)) return 100;
  return std::clamp(static_cast<int>(std::lround(m_quality)), 1, 100);
}

void Plot::SetDevicePixelRatio(double ratio) {
  m_devicePixelRatio = std::isfinite(ratio) ? std::clamp(ratio, 1.0, 8.0) : 1.0;
}

QSize Plot::DeviceSize() const {
  return QSize(static_cast<int>(std::lround(m_size.width() * m_devicePixelRatio)),
               static_cast<int>(std::lround(m_size.height() * m_devicePixelRatio)));
}

ViewTransform Plot::View() const { return ViewTransform(m_xMin, m_xMax, m_yMin, m_yMax, DeviceSize()); }

namespace {

constexpr double kWhite = 16777215;

}  // namespace

QColor Plot::ShownBack() const {
  return m_darkDefaults && m_backColor == kWhite ? QColor(0x1a, 0x1d, 0x22) : ColorOf(m_backColor);
}

QColor Plot::ShownAxis() const {
  const QColor axis = ColorOf(m_axisColor);
  return m_darkDefaults && m_backColor == kWhite ? render::Contrast::ReadableOn(axis, ShownBack(), 4.5) : axis;
}

PlotStyle Plot::Style() const { return StyleAt(m_devicePixelRatio); }

PlotStyle Plot::StyleAt(double ratio) const {
  PlotStyle style = m_style;
  style.Back = ShownBack();
  style.Axis = ShownAxis();
  if (!std::isfinite(style.Thickness) || style.Thickness <= 0) style.Thickness = 1;
  style.Thickness = std::min(style.Thickness, 50.0) * ratio;
  style.Scale = ratio;
  style.Antialiased = QualityPercent() >= 50;
  return style;
}

namespace {

// xMin, xMax, yMin, yMax widened so that a unit has as many pixels across as up.
std::array<double, 4> EqualScaled(std::array<double, 4> range, QSize size) {
  const double width = size.width(), height = size.height();
  const double xSpan = range[1] - range[0], ySpan = range[3] - range[2];
  if (width <= 0 || height <= 0 || !std::isfinite(xSpan) || !std::isfinite(ySpan) || xSpan == 0 || ySpan == 0) return range;
  // Units per pixel on each axis; the axis with fewer is widened to the other's.
  const double xUnit = std::abs(xSpan) / width, yUnit = std::abs(ySpan) / height;
  if (xUnit < yUnit) {
    const double middle = range[0] + xSpan / 2, half = std::copysign(yUnit * width / 2, xSpan);
    range[0] = middle - half, range[1] = middle + half;
  } else if (yUnit < xUnit) {
    const double middle = range[2] + ySpan / 2, half = std::copysign(xUnit * height / 2, ySpan);
    range[2] = middle - half, range[3] = middle + half;
  }
  return range;
}

}  // namespace

void Plot::MakeScalesEqual() {
  const auto range = EqualScaled({m_xMin, m_xMax, m_yMin, m_yMax}, m_size);
  m_xMin = range[0], m_xMax = range[1], m_yMin = range[2], m_yMax = range[3];
}

bool Plot::AtDefaultRange() const {
  std::array<double, 4> fallback = {m_defaultXMin, m_defaultXMax, m_defaultYMin, m_defaultYMax};
  if (m_equalScales) fallback = EqualScaled(fallback, m_size);
  return std::array<double, 4>{m_xMin, m_xMax, m_yMin, m_yMax} == fallback;
}

void Plot::Redraw() {
  if (m_equalScales) MakeScalesEqual();
  const ViewTransform view = View();
  const int quality = QualityPercent();
  // Every item draws into a drawing of its own, on whichever core is free; the drawings are then
  // put together in the items' order, which is the order they are painted in.
  std::vector<std::function<void(Drawing&)>> jobs;
  // Implicit curves cost the most; they start first so that no core waits for one at the end.
  std::vector<std::size_t> heavyFirst;
  for (const InequalityItem& item : m_inequalities) jobs.push_back([&](Drawing& d) { item.Draw(view, quality, d); });
  if (m_style.ShowIntegral) {
    for (const IntegralItem& item : m_integrals) jobs.push_back([&](Drawing& d) { item.Draw(view, quality, d); });
  }
  for (const FunctionItem& item : m_functions) {
    if (item.Kind() == 4) heavyFirst.push_back(jobs.size());
    jobs.push_back([&](Drawing& d) { item.Draw(view, quality, d); });
  }
  for (const ParametricItem& item : m_parametrics) jobs.push_back([&](Drawing& d) { item.Draw(view, quality, d); });
  std::vector<bool> queued(jobs.size(), false);
  for (const std::size_t i : heavyFirst) queued[i] = true;
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    if (!queued[i]) heavyFirst.push_back(i);
  }
  if (OnProgress) OnProgress(0);
  std::vector<Drawing> parts(jobs.size());
  render::ParallelFor(jobs.size(), [&](std::size_t k) { jobs[heavyFirst[k]](parts[heavyFirst[k]]); });
  Drawing drawing;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Drawing& part = parts[i];
    std::move(part.Fills.begin(), part.Fills.end(), std::back_inserter(drawing.Fills));
    std::move(part.Masks.begin(), part.Masks.end(), std::back_inserter(drawing.Masks));
    std::move(part.Curves.begin(), part.Curves.end(), std::back_inserter(drawing.Curves));
    std::move(part.Dots.begin(), part.Dots.end(), std::back_inserter(drawing.Dots));
    std::move(part.Labels.begin(), part.Labels.end(), std::back_inserter(drawing.Labels));
    // Progress is told on the calling thread, as the parts are put together.
    if (OnProgress) OnProgress(static_cast<int>((i + 1) * 100 / parts.size()));
  }
  drawing.Dots.insert(drawing.Dots.end(), m_points.begin(), m_points.end());
  m_drawing = std::move(drawing);
  if (OnProgress) OnProgress(100);
  if (OnFinished) OnFinished();
}

void Plot::SetDefaultRange(double xMin, double xMax, double yMin, double yMax) {
  m_defaultXMin = xMin;
  m_defaultXMax = xMax;
  m_defaultYMin = yMin;
  m_defaultYMax = yMax;
}

void Plot::ResetRange() {
  m_xMin = m_defaultXMin;
  m_xMax = m_defaultXMax;
  m_yMin = m_defaultYMin;
  m_yMax = m_defaultYMax;
}

void Plot::ZoomIn() {
  const double cx = (m_xMin + m_xMax) / 2, cy = (m_yMin + m_yMax) / 2;
  const double hx = (m_xMax - m_xMin) / 4, hy = (m_yMax - m_yMin) / 4;
  m_xMin = cx - hx, m_xMax = cx + hx, m_yMin = cy - hy, m_yMax = cy + hy;
}

void Plot::ZoomOut() {
  const double cx = (m_xMin + m_xMax) / 2, cy = (m_yMin + m_yMax) / 2;
  const double hx = m_xMax - m_xMin, hy = m_yMax - m_yMin;
  m_xMin = cx - hx, m_xMax = cx + hx, m_yMin = cy - hy, m_yMax = cy + hy;
}

QString Plot::Derivative(const QString& text) const {
  const auto derivative = mathlang::Derivative(text);
  if (!derivative) throw core::RuntimeError(5, QStringLiteral("no derivative of \"%1\"").arg(text));
  return *derivative;
}

void Plot::Paint(QPainter& painter) const {
  const ViewTransform view = View();
  PlotPainter(view, Style()).Paint(painter, m_drawing);
}

QImage Plot::Picture(QImage::Format format) const {
  QImage image;
  DrawPicture(image, format);
  return image;
}

void Plot::DrawPicture(QImage& image, QImage::Format format) const {
  const QSize size = DeviceSize().expandedTo(QSize(1, 1));
  if (image.size() != size || image.format() != format) image = QImage(size, format);
  image.setDevicePixelRatio(1);
  image.fill(m_style.TransparentBackground && image.hasAlphaChannel() ? QColor(Qt::transparent) : ShownBack());
  {
    QPainter painter(&image);
    Paint(painter);
  }
  image.setDevicePixelRatio(m_devicePixelRatio);
}

void Plot::SavePicture(const QString& name, std::int32_t kind) {
  const QByteArray format = render::PictureFormat(name, kind);
  const bool alpha = format == "PNG" && m_style.TransparentBackground;
  // A saved picture has the scene's size, whatever screen the scene is shown on.
  const double ratio = m_devicePixelRatio;
  QImage image;
  if (ratio == 1 && !m_darkDefaults) {
    image = Picture(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  } else {
    Plot flat = *this;
    flat.OnProgress = nullptr;
    flat.OnFinished = nullptr;
    flat.SetDevicePixelRatio(1);
    flat.SetDarkDefaults(false);
    flat.Redraw();
    image = flat.Picture(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  }
  image.setDevicePixelRatio(1);
  render::WritePicture(image, name, kind);
}

}  // namespace plot2d
