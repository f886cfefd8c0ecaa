#include "FuzzInput.h"

#include "core/RuntimeError.h"
#include "expression/ScriptEvaluation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A fresh engine each time: variables made by one input must not pile up across millions.
  core::SharedState state;
  core::InitTables(state);
  script::ScriptControl engine;
  expression::StartScriptEngine(engine, state);
  const QString text = FuzzText(data, size);
  try {
    engine.Eval(text);
  } catch (const core::RuntimeError&) {
  }
  try {
    engine.ExecuteStatement(text);
  } catch (const core::RuntimeError&) {
  }
  expression::ScriptEvaluation(state, engine).EvaluateExpression(text);
  return 0;
}
