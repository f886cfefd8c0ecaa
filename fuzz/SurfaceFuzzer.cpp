#include "FuzzInput.h"

#include "plot3d/GridMesher.h"
#include "plot3d/IsoMesher.h"

// A surface text of every kind: compiled, and where it compiles, meshed on a small grid (an
// implicit one with its points searched for along the grid's edges).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  for (int kind = 0; kind <= 7; ++kind) {
    const plot3d::SurfaceSource source = plot3d::SurfaceSource::Compile(text, kind);
    if (!source.Ok() || size >= 300) continue;
    if (source.Kind == plot3d::SurfaceKind::Implicit) plot3d::MeshImplicit(source, {}, 6);
    else plot3d::MeshOnGrid(source, {}, 8);
  }
  return 0;
}
