#include "AreaFunction.h"

#include "mathlang/LineParser.h"
#include "plotcompiler/EquationCompiler.h"

namespace area {

namespace {

// Far below what a double can resolve: the quadrature stops when its own error estimate, which
// is pessimistic, says the integral is as good as the doubles allow.
constexpr double kFullPrecision = 1e-14;

}  // namespace

AreaFunction::AreaFunction(const QString& text) {
  const QString body = text.trimmed();
  if (body.isEmpty()) {
    m_problem = QStringLiteral("Type a function of x, such as x^2 or sin(x).");
    return;
  }
  if (body.contains(u'=') || body.contains(u';')) {
    m_problem = QStringLiteral("Type only the right side of y = f(x), with no \u201C=\u201D and no \u201C;\u201D: for "
                               "example x^2 + 1.");
    return;
  }
  m_row = QStringLiteral("y=") + body;
  const mathlang::ParsedLine line = mathlang::ParseLine(plotcompiler::CompileEquation(m_row, false));
  if (!line.Ok()) {
    m_problem = QStringLiteral("\u201C%1\u201D cannot be read: %2.").arg(body, line.Error);
    return;
  }
  if (line.Form != mathlang::LineForm::Y || line.Condition >= 0) {
    m_problem = QStringLiteral("\u201C%1\u201D is not a function of x the bench can sum.").arg(body);
    return;
  }
  for (mathlang::Variable v : {mathlang::Variable::Y, mathlang::Variable::T, mathlang::Variable::Theta,
                               mathlang::Variable::R}) {
    if (line.Tree.Uses(line.Right, v)) {
      m_problem = QStringLiteral("f may use x alone: \u201C%1\u201D uses another variable.").arg(body);
      return;
    }
  }
  m_program = mathlang::BlockProgram(line.Tree, line.Right);
  m_problem.clear();
}

mathlang::IntegralValue AreaFunction::Integral(double a, double b) const {
  if (!Ok()) return {0, 0, 0, false};
  return mathlang::Integrate(m_program, a, b, kFullPrecision);
}

}  // namespace area
