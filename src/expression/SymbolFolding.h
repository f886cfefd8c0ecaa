#pragma once

#include "core/SharedState.h"

#include <QString>

// Function names folded into letter-free tokens, so that a single letter such as x or s can be
// replaced without hitting the x of "exp" or the s of "sin".
namespace expression {

// The two forms of the token of slot n: front "*_ n_" (a star before the function) and back
// "_ n_*" (the star moved behind it by the normaliser), n written as a number for display.
QString FrontForm(int slot);
QString BackForm(int slot);

// Every name of the table, from slot 0 up, replaced by its front form.
QString FoldTokens(const core::FunctionTokenTable& tokens, const QString& text);

// Tokens back to names. Unless backOnly, every slot's front form and then its back form; in any
// case a last pass over the back form of slot 0 alone, which is all that backOnly unfolds.
QString UnfoldTokens(const core::FunctionTokenTable& tokens, const QString& text, bool backOnly);

// find replaced by replacement with the function names protected. A name of the table (such as
// "theta") is folded before the search and can therefore never be replaced.
QString ReplaceSymbol(const core::FunctionTokenTable& tokens, const QString& text,
                      const QString& find, const QString& replacement);

// How often what occurs in text, formatted to text. An empty what divides by zero and raises
// RuntimeError 11.
QString CountOf(const QString& text, const QString& what);

}  // namespace expression
