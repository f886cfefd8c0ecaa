#include "Plot3DWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace plot3d {

namespace {

constexpr double kTurnPerPixel = 0.01;  // radians
constexpr double kWheelStep = 1.15;     // the zoom's factor for one notch

}  // namespace

Plot3DWidget::Plot3DWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
}

// A surface still being computed is stopped and waited for: the worker holds no pointer to the
// widget, but its result is delivered to it.
Plot3DWidget::~Plot3DWidget() { StopWork(); }

void Plot3DWidget::StopWork() {
  if (m_cancel) m_cancel->store(true);
  if (m_work.valid()) m_work.wait();
}

void Plot3DWidget::Prepare3D() {
  m_plot.SetSize(size());
  m_plot.Prepare3D();
  update();
}

void Plot3DWidget::Redraw() {
  StopWork();  // the earlier surface is replaced by this one
  const std::uint64_t generation = ++m_generation;
  m_cancel = std::make_shared<std::atomic<bool>>(false);
  Plot3D work = m_plot;
  work.Cancelled = [cancel = m_cancel] { return cancel->load(); };
  work.SetSize(size());
  work.SetDevicePixelRatio(devicePixelRatioF());
  work.OnFinished = nullptr;
  work.OnProgress = [this](int percent) {
    QMetaObject::invokeMethod(this, [this, percent] { emit Progress(percent); }, Qt::QueuedConnection);
  };
  m_work = std::async(std::launch::async, [work = std::move(work), this, generation]() mutable {
    work.Redraw();
    QMetaObject::invokeMethod(this, [this, generation] { Computed(generation); }, Qt::QueuedConnection);
    return std::move(work);
  });
}

// The new surface replaces the scene's, seen as the user has turned it meanwhile.
void Plot3DWidget::Computed(std::uint64_t generation) {
  if (generation != m_generation || !m_work.valid()) return;
  const Camera view = m_plot.View();
  m_plot = m_work.get();
  m_plot.OnProgress = nullptr;
  m_plot.Cancelled = nullptr;
  m_plot.View() = view;
  Refresh();
  emit Finished();
}

void Plot3DWidget::Refresh() {
  m_plot.SetSize(size());
  m_plot.SetDevicePixelRatio(devicePixelRatioF());
  m_plot.Refresh();
  update();
}

void Plot3DWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), m_plot.Background());
  painter.drawImage(QPoint(0, 0), m_plot.Picture());
  if (hasFocus()) {
    // The keyboard's place is always visible: a ring inside the edge in the highlight colour.
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
  }
}

void Plot3DWidget::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void Plot3DWidget::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

// The keyboard's way to turn and zoom the box, ten degrees or one wheel notch a key.
void Plot3DWidget::keyPressEvent(QKeyEvent* event) {
  constexpr double kTurnPerKey = std::numbers::pi / 18;
  Camera& view = m_plot.View();
  switch (event->key()) {
    case Qt::Key_Left: view.Azimuth -= kTurnPerKey; break;
    case Qt::Key_Right: view.Azimuth += kTurnPerKey; break;
    case Qt::Key_Up: view.Elevation = std::min(view.Elevation + kTurnPerKey, std::numbers::pi / 2); break;
    case Qt::Key_Down: view.Elevation = std::max(view.Elevation - kTurnPerKey, -std::numbers::pi / 2); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: m_plot.SetZoom(m_plot.Zoom() * kWheelStep); break;
    case Qt::Key_Minus: m_plot.SetZoom(m_plot.Zoom() / kWheelStep); break;
    default: return QWidget::keyPressEvent(event);
  }
  Refresh();
}

void Plot3DWidget::resizeEvent(QResizeEvent*) { Refresh(); }

void Plot3DWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  m_dragging = true;
  m_lastPointer = event->position();
}

void Plot3DWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!m_dragging) return;
  const QPointF moved = event->position() - m_lastPointer;
  m_lastPointer = event->position();
  Camera& view = m_plot.View();
  view.Azimuth += moved.x() * kTurnPerPixel;
  view.Elevation = std::clamp(view.Elevation + moved.y() * kTurnPerPixel, -std::numbers::pi / 2, std::numbers::pi / 2);
  Refresh();
}

void Plot3DWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) m_dragging = false;
}

void Plot3DWidget::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / 120.0;
  if (notches == 0) return;
  m_plot.SetZoom(m_plot.Zoom() * std::pow(kWheelStep, notches));
  Refresh();
}

}  // namespace plot3d
