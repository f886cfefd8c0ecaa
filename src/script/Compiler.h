#pragma once

#include "Lexer.h"
#include "Program.h"

#include <QString>

#include <optional>
#include <vector>

namespace script {

// What a name stands for, as the engine knows it when a text is compiled.
struct Callee {
  OpCode Code = OpCode::CallUnknown;  // CallBuiltin or CallMember
  int Index = 0;                      // the built-in, or the object
  int Member = 0;
};

class NameResolver {
public:
  virtual ~NameResolver() = default;
  // A function callable by its bare name: a global member (which wins) or a built-in.
  virtual std::optional<Callee> FindFunction(const QString& name) const = 0;
  // An added object by its name, and a member of it.
  virtual std::optional<int> FindObject(const QString& name) const = 0;
  virtual std::optional<int> FindMember(int object, const QString& name) const = 0;
  // The slot of a variable, made (Empty) when the name is new.
  virtual int VariableSlot(const QString& name) = 0;
};

// Compiles an expression text. Raises the language's compile errors: 1002 "Syntax error",
// 1006 "Expected ')'", 1025 "Expected end of statement", and the lexer's.
Program CompileExpression(const QString& text, NameResolver& names);

// Compiles statements "name = expression", separated by ":" or line breaks. Raises 1010
// "Expected identifier", 1011 "Expected '='", 501 "Illegal assignment" for a function's name.
std::vector<Assignment> CompileStatements(const QString& text, NameResolver& names);

}  // namespace script
