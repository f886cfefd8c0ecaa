// Surface meshing: a 200x200 grid of z = sin(x)*cos(y), the finest GridCount, and the plane's
// own C++ loop over the same grid as the floor to compare with.
#include "plot3d/GridMesher.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

void BM_Surface_Mesh200(benchmark::State& state) {
  const plot3d::SurfaceSource source = plot3d::SurfaceSource::Compile("sin(x)*cos(y)", 1);
  for (auto _ : state) benchmark::DoNotOptimize(plot3d::MeshOnGrid(source, {}, 200));
}
BENCHMARK(BM_Surface_Mesh200)->Unit(benchmark::kMillisecond);

// As a redraw does it: into the mesh kept from the last one.
void BM_Surface_Remesh200(benchmark::State& state) {
  const plot3d::SurfaceSource source = plot3d::SurfaceSource::Compile("sin(x)*cos(y)", 1);
  plot3d::Mesh mesh;
  for (auto _ : state) {
    plot3d::MeshOnGrid(source, {}, 200, mesh);
    benchmark::DoNotOptimize(mesh.Triangles.data());
  }
}
BENCHMARK(BM_Surface_Remesh200)->Unit(benchmark::kMillisecond);

// The values alone, in plain C++: what the evaluation part of the mesh costs at best.
void BM_Surface_ValuesCpp200(benchmark::State& state) {
  std::vector<double> z(201 * 201);
  for (auto _ : state) {
    for (int j = 0; j <= 200; ++j) {
      for (int i = 0; i <= 200; ++i) z[static_cast<std::size_t>(j * 201 + i)] = std::sin(-5 + i / 20.0) * std::cos(-5 + j / 20.0);
    }
    benchmark::DoNotOptimize(z.data());
  }
}
BENCHMARK(BM_Surface_ValuesCpp200)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
