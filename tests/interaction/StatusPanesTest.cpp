// The status bar's panes: texts, the Replot pane and the two sliders with their scroll codes.
#include "interaction/StatusPanes.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QMainWindow>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

using interaction::StatusPanes;

namespace {

struct PanesFixture {
  PanesFixture() : panes(*window.statusBar(), plot) {
    plot.SetQuality(90);
    plot.SetThickness(2);
    panes.Sync();
    window.show();
  }
  QMainWindow window;
  plot2d::Plot plot;
  StatusPanes panes;
};

const QString kQuality = "Plot Quality";
const QString kThickness = "Plot Thickness";

}  // namespace

TEST(StatusPanes, PanesWithTheirTextsAndTips) {
  PanesFixture f;
  EXPECT_EQ(f.panes.PaneText(9000), "Ready...");
  EXPECT_EQ(f.panes.PaneText(9001), "Replot");
  EXPECT_EQ(f.panes.PaneText(9002), "Thickness: 2");
  EXPECT_EQ(f.panes.PaneText(9004), "Quality: 90");
  EXPECT_EQ(f.panes.Pane(9000)->toolTip(), "Status");
  EXPECT_EQ(f.panes.Pane(9001)->toolTip(), "Replot All Functions Again.");
  EXPECT_EQ(f.panes.Pane(9002)->toolTip(), "Plot Thickness");
  EXPECT_EQ(f.panes.Pane(9004)->toolTip(), "Plot Quality");
  auto* thickness = f.panes.Slider(kThickness);
  auto* quality = f.panes.Slider(kQuality);
  EXPECT_EQ(thickness->MinusButton()->toolTip(), "Tickness -");
  EXPECT_EQ(thickness->PlusButton()->toolTip(), "Tickness +");
  EXPECT_EQ(quality->MinusButton()->toolTip(), "Quality -");
  EXPECT_EQ(quality->PlusButton()->toolTip(), "Quality +");
  EXPECT_EQ(quality->Slider()->toolTip(), "Quality");
  EXPECT_EQ(thickness->Slider()->maximum(), 7);
  EXPECT_EQ(quality->Slider()->maximum(), 100);
  EXPECT_EQ(quality->Slider()->minimum(), 1);
  EXPECT_EQ(thickness->Slider()->width(), 110);
  EXPECT_EQ(quality->Slider()->value(), 90);
  EXPECT_EQ(thickness->Slider()->value(), 2);
  EXPECT_EQ(f.panes.Slider("Other"), nullptr);
}

TEST(StatusPanes, QualityAtItsTopEnd) {
  PanesFixture f;
  f.plot.SetQuality(98);
  f.panes.StatusBar_SliderPaneClick(kQuality, 1, 0);
  EXPECT_EQ(f.plot.Quality(), 100);
  EXPECT_EQ(f.panes.PaneText(9004), "Quality: 100");
  EXPECT_EQ(f.panes.Slider(kQuality)->Slider()->value(), 100);
  f.panes.SetPaneText(9004, "untouched");
  f.panes.StatusBar_SliderPaneClick(kQuality, 1, 0);
  EXPECT_EQ(f.plot.Quality(), 100);
  EXPECT_EQ(f.panes.PaneText(9004), "untouched");
}

TEST(StatusPanes, EveryScrollCode) {
  struct Case {
    const char* caption;
    double from;
    int command;
    int pos;
    double to;
  };
  const Case cases[] = {
      {"Plot Quality", 15, 2, 0, 1},  {"Plot Quality", 50, 0, 0, 45}, {"Plot Quality", 50, 3, 0, 70},
      {"Plot Quality", 90, 3, 0, 100}, {"Plot Quality", 50, 4, 80, 50}, {"Plot Quality", 50, 5, 80, 80},
      {"Plot Quality", 50, 6, 0, 1},  {"Plot Quality", 50, 7, 0, 100}, {"Plot Quality", 50, 9, 0, 50},
      {"Plot Thickness", 2, 0, 0, 1}, {"Plot Thickness", 1, 0, 0, 1},  {"Plot Thickness", 6, 3, 0, 7},
      {"Plot Thickness", 3, 2, 0, 1}, {"Plot Thickness", 4, 1, 0, 5},  {"Plot Thickness", 4, 7, 0, 7},
      {"Plot Thickness", 9, 1, 0, 7},
  };
  for (const Case& c : cases) {
    PanesFixture f;
    const bool quality = QString(c.caption) == kQuality;
    if (quality) f.plot.SetQuality(c.from);
    else f.plot.SetThickness(c.from);
    f.panes.StatusBar_SliderPaneClick(c.caption, c.command, c.pos);
    EXPECT_EQ(quality ? f.plot.Quality() : f.plot.Thickness(), c.to) << c.caption << " " << c.from << " " << c.command;
  }
}

TEST(StatusPanes, TheLargerAndTheSmallerTakeBOnATie) {
  EXPECT_EQ(StatusPanes::max(1, 2), 2);
  EXPECT_EQ(StatusPanes::max(3, 2), 3);
  EXPECT_EQ(StatusPanes::min(1, 2), 1);
  EXPECT_EQ(StatusPanes::min(3, 2), 2);
  const double negativeZero = -0.0;
  EXPECT_TRUE(std::signbit(StatusPanes::max(0.0, negativeZero)));
  EXPECT_TRUE(std::signbit(StatusPanes::min(0.0, negativeZero)));
}

TEST(StatusPanes, TheSlidersOwnActionsBecomeScrollCodes) {
  PanesFixture f;
  QSlider* slider = f.panes.Slider(kQuality)->Slider();
  slider->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(f.plot.Quality(), 95);
  slider->triggerAction(QAbstractSlider::SliderPageStepSub);
  EXPECT_EQ(f.plot.Quality(), 75);
  slider->triggerAction(QAbstractSlider::SliderToMinimum);
  EXPECT_EQ(f.plot.Quality(), 1);
  QTest::mouseClick(f.panes.Slider(kQuality)->PlusButton(), Qt::LeftButton);
  EXPECT_EQ(f.plot.Quality(), 6);
  QTest::mouseClick(f.panes.Slider(kThickness)->MinusButton(), Qt::LeftButton);
  EXPECT_EQ(f.plot.Thickness(), 1);
  EXPECT_EQ(f.panes.PaneText(9002), "Thickness: 1");
}

TEST(StatusPanes, TheReplotPaneAsksForAReplot) {
  PanesFixture f;
  QSignalSpy replot(&f.panes, &StatusPanes::ReplotClicked);
  QTest::mouseClick(f.panes.Pane(9001), Qt::LeftButton);
  EXPECT_EQ(replot.count(), 1);
  f.panes.StatusBar_PaneClick("Quality: 90");
  EXPECT_EQ(replot.count(), 1);
}
