#include "frmFullScreen.h"

#include "core/Twips.h"
#include "ribbon/Icons.h"

#include <QApplication>
#include <QKeyEvent>

namespace output {

using core::Px;

frmFullScreen::frmFullScreen(const plot2d::Plot& mainPlot, bool on3DTab, Replot replot, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_replot(std::move(replot)) {
  setObjectName(QStringLiteral("frmFullScreen"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(tr("Quillograph - Full Screen"));
  m_plot = new plot2d::PlotWidget(this);
  m_plot->setObjectName(QStringLiteral("Plot"));
  m_plot3d = new plot3d::Plot3DWidget(this);
  m_plot3d->setObjectName(QStringLiteral("Plot3D"));
  m_progress = new QProgressBar(this);
  m_progress->setObjectName(QStringLiteral("PB"));
  m_progress->setRange(0, 100);
  m_progress->setFixedSize(200, 14);
  m_progress->setTextVisible(false);
  m_progress->hide();
  m_close = new QToolButton(this);
  m_close->setObjectName(QStringLiteral("btnClose"));
  m_close->setProperty("floating", true);
  m_close->setIcon(ribbon::IconFor(QStringLiteral("view-restore")));
  m_close->setIconSize(QSize(20, 20));
  m_close->setFixedSize(34, 34);
  m_close->setToolTip(QStringLiteral("Exit Full Screen."));
  connect(m_close, &QToolButton::clicked, this, &frmFullScreen::Unload);

  // The display settings and the view, but not the transparent background: full screen shows
  // what the main plot shows, larger.
  plot2d::Plot& scene = m_plot->Scene();
  scene.SetDefaultRange(mainPlot.DefaultXMin(), mainPlot.DefaultXMax(), mainPlot.DefaultYMin(), mainPlot.DefaultYMax());
  scene.SetXMin(mainPlot.XMin()), scene.SetXMax(mainPlot.XMax());
  scene.SetYMin(mainPlot.YMin()), scene.SetYMax(mainPlot.YMax());
  scene.SetEqualScales(mainPlot.EqualScales());
  scene.SetZoomType(mainPlot.ZoomType());
  scene.SetQuality(mainPlot.Quality());
  scene.SetThickness(mainPlot.Thickness());
  scene.SetBackColor(mainPlot.BackColor());
  scene.SetAxisColor(mainPlot.AxisColor());
  scene.SetDarkDefaults(mainPlot.DarkDefaults());
  scene.SetShowAxis(mainPlot.ShowAxis());
  scene.SetShowGrid(mainPlot.ShowGrid());
  scene.SetShowNumbers(mainPlot.ShowNumbers());
  scene.SetShowOuterFrame(mainPlot.ShowOuterFrame());
  scene.SetShowTips(mainPlot.ShowTips());
  m_plot3d->Prepare3D();
  m_plot3d->setVisible(on3DTab);
  m_plot->setVisible(!on3DTab);

  connect(m_plot, &plot2d::PlotWidget::Progress, this, [this](int value) {
    m_progress->show();
    m_progress->setValue(value);
  });
  connect(m_plot, &plot2d::PlotWidget::Finished, m_progress, &QProgressBar::hide);
  connect(m_plot3d, &plot3d::Plot3DWidget::Progress, m_progress, &QProgressBar::setValue);
}

void frmFullScreen::CopyView3D(const plot3d::Plot3D& main3D) {
  plot3d::Plot3D& scene = m_plot3d->Scene();
  scene.SetXMin(main3D.XMin()), scene.SetXMax(main3D.XMax());
  scene.SetYMin(main3D.YMin()), scene.SetYMax(main3D.YMax());
  scene.SetZMin(main3D.ZMin()), scene.SetZMax(main3D.ZMax());
  scene.View() = main3D.View();
  scene.SetDarkDefaults(main3D.DarkDefaults());
}

void frmFullScreen::Form_Activate() {
  if (!m_replot) return;
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(m_plot->Scene(), [this] { m_plot->Redraw(); });
  plotcompiler::ScenePlot3DControl<plot3d::Plot3D> plot3d(m_plot3d->Scene(), [this] { m_plot3d->Redraw(); });
  m_replot(plot, &plot3d);
}

void frmFullScreen::Unload() {
  if (m_unloading) return;
  m_unloading = true;
  close();
}

bool frmFullScreen::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) Form_Activate();
  if (event->type() == QEvent::WindowDeactivate && QApplication::activeModalWidget() == nullptr) Unload();
  return QWidget::event(event);
}

void frmFullScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F11) return Unload();
  QWidget::keyPressEvent(event);
}

void frmFullScreen::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  m_plot->setGeometry(rect());
  m_close->move(width() - m_close->width() - Px(120), Px(120));
  m_plot3d->setGeometry(rect());
  m_plot3d->Refresh();
  m_progress->move(width() - m_progress->width() - Px(120), height() - m_progress->height() - Px(120));
  m_close->raise();
  m_progress->raise();
}

}  // namespace output
