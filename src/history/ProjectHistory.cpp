#include "ProjectHistory.h"

#include "PageStep.h"
#include "RowEditStep.h"
#include "RowListStep.h"
#include "ViewStep.h"

#include <memory>

namespace history {

namespace {

std::unique_ptr<ProjectStep> StepFor(ProjectTarget& target, const QString& before, const QString& after,
                                     const Change& change) {
  switch (change.What) {
    case Change::Kind::RowEdit: return std::make_unique<RowEditStep>(target, before, after, change);
    case Change::Kind::Page: return std::make_unique<PageStep>(target, before, after, change);
    case Change::Kind::View: return std::make_unique<ViewStep>(target, before, after, change);
    case Change::Kind::RowList:
    case Change::Kind::None: break;
  }
  Change whole = change;
  if (whole.Name.isEmpty()) whole.Name = QStringLiteral("change");
  return std::make_unique<RowListStep>(target, before, after, whole);
}

}  // namespace

ProjectHistory::ProjectHistory(ProjectTarget& target, QObject* parent) : QObject(parent), m_target(target) {
  m_stack.setUndoLimit(kLimit);
  connect(&m_stack, &QUndoStack::indexChanged, this, &ProjectHistory::Changed);
}

void ProjectHistory::Reset(const QString& now) {
  m_stack.clear();
  m_current = now;
  m_currentParsed = ProjectText::Parse(now);
  emit Changed();
}

void ProjectHistory::Record(const QString& now) {
  if (m_applying || now == m_current) return;
  ProjectText parsed = ProjectText::Parse(now);
  const Change change = Change::Between(m_currentParsed, parsed);
  std::unique_ptr<ProjectStep> step = StepFor(m_target, m_current, now, change);
  m_current = now;
  m_currentParsed = std::move(parsed);
  m_stack.push(step.release());
  emit Changed();
}

void ProjectHistory::Seal() {
  if (m_stack.index() == 0) return;
  // The stack hands out its steps as const; sealing changes no state that it looks at.
  if (auto* top = dynamic_cast<const ProjectStep*>(m_stack.command(m_stack.index() - 1)))
    const_cast<ProjectStep*>(top)->Seal();
}

bool ProjectHistory::Undo() { return Take(true); }

bool ProjectHistory::Redo() { return Take(false); }

bool ProjectHistory::Take(bool undo) {
  if (undo ? !m_stack.canUndo() : !m_stack.canRedo()) return false;
  {
    struct Applying {
      bool& Flag;
      explicit Applying(bool& flag) : Flag(flag) { Flag = true; }
      ~Applying() { Flag = false; }
    } applying(m_applying);
    undo ? m_stack.undo() : m_stack.redo();
  }
  // The project as it now is, which is what the next change starts from.
  m_current = m_target.Compose();
  m_currentParsed = ProjectText::Parse(m_current);
  Seal();
  emit Changed();
  return true;
}

}  // namespace history
