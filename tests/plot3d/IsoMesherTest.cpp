#include "plot3d/IsoMesher.h"
#include "plot3d/SurfaceRenderer.h"

#include "ReferenceIsoMesher.h"

#include <gtest/gtest.h>

#include <algorithm>

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
    EXPECT_NEAR(Length(p), 2, 1e-4);  // a straight line between the values: 2e-3
    EXPECT_GT(Dot(sphere.Normals[n], Normalized(p)), 0.99);  // outwards, up to the faces' mean
  }
}

TEST(IsoMesher, PointsLieOnTheSurfaceAtEveryGrid) {
  // Refined along their grid edges, not where a straight line between the values would put them.
  for (const int cells : {20, 50, 100}) {
    double worst = 0;
    for (const Vec3 p : Implicit("x^2+y^2+z^2=4", cells).Positions) worst = std::max(worst, std::abs(Length(p) - 2));
    EXPECT_LT(worst, 1e-4) << cells;
  }
  // A function that is a cube near its surface, where the straight line is off by a tenth.
  for (const Vec3 p : Implicit("(x^2+y^2+z^2-4)^3=0", 40).Positions) EXPECT_NEAR(Length(p), 2, 5e-3);
}

TEST(IsoMesher, TrianglesShareTheirPoints) {
  const Mesh sphere = Implicit("x^2+y^2+z^2=4", 40);
  // On a closed surface each point belongs to about six triangles.
  EXPECT_LT(sphere.Positions.size() * 3, sphere.Triangles.size() * 2);
  std::vector<int> uses(sphere.Positions.size(), 0);
  for (const auto& t : sphere.Triangles)
    for (const std::uint32_t v : t) ++uses[v];
  EXPECT_EQ(*std::min_element(uses.begin(), uses.end()) > 0, true);
}

TEST(IsoMesher, MeshLinesAreWhereTheSurfaceCrossesTheGridPlanes) {
  const Mesh sphere = Implicit("x^2+y^2+z^2=4", 40);
  ASSERT_FALSE(sphere.Lines.empty());
  for (const auto& [a, b] : sphere.Lines) {
    const Vec3 p = sphere.Positions[a], q = sphere.Positions[b];
    EXPECT_TRUE(p.X == q.X || p.Y == q.Y || p.Z == q.Z);
  }
  // Far fewer than the triangles' edges, and each once.
  EXPECT_LT(sphere.Lines.size(), sphere.Triangles.size());
  auto lines = sphere.Lines;
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ(std::adjacent_find(lines.begin(), lines.end()), lines.end());
}

TEST(IsoMesher, TheHeartIsSmoothWhereItsGradientVanishes) {
  // On the heart's surface the gradient vanishes where it meets z = 0; the normals must not.
  SurfaceRanges box;
  box.XMin = box.YMin = box.ZMin = -1.5, box.XMax = box.YMax = box.ZMax = 1.5;
  const Mesh heart = Implicit("(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 80, box);
  std::size_t rough = 0;
  for (const auto& t : heart.Triangles) {
    const Vec3 a = heart.Normals[t[0]], b = heart.Normals[t[1]], c = heart.Normals[t[2]];
    if (std::min({Dot(a, b), Dot(b, c), Dot(a, c)}) < 0.87) ++rough;  // more than 30 degrees apart
  }
  EXPECT_LT(rough, heart.Triangles.size() / 200);
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

// The mesher evaluates the grid in blocks, skips the cubes far from the surface and searches the
// edges in chunks on all cores: the mesh must be the one of the plain way, point for point.
TEST(IsoMesher, TheMeshIsThePlainWaysMesh) {
  struct Case {
    const char* text;
    int cells;
    double half;  // the box from -half to half on each axis
  };
  const Case cases[] = {{"(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 60, 1.5},
                        {"(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 23, 1.5},
                        {"x^2+y^2+z^2=4", 37, 5},
                        {"x^2+y^2-z^2=1", 50, 5},  // open, cut by the box's sides
                        {"sqrt(x)+y^2+z^2=4", 41, 5},  // undefined for x < 0: a hole
                        {"sin(x)*y+ln(z)=1", 44, 5},
                        {"(x^2+y^2+z^2-4)^3=0", 30, 5}};
  for (const Case& c : cases) {
    SurfaceRanges box;
    box.XMin = box.YMin = box.ZMin = -c.half, box.XMax = box.YMax = box.ZMax = c.half;
    box.ZMax = c.half * 1.1;  // not a cube, so that the axes' steps differ
    const SurfaceSource source = SurfaceSource::Compile(c.text, 4);
    const Mesh plain = reference::MeshImplicit(source, box, c.cells);
    Mesh fast;
    MeshImplicit(source, box, c.cells + 5, fast);  // the memory of another mesh, used again
    MeshImplicit(source, box, c.cells, fast);
    ASSERT_GT(plain.Triangles.size(), 100u) << c.text;
    ASSERT_EQ(fast.Positions.size(), plain.Positions.size()) << c.text;
    ASSERT_EQ(fast.Normals.size(), plain.Normals.size()) << c.text;
    EXPECT_EQ(fast.Triangles, plain.Triangles) << c.text;
    EXPECT_EQ(fast.Lines, plain.Lines) << c.text;
    double worst = 0, worstNormal = 0;
    for (std::size_t i = 0; i < plain.Positions.size(); ++i) {
      worst = std::max(worst, Length(fast.Positions[i] - plain.Positions[i]));
      worstNormal = std::max(worstNormal, Length(fast.Normals[i] - plain.Normals[i]));
    }
    EXPECT_LE(worst, 1e-12) << c.text;
    EXPECT_LE(worstNormal, 1e-9) << c.text;
  }
}
