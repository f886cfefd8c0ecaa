// Undo and redo: every change that the file keeps is a step; a step undone gives back the bytes
// the writer wrote before it, and redone the bytes after it.
#include "interaction/PlotButtons.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "project/ProjectWriter.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"
#include "ribbon/RibbonButton.h"
#include "rows/ColorButton.h"
#include "rows/ConstantSlider.h"
#include "rows/FunctionList.h"
#include "rows/InputTabs.h"
#include "rows/ParametricPage.h"
#include "rows/RowMenu.h"
#include "rows/SurfacePage.h"
#include "rows/UndoCommands.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <functional>
#include <random>

namespace {

using Answer = platform::MessageBoxes::Answer;

struct Window : MainWindowFixture {
  void Run(std::int32_t id, int row) {
    form->FunctionMenu().Prepare(row);
    MainWindowFixture::Run(id);
  }
  QString Text() { return project::ProjectWriter::Compose(form->ProjectInterface()); }
  history::ProjectHistory& History() { return form->Undo().History(); }
  // The change's events run to their end, and the next action begins, as with a click.
  void Settle() {
    QApplication::processEvents();
    form->Undo().Seal();
  }
  QString UndoTip() { return form->Ribbon().QuickAccess().ButtonFor(rows::UndoCommands::kUndo)->toolTip(); }
};

struct ChangeCase {
  const char* name;
  const char* step;  // the step's name, as "Undo: ..." shows it
  std::function<void(Window&)> change;
  std::function<void(Window&)> prepare = [](Window&) {};
};

const ChangeCase kChanges[] = {
    {"a row's text", "edit row 2", [](Window& w) { w.Rows().Row(1).mthFunction->SetText("y=x^3"); }},
    {"a row removed by its menu", "remove row 2", [](Window& w) { w.Run(1107, 1); }},
    {"the last row removed", "remove row 3", [](Window& w) { w.Rows().RemoveFunction(2, true); }},
    {"a row added", "add row 4", [](Window& w) { w.Rows().cmdAddFunction()->click(); }},
    {"a row moved up", "exchange rows 2 and 3", [](Window& w) { w.Run(1108, 2); }},
    {"a row moved down", "exchange rows 1 and 2", [](Window& w) { w.Run(1109, 0); }},
    {"Clear all", "clear all", [](Window& w) { w.Rows().cmdClearAllFunction()->click(); }},
    {"a row made a note", "make row 2 a note", [](Window& w) { w.Run(1135, 1); }},
    {"a row hidden", "change row 1", [](Window& w) { w.Run(1169, 0); }},
    {"a row's colour", "recolour row 2", [](Window& w) { w.Rows().Row(1).colrFunction->SetColor(12345); }},
    {"a note's text", "edit the note of row 1",
     [](Window& w) { w.Rows().Row(0).rchfunNote->setPlainText("a line\nand another"); },
     [](Window& w) { w.Run(1135, 0); }},
    {"the plot's range", "change the range", [](Window& w) { w.form->CommandBars().Execute(*w.form->CommandBars().FindControl(1066)); }},
    {"the lock", "lock or unlock the range", [](Window& w) { QTest::mouseClick(w->Buttons().btnLock(), Qt::LeftButton); }},
    {"the quality", "change the quality", [](Window& w) { w->Panes().StatusBar_SliderPaneClick("Plot Quality", 1, 0); }},
    {"the input tab", "change the tab", [](Window& w) { w->tabInput()->setCurrentIndex(2); }},
    {"the parametric range", "change the parametric curve",
     [](Window& w) { QTest::keyClicks(w->Tabs().Parametric().txtThetaMax(), "0"); }},
    {"the surface", "change the 3D surface", [](Window& w) { w->Tabs().Surface().Editor(1)->SetText("x*y"); }},
    {"a slider moved", "edit row 3",
     [](Window& w) {
       QSlider* slider = w.Rows().Row(2).sliConstant->sliValue();
       for (int step = 1; step <= 5; ++step) {
         slider->setValue(slider->value() + 1);
         QApplication::processEvents();
       }
     },
     [](Window& w) { w.Rows().Row(2).mthFunction->SetText("a=2"); }},
    {"a slider's bounds", "change the slider of row 3",
     [](Window& w) {
       rows::ConstantSlider& slider = *w.Rows().Row(2).sliConstant;
       slider.txtMax()->setText("4");
       QTest::keyClick(slider.txtMax(), Qt::Key_Return);
     },
     [](Window& w) { w.Rows().Row(2).mthFunction->SetText("a=2"); }},
    {"the area bounds", "change the area's bounds", [](Window& w) { QTest::keyClicks(w->mnu_Integral_max(), "7"); }},
};

}  // namespace

TEST(Undo, EveryKindOfChangeUndoneAndRedoneGivesTheWrittenBytesBack) {
  for (const ChangeCase& c : kChanges) {
    SCOPED_TRACE(c.name);
    Window w;
    w->show();
    w.Fill({"y=x", "y=x^2", "y=sin(x)"});
    w.Settle();
    c.prepare(w);
    w.Settle();
    w.boxes.answers = {Answer::Yes};  // Clear all asks first
    const QString before = w.Text();
    const int steps = w.History().Count();
    c.change(w);
    w.Settle();
    const QString after = w.Text();
    ASSERT_NE(before, after);
    EXPECT_EQ(w.History().Count(), steps + 1) << "one action, one step";
    EXPECT_EQ(w.History().UndoName(), c.step);
    EXPECT_EQ(w.UndoTip().contains(QStringLiteral("Undo: ") + c.step), true) << w.UndoTip().toStdString();
    ASSERT_TRUE(w.History().Count() >= steps + 1);
    w->Undo().Undo();
    QApplication::processEvents();
    EXPECT_EQ(w.Text(), before);
    EXPECT_EQ(w.History().RedoName(), c.step);
    w->Undo().Redo();
    QApplication::processEvents();
    EXPECT_EQ(w.Text(), after);
    // Taking steps is no step of its own.
    EXPECT_EQ(w.History().UndoName(), c.step);
  }
}

TEST(Undo, TypingInARowIsOneStepUntilTheNextClick) {
  Window w;
  w->show();
  w.Settle();
  const QString empty = w.Text();
  rows::FunctionRow& row = w.Rows().Row(0);
  for (const char* typed : {"y", "y=", "y=2", "y=2x"}) {
    row.mthFunction->SetText(typed);
    QApplication::processEvents();
  }
  EXPECT_EQ(w.History().Count(), 1);
  w.Settle();
  row.mthFunction->SetText("y=2x+1");
  QApplication::processEvents();
  EXPECT_EQ(w.History().Count(), 2);
  w->Undo().Undo();
  EXPECT_EQ(row.mthFunction->Text(), "y=2x");
  w->Undo().Undo();
  EXPECT_EQ(row.mthFunction->Text(), "");
  EXPECT_EQ(w.Text(), empty);
  EXPECT_FALSE(w.History().CanUndo());
}

TEST(Undo, TheKeysTakeTheSteps) {
  Window w;
  w->show();
  w->activateWindow();
  w.Fill({"y=x", "y=2x"});
  w.Settle();
  w.Run(1107, 1);
  w.Settle();
  ASSERT_EQ(w.Rows().HighestIndex(), 0);
  QTest::keyClick(w.form.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(w.Rows().HighestIndex(), 1);
  EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=2x");
  QTest::keyClick(w.form.get(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(w.Rows().HighestIndex(), 0);
  QTest::keyClick(w.form.get(), Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(w.form.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(w.Rows().HighestIndex(), 0);
}

TEST(Undo, UndoingBackToTheSavedProjectClearsTheMark) {
  QTemporaryDir dir;
  Window w;
  w->show();
  w.Fill({"y=x"});
  w.Settle();
  w.state.ProjectPath = dir.filePath("saved.qlp");
  ASSERT_TRUE(w->SaveProject(w.state.ProjectPath));
  w.Rows().Row(0).mthFunction->SetText("y=3x");
  w.Settle();
  EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp*");
  w->Undo().Undo();
  EXPECT_FALSE(w.state.ProjectChanged);
  EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp");
  w->Undo().Redo();
  EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp*");
}

TEST(Undo, OpeningAProjectEmptiesTheHistory) {
  QTemporaryDir dir;
  Window source;
  source.Fill({"y=3x", "y=4x"});
  const QString path = dir.filePath("other.qlp");
  ASSERT_TRUE(source->SaveProject(path));

  Window w;
  w->show();
  w.Fill({"y=x"});
  w.Settle();
  ASSERT_TRUE(w.History().CanUndo());
  ASSERT_TRUE(w->LoadProject(path));
  QApplication::processEvents();
  EXPECT_FALSE(w.History().CanUndo()) << w.History().UndoName().toStdString();
  EXPECT_FALSE(w.History().CanRedo());
  EXPECT_FALSE(w.state.ProjectChanged);
  w.boxes.answers = {Answer::No};
  w->Samples().btnSample_Click(0);
  QApplication::processEvents();
  EXPECT_FALSE(w.History().CanUndo()) << "a sample opened is no step either";
}

// Two hundred random changes to a sample, each recorded as the writer writes the project; then
// every one undone, and done again, gives each of those texts back in turn.
TEST(Undo, TwoHundredRandomStepsComeBackByteForByte) {
  Window w;
  w->Samples().btnSample_Click(1);
  // The steps are about the file's bytes, not the pictures: a small, coarse plot draws them fast.
  w->Plot().resize(160, 120);
  w->Plot().Scene().SetQuality(5);
  w.Settle();
  std::mt19937 random(20261125);
  const auto pick = [&random](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
  const char* texts[] = {"y=x", "y=sin(2x)", "r=2cos(3theta)", "x^2+y^2=4", "a=3", "y=ax{0<x<2}", "[x,y;1,2;3,4]", ""};
  const std::function<void()> changes[] = {
      [&] { w.Rows().Row(pick(w.Rows().HighestIndex() + 1)).mthFunction->SetText(texts[pick(8)]); },
      [&] { w.Rows().Row(pick(w.Rows().HighestIndex() + 1)).colrFunction->SetColor(pick(0xFFFFFF)); },
      [&] { w.Run(1169, pick(w.Rows().HighestIndex() + 1)); },
      [&] { w.Run(1135, pick(w.Rows().HighestIndex() + 1)); },
      [&] { w.Run(1107, pick(w.Rows().HighestIndex() + 1)); },
      [&] { w.Run(1108, pick(w.Rows().HighestIndex() + 1)); },
      [&] { w.Run(1109, pick(w.Rows().HighestIndex() + 1)); },
      [&] { w.Rows().cmdAddFunction()->click(); },
      [&] { w.form->CommandBars().Execute(*w.form->CommandBars().FindControl(1066 + pick(4))); },
      [&] { QTest::mouseClick(w->Buttons().btnLock(), Qt::LeftButton); },
      [&] { w->Panes().StatusBar_SliderPaneClick("Plot Quality", pick(2), 0); },
      [&] { w->Tabs().Surface().Editor(1)->SetText(pick(2) ? "x*y" : "sin(x)*cos(y)"); },
      [&] { w->Tabs().Parametric().txtThetaMax()->setText(QString::number(pick(9) + 1)); },
  };
  QStringList seen = {w.Text()};
  const int before = w.History().Count();
  while (seen.size() <= 200) {
    changes[pick(std::size(changes))]();
    w.Settle();
    if (w.Text() != seen.last()) seen << w.Text();
  }
  ASSERT_EQ(w.History().Count(), before + seen.size() - 1);
  for (qsizetype i = seen.size() - 2; i >= 0; --i) {
    ASSERT_TRUE(w->Undo().History().Undo());
    QApplication::processEvents();
    ASSERT_EQ(w.Text(), seen[i]) << "undoing to step " << i;
  }
  EXPECT_EQ(w.History().Count() - w.History().RedoCount(), before);
  for (qsizetype i = 1; i < seen.size(); ++i) {
    ASSERT_TRUE(w->Undo().History().Redo());
    QApplication::processEvents();
    ASSERT_EQ(w.Text(), seen[i]) << "redoing to step " << i;
  }
}

TEST(Undo, ARowRemovedWithTheDeleteKeyComesBack) {
  Window w;
  w->show();
  w->activateWindow();
  w.Fill({"y=x", "y=2x", "y=3x"});
  w.Settle();
  const QString before = w.Text();
  w.Rows().Row(1).mthFunction->setFocus();
  QTest::keyClick(w.Rows().Row(1).mthFunction, Qt::Key_Delete, Qt::ControlModifier);
  QApplication::processEvents();
  ASSERT_EQ(w.Rows().HighestIndex(), 1);
  EXPECT_EQ(w.History().UndoName(), "remove row 2");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
  QApplication::processEvents();
  EXPECT_EQ(w.Text(), before);
}
