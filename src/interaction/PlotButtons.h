#pragma once

#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"

#include <QObject>
#include <QProgressBar>
#include <QToolButton>

#include <functional>

namespace interaction {

// The buttons that float over the plot and the plot's events: the lock of the view, back to the
// default range (shown while the view is away from it), the range dialog, full screen, and the
// progress of a surface being computed.
class PlotButtons : public QObject {
  Q_OBJECT

public:
  PlotButtons(QWidget& parent, plot2d::PlotWidget& plot, plot3d::Plot3DWidget& plot3d);

  QToolButton* btnLock() const { return m_lock; }
  QToolButton* btnReset() const { return m_reset; }
  QToolButton* btnSetting() const { return m_setting; }
  QToolButton* btnFullScreen() const { return m_fullScreen; }
  QProgressBar* PB_3D() const { return m_progress; }

  // Where they stand: over the plot's corners and down its right edge (the form's resize).
  void Place(const QRect& plot, const QRect& plot3d, int formWidth);
  // White over the 2D plot, black over the 3D one; the full-screen button follows the settings one.
  void SetDark(bool dark);

  // The plot's events.
  void Plot_ViewFinished(short button);
  void Plot3D_Progress(int percent);
  void Plot3D_Finished();
  void btnLock_Click();
  void btnReset_Click();
  // The reset button shows exactly while the 2D plot is on the screen away from its default
  // range, whatever moved it: the mouse, the keyboard, the ribbon, the range dialog, a file.
  void RefreshReset();

  // Where the lock sends the focus it is given (the function list's add button, on page 0).
  std::function<void()> GiveFocusAway;

signals:
  void SettingRequested();
  void FullScreenRequested();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QToolButton* Floating(QWidget& parent, const char* name, const char* icon, const QString& tip);

  plot2d::PlotWidget& m_plot;
  plot3d::Plot3DWidget& m_plot3d;
  QToolButton* m_lock;
  QToolButton* m_reset;
  QToolButton* m_setting;
  QToolButton* m_fullScreen;
  QProgressBar* m_progress;
};

}  // namespace interaction
