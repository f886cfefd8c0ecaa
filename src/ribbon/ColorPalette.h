#pragma once

#include <QColor>
#include <QWidget>

#include <vector>

namespace ribbon {

// A grid of colour swatches, as the drop-down of a colour picker shows it: a row for each shade
// of ten hues (light to dark) and a row of the standard colours. A click, or Enter on the
// swatch chosen with the arrow keys, picks a colour.
class ColorPalette : public QWidget {
  Q_OBJECT

public:
  explicit ColorPalette(QWidget* parent = nullptr);

  const std::vector<QColor>& Colors() const { return m_colors; }
  // Where swatch i is drawn, for a click on it.
  QRect SwatchRect(int index) const;
  // The colour that is shown as the current one (a ring around its swatch).
  void SetCurrent(const QColor& color);

  QSize sizeHint() const override;

signals:
  void Picked(const QColor& color);

protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  int IndexAt(const QPoint& point) const;
  void PaintSwatch(QPainter& painter, int index) const;
  void MoveHot(int dx, int dy);

  std::vector<QColor> m_colors;
  QColor m_current;
  int m_hot = -1;
};

}  // namespace ribbon
