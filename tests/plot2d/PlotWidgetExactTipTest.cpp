// On the screen: the tip of a special point shows it to six digits and a click copies it to 15,
// the same at the default range and a thousand times closer.
#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QTest>

#include <cmath>
#include <numbers>

using plot2d::PlotWidget;

namespace {

struct TipCase {
  const char* First;
  const char* Second;  // may be empty
  double X, Y;         // the special point, in closed form
  const char* Tip;
  const char* Copy;
};

QPoint PixelOf(const PlotWidget& widget, double x, double y) {
  const plot2d::Plot& plot = widget.Scene();
  return QPointF((x - plot.XMin()) / (plot.XMax() - plot.XMin()) * widget.width(),
                 (plot.YMax() - y) / (plot.YMax() - plot.YMin()) * widget.height())
      .toPoint();
}

// The tip and the copy of the special point at (x, y), in a view of the given half width.
std::pair<QString, QString> TipAndCopy(const TipCase& c, double half) {
  PlotWidget widget;
  widget.resize(400, 300);
  std::int32_t kind = 0;
  widget.Scene().AddFunction(1, c.First, 255, false, kind, false, false, false, 0);
  if (*c.Second) widget.Scene().AddFunction(2, c.Second, 33023, false, kind, false, false, false, 0);
  // Off centre, so that the point lies on no vertex of the even start of the sampling.
  const double cx = c.X + 0.13 * half, cy = c.Y - 0.21 * half;
  widget.Scene().SetXMin(cx - half), widget.Scene().SetXMax(cx + half);
  widget.Scene().SetYMin(cy - half), widget.Scene().SetYMax(cy + half);
  widget.Scene().SetShowTips(true);
  widget.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
  widget.Redraw();
  QCoreApplication::processEvents();
  QStringList copied;
  widget.CopyText = [&](const QString& text) { copied << text; };
  // Onto the curve beside the point, so that its dots show; then onto the dot.
  QTest::mouseMove(&widget, PixelOf(widget, c.X, c.Y) + QPoint(2, 0));
  QTest::mouseMove(&widget, PixelOf(widget, c.X, c.Y));
  const QString tip = widget.findChild<QLabel*>("tip")->text();
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, PixelOf(widget, c.X, c.Y));
  return {tip, copied.value(0)};
}

}  // namespace

TEST(PlotWidgetExactTips, TheTipHasSixDigitsAndTheCopyFifteenAtAnyZoom) {
  const double pi = std::numbers::pi;
  const TipCase cases[] = {
      {"y=sin(x)", "y=cos(x)", pi / 4, std::sqrt(2.0) / 2, "Intersection (0.785398, 0.707107)",
       "(0.785398163397448, 0.707106781186548)"},
      {"y=x^2-3x+2", "", 1.5, -0.25, "Minimum (1.5, -0.25)", "(1.5, -0.25)"},
      {"y=x^3-3x", "", -1, 2, "Maximum (-1, 2)", "(-1, 2)"},
      {"x^2+y^2=25", "y=x+1", 3, 4, "Intersection (3, 4)", "(3, 4)"},
  };
  for (const TipCase& c : cases) {
    for (const double half : {10.0, 0.01}) {
      const auto [tip, copy] = TipAndCopy(c, half);
      EXPECT_EQ(tip, c.Tip) << c.First << " " << c.Second << " at half width " << half;
      EXPECT_EQ(copy, c.Copy) << c.First << " " << c.Second << " at half width " << half;
    }
  }
}
