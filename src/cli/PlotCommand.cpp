#include "PlotCommand.h"

#include "core/ColorController.h"
#include "core/RuntimeError.h"
#include "plot2d/Plot.h"
#include "plotcompiler/EquationCompiler.h"

#include <QSize>

#include <optional>

namespace cli {

namespace {

struct PlotOptions {
  QSize Size{800, 600};
  std::optional<std::array<double, 4>> Range;
  double Quality = 100;
  double Thickness = 2;
  QStringList Lines, Points, Integrals, Inequalities, Parametrics;
  bool NoAxis = false, NoGrid = false, NoNumbers = false, NoFrame = false, Transparent = false;
  QString Output;
};

// The kind as the replot driver gives it from a row's start: 1 y=, 2 x=, 3 r=, else 0 (the plot
// decides).
std::int32_t KindOf(const QString& row) {
  if (row.startsWith(u"x=") || row.startsWith(u"declare(x=")) return 2;
  if (row.startsWith(u"y=") || row.startsWith(u"declare(y=")) return 1;
  if (row.startsWith(u"r=") || row.startsWith(u"declare(r=")) return 3;
  return 0;
}

std::optional<PlotOptions> Parse(const QStringList& arguments, QTextStream& err) {
  PlotOptions o;
  const auto value = [&](qsizetype& i) -> std::optional<QString> {
    if (i + 1 >= arguments.size()) {
      err << "quillograph-cli plot: " << arguments[i] << " needs a value\n";
      return std::nullopt;
    }
    return arguments[++i];
  };
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    const auto list = [&](QStringList& into) {
      const auto v = value(i);
      if (v) into << *v;
      return v.has_value();
    };
    if (a == u"--size") {
      const auto v = value(i);
      const auto n = v ? NumberList(*v, 2, u'x') : std::nullopt;
      if (!n || (*n)[0] < 1 || (*n)[1] < 1 || (*n)[0] > 20000 || (*n)[1] > 20000) {
        err << "quillograph-cli plot: --size wants WxH, such as 800x600\n";
        return std::nullopt;
      }
      o.Size = QSize(static_cast<int>((*n)[0]), static_cast<int>((*n)[1]));
    } else if (a == u"--range") {
      const auto v = value(i);
      const auto n = v ? NumberList(*v, 4, u',') : std::nullopt;
      if (!n) {
        err << "quillograph-cli plot: --range wants XMIN,XMAX,YMIN,YMAX\n";
        return std::nullopt;
      }
      o.Range = std::array<double, 4>{(*n)[0], (*n)[1], (*n)[2], (*n)[3]};
    } else if (a == u"--quality" || a == u"--thickness") {
      const auto v = value(i);
      bool ok = false;
      const double n = v ? v->toDouble(&ok) : 0;
      if (!ok) {
        err << "quillograph-cli plot: " << a << " wants a number\n";
        return std::nullopt;
      }
      (a == u"--quality" ? o.Quality : o.Thickness) = n;
    } else if (a == u"--line") {
      if (!list(o.Lines)) return std::nullopt;
    } else if (a == u"--point") {
      if (!list(o.Points)) return std::nullopt;
    } else if (a == u"--integral") {
      if (!list(o.Integrals)) return std::nullopt;
    } else if (a == u"--inequality") {
      if (!list(o.Inequalities)) return std::nullopt;
    } else if (a == u"--parametric") {
      if (!list(o.Parametrics)) return std::nullopt;
    } else if (a == u"--no-axis") {
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

// Adds the rows and items; false when an option's text has not the form it wants (each such is
// said on err).
bool AddRows(plot2d::Plot& plot, const PlotOptions& o, QTextStream& err) {
  bool wellFormed = true;
  core::Color color = 255;
  std::int32_t kind = 0;
  for (qsizetype i = 0; i < o.Lines.size(); ++i) {
    const QString& row = o.Lines[i];
    const std::int32_t start = KindOf(row);
    if (start != 0) kind = start;
    const QString line = row.contains(u'=') ? plotcompiler::CompileEquation(row, false) : row;
    plot.AddFunction(static_cast<std::int16_t>(i + 1), line, color, false, kind, false, true, false, 0);
    color = core::NextRowColor(color);
  }
  std::int16_t number = 0;
  for (const QString& text : o.Points) {
    const auto n = NumberList(text, 2, u',');
    if (!n) {
      err << "quillograph-cli plot: --point wants X,Y: " << text << '\n';
      wellFormed = false;
      continue;
    }
    double a = (*n)[0], b = (*n)[1];
    plot.AddPoint(++number, a, b, 1, color, true);
  }
  for (const QString& text : o.Integrals) {
    QStringList parts = text.split(u';');
    if (parts.size() == 3) parts.insert(1, QString());
    const auto bounds = parts.size() == 4 ? NumberList(parts[2] + u',' + parts[3], 2, u',') : std::nullopt;
    if (!bounds) {
      err << "quillograph-cli plot: --integral wants F;MIN;MAX or F;G;MIN;MAX: " << text << '\n';
      wellFormed = false;
      continue;
    }
    bool second = !parts[1].isEmpty();
    plot.AddIntegral(parts[0], (*bounds)[0], (*bounds)[1], 16744448, second, parts[1]);
  }
  for (const QString& text : o.Inequalities) {
    const QStringList parts = text.split(u';');
    plot.AddInequality(parts[0], 8388608, 16760576, parts.size() > 1, parts.value(1));
  }
  for (const QString& text : o.Parametrics) {
    const QStringList parts = text.split(u';');
    const auto bounds = parts.size() >= 4 ? NumberList(parts[2] + u',' + parts[3], 2, u',') : std::nullopt;
    if (!bounds) {
      err << "quillograph-cli plot: --parametric wants X;Y;MIN;MAX[;polar]: " << text << '\n';
      wellFormed = false;
      continue;
    }
    const std::int32_t type = parts.value(4) == u"polar" ? 2 : 1;
    plot.AddParametric(parts[0], parts[1], (*bounds)[0], (*bounds)[1], type, 32768);
  }
  return wellFormed;
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
  plot.SetSize(options->Size);
  if (options->Range) {
    const auto& r = *options->Range;
    plot.SetXMin(r[0]), plot.SetXMax(r[1]), plot.SetYMin(r[2]), plot.SetYMax(r[3]);
  }
  plot.SetQuality(options->Quality);
  plot.SetThickness(options->Thickness);
  plot.SetShowAxis(!options->NoAxis);
  plot.SetShowGrid(!options->NoGrid);
  plot.SetShowNumbers(!options->NoNumbers);
  plot.SetShowOuterFrame(!options->NoFrame);
  plot.SetTransparentBackground(options->Transparent);
  // A malformed option is the caller's mistake: no picture, as for any other bad option.
  if (!AddRows(plot, *options, streams.Err)) {
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
