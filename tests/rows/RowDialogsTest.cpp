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

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace {

struct Window {
  Window() : state(InitialisedState()) {
    form = std::make_unique<rows::frmMain>(state, rows::MainServices{settings, boxes, colors, files, desktop});
    form->FunctionMenu().Popup = [](QMenu&, const QPoint&) {};
    form->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
  }
  rows::frmMain* operator->() { return form.get(); }
  rows::FunctionList& Rows() { return form->Functions(); }
  rows::RowDialogs& Dialogs() { return form->RowForms(); }
  void RunOnRow(int i, std::int32_t id) {
    form->FunctionMenu().Prepare(i);
    ribbon::CommandControl* control = form->CommandBars().FindControl(id);
    ASSERT_NE(control, nullptr) << id;
    form->CommandBars().Execute(*control);
  }
  void Fill(const QStringList& texts) {
    for (int i = 0; i < texts.size(); ++i) {
      if (i > Rows().HighestIndex()) Rows().AddFunction(false);
      Rows().Row(i).mthFunction->SetText(texts[i]);
    }
  }
  QString Text(int i) { return Rows().Row(i).mthFunction->Text(); }

  core::SharedState state;
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  std::unique_ptr<rows::frmMain> form;
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
  QTRY_COMPARE(w.Dialogs().PointTable(), nullptr);
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
  QTRY_COMPARE(table->txtPoint_Y(2)->text(), "4");
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

TEST(RowDialogs, RowsMovedUnderAnOpenTableCloseIt) {
  Window w;
  w.Fill({"[x,y;1,2]", "y=2"});
  w.RunOnRow(0, 1174);
  QPointer<dialogs::frmAddPoint> table = w.Dialogs().PointTable();
  ASSERT_NE(table, nullptr);
  w.Rows().MoveFunctionDown(0);
  QTRY_VERIFY(table.isNull());
  EXPECT_EQ(w.Text(1), "[x,y;1,2]");
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
