#include "ColorButton.h"

#include <QPainter>
#include <QPainterPath>

namespace rows {

ColorButton::ColorButton(platform::ColorChooser& chooser, QWidget* parent) : QAbstractButton(parent), m_chooser(chooser) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setToolTip(tr("Colour of this row: click to change it"));
  connect(this, &QAbstractButton::clicked, this, &ColorButton::Choose);
}

QColor ColorButton::ToQColor(std::int32_t color) {
  return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

std::int32_t ColorButton::FromQColor(const QColor& color) {
  return color.red() | (color.green() << 8) | (color.blue() << 16);
}

void ColorButton::SetColor(std::int32_t color) {
  if (color == m_color) return;
  m_color = color;
  update();
  emit ColorChanged();
}

QSize ColorButton::sizeHint() const { return {30, 30}; }

void ColorButton::Choose() {
  if (const auto chosen = m_chooser.Choose(ToQColor(m_color), tr("Colour of row %1").arg(text()))) {
    SetColor(FromQColor(*chosen));
  }
}

void ColorButton::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  emit FocusIn();
}

void ColorButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor fill = ToQColor(m_color);
  const QRectF box = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  QPainterPath path;
  path.addRoundedRect(box, 7, 7);
  painter.fillPath(path, isDown() ? fill.darker(115) : fill);
  painter.setPen(QPen(underMouse() || hasFocus() ? palette().color(QPalette::Highlight) : fill.darker(130),
                      hasFocus() ? 2 : 1));
  painter.drawPath(path);
  // The caption in black or white, whichever stands out on the colour.
  const bool light = fill.lightnessF() > 0.6 || (fill.greenF() > 0.7 && fill.redF() > 0.5);
  painter.setPen(light ? QColor(20, 20, 20) : Qt::white);
  QFont f = font();
  f.setBold(true);
  f.setPixelSize(text().size() > 2 ? 10 : 12);
  painter.setFont(f);
  painter.drawText(box, Qt::AlignCenter, text());
}

}  // namespace rows
