#pragma once

#include "OrderStudy.h"

#include "plot2d/PlotWidget.h"

#include <optional>

namespace area {

// |error| against n on log-log axes (the plot's numbers are the powers of ten), a line per rule,
// the legend (each line's slope) for a label beside it; a ring marks the sum now shown.
class ErrorPlot : public plot2d::PlotWidget {
  Q_OBJECT

public:
  static QColor ColorOf(Rule rule);

  explicit ErrorPlot(QWidget* parent = nullptr);

  void ShowStudy(const OrderStudy& study);
  // The current rule's n and |error|, or nothing.
  void Mark(Rule rule, int n, double error);
  void Clear();

  // The legend's lines: "midpoint  slope -2.00  (order 2)".
  QStringList Legend() const;
  // The same, each with a square of its line's colour, for a label beside the plot.
  QString LegendHtml() const;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QPointF ToWidget(double n, double error) const;

  OrderStudy m_study;
  bool m_shown = false;
  Rule m_markRule = Rule::Left;
  std::optional<QPointF> m_mark;  // log10 n, log10 |error|
};

}  // namespace area
