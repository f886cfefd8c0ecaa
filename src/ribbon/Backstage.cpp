#include "Backstage.h"

#include "Icons.h"
#include "RibbonText.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace ribbon {

namespace {

constexpr int kNavWidth = 232;
constexpr int kItemHeight = 40;

void FollowItem(QPushButton& button, QShortcut& key, const CommandControl& control) {
  // The mnemonic is a key of our own, so that no letter is underlined.
  button.setText(ButtonCaption(control.Caption()));
  key.setKey(MnemonicKey(control.Caption()));
  key.setEnabled(control.Enabled() && control.Visible());
  button.setEnabled(control.Enabled());
  button.setHidden(!control.Visible());
  button.setToolTip(control.Description());
}

}  // namespace

Backstage::Backstage(CommandBars& bars, QWidget& host) : QWidget(&host), m_bars(bars), m_host(host) {
  setObjectName(QStringLiteral("Backstage"));
  setAttribute(Qt::WA_StyledBackground);
  setAutoFillBackground(true);
  BuildFrame();
  hide();
  host.installEventFilter(this);
}

Backstage::~Backstage() {
  m_host.removeEventFilter(this);
  // The items follow their controls: the widgets go before the controls do.
  for (Item& item : m_items) delete item.Button;
}

void Backstage::BuildFrame() {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  auto* nav = new QWidget(this);
  nav->setObjectName(QStringLiteral("BackstageNav"));
  nav->setAttribute(Qt::WA_StyledBackground);
  nav->setFixedWidth(kNavWidth);
  m_nav = new QVBoxLayout(nav);
  m_nav->setContentsMargins(8, 12, 8, 12);
  m_nav->setSpacing(2);
  m_back = new QPushButton(IconFor(QStringLiteral("backstage-back")), QString(), nav);
  m_back->setObjectName(QStringLiteral("BackstageBack"));
  m_back->setIconSize(QSize(20, 20));
  m_back->setFixedSize(40, 40);
  m_back->setToolTip(tr("Back (Esc)"));
  m_back->setAccessibleName(tr("Back"));
  connect(m_back, &QPushButton::clicked, this, &Backstage::Close);
  m_nav->addWidget(m_back);
  m_nav->addSpacing(12);
  m_nav->addStretch(1);
  layout->addWidget(nav);

  auto* content = new QWidget(this);
  content->setObjectName(QStringLiteral("BackstageContent"));
  content->setAttribute(Qt::WA_StyledBackground);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(40, 28, 40, 24);
  column->setSpacing(16);
  m_title = new QLabel(content);
  m_title->setObjectName(QStringLiteral("BackstageTitle"));
  m_pages = new QStackedWidget(content);
  m_pages->setObjectName(QStringLiteral("BackstagePages"));
  column->addWidget(m_title);
  column->addWidget(m_pages, 1);
  layout->addWidget(content, 1);
}

QPushButton* Backstage::AddItem(std::unique_ptr<CommandControl> control, const QString& iconName, QWidget* page) {
  auto* button = new QPushButton(IconFor(iconName), control->Caption(), m_nav->parentWidget());
  button->setObjectName(QStringLiteral("BackstageItem"));
  button->setProperty("page", page != nullptr);
  button->setProperty("commandId", control->Id());
  button->setCheckable(page != nullptr);
  button->setIconSize(QSize(20, 20));
  button->setFixedHeight(kItemHeight);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  CommandControl& target = *control;
  auto* key = new QShortcut(button);
  key->setContext(Qt::WindowShortcut);
  connect(key, &QShortcut::activated, button, &QPushButton::click);
  // Two items of one letter (Save, Samples): the key moves between them, Enter runs one.
  connect(key, &QShortcut::activatedAmbiguously, button, [button] { button->setFocus(Qt::ShortcutFocusReason); });
  FollowItem(*button, *key, target);
  connect(&target, &CommandControl::Changed, button, [button, key, &target] { FollowItem(*button, *key, target); });
  if (page != nullptr) {
    connect(button, &QPushButton::clicked, this, [this, &target] { ShowPage(target.Id()); });
  } else {
    connect(button, &QPushButton::clicked, this, [this, &target] { Execute(target); });
  }
  m_nav->insertWidget(m_nav->count() - 1, button);
  m_items.push_back({std::move(control), button, page});
  return button;
}

CommandControl& Backstage::AddCommand(std::int32_t id, const QString& caption, const QString& iconName) {
  auto control = std::make_unique<CommandControl>(ControlKind::Button, id);
  control->SetCaption(caption);
  control->SetIconName(iconName);
  CommandControl& result = *control;
  AddItem(std::move(control), iconName, nullptr);
  return result;
}

CommandControl& Backstage::AddPage(std::int32_t id, const QString& caption, QWidget* page, const QString& iconName) {
  if (page == nullptr) page = new QWidget;
  auto control = std::make_unique<CommandControl>(ControlKind::Tab, id);
  control->SetCaption(caption);
  control->SetIconName(iconName);
  CommandControl& result = *control;
  m_pages->addWidget(page);
  AddItem(std::move(control), iconName, page);
  return result;
}

void Backstage::AddSeparator() {
  auto* line = new QFrame(m_nav->parentWidget());
  line->setObjectName(QStringLiteral("BackstageSeparator"));
  line->setAttribute(Qt::WA_StyledBackground);
  line->setFixedHeight(1);
  m_nav->insertWidget(m_nav->count() - 1, line);
}

const Backstage::Item* Backstage::Find(std::int32_t id) const {
  for (const Item& item : m_items) {
    if (item.Control->Id() == id) return &item;
  }
  return nullptr;
}

QWidget* Backstage::Page(std::int32_t id) const {
  const Item* item = Find(id);
  return item != nullptr ? item->Page : nullptr;
}

QAbstractButton* Backstage::ItemFor(std::int32_t id) const {
  const Item* item = Find(id);
  return item != nullptr ? item->Button : nullptr;
}

QAbstractButton* Backstage::BackButton() const { return m_back; }

void Backstage::Open(std::int32_t pageId) {
  if (Page(pageId) == nullptr) pageId = m_startPage;
  if (Page(pageId) == nullptr) {
    const auto first = std::find_if(m_items.begin(), m_items.end(), [](const Item& item) { return item.Page != nullptr; });
    pageId = first != m_items.end() ? first->Control->Id() : 0;
  }
  if (!IsOpen()) m_focusBefore = QApplication::focusWidget();
  setGeometry(m_host.rect());
  raise();
  show();
  if (pageId != 0) ShowPage(pageId);
  if (const Item* item = Find(pageId)) {
    item->Button->setFocus(Qt::OtherFocusReason);
  } else {
    m_back->setFocus(Qt::OtherFocusReason);
  }
  emit Opened();
}

void Backstage::Close() {
  if (!IsOpen()) return;
  hide();
  if (m_focusBefore) m_focusBefore->setFocus(Qt::OtherFocusReason);
  emit Closed();
}

void Backstage::ShowPage(std::int32_t id) {
  const Item* item = Find(id);
  if (item == nullptr || item->Page == nullptr) return;
  emit PageShowing(id);
  m_current = id;
  m_title->setText(PlainCaption(item->Control->Caption()));
  m_pages->setCurrentWidget(item->Page);
  for (const Item& other : m_items) {
    if (other.Page != nullptr) other.Button->setChecked(&other == item);
  }
}

void Backstage::Execute(CommandControl& control) {
  if (!control.Enabled()) return;
  Close();
  m_bars.Execute(control);
}

void Backstage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Close();
    return;
  }
  QWidget::keyPressEvent(event);
}

bool Backstage::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &m_host && event->type() == QEvent::Resize && IsOpen()) {
    setGeometry(m_host.rect());
    raise();
  }
  return QWidget::eventFilter(watched, event);
}

// Tab and Backtab go round the backstage's own widgets: the window under it is out of reach.
bool Backstage::focusNextPrevChild(bool next) {
  QWidget* start = QApplication::focusWidget();
  if (start == nullptr || !isAncestorOf(start)) start = this;
  QWidget* widget = start;
  for (int step = 0; step < 4096; ++step) {
    widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    if (widget == nullptr || widget == start) break;
    if (isAncestorOf(widget) && widget->isVisibleTo(this) && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus)) {
      widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
      return true;
    }
  }
  return false;
}

}  // namespace ribbon
