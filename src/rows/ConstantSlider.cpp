#include "ConstantSlider.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

namespace rows {

namespace {

constexpr int kBoundChars = 5;  // room for "-10.5" without scrolling; longer numbers scroll
constexpr int kStepChars = 4;   // "0.25"

}  // namespace

ConstantSlider::ConstantSlider(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("sliConstant"));
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(4);

  m_play = new QToolButton(this);
  m_play->setObjectName(QStringLiteral("btnPlay"));
  m_play->setAutoRaise(true);
  m_play->setIconSize(QSize(14, 14));
  m_play->setFocusPolicy(Qt::TabFocus);
  connect(m_play, &QToolButton::clicked, this, [this] { SetPlaying(!Playing()); });

  m_min = Field(QStringLiteral("txtMin"), tr("The slider's lowest value"), kBoundChars);
  m_slider = new QSlider(Qt::Horizontal, this);
  m_slider->setObjectName(QStringLiteral("sliValue"));
  m_slider->setFocusPolicy(Qt::StrongFocus);
  m_slider->setSingleStep(1);
  m_slider->setPageStep(10);
  connect(m_slider, &QSlider::valueChanged, this, &ConstantSlider::Moved);
  m_slider->installEventFilter(this);
  m_max = Field(QStringLiteral("txtMax"), tr("The slider's highest value"), kBoundChars);
  m_stepLabel = new QLabel(tr("step"), this);
  m_stepLabel->setObjectName(QStringLiteral("lblStep"));
  m_step = Field(QStringLiteral("txtStep"), tr("How far one step of the slider goes"), kStepChars);
  m_stepLabel->setBuddy(m_step);

  line->addWidget(m_play);
  line->addWidget(m_min);
  line->addWidget(m_slider, 1);
  line->addWidget(m_max);
  line->addSpacing(4);
  line->addWidget(m_stepLabel);
  line->addWidget(m_step);

  m_sweep.setInterval(kSweepIntervalMs);
  connect(&m_sweep, &QTimer::timeout, this, &ConstantSlider::Tick);
  ShowPlayButton();
  ShowBounds(true);
}

// The wheel over a slider that has no focus scrolls the list, as over the rest of the row: a
// constant must not change under a pointer that only passes by.
bool ConstantSlider::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_slider && event->type() == QEvent::Wheel && !m_slider->hasFocus()) {
    QCoreApplication::sendEvent(this, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

QLineEdit* ConstantSlider::Field(const QString& name, const QString& tip, int chars) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setToolTip(tip + tr(" (Enter to apply)"));
  field->setAccessibleName(tip);
  field->setAlignment(Qt::AlignRight);
  field->setFixedWidth(field->fontMetrics().horizontalAdvance(QString(chars, u'8')) + 10);
  connect(field, &QLineEdit::editingFinished, this, &ConstantSlider::BoundsEdited);
  return field;
}

void ConstantSlider::ShowValue(const QString& name, double value) {
  if (name != m_name) {
    m_name = name;
    m_slider->setAccessibleName(tr("Value of %1").arg(name));
    m_slider->setToolTip(tr("Drag to change %1; the arrow keys step it, Page Up and Page Down ten steps").arg(name));
  }
  // The echo of a move made here keeps the bounds, so that they never shrink under a drag; a
  // value typed in the row gets the user's bounds, widened afresh.
  const bool echo = !m_written.isEmpty() && m_bounds.Format(value) == m_written;
  if (!echo) m_written.clear();
  m_value = value;
  const SliderBounds bounds = echo ? m_bounds.WidenedFor(value) : m_user.value_or(SliderBounds{}).WidenedFor(value);
  const bool changed = bounds != m_bounds;
  m_bounds = bounds;
  ShowBounds(changed);
}

void ConstantSlider::SetUserBounds(const std::optional<SliderBounds>& bounds) {
  m_user = bounds;
  m_written.clear();
  m_bounds = m_user.value_or(SliderBounds{}).WidenedFor(m_value);
  ShowBounds(true);
}

// Every layout of the list stops the sweep of each row that is no constant: the button is set
// only when the state changes, since its icons are read afresh each time.
void ConstantSlider::SetPlaying(bool playing) {
  const bool on = playing && m_bounds.Positions() > 0;
  if (on == m_sweep.isActive()) return;
  if (on) m_sweep.start();
  else m_sweep.stop();
  ShowPlayButton();
}

void ConstantSlider::ShowPlayButton() {
  const bool on = m_sweep.isActive();
  m_play->setIcon(style()->standardIcon(on ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
  m_play->setText(on ? tr("Pause") : tr("Play"));
  m_play->setAccessibleName(on ? tr("Pause") : tr("Play"));
  m_play->setToolTip(on ? tr("Stop the sweep") : tr("Sweep the value back and forth between the bounds"));
}

void ConstantSlider::Tick() {
  const int last = m_bounds.Positions();
  if (last <= 0) return;
  int next = m_slider->value() + m_direction;
  if (next < 0 || next > last) {
    m_direction = -m_direction;
    next = m_slider->value() + m_direction;
  }
  m_slider->setValue(next);
}

void ConstantSlider::Moved(int position) {
  if (m_quiet) return;
  m_value = m_bounds.ValueAt(position);
  m_written = m_bounds.Format(m_value);
  emit ValueChosen(m_written);
}

// Bounds that cannot make a slider, or that are the ones in force, leave everything as it was.
void ConstantSlider::BoundsEdited() {
  const auto typed = SliderBounds::FromNumbers(m_min->text(), m_max->text(), m_step->text());
  if (!typed || *typed == m_bounds) {
    ShowBounds(true);
    return;
  }
  m_user = *typed == SliderBounds{} ? std::nullopt : typed;
  m_written.clear();
  m_bounds = typed->WidenedFor(m_value);
  ShowBounds(true);
  emit BoundsChanged();
}

// The range and the position from the bounds and the value, without a move of the user's; the
// fields only when asked, so that a sweep does not overwrite what is being typed in them.
void ConstantSlider::ShowBounds(bool fields) {
  m_quiet = true;
  m_slider->setRange(0, m_bounds.Positions());
  m_slider->setValue(m_bounds.PositionOf(m_value));
  m_quiet = false;
  if (!fields) return;
  const QStringList texts = m_bounds.Text().split(u':');
  m_min->setText(texts[0]);
  m_max->setText(texts[1]);
  m_step->setText(texts[2]);
  for (QLineEdit* field : {m_min, m_max, m_step}) field->setCursorPosition(0);
}

std::vector<QWidget*> ConstantSlider::TabOrder() const { return {m_play, m_min, m_slider, m_max, m_step}; }

}  // namespace rows
