// The text pipeline that every replot runs for every row: normalising (points, bounds), compiling
// rows to function lines, and compiling typed restrictions.
#include "expression/ExpressionNormaliser.h"
#include "expression/SymbolFolding.h"
#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"

#include <benchmark/benchmark.h>

namespace {

const core::SharedState& State() {
  static const core::SharedState state = [] {
    core::SharedState s;
    core::InitTables(s);
    return s;
  }();
  return state;
}

const QString kTypical = QStringLiteral("y=3x^2+2sin(x)cos(x)-sqrt(x+1)/(x-2)");
const QString kRestricted = QStringLiteral("declare(y=a..symb*x,domain(x,0,q..symb,3) and domain(y,0,1,1))");

void BM_NormaliseExpression(benchmark::State& s) {
  for (auto _ : s) benchmark::DoNotOptimize(expression::NormaliseExpression(State().FunctionTokens, kTypical));
}
BENCHMARK(BM_NormaliseExpression);

void BM_ReplaceSymbol(benchmark::State& s) {
  for (auto _ : s) {
    benchmark::DoNotOptimize(expression::ReplaceSymbol(State().FunctionTokens, kTypical, "x", "2.5"));
  }
}
BENCHMARK(BM_ReplaceSymbol);

void BM_CompileEquationPlain(benchmark::State& s) {
  for (auto _ : s) benchmark::DoNotOptimize(plotcompiler::CompileEquation(kTypical, false));
}
BENCHMARK(BM_CompileEquationPlain);

void BM_CompileEquationRestricted(benchmark::State& s) {
  for (auto _ : s) benchmark::DoNotOptimize(plotcompiler::CompileEquation(kRestricted, false));
}
BENCHMARK(BM_CompileEquationRestricted);

void BM_CompileInequalityRow(benchmark::State& s) {
  const QString typed = QStringLiteral("y=3*x^2;0<=x<3;-1<y<=4");
  for (auto _ : s) benchmark::DoNotOptimize(plotcompiler::CompileInequalityRow(typed));
}
BENCHMARK(BM_CompileInequalityRow);

// A long row: the pipeline stays linear in the length of the text.
void BM_NormaliseLongText(benchmark::State& s) {
  const QString text = QStringLiteral("2x+sin(x)*").repeated(static_cast<qsizetype>(s.range(0)));
  for (auto _ : s) benchmark::DoNotOptimize(expression::NormaliseExpression(State().FunctionTokens, text));
  s.SetComplexityN(s.range(0));
}
BENCHMARK(BM_NormaliseLongText)->RangeMultiplier(10)->Range(10, 10000)->Complexity();

}  // namespace
