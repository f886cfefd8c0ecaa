#pragma once

#include "ProjectTarget.h"
#include "ProjectText.h"

#include <QObject>
#include <QUndoStack>

namespace history {

// Undo and redo for a whole project. After every change the project's text is handed to Record,
// which compares it with the text before and pushes a step of the matching kind; the same kind of
// change on the same thing continues the last step until Seal is called (a click, the focus
// moving on). Opening or starting a project empties the history; saving marks its clean state.
class ProjectHistory : public QObject {
  Q_OBJECT

public:
  // The most steps kept; older ones are forgotten.
  static constexpr int kLimit = 500;

  explicit ProjectHistory(ProjectTarget& target, QObject* parent = nullptr);

  // A project opened or started, as its text is now: no steps.
  void Reset(const QString& now);
  // The project's text after a change (or after nothing: an equal text is no step).
  void Record(const QString& now);
  void Seal();
  void MarkClean() { m_stack.setClean(); }

  // Whether there was a step to take.
  bool Undo();
  bool Redo();
  bool CanUndo() const { return m_stack.canUndo(); }
  bool CanRedo() const { return m_stack.canRedo(); }
  // The names of the steps that Undo and Redo would take ("remove row 3"), empty where none.
  QString UndoName() const { return m_stack.undoText(); }
  QString RedoName() const { return m_stack.redoText(); }
  int Count() const { return m_stack.count(); }
  // The steps that Redo can take one after another.
  int RedoCount() const { return m_stack.count() - m_stack.index(); }
  // While a step is being put back: changes seen then are the step's own.
  bool Applying() const { return m_applying; }

signals:
  // A step was pushed, taken or dropped.
  void Changed();

private:
  bool Take(bool undo);

  ProjectTarget& m_target;
  QUndoStack m_stack;
  QString m_current;
  ProjectText m_currentParsed;
  bool m_applying = false;
};

}  // namespace history
