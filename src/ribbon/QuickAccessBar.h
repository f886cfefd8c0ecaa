#pragma once

#include "CommandBars.h"

#include <QWidget>

#include <memory>
#include <vector>

class QHBoxLayout;

namespace ribbon {

class CommandShortcuts;
class RibbonButton;

// The quick access bar: small icon buttons at the top left of the ribbon for the commands used
// most (New, Open, Save). A command is either the bar's own control (AddCommand), which may live
// nowhere else in the tree, or a control that lives elsewhere (AddControl), whose button goes
// away with it. Either way a click executes the control through the bars, and its shortcut is
// bound on the window.
class QuickAccessBar : public QWidget {
  Q_OBJECT

public:
  QuickAccessBar(CommandBars& bars, CommandShortcuts& shortcuts, QWidget* parent = nullptr);
  ~QuickAccessBar() override;

  // A command held by the bar; the control it returns may be changed like any other (Enabled...).
  CommandControl& AddCommand(std::int32_t id, const QString& caption, const QString& iconName,
                             const QString& shortcut = {}, const QString& description = {});
  // A control that someone else holds; the bar follows it until it is destroyed.
  void AddControl(CommandControl& control);

  // The button of the command with this id; nullptr when there is none.
  RibbonButton* ButtonFor(std::int32_t id) const;
  int Count() const;
  // The buttons shown, from left to right.
  std::vector<RibbonButton*> Buttons() const;

signals:
  // A command came or went: the ribbon shows the bar only while it has some.
  void CountChanged(int count);

private:
  CommandBars& m_bars;
  CommandShortcuts& m_shortcuts;
  QHBoxLayout* m_layout;
  std::vector<std::unique_ptr<CommandControl>> m_own;
};

}  // namespace ribbon
