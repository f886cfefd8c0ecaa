#pragma once

#include "CommandBars.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QAbstractButton;
class QLabel;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace ribbon {

// The backstage behind the ribbon's File button: a view over the whole window with a column of
// commands and pages at its left and the page shown at its right. A command (New, Save, Exit)
// closes the backstage and executes its control through the bars; a page (Info, Samples) shows a
// widget of the caller's. It opens on a page the caller chooses, says which page is about to show
// (PageShowing), and closes by its back arrow or Escape.
class Backstage : public QWidget {
  Q_OBJECT

public:
  // The backstage covers host (the main window) while it is open, and follows its size.
  Backstage(CommandBars& bars, QWidget& host);
  ~Backstage() override;

  // A command of the left column; the backstage holds its control, which the caller may change.
  CommandControl& AddCommand(std::int32_t id, const QString& caption, const QString& iconName = {});
  // A page of the left column; the backstage takes page over. Its control's Caption, Enabled and
  // Visible are the item's.
  CommandControl& AddPage(std::int32_t id, const QString& caption, QWidget* page, const QString& iconName = {});
  // A thin line between the items above and below.
  void AddSeparator();

  // The page that the backstage opens on (Info).
  void SetStartPage(std::int32_t id) { m_startPage = id; }
  std::int32_t StartPage() const { return m_startPage; }

  // Opens the backstage on the page with this id; 0 or an id of no page opens the start page,
  // and without one the first page.
  void Open(std::int32_t pageId = 0);
  void Close();
  bool IsOpen() const { return isVisible(); }
  // Shows a page; PageShowing comes first.
  void ShowPage(std::int32_t id);
  // The page shown now; 0 before any.
  std::int32_t CurrentPage() const { return m_current; }
  QWidget* Page(std::int32_t id) const;
  // The item of the left column for a command or page.
  QAbstractButton* ItemFor(std::int32_t id) const;
  QAbstractButton* BackButton() const;

signals:
  void PageShowing(int id);
  void Opened();
  void Closed();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

private:
  struct Item {
    std::unique_ptr<CommandControl> Control;
    QPushButton* Button;
    QWidget* Page;  // nullptr for a command
  };

  QPushButton* AddItem(std::unique_ptr<CommandControl> control, const QString& iconName, QWidget* page);
  const Item* Find(std::int32_t id) const;
  void Execute(CommandControl& control);
  void BuildFrame();

  CommandBars& m_bars;
  QWidget& m_host;
  std::vector<Item> m_items;
  QVBoxLayout* m_nav = nullptr;
  QPushButton* m_back = nullptr;
  QLabel* m_title = nullptr;
  QStackedWidget* m_pages = nullptr;
  std::int32_t m_startPage = 0;
  std::int32_t m_current = 0;
  QPointer<QWidget> m_focusBefore;
};

}  // namespace ribbon
