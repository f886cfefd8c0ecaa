#include "RowPopup.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>

namespace dialogs {

RowPopup::RowPopup(QWidget* parent) : QDialog(parent, Qt::Tool | Qt::FramelessWindowHint) {
  setAttribute(Qt::WA_DeleteOnClose);
}

void RowPopup::Unload() {
  if (m_unloading) return;
  m_unloading = true;
  close();
}

void RowPopup::closeEvent(QCloseEvent* event) {
  m_unloading = true;
  QDialog::closeEvent(event);
}

bool RowPopup::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate: Form_Activate(); break;
    case QEvent::WindowDeactivate:
      if (!m_answering && !m_unloading && QApplication::activeModalWidget() == nullptr) Leave();
      break;
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        btnCancel_Click();
        return true;
      }
      break;
    default: break;
  }
  return QDialog::event(event);
}

}  // namespace dialogs
