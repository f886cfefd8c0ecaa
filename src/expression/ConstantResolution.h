#pragma once

#include "core/SharedState.h"

#include <QString>

namespace expression {

// Whether text, lower-cased, is one of the names a constant row can define. The empty text is
// (the table's empty slots equal it).
bool IsConstantName(const core::SharedState& state, const QString& text);

// Puts the constants' values into text as plain text, without brackets, from the last slot to
// the first so that long names go before their letters. A name without a value is deleted;
// "pi" is never touched, and neither are "theta" and "rho" (they are folded away).
QString SubstituteConstants(const core::SharedState& state, const QString& text);

// What a constant row does: for a compiled line "name=value" whose name is a constant name, the
// value (the text right of the first "=") goes into every slot whose name equals it exactly.
// Returns whether the line was such a row.
bool StoreConstant(core::SharedState& state, const QString& line);

}  // namespace expression
