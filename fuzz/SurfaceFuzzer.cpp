#include "FuzzInput.h"

#include "plot3d/GridMesher.h"

// A surface text of every kind: compiled, and where it compiles, meshed on a small grid.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  for (int kind = 0; kind <= 7; ++kind) {
    const plot3d::SurfaceSource source = plot3d::SurfaceSource::Compile(text, kind);
    if (source.Ok() && size < 300) plot3d::MeshOnGrid(source, {}, 8);
  }
  return 0;
}
