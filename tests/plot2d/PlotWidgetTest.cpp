#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <numbers>

using plot2d::PlotWidget;

namespace {

// A shown widget of 400x300 with the default range and one curve.
struct Shown {
  PlotWidget widget;
  Shown() {
    widget.resize(400, 300);
    std::int32_t kind = 0;
    widget.Scene().AddFunction(1, "y=sin(x)", 255, false, kind, false, false, false, 0);
    widget.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.Redraw();
    QCoreApplication::processEvents();
  }
  plot2d::Plot& Scene() { return widget.Scene(); }
  QAction* Action(const QString& text) {
    for (QAction* action : widget.MenuActions()) {
      if (action->text() == text) return action;
    }
    ADD_FAILURE() << "no action " << text.toStdString();
    return nullptr;
  }
};

void Wheel(QWidget& widget, QPointF at, int delta) {
  QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace

TEST(PlotWidget, ALeftDragPansAndEndsWithViewFinished) {
  Shown s;
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
  QTest::mouseMove(&s.widget, QPoint(220, 150));
  QTest::mouseMove(&s.widget, QPoint(240, 165));
  EXPECT_EQ(finished.count(), 0);  // not while the gesture goes on
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(240, 165));
  // 40 pixels right of 400 for 20 units: the view moves 2 to the left; 15 down of 300: 1 up.
  EXPECT_DOUBLE_EQ(s.Scene().XMin(), -12);
  EXPECT_DOUBLE_EQ(s.Scene().XMax(), 8);
  EXPECT_DOUBLE_EQ(s.Scene().YMin(), -9);
  EXPECT_DOUBLE_EQ(s.Scene().YMax(), 11);
  ASSERT_EQ(finished.count(), 1);
  const QList<QVariant> arguments = finished.takeFirst();
  EXPECT_DOUBLE_EQ(arguments.at(0).toDouble(), -12);
  EXPECT_EQ(arguments.at(4).value<short>(), 1);
}

TEST(PlotWidget, TheLockStopsPanningAndZooming) {
  Shown s;
  s.Scene().SetInteractive(false);
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
  QTest::mouseMove(&s.widget, QPoint(260, 150));
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(260, 150));
  Wheel(s.widget, QPointF(100, 100), 120);
  QTest::keyClick(&s.widget, Qt::Key_Right);
  QTest::qWait(300);
  EXPECT_EQ(s.Scene().XMin(), -10);
  EXPECT_EQ(s.Scene().YMax(), 10);
  EXPECT_EQ(finished.count(), 0);
}

TEST(PlotWidget, TheWheelZoomsAboutThePointerAlongTheChosenAxes) {
  Shown s;
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  // The pointer at x = -5 (pixel 100), y = 0 (pixel 150); one notch in: the range shrinks by 0.85.
  Wheel(s.widget, QPointF(100, 150), 120);
  EXPECT_NEAR(s.Scene().XMin(), -5 - 5 * 0.85, 1e-12);
  EXPECT_NEAR(s.Scene().XMax(), -5 + 15 * 0.85, 1e-12);
  EXPECT_NEAR(s.Scene().YMax(), 10 * 0.85, 1e-12);
  ASSERT_TRUE(finished.wait(2000));  // a pause ends the wheel gesture
  EXPECT_EQ(finished.takeFirst().at(4).value<short>(), 1);

  s.Scene().SetZoomType(1);
  const double yMax = s.Scene().YMax();
  Wheel(s.widget, QPointF(200, 150), -120);
  EXPECT_EQ(s.Scene().YMax(), yMax);  // X only
  s.Scene().SetZoomType(2);
  const double xMax = s.Scene().XMax();
  Wheel(s.widget, QPointF(200, 150), -120);
  EXPECT_EQ(s.Scene().XMax(), xMax);  // Y only
  EXPECT_GT(s.Scene().YMax(), yMax);
}

TEST(PlotWidget, KeysPanAndZoomWhenFocused) {
  Shown s;
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  s.widget.setFocus();
  QTest::keyClick(&s.widget, Qt::Key_Right);
  EXPECT_DOUBLE_EQ(s.Scene().XMin(), -8);
  QTest::keyClick(&s.widget, Qt::Key_Up);
  EXPECT_DOUBLE_EQ(s.Scene().YMin(), -8);
  QTest::keyClick(&s.widget, Qt::Key_Plus);
  EXPECT_DOUBLE_EQ(s.Scene().XMax() - s.Scene().XMin(), 10);
  QTest::keyClick(&s.widget, Qt::Key_Minus);
  EXPECT_DOUBLE_EQ(s.Scene().XMax() - s.Scene().XMin(), 20);
  EXPECT_EQ(finished.count(), 4);
}

TEST(PlotWidget, ReadyProgressAndFinished) {
  Shown s;
  QSignalSpy ready(&s.widget, &PlotWidget::Ready);
  QSignalSpy progress(&s.widget, &PlotWidget::Progress);
  QSignalSpy finished(&s.widget, &PlotWidget::Finished);
  s.widget.Redraw();
  EXPECT_EQ(finished.count(), 1);
  ASSERT_GE(progress.count(), 2);
  EXPECT_EQ(progress.first().at(0).toInt(), 0);
  EXPECT_EQ(progress.last().at(0).toInt(), 100);
  ASSERT_TRUE(ready.count() == 1 || ready.wait(2000));  // after the picture is painted
  EXPECT_EQ(s.widget.LastPicture().size(), QSize(400, 300) * s.widget.devicePixelRatioF());
}

TEST(PlotWidget, ThePopUpMenuChangesTheSceneAndSaysSo) {
  Shown s;
  QSignalSpy changed(&s.widget, &PlotWidget::SettingsChanged);
  s.Action("Show Grid")->trigger();
  EXPECT_FALSE(s.Scene().ShowGrid());
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.takeFirst().at(0).toString(), "Show Grid");
  s.Action("Transparent Background")->trigger();
  EXPECT_TRUE(s.Scene().TransparentBackground());
  s.Action("Show Mouse Coordinate")->trigger();
  EXPECT_TRUE(s.Scene().ShowMouseCoordinate());
  s.Action("Zoom Y")->trigger();
  EXPECT_EQ(s.Scene().ZoomType(), 2);
  s.Action("Zoom In")->trigger();
  EXPECT_DOUBLE_EQ(s.Scene().XMax(), 5);
  s.Action("Reset Range")->trigger();
  EXPECT_DOUBLE_EQ(s.Scene().XMax(), 10);
  s.widget.ChooseColor = [](const QColor&, const QString&) { return std::optional<QColor>(QColor(0, 0, 255)); };
  s.Action("Back Colour...")->trigger();
  EXPECT_EQ(s.Scene().BackColor(), 16711680);
  s.widget.ChooseColor = [](const QColor&, const QString&) { return std::optional<QColor>(); };  // cancelled
  s.Action("Axis Colour...")->trigger();
  EXPECT_EQ(s.Scene().AxisColor(), 0);
  EXPECT_EQ(changed.count(), 6);
  for (const char* text : {"Show Axis", "Show Numbers", "Show Outer Frame", "Show Tips", "Zoom X", "Zoom X and Y", "Zoom Out"}) {
    EXPECT_NE(s.Action(text), nullptr);
  }
}

TEST(PlotWidget, TheMouseCoordinateFollowsThePointer) {
  Shown s;
  auto* label = s.widget.findChild<QLabel*>("coordinate");
  ASSERT_NE(label, nullptr);
  QTest::mouseMove(&s.widget, QPoint(300, 75));
  EXPECT_FALSE(label->isVisible());
  s.Scene().SetShowMouseCoordinate(true);
  QTest::mouseMove(&s.widget, QPoint(290, 80));  // a move elsewhere first: the same point sends no event
  QTest::mouseMove(&s.widget, QPoint(300, 75));
  EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(label->text(), "(5, 5)");
}

TEST(PlotWidget, AQuickPictureFollowsWhileDragging) {
  Shown s;
  QSignalSpy finished(&s.widget, &PlotWidget::Finished);
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
  QTest::mouseMove(&s.widget, QPoint(230, 150));
  ASSERT_TRUE(finished.wait(2000));  // the quick redraw
  EXPECT_EQ(s.Scene().Quality(), 100);  // its lower quality was for that picture only
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(230, 150));
}

namespace {

// The widget's pixel for a point of the default range on 400x300.
QPoint PixelOf(double x, double y) {
  return QPointF((x + 10) / 20 * 400, (10 - y) / 20 * 300).toPoint();
}

QLabel* Tip(PlotWidget& widget) { return widget.findChild<QLabel*>("tip"); }

}  // namespace

TEST(PlotWidget, NearACurveATipShowsItsRowAndPointAndItsNotablePoints) {
  Shown s;
  s.Scene().SetShowTips(true);
  QTest::mouseMove(&s.widget, PixelOf(5, 5));  // far from sin(x)
  EXPECT_FALSE(Tip(s.widget)->isVisible());
  EXPECT_TRUE(s.widget.ShownNotablePoints().empty());
  QTest::mouseMove(&s.widget, PixelOf(1, std::sin(1.0)) + QPoint(0, 3));
  ASSERT_TRUE(Tip(s.widget)->isVisible());
  EXPECT_TRUE(Tip(s.widget)->text().startsWith("Row 1: (")) << Tip(s.widget)->text().toStdString();
  // Roots at 0, ±pi, ±2pi, ±3pi; three maxima, three minima; and the y-intercept (0, 0).
  const auto& shown = s.widget.ShownNotablePoints();
  EXPECT_EQ(std::count_if(shown.begin(), shown.end(), [](auto& p) { return p.What == plot2d::NotablePoint::Kind::Root; }), 7);
  EXPECT_EQ(shown.size(), 14u);
  // On a dot the tip names it.
  QTest::mouseMove(&s.widget, PixelOf(std::numbers::pi / 2, 1));
  EXPECT_EQ(Tip(s.widget)->text(), "Maximum (1.5708, 1)");
  // The root at the origin, whatever tiny x the search ends on, shows as 0.
  QTest::mouseMove(&s.widget, PixelOf(0, 0) + QPoint(1, 0));
  EXPECT_TRUE(Tip(s.widget)->text().endsWith(" (0, 0)")) << Tip(s.widget)->text().toStdString();
  QTest::mouseMove(&s.widget, PixelOf(5, 5));
  EXPECT_FALSE(Tip(s.widget)->isVisible());
  EXPECT_TRUE(s.widget.ShownNotablePoints().empty());
}

TEST(PlotWidget, AClickOnANotablePointCopiesItAtFullPrecision) {
  Shown s;
  s.Scene().SetShowTips(true);
  s.Scene().SetInteractive(false);  // tips work on a locked plot too
  QStringList copied;
  s.widget.CopyText = [&](const QString& text) { copied << text; };
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  QTest::mouseMove(&s.widget, PixelOf(3, std::sin(3.0)));
  QTest::mouseMove(&s.widget, PixelOf(std::numbers::pi, 0));
  QTest::mouseClick(&s.widget, Qt::LeftButton, Qt::NoModifier, PixelOf(std::numbers::pi, 0));
  ASSERT_EQ(copied.size(), 1);
  EXPECT_EQ(copied[0], "(3.14159265358979, 0)");
  EXPECT_EQ(Tip(s.widget)->text(), "Copied (3.14159265358979, 0)");
  EXPECT_EQ(finished.count(), 0);  // a click is not a pan
  EXPECT_EQ(s.Scene().XMin(), -10);
}

TEST(PlotWidget, AClickAwayFromADotCopiesNothingAndDoesNotMoveTheView) {
  Shown s;
  s.Scene().SetShowTips(true);
  QStringList copied;
  s.widget.CopyText = [&](const QString& text) { copied << text; };
  QSignalSpy finished(&s.widget, &PlotWidget::ViewFinished);
  QTest::mouseClick(&s.widget, Qt::LeftButton, Qt::NoModifier, PixelOf(5, 5));
  EXPECT_TRUE(copied.empty());
  EXPECT_EQ(finished.count(), 0);
}

TEST(PlotWidget, WithoutShowTipsNoTipOrDots) {
  Shown s;
  s.Scene().SetShowTips(false);
  QTest::mouseMove(&s.widget, PixelOf(1, std::sin(1.0)));
  EXPECT_FALSE(Tip(s.widget)->isVisible());
  EXPECT_TRUE(s.widget.ShownNotablePoints().empty());
}

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
