#include "Operators.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <cmath>

namespace script {

namespace {

using core::RuntimeError;

[[noreturn]] void Raise(int number) { throw RuntimeError::Of(number); }

double CheckedDouble(double value) {
  if (!std::isfinite(value)) Raise(RuntimeError::Overflow);
  return value;
}

// Long when either operand is a Long, Integer otherwise (Empty and Boolean count as Integer).
bool IsLongRank(const Value& a, const Value& b) {
  return a.Type() == ValueType::Long || b.Type() == ValueType::Long;
}

// An integral result at least as wide as its operands: Long arithmetic stays Long.
Value IntegralResult(std::int64_t value, bool longRank) {
  const Value v = Value::Integral(value);
  if (longRank && v.Type() == ValueType::Integer) return Value::Long(static_cast<std::int32_t>(value));
  return v;
}

Value Arithmetic(BinaryOperator op, const Value& a, const Value& b) {
  if (a.IsIntegral() && b.IsIntegral()) {
    const std::int64_t x = a.IntegralValue();
    const std::int64_t y = b.IntegralValue();
    const std::int64_t r = op == BinaryOperator::Add ? x + y : op == BinaryOperator::Subtract ? x - y : x * y;
    return IntegralResult(r, IsLongRank(a, b));
  }
  const double x = a.ToDouble();
  const double y = b.ToDouble();
  const double r = op == BinaryOperator::Add ? x + y : op == BinaryOperator::Subtract ? x - y : x * y;
  return Value::Double(CheckedDouble(r));
}

Value Add(const Value& a, const Value& b) {
  if (a.IsString() && (b.IsString() || b.IsEmpty())) return Value::String(a.StringValue() + b.StringValue());
  if (b.IsString() && a.IsEmpty()) return b;
  return Arithmetic(BinaryOperator::Add, a, b);
}

double RealDivide(double x, double y) {
  if (y == 0) Raise(x == 0 ? RuntimeError::Overflow : RuntimeError::DivisionByZero);
  return CheckedDouble(x / y);
}

Value Divide(const Value& a, const Value& b) { return Value::Double(RealDivide(a.ToDouble(), b.ToDouble())); }

bool BothIntegerRank(const Value& a, const Value& b) {
  return a.IsIntegral() && b.IsIntegral() && !IsLongRank(a, b);
}

Value IntegerDivide(const Value& a, const Value& b, bool modulo) {
  const std::int64_t x = ToLong(a);
  const std::int64_t y = ToLong(b);
  if (y == 0) Raise(RuntimeError::DivisionByZero);
  const std::int64_t r = modulo ? x % y : x / y;
  return IntegralResult(r, !BothIntegerRank(a, b));
}

double RealPower(double x, double y) {
  if (x < 0 && y != std::trunc(y)) Raise(RuntimeError::InvalidProcedureCall);
  if (x == 0 && y < 0) Raise(RuntimeError::DivisionByZero);
  return CheckedDouble(std::pow(x, y));
}

Value Power(const Value& a, const Value& b) { return Value::Double(RealPower(a.ToDouble(), b.ToDouble())); }

// -1, 0 or 1. Strings compare with strings (Empty counts as ""); a number is below any string.
int Compare(const Value& a, const Value& b) {
  const bool aText = a.IsString() || (a.IsEmpty() && b.IsString());
  const bool bText = b.IsString() || (b.IsEmpty() && a.IsString());
  if (aText && bText) {
    const int c = QString::compare(a.ToText(), b.ToText(), Qt::CaseSensitive);
    return (c > 0) - (c < 0);
  }
  if (aText != bText) return aText ? 1 : -1;
  const double x = a.ToDouble();
  const double y = b.ToDouble();
  return (x > y) - (x < y);
}

Value Comparison(BinaryOperator op, const Value& a, const Value& b) {
  const int c = Compare(a, b);
  switch (op) {
    case BinaryOperator::Equal: return Value::Boolean(c == 0);
    case BinaryOperator::NotEqual: return Value::Boolean(c != 0);
    case BinaryOperator::Less: return Value::Boolean(c < 0);
    case BinaryOperator::Greater: return Value::Boolean(c > 0);
    case BinaryOperator::LessEqual: return Value::Boolean(c <= 0);
    default: return Value::Boolean(c >= 0);
  }
}

std::int64_t Bitwise(BinaryOperator op, std::int64_t x, std::int64_t y) {
  switch (op) {
    case BinaryOperator::And: return x & y;
    case BinaryOperator::Or: return x | y;
    case BinaryOperator::Xor: return x ^ y;
    case BinaryOperator::Eqv: return ~(x ^ y);
    default: return ~x | y;  // Imp
  }
}

// Booleans give a Boolean; numbers are combined bit by bit as Integers or Longs.
Value Logical(BinaryOperator op, const Value& a, const Value& b) {
  const bool booleans = a.Type() == ValueType::Boolean && b.Type() == ValueType::Boolean;
  const std::int64_t r = Bitwise(op, ToLong(a), ToLong(b));
  if (booleans) return Value::Boolean(r != 0);
  return IntegralResult(r, !BothIntegerRank(a, b));
}

}  // namespace

bool TryRealArithmetic(BinaryOperator op, const Value& a, const Value& b, double& result) {
  if (a.IsString() || b.IsString()) return false;
  if (a.Type() != ValueType::Double && b.Type() != ValueType::Double) return false;
  const double x = a.NumberValue();
  const double y = b.NumberValue();
  switch (op) {
    case BinaryOperator::Add: result = CheckedDouble(x + y); return true;
    case BinaryOperator::Subtract: result = CheckedDouble(x - y); return true;
    case BinaryOperator::Multiply: result = CheckedDouble(x * y); return true;
    case BinaryOperator::Divide: result = RealDivide(x, y); return true;
    case BinaryOperator::Power: result = RealPower(x, y); return true;
    default: return false;
  }
}

std::int32_t ToLong(const Value& value) {
  if (value.IsIntegral()) return static_cast<std::int32_t>(value.IntegralValue());
  return core::RoundToInt32(value.ToDouble());
}

Value Apply(BinaryOperator op, const Value& a, const Value& b) {
  switch (op) {
    case BinaryOperator::Add: return Add(a, b);
    case BinaryOperator::Subtract:
    case BinaryOperator::Multiply: return Arithmetic(op, a, b);
    case BinaryOperator::Divide: return Divide(a, b);
    case BinaryOperator::IntegerDivide: return IntegerDivide(a, b, false);
    case BinaryOperator::Modulo: return IntegerDivide(a, b, true);
    case BinaryOperator::Power: return Power(a, b);
    case BinaryOperator::Concatenate: return Value::String(a.ToText() + b.ToText());
    case BinaryOperator::Equal:
    case BinaryOperator::NotEqual:
    case BinaryOperator::Less:
    case BinaryOperator::Greater:
    case BinaryOperator::LessEqual:
    case BinaryOperator::GreaterEqual: return Comparison(op, a, b);
    default: return Logical(op, a, b);
  }
}

Value Apply(UnaryOperator op, const Value& a) {
  switch (op) {
    case UnaryOperator::Plus: return a;
    case UnaryOperator::Negate:
      if (a.IsIntegral()) return IntegralResult(-a.IntegralValue(), a.Type() == ValueType::Long);
      return Value::Double(-a.ToDouble());
    default:  // Not
      if (a.Type() == ValueType::Boolean) return Value::Boolean(!a.BooleanValue());
      return IntegralResult(~static_cast<std::int64_t>(ToLong(a)),
                            a.Type() != ValueType::Integer && !a.IsEmpty());
  }
}

}  // namespace script
