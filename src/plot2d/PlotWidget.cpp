#include "PlotWidget.h"

#include <QActionGroup>
#include <QClipboard>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace plot2d {

namespace {

constexpr int kQuickQuality = 20;
// Quick pictures at most this often during a gesture: as often as the fastest screens (240 Hz)
// show a frame, so that a light scene follows the pointer at any screen's rate, and no more.
constexpr int kQuickDelayMs = 4;
constexpr int kWheelPauseMs = 180;   // a pause this long ends a wheel zoom
constexpr double kWheelStep = 0.85;  // the range's factor for one notch of the wheel
constexpr double kKeyStep = 0.1;     // the arrow keys move a tenth of the view
constexpr double kCurveReach = 6;    // a tip shows within this many pixels of a curve
constexpr double kDotReach = 6;      // and a special point's tip within this many of its dot
constexpr double kDotRadius = 3.5;
constexpr double kRingRadius = 7;    // the ring about the point the keyboard is on
constexpr double kRingWidth = 2;
constexpr double kClickSlop = 3;     // a press that moves less than this is a click, not a pan

// A colour as the scene stores it: red in the low byte.
double ValueOf(const QColor& c) { return c.red() + c.green() * 256.0 + c.blue() * 65536.0; }

}  // namespace

PlotWidget::PlotWidget(QWidget* parent)
    : QWidget(parent),
      m_coordinate(new QLabel(this)),
      m_tip(new QLabel(this)),
      m_walkTip(new QLabel(this)),
      m_menu(new QMenu(this)) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  m_quick.setSingleShot(true);
  connect(&m_quick, &QTimer::timeout, this, [this] { Render(true); });
  m_wheelEnd.setSingleShot(true);
  m_wheelEnd.setInterval(kWheelPauseMs);
  connect(&m_wheelEnd, &QTimer::timeout, this, [this] { EndGesture(); });
  for (QLabel* label : {m_coordinate, m_tip, m_walkTip}) {
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setStyleSheet("QLabel { background: rgba(255,255,255,230); color: #111827; border: 1px solid #999; padding: 1px 3px; }");
    label->hide();
  }
  m_coordinate->setObjectName("coordinate");
  m_tip->setObjectName("tip");
  m_walkTip->setObjectName("notableTip");
  setAccessibleDescription(KeyHelp());  // until a window says more of what is drawn
  CopyText = [](const QString& text) { QGuiApplication::clipboard()->setText(text); };
  m_plot.OnProgress = [this](int percent) { emit Progress(percent); };
  m_plot.OnFinished = [this] { emit Finished(); };
  ChooseColor = [this](const QColor& current, const QString& title) -> std::optional<QColor> {
    const QColor chosen = QColorDialog::getColor(current, this, title);
    if (!chosen.isValid()) return std::nullopt;
    return chosen;
  };
  BuildMenu();
}

void PlotWidget::Redraw() { Render(false); }

// Samples the scene for the widget's size and screen; a quick picture has low quality and is
// followed by a full one when the gesture ends.
void PlotWidget::Render(bool quick) {
  if (quick) m_sinceQuick.start();
  m_plot.SetSize(size().expandedTo(QSize(1, 1)));
  m_plot.SetDevicePixelRatio(devicePixelRatioF());
  const double quality = m_plot.Quality();
  if (quick) m_plot.SetQuality(std::min(quality, static_cast<double>(kQuickQuality)));
  m_plot.Redraw();
  m_plot.DrawPicture(m_picture, QImage::Format_ARGB32_Premultiplied);
  m_plot.SetQuality(quality);
  m_pictureView[0] = m_plot.XMin(), m_pictureView[1] = m_plot.XMax();
  m_pictureView[2] = m_plot.YMin(), m_pictureView[3] = m_plot.YMax();
  m_readyPending = !quick;
  HideTip();  // the curves it was for have been drawn anew
  EndWalk();  // and its points may have moved or gone; the next N finds them again
  update();
}

// The keyboard's place is always visible: a ring inside the edge while the plot has the focus,
// in the window's highlight colour, over whatever the plot's own frame is.
void PlotWidget::PaintFocus(QPainter& painter) const {
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void PlotWidget::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void PlotWidget::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void PlotWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), m_plot.ShownBack());
  if (!m_picture.isNull()) {
    // The last picture where its view lies in the current one: shifted while panning, scaled
    // while zooming, until a new picture comes.
    const double w = width(), h = height();
    const double sx = w / (m_plot.XMax() - m_plot.XMin());
    const double sy = h / (m_plot.YMax() - m_plot.YMin());
    const QRectF target(QPointF((m_pictureView[0] - m_plot.XMin()) * sx, (m_plot.YMax() - m_pictureView[3]) * sy),
                        QPointF((m_pictureView[1] - m_plot.XMin()) * sx, (m_plot.YMax() - m_pictureView[2]) * sy));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, m_dragging || m_wheelEnd.isActive());
    painter.drawImage(target, m_picture);
  }
  PaintNotablePoints(painter);
  PaintWalk(painter);
  PaintFocus(painter);
  painter.end();
  if (m_readyPending) {
    m_readyPending = false;
    emit Ready();
  }
}

void PlotWidget::resizeEvent(QResizeEvent*) { Render(false); }

void PlotWidget::MoveBy(QPointF pixels) {
  const double dx = -pixels.x() * (m_plot.XMax() - m_plot.XMin()) / std::max(1, width());
  const double dy = pixels.y() * (m_plot.YMax() - m_plot.YMin()) / std::max(1, height());
  m_plot.SetXMin(m_plot.XMin() + dx), m_plot.SetXMax(m_plot.XMax() + dx);
  m_plot.SetYMin(m_plot.YMin() + dy), m_plot.SetYMax(m_plot.YMax() + dy);
}

// Scales the range about the point under the pointer, along the axes that ZoomType names.
void PlotWidget::ZoomAbout(QPointF pixel, double factor) {
  const double x = m_plot.XMin() + pixel.x() / std::max(1, width()) * (m_plot.XMax() - m_plot.XMin());
  const double y = m_plot.YMax() - pixel.y() / std::max(1, height()) * (m_plot.YMax() - m_plot.YMin());
  const int type = m_plot.ZoomType();
  if (type == 1 || type == 3) {
    m_plot.SetXMin(x + (m_plot.XMin() - x) * factor);
    m_plot.SetXMax(x + (m_plot.XMax() - x) * factor);
  }
  if (type == 2 || type == 3) {
    m_plot.SetYMin(y + (m_plot.YMin() - y) * factor);
    m_plot.SetYMax(y + (m_plot.YMax() - y) * factor);
  }
}

void PlotWidget::GestureMoved() {
  update();  // the shifted or scaled picture at once
  // At most one quick picture every kQuickDelayMs, counted from the start of the last one, so
  // that a scene slower than that to draw is drawn again at once rather than after a pause.
  if (!m_quick.isActive()) {
    const qint64 since = m_sinceQuick.isValid() ? m_sinceQuick.elapsed() : kQuickDelayMs;
    m_quick.start(static_cast<int>(std::max<qint64>(0, kQuickDelayMs - since)));
  }
}

void PlotWidget::EndGesture() {
  m_quick.stop();
  m_wheelEnd.stop();
  Render(false);
  emit ViewFinished(m_plot.XMin(), m_plot.XMax(), m_plot.YMin(), m_plot.YMax(), 1);
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  m_pressed = true;
  m_pressedAt = m_lastPointer = event->position();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  if (m_pressed && !m_dragging && m_plot.Interactive() && QLineF(at, m_pressedAt).length() >= kClickSlop) {
    m_dragging = true;
    HideTip();
  }
  if (m_dragging) {
    MoveBy(at - m_lastPointer);
    m_lastPointer = at;
    GestureMoved();
  } else {
    ShowTip(at);
  }
  ShowCoordinate(at);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !m_pressed) return;
  m_pressed = false;
  if (m_dragging) {
    m_dragging = false;
    EndGesture();
  } else if (const NotablePoint* point = NotablePointAt(event->position())) {
    const QString text = PointText(point->At);
    CopyText(text);
    ShowLabel(m_tip, QStringLiteral("Copied %1").arg(text), event->position());
  }
}

void PlotWidget::wheelEvent(QWheelEvent* event) {
  if (!m_plot.Interactive()) return;
  const double notches = event->angleDelta().y() / 120.0;
  if (notches == 0) return;
  ZoomAbout(event->position(), std::pow(kWheelStep, notches));
  GestureMoved();
  m_wheelEnd.start();
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
  if (WalkKey(*event)) return;
  if (!m_plot.Interactive()) return QWidget::keyPressEvent(event);
  const QPointF step(width() * kKeyStep, height() * kKeyStep);
  switch (event->key()) {
    case Qt::Key_Left: MoveBy({step.x(), 0}); break;   // the view moves left: the picture right
    case Qt::Key_Right: MoveBy({-step.x(), 0}); break;
    case Qt::Key_Up: MoveBy({0, step.y()}); break;
    case Qt::Key_Down: MoveBy({0, -step.y()}); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: m_plot.ZoomIn(); break;
    case Qt::Key_Minus: m_plot.ZoomOut(); break;
    default: return QWidget::keyPressEvent(event);
  }
  Render(false);
  emit ViewFinished(m_plot.XMin(), m_plot.XMax(), m_plot.YMin(), m_plot.YMax(), 0);
}

void PlotWidget::ShowCoordinate(QPointF pixel) {
  if (!m_plot.ShowMouseCoordinate()) {
    m_coordinate->hide();
    return;
  }
  const double x = m_plot.XMin() + pixel.x() / std::max(1, width()) * (m_plot.XMax() - m_plot.XMin());
  const double y = m_plot.YMax() - pixel.y() / std::max(1, height()) * (m_plot.YMax() - m_plot.YMin());
  ShowLabel(m_coordinate, ShortPointText(QPointF(x, y), Span()), pixel);
}

// A label beside the pointer, kept inside the widget; the tips go above the coordinate.
void PlotWidget::ShowLabel(QLabel* label, const QString& text, QPointF pixel) {
  label->setText(text);
  label->adjustSize();
  QPoint at = pixel.toPoint() + (label != m_coordinate ? QPoint(14, -14 - label->height()) : QPoint(14, 14));
  at.setX(std::clamp(at.x(), 2, std::max(2, width() - label->width() - 2)));
  at.setY(std::clamp(at.y(), 2, std::max(2, height() - label->height() - 2)));
  label->move(at);
  label->show();
}

// Whether the last drawing is of the range on the screen, so that its curves are where they seem.
bool PlotWidget::PictureIsCurrent() const {
  return !m_picture.isNull() && m_pictureView[0] == m_plot.XMin() && m_pictureView[1] == m_plot.XMax() &&
         m_pictureView[2] == m_plot.YMin() && m_pictureView[3] == m_plot.YMax();
}

QSizeF PlotWidget::Span() const { return {m_plot.XMax() - m_plot.XMin(), m_plot.YMax() - m_plot.YMin()}; }

QPointF PlotWidget::ToWidget(QPointF at) const {
  return {(at.x() - m_plot.XMin()) / (m_plot.XMax() - m_plot.XMin()) * width(),
          (m_plot.YMax() - at.y()) / (m_plot.YMax() - m_plot.YMin()) * height()};
}

const NotablePoint* PlotWidget::NotablePointAt(QPointF pixel) const {
  const NotablePoint* nearest = nullptr;
  double best = kDotReach;
  for (const NotablePoint& point : m_special) {
    const double distance = QLineF(ToWidget(point.At), pixel).length();
    if (distance <= best) best = distance, nearest = &point;
  }
  return nearest;
}

// The tip for the curve under the pointer: the special point under it, else the row and the
// curve's nearest point. The dots stay while the pointer is on the curve or on one of them.
void PlotWidget::ShowTip(QPointF pixel) {
  if (!m_plot.ShowTips() || !PictureIsCurrent() || m_wheelEnd.isActive()) return HideTip();
  const Drawing& drawing = m_plot.LastDrawing();
  const double ratio = m_plot.DevicePixelRatio();
  const auto [curve, nearest] = NearestCurvePoint(drawing, m_plot.View(), pixel * ratio, kCurveReach * ratio);
  if (curve >= 0 && curve != m_tipCurve) {
    m_tipCurve = curve;
    m_special = FindNotablePoints(drawing, static_cast<std::size_t>(curve), m_plot.View());
    update();
  }
  if (const NotablePoint* point = NotablePointAt(pixel)) {
    return ShowLabel(m_tip, QStringLiteral("%1 %2").arg(KindName(point->What), ShortPointText(point->At, Span())), pixel);
  }
  if (curve < 0) return HideTip();
  const int row = drawing.Curves[static_cast<std::size_t>(curve)].Row;
  const QString at = ShortPointText(nearest, Span());
  ShowLabel(m_tip, row > 0 ? QStringLiteral("Row %1: %2").arg(row).arg(at) : at, pixel);
}

void PlotWidget::HideTip() {
  m_tip->hide();
  if (m_tipCurve < 0) return;
  m_tipCurve = -1;
  m_special.clear();
  update();
}

void PlotWidget::PaintNotablePoints(QPainter& painter) const {
  if (m_special.empty()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(QColor(128, 128, 128));
  for (const NotablePoint& point : m_special) painter.drawEllipse(ToWidget(point.At), kDotRadius, kDotRadius);
}

QString PlotWidget::KeyHelp() {
  return QStringLiteral(
      "Arrow keys move the view, plus and minus zoom. N goes to the next notable point, Shift+N to the previous, "
      "Home and End to the first and last, Escape leaves them.");
}

// N and Shift+N, Home and End go through the notable points, Escape leaves them. They work on a
// locked plot too: they show points and do not move the view.
bool PlotWidget::WalkKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool plain = modifiers == Qt::NoModifier, shift = modifiers == Qt::ShiftModifier;
  switch (event.key()) {
    case Qt::Key_N:
      if (plain || shift) StepWalk([plain](NotableWalk& walk) { walk.Step(plain ? 1 : -1); });
      return plain || shift;
    case Qt::Key_Home:
      if (plain) StepWalk([](NotableWalk& walk) { walk.ToFirst(); });
      return plain;
    case Qt::Key_End:
      if (plain) StepWalk([](NotableWalk& walk) { walk.ToLast(); });
      return plain;
    case Qt::Key_Escape:
      if (!plain || !m_walk.Active()) return false;  // then Escape is the window's
      EndWalk();
      return true;
    default: return false;
  }
}

void PlotWidget::StepWalk(const std::function<void(NotableWalk&)>& move) {
  // Between a wheel's notches the picture is not of the view on the screen, and its points would
  // be said for the wrong places; the key is taken again once the picture has caught up.
  if (!PictureIsCurrent() || m_wheelEnd.isActive()) return;
  if (!m_walk.Active()) {
    // The points of every curve at once, found anew for each walk: some milliseconds on the busiest
    // samples (tens of curves), too short a pause to notice, and then every step is free.
    m_restingName = accessibleName();
    m_walk.Find(m_plot.LastDrawing(), m_plot.View());
  }
  move(m_walk);
  if (const NotableWalk::Stop* stop = m_walk.Current()) {
    ShowLabel(m_walkTip, m_walk.TipText(Span()), ToWidget(stop->At));
  } else {
    m_walkTip->hide();
  }
  update();
  // The walk speaks through the accessible name. The description is the window's account of what
  // is drawn, rewritten after every replot, and stays true during a walk; a new name on the
  // focused widget is what a screen reader says at once. Qt sends NameChanged with every name
  // set, an unchanged one too, so a stop asked for again is heard again.
  setAccessibleName(m_walk.SpokenText(Span()));
}

// Back to the plot as it was before N: no marked point, and its own accessible name.
void PlotWidget::EndWalk() {
  if (!m_walk.Active()) return;
  m_walk.Clear();
  m_walkTip->hide();
  setAccessibleName(m_restingName);
  update();
}

// Every point of the walk as the tips show a curve's points, and a ring about the one it is on.
void PlotWidget::PaintWalk(QPainter& painter) const {
  const NotableWalk::Stop* current = m_walk.Current();
  if (current == nullptr) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(QColor(128, 128, 128));
  for (const NotableWalk::Stop& stop : m_walk.Stops()) painter.drawEllipse(ToWidget(stop.At), kDotRadius, kDotRadius);
  painter.setBrush(Qt::NoBrush);
  // Black on a light back, white on a dark one (the dark look's, or one the user chose).
  painter.setPen(QPen(m_plot.ShownBack().lightness() < 128 ? Qt::white : Qt::black, kRingWidth));
  painter.drawEllipse(ToWidget(current->At), kRingRadius, kRingRadius);
}

void PlotWidget::leaveEvent(QEvent*) {
  m_coordinate->hide();
  HideTip();
}

void PlotWidget::contextMenuEvent(QContextMenuEvent* event) {
  // The check marks follow the scene, which the program may have changed meanwhile.
  for (QAction* action : m_menu->actions()) {
    const QString text = action->text();
    if (text == u"Show Axis") action->setChecked(m_plot.ShowAxis());
    if (text == u"Show Grid") action->setChecked(m_plot.ShowGrid());
    if (text == u"Show Numbers") action->setChecked(m_plot.ShowNumbers());
    if (text == u"Show Outer Frame") action->setChecked(m_plot.ShowOuterFrame());
    if (text == u"Show Tips") action->setChecked(m_plot.ShowTips());
    if (text == u"Show Mouse Coordinate") action->setChecked(m_plot.ShowMouseCoordinate());
    if (text == u"Transparent Background") action->setChecked(m_plot.TransparentBackground());
    if (text == u"Zoom X") action->setChecked(m_plot.ZoomType() == 1);
    if (text == u"Zoom Y") action->setChecked(m_plot.ZoomType() == 2);
    if (text == u"Zoom X and Y") action->setChecked(m_plot.ZoomType() == 3);
  }
  m_menu->exec(event->globalPos());
}

QList<QAction*> PlotWidget::MenuActions() const { return m_menu->actions(); }

void PlotWidget::Changed(const QString& setting) {
  Render(false);
  emit SettingsChanged(setting);
}

void PlotWidget::BuildMenu() {
  const auto toggle = [this](const QString& text, bool (Plot::*get)() const, void (Plot::*set)(bool)) {
    QAction* action = m_menu->addAction(text);
    action->setCheckable(true);
    action->setChecked((m_plot.*get)());
    connect(action, &QAction::triggered, this, [this, text, set](bool on) {
      (m_plot.*set)(on);
      if (text == u"Show Mouse Coordinate" && !on) m_coordinate->hide();
      Changed(text);
    });
  };
  toggle("Show Axis", &Plot::ShowAxis, &Plot::SetShowAxis);
  toggle("Show Grid", &Plot::ShowGrid, &Plot::SetShowGrid);
  toggle("Show Numbers", &Plot::ShowNumbers, &Plot::SetShowNumbers);
  toggle("Show Outer Frame", &Plot::ShowOuterFrame, &Plot::SetShowOuterFrame);
  toggle("Show Tips", &Plot::ShowTips, &Plot::SetShowTips);
  toggle("Show Mouse Coordinate", &Plot::ShowMouseCoordinate, &Plot::SetShowMouseCoordinate);
  toggle("Transparent Background", &Plot::TransparentBackground, &Plot::SetTransparentBackground);
  m_menu->addSeparator();
  const auto colour = [this](const QString& text, double (Plot::*get)() const, void (Plot::*set)(double)) {
    connect(m_menu->addAction(text), &QAction::triggered, this, [this, text, get, set] {
      if (const auto chosen = ChooseColor(Plot::ColorOf((m_plot.*get)()), text)) {
        (m_plot.*set)(ValueOf(*chosen));
        Changed(text);
      }
    });
  };
  colour("Back Colour...", &Plot::BackColor, &Plot::SetBackColor);
  colour("Axis Colour...", &Plot::AxisColor, &Plot::SetAxisColor);
  m_menu->addSeparator();
  auto* zoomTypes = new QActionGroup(this);
  for (const auto& [text, type] : {std::pair{"Zoom X", 1}, std::pair{"Zoom Y", 2}, std::pair{"Zoom X and Y", 3}}) {
    QAction* action = m_menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(m_plot.ZoomType() == type);
    zoomTypes->addAction(action);
    const QString name = QString::fromLatin1(text);
    const int zoomType = type;
    connect(action, &QAction::triggered, this, [this, name, zoomType] {
      m_plot.SetZoomType(zoomType);
      emit SettingsChanged(name);
    });
  }
  m_menu->addSeparator();
  const auto command = [this](const QString& text, void (Plot::*run)()) {
    connect(m_menu->addAction(text), &QAction::triggered, this, [this, text, run] {
      (m_plot.*run)();
      Changed(text);
    });
  };
  command("Zoom In", &Plot::ZoomIn);
  command("Zoom Out", &Plot::ZoomOut);
  command("Reset Range", &Plot::ResetRange);
}

}  // namespace plot2d
