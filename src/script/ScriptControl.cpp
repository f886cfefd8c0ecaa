#include "ScriptControl.h"

#include "BuiltinFunctions.h"

#include "core/RuntimeError.h"

namespace script {

namespace {

using core::RuntimeError;

}  // namespace

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
  m_expressions.Clear();
  m_statements.Clear();
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

Value ScriptControl::Eval(const QString& text) {
  RequireLanguage();
  const auto& entry = m_expressions.Get(text, [this](const QString& t) { return CompileExpression(t, *this); });
  if (entry.Error) throw *entry.Error;
  return Run(entry.Compiled);
}

void ScriptControl::ExecuteStatement(const QString& text) {
  RequireLanguage();
  const auto& entry = m_statements.Get(text, [this](const QString& t) { return CompileStatements(t, *this); });
  if (entry.Error) throw *entry.Error;
  for (const Assignment& assignment : entry.Compiled) {
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
      case OpCode::Binary: {
        const auto op = static_cast<BinaryOperator>(instruction.Operator);
        double real = 0;
        if (TryRealArithmetic(op, top[-2], top[-1], real)) {
          top[-2].AssignDouble(real);
        } else {
          top[-2] = Apply(op, top[-2], top[-1]);
        }
        --top;
        break;
      }
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
