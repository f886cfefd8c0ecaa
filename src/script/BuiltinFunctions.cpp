#include "BuiltinFunctions.h"

#include "Operators.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <QHash>

#include <cmath>

namespace script {

namespace {

using core::RuntimeError;

enum Builtin { Abs, Atn, Cos, Exp, Fix, Int, Log, Rnd, Round, Sgn, Sin, Sqr, Tan, CDbl, CInt, CLng };

struct Arity {
  int Min;
  int Max;
};

constexpr Arity kArity[] = {{1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {0, 1},
                            {1, 2}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}, {1, 1}};

[[noreturn]] void Raise(int number) { throw RuntimeError::Of(number); }

double Checked(double value) {
  if (!std::isfinite(value)) Raise(RuntimeError::Overflow);
  return value;
}

// Int and Fix keep an integral argument's type; Empty and Boolean come back as Integers.
Value Whole(const Value& x, double (*round)(double)) {
  switch (x.Type()) {
    case ValueType::Integer:
    case ValueType::Long: return x;
    case ValueType::Empty:
    case ValueType::Boolean: return Value::Integer(static_cast<std::int16_t>(x.IntegralValue()));
    default: return Value::Double(round(x.ToDouble()));
  }
}

Value Absolute(const Value& x) {
  if (x.IsIntegral()) {
    const Value v = Value::Integral(std::abs(x.IntegralValue()));
    return x.Type() == ValueType::Long && v.Type() == ValueType::Integer
               ? Value::Long(static_cast<std::int32_t>(v.IntegralValue()))
               : v;
  }
  return Value::Double(std::abs(x.ToDouble()));
}

// Round(x, places): halves to even at the given number of decimal places.
Value RoundTo(std::span<const Value> a) {
  const int places = a.size() > 1 ? ToLong(a[1]) : 0;
  if (places < 0) Raise(RuntimeError::InvalidProcedureCall);
  if (a[0].IsIntegral()) return Whole(a[0], [](double v) { return v; });
  const double x = a[0].ToDouble();
  if (places == 0) return Value::Double(std::nearbyint(x));
  if (places > 22) return Value::Double(x);
  const double scale = std::pow(10.0, places);
  const double scaled = x * scale;
  if (!std::isfinite(scaled)) return Value::Double(x);
  return Value::Double(std::nearbyint(scaled) / scale);
}

Value Call(int id, std::span<const Value> a, numeric::VbRandom& random) {
  switch (id) {
    case Abs: return Absolute(a[0]);
    case Atn: return Value::Double(std::atan(a[0].ToDouble()));
    case Cos: return Value::Double(std::cos(a[0].ToDouble()));
    case Sin: return Value::Double(std::sin(a[0].ToDouble()));
    case Tan: return Value::Double(Checked(std::tan(a[0].ToDouble())));
    case Exp: return Value::Double(Checked(std::exp(a[0].ToDouble())));
    case Fix: return Whole(a[0], [](double v) { return std::trunc(v); });
    case Int: return Whole(a[0], [](double v) { return std::floor(v); });
    case Log: {
      const double x = a[0].ToDouble();
      if (!(x > 0)) Raise(RuntimeError::InvalidProcedureCall);
      return Value::Double(std::log(x));
    }
    case Sqr: {
      const double x = a[0].ToDouble();
      if (x < 0) Raise(RuntimeError::InvalidProcedureCall);
      return Value::Double(std::sqrt(x));
    }
    case Rnd: return Value::Double(random.Next(a.empty() ? 1.0f : static_cast<float>(a[0].ToDouble())));
    case Round: return RoundTo(a);
    case Sgn: {
      const double x = a[0].ToDouble();
      return Value::Integer(static_cast<std::int16_t>((x > 0) - (x < 0)));
    }
    case CDbl: return Value::Double(a[0].ToDouble());
    case CInt:
      if (a[0].Type() == ValueType::Boolean) return Value::Integer(a[0].BooleanValue() ? -1 : 0);
      return Value::Integer(core::RoundToInt16(a[0].ToDouble()));
    default:  // CLng
      if (a[0].Type() == ValueType::Boolean) return Value::Long(a[0].BooleanValue() ? -1 : 0);
      return Value::Long(core::RoundToInt32(a[0].ToDouble()));
  }
}

}  // namespace

std::optional<int> FindBuiltin(const QString& name) {
  static const QHash<QString, int> kNames = {
      {"abs", Abs},   {"atn", Atn}, {"cos", Cos}, {"exp", Exp}, {"fix", Fix},   {"int", Int},
      {"log", Log},   {"rnd", Rnd}, {"round", Round}, {"sgn", Sgn}, {"sin", Sin}, {"sqr", Sqr},
      {"tan", Tan},   {"cdbl", CDbl}, {"cint", CInt}, {"clng", CLng}};
  const auto found = kNames.constFind(name);
  if (found == kNames.cend()) return std::nullopt;
  return *found;
}

Value CallBuiltin(int id, std::span<const Value> arguments, numeric::VbRandom& random) {
  const Arity arity = kArity[id];
  const int count = static_cast<int>(arguments.size());
  if (count < arity.Min || count > arity.Max) Raise(RuntimeError::WrongArgumentCount);
  return Call(id, arguments, random);
}

}  // namespace script
