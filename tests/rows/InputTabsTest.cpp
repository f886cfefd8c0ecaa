// The input tabs of the main form: switching pages, their fields and editors, the status bar and
// the buttons over the plot, through the real form.
#include "core/Tag.h"
#include "dialogs/frmInsert.h"
#include "interaction/PlotButtons.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/AutoReplot.h"
#include "rows/FunctionList.h"
#include "rows/InputTabs.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "MainWindowFixture.h"
#include "QtPrinters.h"
#include "StateSupport.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>

namespace {

struct TabsFixture : MainWindowFixture {
  TabsFixture() {
    form->show();
    QApplication::setActiveWindow(form.get());
  }
  rows::InputTabs& Tabs() { return form->Tabs(); }
  bool Enabled(int id) { return form->CommandBars().FindControl(id)->Enabled(); }
  bool Visible(int id) { return form->CommandBars().FindControl(id)->Visible(); }
};

}  // namespace

TEST(InputTabs, SwitchingTo3DAndBack) {
  TabsFixture f;
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  f.Tabs().setCurrentIndex(3);
  EXPECT_EQ(replotted.count(), 1);
  EXPECT_TRUE(f.form->Plot().isHidden());
  EXPECT_FALSE(f.form->Plot3D().isHidden());
  EXPECT_TRUE(f.form->Buttons().btnLock()->isHidden());
  EXPECT_FALSE(f.form->Buttons().PB_3D()->isHidden());
  EXPECT_FALSE(f.Enabled(1087));
  EXPECT_FALSE(f.Enabled(1086));
  EXPECT_FALSE(f.Visible(1125));
  EXPECT_FALSE(f.Visible(1070));
  EXPECT_EQ(f.form->Plot3D().x(), 458);
  EXPECT_TRUE(f.form->Buttons().btnSetting()->property("dark").toBool());
  EXPECT_EQ(f.form->Prepare3DCalls(), 1);
  // Back to a 2D page: the replot, then the display toggles again.
  f.Tabs().setCurrentIndex(0);
  EXPECT_EQ(replotted.count(), 2);
  EXPECT_TRUE(f.Enabled(1087));
  EXPECT_TRUE(f.Visible(1125));
  EXPECT_FALSE(f.form->Plot().isHidden());
  EXPECT_TRUE(f.form->Plot3D().isHidden());
  EXPECT_TRUE(f.form->Buttons().PB_3D()->isHidden());
  EXPECT_FALSE(f.form->Buttons().btnLock()->isHidden());
  EXPECT_FALSE(f.form->Buttons().btnSetting()->property("dark").toBool());
  EXPECT_TRUE(f.Tabs().Surface().btnOK()->isHidden());
  // The 3D plot is made ready once in the form's life.
  f.Tabs().setCurrentIndex(3);
  f.Tabs().setCurrentIndex(2);
  f.Tabs().setCurrentIndex(3);
  EXPECT_EQ(f.form->Prepare3DCalls(), 1);
  EXPECT_TRUE(f.form->Prepared3D());
}

TEST(InputTabs, TheProjectReadersMarkKeepsAPageChangeFromReplotting) {
  TabsFixture f;
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  core::SetTag(&f.Tabs(), core::kQuiet);
  f.Tabs().setCurrentIndex(1);
  f.Tabs().setCurrentIndex(3);
  EXPECT_EQ(replotted.count(), 0);
  EXPECT_FALSE(f.form->Plot3D().isHidden());
  core::SetTag(&f.Tabs(), QString());
  f.Tabs().setCurrentIndex(0);
  EXPECT_EQ(replotted.count(), 1);
}

TEST(InputTabs, TheZoomFieldRefusesWhatItCannotTake) {
  TabsFixture f;
  f.Tabs().setCurrentIndex(3);
  QLineEdit* zoom = f.Tabs().Surface().txt3DZoom();
  zoom->setFocus();
  zoom->selectAll();
  QTest::keyClicks(zoom, "0.2");
  EXPECT_TRUE(zoom->property("invalid").toBool());
  EXPECT_TRUE(f.Tabs().Surface().btnOK()->isHidden());
  EXPECT_TRUE(f.state.ProjectChanged);
  f.Tabs().Surface().cmb3DGrid()->setFocus();
  QApplication::processEvents();
  EXPECT_TRUE(zoom->hasFocus()) << "the focus stays in the field";
  zoom->selectAll();
  QTest::keyClicks(zoom, "2.50");
  EXPECT_FALSE(zoom->property("invalid").toBool());
  EXPECT_FALSE(f.Tabs().Surface().btnOK()->isHidden());
  QTest::mouseClick(f.Tabs().Surface().btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.form->Plot3D().Scene().Zoom(), 2.5);
  EXPECT_TRUE(f.Tabs().Surface().btnOK()->isHidden());
  f.Tabs().Surface().cmb3DGrid()->setFocus();
  QApplication::processEvents();
  EXPECT_EQ(zoom->text(), "2.5");
}

TEST(InputTabs, TheIntegralBoundsMustEvaluate) {
  TabsFixture f;
  QLineEdit* min = f.form->mnu_Integral_min();
  min->setFocus();
  min->selectAll();
  QTest::keyClicks(min, "2*(");
  EXPECT_TRUE(min->property("invalid").toBool());
  EXPECT_TRUE(f.state.ProjectChanged);
  f.form->mnu_Integral_max()->setFocus();
  QApplication::processEvents();
  EXPECT_TRUE(min->hasFocus());
  QTest::keyClick(min, Qt::Key_Backspace);
  QTest::keyClicks(min, "pi");
  EXPECT_FALSE(min->property("invalid").toBool());
}

TEST(InputTabs, TheInequalityPage) {
  TabsFixture f;
  rows::InequalityPage& page = f.Tabs().Inequality();
  EXPECT_EQ(page.cmbInequality(0)->count(), 4);
  EXPECT_EQ(page.cmbInequality(0)->itemText(3), "<=");
  EXPECT_EQ(page.cmbInequality(1)->currentText(), ">");
  EXPECT_FALSE(page.cmbInequality(1)->isEnabled());
  EXPECT_EQ(page.mthInequality(1)->EditMode(), 0);
  f.Tabs().setCurrentIndex(1);
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  page.mthInequality(0)->SetText("x^2-4");
  EXPECT_EQ(replotted.count(), 1);
  EXPECT_FALSE(f.form->Plot().Scene().LastDrawing().Fills.empty() && f.form->Plot().Scene().LastDrawing().Masks.empty());
  QTest::mouseClick(page.chkInequalityTwoEquation(), Qt::LeftButton);
  EXPECT_TRUE(page.cmbInequality(1)->isEnabled());
  EXPECT_EQ(page.mthInequality(1)->EditMode(), 1);
  EXPECT_EQ(replotted.count(), 2);
  QTest::mouseClick(page.chkInequalityTwoEquation(), Qt::LeftButton);
  EXPECT_EQ(page.mthInequality(1)->EditMode(), 0);
  // A relation or a colour only marks the project.
  f.state.ProjectChanged = false;
  page.cmbInequality(0)->setCurrentIndex(2);
  EXPECT_TRUE(f.state.ProjectChanged);
  EXPECT_EQ(replotted.count(), 3);
  // The program's own writes stay quiet.
  core::SetTag(page.mthInequality(0), core::kQuiet);
  page.mthInequality(0)->SetText("x");
  EXPECT_EQ(replotted.count(), 3);
}

TEST(InputTabs, TheInequalitiesSecondEditorTakesTheFormsColourWhileInert) {
  TabsFixture f;
  f.Tabs().Inequality().mthInequality(1)->SetEditMode(1);
  f.Tabs().Inequality().mthInequality(1)->SetForeColor(255);
  f.Tabs().Inequality().mthInequality(1)->SetEditMode(0);
  f.Tabs().setCurrentIndex(1);
  EXPECT_EQ(f.Tabs().Inequality().mthInequality(1)->ForeColor(), 16711680);
  EXPECT_EQ(f.Tabs().Inequality().mthInequality(1)->EditMode(), 0);
}

TEST(InputTabs, TheParametricPage) {
  TabsFixture f;
  rows::ParametricPage& page = f.Tabs().Parametric();
  EXPECT_EQ(page.txtThetaMin()->text(), "-pi");
  EXPECT_EQ(page.txtThetaMax()->text(), "pi");
  EXPECT_EQ(page.cmbParametricType()->currentText(), "Cartesian");
  f.Tabs().setCurrentIndex(2);
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  page.mthParametricX()->SetText("cos(3t)");
  page.mthParametricY()->SetText("sin(2t)");
  EXPECT_EQ(replotted.count(), 2);
  EXPECT_EQ(f.form->Plot().Scene().LastDrawing().Curves.size(), 1u);
  page.cmbParametricType()->setCurrentIndex(1);
  EXPECT_EQ(page.lbl_Parametric_X()->text(), "r=");
  EXPECT_EQ(page.lbl_Parametric_Y()->text(), "\u03b8=");
  EXPECT_EQ(replotted.count(), 3);
  core::SetTag(page.cmbParametricType(), core::kQuiet);
  page.cmbParametricType()->setCurrentIndex(0);
  EXPECT_EQ(page.lbl_Parametric_X()->text(), "r=");
  EXPECT_EQ(replotted.count(), 3);
  f.state.ProjectChanged = false;
  QTest::keyClicks(page.txtThetaMax(), "/2");
  EXPECT_TRUE(f.state.ProjectChanged);
  EXPECT_EQ(replotted.count(), 3);
}

TEST(InputTabs, The3DPagesEditorsMarkTheProjectAndRedrawAfterTheirEvents) {
  TabsFixture f;
  rows::SurfacePage& page = f.Tabs().Surface();
  EXPECT_EQ(page.cmb3DGrid()->currentText(), "Grid: 100x100");
  EXPECT_EQ(page.cmb3DGrid()->count(), 6);
  EXPECT_EQ(page.Text("txt_thetaMin"), "-2*pi");
  EXPECT_EQ(page.Text("txt_phiMax"), "pi");
  EXPECT_EQ(page.Text("txt_3D_uMax"), "2");
  EXPECT_EQ(page.Tab_3D()->tabText(1), "Polar");
  f.Tabs().setCurrentIndex(3);
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  f.state.ProjectChanged = false;
  page.Editor(1)->SetText("z=sin(x)*cos(y)");
  EXPECT_TRUE(f.state.ProjectChanged);
  EXPECT_EQ(replotted.count(), 0);
  EXPECT_TRUE(WaitUntil([&] { return replotted.count() == 1; }));
  // A change of Tab_3D draws the surface at once.
  page.Tab_3D()->setCurrentIndex(1);
  EXPECT_EQ(replotted.count(), 2);
  EXPECT_EQ(f.form->Plot3D().Scene().FunctionKind(), 5);
}

TEST(InputTabs, TheInsertDialogForEachPage) {
  TabsFixture f;
  rows::InputTabs& tabs = f.Tabs();
  tabs.setCurrentIndex(1);
  tabs.Inequality().mthInequality(0)->SetText("x");
  QTest::mouseClick(tabs.Inequality().mthInequality(0), Qt::LeftButton);
  ASSERT_NE(f.form->Insert(), nullptr);
  EXPECT_EQ(f.state.InsertSource, 1);
  EXPECT_EQ(f.state.InsertIndex, 0);
  EXPECT_EQ(f.form->Insert()->mthStandard()->Text(), "y>x");
  f.form->Insert()->mthStandard()->SetText("y>=x+1");
  f.form->Insert()->Insert();
  EXPECT_EQ(tabs.Inequality().cmbInequality(0)->currentText(), ">=");
  EXPECT_EQ(tabs.Inequality().mthInequality(0)->Text(), "x+1");

  tabs.setCurrentIndex(2);
  QTest::mouseClick(tabs.Parametric().mthParametricY(), Qt::LeftButton);
  ASSERT_NE(f.form->Insert(), nullptr);
  EXPECT_EQ(f.state.InsertSource, 2);
  EXPECT_EQ(f.state.InsertIndex, 2);
  EXPECT_EQ(f.form->Insert()->mthStandard()->Text(), "y=");
  f.form->Insert()->mthStandard()->SetText("y=sin(t)");
  f.form->Insert()->Insert();
  EXPECT_EQ(tabs.Parametric().mthParametricY()->Text(), "sin(t)");

  tabs.setCurrentIndex(3);
  tabs.Surface().Tab_3D()->setCurrentIndex(2);
  QTest::mouseClick(tabs.Surface().Editor(5), Qt::LeftButton);
  ASSERT_NE(f.form->Insert(), nullptr);
  EXPECT_EQ(f.state.InsertSource, 3);
  EXPECT_EQ(f.state.InsertIndex, 5);
  f.form->Insert()->mthStandard()->SetText("u+v");
  f.form->Insert()->Insert();
  EXPECT_EQ(tabs.Surface().Text("mth_3D_Para_z"), "u+v");
}

// A step of a slider draws the plot anew by itself, once, after the step's events.
TEST(InputTabs, ASliderStepRedrawsByItselfOnce) {
  TabsFixture f;
  QSignalSpy replotted(f.form.get(), &rows::frmMain::Replotted);
  f.form->Plot().Scene().SetQuality(98);
  f.form->Panes().StatusBar_SliderPaneClick("Plot Quality", 1, 0);
  EXPECT_EQ(f.form->Plot().Scene().Quality(), 100);
  EXPECT_EQ(f.form->StatusText(9004), "Quality: 100");
  EXPECT_EQ(replotted.count(), 0);
  EXPECT_TRUE(WaitUntil([&] { return replotted.count() == 1; }));
  QTest::qWait(2 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(replotted.count(), 1);
  EXPECT_TRUE(f.state.ProjectChanged) << "the quality is kept in the file";
  f.form->Panes().StatusBar_PaneClick("Replot");
  EXPECT_EQ(replotted.count(), 2);
}

TEST(InputTabs, TheReplotPaneOnThe3DPageShowsTheProgress) {
  TabsFixture f;
  f.Tabs().setCurrentIndex(3);
  f.form->Buttons().PB_3D()->hide();
  f.form->Panes().StatusBar_PaneClick("Replot");
  EXPECT_FALSE(f.form->Buttons().PB_3D()->isHidden());
}

TEST(InputTabs, FullScreenShowsThe3DPlotOnThe3DPage) {
  TabsFixture f;
  f.Tabs().setCurrentIndex(3);
  f.form->ShowFullScreen();
  ASSERT_NE(f.form->FullScreen(), nullptr);
  EXPECT_FALSE(f.form->FullScreen()->Plot3D().isHidden());
  EXPECT_TRUE(f.form->FullScreen()->Plot().isHidden());
  f.form->FullScreen()->close();
}

TEST(InputTabs, TheSettingsButtonOpensTheRangeDialogByPage) {
  TabsFixture f;
  QTest::mouseClick(f.form->Buttons().btnSetting(), Qt::LeftButton);
  ASSERT_NE(f.form->Range(), nullptr);
  EXPECT_EQ(core::Tag(f.form->Range()), "Plot Range");
  f.form->Range()->close();
  f.Tabs().setCurrentIndex(3);
  QTest::mouseClick(f.form->Buttons().btnSetting(), Qt::LeftButton);
  ASSERT_NE(f.form->Range(), nullptr);
  EXPECT_EQ(core::Tag(f.form->Range()), "3D Range");
}

TEST(InputTabs, AnyTextInEveryFieldNeitherCrashesNorHangs) {
  TabsFixture f;
  const QStringList garbage = {"", "(((", "1/0", "z=", "x^y^z^w", "@#", "r=q..symb..", "u:v", "[x,y;1,2]",
                               QString(300, u'x'), "sqrt(-1)", "command==>[showgrid]", "x^2+y^2+z^2=", "1e999"};
  rows::InputTabs& tabs = f.Tabs();
  for (int page : {1, 2, 3}) {
    tabs.setCurrentIndex(page);
    for (int tab3D = 0; tab3D < (page == 3 ? 3 : 1); ++tab3D) {
      if (page == 3) tabs.Surface().Tab_3D()->setCurrentIndex(tab3D);
      for (const QString& text : garbage) {
        for (int i = 0; i < 2; ++i) tabs.Inequality().mthInequality(i)->SetText(text);
        tabs.Parametric().mthParametricX()->SetText(text);
        tabs.Parametric().mthParametricY()->SetText(text);
        tabs.Parametric().txtThetaMin()->setText(text);
        for (int e = 1; e <= 5; ++e) tabs.Surface().Editor(e)->SetText(text);
        for (const char* field : {"txt_thetaMin", "txt_thetaMax", "txt_phiMin", "txt_phiMax", "txt_3D_uMin",
                                  "txt_3D_uMax", "txt_3D_vMin", "txt_3D_vMax"}) {
          static_cast<QLineEdit*>(tabs.Surface().Field(field))->setText(text);
        }
        tabs.Surface().txt3DZoom()->setText(text);
        f.form->Replot(true);  // each a new surface: the one still being computed stops
      }
    }
  }
  EXPECT_EQ(f.form->StatusText(9000), "Ready...");
}
