#include "TypesetCommand.h"

#include "core/RuntimeError.h"
#include "mathx/Formula.h"
#include "render/PictureFile.h"

#include <QColor>
#include <QPainter>

#include <optional>

namespace cli {

namespace {

struct TypesetOptions {
  QString Text;
  QString Output;
  double Points = 14;
  double Scale = 1;
  QColor Color = Qt::black;
  bool Tree = false;
};

std::optional<TypesetOptions> Parse(const QStringList& arguments, QTextStream& err) {
  TypesetOptions o;
  QStringList plain;
  const auto fail = [&](const QString& message) {
    err << "quillograph-cli typeset: " << message << '\n';
    return std::nullopt;
  };
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    if (a == u"--tree") {
      o.Tree = true;
      continue;
    }
    if (!a.startsWith(u"--") || a == u"--") {
      plain << a;
      continue;
    }
    if (i + 1 >= arguments.size()) return fail(a + QStringLiteral(" needs a value"));
    const QString v = arguments[++i];
    bool ok = true;
    if (a == u"--size") {
      o.Points = v.toDouble(&ok);
      ok = ok && o.Points >= 4 && o.Points <= 200;
    } else if (a == u"--scale") {
      o.Scale = v.toDouble(&ok);
      ok = ok && o.Scale >= 0.25 && o.Scale <= 8;
    } else if (a == u"--color") {
      o.Color = QColor::fromString(v);
      ok = o.Color.isValid();
    } else {
      return fail(QStringLiteral("unknown option \"%1\"").arg(a));
    }
    if (!ok) return fail(QStringLiteral("%1 does not take \"%2\"; see --help").arg(a, v));
  }
  if (plain.size() != 2) return fail(QStringLiteral("give the row text and the picture to write: typeset TEXT OUT"));
  o.Text = plain[0];
  o.Output = plain[1];
  return o;
}

QString KindName(const mathx::LayoutBox& box) {
  static const char* const kinds[] = {"row", "text", "rule", "radical", "fence", "frame", "placeholder"};
  static const char* const roles[] = {"",           "base",         "exponent",     "numerator", "denominator",
                                      "bar",        "radicand",     "index",        "header",    "point",
                                      "cell",       "table-rule",   "command",      "operator"};
  QString name = QString::fromLatin1(kinds[int(box.kind)]);
  if (box.role != mathx::LayoutBox::Role::None) name += u' ' + QString::fromLatin1(roles[int(box.role)]);
  return name;
}

// The box tree, one box a line, indented by depth: for documentation and for looking into a
// picture that looks wrong.
void PrintTree(const mathx::LayoutBox& box, int depth, QTextStream& out) {
  out << QString(depth * 2, u' ') << KindName(box);
  if (!box.text.isEmpty()) out << " \"" << box.text << '"';
  if (box.fence != QChar()) out << " '" << box.fence << '\'';
  out << QStringLiteral(" at %1,%2 size %3x%4+%5")
             .arg(box.x, 0, 'f', 1).arg(box.y, 0, 'f', 1)
             .arg(box.width, 0, 'f', 1).arg(box.ascent, 0, 'f', 1).arg(box.descent, 0, 'f', 1);
  if (box.sourceBegin >= 0) out << QStringLiteral(" chars %1-%2").arg(box.sourceBegin).arg(box.sourceEnd);
  out << '\n';
  for (const mathx::LayoutBox& child : box.children) PrintTree(child, depth + 1, out);
}

}  // namespace

QString TypesetHelp() {
  return QStringLiteral(
      "  typeset TEXT OUT [OPTIONS]\n"
      "                      Set a row text as the equation editor shows it and save the picture:\n"
      "                      a transparent PNG, or JPEG or BMP on white by OUT's ending.\n"
      "                      --size PT            the font size in points (14)\n"
      "                      --color #RRGGBB      the text colour (black)\n"
      "                      --scale R            pixels per point of a dense screen (1)\n"
      "                      --tree               print the boxes of the picture\n");
}

int RunTypeset(const QStringList& arguments, Streams streams) {
  const auto options = Parse(arguments, streams.Err);
  if (!options) {
    streams.Err.flush();
    return 2;
  }
  mathx::Formula formula;
  formula.SetPixelSize(options->Points * 96.0 / 72.0);
  formula.SetText(options->Text);
  QImage picture = formula.Render(options->Color, options->Scale);
  const QByteArray format = render::PictureFormat(options->Output, 0);
  if (format != "PNG") {
    QImage ground(picture.size(), QImage::Format_RGB32);
    ground.fill(Qt::white);
    // The same density as the formula, so that it covers the whole ground at any scale.
    ground.setDevicePixelRatio(picture.devicePixelRatio());
    QPainter painter(&ground);
    painter.drawImage(0, 0, picture);
    painter.end();
    picture = ground;
  }
  if (options->Tree) {
    PrintTree(formula.Box(), 0, streams.Out);
    streams.Out.flush();
  }
  try {
    render::WritePicture(picture, options->Output, 0);
  } catch (const core::RuntimeError& error) {
    streams.Err << "quillograph-cli typeset: " << options->Output << ": " << error.Description() << '\n';
    streams.Err.flush();
    return 1;
  }
  return 0;
}

}  // namespace cli
