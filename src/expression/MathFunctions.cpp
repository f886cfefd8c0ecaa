#include "MathFunctions.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "numeric/NumericKernel.h"

#include <cmath>

namespace expression {

namespace {

using Unary = double (*)(double);

struct Member {
  const char* Name;
  Unary Function;  // nullptr for the three that are not functions of one number
};

// In the order of the class; the index is the member's number.
const Member kMembers[] = {
    {"sqrt", numeric::SquareRoot}, {"Deg", numeric::Deg},     {"exp", numeric::Exp},
    {"asin", numeric::Asin},       {"acos", numeric::Acos},   {"fact", numeric::Fact},
    {"ln", numeric::Ln},           {"atan", numeric::Atan},   {"csc", numeric::Csc},
    {"cosec", numeric::Csc},       {"sec", numeric::Sec},     {"cot", numeric::Cot},
    {"sinh", numeric::Sinh},       {"cosh", numeric::Cosh},   {"tanh", numeric::Tanh},
    {"tan", numeric::Tan},         {"coth", numeric::Coth},   {"csch", numeric::Csch},
    {"cosech", numeric::Csch},     {"sech", numeric::Sech},   {"acsc", numeric::Acsc},
    {"acosec", numeric::Acsc},     {"asec", numeric::Asec},   {"acot", numeric::Acot},
    {"asinh", numeric::Asinh},     {"acosh", numeric::Acosh}, {"atanh", numeric::Atanh},
    {"acsch", numeric::Acsch},     {"acosech", numeric::Acsch}, {"asech", numeric::Asech},
    {"acoth", numeric::Acoth},     {"xroot", nullptr},        {"xlog", nullptr},
    {"RandomNumber", nullptr}};

constexpr int kXRoot = 31;
constexpr int kXLog = 32;
constexpr int kRandomNumber = 33;

int ArityOf(int member) {
  if (member == kRandomNumber) return 0;
  return member == kXRoot || member == kXLog ? 2 : 1;
}

}  // namespace

MathFunctions::MathFunctions(bool& mathError) : m_mathError(mathError) {}

QStringList MathFunctions::MemberNames() const {
  QStringList names;
  for (const Member& member : kMembers) names << QString::fromLatin1(member.Name);
  return names;
}

script::Value MathFunctions::Invoke(int member, std::span<const script::Value> arguments) {
  if (member < 0 || member >= static_cast<int>(std::size(kMembers))) {
    throw core::RuntimeError::Of(core::RuntimeError::UnsupportedMember);
  }
  if (static_cast<int>(arguments.size()) != ArityOf(member)) {
    throw core::RuntimeError::Of(core::RuntimeError::WrongArgumentCount);
  }
  if (member == kRandomNumber) return script::Value::Double(m_random.Next());
  double result = 0;
  if (member == kXRoot) {
    result = numeric::XRoot(arguments[0].ToDouble(), arguments[1].ToDouble());
  } else if (member == kXLog) {
    result = numeric::XLog(arguments[0].ToDouble(), core::RoundToInt16(arguments[1].ToDouble()));
  } else {
    result = kMembers[member].Function(arguments[0].ToDouble());
  }
  if (std::isnan(result)) {
    m_mathError = true;
    return script::Value::Double(0);
  }
  return script::Value::Double(result);
}

}  // namespace expression
