#include "CurveFunction.h"

#include "mathlang/LineParser.h"

#include <limits>

namespace probe {

std::optional<CurveFunction> CurveFunction::Parse(const QString& input, QString& error) {
  const QString text = input.trimmed();
  if (text.isEmpty()) {
    error = QStringLiteral("Type a function of x, such as x^3-3x");
    return std::nullopt;
  }
  const mathlang::ParsedLine line = mathlang::ParseLine(text);
  if (!line.Ok()) {
    error = QStringLiteral("Cannot read this: ") + line.Error;
    return std::nullopt;
  }
  if (line.Form != mathlang::LineForm::Y && line.Form != mathlang::LineForm::Bare) {
    error = QStringLiteral("The probe takes y = f(x): type a function of x, such as x^3-3x");
    return std::nullopt;
  }
  for (const auto variable : {mathlang::Variable::Y, mathlang::Variable::T, mathlang::Variable::Theta, mathlang::Variable::R}) {
    if (line.Tree.Uses(line.Right, variable) || (line.Condition >= 0 && line.Tree.Uses(line.Condition, variable))) {
      error = QStringLiteral("Only x may vary in f(x)");
      return std::nullopt;
    }
  }
  CurveFunction f;
  f.m_value = mathlang::BlockProgram(line.Tree, line.Right);
  if (line.Condition >= 0) {
    f.m_hasCondition = true;
    f.m_condition = mathlang::BlockProgram(line.Tree, line.Condition);
  }
  f.m_row = line.Form == mathlang::LineForm::Y ? text : QStringLiteral("y=") + text;
  return f;
}

double CurveFunction::At(double x) const {
  if (m_hasCondition && !(m_condition.At(x) != 0)) return std::numeric_limits<double>::quiet_NaN();
  return m_value.At(x);
}

}  // namespace probe
