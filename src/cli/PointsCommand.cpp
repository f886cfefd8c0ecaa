#include "PointsCommand.h"

#include "SceneOptions.h"

#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

#include <optional>

namespace cli {

namespace {

std::optional<SceneOptions> Parse(const QStringList& arguments, QTextStream& err) {
  SceneOptions o;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const SceneOptions::Read read = o.Take(arguments, i, err, QStringLiteral("points"));
    if (read == SceneOptions::Read::Invalid) return std::nullopt;
    if (read == SceneOptions::Read::NotOurs) {
      err << "quillograph-cli points: unexpected \"" << arguments[i] << "\"\n";
      return std::nullopt;
    }
  }
  return o;
}

}  // namespace

QString PointsHelp() {
  return QStringLiteral(
      "  points [OPTIONS] [--line TEXT]... [--inequality INEQ[;INEQ]]...\n"
      "                      Print every special point that the plot's tips show: roots,\n"
      "                      maxima, minima, y-intercepts, intersections of any two curves and\n"
      "                      the corners of an inequality's region, one a line as\n"
      "                        KIND (X, Y)\n"
      "                      KIND is Root, Maximum, Minimum, y-Intercept, Intersection or\n"
      "                      Corner; X and Y have 15 significant digits, as a click on a\n"
      "                      point's dot copies them. The points are exact at any range and\n"
      "                      size; only those inside the range are listed.\n"
      "                      --line TEXT          a row, as for plot\n"
      "                      --inequality INEQ[;INEQ]\n"
      "                                           the region of the inequality tab: each INEQ\n"
      "                                           is y, then <, >, <= or >=, then an expression\n"
      "                                           in x (y<2-x^2); two, joined by \";\", bound one\n"
      "                                           region, whose corners are where they meet\n"
      "                      --parametric X;Y;MIN;MAX[;polar]\n"
      "                                           a parametric curve in t, as for plot\n"
      "                      --range X0,X1,Y0,Y1  plot range (the default range, -10 to 10)\n"
      "                      --size WxH           picture size (800x600): which points lie\n"
      "                                           within a pixel of each other, and so are one\n"
      "                      --quality N          1 to 100 (100)\n");
}

int RunPoints(const QStringList& arguments, Streams streams) {
  const auto options = Parse(arguments, streams.Err);
  if (!options) {
    streams.Err.flush();
    return 2;
  }
  plot2d::Plot plot;
  options->ApplyView(plot);
  if (!options->AddItems(plot, streams.Err, QStringLiteral("points"))) {
    streams.Err.flush();
    return 2;
  }
  plot.Redraw();
  for (const QString& problem : plot.Problems()) streams.Err << "quillograph-cli points: " << problem << '\n';
  for (const plot2d::NotablePoint& point : plot2d::FindAllNotablePoints(plot.LastDrawing(), plot.View())) {
    streams.Out << plot2d::KindName(point.What) << ' ' << plot2d::PointText(point.At) << '\n';
  }
  streams.Out.flush();
  streams.Err.flush();
  return 0;
}

}  // namespace cli
