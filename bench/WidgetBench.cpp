// The plot widgets as a user drives them, offscreen: for the 2D plot at 1920x1080 the frame period
// of a pan (move the pointer, wait for the quick picture to be painted) and the time from the end
// of a gesture to the full picture on the screen, for the heavy scene and for ten curves; for the
// 3D plot at 1280x800 the frame period of turning the box, for a surface over a grid of 100 and
// for the heart.
#include "HeavyScene.h"

#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

struct Shown {
  plot2d::PlotWidget widget;
  explicit Shown(bool heavy) {
    widget.resize(1920, 1080);
    if (heavy) FillHeavyScene(widget.Scene());
    else FillHeavyScene(widget.Scene(), 10, false);
    widget.Scene().SetThickness(2);
    widget.show();
    (void)QTest::qWaitForWindowExposed(&widget);
    widget.Redraw();
    QCoreApplication::processEvents();
  }
};

// One frame of a continuous drag: the pointer moves, the quick picture comes and is painted.
void BM_Widget_PanFrame(benchmark::State& state) {
  Shown s(state.range(0) == 100);
  QSignalSpy finished(&s.widget, &plot2d::PlotWidget::Finished);
  QPoint at(960, 540);
  QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, at);
  int step = 0;
  for (auto _ : state) {
    at += QPoint((step++ / 20) % 2 ? -8 : 8, 0);  // to and fro, so that the range stays alike
    QTest::mouseMove(&s.widget, at);
    if (!finished.wait(2000)) state.SkipWithError("no quick picture");
    s.widget.repaint();
  }
  QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, at);
  state.counters["fps"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_Widget_PanFrame)->Arg(100)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

// From the release of a drag to the full picture painted.
void BM_Widget_GestureEnd(benchmark::State& state) {
  Shown s(state.range(0) == 100);
  QSignalSpy ready(&s.widget, &plot2d::PlotWidget::Ready);
  for (auto _ : state) {
    state.PauseTiming();
    QTest::mousePress(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(960, 540));
    QTest::mouseMove(&s.widget, QPoint(970, 540));
    ready.clear();
    state.ResumeTiming();
    QTest::mouseRelease(&s.widget, Qt::LeftButton, Qt::NoModifier, QPoint(970, 540));
    s.widget.repaint();
    if (ready.isEmpty() && !ready.wait(2000)) state.SkipWithError("no full picture");
  }
}
BENCHMARK(BM_Widget_GestureEnd)->Arg(100)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

// One frame of turning the 3D box: the pointer moves with the button down, the box is drawn
// again at the new angle and painted.
void BM_Widget3D_TurnFrame(benchmark::State& state) {
  plot3d::Plot3DWidget widget;
  widget.resize(1280, 800);
  const bool heart = state.range(0) == 4;
  widget.Scene().SetFunctionKind(heart ? 4 : 1);
  widget.Scene().SetGridCount(3);
  widget.Scene().SetEquation(heart ? "(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0" : "sin(x)*cos(y)");
  if (heart) {
    widget.Scene().SetXMin(-1.5), widget.Scene().SetXMax(1.5), widget.Scene().SetYMin(-1.5);
    widget.Scene().SetYMax(1.5), widget.Scene().SetZMin(-1.5), widget.Scene().SetZMax(1.5);
  }
  widget.show();
  (void)QTest::qWaitForWindowExposed(&widget);
  widget.Prepare3D();
  QSignalSpy finished(&widget, &plot3d::Plot3DWidget::Finished);
  widget.Redraw();
  if (!finished.wait(20000)) state.SkipWithError("no surface");
  QPoint at(640, 400);
  QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, at);
  int step = 0;
  for (auto _ : state) {
    at += QPoint((step++ / 20) % 2 ? -6 : 6, 0);
    QMouseEvent move(QEvent::MouseMove, QPointF(at), widget.mapToGlobal(QPointF(at)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    widget.repaint();
  }
  QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, at);
  state.counters["fps"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_Widget3D_TurnFrame)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
