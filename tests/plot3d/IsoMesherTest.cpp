#include "plot3d/IsoMesher.h"
#include "plot3d/SurfaceRenderer.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace plot3d;

namespace {

Mesh Implicit(const char* text, int cells = 50, const SurfaceRanges& box = {}) {
  const SurfaceSource source = SurfaceSource::Compile(text, 4);
  EXPECT_TRUE(source.Ok()) << text << ": " << source.Error.toStdString();
  return MeshImplicit(source, box, cells);
}

}  // namespace

TEST(IsoMesher, ASphereIsRoundWithOutwardNormals) {
  const Mesh sphere = Implicit("x^2+y^2+z^2=4");
  ASSERT_GT(sphere.Triangles.size(), 1000u);
  ASSERT_EQ(sphere.Normals.size(), sphere.Positions.size());
  for (std::size_t n = 0; n < sphere.Positions.size(); ++n) {
    const Vec3 p = sphere.Positions[n];
    // Cells of 0.2 and linear interpolation: within a few thousandths of the radius.
    EXPECT_NEAR(Length(p), 2, 0.01);
    EXPECT_GT(Dot(sphere.Normals[n], Normalized(p)), 0.99);  // the gradient points outwards
  }
}

TEST(IsoMesher, AFinerGridIsCloser) {
  double worst50 = 0, worst100 = 0;
  for (const Vec3 p : Implicit("x^2+y^2+z^2=4", 50).Positions) worst50 = std::max(worst50, std::abs(Length(p) - 2));
  for (const Vec3 p : Implicit("x^2+y^2+z^2=4", 100).Positions) worst100 = std::max(worst100, std::abs(Length(p) - 2));
  EXPECT_LT(worst100, worst50 / 2);
}

TEST(IsoMesher, TheHeartHasASurfaceInsideTheBox) {
  SurfaceRanges box;
  box.XMin = box.YMin = box.ZMin = -1.5, box.XMax = box.YMax = box.ZMax = 1.5;
  const Mesh heart = Implicit("(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 60, box);
  ASSERT_GT(heart.Triangles.size(), 1000u);
  for (const Vec3 p : heart.Positions) {
    ASSERT_TRUE(Finite(p));
    EXPECT_TRUE(std::abs(p.X) <= 1.5 && std::abs(p.Y) <= 1.5 && std::abs(p.Z) <= 1.5);
  }
  QImage image(400, 400, QImage::Format_RGB32);
  SurfaceRenderer renderer;
  renderer.Render(heart, box, Camera{}, image);
  if (qEnvironmentVariableIsSet("QUILLOGRAPH_SAVE_PICTURES")) image.save("/tmp/heart.png");
}

TEST(IsoMesher, UndefinedRegionsAndMissesGiveNothingThere) {
  EXPECT_TRUE(Implicit("x^2+y^2+z^2=-1").Empty());  // no real points
  EXPECT_TRUE(Implicit("sqrt(-1-x^2)=z").Empty());   // undefined everywhere
  // Defined only for x > 0: the plane z = 0 is there and nowhere else.
  for (const Vec3 p : Implicit("z=sqrt(x)*0").Positions) EXPECT_GE(p.X, -1e-12);
}

TEST(IsoMesher, OnlyImplicitSourcesAndSensibleBoxes) {
  EXPECT_TRUE(MeshImplicit(SurfaceSource::Compile("x+y", 1), {}, 20).Empty());
  SurfaceRanges flat;
  flat.ZMin = flat.ZMax = 0;
  EXPECT_TRUE(MeshImplicit(SurfaceSource::Compile("x^2+y^2+z^2=4", 4), flat, 20).Empty());
  EXPECT_TRUE(MeshImplicit(SurfaceSource::Compile("x^2+y^2+z^2=4", 4), {}, 0).Empty());
}
