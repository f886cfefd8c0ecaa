#include "plot2d/CurveSampler.h"
#include "plot2d/ImplicitTracer.h"
#include "mathlang/LineParser.h"
#include "plot2d/Plot.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QLineF>

#include <cmath>

using namespace plot2d;
using namespace mathlang;

namespace {

struct Explicit {
  ParsedLine Line;
  CurveSource Source;

  explicit Explicit(const QString& text) : Line(ParseLine(text)) {
    EXPECT_TRUE(Line.Ok()) << text.toStdString();
    Source.Kind = CurveSource::Mode::YOfX;
    Source.First = BlockProgram(Line.Tree, Line.Right);
    if (Line.Condition >= 0) {
      Source.HasCondition = true;
      Source.Condition = BlockProgram(Line.Tree, Line.Condition);
      for (const Comparison& c : Line.Comparisons) {
        const Node& n = Line.Tree.At(c.Node);
        Source.Comparisons.push_back({BlockProgram(Line.Tree, c.Node), BlockProgram(Line.Tree, n.A),
                                      BlockProgram(Line.Tree, n.B), c.Inclusive});
      }
    }
  }

  SampledCurve Sample(const ViewTransform& view, int quality = 100) const {
    return CurveSampler(Source, view, quality).Sample(view.XMin(), view.XMax(), CurveSampler::SamplesFor(view.Width(), quality));
  }
};

const ViewTransform kView(-10, 10, -10, 10, QSize(800, 600));

}  // namespace

TEST(CurveSampler, ARestrictedCurveEndsExactlyAtItsBounds) {
  const SampledCurve curve = Explicit("y=x;0<x<3").Sample(kView);
  ASSERT_EQ(curve.Pieces.size(), 1u);
  EXPECT_NEAR(curve.Pieces[0].first().x(), 0, 1e-9);
  EXPECT_NEAR(curve.Pieces[0].last().x(), 3, 1e-9);
  ASSERT_EQ(curve.Ends.size(), 2u);
  EXPECT_FALSE(curve.Ends[0].Inclusive);
  EXPECT_FALSE(curve.Ends[1].Inclusive);
  const SampledCurve inclusive = Explicit("y=x;0<=x<=3").Sample(kView);
  ASSERT_EQ(inclusive.Ends.size(), 2u);
  EXPECT_TRUE(inclusive.Ends[0].Inclusive);
  EXPECT_TRUE(inclusive.Ends[1].Inclusive);
}

TEST(CurveSampler, SqrtReachesZero) {
  const SampledCurve curve = Explicit("y=sqrt(x)").Sample(kView);
  ASSERT_EQ(curve.Pieces.size(), 1u);
  EXPECT_LT(curve.Pieces[0].first().x(), 1e-9);
  EXPECT_GE(curve.Pieces[0].first().x(), 0);
  EXPECT_TRUE(curve.Ends.empty());  // a domain edge is no bound of a condition
}

TEST(CurveSampler, NoLineJoinsTheBranchesOfTanOrOneOverX) {
  const SampledCurve tan = Explicit("y=tan(x)").Sample(kView);
  EXPECT_EQ(tan.Pieces.size(), 7u);  // six poles in [-10, 10]
  for (const QPolygonF& piece : tan.Pieces) {
    for (qsizetype i = 1; i < piece.size(); ++i) {
      // Consecutive points on the same side of every pole.
      // tan is sin/cos, whose poles lie at the true odd multiples of pi/2.
      const double k0 = std::floor((piece[i - 1].x() - M_PI / 2) / M_PI);
      const double k1 = std::floor((piece[i].x() - M_PI / 2) / M_PI);
      EXPECT_EQ(k0, k1) << piece[i - 1].x() << " to " << piece[i].x();
    }
  }
  EXPECT_EQ(Explicit("y=1/x").Sample(kView).Pieces.size(), 2u);
  EXPECT_EQ(Explicit("y=1/(x^2-1)").Sample(kView).Pieces.size(), 3u);
}

TEST(CurveSampler, StepsOfFixAreNotJoined) {
  const SampledCurve steps = Explicit("y=fix(x)").Sample(kView);
  EXPECT_EQ(steps.Pieces.size(), 19u);  // -9 to 9; the steps -10 and 10 touch the view in a point
  for (const QPolygonF& piece : steps.Pieces) {
    for (const QPointF& p : piece) EXPECT_EQ(p.y(), piece.first().y());
  }
}

TEST(CurveSampler, SmoothAtAnyZoom) {
  // The polyline strays from the true curve by well under a pixel between its points.
  for (const double zoom : {1.0, 1e-3, 1e3}) {
    const ViewTransform view(-10 * zoom, 10 * zoom, -2, 2, QSize(800, 600));
    const SampledCurve curve = Explicit(QString("y=sin(x/%1)").arg(zoom)).Sample(view);
    ASSERT_EQ(curve.Pieces.size(), 1u);
    const QPolygonF& p = curve.Pieces[0];
    for (qsizetype i = 1; i < p.size(); ++i) {
      const double mx = (p[i - 1].x() + p[i].x()) / 2;
      const double chordY = (p[i - 1].y() + p[i].y()) / 2;
      const double error = std::abs(view.ToPixelY(std::sin(mx / zoom)) - view.ToPixelY(chordY));
      ASSERT_LT(error, 0.6) << "zoom " << zoom << " at x=" << mx;
    }
  }
}

TEST(CurveSampler, PolarAndParametric) {
  ParsedLine x = ParseExpression("cos(t)");
  ParsedLine y = ParseExpression("sin(x)");  // the parameter may be written x
  CurveSource source;
  source.Kind = CurveSource::Mode::Parametric;
  source.First = BlockProgram(x.Tree, x.Right);
  source.Second = BlockProgram(y.Tree, y.Right);
  const SampledCurve circle = CurveSampler(source, kView, 100).Sample(0, 6.28318530717958, 500);
  ASSERT_EQ(circle.Pieces.size(), 1u);
  for (const QPointF& p : circle.Pieces[0]) EXPECT_NEAR(std::hypot(p.x(), p.y()), 1, 1e-12);
}

TEST(ImplicitTracer, CurvesComeOutWholeAndOnTheirEquation) {
  struct Case {
    const char* line;
    double (*f)(double, double);
    double tolerance;
  };
  const Case cases[] = {
      {"x^2+y^2=25", [](double x, double y) { return x * x + y * y - 25; }, 0.05},
      {"x^2-y^2=1", [](double x, double y) { return x * x - y * y - 1; }, 0.05},
      {"sin(x)=cos(y)", [](double x, double y) { return std::sin(x) - std::cos(y); }, 0.01},
      {"(x^2+y^2-1)^3=x^2*y^3", [](double x, double y) { return std::pow(x * x + y * y - 1, 3) - x * x * y * y * y; }, 0.01},
      {"tan(x*y)=1", [](double x, double y) { return std::tan(x * y) - 1; }, 0.2},
  };
  for (const Case& c : cases) {
    const ParsedLine line = ParseLine(c.line);
    ASSERT_TRUE(line.Ok());
    ExpressionTree tree = line.Tree;
    const BlockProgram difference(tree, tree.AddBinary(NodeKind::Subtract, line.Left, line.Right));
    const ViewTransform view(-6, 6, -6, 6, QSize(600, 600));
    const auto lines = ImplicitTracer(difference, view, 100).Trace();
    EXPECT_FALSE(lines.empty()) << "nothing traced for " << c.line;
    for (const QPolygonF& polyline : lines) {
      for (const QPointF& p : polyline) {
        ASSERT_LT(std::abs(c.f(p.x(), p.y())), c.tolerance) << c.line << " at " << p.x() << "," << p.y();
      }
    }
  }
}

// The lines of an implicit equation "F=G" in the view, at full quality.
std::vector<QPolygonF> Traced(const char* equation, const ViewTransform& view) {
  const ParsedLine line = ParseLine(equation);
  ExpressionTree tree = line.Tree;
  const BlockProgram difference(tree, tree.AddBinary(NodeKind::Subtract, line.Left, line.Right));
  return ImplicitTracer(difference, view, 100).Trace();
}

TEST(ImplicitTracer, ACircleIsOneClosedLine) {
  const auto lines = Traced("x^2+y^2=4", ViewTransform(-3, 3, -3, 3, QSize(600, 600)));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_LT(QLineF(lines[0].first(), lines[0].last()).length(), 0.05);
}

// A curve through many thousands of leaves is split and contoured in two halves at once; it
// still comes out as one closed line, on the curve, with no piece twice or missing.
TEST(ImplicitTracer, ALargeCircleIsOneClosedLineToo) {
  const auto lines = Traced("x^2+y^2=80", ViewTransform(-10, 10, -10, 10, QSize(3840, 3840)));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_LT(QLineF(lines[0].first(), lines[0].last()).length(), 0.01);
  // Leaves of two pixels around a circumference of about 5400.
  EXPECT_GT(lines[0].size(), 4000);
  double turned = 0;
  for (qsizetype i = 0; i < lines[0].size(); ++i) {
    const QPointF p = lines[0][i];
    EXPECT_NEAR(std::hypot(p.x(), p.y()), std::sqrt(80.0), 1e-6);
    if (i > 0) turned += std::remainder(std::atan2(p.y(), p.x()) - std::atan2(lines[0][i - 1].y(), lines[0][i - 1].x()), 2 * M_PI);
  }
  EXPECT_NEAR(std::abs(turned), 2 * M_PI, 0.01);  // once round, not twice
}

// A product of factors, each defined on its own piece: every piece is drawn, up to the corners
// where a piece meets the edge of its domain.
TEST(ImplicitTracer, ThePiecesOfABatmanEquationComeOutWhole) {
  const char* batman =
      "((x/7)^2*sqrt(abs(abs(x)-3)/(abs(x)-3))+(y/3)^2*sqrt(abs(y+3*sqrt(33)/7)/(y+3*sqrt(33)/7))-1)"
      "*(abs(x/2)-((3*sqrt(33)-7)/112)*x^2-3+sqrt(1-(abs(abs(x)-2)-1)^2)-y)"
      "*(9*sqrt(abs((abs(x)-1)*(abs(x)-0.75))/((1-abs(x))*(abs(x)-0.75)))-8*abs(x)-y)"
      "*(3*abs(x)+0.75*sqrt(abs((abs(x)-0.75)*(abs(x)-0.5))/((0.75-abs(x))*(abs(x)-0.5)))-y)"
      "*(2.25*sqrt(abs((x-0.5)*(x+0.5))/((0.5-x)*(0.5+x)))-y)"
      "*(6*sqrt(10)/7+(1.5-0.5*abs(x))*sqrt(abs(abs(x)-1)/(abs(x)-1))-(6*sqrt(10)/14)*sqrt(4-(abs(x)-1)^2)-y)=0";
  plot2d::Plot plot;
  plot.SetSize(QSize(900, 500));
  plot.SetXMin(-8), plot.SetXMax(8), plot.SetYMin(-4), plot.SetYMax(4);
  std::int32_t kind = 0;
  plot.AddFunction(1, batman, 255, false, kind, false, false, false, 0);
  EXPECT_EQ(kind, 4);
  plot.Redraw();
  ASSERT_EQ(plot.LastDrawing().Curves.size(), 1u);
  const auto& lines = plot.LastDrawing().Curves[0].Pieces;
  // Landmarks of the outline: the wing tips, the shoulder corners, the ears, the bottom point.
  const QPointF landmarks[] = {{7, 0}, {-7, 0}, {3, 6 * std::sqrt(10.0) / 7}, {-3, 6 * std::sqrt(10.0) / 7},
                               {0.75, 3}, {-0.75, 3}, {0, 2.25}, {0, -2.75}};
  for (const QPointF& landmark : landmarks) {
    // The distance to the drawn line, segment by segment (straight runs keep only their ends).
    double nearest = 1e9;
    for (const QPolygonF& line : lines) {
      for (qsizetype i = 1; i < line.size(); ++i) {
        const QPointF d = line[i] - line[i - 1];
        const double length2 = QPointF::dotProduct(d, d);
        const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(landmark - line[i - 1], d) / length2, 0.0, 1.0) : 0;
        nearest = std::min(nearest, QLineF(line[i - 1] + t * d, landmark).length());
      }
    }
    EXPECT_LT(nearest, 0.05) << landmark.x() << "," << landmark.y();
  }
}

// An endless wiggle takes a bounded number of points, so that the drawing ends at once; the curve
// is still drawn on both sides of it.
TEST(Sampler, AnEndlessWiggleTakesABoundedNumberOfPoints) {
  for (const char* text : {"y=sin(1/x)", "y=x*sin(1/x)", "y=cos(1/(x-1))"}) {
    const Explicit curve(text);
    const ViewTransform view(-10, 10, -10, 10, QSize(1280, 800));
    const SampledCurve sampled = curve.Sample(view);
    qsizetype points = 0;
    for (const QPolygonF& piece : sampled.Pieces) points += piece.size();
    EXPECT_GT(points, 1000) << text;
    EXPECT_LE(points, 256 * CurveSampler::SamplesFor(view.Width(), 100) + 1) << text;
  }
}

// The points of a piece come in the order of the parameter, however the refinement added them,
// also when the range is given backwards; refining adds points between the even samples.
TEST(CurveSampler, PiecesRunInTheOrderOfTheParameter) {
  for (const char* text : {"y=sin(x)", "y=tan(x)", "y=1/(x-1)", "y=sin(1/x)", "y=sqrt(4-x^2)", "y=x^3-2*x;-1<x<=2",
                           "y=fix(x)", "y=abs(x)"}) {
    const Explicit curve(text);
    const CurveSampler sampler(curve.Source, kView, 100);
    for (const auto& [from, to] : {std::pair{-10.0, 10.0}, std::pair{10.0, -10.0}}) {
      const SampledCurve sampled = sampler.Sample(from, to, 40);
      ASSERT_FALSE(sampled.Pieces.empty()) << text;
      qsizetype points = 0;
      for (const QPolygonF& piece : sampled.Pieces) {
        points += piece.size();
        for (qsizetype i = 1; i < piece.size(); ++i) ASSERT_LT(piece[i - 1].x(), piece[i].x()) << text << " from " << from;
      }
      EXPECT_GT(points, 41) << text;
    }
  }
}
