// The row dialogs as the row's context menu opens them on the main window: the points editor,
// the point evaluator and the move dialog, writing into the real rows.
#include "dialogs/frmAddPoint.h"
#include "dialogs/frmMoveTo.h"
#include "dialogs/frmPointEvaluator.h"
#include "mathx/MthX.h"
#include "ribbon/CommandBars.h"
#include "rows/FunctionList.h"
#include "rows/RowDialogs.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include <functional>

#include "FakeDesktop.h"
#include "MainWindowFixture.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QPointer>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include "WaitUntil.h"

namespace {

struct Window : MainWindowFixture {
  Window() {
    form->FunctionMenu().Popup = [](QMenu&, const QPoint&) {};
    form->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
  }
  rows::RowDialogs& Dialogs() { return form->RowForms(); }
  void RunOnRow(int i, std::int32_t id) {
    form->FunctionMenu().Prepare(i);
    ribbon::CommandControl* control = form->CommandBars().FindControl(id);
    ASSERT_NE(control, nullptr) << id;
    form->CommandBars().Execute(*control);
  }
  QString Text(int i) { return Rows().Row(i).mthFunction->Text(); }
};

TEST(RowDialogs, PointsOfAnEmptyRowOpensAnEmptyTable) {
  Window w;
  w.RunOnRow(0, 1174);
  dialogs::frmAddPoint* table = w.Dialogs().PointTable();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(w.Dialogs().Evaluator(), nullptr);
  EXPECT_EQ(table->Row(), 0);
  EXPECT_TRUE(table->isVisible());
  EXPECT_EQ(table->txtPoint_X(0)->text(), QString());
}

TEST(RowDialogs, TheTableWritesItsPointsIntoTheRow) {
  Window w;
  w.Fill({"y=x", "[x,y;1,2]"});
  w.state.ProjectChanged = false;
  w.RunOnRow(1, 1174);
  dialogs::frmAddPoint* table = w.Dialogs().PointTable();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->txtPoint_X(0)->text(), "1");
  EXPECT_EQ(table->txtPoint_Y(0)->text(), "2");
  table->txtPoint_Y(0)->setText("5");  // the first change: an empty line waits under it
  ASSERT_EQ(table->PointCount(), 2);
  table->txtPoint_X(1)->setText("3");
  table->txtPoint_Y(1)->setText("4");
  table->btnOK_Click();
  EXPECT_EQ(w.Text(1), "[x,y;1,5;3,4]");
  EXPECT_EQ(w.Text(0), "y=x");
  EXPECT_TRUE(w.state.ProjectChanged);
  EXPECT_TRUE(WaitUntil([&] { return w.Dialogs().PointTable() == nullptr; }));
}

TEST(RowDialogs, AFunctionGoesToTheEvaluatorAndOnToTheTable) {
  Window w;
  w.Fill({"y=x^2", ""});
  w.RunOnRow(0, 1174);
  dialogs::frmPointEvaluator* evaluator = w.Dialogs().Evaluator();
  ASSERT_NE(evaluator, nullptr);
  EXPECT_EQ(w.Dialogs().PointTable(), nullptr);
  evaluator->txtFrom()->setText("0");
  evaluator->txtTo()->setText("2");
  evaluator->txtStep()->setText("1");
  evaluator->btnEvaluate_Click();
  dialogs::frmAddPoint* table = w.Dialogs().PointTable();
  ASSERT_NE(table, nullptr);
  table->Form_Activate();
  EXPECT_TRUE(WaitUntil([&] { return table->txtPoint_Y(2)->text() == "4"; }));
  table->btnOK_Click();
  EXPECT_EQ(w.Text(0), "[x,y;0,0;1,1;2,4]");
}

TEST(RowDialogs, MovingARowExchangesItWithTheTarget) {
  Window w;
  w.Fill({"y=1", "y=2", "y=3"});
  w.state.ProjectChanged = false;
  w.RunOnRow(0, 1134);
  dialogs::frmMoveTo* move = w.Dialogs().MoveTo();
  ASSERT_NE(move, nullptr);
  EXPECT_EQ(move->Index(), 0);
  move->txtMoveTo()->setText("3");
  move->btnOK_Click();
  EXPECT_EQ(w.Text(0), "y=3");
  EXPECT_EQ(w.Text(2), "y=1");
  EXPECT_TRUE(w.state.ProjectChanged);
}

// Each step: what happens to the list under an open table on row 1 that holds typed points, where
// the table stands afterwards (-1: closed), and where its OK writes.
TEST(RowDialogs, AnOpenTableFollowsItsRow) {
  struct Case {
    const char* name;
    std::function<void(Window&)> change;
    int row;
    const char* texts;  // the rows after OK, joined by "|"
  };
  const Case cases[] = {
      {"moved down", [](Window& w) { w.Rows().MoveFunctionDown(1); }, 2, "y=0|y=2|[x,y;1,9]"},
      {"moved up", [](Window& w) { w.Rows().MoveFunctionUp(1); }, 0, "[x,y;1,9]|y=0|y=2"},
      {"a row above removed", [](Window& w) { w.Rows().RemoveFunction(0, true); }, 0, "[x,y;1,9]|y=2"},
      {"a row below removed", [](Window& w) { w.Rows().RemoveFunction(2, true); }, 1, "y=0|[x,y;1,9]"},
      {"another row moved", [](Window& w) { w.Rows().MoveFunctionTo(0, 2); }, 1, "y=2|[x,y;1,9]|y=0"},
  };
  for (const Case& c : cases) {
    Window w;
    w.Fill({"y=0", "[x,y;1,2]", "y=2"});
    w.RunOnRow(1, 1174);
    QPointer<dialogs::frmAddPoint> table = w.Dialogs().PointTable();
    ASSERT_NE(table, nullptr);
    table->txtPoint_Y(0)->setText("9");
    c.change(w);
    QApplication::processEvents();
    ASSERT_FALSE(table.isNull()) << c.name;
    EXPECT_FALSE(table->isHidden()) << c.name;
    EXPECT_EQ(table->Row(), c.row) << c.name;
    EXPECT_TRUE(w.boxes.boxes.empty()) << c.name;
    table->btnOK_Click();
    QStringList texts;
    for (int i = 0; i <= w.Rows().HighestIndex(); ++i) texts << w.Text(i);
    EXPECT_EQ(texts.join(u'|'), c.texts) << c.name;
  }
}

TEST(RowDialogs, ATableWhoseRowIsRemovedAsksBeforeTypedPointsGo) {
  using Answer = platform::MessageBoxes::Answer;
  struct Case {
    const char* name;
    bool typed;
    bool clearAll;
    Answer answer;
    bool open;
  };
  const Case cases[] = {
      {"untouched: it goes without a word", false, false, Answer::Yes, false},
      {"typed, dropped", true, false, Answer::Yes, false},
      {"typed, kept", true, false, Answer::No, true},
      {"typed, all cleared, kept", true, true, Answer::No, true},
  };
  for (const Case& c : cases) {
    Window w;
    w.Fill({"y=0", "[x,y;1,2]", "y=2"});
    w.RunOnRow(1, 1174);
    QPointer<dialogs::frmAddPoint> table = w.Dialogs().PointTable();
    ASSERT_NE(table, nullptr);
    if (c.typed) table->txtPoint_Y(0)->setText("9");
    if (c.clearAll) w.boxes.answers.push_back(Answer::Yes);  // "Are you sure you want to clear all functions?"
    w.boxes.answers.push_back(c.answer);
    if (c.clearAll) QTest::mouseClick(w.Rows().cmdClearAllFunction(), Qt::LeftButton);
    else w.Rows().RemoveFunction(1, true);
    QApplication::processEvents();
    const std::size_t asked = (c.clearAll ? 1u : 0u) + (c.typed ? 1u : 0u);
    ASSERT_EQ(w.boxes.boxes.size(), asked) << c.name;
    if (c.typed) {
      EXPECT_EQ(w.boxes.boxes.back().Text, "The function of these points was removed. Drop the points?") << c.name;
      EXPECT_EQ(w.boxes.boxes.back().Title, "Removed Function - [Msg-0032]") << c.name;
    }
    EXPECT_EQ(!table.isNull() && table->isVisible(), c.open) << c.name;
    if (!c.open) continue;
    const int rows = w.Rows().HighestIndex();
    table->btnOK_Click();
    EXPECT_EQ(w.Rows().HighestIndex(), rows + 1) << c.name;
    EXPECT_EQ(w.Text(rows + 1), "[x,y;1,9]") << c.name;
    EXPECT_EQ(w.boxes.boxes.size(), asked) << c.name;
  }
}

TEST(RowDialogs, TheEvaluatorFollowsItsRowAndGoesWithIt) {
  Window w;
  w.Fill({"y=0", "y=x^2", "y=2"});
  w.RunOnRow(1, 1174);
  QPointer<dialogs::frmPointEvaluator> evaluator = w.Dialogs().Evaluator();
  ASSERT_NE(evaluator, nullptr);
  evaluator->txtFrom()->setText("0");
  evaluator->txtTo()->setText("2");
  evaluator->txtStep()->setText("1");
  w.Rows().MoveFunctionUp(1);
  QApplication::processEvents();
  ASSERT_FALSE(evaluator.isNull());
  EXPECT_EQ(evaluator->Row(), 0);
  EXPECT_EQ(evaluator->txtTo()->text(), "2");
  evaluator->btnEvaluate_Click();
  QPointer<dialogs::frmAddPoint> table = w.Dialogs().PointTable();
  ASSERT_NE(table, nullptr);
  table->Form_Activate();
  EXPECT_EQ(table->Row(), 0);
  table->btnOK_Click();
  EXPECT_EQ(w.Text(0), "[x,y;0,0;1,1;2,4]");
  EXPECT_EQ(w.Text(1), "y=0");
  // Its row removed, the evaluator has nothing left to evaluate.
  w.RunOnRow(2, 1174);
  evaluator = w.Dialogs().Evaluator();
  ASSERT_NE(evaluator, nullptr);
  w.Rows().RemoveFunction(2, true);
  EXPECT_TRUE(WaitUntil([&] { return evaluator.isNull() || evaluator->isHidden(); }));
}

TEST(RowDialogs, OneTableAtATime) {
  Window w;
  w.Fill({"[x,y;1,2]", "[x,y;5,6]"});
  w.RunOnRow(0, 1174);
  QPointer<dialogs::frmAddPoint> first = w.Dialogs().PointTable();
  w.RunOnRow(1, 1174);
  EXPECT_TRUE(first.isNull());
  ASSERT_NE(w.Dialogs().PointTable(), nullptr);
  EXPECT_EQ(w.Dialogs().PointTable()->Row(), 1);
}

TEST(RowDialogs, TheWindowClosesWithItsDialogsOpen) {
  Window w;
  w.Fill({"y=x", "[x,y;1,2]"});
  w.RunOnRow(0, 1174);
  w.RunOnRow(1, 1134);
  w.form.reset();
  SUCCEED();
}

}  // namespace

// The evaluator put away by a click elsewhere comes back with its typed range when the same row
// asks for it again; another row gets a fresh one.
TEST(RowDialogs, TheEvaluatorAskedForAgainShowsWhatWasTyped) {
  struct Case {
    int first;
    int again;
    const char* from;  // txtFrom when it opens again
    const char* equation;
  };
  const Case cases[] = {
      {0, 0, "-pi", "y=x^2"},
      {1, 1, "-pi", "y=3"},
      {0, 1, "-4", "y=3"},
  };
  for (const Case& c : cases) {
    Window w;
    w.Fill({"y=x^2", "y=3"});
    w.RunOnRow(c.first, 1174);
    QPointer<dialogs::frmPointEvaluator> evaluator = w.Dialogs().Evaluator();
    ASSERT_NE(evaluator, nullptr) << c.first;
    evaluator->txtFrom()->selectAll();
    QTest::keyClick(evaluator->txtFrom(), Qt::Key_Delete);
    QTest::keyClicks(evaluator->txtFrom(), "-pi");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(evaluator, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    w.RunOnRow(c.again, 1174);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    dialogs::frmPointEvaluator* shown = w.Dialogs().Evaluator();
    ASSERT_NE(shown, nullptr) << c.first;
    shown->Form_Activate();
    EXPECT_TRUE(shown->isVisible()) << c.first;
    EXPECT_EQ(shown->Row(), c.again);
    EXPECT_EQ(shown->txtFrom()->text(), c.from) << c.first << " then " << c.again;
    EXPECT_EQ(shown->mthEquation()->Text(), c.equation) << c.first << " then " << c.again;
    EXPECT_EQ(w.Dialogs().PointTable(), nullptr);
  }
}
