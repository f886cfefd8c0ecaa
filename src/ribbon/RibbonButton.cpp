#include "RibbonButton.h"

#include "Icons.h"
#include "MenuView.h"
#include "RibbonText.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QMenu>

namespace ribbon {

namespace {

const char* ObjectNameOf(ButtonStyle style) {
  switch (style) {
    case ButtonStyle::Large: return "RibbonLargeButton";
    case ButtonStyle::Small: return "RibbonSmallButton";
    case ButtonStyle::IconOnly: return "QuickAccessButton";
  }
  return "RibbonSmallButton";
}

}  // namespace

RibbonButton::RibbonButton(CommandControl& control, CommandBars& bars, ButtonStyle style, QWidget* parent)
    : QToolButton(parent), m_control(&control), m_bars(bars), m_style(style) {
  setObjectName(QString::fromLatin1(ObjectNameOf(style)));
  setProperty("commandId", control.Id());
  setProperty("toggle", control.Kind() == ControlKind::CheckBox);
  setAutoRaise(true);
  setFocusPolicy(Qt::TabFocus);
  setIcon(IconFor(control.IconName()));
  setCheckable(control.Kind() == ControlKind::CheckBox);
  SetUpStyle();
  if (control.Kind() == ControlKind::Popup) {
    SetUpPopup();
  } else {
    connect(this, &QToolButton::clicked, this, &RibbonButton::Execute);
  }
  connect(&control, &CommandControl::Changed, this, [this] { Follow(); });
  Follow();
}

void RibbonButton::SetUpStyle() {
  switch (m_style) {
    case ButtonStyle::Large:
      setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
      setIconSize(QSize(kLargeIcon, kLargeIcon));
      setFixedHeight(kLargeHeight);
      setMinimumWidth(kLargeIcon + 16);
      setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
      break;
    case ButtonStyle::Small:
      setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
      setIconSize(QSize(kSmallIcon, kSmallIcon));
      setFixedHeight(kRowHeight);
      setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
      break;
    case ButtonStyle::IconOnly:
      setToolButtonStyle(Qt::ToolButtonIconOnly);
      setIconSize(QSize(kSmallIcon, kSmallIcon));
      break;
  }
}

void RibbonButton::SetUpPopup() {
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("RibbonMenu"));
  MenuView::Fill(*menu, *m_control, m_bars);
  KeepShortcutsInMenu(*menu);
  setMenu(menu);
  setPopupMode(QToolButton::InstantPopup);
  setProperty("popup", true);
}

void RibbonButton::Follow() {
  if (!m_control) return;
  const CommandControl& control = *m_control;
  const QString caption = ButtonCaption(control.Caption());
  setText(m_style == ButtonStyle::Large ? TwoLineCaption(caption, fontMetrics(), kLargeCaptionWidth) : caption);
  setToolTip(RichToolTip(control));
  setAccessibleName(PlainCaption(control.Caption()));
  QStringList description{control.Description(), m_keyTip};
  description.removeAll(QString());
  setAccessibleDescription(description.join(u' '));
  setEnabled(control.Enabled());
  setHidden(!control.Visible());
  if (isCheckable()) setChecked(control.Checked());
}

void RibbonButton::SetKeyTip(const QString& spoken) {
  m_keyTip = spoken;
  Follow();
}

void RibbonButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  // The style sheet may give the button another font: the caption is broken for that font.
  if (event->type() == QEvent::FontChange && m_style == ButtonStyle::Large) Follow();
}

// The command flips the control, and Follow shows the new check.
void RibbonButton::nextCheckState() {}

void RibbonButton::Execute() {
  if (m_control && m_control->Enabled()) m_bars.Execute(*m_control);
}

void RibbonButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (popupMode() == QToolButton::InstantPopup && menu() != nullptr) {
        showMenu();
      } else {
        click();
      }
      return;
    case Qt::Key_Left:
    case Qt::Key_Up:
      focusNextPrevChild(false);
      return;
    case Qt::Key_Right:
    case Qt::Key_Down:
      focusNextPrevChild(true);
      return;
    default:
      QToolButton::keyPressEvent(event);
  }
}

void KeepShortcutsInMenu(QMenu& menu) {
  for (QAction* action : menu.actions()) {
    action->setShortcutContext(Qt::WidgetShortcut);
    if (QMenu* sub = action->menu()) KeepShortcutsInMenu(*sub);
  }
}

}  // namespace ribbon
