#include "core/RuntimeError.h"
#include "plot2d/Plot.h"
#include "plot2d/PlotPainter.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

using plot2d::Plot;

namespace {

constexpr double kRed = 255;

// A plot with nothing but its curves: no grid, axes, numbers or frame.
Plot Bare(QSize size, double range = 10) {
  Plot plot;
  plot.SetSize(size);
  plot.SetXMin(-range), plot.SetXMax(range), plot.SetYMin(-range), plot.SetYMax(range);
  plot.SetShowAxis(false), plot.SetShowGrid(false), plot.SetShowNumbers(false), plot.SetShowOuterFrame(false);
  return plot;
}

void Add(Plot& plot, const QString& line, bool endDots = false, bool shadeGreater = false) {
  std::int32_t kind = 0;
  plot.AddFunction(1, line, kRed, false, kind, shadeGreater, endDots, false, 0);
}

bool Inked(const QImage& image, int x, int y) {
  const QColor c = image.pixelColor(x, y);
  return c.red() < 250 || c.green() < 250 || c.blue() < 250;
}

}  // namespace

TEST(Plot, TheDefaultRangeIsMinusTenToTen) {
  Plot plot;
  EXPECT_EQ(plot.XMin(), -10);
  EXPECT_EQ(plot.XMax(), 10);
  EXPECT_EQ(plot.YMin(), -10);
  EXPECT_EQ(plot.YMax(), 10);
  EXPECT_EQ(plot.DefaultXMin(), -10);
  EXPECT_EQ(plot.DefaultYMax(), 10);
  EXPECT_EQ(plot.Quality(), 100);
}

TEST(Plot, ZoomAndResetRange) {
  Plot plot;
  plot.ZoomIn();
  EXPECT_EQ(plot.XMin(), -5);
  EXPECT_EQ(plot.YMax(), 5);
  plot.ZoomOut();
  plot.ZoomOut();
  EXPECT_EQ(plot.XMax(), 20);
  plot.SetDefaultRange(0, 1, 2, 3);
  plot.ResetRange();
  EXPECT_EQ(plot.XMin(), 0);
  EXPECT_EQ(plot.XMax(), 1);
  EXPECT_EQ(plot.YMin(), 2);
  EXPECT_EQ(plot.YMax(), 3);
}

TEST(Plot, KindIsWrittenBack) {
  struct Case { const char* line; std::int32_t kind; };
  const Case cases[] = {{"y=x^2", 1}, {"x=sin(y)", 2}, {"r=2*theta", 3}, {"x^2+y^2=1", 4}, {"x^2", 1},
                        {"sin(y)", 2}, {"theta/2", 3}, {"y=x*y+1", 4}, {"x*y-1", 4}};
  for (const Case& c : cases) {
    Plot plot;
    std::int32_t kind = 0;
    plot.AddFunction(1, c.line, kRed, false, kind, false, false, false, 0);
    EXPECT_EQ(kind, c.kind) << c.line;
  }
}

TEST(Plot, ALineThatCannotBeParsedDrawsNothingAndIsRemembered) {
  Plot plot;
  std::int32_t kind = 3;
  plot.AddFunction(2, "y=foo(x)", kRed, false, kind, false, false, false, 0);
  EXPECT_EQ(kind, 3);  // left as it was
  EXPECT_EQ(plot.Problems(), QStringList({"row 2: unknown name \"foo\""}));
  plot.Redraw();
  EXPECT_TRUE(plot.LastDrawing().Curves.empty());
  plot.ClearAll();
  EXPECT_TRUE(plot.Problems().isEmpty());
}

TEST(Plot, ACirclesPixelsLieOnTheCircle) {
  Plot plot = Bare(QSize(800, 800));
  plot.SetThickness(1);
  Add(plot, "x^2+y^2=25");
  plot.Redraw();
  const QImage image = plot.Picture();
  int inked = 0;
  for (int y = 0; y < 800; ++y) {
    for (int x = 0; x < 800; ++x) {
      if (!Inked(image, x, y)) continue;
      ++inked;
      const double distance = std::hypot(x + 0.5 - 400, y + 0.5 - 400);
      ASSERT_NEAR(distance, 200, 2.0) << x << "," << y;
    }
  }
  EXPECT_GT(inked, static_cast<int>(2 * 3.14159 * 200));  // the whole way round
  for (int degrees = 0; degrees < 360; degrees += 5) {
    const double a = degrees * 3.14159265358979 / 180;
    const int x = static_cast<int>(400 + 200 * std::cos(a));
    const int y = static_cast<int>(400 - 200 * std::sin(a));
    bool near = false;
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) near |= Inked(image, x + dx, y + dy);
    }
    EXPECT_TRUE(near) << degrees << " degrees";
  }
}

TEST(Plot, NoVerticalRunBetweenTheBranchesOfTan) {
  Plot plot = Bare(QSize(800, 800));
  plot.SetThickness(1);
  Add(plot, "y=tan(x)");
  plot.Redraw();
  const QImage image = plot.Picture();
  // Around the pole at pi/2 the curve is far above or below the middle band.
  const int pole = static_cast<int>((3.14159265358979 / 2 + 10) / 20 * 800);
  for (int x = pole - 4; x <= pole + 4; ++x) {
    for (int y = 200; y < 600; ++y) EXPECT_FALSE(Inked(image, x, y)) << x << "," << y;
  }
}

TEST(Plot, ARestrictedCurveStopsAtItsBoundWithItsDots) {
  Plot plot = Bare(QSize(800, 800));
  plot.SetThickness(2);
  Add(plot, "y=0;-5<=x<5", true);
  plot.Redraw();
  const QImage image = plot.Picture();
  // The dots: filled at -5 (x pixel 200), hollow at 5 (600), on y = 0 (pixel 400).
  EXPECT_TRUE(Inked(image, 200, 400));
  EXPECT_FALSE(Inked(image, 600, 400));
  EXPECT_TRUE(Inked(image, 600 + 4, 400));  // the ring
  // Nothing beyond the ends.
  for (int x = 620; x < 800; ++x) EXPECT_FALSE(Inked(image, x, 400)) << x;
  for (int x = 0; x < 180; ++x) EXPECT_FALSE(Inked(image, x, 400)) << x;
  EXPECT_TRUE(Inked(image, 400, 400));
}

TEST(Plot, ShadingTakesTheSideWhereTheLeftSideIsGreater) {
  Plot plot = Bare(QSize(400, 400));
  Add(plot, "y=x", false, true);
  plot.Redraw();
  const QImage image = plot.Picture();
  EXPECT_TRUE(Inked(image, 100, 50));    // above y = x
  EXPECT_FALSE(Inked(image, 300, 350));  // below
}

TEST(Plot, InequalitiesShadeWhereTheyHold) {
  Plot plot = Bare(QSize(400, 400));
  plot.AddInequality("y<x", 0, 16711680, true, "y>-x");
  plot.Redraw();
  const QImage image = plot.Picture();
  EXPECT_TRUE(Inked(image, 350, 200));   // right: y < x and y > -x
  EXPECT_FALSE(Inked(image, 50, 200));   // left
  EXPECT_FALSE(Inked(image, 200, 30));   // top
  EXPECT_EQ(plot.LastDrawing().Curves.size(), 2u);
  EXPECT_EQ(plot.LastDrawing().Curves[0].Line, plot2d::Drawing::Style::Dashed);
}

TEST(Plot, IntegralsAgainstTheirExactValues) {
  struct Case {
    const char* f;
    double from, to;
    double exact;
  };
  const double ln = std::log(2.71828182845905);
  const Case cases[] = {
      {"x^2", 0, 3, 9},
      {"sin(x)", 0, 3.14159265358979, 1 - std::cos(3.14159265358979)},
      {"exp(x)", 0, 1, (2.71828182845905 - 1) / ln},
      {"1/x", 1, 10, std::log(10.0)},
      {"sqrt(x)", 0, 4, 16.0 / 3},
      {"abs(x)", -1, 2, 2.5},
  };
  for (const Case& c : cases) {
    const plot2d::IntegralItem item(c.f, nullptr, c.from, c.to, Qt::blue);
    EXPECT_LT(std::abs(item.Value().Total - c.exact), 1e-9 * std::abs(c.exact)) << c.f << ": " << item.Value().Total;
  }
  const plot2d::IntegralItem sine("sin(x)", nullptr, 0, 2 * 3.14159265358979, Qt::blue);
  EXPECT_NEAR(sine.Value().Above, 2, 1e-9);
  EXPECT_NEAR(sine.Value().Below, -2, 1e-9);
  EXPECT_NEAR(sine.Value().Total, 0, 1e-9);
  const QString second = "x";
  const plot2d::IntegralItem between("x^2", &second, 0, 1, Qt::blue);
  EXPECT_NEAR(between.Value().Total, 1.0 / 3 - 0.5, 1e-12);
  EXPECT_FALSE(plot2d::IntegralItem("1/x", nullptr, -1, 1, Qt::blue).Value().Defined);
}

TEST(Plot, IntegralsShadeAndLabelUnlessHidden) {
  Plot plot = Bare(QSize(400, 400));
  bool second = false;
  QString none;
  plot.AddIntegral("x^2", 0, 2, 16744448, second, none);
  EXPECT_EQ(plot.IntegralMode(), 1);
  plot.Redraw();
  ASSERT_EQ(plot.LastDrawing().Labels.size(), 1u);
  EXPECT_EQ(plot.LastDrawing().Labels[0].Text, QString::fromUtf8("\u222B = 2.666666667"));
  plot.SetShowIntegral(false);
  plot.Redraw();
  EXPECT_TRUE(plot.LastDrawing().Labels.empty());
}

TEST(Plot, PointsInBothForms) {
  Plot plot = Bare(QSize(400, 400));
  double a = 2, b = 3;
  plot.AddPoint(1, a, b, 1, kRed, true);
  double r = 2, theta = 3.14159265358979 / 2;
  plot.AddPoint(2, r, theta, 2, kRed, false);
  plot.Redraw();
  const auto& dots = plot.LastDrawing().Dots;
  ASSERT_EQ(dots.size(), 2u);
  EXPECT_EQ(dots[0].At, QPointF(2, 3));
  EXPECT_NEAR(dots[1].At.x(), 0, 1e-12);
  EXPECT_NEAR(dots[1].At.y(), 2, 1e-12);
  EXPECT_TRUE(dots[0].Filled);
  EXPECT_FALSE(dots[1].Filled);
}

TEST(Plot, RangesTheWrongWayRoundOrOfZeroWidthDoNotCrash) {
  for (const auto& r : {std::array<double, 4>{5, -5, 5, -5}, {1, 1, 2, 2}, {0, 0, 0, 0}, {-1e308, 1e308, -1e308, 1e308},
                        {1e-300, 2e-300, 0, 1}, {NAN, 1, 0, 1}}) {
    Plot plot;
    plot.SetSize(QSize(200, 100));
    plot.SetXMin(r[0]), plot.SetXMax(r[1]), plot.SetYMin(r[2]), plot.SetYMax(r[3]);
    Add(plot, "y=sin(x)");
    Add(plot, "x^2+y^2=1");
    plot.Redraw();
    EXPECT_FALSE(plot.Picture().isNull());
  }
}

TEST(Plot, ProgressRunsFromZeroToHundredThenFinished) {
  Plot plot;
  Add(plot, "y=x");
  Add(plot, "y=2x");
  std::vector<int> progress;
  bool finished = false;
  plot.OnProgress = [&](int p) { progress.push_back(p); };
  plot.OnFinished = [&] { finished = progress.back() == 100; };
  plot.Redraw();
  EXPECT_EQ(progress.front(), 0);
  EXPECT_EQ(progress.back(), 100);
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
  EXPECT_TRUE(finished);
}

TEST(Plot, SavesThePictureInThreeFormats) {
  QTemporaryDir dir;
  Plot plot;
  plot.SetSize(QSize(320, 200));
  Add(plot, "y=sin(x)");
  plot.Redraw();
  struct Case { const char* name; std::int32_t kind; const char* format; };
  const Case cases[] = {{"a.png", 1, "png"}, {"b.jpg", 2, "jpeg"}, {"c.bmp", 3, "bmp"}, {"d.JPG", 0, "jpeg"},
                        {"e.Bmp", 0, "bmp"}, {"f.picture", 0, "png"}, {"g.png", 0, "png"}};
  for (const Case& c : cases) {
    const QString path = dir.filePath(c.name);
    plot.SavePicture(path, c.kind);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    EXPECT_EQ(reader.format(), QByteArray(c.format)) << c.name;
    EXPECT_EQ(reader.size(), QSize(320, 200)) << c.name;
  }
  plot.SetTransparentBackground(true);
  plot.SavePicture(dir.filePath("t.png"), 1);
  const QImage transparent(dir.filePath("t.png"));
  EXPECT_TRUE(transparent.hasAlphaChannel());
  EXPECT_EQ(transparent.pixelColor(5, 5).alpha(), 0);
  try {
    plot.SavePicture(dir.filePath("missing/folder/x.png"), 1);
    ADD_FAILURE() << "no error";
  } catch (const core::RuntimeError& e) {
    EXPECT_FALSE(e.Description().isEmpty());
  }
}

TEST(Plot, ColoursAreRedInTheLowByte) {
  EXPECT_EQ(Plot::ColorOf(255), QColor(255, 0, 0));
  EXPECT_EQ(Plot::ColorOf(16711680), QColor(0, 0, 255));
  EXPECT_EQ(Plot::ColorOf(NAN), QColor(Qt::black));
}

TEST(Plot, SharpOnHighDensityScreens) {
  Plot plot = Bare(QSize(400, 300));
  plot.SetDevicePixelRatio(2);
  plot.SetThickness(2);
  Add(plot, "y=0");
  plot.Redraw();
  const QImage picture = plot.Picture();
  EXPECT_EQ(picture.size(), QSize(800, 600));  // device pixels
  EXPECT_EQ(picture.devicePixelRatio(), 2);
  // The line is two logical pixels thick: about four device pixels.
  int inked = 0;
  for (int y = 280; y < 320; ++y) inked += Inked(picture, 400, y);
  EXPECT_GE(inked, 4);
  EXPECT_LE(inked, 6);
  // A saved picture keeps the scene's own size.
  QTemporaryDir dir;
  plot.SavePicture(dir.filePath("p.png"), 1);
  EXPECT_EQ(QImage(dir.filePath("p.png")).size(), QSize(400, 300));
  plot.SetDevicePixelRatio(NAN);
  EXPECT_EQ(plot.DevicePixelRatio(), 1);
}

TEST(Plot, NumbersBesideTheYAxisKeepClearOfItsTicks) {
  Plot plot = Bare(QSize(400, 400));
  plot.SetShowAxis(true), plot.SetShowNumbers(true);
  plot.Redraw();
  const QImage picture = plot.Picture();
  // The y axis is the middle column; its ticks reach 4 pixels to the left (5 with their soft
  // edge). The two columns left of that stay empty wherever a number stands.
  const int axis = 200;
  int numberRows = 0;
  for (int y = 0; y < 400; ++y) {
    if (std::abs(y - 200) < 3) continue;  // the x axis
    bool number = false;
    for (int x = axis - 40; x < axis - 7; ++x) number = number || Inked(picture, x, y);
    if (!number) continue;
    ++numberRows;
    EXPECT_FALSE(Inked(picture, axis - 7, y)) << "row " << y;
    EXPECT_FALSE(Inked(picture, axis - 6, y)) << "row " << y;
  }
  EXPECT_GT(numberRows, 40);
}

TEST(Plot, AnIntegralsValueStandsInItsTallestColumn) {
  Plot plot = Bare(QSize(400, 400));
  bool second = false;
  QString none;
  plot.AddIntegral("x^2", 0, 4, kRed, second, none);
  plot.Redraw();
  ASSERT_EQ(plot.LastDrawing().Labels.size(), 1u);
  const auto& label = plot.LastDrawing().Labels[0];
  // x^2 leaves the view at 3.16: from there on every column is as tall as the view allows.
  EXPECT_GT(label.At.x(), 3.1);
  EXPECT_LE(label.At.x(), 4);
  EXPECT_EQ(label.At.y(), 10);
  EXPECT_EQ(label.Under.y(), 0);
}

TEST(Plot, AnIntegralsValueLeavesTheAxisClear) {
  // sin from -6 to -1 has its middle near the axis; the value goes off it.
  Plot plot = Bare(QSize(400, 400));
  plot.SetShowAxis(true), plot.SetShowNumbers(true);
  bool second = false;
  QString none;
  plot.AddIntegral("sin(x)", -6, -1, kRed, second, none);
  plot.Redraw();
  const QImage picture = plot.Picture();
  for (int x = 2; x < 398; ++x) EXPECT_LT(picture.pixelColor(x, 200).lightness(), 200) << "column " << x;
}

TEST(Plot, AConditionOfNumbersAloneBoundsNothing) {
  // "0<+0" is folded into a number while the line is read; theta keeps its bounds from the rest.
  for (const char* line : {"r=theta;0<+0<theta", "r=theta;1<2", "r=theta;0<theta<2;3>1"}) {
    Plot plot = Bare(QSize(120, 120));
    Add(plot, line);
    plot.Redraw();
    EXPECT_TRUE(plot.Problems().isEmpty()) << line;
  }
}

TEST(Plot, DerivativeGivesTheRightHandSideOrRaises) {
  plot2d::Plot plot;
  EXPECT_EQ(plot.Derivative("y=x^2"), "2*x");
  EXPECT_THROW(plot.Derivative("x^2+y^2=1"), core::RuntimeError);
}

// With equal scales one unit is as long across as up: the range that needs it is widened about its
// middle, the other is kept.
TEST(Plot, EqualScalesWidenTheRangeThatNeedsIt) {
  struct Case {
    QSize Size;
    double Range[4];     // xMin, xMax, yMin, yMax set
    double Expected[4];  // after a redraw
  };
  const Case cases[] = {
      {{800, 400}, {-10, 10, -10, 10}, {-20, 20, -10, 10}},
      {{400, 800}, {-10, 10, -10, 10}, {-10, 10, -20, 20}},
      {{600, 600}, {0, 4, 1, 3}, {0, 4, 0, 4}},
      {{800, 600}, {-4, 4, -3, 3}, {-4, 4, -3, 3}},
  };
  for (const Case& c : cases) {
    plot2d::Plot plot;
    plot.SetSize(c.Size);
    plot.SetXMin(c.Range[0]), plot.SetXMax(c.Range[1]), plot.SetYMin(c.Range[2]), plot.SetYMax(c.Range[3]);
    plot.Redraw();
    EXPECT_EQ(plot.XMin(), c.Range[0]) << "nothing changes while the scales may differ";
    plot.SetEqualScales(true);
    plot.Redraw();
    EXPECT_DOUBLE_EQ(plot.XMin(), c.Expected[0]);
    EXPECT_DOUBLE_EQ(plot.XMax(), c.Expected[1]);
    EXPECT_DOUBLE_EQ(plot.YMin(), c.Expected[2]);
    EXPECT_DOUBLE_EQ(plot.YMax(), c.Expected[3]);
    EXPECT_NEAR((plot.XMax() - plot.XMin()) / c.Size.width(), (plot.YMax() - plot.YMin()) / c.Size.height(), 1e-12);
  }
}

TEST(Plot, EqualScalesLeaveAnEmptyOrEndlessRangeAlone) {
  plot2d::Plot plot;
  plot.SetEqualScales(true);
  plot.SetSize({800, 400});
  plot.SetXMin(1), plot.SetXMax(1);
  plot.Redraw();
  EXPECT_EQ(plot.XMin(), 1);
  EXPECT_EQ(plot.YMax(), 10);
  plot.SetXMax(std::numeric_limits<double>::infinity());
  plot.Redraw();
  EXPECT_EQ(plot.YMax(), 10);
}

// A picture drawn again into the image of the last one is the picture drawn afresh, whatever
// that image held, and a copy of the old picture kept elsewhere does not change.
TEST(Plot, DrawsAgainIntoTheLastPicture) {
  Plot plot;
  plot.SetSize(QSize(320, 200));
  Add(plot, "y=sin(x)*3");
  Add(plot, "x^2+y^2=9");
  plot.Redraw();
  const QImage fresh = plot.Picture();
  QImage reused(320, 200, QImage::Format_ARGB32_Premultiplied);
  reused.fill(Qt::green);
  reused.setDevicePixelRatio(2);  // a picture for a dense screen: painted at its own pixels all the same
  const QImage kept = reused;
  plot.DrawPicture(reused);
  EXPECT_EQ(reused, fresh);
  EXPECT_EQ(kept.pixelColor(5, 5), QColor(Qt::green));
  // Of another size or format, the image is made anew.
  QImage small(10, 10, QImage::Format_RGB32);
  plot.DrawPicture(small);
  EXPECT_EQ(small, fresh);
  QImage other = fresh.convertToFormat(QImage::Format_RGB32);
  plot.DrawPicture(other);
  EXPECT_EQ(other, fresh);
}

// On an image of the view's size the picture is painted in bands of rows, shared among the
// cores: background, grid, shaded regions, axes and curves. Any number of bands gives the
// picture that one band gives, pixel for pixel.
TEST(Plot, PaintsTheSameInAnyNumberOfBands) {
  for (const bool transparent : {false, true}) {
    for (const double quality : {100.0, 20.0}) {
      Plot plot;
      plot.SetSize(QSize(333, 211));
      plot.SetQuality(quality);
      plot.SetThickness(3);
      plot.SetTransparentBackground(transparent);
      plot.AddInequality("y<x^2-3", 128, 16776960, false, QString());
      plot.AddInequality("y>sin(x)*4", 128, 65535, true, "y<6");
      Add(plot, "x^2+y^2=9", false, true);  // an implicit curve shaded on its outer side
      Add(plot, "y=tan(x)");
      plot.Redraw();
      const auto painted = [&](int bands) {
        QImage image(333, 211, transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        image.fill(transparent ? QColor(Qt::transparent) : Plot::ColorOf(plot.BackColor()));
        QPainter painter(&image);
        const plot2d::ViewTransform view = plot.View();  // the painter keeps references to both
        const plot2d::PlotStyle style = plot.StyleAt(1);
        plot2d::PlotPainter bandsPainter(view, style);
        bandsPainter.SetBands(bands);
        bandsPainter.Paint(painter, plot.LastDrawing());
        return image;
      };
      const QImage one = painted(1);
      for (const int bands : {2, 3, 7}) {
        const QImage many = painted(bands);
        int differing = 0;
        for (int y = 0; y < one.height(); ++y) {
          for (int x = 0; x < one.width(); ++x) differing += one.pixel(x, y) != many.pixel(x, y);
        }
        EXPECT_EQ(differing, 0) << bands << " bands, transparent " << transparent << ", quality " << quality;
      }
    }
  }
}
