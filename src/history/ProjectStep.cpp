#include "ProjectStep.h"

#include <utility>

namespace history {

ProjectStep::ProjectStep(ProjectTarget& target, QString before, QString after, Change change)
    : m_target(target), m_before(std::move(before)), m_after(std::move(after)), m_change(std::move(change)) {
  setText(m_change.Name);
}

void ProjectStep::undo() { Apply(m_before); }

void ProjectStep::redo() {
  if (std::exchange(m_fresh, false)) return;
  Apply(m_after);
}

// Typing on in a row, or moving the same slider on, makes one step; a step that ends where it
// began is dropped.
bool ProjectStep::mergeWith(const QUndoCommand* other) {
  const auto* next = dynamic_cast<const ProjectStep*>(other);
  if (m_sealed || next == nullptr || !m_change.Continues(next->m_change)) return false;
  m_after = next->m_after;
  setObsolete(m_after == m_before);
  return true;
}

}  // namespace history
