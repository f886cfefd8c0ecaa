#include "AutoReplot.h"

namespace rows {

AutoReplot::AutoReplot(std::function<QString()> inputs, std::function<void()> replot, QObject* parent)
    : QObject(parent), m_inputs(std::move(inputs)), m_replot(std::move(replot)) {
  m_timer.setSingleShot(true);
  connect(&m_timer, &QTimer::timeout, this, &AutoReplot::Fire);
}

void AutoReplot::Check(bool typed) {
  if (!m_enabled || m_inputs() == m_drawn) return;
  // Each keystroke starts the pause anew; a click does not wait.
  m_timer.start(typed ? kTypingPauseMs : 0);
}

void AutoReplot::Drawn() {
  m_timer.stop();
  m_drawn = m_inputs();
}

void AutoReplot::Fire() {
  if (!m_enabled || m_inputs() == m_drawn) return;
  m_replot();
}

}  // namespace rows
