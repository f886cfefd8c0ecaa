// What the exact special points cost: every curve's roots, turns, intercepts, crossings and
// corners, each made exact, found at once over a drawing (as quillograph-cli points lists them).
// Over the 109 mixed rows of a class's project, replotted as the program does at 1280x800 and
// quality 90; and over the heavy scene at 1920x1080. The program itself finds one curve's points
// as the pointer reaches it, so this is the most a replot could add.
#include "../tests/plotcompiler/ReplotSupport.h"

#include "HeavyScene.h"

#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

namespace {

// The rows of the 109-row project of AppBench.
QStringList MixedRows() {
  const QStringList kinds = {
      "y=sin(x)*%1", "x^2+y^2=%1", "r=2+%1cos(q..symb)", "declare(y=x^2/%1,domain(x,-2,3,1))",
      "[x,y;1,%1;2,3;-1,-%1;4,pi/2]", "y=%1x+1", "x=y^2/%1", "command==>[showgrid]", "y=e^(-x^2/%1)",
      "x*y=%1", "y=declare(sqrt(x)+%1,x>1)", "y=abs(x-%1)"};
  QStringList rows = {"a=2", "b=0.5"};
  for (int i = 0; rows.size() < 109; ++i) rows << kinds[i % kinds.size()].arg(i % 5 + 1);
  return rows;
}

void Measure(benchmark::State& state, const plot2d::Plot& plot) {
  std::size_t points = 0;
  for (auto _ : state) points = plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View()).size();
  state.counters["curves"] = static_cast<double>(plot.LastDrawing().Curves.size());
  state.counters["points"] = static_cast<double>(points);
}

void BM_Project109_AllNotablePoints(benchmark::State& state) {
  ReplotFixture f;
  f.host.SetTexts(MixedRows());
  plot2d::Plot scene;
  scene.SetSize(QSize(1280, 800));
  scene.SetQuality(90);
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(scene, nullptr);
  f.driver.Replot(plot);
  Measure(state, scene);
}
BENCHMARK(BM_Project109_AllNotablePoints)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same search with the curves' functions taken away, so that every point stays as the
// picture shows it: the difference to the above is what making the points exact costs.
void BM_Project109_PointsOnThePictureAlone(benchmark::State& state) {
  ReplotFixture f;
  f.host.SetTexts(MixedRows());
  plot2d::Plot scene;
  scene.SetSize(QSize(1280, 800));
  scene.SetQuality(90);
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(scene, nullptr);
  f.driver.Replot(plot);
  plot2d::Drawing picture = scene.LastDrawing();
  for (plot2d::Drawing::Curve& curve : picture.Curves) curve.Explicit = {}, curve.Zero = {}, curve.PointAt = {};
  const plot2d::ViewTransform view = scene.View();
  std::size_t points = 0;
  for (auto _ : state) points = plot2d::FindAllNotablePoints(picture, view).size();
  state.counters["points"] = static_cast<double>(points);
}
BENCHMARK(BM_Project109_PointsOnThePictureAlone)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_HeavyScene_AllNotablePoints(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  FillHeavyScene(plot);
  plot.Redraw();
  Measure(state, plot);
}
BENCHMARK(BM_HeavyScene_AllNotablePoints)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
