#pragma once

#include "plot2d/PlotWidget.h"

#include <QColor>

#include <functional>

namespace trigon {

// One of the three graphs over a turn and a little more, drawn by the program's plot, with the
// angle's point riding on the curve and a dashed line at the angle.
class TrigGraph : public plot2d::PlotWidget {
  Q_OBJECT

public:
  // row is a function row as the user types it ("y=sin(x)"); yReach is the half height shown.
  TrigGraph(const QString& name, const QString& row, const QColor& color, double yReach, QWidget* parent = nullptr);

  // The angle in degrees; the point is drawn where value(radians) is finite.
  void SetAngle(double degrees, double value);
  // The point's place in the widget, or nothing where the function is undefined.
  std::optional<QPointF> PointInWidget() const;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QPointF ToWidget(double x, double y) const;

  QColor m_color;
  double m_x = 0;
  double m_y = 0;
};

}  // namespace trigon
