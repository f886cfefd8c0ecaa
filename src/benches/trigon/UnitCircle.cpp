#include "UnitCircle.h"

#include "ExactValues.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace trigon {

const QColor UnitCircle::kSinColor(200, 30, 30);
const QColor UnitCircle::kCosColor(30, 80, 200);
const QColor UnitCircle::kTanColor(20, 140, 60);

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180;
// The circle leaves room around it for the tangent segment and the labels.
constexpr double kRadiusShare = 0.36;
// Tan is drawn up to this many radii from the axis; past it the segment is cut at the edge.
constexpr double kTanReach = 1.3;

}  // namespace

UnitCircle::UnitCircle(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(320, 320);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Unit circle"));
  setAccessibleDescription(QStringLiteral("Drag the point, or use the arrow keys: 1 degree a step, 15 with Shift."));
  setToolTip(QStringLiteral("Drag the point around the circle; arrow keys step by 1\u00B0, Shift+arrow by 15\u00B0"));
}

void UnitCircle::SetAngle(double degrees) {
  const double wrapped = WrapDegrees(degrees);
  if (wrapped == m_degrees) return;
  m_degrees = wrapped;
  update();
  emit AngleChanged(m_degrees);
}

double UnitCircle::Radius() const { return kRadiusShare * std::min(width(), height()); }

QPointF UnitCircle::ToWidget(double x, double y) const {
  const QPointF centre = QRectF(rect()).center();
  return {centre.x() + x * Radius(), centre.y() - y * Radius()};
}

double UnitCircle::AngleAt(QPointF pixel) const {
  const QPointF centre = QRectF(rect()).center();
  const double dx = pixel.x() - centre.x(), dy = centre.y() - pixel.y();
  if (dx == 0 && dy == 0) return m_degrees;
  return std::round(std::atan2(dy, dx) / kRadiansPerDegree);
}

void UnitCircle::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  setFocus(Qt::MouseFocusReason);
  m_dragging = true;
  SetAngle(AngleAt(event->position()));
}

void UnitCircle::mouseMoveEvent(QMouseEvent* event) {
  if (m_dragging) SetAngle(AngleAt(event->position()));
}

void UnitCircle::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) m_dragging = false;
}

void UnitCircle::keyPressEvent(QKeyEvent* event) {
  const double step = event->modifiers() & Qt::ShiftModifier ? 15 : 1;
  switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
      SetAngle(m_degrees + step);
      break;
    case Qt::Key_Left:
    case Qt::Key_Down:
      SetAngle(m_degrees - step);
      break;
    case Qt::Key_Home:
      SetAngle(0);
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void UnitCircle::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().base());
  PaintAxes(painter);
  PaintAngleArc(painter);
  PaintSegments(painter);
  PaintPoint(painter);
  if (hasFocus()) {
    QPen focus(palette().highlight().color(), 2, Qt::DashLine);
    painter.setPen(focus);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
  }
}

void UnitCircle::PaintAxes(QPainter& painter) const {
  const QColor text = palette().text().color();
  painter.setPen(QPen(QColor(170, 170, 170), 1));
  painter.drawLine(QPointF(0, ToWidget(0, 0).y()), QPointF(width(), ToWidget(0, 0).y()));
  painter.drawLine(QPointF(ToWidget(0, 0).x(), 0), QPointF(ToWidget(0, 0).x(), height()));
  // The tangent line at (1, 0), where tan is measured.
  painter.setPen(QPen(QColor(190, 190, 190), 1, Qt::DotLine));
  painter.drawLine(QPointF(ToWidget(1, 0).x(), 0), QPointF(ToWidget(1, 0).x(), height()));
  painter.setPen(QPen(text, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(ToWidget(0, 0), Radius(), Radius());
  const QFontMetricsF metrics(font());
  painter.drawText(ToWidget(1, 0) + QPointF(4, metrics.ascent() + 2), QStringLiteral("1"));
  painter.drawText(ToWidget(-1, 0) + QPointF(-metrics.horizontalAdvance(QStringLiteral("-1")) - 4, metrics.ascent() + 2),
                   QStringLiteral("-1"));
  painter.drawText(ToWidget(0, 1) + QPointF(4, -4), QStringLiteral("1"));
  painter.drawText(ToWidget(0, -1) + QPointF(4, metrics.ascent() + 2), QStringLiteral("-1"));
}

void UnitCircle::PaintAngleArc(QPainter& painter) const {
  const double r = std::max(18.0, Radius() * 0.18);
  const QPointF centre = ToWidget(0, 0);
  QPainterPath arc;
  arc.moveTo(centre + QPointF(r, 0));
  arc.arcTo(QRectF(centre.x() - r, centre.y() - r, 2 * r, 2 * r), 0, m_degrees);
  painter.setPen(QPen(QColor(120, 90, 0), 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(arc);
  const double half = m_degrees / 2 * kRadiansPerDegree;
  const QPointF label = centre + QPointF(std::cos(half), -std::sin(half)) * (r + 12);
  painter.drawText(QRectF(label - QPointF(10, 10), QSizeF(20, 20)), Qt::AlignCenter, QStringLiteral("\u03B8"));
}

void UnitCircle::Segment(QPainter& painter, QPointF from, QPointF to, const QColor& color, const QString& name,
                         Side side) const {
  painter.setPen(QPen(color, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(from, to);
  if (QLineF(from, to).length() < 14) return;
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  const QFontMetricsF metrics(bold);
  const QPointF middle = (from + to) / 2;
  const double w = metrics.horizontalAdvance(name), up = metrics.ascent() / 2 - 1;
  QPointF offset;
  switch (side) {
    case Side::Left: offset = QPointF(-w - 8, up); break;
    case Side::Right: offset = QPointF(8, up); break;
    case Side::Above: offset = QPointF(-w / 2, -8); break;
    case Side::Below: offset = QPointF(-w / 2, metrics.ascent() + 6); break;
  }
  painter.drawText(middle + offset, name);
  painter.setFont(font());
}

void UnitCircle::PaintSegments(QPainter& painter) const {
  const double a = m_degrees * kRadiansPerDegree;
  const double c = std::cos(a), s = std::sin(a);
  const bool tanDefined = ExactValues(m_degrees).value_or(TrigTexts{}).Tan != u"undefined" && std::abs(c) > 1e-12;
  if (tanDefined) {
    const double t = std::clamp(s / c, -kTanReach * height() / std::max(1.0, 2 * Radius()),
                                kTanReach * height() / std::max(1.0, 2 * Radius()));
    // The radius carried on to the tangent line, where tan is read.
    painter.setPen(QPen(QColor(140, 140, 140), 1, Qt::DashLine));
    painter.drawLine(ToWidget(0, 0), ToWidget(1, t));
    Segment(painter, ToWidget(1, 0), ToWidget(1, t), kTanColor, QStringLiteral("tan"), Side::Right);
  }
  painter.setPen(QPen(palette().text().color(), 1.5));
  painter.drawLine(ToWidget(0, 0), ToWidget(c, s));
  // Each label on the side away from the other segments, so none covers another.
  Segment(painter, ToWidget(0, 0), ToWidget(c, 0), kCosColor, QStringLiteral("cos"), s >= 0 ? Side::Below : Side::Above);
  Segment(painter, ToWidget(c, 0), ToWidget(c, s), kSinColor, QStringLiteral("sin"), c >= 0 ? Side::Left : Side::Right);
}

void UnitCircle::PaintPoint(QPainter& painter) const {
  const double a = m_degrees * kRadiansPerDegree;
  painter.setPen(QPen(palette().text().color(), 1.5));
  painter.setBrush(QColor(255, 200, 40));
  painter.drawEllipse(ToWidget(std::cos(a), std::sin(a)), 8, 8);
}

}  // namespace trigon
