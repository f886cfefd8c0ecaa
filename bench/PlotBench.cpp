// The plot engine's drawing of a heavy scene: sampling and painting, at two qualities, and the
// search for a curve's special points.
#include "HeavyScene.h"

#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>

namespace {

void Scene(benchmark::State& state, double quality) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  plot.SetQuality(quality);
  plot.SetThickness(2);
  FillHeavyScene(plot);
  QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    plot.Redraw();
    QPainter painter(&image);
    plot.Paint(painter);
  }
}

void BM_Scene_Quality100(benchmark::State& state) { Scene(state, 100); }
void BM_Scene_Quality20(benchmark::State& state) { Scene(state, 20); }
BENCHMARK(BM_Scene_Quality100)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Scene_Quality20)->Unit(benchmark::kMillisecond)->UseRealTime();

// The two halves of the heavy scene, at quality 100 and 20: sampling, and painting what was
// sampled.
void BM_Scene_SampleOnly(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  plot.SetQuality(static_cast<double>(state.range(0)));
  FillHeavyScene(plot);
  for (auto _ : state) plot.Redraw();
}
void BM_Scene_PaintOnly(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  plot.SetQuality(static_cast<double>(state.range(0)));
  plot.SetThickness(2);
  FillHeavyScene(plot);
  plot.Redraw();
  QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    plot.Paint(painter);
  }
}
// What a tip costs when the pointer reaches a curve of the heavy scene: its special points, for
// an explicit (0), an implicit (100) and a polar curve (111).
void BM_Scene_NotablePoints(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  FillHeavyScene(plot);
  plot.Redraw();
  const std::size_t curve = static_cast<std::size_t>(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(plot2d::FindNotablePoints(plot.LastDrawing(), curve, plot.View()));
}
BENCHMARK(BM_Scene_NotablePoints)->Arg(0)->Arg(100)->Arg(111)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK(BM_Scene_SampleOnly)->Arg(100)->Arg(20)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Scene_PaintOnly)->Arg(100)->Arg(20)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

// With --pictures DIR, writes what the benchmarks draw (the heavy and the light scene at both
// qualities, and with a thick and a thin pen) instead of timing, so that the
// pictures of two builds can be compared pixel for pixel.
int WritePictures(const QString& folder) {
  struct Case {
    const char* Name;
    double Quality;
    double Thickness;
    bool Light;
  };
  const Case cases[] = {{"heavy100", 100, 2, false}, {"heavy20", 20, 2, false}, {"light100", 100, 2, true},
                        {"heavy100-thick", 100, 7, false}, {"light60-thin", 60, 0.5, true}};
  for (const Case& c : cases) {
    plot2d::Plot plot;
    plot.SetSize(QSize(1920, 1080));
    plot.SetQuality(c.Quality);
    plot.SetThickness(c.Thickness);
    FillHeavyScene(plot, c.Light ? 10 : 100, !c.Light);
    plot.Redraw();
    if (!plot.Picture().save(folder + "/" + c.Name + ".png")) return 1;
  }
  return 0;
}

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  if (argc == 3 && QByteArray(argv[1]) == "--pictures") return WritePictures(QString::fromLocal8Bit(argv[2]));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
