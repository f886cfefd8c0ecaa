#include "MenuView.h"

#include "Icons.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace ribbon {

namespace {

void Follow(QAction* action, CommandControl& control) {
  action->setText(control.Caption());
  action->setEnabled(control.Enabled());
  action->setVisible(control.Visible());
  if (action->isCheckable()) action->setChecked(control.Checked());
}

QString ToolTipOf(const CommandControl& control) {
  QString tip = control.ToolTip().isEmpty() ? QString(control.Caption()).remove(u'&') : control.ToolTip();
  if (!control.Shortcut().isEmpty()) {
    tip += QStringLiteral(" (") + QKeySequence(control.Shortcut()).toString(QKeySequence::NativeText) + u')';
  }
  return tip;
}

QAction* ActionFor(QWidget& owner, CommandControl& control, CommandBars& bars) {
  auto* action = new QAction(&owner);
  action->setIcon(IconFor(control.IconName()));
  action->setCheckable(control.Kind() == ControlKind::CheckBox);
  if (!control.Shortcut().isEmpty()) action->setShortcut(QKeySequence(control.Shortcut()));
  action->setToolTip(ToolTipOf(control));
  action->setStatusTip(control.Description());
  action->setProperty("commandId", control.Id());
  Follow(action, control);
  QObject::connect(&control, &CommandControl::Changed, action, [action, &control] { Follow(action, control); });
  QObject::connect(action, &QAction::triggered, &bars, [action, &control, &bars] {
    // The menu toggled the action on its own: give the control back its say.
    if (action->isCheckable()) action->setChecked(control.Checked());
    bars.Execute(control);
  });
  return action;
}

void AddItems(QWidget& menu, CommandControl& popup, CommandBars& bars);

void AddItem(QWidget& menu, CommandControl& control, CommandBars& bars) {
  if (control.BeginGroup()) {
    if (auto* asMenu = qobject_cast<QMenu*>(&menu)) asMenu->addSeparator();
    if (auto* asBar = qobject_cast<QMenuBar*>(&menu)) asBar->addSeparator();
  }
  if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Group || control.Kind() == ControlKind::Tab) {
    auto* sub = new QMenu(control.Caption(), &menu);
    sub->setIcon(IconFor(control.IconName()));
    sub->menuAction()->setProperty("commandId", control.Id());
    sub->menuAction()->setEnabled(control.Enabled());
    sub->menuAction()->setVisible(control.Visible());
    QObject::connect(&control, &CommandControl::Changed, sub, [sub, &control] {
      sub->setTitle(control.Caption());
      sub->menuAction()->setEnabled(control.Enabled());
      sub->menuAction()->setVisible(control.Visible());
    });
    AddItems(*sub, control, bars);
    menu.addAction(sub->menuAction());
    return;
  }
  menu.addAction(ActionFor(menu, control, bars));
}

void AddItems(QWidget& menu, CommandControl& popup, CommandBars& bars) {
  for (const auto& control : popup.Controls()) AddItem(menu, *control, bars);
}

}  // namespace

void MenuView::Attach(QMenuBar& bar, CommandBars& bars) {
  const auto build = [&bar, &bars] {
    bar.clear();
    for (QAction* action : bar.actions()) bar.removeAction(action);
    AddItems(bar, bars.Root(), bars);
  };
  build();
  QObject::connect(&bars, &CommandBars::Reloaded, &bar, build);
}

void MenuView::Fill(QMenu& menu, CommandControl& popup, CommandBars& bars) {
  menu.clear();
  AddItems(menu, popup, bars);
}

}  // namespace ribbon
