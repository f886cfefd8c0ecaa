#pragma once

#include "CompiledCache.h"
#include "Compiler.h"
#include "ScriptObject.h"
#include "Value.h"

#include "numeric/VbRandom.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

namespace script {

// The script engine: evaluates expressions and runs assignments in the expression language of
// VBScript. Variables live as long as the engine; a name never assigned is Empty. Errors are
// core::RuntimeError with the language's number and description. Compiled texts are cached, so
// a text evaluated again costs no parse.
class ScriptControl : private NameResolver {
public:
  ScriptControl();
  ~ScriptControl() override;

  // "vbscript" in any case; any other language raises error 380.
  QString Language() const { return m_language; }
  void SetLanguage(const QString& language);

  // Makes an object's members callable as "name.member(...)", and, with globalMembers, by their
  // bare names, ahead of any built-in function of the same name.
  void AddObject(const QString& name, std::shared_ptr<ScriptObject> object, bool globalMembers);

  // Runs assignments "name = expression", separated by ":" or line breaks.
  void ExecuteStatement(const QString& text);
  // Evaluates an expression; "=" inside it compares.
  Value Eval(const QString& text);

private:
  std::optional<Callee> FindFunction(const QString& name) const override;
  std::optional<int> FindObject(const QString& name) const override;
  std::optional<int> FindMember(int object, const QString& name) const override;
  int VariableSlot(const QString& name) override;

  void RequireLanguage() const;
  Value Run(const Program& program);
  Value Invoke(const Instruction& instruction, std::span<const Value> arguments);

  QString m_language;
  std::vector<std::shared_ptr<ScriptObject>> m_objects;
  QHash<QString, int> m_objectNames;
  std::vector<QHash<QString, int>> m_members;
  QHash<QString, Callee> m_globalMembers;
  QHash<QString, int> m_variableSlots;
  std::vector<Value> m_variables;
  std::vector<Value> m_stack;
  numeric::VbRandom m_random;
  CompiledCache<Program> m_expressions;
  CompiledCache<std::vector<Assignment>> m_statements;
};

}  // namespace script
