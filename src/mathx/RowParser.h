#pragma once

#include "MathNode.h"
#include "RowNames.h"

#include <QString>

namespace mathx {

// Reads a row text as a mathematician would read it: command rows, point lists, equations with
// their conditions, and expressions. The reading is lenient at the end of the text, where the
// user is still typing: brackets left open are closed and a missing last operand becomes a
// placeholder. Anything else that does not parse comes back as one PlainText node holding the
// whole text. Never throws.
MathNode ParseRow(const QString& text);

}  // namespace mathx
