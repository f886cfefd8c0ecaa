// The notable points from the keyboard: N and Shift+N go through them, each marked on the plot
// with its tip and said through the plot's accessible name, whether or not the mouse tips are on.
#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QLabel>
#include <QTest>

#include <vector>

using plot2d::PlotWidget;

namespace {

// A shown, focused plot of 400x300 in the default range with the given rows, mouse tips off.
struct Walked {
  PlotWidget widget;
  explicit Walked(const std::vector<std::pair<std::int16_t, const char*>>& rows) {
    widget.resize(400, 300);
    widget.setAccessibleName("Plot");
    for (const auto& [row, line] : rows) {
      std::int32_t kind = 0;
      widget.Scene().AddFunction(row, line, 255, false, kind, false, false, false, 0);
    }
    widget.Scene().SetShowTips(false);
    widget.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.Redraw();
    QCoreApplication::processEvents();
    widget.setFocus();
  }
  QString Name() { return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name); }
  QLabel* Tip() { return widget.findChild<QLabel*>("notableTip"); }
  // What the tip beside the marked point says; empty while it is hidden.
  QString TipText() { return Tip()->isVisible() ? Tip()->text() : QString(); }
};

struct Step {
  Qt::Key Key;
  Qt::KeyboardModifiers Modifiers;
  const char* Spoken;  // the plot's accessible name after the key
  const char* Tip;     // the tip beside the marked point, "" where none shows
};

void Walk(Walked& w, const std::vector<Step>& steps) {
  int i = 0;
  for (const Step& step : steps) {
    QTest::keyClick(&w.widget, step.Key, step.Modifiers);
    EXPECT_EQ(w.Name(), step.Spoken) << "step " << i;
    EXPECT_EQ(w.TipText(), step.Tip) << "step " << i;
    ++i;
  }
}

constexpr auto kNone = Qt::NoModifier;
constexpr auto kShift = Qt::ShiftModifier;

const char* const kRootLeft = "Root of row 1 at (-1, 0), point 1 of 3";
const char* const kBottom = "Minimum and y-Intercept of row 1 at (0, -1), point 2 of 3";
const char* const kRootRight = "Root of row 1 at (1, 0), point 3 of 3";

}  // namespace

TEST(PlotWidgetNotableWalk, NGoesThroughThePointsInOrderAndWrapsRound) {
  // The minimum lies on the y axis: one stop for both, not the same place said twice.
  Walked w({{1, "y=x^2-1"}});
  Walk(w, {
              {Qt::Key_N, kNone, kRootLeft, "Root (-1, 0)"},
              {Qt::Key_N, kNone, kBottom, "Minimum and y-Intercept (0, -1)"},
              {Qt::Key_N, kNone, kRootRight, "Root (1, 0)"},
              {Qt::Key_N, kNone, kRootLeft, "Root (-1, 0)"},
              {Qt::Key_N, kShift, kRootRight, "Root (1, 0)"},
              {Qt::Key_N, kShift, kBottom, "Minimum and y-Intercept (0, -1)"},
              {Qt::Key_End, kNone, kRootRight, "Root (1, 0)"},
              {Qt::Key_Home, kNone, kRootLeft, "Root (-1, 0)"},
              {Qt::Key_Escape, kNone, "Plot", ""},
              // A walk begun backwards begins at the last point.
              {Qt::Key_N, kShift, kRootRight, "Root (1, 0)"},
          });
}

TEST(PlotWidgetNotableWalk, CurvesComeInTheirOrderAndAMeetingNamesBothRows) {
  Walked w({{1, "y=x"}, {3, "y=2-x"}});
  Walk(w, {
              {Qt::Key_N, kNone, "Root and y-Intercept of row 1 at (0, 0), point 1 of 4", "Root and y-Intercept (0, 0)"},
              {Qt::Key_N, kNone, "Intersection of rows 1 and 3 at (1, 1), point 2 of 4", "Intersection (1, 1)"},
              {Qt::Key_N, kNone, "y-Intercept of row 3 at (0, 2), point 3 of 4", "y-Intercept (0, 2)"},
              {Qt::Key_N, kNone, "Root of row 3 at (2, 0), point 4 of 4", "Root (2, 0)"},
          });
}

TEST(PlotWidgetNotableWalk, WithNoPointsInViewItSaysSo) {
  for (const char* line : {"y=x+100", ""}) {
    Walked w(*line ? std::vector<std::pair<std::int16_t, const char*>>{{1, line}}
                   : std::vector<std::pair<std::int16_t, const char*>>{});
    Walk(w, {
                {Qt::Key_N, kNone, "No notable points in view", ""},
                {Qt::Key_N, kShift, "No notable points in view", ""},
                {Qt::Key_Escape, kNone, "Plot", ""},
            });
  }
}

TEST(PlotWidgetNotableWalk, APanAZoomOrAReplotEndsTheWalk) {
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_unknown}) {
    Walked w({{1, "y=x^2-1"}});
    QTest::keyClick(&w.widget, Qt::Key_N);
    ASSERT_EQ(w.Name(), kRootLeft);
    if (key == Qt::Key_unknown) {
      w.widget.Redraw();  // as a replot ends
    } else {
      QTest::keyClick(&w.widget, key);
    }
    EXPECT_EQ(w.Name(), "Plot") << key;
    EXPECT_EQ(w.TipText(), "") << key;
    EXPECT_FALSE(w.widget.Walk().Active()) << key;
    // The next N finds the points of the new view: after the pan, x from -8 to 12.
    QTest::keyClick(&w.widget, Qt::Key_N);
    EXPECT_EQ(w.Name(), kRootLeft) << key;
  }
}

TEST(PlotWidgetNotableWalk, ItWorksOnALockedPlotAndMovesNothing) {
  Walked w({{1, "y=x^2-1"}});
  w.widget.Scene().SetInteractive(false);
  Walk(w, {{Qt::Key_N, kNone, kRootLeft, "Root (-1, 0)"}, {Qt::Key_End, kNone, kRootRight, "Root (1, 0)"}});
  EXPECT_EQ(w.widget.Scene().XMin(), -10);
  EXPECT_EQ(w.widget.Scene().YMax(), 10);
}

TEST(PlotWidgetNotableWalk, TheMarkedPointIsDrawnWithoutTheMouseTips) {
  Walked w({{1, "y=x^2-1"}});
  // The ring about (-1, 0), at pixel (180, 150), crosses its upper right diagonal clear of the
  // curve, the axes and the grid.
  const QPoint onRing(185, 145);
  const auto gray = [&] { return qGray(w.widget.grab().toImage().pixel(onRing)); };
  EXPECT_GT(gray(), 150);
  QTest::keyClick(&w.widget, Qt::Key_N);
  EXPECT_LT(gray(), 100);
  QTest::keyClick(&w.widget, Qt::Key_Escape);
  EXPECT_GT(gray(), 150);
}

TEST(PlotWidgetNotableWalk, TheKeysAreInTheDescription) {
  PlotWidget widget;
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description),
            "Arrow keys move the view, plus and minus zoom. N goes to the next notable point, Shift+N to the "
            "previous, Home and End to the first and last, Escape leaves them.");
}

// The keyboard's place is always visible: a ring in the highlight colour at the plot's edge while
// it has the focus, none without.
TEST(PlotWidgetNotableWalk, TheFocusShowsAsARingAtTheEdge) {
  Walked w({{1, "y=x^2-1"}});
  const QColor highlight = w.widget.palette().color(QPalette::Highlight);
  const auto edge = [&] { return w.widget.grab().toImage().pixelColor(200, 1); };
  ASSERT_TRUE(w.widget.hasFocus());
  EXPECT_EQ(edge(), highlight);
  w.widget.clearFocus();
  QCoreApplication::processEvents();
  EXPECT_NE(edge(), highlight);
}

// On the dark look's plot the ring is white, so that it shows there too.
TEST(PlotWidgetNotableWalk, TheRingShowsOnADarkPlot) {
  Walked w({{1, "y=x^2-1"}});
  w.widget.Scene().SetDarkDefaults(true);
  w.widget.Redraw();
  QCoreApplication::processEvents();
  const QPoint onRing(185, 145);
  const auto gray = [&] { return qGray(w.widget.grab().toImage().pixel(onRing)); };
  EXPECT_LT(gray(), 100);
  QTest::keyClick(&w.widget, Qt::Key_N);
  EXPECT_GT(gray(), 150);
}
