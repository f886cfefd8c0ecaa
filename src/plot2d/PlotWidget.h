#pragma once

#include "Plot.h"

#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace plot2d {

// The plot on the screen: paints the scene at the widget's own size, pans with a left drag and
// the arrow keys, zooms with the wheel about the pointer (along the axes ZoomType names) and with
// + and -. While the view moves the last picture is shifted and a quick, low-quality picture
// follows; the full picture comes when the gesture ends. With Interactive false the mouse
// neither pans nor zooms.
class PlotWidget : public QWidget {
  Q_OBJECT

public:
  explicit PlotWidget(QWidget* parent = nullptr);

  Plot& Scene() { return m_plot; }
  const Plot& Scene() const { return m_plot; }

  // Samples and paints the scene again at full quality (the scene's Redraw, for the screen).
  void Redraw();

  // What a redraw at the widget's size and ratio gives: for tests and pictures.
  QImage LastPicture() const { return m_picture; }

  // The pop-up menu's actions, by their texts ("Show Axis", "Zoom In", ...).
  QList<QAction*> MenuActions() const;
  // Asks for a colour (the pop-up's Back Colour... and Axis Colour...); a colour dialog unless
  // replaced, as tests do.
  std::function<std::optional<QColor>(const QColor& current, const QString& title)> ChooseColor;

signals:
  // A pan or zoom gesture ended; button is 1 for the left button and for the wheel.
  void ViewFinished(double xMin, double xMax, double yMin, double yMax, short button);
  void Ready();
  void SettingsChanged(const QString& setting);
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
  void contextMenuEvent(QContextMenuEvent* event) override;
  void leaveEvent(QEvent* event) override;

private:
  void Render(bool quick);
  void MoveBy(QPointF pixels);
  void ZoomAbout(QPointF pixel, double factor);
  void GestureMoved();
  void EndGesture();
  void ShowCoordinate(QPointF pixel);
  void BuildMenu();
  void Changed(const QString& setting);

  Plot m_plot;
  QImage m_picture;        // the last picture, for the view it was made for
  double m_pictureView[4]; // xMin, xMax, yMin, yMax of m_picture
  bool m_dragging = false;
  QPointF m_lastPointer;
  QTimer m_quick;          // coalesces the quick redraws of a gesture
  QTimer m_wheelEnd;       // a pause in wheel events ends the zoom gesture
  QLabel* m_coordinate;
  QMenu* m_menu;
  bool m_readyPending = false;
};

}  // namespace plot2d
