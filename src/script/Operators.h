#pragma once

#include "Value.h"

#include <cstdint>

// The operators of the script language with its typing: Integer and Long arithmetic moves up to
// the next wider type instead of overflowing, "/" and "^" always give a Double, "\" and Mod round
// their operands halves to even, comparisons give Booleans (True is -1), and no result is ever an
// infinity or a NaN (RuntimeError 6, or 11 for a division by zero).
namespace script {

enum class BinaryOperator : std::uint8_t {
  Power, Multiply, Divide, IntegerDivide, Modulo, Add, Subtract, Concatenate,
  Equal, NotEqual, Less, Greater, LessEqual, GreaterEqual, And, Or, Xor, Eqv, Imp
};

enum class UnaryOperator : std::uint8_t { Negate, Plus, Not };

Value Apply(BinaryOperator op, const Value& a, const Value& b);

// The common case of evaluated texts, without building values: "+", "-", "*", "/" or "^" on two
// numbers of which at least one is a Double (so the result is a Double by the general rules too).
// Returns false, leaving result alone, when the operator or the operands need the general rules.
// Raises the same errors as Apply.
bool TryRealArithmetic(BinaryOperator op, const Value& a, const Value& b, double& result);
Value Apply(UnaryOperator op, const Value& a);

// A number rounded halves to even into a Long, as "\", Mod and the logical operators take it.
std::int32_t ToLong(const Value& value);

}  // namespace script
