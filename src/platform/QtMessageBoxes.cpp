#include "QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

namespace platform {

namespace {

QMessageBox::Icon IconOf(MessageBoxes::Icon icon) {
  switch (icon) {
    case MessageBoxes::Icon::Information: return QMessageBox::Information;
    case MessageBoxes::Icon::Exclamation: return QMessageBox::Warning;
    case MessageBoxes::Icon::Question: return QMessageBox::Question;
    case MessageBoxes::Icon::Critical: return QMessageBox::Critical;
    case MessageBoxes::Icon::None: break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageBoxes::Buttons buttons) {
  switch (buttons) {
    case MessageBoxes::Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageBoxes::Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case MessageBoxes::Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageBoxes::Buttons::Ok: break;
  }
  return QMessageBox::Ok;
}

}  // namespace

MessageBoxes::Answer QtMessageBoxes::Show(const QString& text, Buttons buttons, Icon icon, const QString& title) {
  QMessageBox box(IconOf(icon), title, text, ButtonsOf(buttons), QApplication::activeWindow());
  switch (box.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    case QMessageBox::Ok: return Answer::Ok;
    default: break;
  }
  // Closed by the window's own button.
  if (buttons == Buttons::YesNo) return Answer::No;
  if (buttons == Buttons::Ok) return Answer::Ok;
  return Answer::Cancel;
}

}  // namespace platform
