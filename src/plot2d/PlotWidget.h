#pragma once

#include "Plot.h"
#include "NotablePoints.h"
#include "NotableWalk.h"

#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace plot2d {

// The plot on the screen: paints the scene at the widget's own size, pans with a left drag and
// the arrow keys, zooms with the wheel about the pointer (along the axes ZoomType names) and with
// + and -. While the view moves the last picture is shifted and a quick, low-quality picture
// follows; the full picture comes when the gesture ends. With Interactive false the mouse
// neither pans nor zooms. With ShowTips, the pointer near a curve shows its row and nearest point
// and the curve's special points as grey dots; a click on a dot copies its "(x, y)". From the
// keyboard, N and Shift+N go through the notable points of all the curves, each marked with its
// tip in turn and said through the accessible name, for those who cannot point at a curve.
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

  // Puts a copied point's text on the clipboard unless replaced, as tests do.
  std::function<void(const QString&)> CopyText;
  // The special points shown as dots for the curve under the pointer, none when no tip shows.
  const std::vector<NotablePoint>& ShownNotablePoints() const { return m_special; }
  // The keyboard's walk through the notable points; inactive until N, Shift+N, Home or End.
  const NotableWalk& Walk() const { return m_walk; }
  // The keys the plot takes, in words, for its accessible description.
  static QString KeyHelp();

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
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  void Render(bool quick);
  void MoveBy(QPointF pixels);
  void ZoomAbout(QPointF pixel, double factor);
  void GestureMoved();
  void EndGesture();
  void ShowCoordinate(QPointF pixel);
  void ShowTip(QPointF pixel);
  void PaintFocus(QPainter& painter) const;
  void HideTip();
  void ShowLabel(QLabel* label, const QString& text, QPointF pixel);
  bool PictureIsCurrent() const;
  QPointF ToWidget(QPointF data) const;
  QSizeF Span() const;
  const NotablePoint* NotablePointAt(QPointF pixel) const;
  void PaintNotablePoints(QPainter& painter) const;
  bool WalkKey(const QKeyEvent& event);
  void StepWalk(const std::function<void(NotableWalk&)>& move);
  void EndWalk();
  void PaintWalk(QPainter& painter) const;
  void BuildMenu();
  void Changed(const QString& setting);

  Plot m_plot;
  QImage m_picture;        // the last picture, for the view it was made for
  double m_pictureView[4]; // xMin, xMax, yMin, yMax of m_picture
  bool m_pressed = false;   // the left button is down
  bool m_dragging = false;  // and has moved far enough to pan
  QPointF m_pressedAt, m_lastPointer;
  QTimer m_quick;          // coalesces the quick redraws of a gesture
  QElapsedTimer m_sinceQuick;
  QTimer m_wheelEnd;       // a pause in wheel events ends the zoom gesture
  QLabel* m_coordinate;
  QLabel* m_tip;
  int m_tipCurve = -1;                  // the curve of the last drawing under the pointer
  std::vector<NotablePoint> m_special;  // its special points
  NotableWalk m_walk;
  QLabel* m_walkTip;       // the tip of the walk's point, apart from the pointer's
  QString m_restingName;   // the accessible name to give back when the walk ends
  QMenu* m_menu;
  bool m_readyPending = false;
};

}  // namespace plot2d
