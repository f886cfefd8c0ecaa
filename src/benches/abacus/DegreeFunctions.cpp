#include "DegreeFunctions.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "numeric/NumericKernel.h"

#include <cmath>
#include <numbers>

namespace abacus {

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180;

enum Member { Sin, Cos, Tan, Sec, Csc, Cosec, Cot, Asin, Acos, Atan, Asec, Acsc, Acosec, Acot, Count };

const char* const kNames[Count] = {"sin",  "cos",  "tan", "sec",  "csc",  "cosec",  "cot", "asin",
                                   "acos", "atan", "asec", "acsc", "acosec", "acot"};

// sin of an angle within 45 degrees of zero; 30 exactly, since 30 degrees is the classroom's
// first example and its radian value is not exact.
double SinNear(double degrees) {
  if (degrees == 30) return 0.5;
  if (degrees == -30) return -0.5;
  return std::sin(degrees * kRadiansPerDegree);
}

double CosNear(double degrees) { return std::cos(degrees * kRadiansPerDegree); }

double Reciprocal(double value) { return value == 0 ? numeric::kFail : 1 / value; }

// The inverse functions with the exact pi: the program's 15-digit one would make acos(0) a
// neighbour of 90.
double InverseSin(double x) { return std::abs(x) <= 1 ? std::asin(x) / kRadiansPerDegree : numeric::kFail; }
double InverseCos(double x) { return std::abs(x) <= 1 ? std::acos(x) / kRadiansPerDegree : numeric::kFail; }
double InverseTan(double x) { return std::atan(x) / kRadiansPerDegree; }

double Apply(int member, double x) {
  switch (member) {
    case Sin: return DegreeFunctions::SinDegrees(x);
    case Cos: return DegreeFunctions::CosDegrees(x);
    case Tan: {
      const double c = DegreeFunctions::CosDegrees(x);
      return c == 0 ? numeric::kFail : DegreeFunctions::SinDegrees(x) / c;
    }
    case Sec: return Reciprocal(DegreeFunctions::CosDegrees(x));
    case Csc:
    case Cosec: return Reciprocal(DegreeFunctions::SinDegrees(x));
    case Cot: {
      const double s = DegreeFunctions::SinDegrees(x);
      return s == 0 ? numeric::kFail : DegreeFunctions::CosDegrees(x) / s;
    }
    case Asin: return InverseSin(x);
    case Acos: return InverseCos(x);
    case Atan: return InverseTan(x);
    case Asec: return x == 0 ? numeric::kFail : InverseCos(1 / x);
    case Acsc:
    case Acosec: return x == 0 ? numeric::kFail : InverseSin(1 / x);
    // As the program's acot: 90 less atan, so that acot(0) is 90.
    case Acot: return 90 - InverseTan(x);
    default: return numeric::kFail;
  }
}

}  // namespace

DegreeFunctions::DegreeFunctions(bool& mathError) : m_mathError(mathError) {}

// The angle is first brought within 45 degrees of an axis, where the quadrant's sign and the swap
// of sin and cos are exact.
double DegreeFunctions::SinDegrees(double degrees) {
  if (!std::isfinite(degrees)) return numeric::kFail;
  const double turn = std::fmod(degrees, 360.0);
  const double quadrant = std::nearbyint(turn / 90);
  const double rest = turn - 90 * quadrant;
  switch ((static_cast<int>(quadrant) % 4 + 4) % 4) {
    case 0: return SinNear(rest) + 0.0;
    case 1: return CosNear(rest);
    case 2: return -SinNear(rest) + 0.0;
    default: return -CosNear(rest);
  }
}

double DegreeFunctions::CosDegrees(double degrees) {
  if (!std::isfinite(degrees)) return numeric::kFail;
  return SinDegrees(std::fmod(degrees, 360.0) + 90);
}

QStringList DegreeFunctions::MemberNames() const {
  QStringList names;
  for (const char* name : kNames) names << QString::fromLatin1(name);
  return names;
}

script::Value DegreeFunctions::Invoke(int member, std::span<const script::Value> arguments) {
  if (member < 0 || member >= Count) throw core::RuntimeError::Of(core::RuntimeError::UnsupportedMember);
  if (arguments.size() != 1) throw core::RuntimeError::Of(core::RuntimeError::WrongArgumentCount);
  const double x = arguments[0].ToDouble();
  const double result = Apply(member, x);
  if (std::isnan(result)) {
    m_mathError = true;
    m_failure = QStringLiteral("%1 is not defined at %2%3")
                    .arg(QString::fromLatin1(kNames[member]), core::FormatNumber(x),
                         member < Asin ? QStringLiteral("°") : QString());
    return script::Value::Double(0);
  }
  return script::Value::Double(result);
}

}  // namespace abacus
