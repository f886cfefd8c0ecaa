#pragma once

#include "Operators.h"
#include "Value.h"

#include <cstdint>
#include <vector>

namespace script {

enum class OpCode : std::uint8_t {
  Push,         // Constants[Index]
  Load,         // the variable in slot Index
  Unary,        // Operator is a UnaryOperator
  Binary,       // Operator is a BinaryOperator
  CallBuiltin,  // built-in function Index with ArgumentCount arguments
  CallMember,   // member Member of added object Index
  CallUnknown   // a name that is no function: the call fails with "Type mismatch"
};

struct Instruction {
  OpCode Code = OpCode::Push;
  std::uint8_t Operator = 0;
  std::uint16_t ArgumentCount = 0;
  std::int32_t Index = 0;
  std::int32_t Member = 0;
};

// An expression compiled to postfix order, evaluated on a stack of MaxDepth values.
struct Program {
  std::vector<Instruction> Code;
  std::vector<Value> Constants;
  int MaxDepth = 0;
};

// One assignment of a statement text.
struct Assignment {
  int Slot = 0;
  Program Expression;
};

}  // namespace script
