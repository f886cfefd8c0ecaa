#include "plot3d/IsoMesher.h"
#include "plot3d/SurfaceRenderer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>

using namespace plot3d;

namespace {

Camera FromAbove() {
  Camera camera;
  camera.Azimuth = 0;
  camera.Elevation = std::numbers::pi / 2;
  return camera;
}

// A square of the box's full width at height z, as two triangles.
void AddSquare(Mesh& mesh, double z) {
  const auto first = static_cast<std::uint32_t>(mesh.Positions.size());
  for (const auto& [x, y] : {std::pair{-5.0, -5.0}, std::pair{5.0, -5.0}, std::pair{5.0, 5.0}, std::pair{-5.0, 5.0}}) {
    mesh.Positions.push_back({x, y, z});
  }
  mesh.Triangles.push_back({first, first + 1, first + 2});
  mesh.Triangles.push_back({first, first + 2, first + 3});
}

bool White(const QImage& image, int x, int y) { return image.pixel(x, y) == qRgb(255, 255, 255); }

}  // namespace

TEST(SurfaceRenderer, APlaneSeenFromAboveFillsItsSquare) {
  Mesh mesh;
  AddSquare(mesh, 0);
  mesh.ComputeNormals();
  QImage image(300, 300, QImage::Format_RGB32);
  SurfaceRenderer renderer;
  renderer.Render(mesh, SurfaceRanges{}, FromAbove(), image, {Qt::white, false, false});
  // The cube's diagonal spans 300 pixels: its side, 300/sqrt(3) = 173, is centred.
  const int half = static_cast<int>(300 / std::sqrt(3.0) / 2);
  EXPECT_FALSE(White(image, 150, 150));
  EXPECT_FALSE(White(image, 150 - half + 3, 150 - half + 3));
  EXPECT_FALSE(White(image, 150 + half - 3, 150 + half - 3));
  EXPECT_TRUE(White(image, 150 - half - 3, 150));
  EXPECT_TRUE(White(image, 150, 150 + half + 3));
  EXPECT_TRUE(White(image, 5, 5));
  // Lit straight on, the colour of the middle height: hue 120, green.
  const QColor middle(image.pixel(150, 150));
  EXPECT_GT(middle.green(), middle.red());
  EXPECT_GT(middle.green(), middle.blue());
}

TEST(SurfaceRenderer, TheNearerSurfaceHidesTheFarther) {
  for (const bool upperFirst : {true, false}) {
    Mesh mesh;
    AddSquare(mesh, upperFirst ? 4 : -4);
    AddSquare(mesh, upperFirst ? -4 : 4);
    mesh.ComputeNormals();
    QImage image(200, 200, QImage::Format_RGB32);
    SurfaceRenderer renderer;
    renderer.Render(mesh, SurfaceRanges{}, FromAbove(), image, {Qt::white, false, false});
    // From above the upper square shows: red-ish, the top of the colour scale.
    const QColor seen(image.pixel(100, 100));
    EXPECT_GT(seen.red(), seen.blue()) << upperFirst;
  }
}

TEST(SurfaceRenderer, TheColourScaleRunsFromBlueToRed) {
  EXPECT_EQ(QColor(SurfaceRenderer::HeightColor(0)).hue(), 240);
  EXPECT_EQ(QColor(SurfaceRenderer::HeightColor(1)).hue(), 0);
  EXPECT_EQ(QColor(SurfaceRenderer::HeightColor(0.5)).hue(), 120);
  EXPECT_EQ(SurfaceRenderer::HeightColor(-3), SurfaceRenderer::HeightColor(0));
  EXPECT_EQ(SurfaceRenderer::HeightColor(NAN), SurfaceRenderer::HeightColor(0.5));
}

TEST(SurfaceRenderer, AnEmptyMeshLeavesTheBackgroundAndTheBox) {
  QImage image(120, 80, QImage::Format_RGB32);
  SurfaceRenderer renderer;
  renderer.Render(Mesh{}, SurfaceRanges{}, Camera{}, image, {QColor(10, 20, 30), false, false});
  EXPECT_EQ(image.pixel(60, 40), qRgb(10, 20, 30));
  renderer.Render(Mesh{}, SurfaceRanges{}, Camera{}, image);
  int inked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) inked += !White(image, x, y);
  }
  EXPECT_GT(inked, 100);  // the box's edges
}

TEST(SurfaceRenderer, AMeshFromTheMesherRenders) {
  const Mesh mesh = MeshOnGrid(SurfaceSource::Compile("sin(x)*cos(y)", 1), {}, 50);
  QImage image(400, 300, QImage::Format_RGB32);
  SurfaceRenderer renderer;
  renderer.Render(mesh, SurfaceRanges{}, Camera{}, image);
  int coloured = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor c(image.pixel(x, y));
      coloured += c.saturation() > 60;
    }
  }
  EXPECT_GT(coloured, 400 * 300 / 10);
  if (qEnvironmentVariableIsSet("QUILLOGRAPH_SAVE_PICTURES")) image.save("/tmp/surface.png");
}

TEST(SurfaceRenderer, AxisLabelsStayInThePictureAndApart) {
  plot3d::SurfaceRanges box;
  QFont font;
  font.setPixelSize(9);  // as the renderer sets it for this size
  for (const double zoom : {0.25, 1.0, 2.0, 3.0}) {
    plot3d::Camera camera;
    camera.Zoom = zoom;
    const QSize size(480, 360);
    const auto labels = plot3d::SurfaceRenderer::AxisLabels(box, camera, size, font);
    int names = 0;
    for (std::size_t i = 0; i < labels.size(); ++i) {
      names += labels[i].Name;
      EXPECT_TRUE(QRectF(0, 0, size.width(), size.height()).contains(labels[i].Rect)) << zoom << " " << labels[i].Text.toStdString();
      for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(labels[i].Rect.intersects(labels[j].Rect)) << zoom;
    }
    EXPECT_EQ(names, 3) << zoom;
    // The whole box in view at its usual size: the names and numbers along each axis.
    if (zoom == 1) {
      EXPECT_GE(labels.size(), 9u);
    }
  }
}

// On a dense screen the picture has more pixels, and the numbers and names take as many more:
// the same labels, at the same places and sizes on the screen, none over another.
TEST(SurfaceRenderer, AxisLabelsFollowTheScreensDensity) {
  const plot3d::SurfaceRanges box;
  const plot3d::Camera camera;
  const QSize screen(480, 360);
  const QFont base;
  const QFont plain = plot3d::SurfaceRenderer::AxisFont(base, screen, 1);
  const auto flat = plot3d::SurfaceRenderer::AxisLabels(box, camera, screen, plain, 1);
  ASSERT_GE(flat.size(), 9u);
  for (const double ratio : {1.5, 2.0, 3.0}) {
    const QSize picture(static_cast<int>(screen.width() * ratio), static_cast<int>(screen.height() * ratio));
    const QFont font = plot3d::SurfaceRenderer::AxisFont(base, picture, ratio);
    EXPECT_EQ(font.pixelSize(), std::lround(plain.pixelSize() * ratio)) << ratio;
    const auto dense = plot3d::SurfaceRenderer::AxisLabels(box, camera, picture, font, ratio);
    ASSERT_EQ(dense.size(), flat.size()) << ratio;
    for (std::size_t i = 0; i < dense.size(); ++i) {
      EXPECT_EQ(dense[i].Text, flat[i].Text) << ratio;
      const QPointF onScreen = dense[i].Rect.center() / ratio;
      EXPECT_NEAR(onScreen.x(), flat[i].Rect.center().x(), 2) << ratio << " " << flat[i].Text.toStdString();
      EXPECT_NEAR(onScreen.y(), flat[i].Rect.center().y(), 2) << ratio << " " << flat[i].Text.toStdString();
      EXPECT_NEAR(dense[i].Rect.height() / ratio, flat[i].Rect.height(), 2) << ratio;
      for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(dense[i].Rect.intersects(dense[j].Rect)) << ratio;
    }
  }
}

namespace {

// The heart, small enough for a test, and a camera that sees it from the side and above.
Mesh Heart(SurfaceRanges& box) {
  box.XMin = box.YMin = box.ZMin = -1.5, box.XMax = box.YMax = box.ZMax = 1.5;
  return MeshImplicit(SurfaceSource::Compile("(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 4), box, 40);
}

QImage Rendered(SurfaceRenderer& renderer, const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, int bandRows) {
  QImage image(320, 240, QImage::Format_RGB32);
  SurfaceRenderer::Options options;
  options.MeshLines = true;
  options.BandRows = bandRows;
  renderer.Render(mesh, box, camera, image, options);
  return image;
}

}  // namespace

// The bands of rows the cores fill meet without a seam: bands of any height give the picture of
// one band, pixel for pixel.
TEST(SurfaceRenderer, BandsOfRowsDrawTheSamePictureAsOne) {
  SurfaceRanges box;
  const Mesh heart = Heart(box);
  for (const double azimuth : {-0.9, 0.4, 2.5}) {
    Camera camera;
    camera.Azimuth = azimuth;
    SurfaceRenderer one;
    const QImage reference = Rendered(one, heart, box, camera, 1000);
    for (const int bandRows : {1, 7, 32, 239}) {
      SurfaceRenderer renderer;
      EXPECT_EQ(Rendered(renderer, heart, box, camera, bandRows), reference) << azimuth << " " << bandRows;
    }
  }
}

// A turn draws from what the last picture of the mesh kept: the same picture as a renderer that
// starts afresh at the new angle.
TEST(SurfaceRenderer, ATurnedPictureIsTheFreshPictureAtTheNewAngle) {
  SurfaceRanges box;
  const Mesh heart = Heart(box);
  SurfaceRenderer kept;
  Camera camera;
  (void)Rendered(kept, heart, box, camera, 32);
  for (int turn = 0; turn < 3; ++turn) {
    camera.Azimuth += 0.3, camera.Elevation -= 0.2, camera.Zoom *= 1.1;
    SurfaceRenderer fresh;
    EXPECT_EQ(Rendered(kept, heart, box, camera, 32), Rendered(fresh, heart, box, camera, 32)) << turn;
  }
  // Another box moves the points in the cube: what was kept is not used for it.
  SurfaceRanges wider = box;
  wider.ZMax = 3;
  SurfaceRenderer fresh;
  EXPECT_EQ(Rendered(kept, heart, wider, camera, 32), Rendered(fresh, heart, wider, camera, 32));
}

// A mesh remade in its own memory, announced, is drawn as itself and not as the one before.
TEST(SurfaceRenderer, AMeshChangedInPlaceIsDrawnAfresh) {
  Mesh mesh = MeshOnGrid(SurfaceSource::Compile("sin(x)*cos(y)", 1), {}, 50);
  SurfaceRenderer kept;
  (void)Rendered(kept, mesh, {}, Camera{}, 32);
  const Vec3* memory = mesh.Positions.data();
  MeshOnGrid(SurfaceSource::Compile("cos(x)*sin(y)", 1), {}, 50, mesh);
  ASSERT_EQ(mesh.Positions.data(), memory);
  kept.MeshChanged();
  SurfaceRenderer fresh;
  EXPECT_EQ(Rendered(kept, mesh, {}, Camera{}, 32), Rendered(fresh, mesh, {}, Camera{}, 32));
}

namespace {

// The surface drawn the plain way: each point projected and coloured on its own, each triangle
// filled one pixel at a time on one core, with the renderer's formulas.
QImage PlainPicture(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QSize size) {
  struct Corner {
    float X, Y, Depth, R, G, B;
  };
  double low = INFINITY, high = -INFINITY;
  for (const Vec3& p : mesh.Positions) low = std::min(low, p.Z), high = std::max(high, p.Z);
  const Vec3 light = Normalized(Vec3{-0.4, 0.5, 1});
  std::vector<Corner> corners;
  for (std::size_t i = 0; i < mesh.Positions.size(); ++i) {
    const Camera::Projected s = camera.Project(mesh.Positions[i], box, size);
    const float brightness = 0.35f + 0.65f * static_cast<float>(std::abs(Dot(Normalized(camera.ToView(mesh.Normals[i])), light)));
    const QRgb c = SurfaceRenderer::HeightColor((mesh.Positions[i].Z - low) / (high - low));
    corners.push_back({static_cast<float>(s.X), static_cast<float>(s.Y), static_cast<float>(s.Depth),
                       static_cast<float>(qRed(c)) * brightness, static_cast<float>(qGreen(c)) * brightness,
                       static_cast<float>(qBlue(c)) * brightness});
  }
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  std::vector<float> depth(static_cast<std::size_t>(size.width() * size.height()), -INFINITY);
  for (const auto& t : mesh.Triangles) {
    const Corner a = corners[t[0]], b = corners[t[1]], c = corners[t[2]];
    const float area = (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
    if (!(std::abs(area) > 1e-12f)) continue;
    const int x0 = std::max(0, static_cast<int>(std::floor(std::min({a.X, b.X, c.X}))));
    const int x1 = std::min(size.width() - 1, static_cast<int>(std::ceil(std::max({a.X, b.X, c.X}))));
    const int y0 = std::max(0, static_cast<int>(std::floor(std::min({a.Y, b.Y, c.Y}))));
    const int y1 = std::min(size.height() - 1, static_cast<int>(std::ceil(std::max({a.Y, b.Y, c.Y}))));
    for (int y = y0; y <= y1; ++y) {
      for (int x = x0; x <= x1; ++x) {
        const float px = static_cast<float>(x) + 0.5f, py = static_cast<float>(y) + 0.5f;
        const float wa = ((b.X - px) * (c.Y - py) - (b.Y - py) * (c.X - px)) * (1 / area);
        const float wb = ((c.X - px) * (a.Y - py) - (c.Y - py) * (a.X - px)) * (1 / area);
        const float wc = 1 - wa - wb;
        if (wa < 0 || wb < 0 || wc < 0) continue;
        const float z = wa * a.Depth + wb * b.Depth + wc * c.Depth;
        float& nearest = depth[static_cast<std::size_t>(y * size.width() + x)];
        if (z <= nearest) continue;
        nearest = z;
        const auto channel = [&](float va, float vb, float vc) { return std::clamp(static_cast<int>(wa * va + wb * vb + wc * vc), 0, 255); };
        image.setPixel(x, y, qRgb(channel(a.R, b.R, c.R), channel(a.G, b.G, c.G), channel(a.B, b.B, c.B)));
      }
    }
  }
  return image;
}

}  // namespace

// The renderer keeps the points' colours, fills four pixels at once and two bands on two cores:
// the picture of the plain way, pixel for pixel, also where the surface leaves the picture.
TEST(SurfaceRenderer, TheSurfaceIsThePlainWaysPicture) {
  SurfaceRanges box;
  const Mesh heart = Heart(box);
  SurfaceRenderer renderer;
  Camera camera;
  for (const double zoom : {1.0, 2.9}) {
    for (const QSize size : {QSize(320, 240), QSize(203, 317)}) {
      camera.Zoom = zoom, camera.Azimuth += 0.7, camera.Elevation = -camera.Elevation;
      QImage image(size, QImage::Format_RGB32);
      renderer.Render(heart, box, camera, image, {Qt::white, false, false});
      EXPECT_EQ(image, PlainPicture(heart, box, camera, size)) << zoom << " " << size.width();
    }
  }
}

// Each band clears its own rows: to the very pixel QImage::fill writes, its alpha byte included.
TEST(SurfaceRenderer, TheBandsClearToWhatFillWrites) {
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
    for (const QColor colour : {QColor(10, 20, 30), QColor(10, 20, 30, 0), QColor(200, 100, 50, 128)}) {
      QImage expected(50, 150, format);
      expected.fill(colour);
      QImage image(50, 150, format);
      image.fill(Qt::black);
      SurfaceRenderer renderer;
      SurfaceRenderer::Options options{colour, false, false};
      options.BandRows = 16;
      renderer.Render(Mesh{}, SurfaceRanges{}, Camera{}, image, options);
      for (int y = 0; y < image.height(); ++y)
        ASSERT_EQ(std::memcmp(image.constScanLine(y), expected.constScanLine(y), 50 * 4), 0) << format << " " << y;
    }
  }
}

TEST(Camera, TheProjectionWorkedOutOnceGivesProjectsNumbers) {
  Camera camera;
  camera.Azimuth = 0.7, camera.Elevation = -0.3, camera.Zoom = 1.7;
  SurfaceRanges box;
  box.ZMax = 9;
  const QSize size(333, 251);
  const Camera::Projection project = camera.Projecting(size);
  for (const Vec3 p : {Vec3{1, 2, 3}, Vec3{-5, 4.5, -0.1}, Vec3{0.3, -2, 8}}) {
    const Camera::Projected a = camera.Project(p, box, size), b = project(Camera::ToCube(p, box));
    EXPECT_EQ(a.X, b.X);
    EXPECT_EQ(a.Y, b.Y);
    EXPECT_EQ(a.Depth, b.Depth);
    EXPECT_EQ(camera.ToView(p), project.Turned(p));
  }
}
