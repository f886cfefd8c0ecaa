#pragma once

#include "AreaFunction.h"
#include "RiemannRules.h"

#include "plot2d/PlotWidget.h"

#include <QPolygonF>

#include <vector>

namespace area {

// The curve drawn by the program's plot, with the rule's rectangles, trapezoids or parabola
// strips painted over it in the plot's own view, blue above the axis and orange below.
class AreaPlot : public plot2d::PlotWidget {
  Q_OBJECT

public:
  explicit AreaPlot(QWidget* parent = nullptr);

  // Draws f over [a, b] and a little beyond, with a range that shows all of it and the axis.
  void ShowFunction(const AreaFunction& f, double a, double b);
  // The pieces of the sum; n is the count the rule really uses.
  void ShowSum(Rule rule, int n);
  // Nothing but the empty plot, after a problem.
  void Clear();

  // The pieces' outlines in plot coordinates: for tests.
  std::vector<QPolygonF> Pieces() const;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QPolygonF Piece(int i, double h) const;
  QPolygonF SimpsonStrip(int pair, double h) const;
  QPointF ToWidget(QPointF p) const;

  AreaFunction m_f;
  bool m_shown = false;
  double m_a = 0, m_b = 1;
  Rule m_rule = Rule::Midpoint;
  int m_n = 0;
};

}  // namespace area
