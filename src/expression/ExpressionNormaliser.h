#pragma once

#include "core/SharedState.h"

#include <QString>

namespace expression {

// Turns what a person writes ("2x", "3(x+1)", "x2") into text the script engine evaluates
// ("2*x", "3*(x+1)", "x^2"). There is no parser: a fixed chain of global replacements, whose
// order is the whole design. Never fails; unknown names and unbalanced brackets pass through.
QString NormaliseExpression(const core::FunctionTokenTable& tokens, const QString& text);

}  // namespace expression
