// The buttons over the plot and the plot's events.
#include "interaction/PlotButtons.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

using interaction::PlotButtons;

namespace {

struct ButtonsFixture {
  ButtonsFixture() : plot(&window), plot3d(&window), buttons(window, plot, plot3d) {
    window.resize(800, 600);
    plot.setGeometry(0, 0, 800, 600);
    buttons.Place(plot.geometry(), plot.geometry(), 800);
    window.show();
  }
  QWidget window;
  plot2d::PlotWidget plot;
  plot3d::Plot3DWidget plot3d;
  PlotButtons buttons;
};

}  // namespace

// The reset button shows exactly while the view is away from the default range, by any path.
TEST(PlotButtons, TheResetButtonShowsWhileTheViewIsAwayFromTheDefault) {
  ButtonsFixture f;
  auto& scene = f.plot.Scene();
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  f.buttons.Plot_ViewFinished(1);  // still the default range
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  scene.SetXMin(-5);
  f.buttons.Plot_ViewFinished(2);
  EXPECT_FALSE(f.buttons.btnReset()->isHidden()) << "a right-button gesture moves the view too";
  // Back at the default, by a gesture or a redraw from anywhere: it goes.
  scene.SetXMin(-10);
  f.buttons.Plot_ViewFinished(1);
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  scene.SetYMax(3);
  f.plot.Redraw();  // as the ribbon's pan, the range dialog or a project would
  EXPECT_FALSE(f.buttons.btnReset()->isHidden());
  QTest::mouseClick(f.buttons.btnReset(), Qt::LeftButton);
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  EXPECT_EQ(scene.YMax(), 10);
  // A drag of the real widget ends in the same event.
  QTest::mousePress(&f.plot, Qt::LeftButton, {}, QPoint(400, 300));
  QTest::mouseMove(&f.plot, QPoint(300, 250));
  QTest::mouseRelease(&f.plot, Qt::LeftButton, {}, QPoint(300, 250));
  EXPECT_FALSE(f.buttons.btnReset()->isHidden());
  scene.ResetRange();
  f.plot.Redraw();
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  // With equal scales the default range is the one a reset draws, widened.
  scene.SetEqualScales(true);
  f.plot.Redraw();
  EXPECT_NE(scene.XMin(), -10);
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
  // Over a hidden plot (the 3D page) it never shows.
  scene.SetXMin(-3);
  f.plot.hide();
  f.buttons.RefreshReset();
  EXPECT_TRUE(f.buttons.btnReset()->isHidden());
}

TEST(PlotButtons, TheLockShowsItsStateWhateverSetIt) {
  ButtonsFixture f;
  QToolButton* lock = f.buttons.btnLock();
  EXPECT_EQ(lock->property("iconName").toString(), "object-unlocked");
  lock->setChecked(true);  // as a project read from a file does
  EXPECT_EQ(lock->property("iconName").toString(), "object-locked");
  lock->setChecked(false);
  EXPECT_EQ(lock->property("iconName").toString(), "object-unlocked");
}

TEST(PlotButtons, TheLockStopsTheMouse) {
  ButtonsFixture f;
  EXPECT_TRUE(f.plot.Scene().Interactive());
  QTest::mouseClick(f.buttons.btnLock(), Qt::LeftButton);
  EXPECT_TRUE(f.buttons.btnLock()->isChecked());
  EXPECT_FALSE(f.plot.Scene().Interactive());
  QTest::mouseClick(f.buttons.btnLock(), Qt::LeftButton);
  EXPECT_TRUE(f.plot.Scene().Interactive());
}

TEST(PlotButtons, TheLockGivesItsFocusAway) {
  ButtonsFixture f;
  int given = 0;
  f.buttons.GiveFocusAway = [&] { ++given; };
  QApplication::setActiveWindow(&f.window);
  f.buttons.btnLock()->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(given, 1);
}

TEST(PlotButtons, TheProgressOfASurface) {
  ButtonsFixture f;
  f.buttons.PB_3D()->show();
  f.buttons.Plot3D_Progress(40);
  EXPECT_EQ(f.buttons.PB_3D()->value(), 40);
  EXPECT_FALSE(f.buttons.PB_3D()->isHidden());
  f.buttons.Plot3D_Progress(100);
  EXPECT_TRUE(f.buttons.PB_3D()->isHidden());
  f.buttons.PB_3D()->show();
  f.buttons.Plot3D_Finished();
  EXPECT_TRUE(f.buttons.PB_3D()->isHidden());
}

TEST(PlotButtons, TheyStandWhereTheFormPutsThem) {
  ButtonsFixture f;
  f.buttons.Place(QRect(480, 4, 700, 500), QRect(458, 4, 722, 500), 1200);
  EXPECT_EQ(f.buttons.btnSetting()->x(), 1200 - 30 - 12);
  EXPECT_EQ(f.buttons.btnSetting()->y(), 4 + 8);
  EXPECT_EQ(f.buttons.btnFullScreen()->x(), f.buttons.btnSetting()->x());
  EXPECT_EQ(f.buttons.btnFullScreen()->y(), f.buttons.btnSetting()->y() + 30 + 2);
  EXPECT_EQ(f.buttons.btnReset()->y(), f.buttons.btnFullScreen()->y() + 30 + 2);
  EXPECT_EQ(f.buttons.btnLock()->geometry().right(), 480 + 700 - 1 - 6);
  EXPECT_EQ(f.buttons.btnLock()->geometry().bottom(), 4 + 500 - 1 - 4);
  EXPECT_EQ(f.buttons.PB_3D()->geometry().right(), 458 + 722 - 1 - 4);
}
