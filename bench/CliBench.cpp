// quillograph-cli plot against gnuplot (pngcairo) drawing the same 20 functions at 1280x800, each
// as a whole process, as a user would run them.
#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

// The same functions in both languages.
const std::vector<std::pair<std::string, std::string>> kFunctions = {
    {"y=sin(x)", "sin(x)"},           {"y=2*cos(x)", "2*cos(x)"},         {"y=x^2/10", "x**2/10"},
    {"y=exp(x/5)", "exp(x/5)"},       {"y=sqrt(x+10)", "sqrt(x+10)"},     {"y=abs(x)-5", "abs(x)-5"},
    {"y=tan(x)", "tan(x)"},           {"y=x^3/50", "x**3/50"},            {"y=1/x", "1/x"},
    {"y=sin(3*x)*3", "sin(3*x)*3"},   {"y=ln(x+11)", "log(x+11)"},        {"y=cos(x)^2*4", "cos(x)**2*4"},
    {"y=x/2+1", "x/2+1"},             {"y=-x^2/8+6", "-x**2/8+6"},        {"y=sin(x)*x/2", "sin(x)*x/2"},
    {"y=atan(x)*3", "atan(x)*3"},     {"y=exp(-x^2)*8", "exp(-x**2)*8"},  {"y=sqrt(abs(x))*2", "sqrt(abs(x))*2"},
    {"y=sinh(x/3)", "sinh(x/3)"},     {"y=cos(x*x/4)*5", "cos(x*x/4)*5"}};

void Run(benchmark::State& state, const std::string& command) {
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) {
      state.SkipWithError(("failed: " + command).c_str());
      break;
    }
  }
}

void BM_Cli_Ours(benchmark::State& state) {
  std::string command = std::string(QUILLOGRAPH_CLI) + " plot --size 1280x800";
  for (const auto& [ours, theirs] : kFunctions) command += " --line '" + ours + "'";
  Run(state, command + " /tmp/quillograph-bench.png 2>/dev/null");
}

void BM_Cli_Gnuplot(benchmark::State& state) {
  const std::string script = "/tmp/quillograph-bench.gp";
  std::ofstream out(script);
  out << "set terminal pngcairo size 1280,800\nset output '/tmp/gnuplot-bench.png'\n"
         "set xrange [-10:10]\nset yrange [-10:10]\nset samples 1280\nset grid\nplot ";
  for (size_t i = 0; i < kFunctions.size(); ++i) out << (i ? ", " : "") << kFunctions[i].second << " notitle";
  out << "\n";
  out.close();
  Run(state, std::string(GNUPLOT) + " " + script + " 2>/dev/null");
}

BENCHMARK(BM_Cli_Ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Cli_Gnuplot)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter(std::vector<RatioReporter::Pair>{{"BM_Cli_Ours/real_time", "BM_Cli_Gnuplot/real_time"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
