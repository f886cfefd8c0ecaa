#pragma once

#include "plot2d/Plot.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "plotcompiler/Plot3DControl.h"
#include "plotcompiler/PlotControl.h"

#include <QProgressBar>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace output {

// The current plot alone on the whole screen, in plots of its own: the display settings are
// copied from the main plot when it opens, and the rows are drawn anew whenever it becomes active.
// Any switch to another window, the close button or Escape ends it.
class frmFullScreen : public QWidget {
  Q_OBJECT

public:
  // The replot driver, drawing the main form's rows into the plots it is given.
  using Replot = std::function<void(plotcompiler::PlotControl&, plotcompiler::Plot3DControl*)>;

  frmFullScreen(const plot2d::Plot& mainPlot, bool on3DTab, Replot replot, QWidget* parent = nullptr);

  plot2d::PlotWidget& Plot() { return *m_plot; }
  plot3d::Plot3DWidget& Plot3D() { return *m_plot3d; }
  QProgressBar* PB() const { return m_progress; }
  QToolButton* btnClose() const { return m_close; }

  // The surface's box and the way it is seen, as the main 3D plot has them.
  void CopyView3D(const plot3d::Plot3D& main3D);
  void Form_Activate();

protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void Unload();

  plot2d::PlotWidget* m_plot;
  plot3d::Plot3DWidget* m_plot3d;
  QProgressBar* m_progress;
  QToolButton* m_close;
  Replot m_replot;
  bool m_unloading = false;
};

}  // namespace output
