#pragma once

#include "history/ProjectHistory.h"

#include <QObject>

#include <functional>

namespace ribbon {
class CommandControl;
class QuickAccessBar;
}

class QWidget;

namespace rows {

// Undo and Redo as the window offers them: the two buttons at the left of the quick access bar,
// Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z, with the step's name in the buttons' tool tips. A step's
// boundary comes with each mouse press and each move of the focus; before one, the change in
// progress is recorded (FlushChange), so that it ends the step it belongs to.
class UndoCommands : public QObject {
  Q_OBJECT

public:
  static constexpr std::int32_t kUndo = 57643;
  static constexpr std::int32_t kRedo = 57644;

  UndoCommands(history::ProjectTarget& target, ribbon::QuickAccessBar& quick, QWidget& window,
               std::function<void()> flushChange);

  history::ProjectHistory& History() { return m_history; }
  // The commands by id: whether the id was one of them.
  bool Execute(std::int32_t id);
  void Undo();
  void Redo();
  // A new action begins: what came before is a step of its own.
  void Seal();

private:
  void Follow();

  history::ProjectHistory m_history;
  ribbon::CommandControl* m_undo;
  ribbon::CommandControl* m_redo;
  std::function<void()> m_flushChange;
};

}  // namespace rows
