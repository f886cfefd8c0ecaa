#pragma once

#include <QString>

namespace platform {

// The program's message boxes: every question and notice goes through here, so that tests can
// answer a question and read exactly what was shown without a modal window.
class MessageBoxes {
public:
  enum class Icon { None, Information, Exclamation, Question, Critical };
  enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
  enum class Answer { Ok, Cancel, Yes, No };

  virtual ~MessageBoxes() = default;
  // Shows the box and returns the button chosen; closing the box counts as Cancel, or No where
  // there is no Cancel, or Ok for a box with only Ok.
  virtual Answer Show(const QString& text, Buttons buttons, Icon icon, const QString& title) = 0;
};

}  // namespace platform
