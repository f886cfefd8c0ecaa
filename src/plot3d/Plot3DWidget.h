#pragma once

#include "Plot3D.h"

#include <QImage>
#include <QPointF>
#include <QWidget>

#include <atomic>
#include <future>
#include <memory>

namespace plot3d {

// The surface plot on the screen. Redraw computes the mesh on a worker thread and returns at once;
// the last picture stays, and follows the turns and zooms, until the new surface is ready. A
// Redraw while a surface is still being computed stops that one. A left
// drag turns the box (across: about the vertical axis; up and down: the tilt), the wheel zooms;
// with the focus, the arrow keys turn and tilt it and + and - zoom, and a ring shows the focus.
class Plot3DWidget : public QWidget {
  Q_OBJECT

public:
  explicit Plot3DWidget(QWidget* parent = nullptr);
  ~Plot3DWidget() override;

  // The scene's settings; change them, then Redraw (a new surface) or Refresh (the same).
  Plot3D& Scene() { return m_plot; }
  const Plot3D& Scene() const { return m_plot; }

  void Prepare3D();
  void Redraw();
  void Refresh();
  bool Computing() const { return m_work.valid(); }

signals:
  void Progress(int percent);
  void Finished();

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  void Computed(std::uint64_t generation);
  void StopWork();

  Plot3D m_plot;
  std::future<Plot3D> m_work;
  std::shared_ptr<std::atomic<bool>> m_cancel;  // tells the surface being computed to stop
  std::uint64_t m_generation = 0;
  bool m_dragging = false;
  QPointF m_lastPointer;
};

}  // namespace plot3d
