#pragma once

#include "Value.h"

#include "numeric/VbRandom.h"

#include <QString>

#include <optional>
#include <span>

// The numeric built-in functions of the script language: Abs, Atn, Cos, Exp, Fix, Int, Log, Rnd,
// Round, Sgn, Sin, Sqr, Tan, CDbl, CInt, CLng.
namespace script {

// The function's number, or nothing for a name that is no built-in (lower case).
std::optional<int> FindBuiltin(const QString& name);

// Calls built-in function id. Raises the language's errors: 450 for a wrong number of
// arguments, 5 for Sqr or Log outside their domain, 6 for an overflow.
Value CallBuiltin(int id, std::span<const Value> arguments, numeric::VbRandom& random);

}  // namespace script
