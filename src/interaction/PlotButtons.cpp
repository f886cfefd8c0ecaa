#include "PlotButtons.h"

#include "core/Twips.h"
#include "ribbon/Icons.h"

#include <QEvent>
#include <QStyle>

namespace interaction {

using core::Px;

PlotButtons::PlotButtons(QWidget& parent, plot2d::PlotWidget& plot, plot3d::Plot3DWidget& plot3d)
    : QObject(&parent), m_plot(plot), m_plot3d(plot3d) {
  m_setting = Floating(parent, "btnSetting", "configure", tr("Plot range..."));
  m_fullScreen = Floating(parent, "btnFullScreen", "view-fullscreen", tr("Full screen (F11)"));
  m_reset = Floating(parent, "btnReset", "zoom-original", tr("Back to the default range"));
  m_reset->hide();
  m_lock = Floating(parent, "btnLock", "object-unlocked", tr("Lock the view: no panning or zooming with the mouse"));
  m_lock->setCheckable(true);
  m_lock->setProperty("iconName", QStringLiteral("object-unlocked"));
  m_lock->setFocusPolicy(Qt::StrongFocus);
  m_lock->installEventFilter(this);
  m_progress = new QProgressBar(&parent);
  m_progress->setObjectName(QStringLiteral("PB_3D"));
  m_progress->setRange(0, 100);
  m_progress->setFixedSize(160, 14);
  m_progress->setTextVisible(false);
  m_progress->hide();

  connect(m_lock, &QToolButton::clicked, this, &PlotButtons::btnLock_Click);
  connect(m_reset, &QToolButton::clicked, this, &PlotButtons::btnReset_Click);
  connect(m_setting, &QToolButton::clicked, this, &PlotButtons::SettingRequested);
  connect(m_fullScreen, &QToolButton::clicked, this, &PlotButtons::FullScreenRequested);
  connect(&m_plot, &plot2d::PlotWidget::ViewFinished, this,
          [this](double, double, double, double, short button) { Plot_ViewFinished(button); });
  connect(&m_plot, &plot2d::PlotWidget::Finished, this, &PlotButtons::RefreshReset);
  // The icon follows the state by any path, a project read from a file included.
  connect(m_lock, &QToolButton::toggled, this, [this](bool locked) {
    const QString icon = locked ? QStringLiteral("object-locked") : QStringLiteral("object-unlocked");
    m_lock->setIcon(ribbon::IconFor(icon));
    m_lock->setProperty("iconName", icon);
  });
  connect(&m_plot3d, &plot3d::Plot3DWidget::Progress, this, &PlotButtons::Plot3D_Progress);
  connect(&m_plot3d, &plot3d::Plot3DWidget::Finished, this, &PlotButtons::Plot3D_Finished);
}

QToolButton* PlotButtons::Floating(QWidget& parent, const char* name, const char* icon, const QString& tip) {
  auto* button = new QToolButton(&parent);
  button->setObjectName(QString::fromLatin1(name));
  button->setProperty("floating", true);
  button->setIcon(ribbon::IconFor(QString::fromLatin1(icon)));
  button->setIconSize(QSize(18, 18));
  button->setFixedSize(30, 30);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setFocusPolicy(Qt::TabFocus);
  button->raise();
  return button;
}

void PlotButtons::Place(const QRect& plot, const QRect& plot3d, int formWidth) {
  const int left = formWidth - m_setting->width() - Px(180);
  m_setting->move(left, plot.top() + Px(120));
  m_fullScreen->move(left, m_setting->geometry().bottom() + 1 + Px(30));
  m_reset->move(left, m_fullScreen->geometry().bottom() + 1 + Px(30));
  m_lock->move(plot.right() + 1 - Px(90) - m_lock->width(), plot.bottom() + 1 - Px(60) - m_lock->height());
  m_progress->move(plot3d.right() + 1 - Px(60) - m_progress->width(), plot3d.bottom() + 1 - Px(30) - m_progress->height());
  for (QWidget* w : {static_cast<QWidget*>(m_setting), static_cast<QWidget*>(m_fullScreen),
                     static_cast<QWidget*>(m_reset), static_cast<QWidget*>(m_lock), static_cast<QWidget*>(m_progress)}) {
    w->raise();
  }
}

void PlotButtons::SetDark(bool dark) {
  for (QToolButton* button : {m_setting, m_fullScreen}) {
    button->setProperty("dark", dark);
    button->style()->unpolish(button);
    button->style()->polish(button);
  }
}

void PlotButtons::Plot_ViewFinished(short) { RefreshReset(); }

void PlotButtons::RefreshReset() { m_reset->setVisible(!m_plot.isHidden() && !m_plot.Scene().AtDefaultRange()); }

void PlotButtons::btnReset_Click() {
  m_plot.Scene().ResetRange();
  // The same drawing in the default range: no replot.
  m_plot.Redraw();
  RefreshReset();
}

void PlotButtons::btnLock_Click() {
  // The button has flipped itself; the plot takes the opposite.
  m_plot.Scene().SetInteractive(!m_lock->isChecked());
}

void PlotButtons::Plot3D_Progress(int percent) {
  m_progress->setValue(std::clamp(percent, 0, 100));
  if (percent >= 100) m_progress->hide();
}

void PlotButtons::Plot3D_Finished() { m_progress->hide(); }

bool PlotButtons::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_lock && event->type() == QEvent::FocusIn && GiveFocusAway) GiveFocusAway();
  return QObject::eventFilter(watched, event);
}

}  // namespace interaction
