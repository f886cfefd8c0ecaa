#include "FuzzInput.h"

#include "expression/ExpressionNormaliser.h"
#include "expression/SymbolFolding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const core::SharedState state = [] {
    core::SharedState s;
    core::InitTables(s);
    return s;
  }();
  const QString text = FuzzText(data, size);
  expression::NormaliseExpression(state.FunctionTokens, text);
  expression::ReplaceSymbol(state.FunctionTokens, text, QStringLiteral("x"), QStringLiteral("(1)"));
  return 0;
}
