#include "RibbonSlider.h"

#include "RibbonButton.h"
#include "RibbonText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

namespace ribbon {

namespace {

constexpr int kSliderWidth = 96;

}  // namespace

RibbonSlider::RibbonSlider(CommandControl& control, CommandBars& bars, QWidget* parent)
    : QWidget(parent),
      m_control(&control),
      m_bars(bars),
      m_caption(new QLabel(this)),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_value(new QLabel(this)) {
  setObjectName(QStringLiteral("RibbonSlider"));
  setProperty("commandId", control.Id());
  setFixedHeight(RibbonButton::kRowHeight);
  m_caption->setObjectName(QStringLiteral("RibbonSliderCaption"));
  m_value->setObjectName(QStringLiteral("RibbonSliderValue"));
  m_slider->setFixedWidth(kSliderWidth);
  m_slider->setTracking(false);
  m_slider->setFocusPolicy(Qt::TabFocus);
  m_value->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 0, 4, 0);
  layout->setSpacing(6);
  layout->addWidget(m_caption);
  layout->addWidget(m_slider);
  layout->addWidget(m_value);
  connect(m_slider, &QSlider::sliderMoved, m_value, [this](int value) { m_value->setText(QString::number(value)); });
  connect(m_slider, &QSlider::valueChanged, this, &RibbonSlider::Settle);
  connect(&control, &CommandControl::Changed, this, &RibbonSlider::Follow);
  Follow();
}

void RibbonSlider::Follow() {
  if (!m_control) return;
  const CommandControl& control = *m_control;
  m_caption->setText(PlainCaption(control.Caption()));
  m_caption->setHidden(control.Caption().isEmpty());
  setToolTip(RichToolTip(control));
  m_slider->setAccessibleName(PlainCaption(control.Caption()));
  {
    const QSignalBlocker blocker(m_slider);
    m_slider->setRange(control.Min(), qMax(control.Min(), control.Max()));
    m_slider->setValue(control.Pos());
  }
  m_value->setText(QString::number(m_slider->value()));
  const QFontMetrics metrics = m_value->fontMetrics();
  m_value->setMinimumWidth(qMax(metrics.horizontalAdvance(QString::number(control.Min())),
                                metrics.horizontalAdvance(QString::number(control.Max()))));
  setEnabled(control.Enabled());
  setHidden(!control.Visible());
}

int RibbonSlider::CaptionWidth() const { return m_caption->isHidden() ? 0 : m_caption->sizeHint().width(); }

void RibbonSlider::SetCaptionWidth(int width) { m_caption->setMinimumWidth(width); }

void RibbonSlider::SetKeyTip(const QString& spoken) { m_slider->setAccessibleDescription(spoken); }

void RibbonSlider::Settle(int value) {
  m_value->setText(QString::number(value));
  if (!m_control || !m_control->Enabled()) return;
  m_control->SetPos(static_cast<std::int16_t>(value));
  m_bars.Execute(*m_control);
}

}  // namespace ribbon
