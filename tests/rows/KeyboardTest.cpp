// The getting-started tasks with the keyboard alone: rows added, typed, moved and removed, and the
// removal undone, every step through key events to whatever has the focus.
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "ribbon/KeyTips.h"
#include "ribbon/RibbonBar.h"
#include "rows/FunctionList.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

namespace {

// A key to the widget with the focus, and the events it starts run through.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QWidget* target = QApplication::focusWidget();
  ASSERT_NE(target, nullptr);
  QTest::keyClick(target, key, modifiers);
  QApplication::processEvents();
}

void Type(const char* text) {
  QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
  QApplication::processEvents();
}

}  // namespace

TEST(Keyboard, RowsAddedTypedMovedRemovedAndTheRemovalUndone) {
  MainWindowFixture w;
  w->show();
  QApplication::setActiveWindow(w.form.get());
  w.Rows().cmdAddFunction()->setFocus();
  QApplication::processEvents();
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().cmdAddFunction());
  Press(Qt::Key_Space);
  Press(Qt::Key_Space);
  ASSERT_EQ(w.Rows().HighestIndex(), 2);

  // Back from the button into the last row, then up to the first.
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(2).mthFunction);
  Press(Qt::Key_Up);
  Press(Qt::Key_Up);
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(0).mthFunction);

  const char* texts[] = {"y=x", "y=2x", "y=3x"};
  for (int row = 0; row < 3; ++row) {
    SCOPED_TRACE(row);
    Press(Qt::Key_Return);  // the insert dialog, on this row
    ASSERT_NE(w->Insert(), nullptr);
    QApplication::setActiveWindow(w->Insert());
    QApplication::processEvents();
    Type(texts[row]);
    Press(Qt::Key_Return);  // Insert
    QApplication::setActiveWindow(w.form.get());
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), w.Rows().Row(row).mthFunction) << "the focus comes back to the row";
    EXPECT_EQ(w.Rows().Row(row).mthFunction->Text(), texts[row]);
    if (row < 2) Press(Qt::Key_Down);
  }

  Press(Qt::Key_Up, Qt::ControlModifier);  // row 3 moves up
  EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=3x");
  EXPECT_EQ(w.Rows().Row(2).mthFunction->Text(), "y=2x");
  Press(Qt::Key_Delete, Qt::ControlModifier);  // and goes
  ASSERT_EQ(w.Rows().HighestIndex(), 1);
  EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=2x");
  Press(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_EQ(w.Rows().HighestIndex(), 2);
  EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=3x");
}

// The ribbon's key tips in the real window: Alt, V, then Grid's letter switches the grid off and
// on, and the keyboard goes back to the row it came from.
TEST(Keyboard, KeyTipsReachTheRibbonsCommands) {
  MainWindowFixture w;
  w->show();
  QApplication::setActiveWindow(w.form.get());
  ASSERT_TRUE(QTest::qWaitForWindowActive(w.form.get()));
  w.Rows().Row(0).mthFunction->setFocus();
  QApplication::processEvents();
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(0).mthFunction);
  const bool grid = w->Plot().Scene().ShowGrid();
  for (const bool expected : {!grid, grid}) {
    Press(Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(w->Ribbon().Tips().CurrentLevel(), ribbon::KeyTips::Level::Tabs);
    Press(Qt::Key_V);
    EXPECT_EQ(w->Ribbon().Tips().CurrentLevel(), ribbon::KeyTips::Level::Controls);
    Press(Qt::Key_G);
    EXPECT_EQ(w->Ribbon().Tips().CurrentLevel(), ribbon::KeyTips::Level::Hidden);
    EXPECT_EQ(w->Plot().Scene().ShowGrid(), expected);
    EXPECT_EQ(w->CommandBars().FindControl(1088)->Checked(), expected);
    EXPECT_EQ(QApplication::focusWidget(), w.Rows().Row(0).mthFunction);
  }
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "");
}
