// The special points are exact: the same to about 1e-12 at the default view and in a view a
// thousand times smaller about the point, whatever the curve's kind. Expected values are closed
// forms, worked out by hand.
#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

using plot2d::NotablePoint;
using plot2d::Plot;
using Kind = plot2d::NotablePoint::Kind;

namespace {

constexpr double kPi = std::numbers::pi;
const double kHalfRoot2 = std::sqrt(2.0) / 2;

struct Expected {
  Kind What;
  double X, Y;
};

struct Case {
  std::string Name;
  std::vector<QString> Lines;       // function lines, in rows 1, 2, ...
  QStringList Inequality;  // one or two texts of one region
  std::vector<Expected> Points;
};

// Within 1e-12, relative for large values.
bool Close(double a, double b) { return std::abs(a - b) <= 1e-12 * std::max(1.0, std::abs(b)); }

Plot Drawn(const Case& c, double xMin, double xMax, double yMin, double yMax) {
  Plot plot;
  plot.SetSize(QSize(800, 600));
  plot.SetXMin(xMin), plot.SetXMax(xMax), plot.SetYMin(yMin), plot.SetYMax(yMax);
  std::int16_t row = 0;
  for (const QString& line : c.Lines) {
    std::int32_t kind = 0;
    plot.AddFunction(++row, line, 255, false, kind, false, false, false, 0);
  }
  if (!c.Inequality.empty()) plot.AddInequality(c.Inequality[0], 128, 65535, c.Inequality.size() > 1, c.Inequality.value(1));
  plot.Redraw();
  return plot;
}

std::string Describe(const std::vector<NotablePoint>& points) {
  std::string text;
  for (const NotablePoint& p : points) {
    text += plot2d::KindName(p.What).toStdString() + " " + plot2d::PointText(p.At).toStdString() + "\n";
  }
  return text;
}

bool Has(const std::vector<NotablePoint>& points, const Expected& e) {
  return std::any_of(points.begin(), points.end(),
                     [&](const NotablePoint& p) { return p.What == e.What && Close(p.At.x(), e.X) && Close(p.At.y(), e.Y); });
}

// What the tips show over every curve, and each curve's own points as the widget asks for them.
void ExpectFound(const Plot& plot, const Expected& e, const std::string& where) {
  const auto all = plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View());
  EXPECT_TRUE(Has(all, e)) << where << ": " << plot2d::KindName(e.What).toStdString() << " "
                           << plot2d::PointText(QPointF(e.X, e.Y)).toStdString() << " not in\n" << Describe(all);
  bool onACurve = false;
  for (std::size_t curve = 0; curve < plot.LastDrawing().Curves.size(); ++curve) {
    onACurve = onACurve || Has(plot2d::FindNotablePoints(plot.LastDrawing(), curve, plot.View()), e);
  }
  EXPECT_TRUE(onACurve) << where << ": no curve's own search has it";
}

double LimaconCos() { return (std::sqrt(6.0) - 2) / 2; }
double LimaconX() { return (4 + LimaconCos()) * LimaconCos(); }
double LimaconY() { return (4 + LimaconCos()) * std::sqrt(1 - LimaconCos() * LimaconCos()); }

std::vector<Case> Cases() {
  std::vector<Expected> sinCos;
  // sin x = cos x where x = pi/4 + k pi; those in [-10, 10].
  for (int k = -3; k <= 2; ++k) {
    const double x = kPi / 4 + k * kPi;
    sinCos.push_back({Kind::Intersection, x, (k % 2 == 0) ? kHalfRoot2 : -kHalfRoot2});
  }
  return {
      {"sin meets cos", {"y=sin(x)", "y=cos(x)"}, {}, sinCos},
      {"a parabola's roots, turn and intercept",
       {"y=x^2-3x+2"},
       {},
       {{Kind::Root, 1, 0}, {Kind::Root, 2, 0}, {Kind::Minimum, 1.5, -0.25}, {Kind::YIntercept, 0, 2}}},
      {"a cubic's turns, roots and intercept",
       {"y=x^3-3x"},
       {},
       {{Kind::Maximum, -1, 2}, {Kind::Minimum, 1, -2}, {Kind::Root, -std::sqrt(3.0), 0}, {Kind::Root, 0, 0},
        {Kind::Root, std::sqrt(3.0), 0}, {Kind::YIntercept, 0, 0}}},
      {"the turns of a sine", {"y=sin(x)"}, {}, {{Kind::Maximum, kPi / 2, 1}, {Kind::Minimum, -kPi / 2, -1}}},
      {"the top and bottom of an ellipse", {"x^2/16+(y-1)^2/4=1"}, {}, {{Kind::Maximum, 0, 3}, {Kind::Minimum, 0, -1}}},
      // y = (4 + cos t) sin t turns where 2 cos^2 t + 4 cos t - 1 = 0, cos t = (sqrt 6 - 2) / 2.
      {"the top and bottom of a limacon", {"r=4+cos(theta)"}, {}, {{Kind::Maximum, LimaconX(), LimaconY()}, {Kind::Minimum, LimaconX(), -LimaconY()}}},
      {"a circle meets a line",
       {"x^2+y^2=25", "y=x+1"},
       {},
       {{Kind::Intersection, 3, 4}, {Kind::Intersection, -4, -3}}},
      {"a rose meets the diagonal",
       {"r=sin(2*theta)", "y=x"},
       {},
       {{Kind::Intersection, kHalfRoot2, kHalfRoot2}, {Kind::Intersection, -kHalfRoot2, -kHalfRoot2}, {Kind::Intersection, 0, 0},
        // The petals touch the y axis at the pole; y = 2 sin^2 t cos t turns where tan^2 t = 2.
        {Kind::YIntercept, 0, 0}, {Kind::Maximum, 2 * std::sqrt(2.0 / 3) / 3, 4 / (3 * std::sqrt(3.0))}}},
      {"the corners of a region between two boundaries",
       {},
       {"y<2-x^2", "y>x"},
       {{Kind::Corner, 1, 1}, {Kind::Corner, -2, -2}}},
  };
}

}  // namespace

TEST(NotablePointsExact, AtTheDefaultView) {
  for (const Case& c : Cases()) {
    const Plot plot = Drawn(c, -10, 10, -10, 10);
    for (const Expected& e : c.Points) ExpectFound(plot, e, c.Name);
  }
}

TEST(NotablePointsExact, InAViewAThousandTimesSmallerAboutThePoint) {
  for (const Case& c : Cases()) {
    for (const Expected& e : c.Points) {
      // Off centre, so that the point lies on no vertex of the even start of the sampling.
      const double x = e.X + 0.0013, y = e.Y - 0.0021;
      const Plot plot = Drawn(c, x - 0.01, x + 0.01, y - 0.01, y + 0.01);
      ExpectFound(plot, e, c.Name + " zoomed");
    }
  }
}

TEST(NotablePointsExact, TheCornersOfARegionAreNotPlainIntersections) {
  const Case region{"", {}, {"y<2-x^2", "y>x"}, {}};
  const Plot plot = Drawn(region, -10, 10, -10, 10);
  for (const NotablePoint& p : plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View())) {
    EXPECT_NE(p.What, Kind::Intersection) << plot2d::PointText(p.At).toStdString();
  }
  // A single inequality has no corners.
  const Case half{"", {}, {"y<2-x^2"}, {}};
  const Plot alone = Drawn(half, -10, 10, -10, 10);
  for (const NotablePoint& p : plot2d::FindAllNotablePoints(alone.LastDrawing(), alone.View())) {
    EXPECT_NE(p.What, Kind::Corner) << plot2d::PointText(p.At).toStdString();
  }
}

TEST(NotablePointsExact, TheCopyHasFifteenSignificantDigits) {
  struct Text {
    QPointF At;
    const char* Copy;
  };
  for (const auto& [at, copy] : {Text{{kPi / 4, kHalfRoot2}, "(0.785398163397448, 0.707106781186548)"},
                                 Text{{-2, 1.5}, "(-2, 1.5)"},
                                 Text{{123456.789012345678, -1e-7 / 3}, "(123456.789012346, -3.33333333333333E-08)"}}) {
    EXPECT_EQ(plot2d::PointText(at), copy);
  }
}

TEST(NotablePointsExact, EachAllPointIsListedOnce) {
  const Case sinCos = Cases()[0];
  const Plot plot = Drawn(sinCos, -10, 10, -10, 10);
  const auto all = plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View());
  // Six meetings, found from both curves; roots, turns and intercepts besides.
  EXPECT_EQ(std::count_if(all.begin(), all.end(), [](const NotablePoint& p) { return p.What == Kind::Intersection; }), 6)
      << Describe(all);
}
