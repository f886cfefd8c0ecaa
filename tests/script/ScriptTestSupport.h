#pragma once

#include "core/RuntimeError.h"
#include "script/ScriptControl.h"

#include <QString>

#include <optional>

// An engine ready for use, and the error number a text raises (nothing when it evaluates).
inline script::ScriptControl ReadyEngine() {
  script::ScriptControl engine;
  engine.SetLanguage("vbscript");
  return engine;
}

inline std::optional<int> ErrorOf(script::ScriptControl& engine, const QString& text) {
  try {
    engine.Eval(text);
  } catch (const core::RuntimeError& e) {
    return e.Number();
  }
  return std::nullopt;
}
