#include "ConstantResolution.h"

#include "SymbolFolding.h"

#include "core/TextFunctions.h"

namespace expression {

bool IsConstantName(const core::SharedState& state, const QString& text) {
  const QString lower = text.toLower();
  for (const QString& name : state.ConstantNames) {
    if (name == lower) return true;
  }
  return false;
}

QString SubstituteConstants(const core::SharedState& state, const QString& text) {
  const QString kPiMark = QStringLiteral("##");
  QString result = core::Replace(text, QStringLiteral("pi"), kPiMark);
  for (int slot = static_cast<int>(state.ConstantNames.size()) - 1; slot >= 0; --slot) {
    result = ReplaceSymbol(state.FunctionTokens, result, state.ConstantNames[slot], state.ConstantValues[slot]);
  }
  return core::Replace(result, kPiMark, QStringLiteral("pi"));
}

bool StoreConstant(core::SharedState& state, const QString& line) {
  const int equals = core::InStr(line, QStringLiteral("="));
  if (equals == 0) return false;
  const QString name = core::Left(line, equals - 1);
  if (!IsConstantName(state, name)) return false;
  for (size_t slot = 0; slot < state.ConstantNames.size(); ++slot) {
    if (state.ConstantNames[slot] == name) state.ConstantValues[slot] = core::Mid(line, equals + 1);
  }
  return true;
}

}  // namespace expression
