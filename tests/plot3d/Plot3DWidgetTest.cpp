#include "plot3d/Plot3DWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <numbers>

using plot3d::Plot3DWidget;

namespace {

struct Shown {
  Plot3DWidget widget;
  explicit Shown(const char* equation = "sin(x)*cos(y)", int kind = 1) {
    widget.resize(320, 240);
    widget.Scene().SetEquation(equation);
    widget.Scene().SetFunctionKind(kind);
    widget.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.Prepare3D();
  }
  bool Drawn() {
    QSignalSpy finished(&widget, &Plot3DWidget::Finished);
    widget.Redraw();
    return finished.wait(10000);
  }
};

void Wheel(QWidget& widget, QPointF at, int delta) {
  QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace

TEST(Plot3DWidget, RedrawComputesAwayAndThenShowsTheSurface) {
  Shown s;
  QSignalSpy progress(&s.widget, &Plot3DWidget::Progress);
  ASSERT_TRUE(s.Drawn());
  EXPECT_FALSE(s.widget.Scene().Surface().Empty());
  EXPECT_EQ(s.widget.Scene().Picture().size(), QSize(320, 240));
  ASSERT_FALSE(progress.isEmpty());
  EXPECT_EQ(progress.last().at(0).toInt(), 100);
  EXPECT_FALSE(s.widget.Computing());
}

TEST(Plot3DWidget, ANewRedrawStopsTheSurfaceStillBeingComputed) {
  Shown s("sin(x*y)+cos(y*z)+sin(z*x)=0.5", 4);
  s.widget.Scene().SetGridCount(6);
  QSignalSpy finished(&s.widget, &Plot3DWidget::Finished);
  QSignalSpy progress(&s.widget, &Plot3DWidget::Progress);
  s.widget.Redraw();
  // Let the first surface get under way, then ask for another.
  ASSERT_TRUE(progress.wait(10000));
  s.widget.Scene().SetEquation("x^2+y^2+z^2=4");
  s.widget.Scene().SetGridCount(1);
  s.widget.Redraw();
  ASSERT_TRUE(finished.wait(10000));
  QTest::qWait(50);
  EXPECT_EQ(finished.count(), 1);
  EXPECT_EQ(s.widget.Scene().Equation(), QStringLiteral("x^2+y^2+z^2=4"));
  // The sphere's points, not the first surface's.
  for (const plot3d::Vec3 p : s.widget.Scene().Surface().Positions) ASSERT_NEAR(plot3d::Length(p), 2, 1e-3);
}

TEST(Plot3D, ACancelledRedrawLeavesNoSurfaceAndFinishesNothing) {
  plot3d::Plot3D plot;
  plot.SetEquation("x^2+y^2+z^2=4");
  plot.SetFunctionKind(4);
  int finished = 0;
  plot.OnFinished = [&] { ++finished; };
  plot.Cancelled = [] { return true; };
  plot.Redraw();
  EXPECT_TRUE(plot.Surface().Empty());
  EXPECT_EQ(finished, 0);
  plot.Cancelled = nullptr;
  plot.Redraw();
  EXPECT_FALSE(plot.Surface().Empty());
  EXPECT_EQ(finished, 1);
}

TEST(Plot3DWidget, ALargeSurfaceDoesNotHoldUpTheWindow) {
  Shown s("(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 4);
  s.widget.Scene().SetGridCount(6);  // the finest implicit grid
  QSignalSpy finished(&s.widget, &Plot3DWidget::Finished);
  s.widget.Redraw();
  EXPECT_EQ(finished.count(), 0);  // Redraw came back before the surface was ready
  EXPECT_TRUE(s.widget.Computing());
  ASSERT_TRUE(finished.wait(20000));
  EXPECT_FALSE(s.widget.Scene().Surface().Empty());
}

TEST(Plot3DWidget, ADragTurnsTheBox) {
  Shown s;
  ASSERT_TRUE(s.Drawn());
  const double azimuth = s.widget.Scene().View().Azimuth, elevation = s.widget.Scene().View().Elevation;
  const QImage before = s.widget.Scene().Picture();
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
  QTest::mouseMove(&s.widget, QPoint(150, 80));
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(150, 80));
  EXPECT_NEAR(s.widget.Scene().View().Azimuth, azimuth + 0.5, 1e-12);
  EXPECT_NEAR(s.widget.Scene().View().Elevation, elevation - 0.2, 1e-12);
  EXPECT_NE(s.widget.Scene().Picture(), before);
  // The tilt stops at straight down.
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(100, 10));
  QTest::mouseMove(&s.widget, QPoint(100, 230));
  QTest::mouseMove(&s.widget, QPoint(100, 231));
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(100, 231));
  EXPECT_NEAR(s.widget.Scene().View().Elevation, std::numbers::pi / 2, 1e-12);
}

TEST(Plot3DWidget, TheWheelZoomsWithinItsBounds) {
  Shown s;
  Wheel(s.widget, QPointF(160, 120), 120);
  EXPECT_NEAR(s.widget.Scene().Zoom(), 1.15, 1e-12);
  for (int i = 0; i < 20; ++i) Wheel(s.widget, QPointF(160, 120), 120);
  EXPECT_EQ(s.widget.Scene().Zoom(), 3);
  for (int i = 0; i < 40; ++i) Wheel(s.widget, QPointF(160, 120), -120);
  EXPECT_EQ(s.widget.Scene().Zoom(), 0.25);
}

TEST(Plot3DWidget, ATurnDuringTheComputationIsKept) {
  Shown s("x^2+y^2+z^2=9", 4);
  s.widget.Scene().SetGridCount(6);
  QSignalSpy finished(&s.widget, &Plot3DWidget::Finished);
  s.widget.Redraw();
  s.widget.Scene().View().Azimuth = 1.25;
  ASSERT_TRUE(finished.wait(20000));
  EXPECT_EQ(s.widget.Scene().View().Azimuth, 1.25);
}

TEST(Plot3DWidget, AResizeRendersAtTheNewSize) {
  Shown s;
  ASSERT_TRUE(s.Drawn());
  s.widget.resize(200, 150);
  QCoreApplication::processEvents();
  EXPECT_EQ(s.widget.Scene().Picture().size(), QSize(200, 150));
}

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

// The surface turns and zooms from the keyboard as from the mouse: Left and Right turn it about
// the vertical axis, Up and Down tilt it, + and - zoom; and the focus shows as a ring at the edge.
TEST(Plot3DWidget, TheKeysTurnAndZoomTheBoxAndTheFocusShows) {
  Shown s;
  ASSERT_TRUE(s.Drawn());
  EXPECT_TRUE(s.widget.focusPolicy() & Qt::TabFocus) << "Tab reaches the 3D plot";
  s.widget.setFocus();
  QApplication::processEvents();
  const double azimuth = s.widget.Scene().View().Azimuth, elevation = s.widget.Scene().View().Elevation;
  const double zoom = s.widget.Scene().Zoom();
  QTest::keyClick(&s.widget, Qt::Key_Right);
  EXPECT_NEAR(s.widget.Scene().View().Azimuth, azimuth + std::numbers::pi / 18, 1e-12);
  QTest::keyClick(&s.widget, Qt::Key_Left);
  QTest::keyClick(&s.widget, Qt::Key_Left);
  EXPECT_NEAR(s.widget.Scene().View().Azimuth, azimuth - std::numbers::pi / 18, 1e-12);
  QTest::keyClick(&s.widget, Qt::Key_Up);
  EXPECT_NEAR(s.widget.Scene().View().Elevation, elevation + std::numbers::pi / 18, 1e-12);
  for (int i = 0; i < 40; ++i) QTest::keyClick(&s.widget, Qt::Key_Down);
  EXPECT_DOUBLE_EQ(s.widget.Scene().View().Elevation, -std::numbers::pi / 2) << "the tilt stops at straight down";
  QTest::keyClick(&s.widget, Qt::Key_Plus);
  EXPECT_GT(s.widget.Scene().Zoom(), zoom);
  QTest::keyClick(&s.widget, Qt::Key_Minus);
  QTest::keyClick(&s.widget, Qt::Key_Minus);
  EXPECT_LT(s.widget.Scene().Zoom(), zoom);

  const QColor highlight = s.widget.palette().color(QPalette::Highlight);
  EXPECT_EQ(s.widget.grab().toImage().pixelColor(160, 1), highlight);
  s.widget.clearFocus();
  QApplication::processEvents();
  EXPECT_NE(s.widget.grab().toImage().pixelColor(160, 1), highlight);
}
