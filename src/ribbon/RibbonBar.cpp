#include "RibbonBar.h"

#include "Backstage.h"
#include "CommandShortcuts.h"
#include "Icons.h"
#include "KeyTips.h"
#include "QuickAccessBar.h"
#include "RibbonGroup.h"
#include "RibbonText.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace ribbon {

namespace {

constexpr int kPanelMargin = 6;
// Milliseconds within which a press on the tab strip is the one that closed the peek.
constexpr int kReplayedPress = 150;

QWidget* StyledRow(const QString& name, QWidget* parent) {
  auto* row = new QWidget(parent);
  row->setObjectName(name);
  row->setAttribute(Qt::WA_StyledBackground);
  return row;
}

}  // namespace

RibbonBar::RibbonBar(CommandBars& bars, platform::ColorChooser& colors, QWidget* parent)
    : QWidget(parent), m_bars(bars), m_colors(colors), m_shortcuts(new CommandShortcuts(bars, *this)) {
  setObjectName(QStringLiteral("RibbonBar"));
  setAttribute(Qt::WA_StyledBackground);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  // A quick access key closes the backstage before its command runs, as the backstage's do.
  m_shortcuts->SetBeforeFire([this] {
    if (m_backstage) m_backstage->Close();
  });
  BuildFrame();
  Rebuild();
  connect(&bars, &CommandBars::Reloaded, this, &RibbonBar::Rebuild);
  connect(&bars, &CommandBars::Executed, this, [this] {
    if (m_peek != nullptr && m_peek->isVisible()) QMetaObject::invokeMethod(m_peek, &QWidget::hide, Qt::QueuedConnection);
  });
  m_collapseKey = new QShortcut(QKeySequence(QStringLiteral("Ctrl+F1")), this);
  m_collapseKey->setContext(Qt::WindowShortcut);
  connect(m_collapseKey, &QShortcut::activated, this, [this] { SetCollapsed(!m_collapsed); });
  // Last: the tips read the tabs and views built above, and follow each rebuild after it is done.
  m_keyTips = new KeyTips(*this);
}

RibbonBar::~RibbonBar() {
  // The tips watch the whole application: they go while the ribbon is still whole.
  delete m_keyTips;
  // The views go before the quick access bar's own controls and the shortcuts.
  ClearTabs(true);
}

void RibbonBar::BuildFrame() {
  m_layout = new QVBoxLayout(this);
  m_layout->setContentsMargins(0, 0, 0, 0);
  m_layout->setSpacing(0);
  m_layout->addWidget(BuildTopRow());
  m_layout->addWidget(BuildTabRow());
  m_panelHost = new QWidget(this);
  m_panelHost->setObjectName(QStringLiteral("RibbonPanelHost"));
  m_panelLayout = new QVBoxLayout(m_panelHost);
  m_panelLayout->setContentsMargins(kPanelMargin, 0, kPanelMargin, kPanelMargin);
  m_panel = new QFrame(m_panelHost);
  m_panel->setObjectName(QStringLiteral("RibbonPanel"));
  auto* panelLayout = new QVBoxLayout(m_panel);
  panelLayout->setContentsMargins(0, 0, 0, 0);
  m_pages = new QStackedWidget(m_panel);
  m_pages->setObjectName(QStringLiteral("RibbonPages"));
  panelLayout->addWidget(m_pages);
  m_panelLayout->addWidget(m_panel);
  m_layout->addWidget(m_panelHost);
}

QWidget* RibbonBar::BuildTopRow() {
  m_topRow = StyledRow(QStringLiteral("RibbonTopRow"), this);
  auto* row = new QHBoxLayout(m_topRow);
  row->setContentsMargins(kPanelMargin, 3, kPanelMargin, 0);
  m_quickAccess = new QuickAccessBar(m_bars, *m_shortcuts, m_topRow);
  row->addWidget(m_quickAccess);
  row->addStretch(1);
  m_topRow->setHidden(true);
  connect(m_quickAccess, &QuickAccessBar::CountChanged, this, [this](int count) {
    m_topRow->setHidden(count == 0);
    updateGeometry();
  });
  return m_topRow;
}

QWidget* RibbonBar::BuildTabRow() {
  QWidget* tabRow = StyledRow(QStringLiteral("RibbonTabRow"), this);
  auto* row = new QHBoxLayout(tabRow);
  row->setContentsMargins(kPanelMargin, 4, kPanelMargin, 4);
  row->setSpacing(6);
  m_fileButton = new QToolButton(tabRow);
  m_fileButton->setObjectName(QStringLiteral("RibbonFileButton"));
  // The mnemonics are keys of our own, so that no letter is underlined.
  m_fileButton->setText(tr("File"));
  m_fileButton->setToolTip(tr("<b>File (Alt+F)</b><br>New, open, save, pictures and information."));
  m_fileKey = new QShortcut(MnemonicKey(tr("&File")), this);
  m_fileKey->setContext(Qt::WindowShortcut);
  connect(m_fileKey, &QShortcut::activated, this, &RibbonBar::OpenFile);
  m_fileButton->setFocusPolicy(Qt::TabFocus);
  connect(m_fileButton, &QToolButton::clicked, this, &RibbonBar::OpenFile);
  m_tabs = new QTabBar(tabRow);
  m_tabs->setObjectName(QStringLiteral("RibbonTabs"));
  m_tabs->setDrawBase(false);
  m_tabs->setExpanding(false);
  m_tabs->setUsesScrollButtons(true);
  m_tabs->setFocusPolicy(Qt::TabFocus);
  connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
    if (index >= 0 && index < m_pages->count()) m_pages->setCurrentIndex(index);
    emit CurrentTabChanged(index);
  });
  connect(m_tabs, &QTabBar::tabBarClicked, this, &RibbonBar::OnTabClicked);
  connect(m_tabs, &QTabBar::tabBarDoubleClicked, this, [this](int index) {
    if (index >= 0) SetCollapsed(!m_collapsed);
  });
  m_collapseButton = new QToolButton(tabRow);
  m_collapseButton->setObjectName(QStringLiteral("RibbonCollapseButton"));
  m_collapseButton->setAutoRaise(true);
  m_collapseButton->setIconSize(QSize(16, 16));
  m_collapseButton->setFocusPolicy(Qt::TabFocus);
  connect(m_collapseButton, &QToolButton::clicked, this, [this] { SetCollapsed(!m_collapsed); });
  UpdateCollapseButton();
  row->addWidget(m_fileButton);
  row->addWidget(m_tabs, 0, Qt::AlignBottom);
  row->addStretch(1);
  row->addWidget(m_collapseButton);
  return tabRow;
}

void RibbonBar::ClearTabs(bool deleteNow) {
  m_shortcuts->Unbind(CommandShortcuts::kTreeLayer);
  // A page may hold the button whose click reloaded the bars: it leaves the ribbon now and is
  // deleted once that click is over.
  while (m_pages->count() > 0) {
    QWidget* page = m_pages->widget(0);
    m_pages->removeWidget(page);
    if (deleteNow) {
      delete page;
      continue;
    }
    page->hide();
    page->setParent(nullptr);
    page->deleteLater();
  }
  const QSignalBlocker blocker(m_tabs);
  while (m_tabs->count() > 0) m_tabs->removeTab(0);
  m_tabControls.clear();
  qDeleteAll(m_tabKeys);
  m_tabKeys.clear();
}

void RibbonBar::Rebuild() {
  ClearTabs(false);
  for (const auto& control : m_bars.Root().Controls()) {
    if (control->Kind() == ControlKind::Tab) AddTab(*control);
  }
  BindShortcuts(m_bars.Root());
  for (int i = 0; i < m_tabs->count(); ++i) {
    if (m_tabs->isTabVisible(i)) {
      SelectTab(i);
      m_pages->setCurrentIndex(i);
      break;
    }
  }
  ShowPanel();
  emit Rebuilt();
}

void RibbonBar::AddTab(CommandControl& tab) {
  const int index = static_cast<int>(m_tabControls.size());
  m_tabControls.emplace_back(&tab);
  {
    const QSignalBlocker blocker(m_tabs);
    m_tabs->addTab(tab.Caption());
  }
  m_pages->addWidget(BuildPage(tab));
  auto* key = new QShortcut(this);
  key->setContext(Qt::WindowShortcut);
  connect(key, &QShortcut::activated, this, [this, index] { OpenTab(index); });
  m_tabKeys.push_back(key);
  connect(&tab, &CommandControl::Changed, m_pages->widget(index), [this, index] { FollowTab(index); });
  FollowTab(index);
}

// A tab's groups side by side; a window too narrow for them scrolls them sideways.
QWidget* RibbonBar::BuildPage(CommandControl& tab) {
  auto* page = new QScrollArea;
  page->setObjectName(QStringLiteral("RibbonPage"));
  page->setFrameShape(QFrame::NoFrame);
  page->setWidgetResizable(true);
  page->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  page->setFocusPolicy(Qt::NoFocus);
  auto* content = new QWidget;
  content->setObjectName(QStringLiteral("RibbonPageContent"));
  auto* row = new QHBoxLayout(content);
  row->setContentsMargins(2, 2, 2, 2);
  row->setSpacing(0);
  for (const auto& control : tab.Controls()) {
    if (control->Kind() == ControlKind::Group) row->addWidget(new RibbonGroup(*control, m_bars, m_colors, content));
  }
  row->addStretch(1);
  page->setWidget(content);
  page->setFixedHeight(content->sizeHint().height() + page->horizontalScrollBar()->sizeHint().height() / 2);
  return page;
}

void RibbonBar::FollowTab(int index) {
  if (index < 0 || index >= static_cast<int>(m_tabControls.size())) return;
  const CommandControl* tab = m_tabControls[static_cast<std::size_t>(index)];
  if (tab == nullptr) return;
  m_tabs->setTabText(index, ButtonCaption(tab->Caption()));
  m_tabKeys[static_cast<std::size_t>(index)]->setKey(MnemonicKey(tab->Caption()));
  m_tabKeys[static_cast<std::size_t>(index)]->setEnabled(tab->Enabled() && tab->Visible() && !m_keysSuspended);
  m_tabs->setTabEnabled(index, tab->Enabled());
  m_tabs->setTabVisible(index, tab->Visible());
  const bool explains = !tab->ToolTip().isEmpty() || !tab->Description().isEmpty();
  m_tabs->setTabToolTip(index, explains ? RichToolTip(*tab) : QString());
}

void RibbonBar::BindShortcuts(CommandControl& parent) {
  for (const auto& control : parent.Controls()) {
    m_shortcuts->Bind(*control, CommandShortcuts::kTreeLayer);
    BindShortcuts(*control);
  }
}

int RibbonBar::TabCount() const { return m_tabs->count(); }

int RibbonBar::CurrentTab() const { return m_tabs->currentIndex(); }

void RibbonBar::SelectTab(int index) {
  if (index < 0 || index >= m_tabs->count() || !m_tabs->isTabVisible(index)) return;
  m_tabs->setCurrentIndex(index);
}

CommandControl* RibbonBar::TabControl(int index) const {
  if (index < 0 || index >= static_cast<int>(m_tabControls.size())) return nullptr;
  return m_tabControls[static_cast<std::size_t>(index)];
}

QWidget* RibbonBar::Page(int index) const { return m_pages->widget(index); }

void RibbonBar::SetCollapsed(bool collapsed) {
  if (collapsed == m_collapsed) return;
  m_collapsed = collapsed;
  if (m_peek != nullptr && m_peek->isVisible()) m_peek->hide();
  ShowPanel();
  UpdateCollapseButton();
  emit CollapsedChanged(collapsed);
}

// The groups show under the tabs unless the ribbon is collapsed or has no tabs.
void RibbonBar::ShowPanel() {
  m_panelHost->setHidden(m_collapsed || m_tabs->count() == 0);
  m_layout->invalidate();
  updateGeometry();
}

void RibbonBar::UpdateCollapseButton() {
  m_collapseButton->setIcon(IconFor(m_collapsed ? QStringLiteral("ribbon-expand") : QStringLiteral("ribbon-collapse")));
  m_collapseButton->setToolTip(m_collapsed ? tr("<b>Pin the ribbon (Ctrl+F1)</b><br>Keep the tabs' commands in view.")
                                           : tr("<b>Collapse the ribbon (Ctrl+F1)</b><br>Show only the tab names, for more room."));
  m_collapseButton->setAccessibleName(m_collapsed ? tr("Pin the ribbon") : tr("Collapse the ribbon"));
}

Backstage* RibbonBar::BackstageView() const { return m_backstage; }

void RibbonBar::SetBackstage(Backstage* backstage) {
  if (m_backstage) disconnect(m_backstage, nullptr, this, nullptr);
  m_backstage = backstage;
  if (backstage == nullptr) return;
  connect(backstage, &Backstage::Opened, this, [this] { SuspendKeys(true); });
  connect(backstage, &Backstage::Closed, this, [this] { SuspendKeys(false); });
  SuspendKeys(backstage->IsOpen());
}

// While the backstage covers the ribbon, the ribbon's keys are off, so that the backstage's own
// letters are not ambiguous; the quick access bar's keys stay.
void RibbonBar::SuspendKeys(bool suspended) {
  m_keysSuspended = suspended;
  m_shortcuts->SetSuspended(CommandShortcuts::kTreeLayer, suspended);
  m_fileKey->setEnabled(!suspended);
  m_collapseKey->setEnabled(!suspended);
  for (int i = 0; i < static_cast<int>(m_tabKeys.size()); ++i) FollowTab(i);
}

void RibbonBar::OpenFile() {
  if (m_peek != nullptr && m_peek->isVisible()) m_peek->hide();
  emit FileButtonClicked();
  if (m_backstage) m_backstage->Open();
}

QWidget* RibbonBar::WidgetFor(std::int32_t id) const {
  for (QWidget* widget : findChildren<QWidget*>()) {
    const QVariant commandId = widget->property("commandId");
    if (commandId.isValid() && commandId.toInt() == id) return widget;
  }
  return nullptr;
}

void RibbonBar::OpenTab(int index) {
  SelectTab(index);
  m_tabs->setFocus(Qt::ShortcutFocusReason);
  if (m_collapsed) {
    m_peekTab = index;
    Peek();
  }
}

void RibbonBar::OnTabClicked(int index) {
  if (!m_collapsed || index < 0) return;
  if (m_peek != nullptr && m_peek->isVisible() && index == m_peekTab) {
    m_peek->hide();
    return;
  }
  // The press that closed the peek comes on to the tab it was over: a click on the tab that was
  // down closes it, and does not open it again.
  if (m_peekClosed.isValid() && m_peekClosed.elapsed() < kReplayedPress && index == m_peekTab) return;
  m_peekTab = index;
  // After the press is over: the tab bar makes the tab current first.
  QTimer::singleShot(0, this, &RibbonBar::Peek);
}

// The collapsed ribbon shows a tab's groups for a moment, dropped down over the window.
void RibbonBar::Peek() {
  if (!m_collapsed || m_tabs->count() == 0) return;
  if (m_peek == nullptr) {
    m_peek = new QFrame(this, Qt::Popup | Qt::FramelessWindowHint);
    m_peek->setObjectName(QStringLiteral("RibbonPeek"));
    auto* layout = new QVBoxLayout(m_peek);
    layout->setContentsMargins(kPanelMargin, kPanelMargin, kPanelMargin, kPanelMargin);
    m_peek->installEventFilter(this);
  }
  m_peek->layout()->addWidget(m_panel);
  m_panel->show();
  m_peek->setFixedWidth(width());
  m_peek->adjustSize();
  m_peek->move(mapToGlobal(QPoint(0, m_tabs->parentWidget()->geometry().bottom() + 1)));
  m_peekOpened.start();
  m_peek->show();
}

bool RibbonBar::IsPeeking() const { return m_peek != nullptr && m_peek->isVisible(); }

void RibbonBar::ClosePeek() {
  if (!IsPeeking()) return;
  // Closed by a key, not by a second click on its tab: it stays a peek.
  m_peekOpened.invalidate();
  m_peek->hide();
}

void RibbonBar::EndPeek() {
  if (m_panel->parentWidget() != m_peek) return;
  m_peekClosed.start();
  m_panelLayout->addWidget(m_panel);
  m_panel->show();
  ShowPanel();
  // A second click on the same tab closed the peek: that was a double click, which pins it.
  const QPoint cursor = m_tabs->mapFromGlobal(QCursor::pos());
  if (m_peekOpened.isValid() && m_peekOpened.elapsed() < QApplication::doubleClickInterval() &&
      m_tabs->tabAt(cursor) == m_peekTab && m_peekTab >= 0) {
    SetCollapsed(false);
  }
}

bool RibbonBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_peek && event->type() == QEvent::Hide) EndPeek();
  return QWidget::eventFilter(watched, event);
}

}  // namespace ribbon
