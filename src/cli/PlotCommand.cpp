#include "PlotCommand.h"

#include "SceneOptions.h"

#include "core/RuntimeError.h"
#include "plot2d/Plot.h"

#include <optional>

namespace cli {

namespace {

// The scene, and how plot paints and writes it.
struct PlotOptions {
  SceneOptions Scene;
  bool NoAxis = false, NoGrid = false, NoNumbers = false, NoFrame = false, Transparent = false;
  QString Output;
};

std::optional<PlotOptions> Parse(const QStringList& arguments, QTextStream& err) {
  PlotOptions o;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const SceneOptions::Read read = o.Scene.Take(arguments, i, err, QStringLiteral("plot"));
    if (read == SceneOptions::Read::Invalid) return std::nullopt;
    if (read == SceneOptions::Read::Taken) continue;
    const QString& a = arguments[i];
    if (a == u"--no-axis") {
      o.NoAxis = true;
    } else if (a == u"--no-grid") {
      o.NoGrid = true;
    } else if (a == u"--no-numbers") {
      o.NoNumbers = true;
    } else if (a == u"--no-frame") {
      o.NoFrame = true;
    } else if (a == u"--transparent") {
      o.Transparent = true;
    } else if (o.Output.isEmpty() && !a.startsWith(u"--")) {
      o.Output = a;
    } else {
      err << "quillograph-cli plot: unexpected \"" << a << "\"\n";
      return std::nullopt;
    }
  }
  if (o.Output.isEmpty()) {
    err << "quillograph-cli plot: name the picture to write (OUT)\n";
    return std::nullopt;
  }
  return o;
}

}  // namespace

QString PlotHelp() {
  return QStringLiteral(
      "  plot [OPTIONS] [--line TEXT]... OUT\n"
      "                      Draw rows with the program's plot engine and save the picture;\n"
      "                      the format comes from OUT's ending (.png, .jpg, .bmp).\n"
      "                      --line TEXT          a row: y=..., x=..., r=..., an implicit\n"
      "                                           equation, a declare(...) row, a bare expression\n"
      "                      --size WxH           picture size (800x600)\n"
      "                      --range X0,X1,Y0,Y1  plot range (the default range, -10 to 10)\n"
      "                      --quality N          1 to 100 (100)\n"
      "                      --thickness N        curve thickness in pixels (2)\n"
      "                      --point X,Y          a point\n"
      "                      --integral F;MIN;MAX or F;G;MIN;MAX\n"
      "                                           the area under F, or between F and G\n"
      "                      --inequality INEQ[;INEQ]\n"
      "                                           the region of y<f(x), y>=g(x)...\n"
      "                      --parametric X;Y;MIN;MAX[;polar]\n"
      "                                           a parametric curve in t\n"
      "                      --no-axis --no-grid --no-numbers --no-frame --transparent\n");
}

int RunPlot(const QStringList& arguments, Streams streams) {
  const auto options = Parse(arguments, streams.Err);
  if (!options) {
    streams.Err.flush();
    return 2;
  }
  plot2d::Plot plot;
  options->Scene.ApplyView(plot);
  plot.SetShowAxis(!options->NoAxis);
  plot.SetShowGrid(!options->NoGrid);
  plot.SetShowNumbers(!options->NoNumbers);
  plot.SetShowOuterFrame(!options->NoFrame);
  plot.SetTransparentBackground(options->Transparent);
  // A malformed option is the caller's mistake: no picture, as for any other bad option.
  if (!options->Scene.AddItems(plot, streams.Err, QStringLiteral("plot"))) {
    streams.Err.flush();
    return 2;
  }
  plot.Redraw();
  for (const QString& problem : plot.Problems()) streams.Err << "quillograph-cli plot: " << problem << '\n';
  try {
    plot.SavePicture(options->Output, 0);
  } catch (const core::RuntimeError& error) {
    streams.Err << "quillograph-cli plot: " << options->Output << ": " << error.Description() << '\n';
    streams.Err.flush();
    return 1;
  }
  streams.Err.flush();
  return 0;
}

}  // namespace cli
