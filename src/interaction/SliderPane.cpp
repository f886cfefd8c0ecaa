#include "SliderPane.h"

#include <QHBoxLayout>

namespace interaction {

SliderPane::SliderPane(const QString& caption, int highest, int lineStep, int pageStep, QWidget* parent)
    : QWidget(parent), m_caption(caption) {
  setObjectName(QStringLiteral("SliderPane"));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  m_minus = new QToolButton(this);
  m_minus->setText(QStringLiteral("\u2212"));
  m_minus->setAutoRaise(true);
  m_plus = new QToolButton(this);
  m_plus->setText(QStringLiteral("+"));
  m_plus->setAutoRaise(true);
  // A screen reader would say only the sign.
  m_minus->setAccessibleName(tr("%1: less").arg(caption));
  m_plus->setAccessibleName(tr("%1: more").arg(caption));
  m_slider = new QSlider(Qt::Horizontal, this);
  m_slider->setRange(1, highest);
  m_slider->setSingleStep(lineStep);
  m_slider->setPageStep(pageStep);
  m_slider->setFixedWidth(110);
  m_slider->setAccessibleName(caption);
  layout->addWidget(m_minus);
  layout->addWidget(m_slider);
  layout->addWidget(m_plus);
  connect(m_slider, &QSlider::actionTriggered, this, &SliderPane::Action);
  connect(m_slider, &QSlider::sliderReleased, this, [this] { emit Scrolled(4, m_slider->sliderPosition()); });
  connect(m_minus, &QToolButton::clicked, this, [this] { emit Scrolled(0, m_slider->value()); });
  connect(m_plus, &QToolButton::clicked, this, [this] { emit Scrolled(1, m_slider->value()); });
}

void SliderPane::SetPosition(int position) {
  const QSignalBlocker quiet(m_slider);
  m_slider->setValue(position);
}

// Qt's slider actions as the scroll codes. The slider moves itself first; the handler then puts
// the thumb where the value ends up.
void SliderPane::Action(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepSub: emit Scrolled(0, m_slider->value()); break;
    case QAbstractSlider::SliderSingleStepAdd: emit Scrolled(1, m_slider->value()); break;
    case QAbstractSlider::SliderPageStepSub: emit Scrolled(2, m_slider->value()); break;
    case QAbstractSlider::SliderPageStepAdd: emit Scrolled(3, m_slider->value()); break;
    case QAbstractSlider::SliderMove: emit Scrolled(5, m_slider->sliderPosition()); break;
    case QAbstractSlider::SliderToMinimum: emit Scrolled(6, m_slider->value()); break;
    case QAbstractSlider::SliderToMaximum: emit Scrolled(7, m_slider->value()); break;
    default: break;
  }
}

}  // namespace interaction
