#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <vector>

class QKeyEvent;
class QLabel;
class QWidget;

namespace ribbon {

class RibbonBar;

// Key tips: every command of a ribbon reached with the keyboard alone, as in office programs.
// Alt pressed and released alone shows small labels over the File button (F), the tabs (their
// mnemonic letters) and the quick access bar's buttons (1, 2, 3...). A tab's letter selects the
// tab, dropping a collapsed ribbon down, and shows a letter over each of its controls; a control's
// letter runs it as a click would (a slider takes the keyboard instead), and the tips go. Escape
// goes back one level, Alt again, a click or another window hides them. A letter of no tip is
// ignored; any other key hides the tips and does what it always does.
//
// The letters come from the captions (see KeyTipLetters), so that controls added to the design
// file get tips of their own. The views carry their keys in their accessible descriptions for
// screen readers; the labels are for sight.
class KeyTips : public QObject {
  Q_OBJECT

public:
  enum class Level { Hidden, Tabs, Controls };

  // One tip: the keys of a level that reach a widget of the ribbon. A tab's tip has the tab strip
  // as its target and the tab's index.
  struct Tip {
    QString Keys;
    QPointer<QWidget> Target;
    int Tab = -1;
  };

  explicit KeyTips(RibbonBar& ribbon);
  ~KeyTips() override;

  Level CurrentLevel() const { return m_level; }
  // The tab whose controls' tips show; -1 at the other levels.
  int CurrentTab() const { return m_level == Level::Controls ? m_tab : -1; }
  void ShowTabs();
  void Hide();

  // The tips of the first level (File, quick access bar, tabs) and of one tab's controls, as the
  // ribbon is now, shown or not.
  std::vector<Tip> TabLevelTips() const;
  std::vector<Tip> ControlTips(int tab) const;
  // The labels on the screen now, each with its tip.
  std::vector<std::pair<QLabel*, Tip>> ShownLabels() const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool MayShow() const;
  void WatchAlt(QEvent* event);
  bool KeyWhileShown(QKeyEvent* key, bool overrideOnly);
  void Type(QChar key);
  void Run(Tip tip);
  void RunControl(QWidget* target);
  void ShowControls(int tab);
  void BackToTabs();
  void ShowLabels(std::vector<Tip> tips);
  QLabel* NewLabel(const Tip& tip);
  void ClearLabels();
  void Leave(bool restoreFocus);
  void Describe();

  RibbonBar& m_ribbon;
  Level m_level = Level::Hidden;
  int m_tab = -1;
  QString m_typed;
  std::vector<Tip> m_tips;
  std::vector<QPointer<QLabel>> m_labels;
  QPointer<QWidget> m_focusBefore;
  bool m_altAlone = false;
};

}  // namespace ribbon
