#include "QuickAccessBar.h"

#include "CommandShortcuts.h"
#include "RibbonButton.h"

#include <QHBoxLayout>

namespace ribbon {

QuickAccessBar::QuickAccessBar(CommandBars& bars, CommandShortcuts& shortcuts, QWidget* parent)
    : QWidget(parent), m_bars(bars), m_shortcuts(shortcuts), m_layout(new QHBoxLayout(this)) {
  setObjectName(QStringLiteral("QuickAccessBar"));
  setAttribute(Qt::WA_StyledBackground);
  m_layout->setContentsMargins(0, 0, 0, 0);
  m_layout->setSpacing(2);
}

QuickAccessBar::~QuickAccessBar() {
  // The buttons follow the bar's own controls: they go first.
  qDeleteAll(findChildren<RibbonButton*>(Qt::FindDirectChildrenOnly));
}

CommandControl& QuickAccessBar::AddCommand(std::int32_t id, const QString& caption, const QString& iconName,
                                           const QString& shortcut, const QString& description) {
  m_own.push_back(std::make_unique<CommandControl>(ControlKind::Button, id));
  CommandControl& control = *m_own.back();
  control.SetCaption(caption);
  control.SetIconName(iconName);
  control.SetShortcut(shortcut);
  control.SetDescription(description);
  AddControl(control);
  return control;
}

void QuickAccessBar::AddControl(CommandControl& control) {
  auto* button = new RibbonButton(control, m_bars, ButtonStyle::IconOnly, this);
  m_layout->addWidget(button);
  m_shortcuts.Bind(control, CommandShortcuts::kQuickAccessLayer);
  connect(&control, &QObject::destroyed, button, [this, button] {
    button->deleteLater();
    button->hide();
    emit CountChanged(Count());
  });
  emit CountChanged(Count());
}

RibbonButton* QuickAccessBar::ButtonFor(std::int32_t id) const {
  for (RibbonButton* button : findChildren<RibbonButton*>(Qt::FindDirectChildrenOnly)) {
    if (button->Control() != nullptr && button->Control()->Id() == id) return button;
  }
  return nullptr;
}

int QuickAccessBar::Count() const {
  int count = 0;
  for (RibbonButton* button : findChildren<RibbonButton*>(Qt::FindDirectChildrenOnly)) {
    if (button->Control() != nullptr) ++count;
  }
  return count;
}

std::vector<RibbonButton*> QuickAccessBar::Buttons() const {
  std::vector<RibbonButton*> buttons;
  for (int i = 0; i < m_layout->count(); ++i) {
    auto* button = qobject_cast<RibbonButton*>(m_layout->itemAt(i)->widget());
    if (button != nullptr && button->Control() != nullptr && !button->isHidden()) buttons.push_back(button);
  }
  return buttons;
}

}  // namespace ribbon
