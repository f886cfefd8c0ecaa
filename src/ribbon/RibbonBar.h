#pragma once

#include "CommandBars.h"

#include "platform/ColorChooser.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

#include <vector>

class QFrame;
class QShortcut;
class QStackedWidget;
class QTabBar;
class QToolButton;
class QVBoxLayout;

namespace ribbon {

class Backstage;
class CommandShortcuts;
class KeyTips;
class QuickAccessBar;

// The ribbon of a window, drawn from its command bars: the quick access bar at the top left, the
// tab strip with the File button at its left and a button to collapse the ribbon at its right, and
// under it the groups of the current tab (see RibbonGroup). Every view follows its control and
// executes it through the bars; the ribbon builds itself again when the bars are reloaded, and a
// missing design leaves it with no tabs. Each control's shortcut is bound on the window.
//
// Collapsed, the ribbon is its tab strip alone: a click on a tab drops the tab's groups down over
// the window until a command runs or the user clicks elsewhere. A double click on a tab, the
// button at the right or Ctrl+F1 collapse and expand it. Alt and a tab's mnemonic letter selects
// that tab, Alt+F opens the backstage; Alt alone shows the key tips (see KeyTips) and moves the
// keyboard to the tabs.
class RibbonBar : public QWidget {
  Q_OBJECT

public:
  RibbonBar(CommandBars& bars, platform::ColorChooser& colors, QWidget* parent = nullptr);
  ~RibbonBar() override;

  QuickAccessBar& QuickAccess() { return *m_quickAccess; }
  // The backstage that the File button opens (nullptr: the button only says FileButtonClicked).
  void SetBackstage(Backstage* backstage);
  Backstage* BackstageView() const;

  // The tabs are the root's Tab controls, in order, hidden ones included.
  int TabCount() const;
  int CurrentTab() const;
  void SelectTab(int index);
  CommandControl* TabControl(int index) const;
  // The page of a tab's groups.
  QWidget* Page(int index) const;
  // Selects a tab from the keyboard and moves the keyboard there; a collapsed ribbon drops the
  // tab's groups down.
  void OpenTab(int index);
  // The groups of a collapsed ribbon are dropped down.
  bool IsPeeking() const;
  void ClosePeek();

  bool IsCollapsed() const { return m_collapsed; }
  void SetCollapsed(bool collapsed);

  // The view of the control with this id on the ribbon or its quick access bar; nullptr for none.
  QWidget* WidgetFor(std::int32_t id) const;
  QTabBar* TabStrip() const { return m_tabs; }
  QToolButton* FileButton() const { return m_fileButton; }
  QToolButton* CollapseButton() const { return m_collapseButton; }
  CommandShortcuts& Shortcuts() { return *m_shortcuts; }
  KeyTips& Tips() { return *m_keyTips; }

signals:
  void CurrentTabChanged(int index);
  // The ribbon's height changes: the window lays itself out again.
  void CollapsedChanged(bool collapsed);
  void FileButtonClicked();
  // The tabs and their pages were built again from the bars.
  void Rebuilt();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void BuildFrame();
  QWidget* BuildTopRow();
  QWidget* BuildTabRow();
  void Rebuild();
  void ClearTabs(bool deleteNow);
  void AddTab(CommandControl& tab);
  QWidget* BuildPage(CommandControl& tab);
  void FollowTab(int index);
  void BindShortcuts(CommandControl& parent);
  void OnTabClicked(int index);
  void OpenFile();
  void Peek();
  void EndPeek();
  void ShowPanel();
  void UpdateCollapseButton();
  void SuspendKeys(bool suspended);

  CommandBars& m_bars;
  platform::ColorChooser& m_colors;
  CommandShortcuts* m_shortcuts;
  QVBoxLayout* m_layout = nullptr;
  QWidget* m_topRow = nullptr;
  QuickAccessBar* m_quickAccess = nullptr;
  QToolButton* m_fileButton = nullptr;
  QTabBar* m_tabs = nullptr;
  QToolButton* m_collapseButton = nullptr;
  QWidget* m_panelHost = nullptr;
  QVBoxLayout* m_panelLayout = nullptr;
  QFrame* m_panel = nullptr;
  QStackedWidget* m_pages = nullptr;
  QFrame* m_peek = nullptr;
  QElapsedTimer m_peekOpened;
  QElapsedTimer m_peekClosed;
  int m_peekTab = -1;
  std::vector<QPointer<CommandControl>> m_tabControls;
  std::vector<QShortcut*> m_tabKeys;
  QShortcut* m_fileKey = nullptr;
  QShortcut* m_collapseKey = nullptr;
  bool m_keysSuspended = false;
  QPointer<Backstage> m_backstage;
  KeyTips* m_keyTips = nullptr;
  bool m_collapsed = false;
};

}  // namespace ribbon
