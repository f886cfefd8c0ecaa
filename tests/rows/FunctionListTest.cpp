// The function list: adding, removing, exchanging and laying out rows, through the real widgets.
#include "core/ColorController.h"
#include "core/Tag.h"
#include "core/Twips.h"
#include "mathx/MthX.h"
#include "rows/ColorButton.h"
#include "rows/ConstantSlider.h"
#include "rows/FunctionList.h"
#include "rows/RowKind.h"
#include "rows/RowStatusIcons.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QToolButton>
#include <QLineEdit>
#include <QTest>

using rows::FunctionList;
using rows::RowKind;

namespace {

const QString kDefault = QStringLiteral("False,False,False,True,True,0");

struct ListFixture {
  ListFixture() : state(InitialisedState()), list(state, boxes, colors) {
    list.resize(470, 600);
    list.show();
  }
  // Rows up to the index, each with a text of its own, written as the insert dialog writes them.
  void Fill(int rows) {
    while (list.HighestIndex() < rows - 1) list.AddFunction(false);
  }
  void SetText(int row, const QString& text) { list.Row(row).mthFunction->SetText(text); }
  QString Text(int row) { return list.Row(row).mthFunction->Text(); }
  QString Attributes(int row) { return core::Tag(list.Row(row).grpFunction); }
  std::int32_t Color(int row) { return list.Row(row).colrFunction->Color(); }

  core::SharedState state;
  RecordingBoxes boxes;
  ScriptedColors colors;
  FunctionList list;
};

}  // namespace

TEST(FunctionList, RowZeroExistsFromTheStart) {
  ListFixture f;
  EXPECT_EQ(f.list.HighestIndex(), 0);
  EXPECT_EQ(f.Attributes(0), kDefault);
  EXPECT_EQ(f.Color(0), 255);
  EXPECT_EQ(f.list.Row(0).colrFunction->Caption(), "1");
  EXPECT_EQ(f.Text(0), "");
}

TEST(FunctionList, TheFirstAddedRowTurnsRowZerosDefaultColourBy20) {
  ListFixture f;
  f.list.Row(0).colrFunction->SetColor(65280);  // the colour, not the default colour, changes
  f.list.AddFunction(false);
  EXPECT_EQ(f.Color(1), core::NextRowColor(255));
  EXPECT_EQ(f.list.Row(1).colrFunction->DefaultColor(), core::NextRowColor(255));
  EXPECT_EQ(core::RgbToHsl(f.Color(1)).Hue, core::RgbToHsl(255).Hue + 20);
  EXPECT_EQ(f.list.Row(1).colrFunction->Caption(), "2");
  EXPECT_EQ(f.Attributes(1), kDefault);
  f.list.AddFunction(false);
  EXPECT_EQ(f.Color(2), core::NextRowColor(core::NextRowColor(255)));
}

TEST(FunctionList, ANewRowsNoteWaitsHidden) {
  ListFixture f;
  QSignalSpy changed(&f.list, &FunctionList::Changed);
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  f.list.AddFunction(false);
  EXPECT_EQ(f.list.Row(1).rchfunNote->toPlainText(), "Your note here.");
  EXPECT_TRUE(f.list.Row(1).rchfunNote->isHidden());
  EXPECT_EQ(f.list.Row(1).rchfunNote->textCursor().selectedText(), "Your note here.");
  EXPECT_EQ(changed.count(), 0);
  EXPECT_EQ(replot.count(), 0);
  EXPECT_EQ(core::Tag(f.list.Row(1).mthFunction), "");
  EXPECT_TRUE(f.list.cmdAddFunction()->hasFocus() || !f.list.isActiveWindow());
}

TEST(FunctionList, The110thRowIsRefusedWithAMessageThatNames110) {
  ListFixture f;
  f.Fill(109);
  EXPECT_EQ(f.list.HighestIndex(), 108);
  EXPECT_TRUE(f.boxes.boxes.empty());
  QTest::mouseClick(f.list.cmdAddFunction(), Qt::LeftButton);
  EXPECT_EQ(f.list.HighestIndex(), 108);
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "The maximum number of functions is 110.");
  EXPECT_EQ(f.boxes.boxes[0].Title, "Max Function - [Info-0004]");
  EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
  EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::Ok);
}

TEST(FunctionList, KindsOfRowByTextAndNote) {
  struct Case {
    const char* text;
    bool note;
    RowKind kind;
  };
  const Case cases[] = {
      {"y=x", true, RowKind::Note},        {"", false, RowKind::Empty},
      {"command==>[showgrid]", false, RowKind::Command}, {"commandment", false, RowKind::Command},
      {"[x,y;1,2]", false, RowKind::Point}, {"y=declare(x,x>0)", false, RowKind::Declaration},
      {"declare(y=x,x>0)", false, RowKind::Declaration}, {"y=[x]", false, RowKind::Function},
      {"x^2+y^2=1", false, RowKind::Function},
  };
  for (const Case& c : cases) EXPECT_EQ(rows::KindOfRow(c.text, c.note), c.kind) << c.text;
}

TEST(FunctionList, RemovingTheOnlyRowResetsIt) {
  for (int index : {0, 3, -1}) {
    ListFixture f;
    f.SetText(0, "y=x");
    f.list.Row(0).colrFunction->SetColor(65280);
    core::SetTag(f.list.Row(0).grpFunction, "True,False,False,False,False,1");
    f.list.Row(0).rchfunNote->setPlainText("old");
    f.list.Row(0).rchfunNote->show();
    QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
    f.list.RemoveFunction(index, true);
    EXPECT_EQ(f.list.HighestIndex(), 0);
    EXPECT_EQ(f.Text(0), "");
    EXPECT_EQ(f.Color(0), 255);
    EXPECT_EQ(f.Attributes(0), kDefault);
    EXPECT_EQ(f.list.Row(0).rchfunNote->toPlainText(), "Your note here.");
    EXPECT_TRUE(f.list.Row(0).rchfunNote->isHidden());
    EXPECT_EQ(replot.count(), 0) << "the plot keeps the curve until the next replot";
    EXPECT_EQ(core::Tag(f.list.Row(0).mthFunction), "");
  }
}

TEST(FunctionList, RemovingTheLastRowLeavesTheReplotToTheCaller) {
  ListFixture f;
  f.Fill(3);
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  f.list.RemoveFunction(2, true);
  EXPECT_EQ(f.list.HighestIndex(), 1);
  EXPECT_EQ(replot.count(), 0);
}

TEST(FunctionList, RemovingARowInTheMiddleShiftsTheContentsUp) {
  ListFixture f;
  f.Fill(5);
  for (int i = 0; i < 5; ++i) {
    f.SetText(i, QStringLiteral("y=%1x").arg(i));
    core::SetTag(f.list.Row(i).grpFunction, QStringLiteral("False,False,False,True,True,%1").arg(i));
  }
  const std::int32_t c3 = f.Color(3), c4 = f.Color(4);
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  f.list.RemoveFunction(2, true);
  ASSERT_EQ(f.list.HighestIndex(), 3);
  EXPECT_EQ(f.Text(2), "y=3x");
  EXPECT_EQ(f.Text(3), "y=4x");
  EXPECT_EQ(f.Color(2), c3);
  EXPECT_EQ(f.Color(3), c4);
  EXPECT_EQ(f.Attributes(2), "False,False,False,True,True,3");
  EXPECT_EQ(f.Attributes(3), "False,False,False,True,True,4");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(f.list.Row(i).colrFunction->Caption(), QString::number(i + 1));
  EXPECT_EQ(replot.count(), 1);
  // An index past the end takes the last row and moves nothing.
  f.list.RemoveFunction(9, false);
  EXPECT_EQ(f.list.HighestIndex(), 2);
  EXPECT_EQ(f.Text(2), "y=3x");
}

TEST(FunctionList, MoveFunctionToExchangesTwoRows) {
  ListFixture f;
  f.Fill(8);
  for (int i = 0; i < 8; ++i) f.SetText(i, QStringLiteral("y=%1").arg(i));
  f.list.Row(5).rchfunNote->show();
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  QSignalSpy close(&f.list, &FunctionList::CloseInsertRequested);
  f.list.MoveFunctionTo(2, 5);
  EXPECT_EQ(f.Text(2), "y=5");
  EXPECT_EQ(f.Text(5), "y=2");
  EXPECT_EQ(f.Text(3), "y=3");
  EXPECT_EQ(f.Text(4), "y=4");
  EXPECT_FALSE(f.list.Row(2).rchfunNote->isHidden());
  EXPECT_TRUE(f.list.Row(5).rchfunNote->isHidden());
  EXPECT_EQ(replot.count(), 1);
  EXPECT_EQ(close.count(), 1);

  f.list.MoveFunctionTo(2, 8);
  f.list.MoveFunctionTo(2, -1);
  EXPECT_EQ(f.Text(2), "y=5");
  EXPECT_EQ(replot.count(), 1);

  f.list.MoveFunctionUp(3);
  EXPECT_EQ(f.Text(2), "y=3");
  f.list.MoveFunctionDown(3);
  EXPECT_EQ(f.Text(4), "y=5");
}

TEST(FunctionList, ClearAllAsksAndLeavesOneEmptyRow) {
  ListFixture f;
  f.Fill(6);
  f.SetText(3, "y=x");
  f.list.SetActiveRow(4);
  f.boxes.answers = {platform::MessageBoxes::Answer::No};
  QTest::mouseClick(f.list.cmdClearAllFunction(), Qt::LeftButton);
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "Are you sure you want to clear all functions?");
  EXPECT_EQ(f.boxes.boxes[0].Title, "Delete All Function - [Msg-0001]");
  EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Question);
  EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::YesNo);
  EXPECT_EQ(f.list.HighestIndex(), 5);
  EXPECT_EQ(f.list.ActiveRow(), 0);

  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  QSignalSpy changed(&f.list, &FunctionList::Changed);
  f.list.ClearAllFunctions();
  EXPECT_EQ(f.list.HighestIndex(), 0);
  EXPECT_EQ(f.Text(0), "");
  EXPECT_EQ(f.Color(0), 255);
  EXPECT_EQ(f.Attributes(0), kDefault);
  EXPECT_EQ(replot.count(), 1);
  EXPECT_GT(changed.count(), 0) << "the rows that were there are a change to save";
  EXPECT_EQ(f.list.scrlFunctions()->value(), 0);
}

TEST(FunctionList, AClickOnARowsEditorOpensTheInsertDialogForIt) {
  ListFixture f;
  f.Fill(3);
  QSignalSpy insert(&f.list, &FunctionList::InsertRequested);
  QTest::mouseClick(f.list.Row(2).mthFunction, Qt::LeftButton);
  EXPECT_EQ(f.list.ActiveRow(), 2);
  ASSERT_EQ(insert.count(), 1);
  EXPECT_EQ(insert.at(0).at(0).toInt(), 2);
  EXPECT_EQ(f.state.InsertSource, 0);
  EXPECT_EQ(f.state.InsertIndex, 2);
  // The frame moved to row 2.
  EXPECT_TRUE(f.list.Row(0).ActiveLine_Down->isHidden());
  EXPECT_FALSE(f.list.Row(2).ActiveLine_Left->isHidden());
  // A guarded editor only takes the frame.
  core::SetTag(f.list.Row(1).mthFunction, core::kQuiet);
  QTest::mouseClick(f.list.Row(1).mthFunction, Qt::LeftButton);
  EXPECT_EQ(f.list.ActiveRow(), 1);
  EXPECT_EQ(insert.count(), 1);
  // The keyboard's way in.
  core::SetTag(f.list.Row(1).mthFunction, QString());
  f.list.Row(1).mthFunction->setFocus();
  QTest::keyClick(f.list.Row(1).mthFunction, Qt::Key_Return);
  EXPECT_EQ(insert.count(), 2);
}

TEST(FunctionList, ATextChangeReplotsAndMarksTheProject) {
  ListFixture f;
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  QSignalSpy changed(&f.list, &FunctionList::Changed);
  f.SetText(0, "y=x^2");
  EXPECT_EQ(replot.count(), 1);
  EXPECT_EQ(replot.at(0).at(0).toBool(), false);
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(f.list.Row(0).mthFunction->width(), core::Px(5295));
  EXPECT_GE(core::Tw(f.list.Row(0).mthFunction->height()), 795);
  // The program's own writes stay quiet.
  core::SetTag(f.list.Row(0).mthFunction, core::kQuiet);
  f.SetText(0, "y=x");
  EXPECT_EQ(replot.count(), 1);
}

TEST(FunctionList, ColourAndNoteChangesOnlyMarkTheProject) {
  ListFixture f;
  QSignalSpy replot(&f.list, &FunctionList::ReplotRequested);
  QSignalSpy changed(&f.list, &FunctionList::Changed);
  f.colors.colors = {QColor(0, 128, 0)};
  QTest::mouseClick(f.list.Row(0).colrFunction, Qt::LeftButton);
  EXPECT_EQ(f.Color(0), 128 << 8);
  EXPECT_EQ(changed.count(), 1);
  // A cancelled colour dialog changes nothing.
  QTest::mouseClick(f.list.Row(0).colrFunction, Qt::LeftButton);
  EXPECT_EQ(changed.count(), 1);
  f.list.Row(0).rchfunNote->setPlainText("a note");
  EXPECT_EQ(changed.count(), 2);
  EXPECT_EQ(replot.count(), 0);
}

TEST(FunctionList, RowHeightsFollowTheirEditors) {
  ListFixture f;
  f.Fill(2);
  f.SetText(0, "y=x");
  EXPECT_EQ(f.list.Row(0).Height, 1125);
  f.SetText(1, "[x,y;1,2;3,4;5,6;7,8;9,10]");
  const double editor = core::Tw(f.list.Row(1).mthFunction->height());
  EXPECT_GT(editor, 795);
  EXPECT_EQ(f.list.Row(1).Height, editor + f.list.Row(1).mthFunction->y() * 15 + 60);
  EXPECT_EQ(f.list.Row(1).Top, 1125);
  EXPECT_EQ(f.list.Row(1).grpFunction->height(), core::Px(f.list.Row(1).Height));
}

TEST(FunctionList, TheListScrollsUnderItsWindow) {
  ListFixture f;
  EXPECT_TRUE(f.list.scrlFunctions()->isHidden());
  EXPECT_EQ(f.list.picFunction()->y(), core::Px(120));
  f.Fill(30);
  // Adding a row in a long list scrolls to the end.
  EXPECT_FALSE(f.list.scrlFunctions()->isHidden());
  EXPECT_EQ(f.list.scrlFunctions()->value(), f.list.scrlFunctions()->maximum());
  EXPECT_EQ(f.list.scrlFunctions()->singleStep(), 1125);
  EXPECT_EQ(f.list.scrlFunctions()->pageStep(), 5 * 1125);
  const double picture = f.list.Row(29).Top + f.list.Row(29).Height;
  EXPECT_EQ(f.list.scrlFunctions()->maximum(), static_cast<int>(picture - core::Tw(f.list.grpFunctions()->height()) + 150));
  f.list.scrlFunctions()->setValue(3000);
  EXPECT_EQ(f.list.picFunction()->y(), core::Px(120 - 3000));
}

// A list that comes to fit its window has no scroll bar to bring back rows scrolled out of sight:
// it goes back to its top, at 120, also when it is shorter than the window by less than the
// scroll range's margin (where the bar's range alone would keep it scrolled).
TEST(FunctionList, AListThatComesToFitItsWindowGoesBackToItsTop) {
  const struct {
    const char* name;
    int height;  // pixels of the whole list
    int rowsBefore, rowsAfter;
  } cases[] = {
      {"far shorter", 600, 30, 3},
      // 578 pixels leave 7950 twips for the rows: seven rows of 1125 fit with 75 to spare.
      {"shorter by less than the margin", 578, 8, 7},
  };
  for (const auto& c : cases) {
    ListFixture f;
    f.list.resize(470, c.height);
    f.Fill(c.rowsBefore);
    ASSERT_FALSE(f.list.scrlFunctions()->isHidden()) << c.name;
    f.list.scrlFunctions()->setValue(f.list.scrlFunctions()->maximum());
    ASSERT_GT(f.list.scrlFunctions()->value(), 0) << c.name;
    while (f.list.HighestIndex() >= c.rowsAfter) f.list.RemoveFunction(f.list.HighestIndex(), false);
    EXPECT_TRUE(f.list.scrlFunctions()->isHidden()) << c.name;
    EXPECT_EQ(f.list.scrlFunctions()->value(), 0) << c.name;
    EXPECT_EQ(f.list.picFunction()->y(), core::Px(120)) << c.name;
  }
}

TEST(FunctionList, StatusIconsTellHiddenCommandAndNoteRows) {
  ListFixture f;
  f.Fill(5);
  core::SetTag(f.list.Row(1).grpFunction, "False,False,False,True,False,0");  // hidden
  f.SetText(2, "command==>[showgrid]");                                    // a command, flag still true
  f.SetText(3, "command==>[hidegrid]");
  core::SetTag(f.list.Row(3).grpFunction, "False,False,False,True,False,0");  // a hidden command: nothing
  f.list.Row(4).rchfunNote->show();                                          // a note
  f.list.Refresh_mth_Height(false);
  const auto& r = [&](int i) -> const rows::FunctionRow& { return f.list.Row(i); };
  EXPECT_TRUE(r(0).imgInvisible->isHidden());
  EXPECT_FALSE(r(0).colrFunction->isHidden());
  EXPECT_FALSE(r(1).imgInvisible->isHidden());
  EXPECT_TRUE(r(1).colrFunction->isHidden());
  EXPECT_FALSE(r(2).imgInvisible->isHidden());
  EXPECT_TRUE(r(2).colrFunction->isHidden());
  EXPECT_TRUE(r(3).imgInvisible->isHidden());
  EXPECT_FALSE(r(3).colrFunction->isHidden());
  EXPECT_FALSE(r(4).imgInvisible->isHidden());
  EXPECT_TRUE(r(4).colrFunction->isHidden());
  EXPECT_TRUE(r(4).mthFunction->isHidden());
  EXPECT_EQ(r(1).imgInvisible->toolTip(), "Hidden: not drawn");
  EXPECT_EQ(r(2).imgInvisible->toolTip(), "A display command");
  EXPECT_EQ(r(4).imgInvisible->toolTip(), "A note");
  // The note lies exactly over the editor.
  EXPECT_EQ(r(4).rchfunNote->geometry(), r(4).mthFunction->geometry());
}

// Every row within reach of the keyboard, from the editor that has the focus.
TEST(FunctionList, TheKeysMoveThroughTheRowsAndActOnThem) {
  ListFixture f;
  f.Fill(3);
  for (int i = 0; i < 3; ++i) f.SetText(i, QStringLiteral("y=%1x").arg(i + 1));
  QSignalSpy menus(&f.list, &FunctionList::MoreRequested);
  QSignalSpy inserts(&f.list, &FunctionList::InsertRequested);
  const auto key = [&f](int row, Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) {
    QTest::keyClick(f.list.Row(row).mthFunction, k, m);
  };

  f.list.Row(0).mthFunction->setFocus();
  key(0, Qt::Key_Up);
  EXPECT_EQ(f.list.ActiveRow(), 0) << "nothing above the first row";
  key(0, Qt::Key_Down);
  EXPECT_EQ(f.list.ActiveRow(), 1);
  EXPECT_EQ(f.list.focusWidget(), f.list.Row(1).mthFunction);

  key(1, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(f.Text(1), "y=3x");
  EXPECT_EQ(f.Text(2), "y=2x") << "the row went down with the key";
  EXPECT_EQ(f.list.ActiveRow(), 2);
  EXPECT_EQ(f.list.focusWidget(), f.list.Row(2).mthFunction);

  key(2, Qt::Key_Delete);
  EXPECT_EQ(f.list.HighestIndex(), 2) << "Delete alone edits the text in place";
  key(2, Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(f.list.HighestIndex(), 1);
  EXPECT_EQ(f.Text(1), "y=3x");
  EXPECT_EQ(f.list.focusWidget(), f.list.Row(1).mthFunction) << "the focus stays in the list";

  key(1, Qt::Key_F10, Qt::ShiftModifier);
  key(0, Qt::Key_Menu);
  ASSERT_EQ(menus.count(), 2);
  EXPECT_EQ(menus[0][0].toInt(), 1);
  EXPECT_EQ(menus[1][0].toInt(), 0);
  key(0, Qt::Key_F2);
  ASSERT_EQ(inserts.count(), 1);
  EXPECT_EQ(inserts[0][0].toInt(), 0);
}

TEST(FunctionList, ARowReachedByTheKeysIsScrolledIntoView) {
  ListFixture f;
  f.Fill(30);
  f.list.Row(0).mthFunction->setFocus();
  for (int i = 0; i < 29; ++i) QTest::keyClick(f.list.Row(i).mthFunction, Qt::Key_Down);
  const QWidget* last = f.list.Row(29).grpFunction;
  const QRect shown(last->mapTo(f.list.grpFunctions(), QPoint(0, 0)), last->size());
  EXPECT_TRUE(f.list.grpFunctions()->rect().contains(shown)) << shown.top() << " " << shown.bottom();
  for (int i = 29; i > 0; --i) QTest::keyClick(f.list.Row(i).mthFunction, Qt::Key_Up);
  const QWidget* first = f.list.Row(0).grpFunction;
  EXPECT_TRUE(f.list.grpFunctions()->rect().contains(QRect(first->mapTo(f.list.grpFunctions(), QPoint(0, 0)), first->size())));
}

// Tab reaches every row in order, each row's controls before the next row's, and then the buttons
// under the list; rows added later are not left to the end of the window.
TEST(FunctionList, TabVisitsTheRowsInOrder) {
  ListFixture f;
  f.Fill(3);
  f.SetText(1, "a=2");
  f.list.Refresh_mth_Height(false);
  f.list.AddFunction(false);
  std::vector<QWidget*> visited;
  QWidget* at = f.list.Row(0).colrFunction;
  for (int step = 0; step < 100 && at != f.list.cmdClearAllFunction(); ++step) {
    if ((at->focusPolicy() & Qt::TabFocus) && at->isVisibleTo(&f.list) && at->isEnabled()) visited.push_back(at);
    at = at->nextInFocusChain();
  }
  const std::vector<QWidget*> wanted = {
      f.list.Row(0).colrFunction, f.list.Row(0).mthFunction, f.list.Row(0).btnMore,
      f.list.Row(1).colrFunction, f.list.Row(1).mthFunction, f.list.Row(1).btnMore,
      f.list.Row(1).sliConstant->btnPlay(), f.list.Row(1).sliConstant->txtMin(), f.list.Row(1).sliConstant->sliValue(),
      f.list.Row(1).sliConstant->txtMax(), f.list.Row(1).sliConstant->txtStep(),
      f.list.Row(2).colrFunction, f.list.Row(2).mthFunction, f.list.Row(2).btnMore,
      f.list.Row(3).colrFunction, f.list.Row(3).mthFunction, f.list.Row(3).btnMore,
      f.list.cmdAddFunction()};
  EXPECT_EQ(visited, wanted);
}

// Up and Down go through a stacked fraction first, and to the next row from its top or bottom.
TEST(FunctionList, UpAndDownMoveWithinAFractionBeforeLeavingTheRow) {
  ListFixture f;
  f.Fill(2);
  f.SetText(0, "y=1");
  f.SetText(1, "y=(x+1)/(x-1)");
  mathx::MthX& fraction = *f.list.Row(1).mthFunction;
  f.list.SetActiveRow(1);
  ASSERT_EQ(f.list.ActiveRow(), 1);
  QTest::keyClick(&fraction, Qt::Key_End);
  QTest::keyClick(&fraction, Qt::Key_Left);  // inside the denominator
  ASSERT_TRUE(fraction.CaretCanMove(true));
  QTest::keyClick(&fraction, Qt::Key_Up);
  EXPECT_EQ(f.list.ActiveRow(), 1) << "the caret went up into the numerator";
  EXPECT_FALSE(fraction.CaretCanMove(true));
  QTest::keyClick(&fraction, Qt::Key_Up);
  EXPECT_EQ(f.list.ActiveRow(), 0);
}
