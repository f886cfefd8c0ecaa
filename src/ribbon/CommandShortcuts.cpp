#include "CommandShortcuts.h"

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

#include <algorithm>

namespace ribbon {

CommandShortcuts::CommandShortcuts(CommandBars& bars, QWidget& owner) : QObject(&owner), m_bars(bars), m_owner(owner) {}

CommandShortcuts::~CommandShortcuts() = default;

bool CommandShortcuts::IsBound(const QString& keys) const {
  const QKeySequence sequence(keys);
  return std::any_of(m_bindings.begin(), m_bindings.end(),
                     [&sequence](const Binding& binding) { return binding.Shortcut->key() == sequence; });
}

void CommandShortcuts::Follow(const Binding& binding) const {
  const CommandControl* control = binding.Control;
  binding.Shortcut->setEnabled(control != nullptr && control->Enabled() && control->Visible() &&
                               !m_suspended.contains(binding.Layer));
}

void CommandShortcuts::Bind(CommandControl& control, int layer) {
  Prune();
  const QString keys = control.Shortcut();
  if (keys.isEmpty() || QKeySequence(keys).isEmpty() || IsBound(keys)) return;
  auto* shortcut = new QShortcut(QKeySequence(keys), &m_owner);
  shortcut->setContext(Qt::WindowShortcut);
  shortcut->setProperty("commandId", control.Id());
  const QPointer<CommandControl> target(&control);
  m_bindings.push_back({shortcut, target, layer});
  Follow(m_bindings.back());
  connect(&control, &CommandControl::Changed, shortcut, [this, shortcut] {
    for (const Binding& binding : m_bindings) {
      if (binding.Shortcut == shortcut) Follow(binding);
    }
  });
  connect(shortcut, &QShortcut::activated, this, [this, target] { Fire(target); });
}

// Bindings whose control has gone give their keys back.
void CommandShortcuts::Prune() {
  for (const Binding& binding : m_bindings) {
    if (!binding.Control) delete binding.Shortcut;
  }
  std::erase_if(m_bindings, [](const Binding& binding) { return !binding.Control; });
}

void CommandShortcuts::Unbind(int layer) {
  for (const Binding& binding : m_bindings) {
    if (binding.Layer == layer) delete binding.Shortcut;
  }
  std::erase_if(m_bindings, [layer](const Binding& binding) { return binding.Layer == layer; });
}

void CommandShortcuts::SetSuspended(int layer, bool suspended) {
  if (suspended) {
    m_suspended.insert(layer);
  } else {
    m_suspended.erase(layer);
  }
  for (const Binding& binding : m_bindings) Follow(binding);
}

QShortcut* CommandShortcuts::ShortcutFor(std::int32_t id) const {
  for (const Binding& binding : m_bindings) {
    if (binding.Control && binding.Control->Id() == id) return binding.Shortcut;
  }
  return nullptr;
}

void CommandShortcuts::Fire(const QPointer<CommandControl>& control) {
  if (!control || !control->Enabled() || !control->Visible()) return;
  if (m_beforeFire) m_beforeFire();
  if (control) m_bars.Execute(*control);
}

}  // namespace ribbon
