#include "TrigGraph.h"

#include "plotcompiler/EquationCompiler.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace trigon {

namespace {

// A colour as the plot keeps it: red in the low byte.
double PlotColor(const QColor& c) { return c.red() + 256.0 * c.green() + 65536.0 * c.blue(); }

}  // namespace

TrigGraph::TrigGraph(const QString& name, const QString& row, const QColor& color, double yReach, QWidget* parent)
    : plot2d::PlotWidget(parent), m_color(color) {
  setAccessibleName(name);
  setFocusPolicy(Qt::NoFocus);
  setMinimumSize(300, 130);
  plot2d::Plot& plot = Scene();
  plot.SetInteractive(false);
  plot.SetShowTips(false);
  plot.SetThickness(2);
  const double margin = 0.4;
  plot.SetDefaultRange(-margin, 2 * std::numbers::pi + margin, -yReach, yReach);
  plot.ResetRange();
  std::int32_t kind = 1;
  plot.AddFunction(1, plotcompiler::CompileEquation(row, false), PlotColor(color), false, kind, false, true, false, 0);
}

void TrigGraph::SetAngle(double degrees, double value) {
  m_x = degrees * std::numbers::pi / 180;
  m_y = value;
  update();
}

QPointF TrigGraph::ToWidget(double x, double y) const {
  const plot2d::Plot& plot = Scene();
  return {(x - plot.XMin()) * width() / (plot.XMax() - plot.XMin()),
          (plot.YMax() - y) * height() / (plot.YMax() - plot.YMin())};
}

std::optional<QPointF> TrigGraph::PointInWidget() const {
  if (!std::isfinite(m_y)) return std::nullopt;
  return ToWidget(m_x, m_y);
}

void TrigGraph::paintEvent(QPaintEvent* event) {
  plot2d::PlotWidget::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double x = ToWidget(m_x, 0).x();
  painter.setPen(QPen(QColor(120, 120, 120), 1, Qt::DashLine));
  painter.drawLine(QPointF(x, 0), QPointF(x, height()));
  if (const auto point = PointInWidget()) {
    painter.setPen(QPen(Qt::black, 1.5));
    painter.setBrush(m_color);
    painter.drawEllipse(*point, 6, 6);
  }
}

}  // namespace trigon
