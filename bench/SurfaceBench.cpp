// Surface meshing: a 200x200 grid of z = sin(x)*cos(y), the finest GridCount, and the plane's
// own C++ loop over the same grid as the floor to compare with.
#include "RatioReporter.h"

#include "plot3d/GridMesher.h"
#include "plot3d/IsoMesher.h"
#include "plot3d/SurfaceRenderer.h"

#include <QGuiApplication>
#include <QPainter>

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

// The heart on a grid of 100 cells per side, in the box that holds it.
void BM_Surface_Heart100(benchmark::State& state) {
  const auto source = plot3d::SurfaceSource::Compile("(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 4);
  plot3d::SurfaceRanges box;
  box.XMin = box.YMin = box.ZMin = -1.5, box.XMax = box.YMax = box.ZMax = 1.5;
  plot3d::Mesh mesh;
  for (auto _ : state) {
    plot3d::MeshImplicit(source, box, 100, mesh);
    benchmark::DoNotOptimize(mesh.Triangles.data());
  }
}
BENCHMARK(BM_Surface_Heart100)->Unit(benchmark::kMillisecond);

// The heart's values on the same grid in plain C++ on one core: what the grid's evaluation alone
// costs, the floor for the mesh above.
void BM_Surface_HeartValuesCpp100(benchmark::State& state) {
  std::vector<double> f(101 * 101 * 101);
  for (auto _ : state) {
    std::size_t n = 0;
    for (int k = 0; k <= 100; ++k) {
      const double z = -1.5 + k * 0.03;
      for (int j = 0; j <= 100; ++j) {
        const double y = -1.5 + j * 0.03;
        for (int i = 0; i <= 100; ++i) {
          const double x = -1.5 + i * 0.03, a = x * x + 9.0 / 4 * y * y + z * z - 1;
          f[n++] = a * a * a - x * x * z * z * z - 9.0 / 80 * y * y * z * z * z;
        }
      }
    }
    benchmark::DoNotOptimize(f.data());
  }
}
BENCHMARK(BM_Surface_HeartValuesCpp100)->Unit(benchmark::kMillisecond);

// The 200x200 mesh drawn at 1920x1080: our rasteriser, and QPainter filling the same triangles
// in the same order with flat colours (no depth test, no shading): the peer for the fill alone.
void BM_Surface_Render200(benchmark::State& state) {
  const plot3d::Mesh mesh = plot3d::MeshOnGrid(plot3d::SurfaceSource::Compile("sin(x)*cos(y)", 1), {}, 200);
  QImage image(1920, 1080, QImage::Format_RGB32);
  plot3d::SurfaceRenderer renderer;
  for (auto _ : state) renderer.Render(mesh, {}, plot3d::Camera{}, image);
}
BENCHMARK(BM_Surface_Render200)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Surface_QPainter200(benchmark::State& state) {
  const plot3d::Mesh mesh = plot3d::MeshOnGrid(plot3d::SurfaceSource::Compile("sin(x)*cos(y)", 1), {}, 200);
  QImage image(1920, 1080, QImage::Format_RGB32);
  const plot3d::Camera camera;
  std::vector<QPointF> points;
  for (const plot3d::Vec3& p : mesh.Positions) {
    const auto s = camera.Project(p, {}, image.size());
    points.emplace_back(s.X, s.Y);
  }
  for (auto _ : state) {
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::NoPen);
    for (const auto& t : mesh.Triangles) {
      painter.setBrush(QColor(plot3d::SurfaceRenderer::HeightColor(mesh.Positions[t[0]].Z / 2 + 0.5)));
      const QPointF triangle[] = {points[t[0]], points[t[1]], points[t[2]]};
      painter.drawPolygon(triangle, 3);
    }
  }
}
BENCHMARK(BM_Surface_QPainter200)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter({{"BM_Surface_Render200/real_time", "BM_Surface_QPainter200/real_time"},
                          {"BM_Surface_Mesh200", "BM_Surface_ValuesCpp200"},
                          {"BM_Surface_Heart100", "BM_Surface_HeartValuesCpp100"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
