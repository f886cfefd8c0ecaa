#include "FieldGuard.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QTimer>

namespace rows {

FieldGuard::FieldGuard(QLineEdit& field, std::function<bool(const QString&)> valid)
    : QObject(&field), m_field(field), m_valid(std::move(valid)) {
  field.installEventFilter(this);
}

bool FieldGuard::Valid() const { return m_valid(m_field.text()); }

void FieldGuard::SetBackground(QLineEdit& field, bool red) {
  field.setProperty("invalid", red);
  field.setStyleSheet(red ? QStringLiteral("QLineEdit { background: rgb(255, 0, 0); color: white; }") : QString());
}

void FieldGuard::Refresh() { SetBackground(m_field, !Valid()); }

bool FieldGuard::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_field && event->type() == QEvent::FocusOut && !Valid()) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    // The window losing the activation (another program, a dialog) takes no focus from the field.
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
      QTimer::singleShot(0, &m_field, [this] {
        if (!Valid()) m_field.setFocus(Qt::OtherFocusReason);
      });
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace rows
