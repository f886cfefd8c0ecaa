#include "AngleReader.h"

#include "numeric/NumericKernel.h"

#include <cmath>

namespace trigon {

namespace {

// Beyond this the angle means nothing on a circle a student can read.
constexpr double kLargest = 1e9;

bool StripEnding(QString& text, const QString& ending) {
  if (!text.endsWith(ending, Qt::CaseInsensitive)) return false;
  text.chop(ending.size());
  text = text.trimmed();
  return true;
}

}  // namespace

AngleReader::AngleReader() : m_evaluation(m_state, m_engine) {
  core::InitTables(m_state);
  expression::StartScriptEngine(m_engine, m_state);
}

AngleReading AngleReader::Read(const QString& typed, bool radiansByDefault) {
  QString text = typed.trimmed();
  text.replace(QChar(0x03C0), QStringLiteral("pi"));
  bool radians = radiansByDefault;
  if (StripEnding(text, QStringLiteral("\u00B0")) || StripEnding(text, QStringLiteral("deg"))) {
    radians = false;
  } else if (StripEnding(text, QStringLiteral("rad")) || text.contains(QStringLiteral("pi"), Qt::CaseInsensitive)) {
    radians = true;
  }
  if (text.isEmpty()) {
    return {false, 0, QStringLiteral("Type an angle: 30\u00B0, pi/6 or 0.5 rad.")};
  }
  const double value = m_evaluation.EvaluateExpression(text);
  if (m_state.MathError || !std::isfinite(value)) {
    return {false, 0,
            QStringLiteral("\u201C%1\u201D is not an angle the bench can read: type degrees like 135, or "
                           "radians like 3pi/4.").arg(typed.trimmed())};
  }
  // Radians through the program's own pi, so that "pi/6" comes to 30° and not a hair beside it.
  const double degrees = radians ? value * 180 / numeric::kPi : value;
  if (std::abs(degrees) > kLargest) {
    return {false, 0, QStringLiteral("The angle %1 is too large to draw: type one between -360\u00B0 and 360\u00B0.")
                          .arg(typed.trimmed())};
  }
  return {true, degrees, QString()};
}

}  // namespace trigon
