#pragma once

#include <QColor>
#include <QPointF>
#include <QWidget>

namespace trigon {

// The unit circle with the angle's point on it: cos drawn along the x axis, sin straight up from
// there to the point, tan on the tangent line at (1, 0). A press or a drag anywhere turns the
// point toward the pointer (to whole degrees); the arrow keys step it by 1°, with Shift by 15°.
class UnitCircle : public QWidget {
  Q_OBJECT

public:
  static const QColor kSinColor;
  static const QColor kCosColor;
  static const QColor kTanColor;

  explicit UnitCircle(QWidget* parent = nullptr);

  // Degrees in [0, 360).
  double Angle() const { return m_degrees; }
  // Takes the angle into [0°, 360°); emits AngleChanged when it moved.
  void SetAngle(double degrees);

  // Where a point of the plane lies in the widget, and back: for painting, and for tests that
  // drag the point.
  QPointF ToWidget(double x, double y) const;
  double AngleAt(QPointF pixel) const;

  QSize sizeHint() const override { return {420, 420}; }

signals:
  void AngleChanged(double degrees);

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  double Radius() const;
  void PaintAxes(QPainter& painter) const;
  void PaintAngleArc(QPainter& painter) const;
  void PaintSegments(QPainter& painter) const;
  void PaintPoint(QPainter& painter) const;
  enum class Side { Left, Right, Above, Below };
  void Segment(QPainter& painter, QPointF from, QPointF to, const QColor& color, const QString& name, Side side) const;

  double m_degrees = 0;
  bool m_dragging = false;
};

}  // namespace trigon
