#pragma once

#include "Value.h"

#include <QStringList>

#include <span>

namespace script {

// An object added to the engine: its members can be called from script text as
// "Name.member(...)" and, when added with global members, as "member(...)".
class ScriptObject {
public:
  virtual ~ScriptObject() = default;
  // The members' names; a member's index in this list is its number in Invoke.
  virtual QStringList MemberNames() const = 0;
  // Calls a member. Raises RuntimeError 450 for a wrong number of arguments.
  virtual Value Invoke(int member, std::span<const Value> arguments) = 0;
};

}  // namespace script
