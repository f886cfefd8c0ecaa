#include "AreaPlot.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace area {

namespace {

// Past this many pieces an outline per piece would only grey the picture.
constexpr int kOutlinedPieces = 150;
constexpr int kSamplesForRange = 400;
constexpr int kSimpsonSamples = 16;

double PlotColor(const QColor& c) { return c.red() + 256.0 * c.green() + 65536.0 * c.blue(); }

}  // namespace

AreaPlot::AreaPlot(QWidget* parent) : plot2d::PlotWidget(parent) {
  setAccessibleName(QStringLiteral("Plot of f with the pieces of the sum"));
  setMinimumSize(420, 320);
  Scene().SetShowTips(false);
  Scene().SetThickness(2);
}

void AreaPlot::ShowFunction(const AreaFunction& f, double a, double b) {
  m_f = f;
  m_a = a, m_b = b;
  m_shown = true;
  double low = 0, high = 0;
  for (int i = 0; i <= kSamplesForRange; ++i) {
    const double y = f.At(a + (b - a) * i / kSamplesForRange);
    if (std::isfinite(y)) low = std::min(low, y), high = std::max(high, y);
  }
  if (high - low < 1e-12) high = low + 1;
  const double xMargin = (b - a) * 0.08, yMargin = (high - low) * 0.1;
  plot2d::Plot& plot = Scene();
  plot.ClearAll();
  plot.SetDefaultRange(a - xMargin, b + xMargin, low - yMargin, high + yMargin);
  plot.ResetRange();
  std::int32_t kind = 1;
  plot.AddFunction(1, f.Row(), PlotColor(QColor(20, 20, 20)), false, kind, false, true, false, 0);
  Redraw();
}

void AreaPlot::ShowSum(Rule rule, int n) {
  m_rule = rule;
  m_n = n;
  update();
}

void AreaPlot::Clear() {
  m_shown = false;
  Scene().ClearAll();
  Redraw();
}

QPolygonF AreaPlot::Piece(int i, double h) const {
  const double x0 = m_a + i * h, x1 = m_a + (i + 1) * h;
  double left = 0, right = 0;
  switch (m_rule) {
    case Rule::Left: left = right = m_f.At(x0); break;
    case Rule::Right: left = right = m_f.At(x1); break;
    case Rule::Midpoint: left = right = m_f.At(m_a + (i + 0.5) * h); break;
    default: left = m_f.At(x0), right = m_f.At(x1); break;
  }
  if (!std::isfinite(left) || !std::isfinite(right)) return {};
  return QPolygonF({QPointF(x0, 0), QPointF(x0, left), QPointF(x1, right), QPointF(x1, 0)});
}

QPolygonF AreaPlot::SimpsonStrip(int pair, double h) const {
  const double x0 = m_a + 2 * pair * h;
  const double y0 = m_f.At(x0), y1 = m_f.At(x0 + h), y2 = m_f.At(x0 + 2 * h);
  if (!std::isfinite(y0) || !std::isfinite(y1) || !std::isfinite(y2)) return {};
  QPolygonF strip{QPointF(x0, 0)};
  for (int k = 0; k <= kSimpsonSamples; ++k) {
    // The parabola through the three samples, in Lagrange's form with s = (x - x0) / h.
    const double s = 2.0 * k / kSimpsonSamples;
    const double y = y0 * (s - 1) * (s - 2) / 2 - y1 * s * (s - 2) + y2 * s * (s - 1) / 2;
    strip << QPointF(x0 + s * h, y);
  }
  strip << QPointF(x0 + 2 * h, 0);
  return strip;
}

std::vector<QPolygonF> AreaPlot::Pieces() const {
  std::vector<QPolygonF> pieces;
  if (!m_shown || m_n < 1) return pieces;
  const double h = (m_b - m_a) / m_n;
  if (m_rule == Rule::Simpson) {
    for (int pair = 0; pair < m_n / 2; ++pair) pieces.push_back(SimpsonStrip(pair, h));
  } else {
    for (int i = 0; i < m_n; ++i) pieces.push_back(Piece(i, h));
  }
  return pieces;
}

QPointF AreaPlot::ToWidget(QPointF p) const {
  const plot2d::Plot& plot = Scene();
  return {(p.x() - plot.XMin()) * width() / (plot.XMax() - plot.XMin()),
          (plot.YMax() - p.y()) * height() / (plot.YMax() - plot.YMin())};
}

void AreaPlot::paintEvent(QPaintEvent* event) {
  plot2d::PlotWidget::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const std::vector<QPolygonF> pieces = Pieces();
  const bool outlined = static_cast<int>(pieces.size()) <= kOutlinedPieces;
  for (const QPolygonF& piece : pieces) {
    if (piece.isEmpty()) continue;
    QPolygonF shape;
    double mean = 0;
    for (const QPointF& p : piece) shape << ToWidget(p), mean += p.y();
    const bool above = mean >= 0;
    painter.setBrush(above ? QColor(40, 110, 220, 80) : QColor(230, 120, 20, 90));
    painter.setPen(outlined ? QPen(above ? QColor(30, 80, 170) : QColor(180, 90, 10), 1) : Qt::NoPen);
    painter.drawPolygon(shape);
  }
}

}  // namespace area
