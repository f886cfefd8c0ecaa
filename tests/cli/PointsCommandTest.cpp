// quillograph-cli points lists the special points exactly: each case's points are worked out by
// hand in closed form and must be printed to within 1e-12, at the default range and in a range a
// thousand times smaller about the point.
#include "CliRunner.h"

#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;
const double kHalfRoot2 = std::sqrt(2.0) / 2;

struct Expected {
  const char* Kind;
  double X, Y;
};

struct Case {
  const char* Name;
  QStringList Items;  // --line TEXT and --inequality TEXT pairs
  std::vector<Expected> Points;
};

struct Printed {
  QString Kind;
  double X, Y;
  QString Line;
};

// The lines of the output as kind and numbers; every line must have the form "KIND (X, Y)".
std::vector<Printed> Read(const QString& out) {
  static const QRegularExpression form(QStringLiteral("^(Root|Maximum|Minimum|y-Intercept|Intersection|Corner) \\(([^,]+), ([^)]+)\\)$"));
  std::vector<Printed> printed;
  for (const QString& line : out.split(u'\n', Qt::SkipEmptyParts)) {
    const auto match = form.match(line);
    EXPECT_TRUE(match.hasMatch()) << line.toStdString();
    if (!match.hasMatch()) continue;
    bool okX = false, okY = false;
    printed.push_back({match.captured(1), match.captured(2).toDouble(&okX), match.captured(3).toDouble(&okY), line});
    EXPECT_TRUE(okX && okY) << line.toStdString();
  }
  return printed;
}

bool Close(double a, double b) { return std::abs(a - b) <= 1e-12 * std::max(1.0, std::abs(b)); }

void ExpectListed(const QStringList& arguments, const Expected& e, const char* name) {
  const CliResult r = RunCli(QStringList{"points"} + arguments);
  ASSERT_EQ(r.Code, 0) << name << r.Err.toStdString();
  const auto printed = Read(r.Out);
  const bool found = std::any_of(printed.begin(), printed.end(), [&](const Printed& p) {
    return p.Kind == QLatin1String(e.Kind) && Close(p.X, e.X) && Close(p.Y, e.Y);
  });
  EXPECT_TRUE(found) << name << ": " << e.Kind << " " << e.X << ", " << e.Y << " not in\n" << r.Out.toStdString();
}

std::vector<Case> Cases() {
  std::vector<Expected> sinCos;
  for (int k = -3; k <= 2; ++k) sinCos.push_back({"Intersection", kPi / 4 + k * kPi, k % 2 == 0 ? kHalfRoot2 : -kHalfRoot2});
  return {
      {"sin meets cos", {"--line", "y=sin(x)", "--line", "y=cos(x)"}, sinCos},
      {"a parabola",
       {"--line", "y=x^2-3x+2"},
       {{"Root", 1, 0}, {"Root", 2, 0}, {"Minimum", 1.5, -0.25}, {"y-Intercept", 0, 2}}},
      {"a cubic", {"--line", "y=x^3-3x"}, {{"Maximum", -1, 2}, {"Minimum", 1, -2}, {"Root", std::sqrt(3.0), 0}}},
      {"a circle and a line", {"--line", "x^2+y^2=25", "--line", "y=x+1"}, {{"Intersection", 3, 4}, {"Intersection", -4, -3}}},
      {"a rose and the diagonal",
       {"--line", "r=sin(2q..symb)", "--line", "y=x"},
       {{"Intersection", kHalfRoot2, kHalfRoot2}, {"Intersection", -kHalfRoot2, -kHalfRoot2}, {"Intersection", 0, 0}}},
      {"a region's corners", {"--inequality", "y<2-x^2;y>x"}, {{"Corner", 1, 1}, {"Corner", -2, -2}}},
  };
}

QString Range(double x, double y) {
  return QStringLiteral("%1,%2,%3,%4").arg(x - 0.01, 0, 'g', 17).arg(x + 0.01, 0, 'g', 17).arg(y - 0.01, 0, 'g', 17).arg(y + 0.01, 0, 'g', 17);
}

}  // namespace

TEST(PointsCommand, ListsExactPointsAtTheDefaultRange) {
  for (const Case& c : Cases()) {
    for (const Expected& e : c.Points) ExpectListed(c.Items, e, c.Name);
  }
}

TEST(PointsCommand, ListsTheSamePointsInARangeAThousandTimesSmaller) {
  for (const Case& c : Cases()) {
    for (const Expected& e : c.Points) {
      ExpectListed(c.Items + QStringList{"--range", Range(e.X + 0.0013, e.Y - 0.0021)}, e, c.Name);
    }
  }
}

TEST(PointsCommand, PrintsWhatTheTipsCopy) {
  const CliResult r = RunCli({"points", "--size", "600x400", "--line", "y=sin(x)", "--line", "y=cos(x)"});
  ASSERT_EQ(r.Code, 0);
  // The same scene, asked of the plot engine directly.
  plot2d::Plot plot;
  plot.SetSize(QSize(600, 400));
  std::int32_t kind = 1;
  plot.AddFunction(1, "y=sin(x)", 255, false, kind, false, true, false, 0);
  plot.AddFunction(2, "y=cos(x)", 33023, false, kind, false, true, false, 0);
  plot.Redraw();
  QString expected;
  for (const auto& p : plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View())) {
    expected += plot2d::KindName(p.What) + u' ' + plot2d::PointText(p.At) + u'\n';
  }
  EXPECT_EQ(r.Out, expected);
  EXPECT_TRUE(r.Out.contains("Intersection (0.785398163397448, 0.707106781186548)\n")) << r.Out.toStdString();
}

TEST(PointsCommand, OnlyPointsInsideTheRange) {
  const CliResult r = RunCli({"points", "--range", "0,10,-10,10", "--line", "y=x^2-3x+2"});
  ASSERT_EQ(r.Code, 0);
  for (const Printed& p : Read(r.Out)) EXPECT_GE(p.X, 0) << p.Line.toStdString();
  EXPECT_TRUE(RunCli({"points", "--range", "10,20,-1,1", "--line", "y=x^2-3x+2"}).Out.isEmpty());
}

TEST(PointsCommand, BadOptionsAreUsageErrors) {
  struct Bad {
    QStringList Arguments;
    const char* Said;
  };
  for (const auto& [arguments, said] : {Bad{{"points", "--range", "1,2"}, "--range wants"},
                                        Bad{{"points", "--line"}, "--line needs a value"},
                                        Bad{{"points", "out.png"}, "unexpected \"out.png\""},
                                        Bad{{"points", "--parametric", "t;t"}, "--parametric wants"}}) {
    const CliResult r = RunCli(arguments);
    EXPECT_EQ(r.Code, 2) << said;
    EXPECT_TRUE(r.Out.isEmpty()) << said;
    EXPECT_TRUE(r.Err.contains(QString::fromLatin1(said))) << r.Err.toStdString();
  }
}

TEST(PointsCommand, ARowThatCannotBeDrawnIsSaid) {
  const CliResult r = RunCli({"points", "--line", "y=foo(x)", "--line", "y=x-1"});
  EXPECT_EQ(r.Code, 0);
  EXPECT_TRUE(r.Err.contains("quillograph-cli points: row 1")) << r.Err.toStdString();
  EXPECT_TRUE(r.Out.contains("Root (1, 0)\n")) << r.Out.toStdString();
}

TEST(PointsCommand, IsInTheHelp) {
  const CliResult r = RunCli({"--help"});
  EXPECT_TRUE(r.Out.contains("  points [OPTIONS] [--line TEXT]... [--inequality INEQ[;INEQ]]...\n"));
  EXPECT_TRUE(r.Out.contains("KIND (X, Y)"));
}

TEST(PointsCommand, ARowGivenTwiceDoesNotMeetItself) {
  // Two rows with one equation share every point: their pictures cross wherever their vertices
  // meet, and none of those crossings is a point of the curve's own.
  for (const char* row : {"y=2x+1", "y=declare(sqrt(x)+2,x>1)", "r=2+cos(q..symb)"}) {
    const CliResult r = RunCli({"points", "--size", "1280x800", "--quality", "90", "--line", row, "--line", row});
    ASSERT_EQ(r.Code, 0);
    EXPECT_FALSE(r.Out.contains("Intersection")) << row << "\n" << r.Out.toStdString();
  }
}
