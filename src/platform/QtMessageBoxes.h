#pragma once

#include "MessageBoxes.h"

class QWidget;

namespace platform {

// Message boxes on the screen: QMessageBox, modal to the active window.
class QtMessageBoxes : public MessageBoxes {
public:
  Answer Show(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
};

}  // namespace platform
