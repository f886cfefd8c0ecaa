#include "UndoCommands.h"

#include "ribbon/QuickAccessBar.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

#include <utility>

namespace rows {

UndoCommands::UndoCommands(history::ProjectTarget& target, ribbon::QuickAccessBar& quick, QWidget& window,
                           std::function<void()> flushChange)
    : QObject(&window), m_history(target), m_flushChange(std::move(flushChange)) {
  m_undo = &quick.AddCommand(kUndo, tr("Undo"), QStringLiteral("edit-undo"), QStringLiteral("Ctrl+Z"),
                             tr("Take back the last change"));
  m_redo = &quick.AddCommand(kRedo, tr("Redo"), QStringLiteral("edit-redo"), QStringLiteral("Ctrl+Y"),
                             tr("Make the change that was taken back again"));
  // The second key that desktops use for Redo.
  auto* redo = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")), &window);
  connect(redo, &QShortcut::activated, this, &UndoCommands::Redo);
  connect(&m_history, &history::ProjectHistory::Changed, this, &UndoCommands::Follow);
  connect(qApp, &QApplication::focusChanged, this, [this] { Seal(); });
  Follow();
}

bool UndoCommands::Execute(std::int32_t id) {
  if (id == kUndo) Undo();
  else if (id == kRedo) Redo();
  else return false;
  return true;
}

void UndoCommands::Undo() {
  m_flushChange();
  m_history.Undo();
  m_flushChange();
}

void UndoCommands::Redo() {
  m_flushChange();
  m_history.Redo();
  m_flushChange();
}

void UndoCommands::Seal() {
  if (m_history.Applying()) return;
  m_flushChange();
  m_history.Seal();
}

void UndoCommands::Follow() {
  m_undo->SetEnabled(m_history.CanUndo());
  m_redo->SetEnabled(m_history.CanRedo());
  m_undo->SetToolTip(m_history.CanUndo() ? tr("Undo: %1").arg(m_history.UndoName()) : tr("Undo"));
  m_redo->SetToolTip(m_history.CanRedo() ? tr("Redo: %1").arg(m_history.RedoName()) : tr("Redo"));
}

}  // namespace rows
