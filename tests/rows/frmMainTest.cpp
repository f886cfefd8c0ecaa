// The main form: its start, its layout, and the road of one edit from a click on a row to the
// curve on the plot.
#include "core/NumberText.h"
#include "core/Tag.h"
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "rows/ColorButton.h"
#include "rows/FunctionList.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace {

struct FormFixture {
  FormFixture() : state(InitialisedState()) {}
  rows::frmMain& Form() {
    if (!form) {
      form = std::make_unique<rows::frmMain>(state, rows::MainServices{settings, boxes, colors, files, desktop});
      form->show();
    }
    return *form;
  }

  core::SharedState state;
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  std::unique_ptr<rows::frmMain> form;
};

}  // namespace

TEST(frmMain, TheSavedSettingsReachThePlotBeforeTheFirstReplot) {
  FormFixture f;
  f.settings.values = {{"Settings/Backcolor", "65535"}, {"Settings/Axiscolor", "0"}, {"Settings/Thickness", "3"},
                       {"Settings/Quality", "55"}};
  auto& scene = f.Form().Plot().Scene();
  EXPECT_EQ(scene.BackColor(), 65535);
  EXPECT_EQ(scene.AxisColor(), 0);
  EXPECT_EQ(scene.Thickness(), 3);
  EXPECT_EQ(scene.Quality(), 55);
  // The look is read with them, before the first picture, so that it is drawn in its colours.
  EXPECT_EQ(f.settings.reads, (std::vector<QString>{"Settings/Backcolor", "Settings/Axiscolor", "Settings/Thickness",
                                                    "Settings/Quality", "Settings/EqualScales", "Settings/Theme"}));
  EXPECT_FALSE(scene.EqualScales());
  EXPECT_TRUE(f.settings.writes.empty());
}

TEST(frmMain, DefaultsWithoutSettingsAndGarbageInThem) {
  FormFixture f;
  f.settings.values = {{"Settings/Thickness", "thick"}};
  auto& scene = f.Form().Plot().Scene();
  EXPECT_EQ(scene.BackColor(), 16777215);
  EXPECT_EQ(scene.AxisColor(), 16711680);
  EXPECT_EQ(scene.Thickness(), 2);  // the plot's own, as the setting could not be read
  EXPECT_EQ(scene.Quality(), 90);
  EXPECT_FALSE(f.state.ProjectChanged);
  EXPECT_EQ(f.Form().windowTitle(), "Quillograph");
  EXPECT_EQ(f.Form().StatusText(9000), "Ready...");
  EXPECT_EQ(f.Form().mnu_Integral_min()->text(), "-1");
  EXPECT_EQ(f.Form().mnu_Integral_max()->text(), "1");
  EXPECT_EQ(f.Form().tabInput()->count(), 4);
  EXPECT_EQ(f.Form().tabInput()->tabText(0), "Function");
  EXPECT_EQ(f.Form().tabInput()->tabText(3), "3D");
}

TEST(frmMain, TheRibbonMirrorsThePlot) {
  FormFixture f;
  auto& form = f.Form();
  auto& bars = form.CommandBars();
  const auto& scene = form.Plot().Scene();
  EXPECT_EQ(bars.FindControl(1087)->Checked(), scene.ShowAxis());
  EXPECT_EQ(bars.FindControl(1088)->Checked(), scene.ShowGrid());
  EXPECT_EQ(bars.FindControl(1124)->Checked(), scene.ShowTips());
  EXPECT_EQ(bars.FindControl(1042)->Color(), 16777215);
  EXPECT_EQ(bars.FindControl(1044)->Color(), 16711680);
  EXPECT_EQ(bars.FindControl(1126)->Caption(), "Zoom: X and Y");
  // After the load the label says X and Y whatever the plot says, until the plot's event.
  form.Plot().Scene().SetZoomType(1);
  EXPECT_EQ(bars.FindControl(1126)->Caption(), "Zoom: X and Y");
  form.Plot().Scene().SetShowGrid(!scene.ShowGrid());
  emit form.Plot().SettingsChanged("grid");
  EXPECT_EQ(bars.FindControl(1126)->Caption(), "Zoom: X");
  EXPECT_EQ(bars.FindControl(1088)->Checked(), scene.ShowGrid());
}

TEST(frmMain, AResizeEndsWithTheQualityItHad) {
  FormFixture f;
  auto& form = f.Form();
  form.Plot().Scene().SetQuality(90);
  form.resize(1000, 700);
  QApplication::processEvents();
  form.resize(1300, 900);
  EXPECT_EQ(form.Plot().Scene().Quality(), 90);
  EXPECT_EQ(form.Plot().x(), 480);
  EXPECT_EQ(form.Plot().width(), form.centralWidget()->width() - 480 - 4);
}

TEST(frmMain, TheRoadOfOneEdit) {
  FormFixture f;
  auto& form = f.Form();
  QSignalSpy replotted(&form, &rows::frmMain::Replotted);
  rows::FunctionList& list = form.Functions();
  list.AddFunction(false);
  list.AddFunction(false);
  // 1. A click on the editor of row 2.
  QTest::mouseClick(list.Row(2).mthFunction, Qt::LeftButton);
  EXPECT_EQ(list.ActiveRow(), 2);
  EXPECT_EQ(f.state.InsertSource, 0);
  EXPECT_EQ(f.state.InsertIndex, 2);
  dialogs::frmInsert* insert = form.Insert();
  ASSERT_NE(insert, nullptr);
  // 2. The linear style, typed.
  insert->txtLinear()->setFocus();
  QApplication::setActiveWindow(insert);
  insert->txtLinear()->setFocus();
  QTest::keyClicks(insert->txtLinear(), "y=2x+1");
  EXPECT_EQ(insert->mthStandard()->Text(), "y=2*x+1");
  // 3. Insert writes the row, which replots and marks the project.
  QTest::mouseClick(insert->btnInsert(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(list.Row(2).mthFunction->Text(), "y=2*x+1");
  EXPECT_EQ(form.Insert(), nullptr);
  EXPECT_GE(replotted.count(), 1);
  EXPECT_TRUE(f.state.ProjectChanged);
  // 4 and 5: the curve is on the plot, in the row's colour, and the status says so.
  const auto& drawing = form.Plot().Scene().LastDrawing();
  ASSERT_EQ(drawing.Curves.size(), 1u);
  EXPECT_EQ(drawing.Curves[0].Row, 3);
  EXPECT_EQ(rows::ColorButton::FromQColor(drawing.Curves[0].Color), list.Row(2).colrFunction->Color());
  EXPECT_EQ(form.StatusText(9000), "Ready...");
  EXPECT_TRUE(form.tabInput()->tabBar()->isEnabled());
}

TEST(frmMain, CancelWritesNothing) {
  FormFixture f;
  auto& form = f.Form();
  rows::FunctionList& list = form.Functions();
  list.Row(0).mthFunction->SetText("y=x");
  form.MarkSaved();
  QTest::mouseClick(list.Row(0).mthFunction, Qt::LeftButton);
  ASSERT_NE(form.Insert(), nullptr);
  EXPECT_EQ(form.Insert()->mthStandard()->Text(), "y=x");
  form.Insert()->mthStandard()->SetText("y=5");
  QTest::mouseClick(form.Insert()->btnCancel(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(list.Row(0).mthFunction->Text(), "y=x");
  EXPECT_FALSE(f.state.ProjectChanged);
  EXPECT_EQ(form.Insert(), nullptr);
}

TEST(frmMain, AddingARowClosesTheInsertDialog) {
  FormFixture f;
  auto& form = f.Form();
  QTest::mouseClick(form.Functions().Row(0).mthFunction, Qt::LeftButton);
  ASSERT_NE(form.Insert(), nullptr);
  QTest::mouseClick(form.Functions().cmdAddFunction(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(form.Insert(), nullptr);
  EXPECT_EQ(form.Functions().HighestIndex(), 1);
}

TEST(frmMain, GarbageInEveryRowNeitherCrashesNorHangs) {
  FormFixture f;
  auto& form = f.Form();
  rows::FunctionList& list = form.Functions();
  const QStringList garbage = {"y=", "((((", "[x,y;1", "command==>", "declare(", "y=1/0", "x^y^z=", "@@@",
                               "[r,q..symb;,]", "r=q..symb..symb", "y=x;;;", "domain(x,a,b,7)", "\t\n", "y=sqrt(-x)"};
  for (int i = 0; i < 109; ++i) {
    if (i > list.HighestIndex()) list.AddFunction(false);
    core::SetTag(list.Row(i).mthFunction, core::kQuiet);
    list.Row(i).mthFunction->SetText(garbage[i % garbage.size()] + QString::number(i));
    core::SetTag(list.Row(i).mthFunction, QString());
  }
  list.Row(108).mthFunction->SetText("y=x");
  EXPECT_EQ(form.StatusText(9000), "Ready...");
  EXPECT_EQ(form.Plot().Scene().LastDrawing().Curves.size() >= 1, true);
  // One row of 100,000 characters.
  list.Row(0).mthFunction->SetText("y=" + QString("x+").repeated(49999));
  EXPECT_EQ(form.StatusText(9000), "Ready...");
}

TEST(frmMain, ABrokenAttributeListKeepsTheRowsEditable) {
  FormFixture f;
  auto& form = f.Form();
  core::SetTag(form.Functions().Row(0).grpFunction, "False");
  form.Functions().Row(0).mthFunction->SetText("y=x");
  EXPECT_FALSE(form.tabInput()->tabBar()->isEnabled());
  EXPECT_TRUE(form.Functions().isEnabled());
  core::SetTag(form.Functions().Row(0).grpFunction, "False,False,False,True,True,0");
  form.Functions().Row(0).mthFunction->SetText("y=2x");
  EXPECT_TRUE(form.tabInput()->tabBar()->isEnabled());
}

TEST(frmMain, TheTitleNamesTheProject) {
  FormFixture f;
  auto& form = f.Form();
  f.state.ProjectPath = "/home/someone/Parabola.qlp";
  form.UpdateTitle();
  EXPECT_EQ(form.windowTitle(), "Quillograph - Parabola.qlp");
  form.Functions().Row(0).mthFunction->SetText("y=x");
  EXPECT_EQ(form.windowTitle(), "Quillograph - Parabola.qlp*");
}

TEST(frmMain, FunctionsTypedInTheLinearStyleAreDrawn) {
  FormFixture f;
  auto& form = f.Form();
  for (const char* typed : {"y=2sin(x)", "r=2+2cos(q..symb)", "y=sin(x)cos(x)", "y=3x^2sqrt(x)", "(x+1)*(x-1)"}) {
    QTest::mouseClick(form.Functions().Row(0).mthFunction, Qt::LeftButton);
    dialogs::frmInsert* insert = form.Insert();
    ASSERT_NE(insert, nullptr);
    QApplication::setActiveWindow(insert);
    insert->txtLinear()->setFocus();
    insert->txtLinear()->selectAll();
    QTest::keyClicks(insert->txtLinear(), typed);
    insert->Insert();
    QApplication::processEvents();
    EXPECT_EQ(form.Plot().Scene().LastDrawing().Curves.size(), 1u) << typed << " stored as "
                                                                    << form.Functions().Row(0).mthFunction->Text().toStdString();
    EXPECT_TRUE(form.Plot().Scene().Problems().isEmpty()) << typed;
  }
}

// The range dialog put away by a click elsewhere comes back with what was typed when it is asked
// for again in the same mode; another mode starts afresh from the plot.
TEST(frmMain, TheRangeDialogAskedForAgainShowsWhatWasTyped) {
  struct Case {
    const char* first;
    const char* again;
    const char* shown;  // txtXmin when it opens again
  };
  const Case cases[] = {
      {"Plot Range", "Plot Range", "-2*pi"},
      {"3D Range", "3D Range", "-2*pi"},
      {"Default Range", "Default Range", "-2*pi"},
      {"Plot Range", "3D Range", "-5"},
      {"Default Range", "Plot Range", "-10"},
  };
  for (const Case& c : cases) {
    FormFixture f;
    rows::frmMain& form = f.Form();
    form.ShowRange(c.first, QPoint(100, 100));
    QPointer<dialogs::frmRange> range = form.Range();
    ASSERT_NE(range, nullptr) << c.first;
    range->Form_Activate();
    QLineEdit* field = range->Field("txtXmin");
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, "-2*pi");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(range, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form.ShowRange(c.again, QPoint(100, 100));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_NE(form.Range(), nullptr) << c.first;
    form.Range()->Form_Activate();
    EXPECT_EQ(core::Tag(form.Range()), c.again) << c.first;
    EXPECT_TRUE(form.Range()->isVisible()) << c.first;
    EXPECT_EQ(form.Range()->Field("txtXmin")->text(), c.shown) << c.first << " then " << c.again;
    EXPECT_EQ(form.Plot().Scene().XMin(), -10) << c.first;
  }
}
