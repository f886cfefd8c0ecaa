#include "plot3d/GridMesher.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace plot3d;

namespace {

Mesh MeshOf(const char* text, int kind, const SurfaceRanges& ranges = {}, int steps = 50) {
  const SurfaceSource source = SurfaceSource::Compile(text, kind);
  EXPECT_TRUE(source.Ok()) << text << ": " << source.Error.toStdString();
  return MeshOnGrid(source, ranges, steps);
}

bool InBox(Vec3 p, const SurfaceRanges& r, double slack = 1e-12) {
  return p.X >= r.XMin - slack && p.X <= r.XMax + slack && p.Y >= r.YMin - slack && p.Y <= r.YMax + slack &&
         p.Z >= r.ZMin - slack && p.Z <= r.ZMax + slack;
}

// The vertices that some triangle uses.
std::vector<Vec3> Used(const Mesh& mesh) {
  std::vector<bool> used(mesh.Positions.size());
  for (const auto& t : mesh.Triangles) {
    for (const std::uint32_t v : t) used[v] = true;
  }
  std::vector<Vec3> out;
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (used[i]) out.push_back(mesh.Positions[i]);
  }
  return out;
}

}  // namespace

TEST(GridMesher, GridCountGivesTheStepsPerSide) {
  const int expected[] = {50, 50, 75, 100, 125, 150, 200, 200};
  for (int count = 0; count <= 7; ++count) EXPECT_EQ(GridSteps(count), expected[count]) << count;
}

TEST(GridMesher, AGraphOverXYHasItsVerticesOnTheSurface) {
  const SurfaceRanges box;  // [-5, 5]^3
  const Mesh mesh = MeshOf("sin(x)*cos(y)", 1, box);
  EXPECT_EQ(mesh.Triangles.size(), 2u * 50 * 50);
  EXPECT_EQ(mesh.Positions.size(), 51u * 51);
  for (const Vec3 p : Used(mesh)) EXPECT_NEAR(p.Z, std::sin(p.X) * std::cos(p.Y), 1e-12);
  EXPECT_EQ(mesh.Normals.size(), mesh.Positions.size());
  for (const Vec3 n : mesh.Normals) EXPECT_NEAR(Length(n), 1, 1e-12);
}

TEST(GridMesher, TheOtherGraphsPutTheValueOnTheirAxis) {
  for (const Vec3 p : Used(MeshOf("x+2*z", 2))) {
    if (p.Y > -5 && p.Y < 5) {
      EXPECT_NEAR(p.Y, p.X + 2 * p.Z, 1e-12);
    }
  }
  for (const Vec3 p : Used(MeshOf("y*z/5", 3))) EXPECT_NEAR(p.X, p.Y * p.Z / 5, 1e-12);
}

TEST(GridMesher, AGraphIsCutCleanlyAtTheBox) {
  SurfaceRanges box;
  box.ZMin = 0, box.ZMax = 10;
  const Mesh mesh = MeshOf("x^2+y^2", 1, box);  // rises to 50 in the corners
  ASSERT_FALSE(mesh.Empty());
  int onTheLid = 0;
  for (const Vec3 p : Used(mesh)) {
    EXPECT_TRUE(InBox(p, box)) << p.X << ", " << p.Y << ", " << p.Z;
    if (p.Z == 10) ++onTheLid;
    else EXPECT_NEAR(p.Z, p.X * p.X + p.Y * p.Y, 1e-12);
  }
  EXPECT_GT(onTheLid, 50);  // the cut runs round the circle of radius sqrt(10)
  // Above the lid nothing is left: no vertex of a kept triangle beyond it, no spike.
  for (const auto& t : mesh.Triangles) {
    for (const std::uint32_t v : t) EXPECT_LE(mesh.Positions[v].Z, 10);
  }
}

TEST(GridMesher, UndefinedPointsLeaveHolesNotWalls) {
  SurfaceRanges box;
  box.XMin = box.YMin = -2, box.XMax = box.YMax = 2;
  const Mesh mesh = MeshOf("sqrt(1-x^2-y^2)", 1, box);
  ASSERT_FALSE(mesh.Empty());
  for (const Vec3 p : Used(mesh)) {
    EXPECT_TRUE(Finite(p));
    EXPECT_LE(p.X * p.X + p.Y * p.Y, 1 + 1e-12);
  }
}

TEST(GridMesher, ASphericalSurfaceHasItsRadius) {
  const Mesh sphere = MeshOf("2", 5);
  ASSERT_FALSE(sphere.Empty());
  for (const Vec3 p : Used(sphere)) EXPECT_NEAR(Length(p), 2, 1e-12);
  // r = 1 + cos(phi): the distance is the function of the angle from the z axis.
  for (const Vec3 p : Used(MeshOf("1+cos(phi)", 5))) {
    const double r = Length(p);
    if (r > 1e-9) {
      EXPECT_NEAR(r, 1 + p.Z / r, 1e-9);
    }
  }
}

TEST(GridMesher, AParametricSurfaceMapsUAndV) {
  SurfaceRanges ranges;
  ranges.UMin = 0, ranges.UMax = 2, ranges.VMin = -1, ranges.VMax = 3;
  const Mesh plane = MeshOf("u:v:u+v", 6, ranges, 10);
  ASSERT_EQ(plane.Positions.size(), 121u);
  for (const Vec3 p : plane.Positions) {
    EXPECT_NEAR(p.Z, p.X + p.Y, 1e-12);
    EXPECT_TRUE(p.X >= 0 && p.X <= 2 && p.Y >= -1 && p.Y <= 3) << p.X << ", " << p.Y;
  }
  // The plane's normals are all (-1, -1, 1)/sqrt(3), or its opposite.
  for (const Vec3 n : plane.Normals) EXPECT_NEAR(std::abs(Dot(n, Vec3{-1, -1, 1})), std::sqrt(3.0), 1e-12);
}

TEST(GridMesher, BadOrImplicitSourcesGiveNoGridMesh) {
  EXPECT_TRUE(MeshOnGrid(SurfaceSource::Compile("sin(", 1), {}, 50).Empty());
  EXPECT_TRUE(MeshOnGrid(SurfaceSource::Compile("x^2+y^2+z^2=1", 4), {}, 50).Empty());
  EXPECT_TRUE(MeshOnGrid(SurfaceSource::Compile("x", 1), {}, 0).Empty());
  SurfaceRanges empty;
  empty.ZMin = 100, empty.ZMax = 200;
  const SurfaceSource low = SurfaceSource::Compile("x+y", 1);
  EXPECT_TRUE(MeshOnGrid(low, empty, 50).Empty());  // wholly below the box
}

TEST(GridMesher, AMeshUsedAgainIsTheSameAsANewOne) {
  const SurfaceSource wave = SurfaceSource::Compile("sin(x)*cos(y)", 1);
  Mesh kept = MeshOf("x^2+y^2", 1);  // something else first, with clipped vertices
  MeshOnGrid(wave, {}, 40, kept);
  const Mesh fresh = MeshOnGrid(wave, {}, 40);
  EXPECT_EQ(kept.Positions, fresh.Positions);
  EXPECT_EQ(kept.Triangles, fresh.Triangles);
  MeshOnGrid(SurfaceSource::Compile("sin(", 1), {}, 40, kept);
  EXPECT_TRUE(kept.Empty());
  EXPECT_TRUE(kept.Positions.empty());
}
