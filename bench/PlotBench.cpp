// The plot engine's evaluation and drawing, against muparser (one point at a time) and against
// the same expressions written as plain C++ loops, in the same run.
#include "RatioReporter.h"

#include "plot2d/BlockProgram.h"
#include "plot2d/LineParser.h"
#include "plot2d/Plot.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <vector>

namespace {

constexpr size_t kPoints = 4096;

std::vector<double> Xs() {
  std::vector<double> xs(kPoints);
  for (size_t i = 0; i < kPoints; ++i) xs[i] = -10 + 20.0 * (static_cast<double>(i) + 0.5) / kPoints;
  return xs;
}

struct Expression {
  const char* Ours;
  const char* Muparser;
  double (*Cpp)(double);
};

const Expression kExpressions[] = {
    {"sin(x)*exp(-x/5)", "sin(x)*exp(-x/5)", [](double x) { return std::sin(x) * std::exp(-x / 5); }},
    {"(x^2/sin(2*pi/x))-x/2", "(x^2/sin(2*_pi/x))-x/2", [](double x) { return (x * x / std::sin(2 * M_PI / x)) - x / 2; }},
    {"sqrt(x^2+1)/(1+abs(x))", "sqrt(x^2+1)/(1+abs(x))", [](double x) { return std::sqrt(x * x + 1) / (1 + std::abs(x)); }},
    {"x^3-2*x+1", "x^3-2*x+1", [](double x) { return x * x * x - 2 * x + 1; }},
    {"tan(x)", "tan(x)", [](double x) { return std::tan(x); }},
};

void BM_Block_Ours(benchmark::State& state) {
  const Expression& e = kExpressions[state.range(0)];
  const plot2d::ParsedLine line = plot2d::ParseExpression(e.Ours);
  const plot2d::BlockProgram program(line.Tree, line.Right);
  const std::vector<double> xs = Xs();
  std::vector<double> out(kPoints);
  plot2d::BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  for (auto _ : state) {
    program.Evaluate(inputs, kPoints, out.data());
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kPoints));
}

void BM_Block_Muparser(benchmark::State& state) {
  const Expression& e = kExpressions[state.range(0)];
  double x = 0;
  mu::Parser parser;
  parser.DefineVar("x", &x);
  parser.SetExpr(e.Muparser);
  const std::vector<double> xs = Xs();
  std::vector<double> out(kPoints);
  for (auto _ : state) {
    for (size_t i = 0; i < kPoints; ++i) {
      x = xs[i];
      out[i] = parser.Eval();
    }
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kPoints));
}

void BM_Block_Cpp(benchmark::State& state) {
  const Expression& e = kExpressions[state.range(0)];
  const std::vector<double> xs = Xs();
  std::vector<double> out(kPoints);
  for (auto _ : state) {
    for (size_t i = 0; i < kPoints; ++i) out[i] = e.Cpp(xs[i]);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kPoints));
}

BENCHMARK(BM_Block_Ours)->DenseRange(0, 4);
BENCHMARK(BM_Block_Muparser)->DenseRange(0, 4);
BENCHMARK(BM_Block_Cpp)->DenseRange(0, 4);

// The heavy scene: 100 explicit curves, 10 implicit, 5 polar and 2 inequalities at 1920x1080.
void Fill(plot2d::Plot& plot) {
  const char* templates[] = {"y=sin(x*%1)*%2+%3", "y=%1*x^2/10+%2-%3", "y=tan(x+%1)+%2*0+%3*0", "y=sqrt(x+%1)*%2+%3",
                             "y=exp(x/%1)-%2+%3", "y=1/(x-%3)+%1*0+%2*0", "y=abs(x-%3)-%2+%1*0", "y=fix(x/%1)+%3+%2*0",
                             "y=x^3/%1/20-x+%3+%2*0", "y=cos(%1*x)*exp(-abs(x)/%2)+%3"};
  std::int32_t kind = 0;
  for (int k = 0; k < 100; ++k) {
    const QString line = QString(templates[k % 10]).arg(1 + k % 7).arg(1 + k % 3).arg(k % 9 - 4);
    plot.AddFunction(static_cast<std::int16_t>(k + 1), line, 255 + k * 1000, false, kind, false, false, false, 0);
  }
  const char* implicit[] = {"x^2+y^2=%1", "x^2-y^2=%1", "sin(x)=cos(y)+%1/10", "x*y=%1", "(x^2+y^2-%1)^3=x^2*y^3",
                            "x^2/%1+y^2/4=1", "y^2=x^3-%1*x", "sin(x*y)=%1/10", "abs(x)+abs(y)=%1", "x^4+y^4=%1"};
  for (int k = 0; k < 10; ++k) {
    plot.AddFunction(static_cast<std::int16_t>(101 + k), QString(implicit[k]).arg(k + 1), 16711680, false, kind, false, false, false, 0);
  }
  const char* polar[] = {"r=theta/2", "r=2*sin(3*theta)", "r=4*cos(2*theta)", "r=1+cos(theta)*3", "r=theta;0<theta<20"};
  for (int k = 0; k < 5; ++k) plot.AddFunction(static_cast<std::int16_t>(111 + k), polar[k], 32768, false, kind, false, false, false, 0);
  plot.AddInequality("y<x^2-3", 128, 16776960, false, QString());
  plot.AddInequality("y>sin(x)*4", 128, 65535, true, "y<6");
}

void Scene(benchmark::State& state, double quality) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  plot.SetQuality(quality);
  plot.SetThickness(2);
  Fill(plot);
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

// The two halves of the heavy scene at quality 100: sampling, and painting what was sampled.
void BM_Scene_SampleOnly(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  Fill(plot);
  for (auto _ : state) plot.Redraw();
}
void BM_Scene_PaintOnly(benchmark::State& state) {
  plot2d::Plot plot;
  plot.SetSize(QSize(1920, 1080));
  Fill(plot);
  plot.Redraw();
  QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    plot.Paint(painter);
  }
}
BENCHMARK(BM_Scene_SampleOnly)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Scene_PaintOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  std::vector<RatioReporter::Pair> pairs;
  for (int k = 0; k < 5; ++k) {
    const std::string n = "/" + std::to_string(k);
    pairs.push_back({"BM_Block_Ours" + n, "BM_Block_Muparser" + n});
    pairs.push_back({"BM_Block_Ours" + n, "BM_Block_Cpp" + n});
  }
  RatioReporter reporter(pairs);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
