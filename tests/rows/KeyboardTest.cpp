// The getting-started tasks with the keyboard alone: rows added, typed, moved and removed, and the
// removal undone, every step through key events to whatever has the focus.
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "ribbon/KeyTips.h"
#include "ribbon/RibbonBar.h"
#include "rows/ColorButton.h"
#include "rows/FunctionList.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"

#include <QApplication>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
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
  ASSERT_EQ(w.Rows().HighestIndex(), 1);
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(1).mthFunction) << "the new row takes the keyboard";
  Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::qWait(250);  // a button's shortcut clicks it as the eye can follow, a moment later
  ASSERT_EQ(w.Rows().HighestIndex(), 2);
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(2).mthFunction);

  // Up to the first row.
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

namespace {

// Tab onwards from the focus until the widget is reached; false when it is not in the chain.
bool TabTo(QWidget* wanted, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  for (int step = 0; step < 80 && QApplication::focusWidget() != wanted; ++step) Press(Qt::Key_Tab, modifiers);
  return QApplication::focusWidget() == wanted;
}

}  // namespace

// The rest of the getting-started chapter by keys: a row added from the row with Ctrl+Shift+N, its
// colour changed, the view moved and zoomed and reset, the project saved, and Clear all.
TEST(Keyboard, TheGettingStartedChapterWithoutAMouse) {
  MainWindowFixture w;
  w->resize(1200, 800);
  w->show();
  QApplication::setActiveWindow(w.form.get());
  w.Rows().Row(0).mthFunction->setFocus();
  QApplication::processEvents();

  Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);  // a second row
  QTest::qWait(250);
  ASSERT_EQ(w.Rows().HighestIndex(), 1);
  ASSERT_EQ(QApplication::focusWidget(), w.Rows().Row(1).mthFunction);

  // The colour button of the first row stands just before its editor.
  Press(Qt::Key_Up);
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  ASSERT_EQ(QApplication::focusWidget(), static_cast<QWidget*>(w.Rows().Row(0).colrFunction));
  w.colors.colors = {QColor(0, 128, 0)};
  Press(Qt::Key_Space);
  EXPECT_EQ(w.colors.asked.size(), 1u);
  EXPECT_EQ(w.Rows().Row(0).colrFunction->Color(), 0x008000);

  // Onwards to the plot: the arrow keys move the view, + zooms, Ctrl+0 comes back.
  ASSERT_TRUE(TabTo(&w->Plot())) << "the plot is in the Tab chain";
  const double xMin = w->Plot().Scene().XMin();
  Press(Qt::Key_Right);
  EXPECT_GT(w->Plot().Scene().XMin(), xMin);
  Press(Qt::Key_Plus);
  EXPECT_LT(w->Plot().Scene().XMax() - w->Plot().Scene().XMin(), 20);
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(w->Plot().Scene().XMin(), xMin);

  // Saving asks for a name the first time.
  QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("first.qlp"));
  w.files.names = {name};
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(QFileInfo::exists(name));

  // Clear all, from its button, after the question.
  ASSERT_TRUE(TabTo(w.Rows().cmdClearAllFunction()));
  w.boxes.answers = {platform::MessageBoxes::Answer::Yes};
  Press(Qt::Key_Space);
  EXPECT_EQ(w.Rows().HighestIndex(), 0);
}
