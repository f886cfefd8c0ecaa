// The plot widget as a user drives it, offscreen at 1920x1080: the frame period of a pan (move the
// pointer, wait for the quick picture to be painted) and the time from the end of a gesture to
// the full picture on the screen, for the heavy scene and for ten curves.
#include "HeavyScene.h"

#include "plot2d/PlotWidget.h"

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

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
