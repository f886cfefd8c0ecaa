#include "ErrorPlot.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace area {

ErrorPlot::ErrorPlot(QWidget* parent) : plot2d::PlotWidget(parent) {
  setAccessibleName(QStringLiteral("Log-log plot of the error against n"));
  setMinimumSize(340, 300);
  Scene().SetShowTips(false);
  Scene().SetInteractive(false);
  setFocusPolicy(Qt::NoFocus);
}

QColor ErrorPlot::ColorOf(Rule rule) {
  switch (rule) {
    case Rule::Left: return {200, 40, 40};
    case Rule::Right: return {220, 130, 0};
    case Rule::Midpoint: return {30, 140, 60};
    case Rule::Trapezoid: return {30, 90, 210};
    case Rule::Simpson: return {140, 50, 170};
  }
  return Qt::black;
}

void ErrorPlot::ShowStudy(const OrderStudy& study) {
  m_study = study;
  m_shown = true;
  double low = 0, high = -20;
  bool any = false;
  for (const RuleErrors& r : study.Rules()) {
    for (double e : r.Errors) {
      const double y = std::log10(e);
      low = any ? std::min(low, y) : y, high = any ? std::max(high, y) : y;
      any = true;
    }
  }
  if (!any) low = -16, high = 0;
  const double margin = std::max(0.5, (high - low) * 0.08);
  const double nLow = std::log10(OrderStudy::StudiedCounts().front());
  const double nHigh = std::log10(OrderStudy::StudiedCounts().back());
  Scene().SetDefaultRange(nLow - 0.15, nHigh + 0.15, low - margin, high + margin);
  Scene().ResetRange();
  Redraw();
}

void ErrorPlot::Mark(Rule rule, int n, double error) {
  m_markRule = rule;
  m_mark.reset();
  if (std::isfinite(error) && error > 0) m_mark = QPointF(std::log10(n), std::log10(error));
  update();
}

void ErrorPlot::Clear() {
  m_shown = false;
  m_mark.reset();
  update();
}

QStringList ErrorPlot::Legend() const {
  QStringList lines;
  if (!m_shown) return lines;
  for (const RuleErrors& r : m_study.Rules()) {
    const QString slope = std::isfinite(r.Slope) ? QString::number(r.Slope, 'f', 2).replace(u'-', u'\u2212')
                                                 : QStringLiteral("none, exact here");
    lines << QStringLiteral("%1: slope %2  (order %3)").arg(RuleName(r.Which), slope).arg(RuleOrder(r.Which));
  }
  return lines;
}

QString ErrorPlot::LegendHtml() const {
  const QStringList lines = Legend();
  QString html;
  for (int i = 0; i < lines.size(); ++i) {
    if (i > 0) html += QStringLiteral("<br>");
    html += QStringLiteral("<span style=\"color:%1\">\u25A0</span> %2")
                .arg(ColorOf(kRules[static_cast<size_t>(i)]).name(), lines[i].toHtmlEscaped());
  }
  return html;
}

QPointF ErrorPlot::ToWidget(double x, double y) const {
  const plot2d::Plot& plot = Scene();
  return {(x - plot.XMin()) * width() / (plot.XMax() - plot.XMin()),
          (plot.YMax() - y) * height() / (plot.YMax() - plot.YMin())};
}

void ErrorPlot::paintEvent(QPaintEvent* event) {
  plot2d::PlotWidget::paintEvent(event);
  if (!m_shown) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const RuleErrors& r : m_study.Rules()) {
    QPolygonF line;
    for (size_t i = 0; i < r.Counts.size(); ++i) {
      line << ToWidget(std::log10(r.Counts[i]), std::log10(r.Errors[i]));
    }
    painter.setPen(QPen(ColorOf(r.Which), 2));
    painter.drawPolyline(line);
    painter.setBrush(ColorOf(r.Which));
    for (const QPointF& p : line) painter.drawEllipse(p, 3, 3);
  }
  if (m_mark) {
    painter.setPen(QPen(ColorOf(m_markRule), 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(ToWidget(m_mark->x(), m_mark->y()), 8, 8);
  }
}

}  // namespace area
