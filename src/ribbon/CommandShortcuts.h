#pragma once

#include "CommandBars.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <set>
#include <vector>

class QShortcut;
class QWidget;

namespace ribbon {

// The keyboard shortcuts of the ribbon's controls: each control with a Shortcut() gets one key
// binding on the window (Qt::WindowShortcut) that executes it through the bars, and is off while
// the control is disabled or hidden. A key that is bound already keeps its first control, so that
// the same command shown in two places does not make the key ambiguous.
class CommandShortcuts : public QObject {
  Q_OBJECT

public:
  // The bindings live on owner, a widget of the window whose keys they take.
  CommandShortcuts(CommandBars& bars, QWidget& owner);
  ~CommandShortcuts() override;

  // Bindings come in layers: the ribbon's tree is bound again at each reload, while the quick
  // access bar's commands stay.
  static constexpr int kTreeLayer = 0;
  static constexpr int kQuickAccessLayer = 1;
  void Bind(CommandControl& control, int layer);
  void Unbind(int layer);
  // A suspended layer's keys are off, and so make no other key ambiguous (the backstage covers
  // the ribbon and has keys of its own).
  void SetSuspended(int layer, bool suspended);
  // Runs before a key executes its control (the backstage closes first).
  void SetBeforeFire(std::function<void()> beforeFire) { m_beforeFire = std::move(beforeFire); }

  QShortcut* ShortcutFor(std::int32_t id) const;

private:
  struct Binding {
    QShortcut* Shortcut;
    QPointer<CommandControl> Control;
    int Layer;
  };

  bool IsBound(const QString& keys) const;
  void Prune();
  void Follow(const Binding& binding) const;
  void Fire(const QPointer<CommandControl>& control);

  CommandBars& m_bars;
  QWidget& m_owner;
  std::vector<Binding> m_bindings;
  std::set<int> m_suspended;
  std::function<void()> m_beforeFire;
};

}  // namespace ribbon
