#include "ScriptControl.h"

#include "BuiltinFunctions.h"

#include "core/RuntimeError.h"

namespace script {

namespace {

using core::RuntimeError;

// Texts are cached up to this many; past it the cache starts again, so that a stream of ever new
// texts cannot grow it without bound.
constexpr qsizetype kCacheLimit = 4096;

}  // namespace

// A compiled text, or the compile error it raised, so that a bad text fails fast again too.
struct ScriptControl::CachedExpression {
  Program Code;
  std::optional<RuntimeError> Error;
};

struct ScriptControl::CachedStatement {
  std::vector<Assignment> Code;
  std::optional<RuntimeError> Error;
};

ScriptControl::ScriptControl() = default;
ScriptControl::~ScriptControl() = default;

void ScriptControl::SetLanguage(const QString& language) {
  if (language.compare(QStringLiteral("vbscript"), Qt::CaseInsensitive) != 0) {
    throw RuntimeError::Of(RuntimeError::InvalidPropertyValue);
  }
  m_language = language;
}

void ScriptControl::RequireLanguage() const {
  if (m_language.isEmpty()) throw RuntimeError::Of(RuntimeError::InvalidProcedureCall);
}

void ScriptControl::AddObject(const QString& name, std::shared_ptr<ScriptObject> object, bool globalMembers) {
  const int index = static_cast<int>(m_objects.size());
  QHash<QString, int> members;
  const QStringList names = object->MemberNames();
  for (int i = 0; i < names.size(); ++i) {
    const QString member = names[i].toLower();
    members.insert(member, i);
    if (globalMembers) m_globalMembers.insert(member, {OpCode::CallMember, index, i});
  }
  m_objects.push_back(std::move(object));
  m_members.push_back(std::move(members));
  m_objectNames.insert(name.toLower(), index);
  // Names may now mean something else: compile everything again.
  m_expressions.clear();
  m_statements.clear();
}

std::optional<Callee> ScriptControl::FindFunction(const QString& name) const {
  if (const auto member = m_globalMembers.constFind(name); member != m_globalMembers.cend()) return *member;
  if (const auto builtin = FindBuiltin(name)) return Callee{OpCode::CallBuiltin, *builtin, 0};
  return std::nullopt;
}

std::optional<int> ScriptControl::FindObject(const QString& name) const {
  const auto found = m_objectNames.constFind(name);
  if (found == m_objectNames.cend()) return std::nullopt;
  return *found;
}

std::optional<int> ScriptControl::FindMember(int object, const QString& name) const {
  const auto& members = m_members[static_cast<size_t>(object)];
  const auto found = members.constFind(name);
  if (found == members.cend()) return std::nullopt;
  return *found;
}

int ScriptControl::VariableSlot(const QString& name) {
  const auto found = m_variableSlots.constFind(name);
  if (found != m_variableSlots.cend()) return *found;
  const int slot = static_cast<int>(m_variables.size());
  m_variables.emplace_back();
  m_variableSlots.insert(name, slot);
  return slot;
}

const ScriptControl::CachedExpression& ScriptControl::Compiled(const QString& text) {
  if (const auto found = m_expressions.constFind(text); found != m_expressions.cend()) return **found;
  if (m_expressions.size() >= kCacheLimit) m_expressions.clear();
  auto entry = std::make_shared<CachedExpression>();
  try {
    entry->Code = CompileExpression(text, *this);
  } catch (const RuntimeError& error) {
    entry->Error = error;
  }
  return **m_expressions.insert(text, std::move(entry));
}

Value ScriptControl::Eval(const QString& text) {
  RequireLanguage();
  const CachedExpression& compiled = Compiled(text);
  if (compiled.Error) throw *compiled.Error;
  return Run(compiled.Code);
}

void ScriptControl::ExecuteStatement(const QString& text) {
  RequireLanguage();
  auto found = m_statements.constFind(text);
  if (found == m_statements.cend()) {
    if (m_statements.size() >= kCacheLimit) m_statements.clear();
    auto entry = std::make_shared<CachedStatement>();
    try {
      entry->Code = CompileStatements(text, *this);
    } catch (const RuntimeError& error) {
      entry->Error = error;
    }
    found = m_statements.insert(text, std::move(entry));
  }
  const std::shared_ptr<CachedStatement> statement = *found;  // Run may clear the cache
  if (statement->Error) throw *statement->Error;
  for (const Assignment& assignment : statement->Code) {
    const Value value = Run(assignment.Expression);
    m_variables[static_cast<size_t>(assignment.Slot)] = value;
  }
}

Value ScriptControl::Run(const Program& program) {
  if (m_stack.size() < static_cast<size_t>(program.MaxDepth)) m_stack.resize(static_cast<size_t>(program.MaxDepth));
  Value* top = m_stack.data();  // one past the last value on the stack
  for (const Instruction& instruction : program.Code) {
    switch (instruction.Code) {
      case OpCode::Push: *top++ = program.Constants[static_cast<size_t>(instruction.Index)]; break;
      case OpCode::Load: *top++ = m_variables[static_cast<size_t>(instruction.Index)]; break;
      case OpCode::Unary: top[-1] = Apply(static_cast<UnaryOperator>(instruction.Operator), top[-1]); break;
      case OpCode::Binary:
        top[-2] = Apply(static_cast<BinaryOperator>(instruction.Operator), top[-2], top[-1]);
        --top;
        break;
      default: {
        Value* first = top - instruction.ArgumentCount;
        const Value result = Invoke(instruction, std::span<const Value>(first, instruction.ArgumentCount));
        *first = result;
        top = first + 1;
      }
    }
  }
  return m_stack.front();
}

Value ScriptControl::Invoke(const Instruction& instruction, std::span<const Value> arguments) {
  switch (instruction.Code) {
    case OpCode::CallBuiltin: return CallBuiltin(instruction.Index, arguments, m_random);
    case OpCode::CallMember:
      return m_objects[static_cast<size_t>(instruction.Index)]->Invoke(instruction.Member, arguments);
    default: throw RuntimeError::Of(RuntimeError::TypeMismatch);
  }
}

}  // namespace script
