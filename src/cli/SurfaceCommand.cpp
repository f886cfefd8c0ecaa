#include "SurfaceCommand.h"

#include "core/RuntimeError.h"
#include "plot3d/Plot3D.h"

#include <QSize>

#include <optional>

namespace cli {

namespace {

struct SurfaceOptions {
  std::int32_t Kind = 1;
  QString Equation;
  bool HasEquation = false;
  std::optional<std::vector<double>> Box, Theta, Phi, U, V;
  std::int32_t Grid = 1;
  double Zoom = 1;
  bool MeshLines = false;
  QSize Size{800, 600};
  QString Output;
};

// Reads the options; on a usage error says what is wrong and gives nothing.
std::optional<SurfaceOptions> Parse(const QStringList& arguments, QTextStream& err) {
  SurfaceOptions o;
  const auto fail = [&](const QString& message) {
    err << "quillograph-cli surface: " << message << '\n';
    return std::nullopt;
  };
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    if (a == u"--mesh-lines") {
      o.MeshLines = true;
      continue;
    }
    if (!a.startsWith(u"--")) {
      if (!o.Output.isEmpty()) return fail(QStringLiteral("unexpected \"%1\"").arg(a));
      o.Output = a;
      continue;
    }
    if (i + 1 >= arguments.size()) return fail(a + QStringLiteral(" needs a value"));
    const QString v = arguments[++i];
    const auto pair = [&](std::optional<std::vector<double>>& into) {
      into = NumberList(v, 2, u',');
      return into.has_value();
    };
    bool ok = true;
    if (a == u"--kind") {
      o.Kind = v.toInt(&ok);
      ok = ok && o.Kind >= 1 && o.Kind <= 6;
    } else if (a == u"--equation") {
      o.Equation = v, o.HasEquation = true;
    } else if (a == u"--box") {
      o.Box = NumberList(v, 6, u',');
      ok = o.Box.has_value();
    } else if (a == u"--theta") {
      ok = pair(o.Theta);
    } else if (a == u"--phi") {
      ok = pair(o.Phi);
    } else if (a == u"--u") {
      ok = pair(o.U);
    } else if (a == u"--v") {
      ok = pair(o.V);
    } else if (a == u"--grid") {
      o.Grid = v.toInt(&ok);
      ok = ok && o.Grid >= 1 && o.Grid <= 6;
    } else if (a == u"--zoom") {
      o.Zoom = v.toDouble(&ok);
    } else if (a == u"--size") {
      const auto n = NumberList(v, 2, u'x');
      ok = n && (*n)[0] >= 1 && (*n)[1] >= 1 && (*n)[0] <= 20000 && (*n)[1] <= 20000;
      if (ok) o.Size = QSize(static_cast<int>((*n)[0]), static_cast<int>((*n)[1]));
    } else {
      return fail(QStringLiteral("unknown option \"%1\"").arg(a));
    }
    if (!ok) return fail(QStringLiteral("%1 does not take \"%2\"; see --help").arg(a, v));
  }
  if (!o.HasEquation) return fail(QStringLiteral("give the surface with --equation TEXT"));
  if (o.Output.isEmpty()) return fail(QStringLiteral("name the picture to write (OUT)"));
  return o;
}

void Apply(const SurfaceOptions& o, plot3d::Plot3D& plot) {
  plot.SetFunctionKind(o.Kind);
  plot.SetEquation(o.Equation);
  plot.SetGridCount(o.Grid);
  plot.SetZoom(o.Zoom);
  plot.SetShowMeshLines(o.MeshLines);
  plot.SetSize(o.Size);
  if (o.Box) {
    const std::vector<double>& b = *o.Box;
    plot.SetXMin(b[0]), plot.SetXMax(b[1]), plot.SetYMin(b[2]), plot.SetYMax(b[3]), plot.SetZMin(b[4]), plot.SetZMax(b[5]);
  }
  if (o.Theta) plot.SetThetaMin((*o.Theta)[0]), plot.SetThetaMax((*o.Theta)[1]);
  if (o.Phi) plot.SetPhiMin((*o.Phi)[0]), plot.SetPhiMax((*o.Phi)[1]);
  if (o.U) plot.SetUMin((*o.U)[0]), plot.SetUMax((*o.U)[1]);
  if (o.V) plot.SetVMin((*o.V)[0]), plot.SetVMax((*o.V)[1]);
}

}  // namespace

QString SurfaceHelp() {
  return QStringLiteral(
      "  surface --kind N --equation TEXT [OPTIONS] OUT\n"
      "                      Draw one surface with the program's 3D engine and save the picture;\n"
      "                      the format comes from OUT's ending (.png, .jpg, .bmp).\n"
      "                      --kind N             1 z=f(x,y), 2 y=f(x,z), 3 x=f(y,z), 4 implicit\n"
      "                                           F=G, 5 r=f(theta,phi), 6 X:Y:Z of u and v\n"
      "                      --equation TEXT      the surface, without its \"z=\" (or \"r=\")\n"
      "                      --box X0,X1,Y0,Y1,Z0,Z1  the box (-5 to 5 on each axis)\n"
      "                      --theta A,B --phi A,B    ranges of kind 5 (0,2pi and 0,pi)\n"
      "                      --u A,B --v A,B          ranges of kind 6 (-5,5)\n"
      "                      --grid 1..6          50, 75, 100, 125, 150 or 200 steps a side (1)\n"
      "                      --zoom Z             0.25 to 3 (1)\n"
      "                      --mesh-lines         the mesh's edges over the surface\n"
      "                      --size WxH           picture size (800x600)\n");
}

int RunSurface(const QStringList& arguments, Streams streams) {
  const auto options = Parse(arguments, streams.Err);
  if (!options) {
    streams.Err.flush();
    return 2;
  }
  plot3d::Plot3D plot;
  Apply(*options, plot);
  plot.Redraw();
  if (!plot.Problem().isEmpty()) streams.Err << "quillograph-cli surface: " << plot.Problem() << '\n';
  try {
    plot.SavePicture(options->Output, 0);
  } catch (const core::RuntimeError& error) {
    streams.Err << "quillograph-cli surface: " << options->Output << ": " << error.Description() << '\n';
    streams.Err.flush();
    return 1;
  }
  streams.Err.flush();
  return 0;
}

}  // namespace cli
