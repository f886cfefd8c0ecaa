#include "plot2d/Plot.h"
#include "plot2d/NotablePoints.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using plot2d::Plot;
using plot2d::NotablePoint;
using Kind = plot2d::NotablePoint::Kind;

namespace {

Plot Drawn(std::initializer_list<const char*> lines, double range = 10) {
  Plot plot;
  plot.SetSize(QSize(600, 600));
  plot.SetXMin(-range), plot.SetXMax(range), plot.SetYMin(-range), plot.SetYMax(range);
  std::int16_t row = 0;
  for (const char* line : lines) {
    std::int32_t kind = 0;
    plot.AddFunction(++row, line, 0, false, kind, false, false, false, 0);
  }
  plot.Redraw();
  return plot;
}

std::vector<QPointF> Of(const std::vector<NotablePoint>& points, Kind kind) {
  std::vector<QPointF> out;
  for (const NotablePoint& p : points) {
    if (p.What == kind) out.push_back(p.At);
  }
  std::sort(out.begin(), out.end(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
  return out;
}

std::vector<NotablePoint> Found(const Plot& plot, std::size_t curve = 0) {
  return plot2d::FindNotablePoints(plot.LastDrawing(), curve, plot.View());
}

}  // namespace

TEST(NotablePoints, RootsOfAnExplicitCurveAreExact) {
  const Plot plot = Drawn({"y=x^2-2"});
  const auto roots = Of(Found(plot), Kind::Root);
  ASSERT_EQ(roots.size(), 2u);
  EXPECT_NEAR(roots[0].x(), -std::sqrt(2.0), 1e-13);
  EXPECT_NEAR(roots[1].x(), std::sqrt(2.0), 1e-13);
  EXPECT_EQ(roots[0].y(), 0);
}

TEST(NotablePoints, ACurveTouchingTheAxisHasARootAtItsTurn) {
  struct Case {
    const char* line;
    double touch;
  };
  for (const auto& [line, touch] : {Case{"y=(x-1)^2", 1}, Case{"y=-(x+2.5)^2", -2.5}, Case{"y=(x-0.3)^2*(x+4)", 0.3}}) {
    const Plot plot = Drawn({line});
    const auto roots = Of(Found(plot), Kind::Root);
    const bool found = std::any_of(roots.begin(), roots.end(), [&](QPointF r) { return std::abs(r.x() - touch) < 1e-6; });
    EXPECT_TRUE(found) << line;
  }
  // Not where the turn stays off the axis.
  EXPECT_TRUE(Of(Found(Drawn({"y=x^2+0.001"})), Kind::Root).empty());
}

TEST(NotablePoints, CurvesThatTouchMeetWhereTheyTouch) {
  // y = x^2 and its tangent at x = 1.3; and a tangent from below.
  struct Case {
    const char* first;
    const char* second;
    double x;
  };
  for (const auto& [first, second, x] : {Case{"y=x^2", "y=2.6*x-1.69", 1.3}, Case{"y=-x^2+4", "y=5-2*x", 1},
                                         Case{"y=sin(x)", "y=1", std::numbers::pi / 2}}) {
    const Plot plot = Drawn({first, second});
    const auto meets = Of(Found(plot), Kind::Intersection);
    const bool found = std::any_of(meets.begin(), meets.end(), [&](QPointF p) { return std::abs(p.x() - x) < 1e-6; });
    EXPECT_TRUE(found) << first << " and " << second;
  }
  EXPECT_TRUE(Of(Found(Drawn({"y=x^2", "y=-1"})), Kind::Intersection).empty());
}

TEST(NotablePoints, ExtremaAreMaximaAndMinimaRefinedOnTheFunction) {
  const Plot plot = Drawn({"y=sin(x)"});
  const auto points = Found(plot);
  const auto maxima = Of(points, Kind::Maximum), minima = Of(points, Kind::Minimum);
  ASSERT_EQ(maxima.size(), 3u);  // -3pi/2, pi/2, 5pi/2 lie in [-10, 10]
  ASSERT_EQ(minima.size(), 3u);
  EXPECT_NEAR(maxima[1].x(), std::numbers::pi / 2, 1e-7);
  EXPECT_NEAR(maxima[1].y(), 1, 1e-14);
  EXPECT_NEAR(minima[1].x(), -std::numbers::pi / 2, 1e-7);
  EXPECT_EQ(Of(points, Kind::Root).size(), 7u);  // 0, ±pi, ±2pi, ±3pi
}

TEST(NotablePoints, TheYInterceptIsTheValueAtZero) {
  const Plot plot = Drawn({"y=exp(x)"});
  const auto at = Of(Found(plot), Kind::YIntercept);
  ASSERT_EQ(at.size(), 1u);
  EXPECT_EQ(at[0], QPointF(0, 1));
  EXPECT_TRUE(Of(Found(plot), Kind::Root).empty());
}

TEST(NotablePoints, IntersectionsOfTwoCurvesAreFoundFromEither) {
  const Plot plot = Drawn({"y=x^2", "y=x+2"});
  for (std::size_t curve : {0u, 1u}) {
    const auto at = Of(Found(plot, curve), Kind::Intersection);
    ASSERT_EQ(at.size(), 2u) << curve;
    EXPECT_NEAR(at[0].x(), -1, 1e-12);
    EXPECT_NEAR(at[0].y(), 1, 1e-12);
    EXPECT_NEAR(at[1].x(), 2, 1e-12);
    EXPECT_NEAR(at[1].y(), 4, 1e-12);
  }
}

TEST(NotablePoints, ALevelLineMeetsACurve) {
  const Plot plot = Drawn({"y=2", "y=x"});
  const auto at = Of(Found(plot, 0), Kind::Intersection);
  ASSERT_EQ(at.size(), 1u);
  EXPECT_NEAR(at[0].x(), 2, 1e-12);
  EXPECT_TRUE(Of(Found(plot, 0), Kind::Maximum).empty());
}

TEST(NotablePoints, ALineCrossingManyLevelLinesMeetsEachOnce) {
  Plot plot;
  plot.SetSize(QSize(600, 600));
  std::int16_t row = 0;
  for (int k = -9; k <= 9; ++k) {
    std::int32_t kind = 0;
    plot.AddFunction(++row, QStringLiteral("y=%1").arg(k), 0, false, kind, false, false, false, 0);
  }
  std::int32_t kind = 0;
  plot.AddFunction(++row, "y=x", 0, false, kind, false, false, false, 0);
  plot.Redraw();
  const auto at = Of(Found(plot, 19), Kind::Intersection);
  ASSERT_EQ(at.size(), 19u);
  for (int k = -9; k <= 9; ++k) EXPECT_NEAR(at[static_cast<std::size_t>(k + 9)].x(), k, 1e-12);
}

TEST(NotablePoints, EachPointKnowsItsCurveAndAMeetingTheOtherCurve) {
  struct Expected {
    Kind What;
    double X, Y;
    int Curve, Other;
  };
  const Plot plot = Drawn({"y=x", "y=2-x"});
  const Expected expected[] = {
      {Kind::Root, 0, 0, 0, -1},
      {Kind::YIntercept, 0, 0, 0, -1},
      {Kind::Intersection, 1, 1, 0, 1},  // found from the first curve, the second being the other
      {Kind::Root, 2, 0, 1, -1},
      {Kind::YIntercept, 0, 2, 1, -1},
  };
  const auto all = plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View());
  ASSERT_EQ(all.size(), std::size(expected));
  for (const Expected& e : expected) {
    const bool found = std::any_of(all.begin(), all.end(), [&](const NotablePoint& p) {
      return p.What == e.What && std::abs(p.At.x() - e.X) < 1e-9 && std::abs(p.At.y() - e.Y) < 1e-9 && p.Curve == e.Curve &&
             p.Other == e.Other;
    });
    EXPECT_TRUE(found) << plot2d::KindName(e.What).toStdString() << " (" << e.X << ", " << e.Y << ")";
  }
  // Asked for the second curve alone, the meeting is found from it, with the first as the other.
  const auto fromSecond = Found(plot, 1);
  const auto meeting = std::find_if(fromSecond.begin(), fromSecond.end(), [](const NotablePoint& p) { return p.What == Kind::Intersection; });
  ASSERT_NE(meeting, fromSecond.end());
  EXPECT_EQ(meeting->Curve, 1);
  EXPECT_EQ(meeting->Other, 0);
}

TEST(NotablePoints, PolarAndParametricCurvesMeetALine) {
  Plot plot;
  plot.SetSize(QSize(600, 600));
  std::int32_t kind = 0;
  plot.AddFunction(1, "y=x", 0, false, kind, false, false, false, 0);
  plot.AddFunction(2, "r=4", 0, false, kind, false, false, false, 0);
  plot.AddParametric("6*cos(t)", "6*sin(t)", 0, 2 * std::numbers::pi, 1, 0);
  plot.Redraw();
  ASSERT_EQ(plot.LastDrawing().Curves.size(), 3u);
  const auto at = Of(Found(plot, 0), Kind::Intersection);
  ASSERT_EQ(at.size(), 4u);
  const double r4 = 4 / std::sqrt(2.0), r6 = 6 / std::sqrt(2.0);
  const double expected[] = {-r6, -r4, r4, r6};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(at[i].x(), expected[i], 1e-12) << i;
    EXPECT_NEAR(at[i].y(), expected[i], 1e-12) << i;
  }
}

TEST(NotablePoints, ParametricAndPolarPointsAreRefinedOnTheParameter) {
  Plot plot;
  plot.SetSize(QSize(600, 600));
  plot.AddParametric("3*cos(t)", "3*sin(t)-1", 0, 2 * std::numbers::pi, 1, 0);
  std::int32_t kind = 0;
  plot.AddFunction(1, "r=2+cos(theta)", 0, false, kind, false, false, false, 0);
  plot.Redraw();
  ASSERT_EQ(plot.LastDrawing().Curves.size(), 2u);
  const auto circle = Found(plot, 1);
  const auto roots = Of(circle, Kind::Root);
  ASSERT_EQ(roots.size(), 2u);
  EXPECT_NEAR(roots[0].x(), -2 * std::sqrt(2.0), 1e-12);  // 3 sin t = 1: x = ±3 cos t = ±2√2
  EXPECT_NEAR(roots[1].x(), 2 * std::sqrt(2.0), 1e-12);
  const auto maxima = Of(circle, Kind::Maximum), minima = Of(circle, Kind::Minimum);
  ASSERT_EQ(maxima.size(), 1u);
  ASSERT_EQ(minima.size(), 1u);
  EXPECT_NEAR(maxima[0].y(), 2, 1e-12);
  EXPECT_NEAR(maxima[0].x(), 0, 1e-6);  // flat at the top: x is as good as its square root
  EXPECT_NEAR(minima[0].y(), -4, 1e-12);
  auto at = Of(circle, Kind::YIntercept);
  ASSERT_EQ(at.size(), 2u);
  std::sort(at.begin(), at.end(), [](QPointF a, QPointF b) { return a.y() < b.y(); });
  EXPECT_NEAR(at[0].y(), -4, 1e-12);
  EXPECT_NEAR(at[1].y(), 2, 1e-12);
  // r = 2 + cos(theta) meets the x-axis at 3 and -1 and the y-axis at ±2.
  const auto limacon = Found(plot, 0);
  const auto polarRoots = Of(limacon, Kind::Root);
  ASSERT_EQ(polarRoots.size(), 2u);
  EXPECT_NEAR(polarRoots[0].x(), -1, 1e-12);
  EXPECT_NEAR(polarRoots[1].x(), 3, 1e-12);
  for (const QPointF p : Of(limacon, Kind::YIntercept)) EXPECT_NEAR(std::abs(p.y()), 2, 1e-12);
}

TEST(NotablePoints, AnImplicitCurvesRootsAndInterceptsAreRefined) {
  const Plot plot = Drawn({"x^2+y^2=16"});
  const auto points = Found(plot);
  const auto roots = Of(points, Kind::Root);
  ASSERT_EQ(roots.size(), 2u);
  EXPECT_NEAR(roots[0].x(), -4, 1e-12);
  EXPECT_NEAR(roots[1].x(), 4, 1e-12);
  auto at = Of(points, Kind::YIntercept);
  ASSERT_EQ(at.size(), 2u);
  std::sort(at.begin(), at.end(), [](QPointF a, QPointF b) { return a.y() < b.y(); });
  EXPECT_NEAR(at[0].y(), -4, 1e-12);
  EXPECT_NEAR(at[1].y(), 4, 1e-12);
}

TEST(NotablePoints, AnImplicitCurvesExtremaAreRefined) {
  const Plot plot = Drawn({"x^2/16+(y-1)^2/4=1"});  // an ellipse: top (0, 3), bottom (0, -1)
  const auto points = Found(plot);
  const auto maxima = Of(points, Kind::Maximum), minima = Of(points, Kind::Minimum);
  ASSERT_EQ(maxima.size(), 1u);
  ASSERT_EQ(minima.size(), 1u);
  EXPECT_NEAR(maxima[0].y(), 3, 1e-12);
  EXPECT_NEAR(maxima[0].x(), 0, 1e-6);
  EXPECT_NEAR(minima[0].y(), -1, 1e-12);
}

TEST(NotablePoints, AnXOfYCurvesPointsAreRefined) {
  const Plot plot = Drawn({"x=y^2-3"});
  const auto points = Found(plot);
  const auto roots = Of(points, Kind::Root);
  ASSERT_EQ(roots.size(), 1u);
  EXPECT_NEAR(roots[0].x(), -3, 1e-12);
  auto at = Of(points, Kind::YIntercept);
  ASSERT_EQ(at.size(), 2u);
  std::sort(at.begin(), at.end(), [](QPointF a, QPointF b) { return a.y() < b.y(); });
  EXPECT_NEAR(at[0].y(), -std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(at[1].y(), std::sqrt(3.0), 1e-12);
}

TEST(NotablePoints, CrossingsWithAnImplicitCurveAreRefinedByNewton) {
  const Plot plot = Drawn({"x^2+y^2=25", "y=x/2", "x=y^2-5"});
  const auto withLine = Of(Found(plot, 1), Kind::Intersection);
  // The line meets the circle at ±(2√5, √5) and the parabola where y^2 - 2y - 5 = 0.
  const double c = 2 * std::sqrt(5.0);
  const double p1 = 1 - std::sqrt(6.0), p2 = 1 + std::sqrt(6.0);
  const double expected[] = {-c, 2 * p1, c, 2 * p2};
  ASSERT_EQ(withLine.size(), 4u);
  auto sorted = withLine;
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(sorted[i].x(), expected[i], 1e-12) << i;
    EXPECT_NEAR(sorted[i].y(), expected[i] / 2, 1e-12) << i;
  }
  // The circle and the parabola: y^2 - 5 = x and x^2 + y^2 = 25 give x^2 + x - 20 = 0, x = 4 or
  // -5, where they touch; a touching point keeps the precision of the picture.
  int crossings = 0;
  for (const QPointF at : Of(Found(plot, 0), Kind::Intersection)) {
    if (std::abs(at.y() - at.x() / 2) < 1e-9) continue;  // the line's
    if (at.x() > 0) {
      ++crossings;
      EXPECT_NEAR(at.x(), 4, 1e-12);
      EXPECT_NEAR(std::abs(at.y()), 3, 1e-12);
    } else {
      EXPECT_NEAR(at.x(), -5, 0.05);
    }
  }
  EXPECT_EQ(crossings, 2);
}

TEST(NotablePoints, PointsOutsideTheViewAreLeftOut) {
  const Plot plot = Drawn({"y=x^2-400"});  // roots at ±20, minimum far below
  EXPECT_TRUE(Found(plot).empty());
}

TEST(NotablePoints, NoCurveOrAnUnknownIndexGivesNothing) {
  const Plot plot = Drawn({});
  EXPECT_TRUE(Found(plot, 0).empty());
  EXPECT_TRUE(Found(Drawn({"y=x"}), 5).empty());
}

TEST(NotablePoints, PointTextIsFullPrecision) {
  EXPECT_EQ(plot2d::PointText(QPointF(std::sqrt(2.0), 0)), "(1.4142135623731, 0)");
  EXPECT_EQ(plot2d::PointText(QPointF(-1, 2.5)), "(-1, 2.5)");
}

TEST(NotablePoints, TheNearestCurvePointIsWithinReach) {
  const Plot plot = Drawn({"y=x"});
  const auto view = plot.View();
  const auto [curve, at] = plot2d::NearestCurvePoint(plot.LastDrawing(), view, view.ToPixel(3, 3) + QPointF(2, 0), 6);
  EXPECT_EQ(curve, 0);
  EXPECT_NEAR(at.x(), 3 + view.XPerPixel(), 0.05);
  const auto [none, unused] = plot2d::NearestCurvePoint(plot.LastDrawing(), view, view.ToPixel(3, -3), 6);
  EXPECT_EQ(none, -1);
}
