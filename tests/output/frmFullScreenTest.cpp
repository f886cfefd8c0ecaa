// Full screen: the settings it copies, its own replot, and how it ends.
#include "output/frmFullScreen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTest>

using output::frmFullScreen;

// It shows what the main plot shows, larger: its settings and its view, not its transparency.
TEST(frmFullScreen, CopiesTheDisplaySettingsAndTheViewButNotTheBackground) {
  plot2d::Plot main;
  main.SetQuality(55), main.SetThickness(4), main.SetBackColor(65535), main.SetAxisColor(255);
  main.SetShowAxis(false), main.SetShowGrid(false), main.SetShowNumbers(false), main.SetShowOuterFrame(true);
  main.SetShowTips(false), main.SetTransparentBackground(true);
  main.SetXMin(-1), main.SetXMax(1);
  frmFullScreen form(main, false, nullptr);
  const plot2d::Plot& own = form.Plot().Scene();
  EXPECT_EQ(own.Quality(), 55);
  EXPECT_EQ(own.Thickness(), 4);
  EXPECT_EQ(own.BackColor(), 65535);
  EXPECT_EQ(own.AxisColor(), 255);
  EXPECT_FALSE(own.ShowAxis());
  EXPECT_FALSE(own.ShowGrid());
  EXPECT_FALSE(own.ShowNumbers());
  EXPECT_TRUE(own.ShowOuterFrame());
  EXPECT_FALSE(own.ShowTips());
  EXPECT_FALSE(own.TransparentBackground());
  EXPECT_EQ(own.XMin(), -1);
  EXPECT_EQ(own.XMax(), 1);
  EXPECT_EQ(own.YMin(), -10);
  EXPECT_EQ(own.DefaultXMin(), -10);
  EXPECT_EQ(form.btnClose()->toolTip(), "Exit Full Screen.");
}

TEST(frmFullScreen, DrawsTheRowsIntoItsOwnPlotsEachTimeItIsActive) {
  plot2d::Plot main;
  int replots = 0;
  plotcompiler::PlotControl* given = nullptr;
  plotcompiler::Plot3DControl* given3D = nullptr;
  frmFullScreen form(main, false, [&](plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) {
    ++replots;
    given = &plot;
    given3D = plot3d;
    int kind = 0;
    plot.AddFunction(1, "y=x", 255, false, kind, false, true, false, 2);
    plot.Redraw();
  });
  form.resize(640, 480);
  form.show();
  form.Form_Activate();
  EXPECT_EQ(replots, 1);
  EXPECT_NE(given, nullptr);
  EXPECT_NE(given3D, nullptr);
  EXPECT_EQ(form.Plot().Scene().LastDrawing().Curves.size(), 1u);
  QEvent active(QEvent::WindowActivate);
  QApplication::sendEvent(&form, &active);
  EXPECT_EQ(replots, 2);
}

TEST(frmFullScreen, TheThreeDTabShowsTheSurface) {
  plot2d::Plot main;
  int replots = 0;
  frmFullScreen form(main, true, [&](plotcompiler::PlotControl&, plotcompiler::Plot3DControl*) { ++replots; });
  form.show();
  EXPECT_FALSE(form.Plot3D().isHidden());
  EXPECT_TRUE(form.Plot().isHidden());
  form.Form_Activate();
  EXPECT_EQ(replots, 1);
}

TEST(frmFullScreen, LeavingTheCloseButtonAndEscapeEndIt) {
  plot2d::Plot main;
  {
    QPointer<frmFullScreen> form = new frmFullScreen(main, false, nullptr);
    form->show();
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(form, &leave);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
  }
  {
    QPointer<frmFullScreen> form = new frmFullScreen(main, false, nullptr);
    form->show();
    QTest::mouseClick(form->btnClose(), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
  }
  {
    QPointer<frmFullScreen> form = new frmFullScreen(main, false, nullptr);
    form->show();
    QTest::keyClick(form, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
  }
}

TEST(frmFullScreen, CopiesTheSurfacesBoxAndView) {
  plot2d::Plot main;
  plot3d::Plot3D main3D;
  main3D.SetXMin(-3), main3D.SetZMax(7);
  main3D.SetZoom(2);
  frmFullScreen form(main, true, nullptr);
  form.CopyView3D(main3D);
  const plot3d::Plot3D& own = form.Plot3D().Scene();
  EXPECT_EQ(own.XMin(), -3);
  EXPECT_EQ(own.ZMax(), 7);
  EXPECT_EQ(own.Zoom(), 2);
}
