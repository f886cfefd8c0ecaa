#include "SurfaceSource.h"

#include "mathlang/LineParser.h"

#include <QStringList>

namespace plot3d {

namespace {

using mathlang::BlockProgram;
using mathlang::Language;

bool Function(const QString& text, BlockProgram& program, QString& error) {
  const mathlang::ParsedLine parsed = mathlang::ParseExpression(text, Language::Space);
  if (!parsed.Ok()) {
    error = parsed.Error;
    return false;
  }
  program = BlockProgram(parsed.Tree, parsed.Right);
  return true;
}

// F - G of "F=G"; a text without "=" is F = 0.
bool Implicit(const QString& text, BlockProgram& program, QString& error) {
  if (!text.contains(u'=')) return Function(text, program, error);
  mathlang::ParsedLine parsed = mathlang::ParseLine(text, true, Language::Space);
  if (!parsed.Ok()) {
    error = parsed.Error;
    return false;
  }
  if (parsed.Left < 0) {
    error = QStringLiteral("the equation needs two sides");
    return false;
  }
  const int difference = parsed.Tree.AddBinary(mathlang::NodeKind::Subtract, parsed.Left, parsed.Right);
  program = BlockProgram(parsed.Tree, difference);
  return true;
}

}  // namespace

SurfaceSource SurfaceSource::Compile(const QString& equation, int kind) {
  SurfaceSource source;
  if (kind < 1 || kind > 6) {
    source.Error = QStringLiteral("no surface kind %1").arg(kind);
    return source;
  }
  source.Kind = static_cast<SurfaceKind>(kind);
  if (equation.trimmed().isEmpty()) {
    source.Error = QStringLiteral("nothing to draw");
    return source;
  }
  if (source.Kind == SurfaceKind::Implicit) {
    Implicit(equation, source.Functions[0], source.Error);
  } else if (source.Kind == SurfaceKind::Parametric) {
    const QStringList parts = equation.split(u':');
    if (parts.size() != 3) {
      source.Error = QStringLiteral("a parametric surface needs three functions, \"X:Y:Z\"");
      return source;
    }
    for (std::size_t i = 0; i < 3 && source.Ok(); ++i) Function(parts[static_cast<qsizetype>(i)], source.Functions[i], source.Error);
  } else {
    Function(equation, source.Functions[0], source.Error);
  }
  return source;
}

}  // namespace plot3d
