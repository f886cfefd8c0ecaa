// What the plot shows follows every input by itself: no Replot click after a change of a row's
// colour, a page's editor, field, list or colour, the area's bounds or the status bar's sliders.
#include "core/Tag.h"
#include "interaction/SliderPane.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/AutoReplot.h"
#include "rows/ColorButton.h"
#include "rows/FunctionList.h"
#include "rows/InequalityPage.h"
#include "rows/InputTabs.h"
#include "rows/ParametricPage.h"
#include "rows/SurfacePage.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <functional>

namespace {

struct Window : MainWindowFixture {
  Window() {
    form->show();
    QApplication::setActiveWindow(form.get());
    QApplication::processEvents();
  }
  rows::InputTabs& Tabs() { return form->Tabs(); }
  QImage Picture2D() { return form->Plot().LastPicture(); }
  QImage Picture3D() {
    // The surface is computed on a worker: the picture is the one of the last finished surface.
    EXPECT_TRUE(WaitUntil([this] { return !form->Plot3D().Computing(); }, 20000));
    QApplication::processEvents();
    return form->Plot3D().Scene().Picture();
  }
  QImage Picture(bool in3D) { return in3D ? Picture3D() : Picture2D(); }
  // Types text into a field as a user does, ending with no Enter.
  static void Type(QLineEdit* field, const QString& text) {
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
  }
};

struct InputCase {
  const char* Name;
  int Tab;
  bool In3D;
  std::function<void(Window&)> Before;  // what is drawn first
  std::function<void(Window&)> Change;  // the change, through the real widget
};

void NoSetup(Window&) {}

void PrintTo(const InputCase& input, std::ostream* out) { *out << input.Name; }

std::vector<InputCase> Cases() {
  return {
      {"RowColour", 0, false, [](Window& w) { w.Fill({"y=x"}); },
       [](Window& w) {
         w.colors.colors.push_back(QColor(0, 160, 0));
         QTest::mouseClick(w.Rows().Row(0).colrFunction, Qt::LeftButton);
       }},
      {"AreaBounds", 0, false,
       [](Window& w) {
         w.Fill({"y=x^2", "y=0"});
         for (int row : {0, 1}) core::SetTag(w.Rows().Row(row).grpFunction, "False,True,False,True,True,0");
         w->mnu_Integral_min()->setText("0");
         w->mnu_Integral_max()->setText("1");
       },
       [](Window& w) { Window::Type(w->mnu_Integral_max(), "3"); }},
      {"SurfaceEditor", 3, true, NoSetup,
       [](Window& w) { w.Tabs().Surface().Editor(1)->SetText("z=x*y"); }},
      {"SurfaceGrid", 3, true, [](Window& w) { w.Tabs().Surface().Editor(1)->SetText("z=sin(x)*cos(y)"); }, [](Window& w) { w.Tabs().Surface().cmb3DGrid()->setCurrentIndex(0); }},
      {"PolarSurfaceRange", 3, true,
       [](Window& w) {
         w.Tabs().Surface().Tab_3D()->setCurrentIndex(1);
         w.Tabs().Surface().Editor(2)->SetText("r=2");
       },
       [](Window& w) { Window::Type(qobject_cast<QLineEdit*>(w.Tabs().Surface().Field("txt_phiMax")), "pi/2"); }},
      {"InequalityRelation", 1, false, [](Window& w) { w.Tabs().Inequality().mthInequality(0)->SetText("x"); },
       [](Window& w) {
         QComboBox* relation = w.Tabs().Inequality().cmbInequality(0);
         relation->setCurrentIndex((relation->currentIndex() + 1) % relation->count());
       }},
      {"InequalityFillColour", 1, false, [](Window& w) { w.Tabs().Inequality().mthInequality(0)->SetText("x"); },
       [](Window& w) {
         w.colors.colors.push_back(QColor(200, 0, 200));
         QTest::mouseClick(w.Tabs().Inequality().mnuInequalityColor(), Qt::LeftButton);
       }},
      {"ParametricType", 2, false,
       [](Window& w) {
         w.Tabs().Parametric().mthParametricX()->SetText("cos(t)");
         w.Tabs().Parametric().mthParametricY()->SetText("2sin(t)");
       },
       [](Window& w) { w.Tabs().Parametric().cmbParametricType()->setCurrentIndex(1); }},
      {"ParametricRange", 2, false,
       [](Window& w) {
         w.Tabs().Parametric().mthParametricX()->SetText("cos(t)");
         w.Tabs().Parametric().mthParametricY()->SetText("sin(t)");
       },
       [](Window& w) { Window::Type(w.Tabs().Parametric().txtThetaMax(), "0"); }},
      {"ParametricColour", 2, false,
       [](Window& w) {
         w.Tabs().Parametric().mthParametricX()->SetText("cos(t)");
         w.Tabs().Parametric().mthParametricY()->SetText("sin(t)");
       },
       [](Window& w) {
         w.colors.colors.push_back(QColor(0, 200, 0));
         QTest::mouseClick(w.Tabs().Parametric().colrParametric(), Qt::LeftButton);
       }},
      {"ThicknessSlider", 0, false, [](Window& w) { w.Fill({"y=x"}); },
       [](Window& w) {
         QTest::mouseClick(w->Panes().Slider("Plot Thickness")->PlusButton(), Qt::LeftButton);
       }},
      {"QualitySlider", 0, false, [](Window& w) { w.Fill({"y=sin(5x)"}); },
       [](Window& w) { QTest::mouseClick(w->Panes().Slider("Plot Quality")->MinusButton(), Qt::LeftButton); }},
  };
}

class EveryInput : public ::testing::TestWithParam<InputCase> {};

TEST_P(EveryInput, RedrawsWithoutReplot) {
  const InputCase& input = GetParam();
  Window w;
  w.Tabs().setCurrentIndex(input.Tab);
  input.Before(w);
  w->Replot(true);
  const QImage before = w.Picture(input.In3D);
  ASSERT_FALSE(before.isNull());
  input.Change(w);
  EXPECT_TRUE(WaitUntil([&] { return w.Picture(input.In3D) != before; }, 20000));
}

INSTANTIATE_TEST_SUITE_P(Redrawing, EveryInput, ::testing::ValuesIn(Cases()),
                         [](const ::testing::TestParamInfo<InputCase>& input) { return std::string(input.param.Name); });

TEST(Redrawing, TypingWaitsForAPauseAndDrawsOnce) {
  Window w;
  w.Fill({"y=x^2", "y=0"});
  w->Replot(true);
  QSignalSpy replotted(w.form.get(), &rows::frmMain::Replotted);
  Window::Type(w->mnu_Integral_max(), "2.5");
  QApplication::processEvents();
  // Each keystroke starts the pause again: nothing is drawn while the keys come.
  EXPECT_EQ(replotted.count(), 0);
  EXPECT_TRUE(w->Redrawing().Pending());
  EXPECT_TRUE(WaitUntil([&] { return replotted.count() == 1; }));
  QTest::qWait(2 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(replotted.count(), 1);
}

TEST(Redrawing, WhatARowDrewAlreadyIsNotDrawnAgain) {
  Window w;
  w->Replot(true);
  QSignalSpy replotted(w.form.get(), &rows::frmMain::Replotted);
  w.Fill({"y=2x"});
  const qsizetype drawn = replotted.count();
  EXPECT_GE(drawn, 1);
  QTest::qWait(2 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(replotted.count(), drawn);
}

TEST(Redrawing, NothingChangedDrawsNothing) {
  Window w;
  w.Fill({"y=x"});
  w->Replot(true);
  QSignalSpy replotted(w.form.get(), &rows::frmMain::Replotted);
  // A click on a row's colour that is cancelled changes nothing.
  QTest::mouseClick(w.Rows().Row(0).colrFunction, Qt::LeftButton);
  QTest::qWait(2 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(replotted.count(), 0);
}

TEST(Redrawing, TheStatusBarSlidersAreRemembered) {
  Window w;
  QTest::mouseClick(w->Panes().Slider("Plot Thickness")->PlusButton(), Qt::LeftButton);
  QTest::mouseClick(w->Panes().Slider("Plot Quality")->MinusButton(), Qt::LeftButton);
  EXPECT_EQ(w.settings.values.value("Settings/Thickness"), "3");
  EXPECT_EQ(w.settings.values.value("Settings/Quality"), "85");
}

// A range that cannot be read is not drawn as 0: the field is red and the picture stays.
TEST(Redrawing, AnUnreadableRangeKeepsThePictureAndStaysRed) {
  for (const char* name : {"txtThetaMax", "txt_phiMax"}) {
    SCOPED_TRACE(name);
    Window w;
    const bool surface = QString(name).startsWith("txt_");
    QLineEdit* field = surface ? qobject_cast<QLineEdit*>(w.Tabs().Surface().Field(name))
                               : w.Tabs().Parametric().txtThetaMax();
    if (surface) {
      w.Tabs().setCurrentIndex(3);
      w.Tabs().Surface().Tab_3D()->setCurrentIndex(1);
      w.Tabs().Surface().Editor(2)->SetText("r=2");
    } else {
      w.Tabs().setCurrentIndex(2);
      w.Tabs().Parametric().mthParametricX()->SetText("cos(t)");
      w.Tabs().Parametric().mthParametricY()->SetText("sin(t)");
    }
    w->Replot(true);
    const QImage before = w.Picture(surface);
    QSignalSpy replotted(w.form.get(), &rows::frmMain::Replotted);
    Window::Type(field, "2pj");
    QTest::qWait(3 * rows::AutoReplot::kTypingPauseMs);
    EXPECT_EQ(replotted.count(), 0);
    EXPECT_EQ(w.Picture(surface), before);
    EXPECT_TRUE(field->property("invalid").toBool());
    EXPECT_TRUE(w.state.ProjectChanged) << "what was typed is kept";
    Window::Type(field, "pi/2");
    EXPECT_FALSE(field->property("invalid").toBool());
    EXPECT_TRUE(WaitUntil([&] { return replotted.count() == 1; }));
  }
}

TEST(Redrawing, EqualScalesMakeACircleRoundAndAreRemembered) {
  Window w;
  ribbon::CommandControl* check = w->CommandBars().FindControl(1200);
  ASSERT_NE(check, nullptr);
  EXPECT_EQ(check->Caption(), "Equal scales");
  EXPECT_FALSE(check->Checked()) << "off at first, so that the default range stands";
  w.Fill({"x^2+y^2=25"});
  const plot2d::Plot& scene = w->Plot().Scene();
  const auto unitsPerPixel = [&scene](bool across) {
    return across ? (scene.XMax() - scene.XMin()) / scene.Size().width()
                  : (scene.YMax() - scene.YMin()) / scene.Size().height();
  };
  ASSERT_NE(scene.Size().width(), scene.Size().height());
  EXPECT_GT(std::abs(unitsPerPixel(true) - unitsPerPixel(false)), 1e-3);
  w.Run(1200);
  EXPECT_TRUE(check->Checked());
  EXPECT_NEAR(unitsPerPixel(true), unitsPerPixel(false), 1e-12);
  EXPECT_EQ(w.settings.values.value("Settings/EqualScales"), "1");
  // The next window starts with them.
  MainWindowFixture next;
  next.settings.values = w.settings.values;
  next.form = std::make_unique<rows::frmMain>(next.state, rows::MainServices{next.settings, next.boxes, next.colors,
                                                                             next.files, next.desktop});
  EXPECT_TRUE(next->CommandBars().FindControl(1200)->Checked());
  EXPECT_TRUE(next->Plot().Scene().EqualScales());
  w.Run(1200);
  EXPECT_EQ(w.settings.values.value("Settings/EqualScales"), "0");
}

// The ribbon shows the colours and checks of the project that was opened.
TEST(Redrawing, TheRibbonShowsAnOpenedProjectsColoursAndChecks) {
  QTemporaryDir dir;
  const QString path = dir.filePath("coloured.qlp");
  {
    Window a;
    a->Plot().Scene().SetAxisColor(255);
    a->Plot().Scene().SetBackColor(15790320);
    ASSERT_TRUE(a->SaveProject(path));
  }
  Window b;
  ASSERT_TRUE(b->LoadProject(path));
  EXPECT_EQ(b->CommandBars().FindControl(1044)->Color(), 255);
  EXPECT_EQ(b->CommandBars().FindControl(1042)->Color(), 15790320);
}

// A zoom within its bounds applies by itself when the typing pauses, turning the surface already
// drawn; one out of its bounds does nothing.
TEST(Redrawing, TheSurfacesZoomAppliesByItselfWithinItsBounds) {
  Window w;
  w.Tabs().setCurrentIndex(3);
  w->Replot(true);
  QSignalSpy replotted(w.form.get(), &rows::frmMain::Replotted);
  QLineEdit* zoom = w.Tabs().Surface().txt3DZoom();
  Window::Type(zoom, "9");
  QTest::qWait(3 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(w->Plot3D().Scene().Zoom(), 1);
  Window::Type(zoom, "2");
  EXPECT_TRUE(WaitUntil([&] { return w->Plot3D().Scene().Zoom() == 2; }));
  QTest::qWait(3 * rows::AutoReplot::kTypingPauseMs);
  EXPECT_EQ(replotted.count(), 0) << "a zoom needs no new surface";
}

}  // namespace
