#pragma once

#include "Change.h"
#include "ProjectTarget.h"

#include <QUndoCommand>

namespace history {

// One step of the history: the project's text before and after a change, and the change it was.
// Undo puts the text before back, redo the text after; how, each kind of step decides. A step is
// pushed after its change has happened, so its first redo does nothing.
class ProjectStep : public QUndoCommand {
public:
  ProjectStep(ProjectTarget& target, QString before, QString after, Change change);

  void undo() final;
  void redo() final;
  bool mergeWith(const QUndoCommand* other) final;

  const Change& What() const { return m_change; }
  // No later change joins this step.
  void Seal() { m_sealed = true; }

protected:
  virtual void Apply(const QString& text) = 0;
  ProjectTarget& Target() { return m_target; }

private:
  ProjectTarget& m_target;
  QString m_before;
  QString m_after;
  Change m_change;
  bool m_fresh = true;
  bool m_sealed = false;
};

}  // namespace history
