#include "SceneOptions.h"

#include "CommandLine.h"

#include "core/ColorController.h"
#include "plotcompiler/EquationCompiler.h"

namespace cli {

namespace {

// The kind as the replot driver gives it from a row's start: 1 y=, 2 x=, 3 r=, else 0 (the plot
// decides).
std::int32_t KindOf(const QString& row) {
  if (row.startsWith(u"x=") || row.startsWith(u"declare(x=")) return 2;
  if (row.startsWith(u"y=") || row.startsWith(u"declare(y=")) return 1;
  if (row.startsWith(u"r=") || row.startsWith(u"declare(r=")) return 3;
  return 0;
}

QTextStream& Said(QTextStream& err, const QString& command) { return err << "quillograph-cli " << command << ": "; }

}  // namespace

SceneOptions::Read SceneOptions::Take(const QStringList& arguments, qsizetype& i, QTextStream& err,
                                      const QString& command) {
  const QString& a = arguments[i];
  QStringList* list = a == u"--line"         ? &Lines
                      : a == u"--point"      ? &Points
                      : a == u"--integral"   ? &Integrals
                      : a == u"--inequality" ? &Inequalities
                      : a == u"--parametric" ? &Parametrics
                                             : nullptr;
  const bool known = list || a == u"--size" || a == u"--range" || a == u"--quality" || a == u"--thickness";
  if (!known) return Read::NotOurs;
  if (i + 1 >= arguments.size()) {
    Said(err, command) << a << " needs a value\n";
    return Read::Invalid;
  }
  const QString value = arguments[++i];
  if (list) {
    *list << value;
  } else if (a == u"--size") {
    const auto n = NumberList(value, 2, u'x');
    if (!n || (*n)[0] < 1 || (*n)[1] < 1 || (*n)[0] > 20000 || (*n)[1] > 20000) {
      Said(err, command) << "--size wants WxH, such as 800x600\n";
      return Read::Invalid;
    }
    Size = QSize(static_cast<int>((*n)[0]), static_cast<int>((*n)[1]));
  } else if (a == u"--range") {
    const auto n = NumberList(value, 4, u',');
    if (!n) {
      Said(err, command) << "--range wants XMIN,XMAX,YMIN,YMAX\n";
      return Read::Invalid;
    }
    Range = std::array<double, 4>{(*n)[0], (*n)[1], (*n)[2], (*n)[3]};
  } else {
    bool ok = false;
    const double n = value.toDouble(&ok);
    if (!ok) {
      Said(err, command) << a << " wants a number\n";
      return Read::Invalid;
    }
    (a == u"--quality" ? Quality : Thickness) = n;
  }
  return Read::Taken;
}

void SceneOptions::ApplyView(plot2d::Plot& plot) const {
  plot.SetSize(Size);
  if (Range) {
    const auto& r = *Range;
    plot.SetXMin(r[0]), plot.SetXMax(r[1]), plot.SetYMin(r[2]), plot.SetYMax(r[3]);
  }
  plot.SetQuality(Quality);
  plot.SetThickness(Thickness);
}

bool SceneOptions::AddItems(plot2d::Plot& plot, QTextStream& err, const QString& command) const {
  bool wellFormed = true;
  core::Color color = 255;
  std::int32_t kind = 0;
  for (qsizetype i = 0; i < Lines.size(); ++i) {
    const QString& row = Lines[i];
    const std::int32_t start = KindOf(row);
    if (start != 0) kind = start;
    const QString line = row.contains(u'=') ? plotcompiler::CompileEquation(row, false) : row;
    plot.AddFunction(static_cast<std::int16_t>(i + 1), line, color, false, kind, false, true, false, 0);
    color = core::NextRowColor(color);
  }
  std::int16_t number = 0;
  for (const QString& text : Points) {
    const auto n = NumberList(text, 2, u',');
    if (!n) {
      Said(err, command) << "--point wants X,Y: " << text << '\n';
      wellFormed = false;
      continue;
    }
    double a = (*n)[0], b = (*n)[1];
    plot.AddPoint(++number, a, b, 1, color, true);
  }
  for (const QString& text : Integrals) {
    QStringList parts = text.split(u';');
    if (parts.size() == 3) parts.insert(1, QString());
    const auto bounds = parts.size() == 4 ? NumberList(parts[2] + u',' + parts[3], 2, u',') : std::nullopt;
    if (!bounds) {
      Said(err, command) << "--integral wants F;MIN;MAX or F;G;MIN;MAX: " << text << '\n';
      wellFormed = false;
      continue;
    }
    bool second = !parts[1].isEmpty();
    plot.AddIntegral(parts[0], (*bounds)[0], (*bounds)[1], 16744448, second, parts[1]);
  }
  for (const QString& text : Inequalities) {
    const QStringList parts = text.split(u';');
    plot.AddInequality(parts[0], 8388608, 16760576, parts.size() > 1, parts.value(1));
  }
  for (const QString& text : Parametrics) {
    const QStringList parts = text.split(u';');
    const auto bounds = parts.size() >= 4 ? NumberList(parts[2] + u',' + parts[3], 2, u',') : std::nullopt;
    if (!bounds) {
      Said(err, command) << "--parametric wants X;Y;MIN;MAX[;polar]: " << text << '\n';
      wellFormed = false;
      continue;
    }
    const std::int32_t type = parts.value(4) == u"polar" ? 2 : 1;
    plot.AddParametric(parts[0], parts[1], (*bounds)[0], (*bounds)[1], type, 32768);
  }
  return wellFormed;
}

}  // namespace cli
