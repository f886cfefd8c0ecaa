#include "KeyTips.h"

#include "Backstage.h"
#include "KeyTipLetters.h"
#include "QuickAccessBar.h"
#include "RibbonBar.h"
#include "RibbonButton.h"
#include "RibbonSlider.h"
#include "RibbonText.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QSlider>
#include <QTabBar>
#include <QToolButton>

namespace ribbon {

namespace {

// The File button's key is its Alt key's letter.
const QString kFileKey = QStringLiteral("F");
// A small button's icon sits this far from its left edge: its tip covers the icon, not the caption.
constexpr int kSmallIconCentre = 11;

bool TakesKeyTip(ControlKind kind) {
  switch (kind) {
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::Popup:
    case ControlKind::ColorPicker:
    case ControlKind::Slider:
      return true;
    case ControlKind::Label:
    case ControlKind::Tab:
    case ControlKind::Group:
      return false;
  }
  return false;
}

// The controls of a tab that get tips, in the order of its groups; a popup's items live in its
// menu, which has keys of its own.
void CollectControls(const CommandControl& parent, std::vector<CommandControl*>& controls) {
  for (const auto& child : parent.Controls()) {
    if (child->Kind() == ControlKind::Group) {
      CollectControls(*child, controls);
    } else if (TakesKeyTip(child->Kind())) {
      controls.push_back(child.get());
    }
  }
}

QWidget* ViewOf(const QWidget& page, const CommandControl* control) {
  for (RibbonButton* button : page.findChildren<RibbonButton*>()) {
    if (button->Control() == control) return button;
  }
  for (RibbonSlider* slider : page.findChildren<RibbonSlider*>()) {
    if (slider->Control() == control) return slider;
  }
  return nullptr;
}

QString MnemonicLetter(const QString& caption) {
  const QKeySequence key = MnemonicKey(caption);
  if (key.isEmpty()) return {};
  const int code = key[0].key();
  if (code < Qt::Key_A || code > Qt::Key_Z) return {};
  return QString(QChar(code));
}

// The quick access bar's buttons count 1 to 9, then 01 to 09.
QString QuickAccessKeys(int index) {
  if (index < 9) return QString::number(index + 1);
  if (index < 18) return QStringLiteral("0") + QString::number(index - 8);
  return {};
}

// A key that a tip may carry: A to Z or 0 to 9, whatever the layout's case.
QChar TipKey(int code) {
  if ((code >= Qt::Key_A && code <= Qt::Key_Z) || (code >= Qt::Key_0 && code <= Qt::Key_9)) return QChar(code);
  return {};
}

bool IsModifierKey(int code) {
  return code == Qt::Key_Alt || code == Qt::Key_Shift || code == Qt::Key_Control || code == Qt::Key_Meta ||
         code == Qt::Key_AltGr || code == Qt::Key_unknown;
}

// The keys as a screen reader says them: "Alt, H, R".
QString Spoken(const QString& keys) {
  QStringList parts{QStringLiteral("Alt")};
  for (const QChar key : keys) parts << QString(key);
  return parts.join(QStringLiteral(", "));
}

bool IsShown(const KeyTips::Tip& tip) {
  if (!tip.Target || tip.Keys.isEmpty() || !tip.Target->isVisible()) return false;
  if (tip.Tab < 0) return true;
  const auto* tabs = qobject_cast<QTabBar*>(tip.Target);
  return tabs != nullptr && tabs->isTabVisible(tip.Tab);
}

bool IsEnabled(const KeyTips::Tip& tip) {
  if (!tip.Target || !tip.Target->isEnabled()) return false;
  const auto* tabs = qobject_cast<QTabBar*>(tip.Target);
  return tip.Tab < 0 || (tabs != nullptr && tabs->isTabEnabled(tip.Tab));
}

// Where a tip's label goes in host: centred under a tab, a large button or a quick access button,
// straddling its lower edge; over the icon of a small button; over the start of a slider's groove,
// which leaves its caption (lined up with longer ones) and its value in view. It stays within the
// host.
QPoint Place(const KeyTips::Tip& tip, const QWidget& host, const QSize& size) {
  QWidget* target = tip.Target;
  QRect area(target->mapTo(&host, QPoint(0, 0)), target->size());
  QPoint centre(area.center().x(), area.bottom());
  if (tip.Tab >= 0) {
    const QRect tab = static_cast<QTabBar*>(target)->tabRect(tip.Tab);
    area = QRect(target->mapTo(&host, tab.topLeft()), tab.size());
    centre = QPoint(area.center().x(), area.bottom());
  } else if (auto* slider = qobject_cast<RibbonSlider*>(target)) {
    centre = slider->Slider()->mapTo(&host, QPoint(size.width() / 2, slider->Slider()->height() / 2));
  } else if (auto* button = qobject_cast<RibbonButton*>(target); button != nullptr && button->Style() == ButtonStyle::Small) {
    centre = QPoint(area.left() + kSmallIconCentre, area.center().y());
  }
  const int x = qBound(0, centre.x() - size.width() / 2, qMax(0, host.width() - size.width()));
  const int y = qBound(0, centre.y() - size.height() / 2, qMax(0, host.height() - size.height()));
  return {x, y};
}

}  // namespace

KeyTips::KeyTips(RibbonBar& ribbon) : QObject(&ribbon), m_ribbon(ribbon) {
  qApp->installEventFilter(this);
  connect(&ribbon, &RibbonBar::Rebuilt, this, [this] {
    Leave(false);
    Describe();
  });
  // A button goes when its control does, which may be in the middle of a reload of the tree: the
  // keys are counted again once that is over.
  connect(&ribbon.QuickAccess(), &QuickAccessBar::CountChanged, this, [this] {
    if (m_level == Level::Tabs) Leave(false);
  });
  connect(&ribbon.QuickAccess(), &QuickAccessBar::CountChanged, this, &KeyTips::Describe, Qt::QueuedConnection);
  Describe();
}

KeyTips::~KeyTips() {
  qApp->removeEventFilter(this);
  ClearLabels();
}

std::vector<KeyTips::Tip> KeyTips::TabLevelTips() const {
  std::vector<Tip> tips{{kFileKey, m_ribbon.FileButton(), -1}};
  const std::vector<RibbonButton*> quick = m_ribbon.QuickAccess().Buttons();
  for (std::size_t i = 0; i < quick.size(); ++i) tips.push_back({QuickAccessKeys(static_cast<int>(i)), quick[i], -1});
  // The tabs' own mnemonics first; a tab without one, or with a letter taken, gets one from its caption.
  QStringList taken{kFileKey};
  QStringList letters;
  std::vector<int> unlettered;
  QStringList unletteredCaptions;
  for (int i = 0; i < m_ribbon.TabCount(); ++i) {
    const QString caption = m_ribbon.TabControl(i) != nullptr ? m_ribbon.TabControl(i)->Caption() : QString();
    const QString letter = MnemonicLetter(caption);
    letters << (taken.contains(letter) ? QString() : letter);
    if (letters.back().isEmpty()) {
      unlettered.push_back(i);
      unletteredCaptions << caption;
    } else {
      taken << letter;
    }
  }
  const QStringList rest = KeyTipLetters(unletteredCaptions, taken);
  for (std::size_t i = 0; i < unlettered.size(); ++i) letters[unlettered[i]] = rest[static_cast<qsizetype>(i)];
  for (int i = 0; i < m_ribbon.TabCount(); ++i) tips.push_back({letters[i], m_ribbon.TabStrip(), i});
  return tips;
}

std::vector<KeyTips::Tip> KeyTips::ControlTips(int tab) const {
  const CommandControl* tabControl = m_ribbon.TabControl(tab);
  QWidget* page = m_ribbon.Page(tab);
  if (tabControl == nullptr || page == nullptr) return {};
  std::vector<CommandControl*> controls;
  CollectControls(*tabControl, controls);
  QStringList captions;
  for (const CommandControl* control : controls) captions << (control->Caption().isEmpty() ? control->ToolTip() : control->Caption());
  const QStringList keys = KeyTipLetters(captions);
  std::vector<Tip> tips;
  for (std::size_t i = 0; i < controls.size(); ++i) tips.push_back({keys[static_cast<qsizetype>(i)], ViewOf(*page, controls[i]), -1});
  return tips;
}

std::vector<std::pair<QLabel*, KeyTips::Tip>> KeyTips::ShownLabels() const {
  std::vector<std::pair<QLabel*, Tip>> shown;
  for (std::size_t i = 0; i < m_labels.size(); ++i) {
    if (m_labels[i] && m_labels[i]->isVisible()) shown.emplace_back(m_labels[i], m_tips[i]);
  }
  return shown;
}

// Tips show only for the window that has the keyboard, and not over the backstage or a menu.
bool KeyTips::MayShow() const {
  const Backstage* backstage = m_ribbon.BackstageView();
  return m_ribbon.isVisible() && QApplication::activeWindow() == m_ribbon.window() &&
         QApplication::activePopupWidget() == nullptr && (backstage == nullptr || !backstage->IsOpen());
}

void KeyTips::ShowTabs() {
  QWidget* focus = QApplication::focusWidget();
  // Alt, an arrow along the tabs, and Alt again: the keyboard still goes back where it was before.
  if (m_level == Level::Hidden && focus != m_ribbon.TabStrip()) m_focusBefore = focus;
  m_ribbon.TabStrip()->setFocus(Qt::ShortcutFocusReason);
  m_level = Level::Tabs;
  m_tab = -1;
  ShowLabels(TabLevelTips());
}

void KeyTips::Hide() { Leave(true); }

void KeyTips::ShowControls(int tab) {
  m_level = Level::Controls;
  m_tab = tab;
  ShowLabels(ControlTips(tab));
}

void KeyTips::BackToTabs() {
  if (m_ribbon.IsPeeking()) m_ribbon.ClosePeek();
  m_level = Level::Tabs;
  m_tab = -1;
  ShowLabels(TabLevelTips());
}

void KeyTips::Leave(bool restoreFocus) {
  ClearLabels();
  m_level = Level::Hidden;
  m_tab = -1;
  if (!restoreFocus || !m_focusBefore) return;
  // Only when the keyboard is still where the tips put it: a click may have moved it on.
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || focus == m_ribbon.TabStrip() || focus->window() != m_ribbon.window()) {
    m_focusBefore->setFocus(Qt::ShortcutFocusReason);
  }
  m_focusBefore = nullptr;
}

void KeyTips::ShowLabels(std::vector<Tip> tips) {
  ClearLabels();
  for (Tip& tip : tips) {
    if (!IsShown(tip)) continue;
    m_labels.emplace_back(NewLabel(tip));
    m_tips.push_back(std::move(tip));
  }
}

QLabel* KeyTips::NewLabel(const Tip& tip) {
  // The label lives in the target's window, so that it may stand over the edges of the tab strip
  // and the groups, and over the dropped-down groups of a collapsed ribbon.
  QWidget* host = tip.Target->window();
  auto* label = new QLabel(tip.Keys, host);
  label->setObjectName(QStringLiteral("RibbonKeyTip"));
  label->setProperty("dim", !IsEnabled(tip));
  label->setAlignment(Qt::AlignCenter);
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  label->setFocusPolicy(Qt::NoFocus);
  label->ensurePolished();
  label->adjustSize();
  label->resize(qMax(label->width(), label->height()), label->height());
  label->move(Place(tip, *host, label->size()));
  label->raise();
  label->show();
  return label;
}

void KeyTips::ClearLabels() {
  for (const QPointer<QLabel>& label : m_labels) delete label.data();
  m_labels.clear();
  m_tips.clear();
  m_typed.clear();
}

// A letter narrows the tips to those that start with what was typed, and runs the one it
// completes; a letter of no tip, or of a disabled control, is ignored.
void KeyTips::Type(QChar key) {
  const QString typed = m_typed + key;
  bool partial = false;
  for (const Tip& tip : m_tips) {
    if (tip.Keys == typed) {
      if (IsEnabled(tip)) Run(tip);
      return;
    }
    if (tip.Keys.startsWith(typed)) partial = true;
  }
  if (!partial) return;
  m_typed = typed;
  for (std::size_t i = 0; i < m_tips.size(); ++i) {
    if (m_labels[i]) m_labels[i]->setVisible(m_tips[i].Keys.startsWith(typed));
  }
}

void KeyTips::Run(Tip tip) {
  if (m_level == Level::Controls) {
    RunControl(tip.Target);
    return;
  }
  if (tip.Tab >= 0) {
    m_ribbon.OpenTab(tip.Tab);
    ShowControls(tip.Tab);
    return;
  }
  auto* button = qobject_cast<QToolButton*>(tip.Target);
  Leave(true);
  if (button != nullptr) button->click();
}

void KeyTips::RunControl(QWidget* target) {
  if (auto* slider = qobject_cast<RibbonSlider*>(target)) {
    Leave(false);
    slider->Slider()->setFocus(Qt::ShortcutFocusReason);
    return;
  }
  auto* button = qobject_cast<QToolButton*>(target);
  Leave(true);
  if (button == nullptr) return;
  if (button->menu() != nullptr && button->popupMode() != QToolButton::DelayedPopup) {
    // The menu runs a loop of its own: it opens once this key is over.
    QMetaObject::invokeMethod(button, &QToolButton::showMenu, Qt::QueuedConnection);
  } else {
    button->click();
  }
}

bool KeyTips::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      // Keys reach a window first and then its focus widget: the widget's turn alone counts.
      if (!watched->isWidgetType()) break;
      if (m_level != Level::Hidden &&
          KeyWhileShown(static_cast<QKeyEvent*>(event), event->type() == QEvent::ShortcutOverride)) {
        return true;
      }
      WatchAlt(event);
      break;
    case QEvent::KeyRelease:
      if (watched->isWidgetType()) WatchAlt(event);
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonPress:
      m_altAlone = false;
      if (m_level != Level::Hidden) Leave(true);
      break;
    case QEvent::WindowDeactivate:
    case QEvent::Resize:
    case QEvent::Move:
      // The tips stand where the controls were: when the window goes or changes, so do they.
      if (m_level != Level::Hidden && watched == m_ribbon.window()) Leave(false);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

// Alt pressed and released with no other key or click between shows the tips, or hides them.
void KeyTips::WatchAlt(QEvent* event) {
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->isAutoRepeat()) return;
  // A key taken by a shortcut (Alt+V) never arrives as a key press: its override does.
  if (event->type() == QEvent::ShortcutOverride) {
    if (key->key() != Qt::Key_Alt) m_altAlone = false;
    return;
  }
  if (event->type() == QEvent::KeyPress) {
    // Platforms differ on whether the Alt key's own press carries the Alt modifier.
    m_altAlone = key->key() == Qt::Key_Alt && (key->modifiers() & ~Qt::AltModifier) == Qt::NoModifier;
    return;
  }
  if (key->key() != Qt::Key_Alt || !m_altAlone) return;
  m_altAlone = false;
  if (m_level != Level::Hidden) {
    Leave(true);
  } else if (MayShow()) {
    ShowTabs();
  }
}

// While tips show, letters and digits (with Shift or Alt or not) belong to them, and Escape goes
// back a level; they are taken before any shortcut. Any other key hides the tips and goes on.
bool KeyTips::KeyWhileShown(QKeyEvent* key, bool overrideOnly) {
  const int code = key->key();
  if (IsModifierKey(code)) return false;
  m_altAlone = false;
  const Qt::KeyboardModifiers others = key->modifiers() & ~(Qt::ShiftModifier | Qt::AltModifier | Qt::KeypadModifier);
  const QChar typed = TipKey(code);
  if (others != Qt::NoModifier || (code != Qt::Key_Escape && typed.isNull())) {
    Leave(false);
    return false;
  }
  key->accept();
  if (overrideOnly || key->isAutoRepeat()) return true;
  if (code == Qt::Key_Escape) {
    if (m_level == Level::Controls) {
      BackToTabs();
    } else {
      Leave(true);
    }
  } else {
    Type(typed);
  }
  return true;
}

// Each view carries its keys in its accessible description: screen readers do not see the labels.
void KeyTips::Describe() {
  const auto said = [](const QString& keys) { return tr("Keys: %1").arg(Spoken(keys)); };
  const std::vector<Tip> first = TabLevelTips();
  for (const Tip& tip : first) {
    if (!tip.Target || tip.Keys.isEmpty()) continue;
    if (tip.Tab >= 0) {
      for (const Tip& control : ControlTips(tip.Tab)) {
        if (control.Keys.isEmpty()) continue;
        if (auto* button = qobject_cast<RibbonButton*>(control.Target)) button->SetKeyTip(said(tip.Keys + control.Keys));
        if (auto* slider = qobject_cast<RibbonSlider*>(control.Target)) slider->SetKeyTip(said(tip.Keys + control.Keys));
      }
    } else if (auto* button = qobject_cast<RibbonButton*>(tip.Target)) {
      button->SetKeyTip(said(tip.Keys));
    } else {
      tip.Target->setAccessibleDescription(said(tip.Keys));
    }
  }
}

}  // namespace ribbon
