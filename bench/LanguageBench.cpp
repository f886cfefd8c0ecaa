// The line language's block evaluation against muparser (one point at a time, and its bulk mode
// over whole arrays) and against the same expressions written as plain C++ loops, in the same run.
#include "RatioReporter.h"

#include "mathlang/BlockProgram.h"
#include "mathlang/LineParser.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

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
  const mathlang::ParsedLine line = mathlang::ParseExpression(e.Ours);
  const mathlang::BlockProgram program(line.Tree, line.Right);
  const std::vector<double> xs = Xs();
  std::vector<double> out(kPoints);
  mathlang::BlockProgram::Inputs inputs{};
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

// muparser's own evaluation of whole arrays: the variable is defined over the array and one call
// fills all results.
void BM_Block_MuparserBulk(benchmark::State& state) {
  const Expression& e = kExpressions[state.range(0)];
  std::vector<double> xs = Xs();
  mu::Parser parser;
  parser.DefineVar("x", xs.data());
  parser.SetExpr(e.Muparser);
  std::vector<double> out(kPoints);
  for (auto _ : state) {
    parser.Eval(out.data(), static_cast<int>(kPoints));
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
BENCHMARK(BM_Block_MuparserBulk)->DenseRange(0, 4);
BENCHMARK(BM_Block_Cpp)->DenseRange(0, 4);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  std::vector<RatioReporter::Pair> pairs;
  for (int k = 0; k < 5; ++k) {
    const std::string n = "/" + std::to_string(k);
    pairs.push_back({"BM_Block_Ours" + n, "BM_Block_Muparser" + n});
    pairs.push_back({"BM_Block_Ours" + n, "BM_Block_MuparserBulk" + n});
    pairs.push_back({"BM_Block_Ours" + n, "BM_Block_Cpp" + n});
  }
  RatioReporter reporter(pairs);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
