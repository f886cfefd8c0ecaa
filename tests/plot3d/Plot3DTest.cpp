#include "core/RuntimeError.h"
#include "plot3d/Plot3D.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QImageReader>
#include <QTemporaryDir>

using plot3d::Plot3D;

namespace {

Plot3D Drawn(const QString& equation, std::int32_t kind) {
  Plot3D plot;
  plot.SetSize(QSize(200, 150));
  plot.SetEquation(equation);
  plot.SetFunctionKind(kind);
  plot.Redraw();
  return plot;
}

}  // namespace

// The texts and kinds as the surface tab hands them over.
TEST(Plot3D, TheTabsTextsAreDrawn) {
  struct Case {
    const char* equation;
    std::int32_t kind;
  };
  const Case cases[] = {{"x^2+y^2", 1}, {"x^2+y^2+z^2=4", 4}, {"2", 5}, {"2*theta", 5}, {"u:v:u+v", 6},
                        {"sin(x)*z", 2}, {"y*z", 3}, {"1+0*phi", 5}};
  for (const Case& c : cases) {
    const Plot3D plot = Drawn(c.equation, c.kind);
    EXPECT_TRUE(plot.Problem().isEmpty()) << c.equation << ": " << plot.Problem().toStdString();
    EXPECT_FALSE(plot.Surface().Empty()) << c.equation;
    EXPECT_EQ(plot.Picture().size(), QSize(200, 150));
  }
}

TEST(Plot3D, ABadTextDrawsAnEmptyBoxAndSaysWhy) {
  Plot3D plot = Drawn("x^2+y^2", 1);
  ASSERT_FALSE(plot.Surface().Empty());
  for (const auto& [text, kind] : {std::pair{"sin(", 1}, std::pair{"u:v", 6}, std::pair{"", 4}, std::pair{"x", 9}}) {
    plot.SetEquation(text);
    plot.SetFunctionKind(kind);
    plot.Redraw();
    EXPECT_FALSE(plot.Problem().isEmpty()) << text;
    EXPECT_TRUE(plot.Surface().Empty()) << text;
  }
}

TEST(Plot3D, ZoomStaysBetweenAQuarterAndThree) {
  Plot3D plot;
  EXPECT_EQ(plot.Zoom(), 1);
  const std::pair<double, double> cases[] = {{2, 2}, {0.1, 0.25}, {7, 3}, {NAN, 1}, {0.25, 0.25}};
  for (const auto& [given, kept] : cases) {
    plot.SetZoom(given);
    EXPECT_EQ(plot.Zoom(), kept) << given;
  }
}

TEST(Plot3D, ProgressThenFinished) {
  Plot3D plot;
  plot.SetSize(QSize(80, 60));
  plot.SetEquation("x*y");
  std::vector<int> steps;
  int finished = 0;
  plot.OnProgress = [&](int percent) { steps.push_back(percent); };
  plot.OnFinished = [&] { ++finished; };
  plot.Redraw();
  ASSERT_FALSE(steps.empty());
  EXPECT_EQ(steps.front(), 0);
  EXPECT_EQ(steps.back(), 100);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_EQ(finished, 1);
}

TEST(Plot3D, RefreshRendersTheKeptMeshAgain) {
  Plot3D plot = Drawn("sin(x)*cos(y)", 1);
  const QImage before = plot.Picture();
  plot.View().Azimuth += 0.5;
  plot.Refresh();
  EXPECT_NE(plot.Picture(), before);
  plot.SetSize(QSize(300, 300));
  plot.Refresh();
  EXPECT_EQ(plot.Picture().size(), QSize(300, 300));
}

// A new surface in the kept mesh's memory is drawn as itself, turned as a fresh plot draws it.
TEST(Plot3D, ARedrawnSurfaceIsDrawnAsAFreshPlotDrawsIt) {
  Plot3D plot = Drawn("sin(x)*cos(y)", 1);
  plot.View().Azimuth += 0.5;
  plot.Refresh();
  plot.SetEquation("cos(x)*sin(y)");
  plot.Redraw();
  plot.View().Azimuth += 0.5;
  plot.Refresh();
  Plot3D fresh = Drawn("cos(x)*sin(y)", 1);
  fresh.View().Azimuth += 1;
  fresh.Refresh();
  EXPECT_EQ(plot.Picture(), fresh.Picture());
}

TEST(Plot3D, SavePictureWritesTheKindsFormat) {
  QTemporaryDir dir;
  Plot3D plot = Drawn("x^2-y^2", 1);
  const std::pair<std::int32_t, const char*> cases[] = {{1, "png"}, {2, "jpeg"}, {3, "bmp"}};
  for (const auto& [kind, format] : cases) {
    const QString name = dir.filePath(QStringLiteral("surface%1.out").arg(kind));
    plot.SavePicture(name, kind);
    QImageReader reader(name);
    EXPECT_EQ(reader.format(), QByteArray(format)) << kind;
    EXPECT_EQ(reader.size(), QSize(200, 150));
  }
  try {
    plot.SavePicture(dir.filePath("no/such/folder/x.png"), 1);
    ADD_FAILURE() << "no error";
  } catch (const core::RuntimeError& e) {
    EXPECT_EQ(e.Number(), 75);
  }
}

TEST(Plot3D, AnImplicitSurfaceReportsProgressAsItGoes) {
  Plot3D plot;
  plot.SetSize(QSize(80, 60));
  plot.SetEquation("x^2+y^2+z^2=9");
  plot.SetFunctionKind(4);
  std::vector<int> steps;
  plot.OnProgress = [&](int percent) { steps.push_back(percent); };
  plot.Redraw();
  EXPECT_GT(steps.size(), 10u);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_EQ(steps.back(), 100);
}

TEST(Plot3D, MeshLinesDarkenTheSurface) {
  Plot3D plot = Drawn("x*y/5", 1);
  const auto darkness = [](const QImage& image) {
    long sum = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) sum += 255 - QColor(image.pixel(x, y)).value();
    }
    return sum;
  };
  const long plain = darkness(plot.Picture());
  plot.SetShowMeshLines(true);
  plot.Refresh();
  EXPECT_GT(darkness(plot.Picture()), plain + 1000);
}

TEST(Plot3D, ADenseScreenGetsASharperPictureButSavesAtTheSize) {
  Plot3D plot = Drawn("sin(x)*cos(y)", 1);
  plot.SetDevicePixelRatio(2);
  plot.Refresh();
  EXPECT_EQ(plot.Picture().size(), QSize(400, 300));
  EXPECT_EQ(plot.Picture().devicePixelRatio(), 2);
  QTemporaryDir dir;
  const QString name = dir.filePath("dense.png");
  plot.SavePicture(name, 1);
  EXPECT_EQ(QImageReader(name).size(), QSize(200, 150));
  plot.SetDevicePixelRatio(NAN);
  EXPECT_EQ(plot.DevicePixelRatio(), 1);
}

namespace {

// Pixels of the box's lines and labels: the dark ones.
int Ink(const QImage& picture) {
  int ink = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ink += qGray(picture.pixel(x, y)) < 140;
  }
  return ink;
}

}  // namespace

// At twice the density the picture brought back to the screen's size has the box's lines and
// labels as the plain one does: as large and as dark on the screen, drawn with more pixels.
TEST(Plot3D, TheBoxAndItsLabelsKeepTheirSizeOnADenseScreen) {
  Plot3D plot;
  plot.SetSize(QSize(480, 360));
  plot.SetEquation(QString());  // an empty box: its lines and labels alone
  plot.SetFunctionKind(1);
  plot.Redraw();
  const int plain = Ink(plot.Picture());
  ASSERT_GT(plain, 500);
  plot.SetDevicePixelRatio(2);
  plot.Refresh();
  ASSERT_EQ(plot.Picture().size(), QSize(960, 720));
  const QImage back = plot.Picture().scaled(QSize(480, 360), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_NEAR(Ink(back), plain, 0.25 * plain);
  if (qEnvironmentVariableIsSet("QUILLOGRAPH_SAVE_PICTURES")) plot.Picture().save("/tmp/surface-dense.png");
}
