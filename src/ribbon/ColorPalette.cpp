#include "ColorPalette.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <array>

namespace ribbon {

namespace {

constexpr int kColumns = 10;
constexpr int kSwatch = 18;
constexpr int kGap = 4;
constexpr int kMargin = 8;
// The standard colours sit apart from the shades.
constexpr int kStandardGap = 8;

// Ten hues (grey, red, orange, amber, green, teal, sky, blue, violet, pink) from light to dark,
// then the pure colours that plots use most.
constexpr std::array<const char*, 50> kPalette = {
    "#ffffff", "#fecaca", "#fed7aa", "#fde68a", "#bbf7d0", "#99f6e4", "#bae6fd", "#bfdbfe", "#ddd6fe", "#fbcfe8",
    "#e5e7eb", "#f87171", "#fb923c", "#fbbf24", "#4ade80", "#2dd4bf", "#38bdf8", "#60a5fa", "#a78bfa", "#f472b6",
    "#9ca3af", "#dc2626", "#ea580c", "#d97706", "#16a34a", "#0d9488", "#0284c7", "#2563eb", "#7c3aed", "#db2777",
    "#374151", "#991b1b", "#9a3412", "#92400e", "#166534", "#115e59", "#075985", "#1e40af", "#5b21b6", "#9d174d",
    "#000000", "#ff0000", "#ff8000", "#ffff00", "#00c000", "#00ffff", "#0000ff", "#8000ff", "#ff00ff", "#808080",
};

int RowsOf(std::size_t count) { return static_cast<int>((count + kColumns - 1) / kColumns); }

}  // namespace

ColorPalette::ColorPalette(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("RibbonColorPalette"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  for (const char* name : kPalette) m_colors.emplace_back(QString::fromLatin1(name));
}

QSize ColorPalette::sizeHint() const {
  const int rows = RowsOf(m_colors.size());
  return {2 * kMargin + kColumns * kSwatch + (kColumns - 1) * kGap,
          2 * kMargin + rows * kSwatch + (rows - 1) * kGap + kStandardGap};
}

QRect ColorPalette::SwatchRect(int index) const {
  const int row = index / kColumns;
  const int column = index % kColumns;
  const int lastRow = RowsOf(m_colors.size()) - 1;
  const int y = kMargin + row * (kSwatch + kGap) + (row == lastRow ? kStandardGap : 0);
  return {kMargin + column * (kSwatch + kGap), y, kSwatch, kSwatch};
}

int ColorPalette::IndexAt(const QPoint& point) const {
  for (int i = 0; i < static_cast<int>(m_colors.size()); ++i) {
    if (SwatchRect(i).adjusted(-kGap / 2, -kGap / 2, kGap / 2, kGap / 2).contains(point)) return i;
  }
  return -1;
}

void ColorPalette::SetCurrent(const QColor& color) {
  m_current = color;
  update();
}

void ColorPalette::PaintSwatch(QPainter& painter, int index) const {
  const QRectF box = QRectF(SwatchRect(index)).adjusted(0.5, 0.5, -0.5, -0.5);
  const QColor& color = m_colors[static_cast<std::size_t>(index)];
  painter.setPen(QPen(color.lightness() > 225 ? QColor(0xd1, 0xd5, 0xdb) : color.darker(115), 1));
  painter.setBrush(color);
  painter.drawRoundedRect(box, 3, 3);
  const bool current = m_current.isValid() && color.rgb() == m_current.rgb();
  if (index == m_hot || current) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(index == m_hot ? QColor(0x11, 0x18, 0x27) : QColor(0x25, 0x63, 0xeb), 1.5));
    painter.drawRoundedRect(box.adjusted(-2, -2, 2, 2), 4, 4);
  }
}

void ColorPalette::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < static_cast<int>(m_colors.size()); ++i) PaintSwatch(painter, i);
}

void ColorPalette::mouseMoveEvent(QMouseEvent* event) {
  const int index = IndexAt(event->position().toPoint());
  if (index == m_hot) return;
  m_hot = index;
  setToolTip(index >= 0 ? m_colors[static_cast<std::size_t>(index)].name() : QString());
  update();
}

void ColorPalette::leaveEvent(QEvent*) {
  m_hot = -1;
  update();
}

void ColorPalette::mouseReleaseEvent(QMouseEvent* event) {
  const int index = IndexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index >= 0) emit Picked(m_colors[static_cast<std::size_t>(index)]);
}

void ColorPalette::MoveHot(int dx, int dy) {
  const int count = static_cast<int>(m_colors.size());
  if (m_hot < 0) {
    m_hot = 0;
  } else {
    const int row = m_hot / kColumns + dy;
    const int column = m_hot % kColumns + dx;
    if (row >= 0 && column >= 0 && column < kColumns && row * kColumns + column < count) m_hot = row * kColumns + column;
  }
  update();
}

void ColorPalette::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left: MoveHot(-1, 0); return;
    case Qt::Key_Right: MoveHot(1, 0); return;
    case Qt::Key_Up: MoveHot(0, -1); return;
    case Qt::Key_Down: MoveHot(0, 1); return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (m_hot >= 0) emit Picked(m_colors[static_cast<std::size_t>(m_hot)]);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace ribbon
