#include "SymbolFolding.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/TextFunctions.h"

#include <array>

namespace expression {

namespace {

constexpr int kSlots = static_cast<int>(std::tuple_size_v<core::FunctionTokenTable>);

struct TokenForms {
  std::array<QString, kSlots> Front;
  std::array<QString, kSlots> Back;
};

// The forms depend on the slot number alone; they are made once.
const TokenForms& Forms() {
  static const TokenForms forms = [] {
    TokenForms f;
    for (int slot = 0; slot < kSlots; ++slot) {
      const QString number = core::Str(slot);
      f.Front[slot] = QStringLiteral("*_") + number + u'_';
      f.Back[slot] = u'_' + number + QStringLiteral("_*");
    }
    return f;
  }();
  return forms;
}

}  // namespace

QString FrontForm(int slot) { return Forms().Front.at(static_cast<size_t>(slot)); }

QString BackForm(int slot) { return Forms().Back.at(static_cast<size_t>(slot)); }

QString FoldTokens(const core::FunctionTokenTable& tokens, const QString& text) {
  QString result = text;
  for (int slot = 0; slot < kSlots; ++slot) {
    result = core::Replace(result, tokens[slot], Forms().Front[slot]);
  }
  return result;
}

QString UnfoldTokens(const core::FunctionTokenTable& tokens, const QString& text, bool backOnly) {
  QString result = text;
  if (!backOnly) {
    for (int slot = 0; slot < kSlots; ++slot) {
      result = core::Replace(result, Forms().Front[slot], tokens[slot]);
      result = core::Replace(result, Forms().Back[slot], tokens[slot]);
    }
  }
  // This pass covers slot 0 only, and the normaliser's results depend on that: its back-only call
  // must leave every other back form for the full unfold, which takes the front form first.
  constexpr int kLastBackOnlySlot = 0;
  for (int slot = 0; slot <= kLastBackOnlySlot; ++slot) {
    result = core::Replace(result, Forms().Back[slot], tokens[slot]);
  }
  return result;
}

QString ReplaceSymbol(const core::FunctionTokenTable& tokens, const QString& text,
                      const QString& find, const QString& replacement) {
  // Folding and unfolding give a text back unchanged when it holds no "_" (no token form can be in
  // it, and none can arise), and folding never makes a name appear that was not there. So a text
  // without "_" and without find is the result; this spares the constant substitution 28 rounds
  // of folding for every number the program evaluates.
  if (!text.contains(u'_') && (find.isEmpty() || !text.contains(find))) return text;
  const QString folded = FoldTokens(tokens, text);
  return UnfoldTokens(tokens, core::Replace(folded, find, replacement), false);
}

QString CountOf(const QString& text, const QString& what) {
  if (what.isEmpty()) throw core::RuntimeError::Of(core::RuntimeError::DivisionByZero);
  const qsizetype removed = text.size() - core::Replace(text, what, QString()).size();
  return core::FormatNumber(static_cast<double>(removed) / static_cast<double>(what.size()));
}

}  // namespace expression
