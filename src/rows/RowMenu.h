#pragma once

#include "ribbon/CommandBars.h"

#include <QString>

class QMenu;
class QPoint;

namespace rows {

class FunctionList;

// The row's context menu: one set of items for all rows, their captions, visibility and check
// marks worked out from the row each time it opens. The commands run later through the form's
// dispatch, which finds the row again by the menu's tag.
class RowMenu {
public:
  RowMenu(ribbon::CommandBars& bars, FunctionList& rows);

  // The click of btnMore(i): the items prepared for row i and the menu shown at the place.
  void btnMore_Click(int i, const QPoint& at);
  // The items prepared for row i, without showing the menu.
  void Prepare(int i);
  // The note's menu of row i at the place.
  void ShowNoteMenu(int i, const QPoint& at);

  // menuFunction's tag: the index of the row whose menu opened last, as decimal text.
  QString Tag() const { return m_tag; }
  int Row() const;
  ribbon::CommandControl* Item(std::int32_t id) const;
  ribbon::CommandControl* Menu() const;
  ribbon::CommandControl* NoteMenu() const;

  // The menus are shown through this, so that tests see them without a modal loop.
  std::function<void(QMenu& menu, const QPoint& at)> Popup;

private:
  ribbon::CommandBars& m_bars;
  FunctionList& m_rows;
  QString m_tag;
};

}  // namespace rows
