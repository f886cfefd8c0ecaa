// The script engine against muparser, measured in the same run: a cached text evaluated again
// (what every replot does), and a text seen for the first time (parse and evaluate).
#include "RatioReporter.h"

#include "script/ScriptControl.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <QString>

#include <string>
#include <vector>

namespace {

// Eleven tokens: 2 * x ^ 2 + 3 * x - 1 / x.
const char* const kText = "2*x^2+3*x-1/x";

std::vector<std::string> DistinctTexts(size_t count) {
  std::vector<std::string> texts;
  texts.reserve(count);
  for (size_t i = 0; i < count; ++i) texts.push_back("2*x^2+3*x-" + std::to_string(i + 1) + "/x");
  return texts;
}

void BM_EvalCached_Ours(benchmark::State& state) {
  script::ScriptControl engine;
  engine.SetLanguage("vbscript");
  engine.ExecuteStatement("x=1.5");
  const QString text = QString::fromLatin1(kText);
  for (auto _ : state) benchmark::DoNotOptimize(engine.Eval(text));
}
BENCHMARK(BM_EvalCached_Ours);

void BM_EvalCached_Muparser(benchmark::State& state) {
  double x = 1.5;
  mu::Parser parser;
  parser.DefineVar("x", &x);
  parser.SetExpr(kText);
  for (auto _ : state) benchmark::DoNotOptimize(parser.Eval());
}
BENCHMARK(BM_EvalCached_Muparser);

void BM_EvalFirst_Ours(benchmark::State& state) {
  script::ScriptControl engine;
  engine.SetLanguage("vbscript");
  engine.ExecuteStatement("x=1.5");
  const auto raw = DistinctTexts(100000);
  std::vector<QString> texts;
  for (const auto& t : raw) texts.push_back(QString::fromStdString(t));
  size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(engine.Eval(texts[i]));
    if (++i == texts.size()) i = 0;
  }
}
BENCHMARK(BM_EvalFirst_Ours);

void BM_EvalFirst_Muparser(benchmark::State& state) {
  double x = 1.5;
  mu::Parser parser;
  parser.DefineVar("x", &x);
  const auto texts = DistinctTexts(100000);
  size_t i = 0;
  for (auto _ : state) {
    parser.SetExpr(texts[i]);
    benchmark::DoNotOptimize(parser.Eval());
    if (++i == texts.size()) i = 0;
  }
}
BENCHMARK(BM_EvalFirst_Muparser);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter({{"BM_EvalCached_Ours", "BM_EvalCached_Muparser"},
                          {"BM_EvalFirst_Ours", "BM_EvalFirst_Muparser"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
