#pragma once

#include <QString>
#include <QStringList>

namespace mathx {

// Turns what people type or paste into a row text: "|x|" into abs(x), the characters of a
// keyboard or a word processor (θ π √ ² ³ · × ÷ − ≤ ≥ ≠) into names and operators, "f(x)=" and
// "r(θ)=" into "y=" and "r=", "(1,2),(3,4)" into the point list "[x,y;1,2;3,4]", and LaTeX as it
// is copied from a worksheet (\frac, \sqrt, \left( ... \right), ^{..}, $...$) into the row
// language. Text that is a row already comes back unchanged, and so does the result itself.
// Unfinished input is left as it stands where it cannot be read yet: a bar without its partner,
// braces that are not closed, a LaTeX command still missing its argument, and LaTeX with a
// command the row language has no word for (\infty). Never fails.
QString FromTypedInput(const QString& text);

// The pieces of a text between the commas that stand outside any bracket, as they stand:
// "max(1,2),3" is two. A closing bracket without its opening one is passed over.
QStringList TopLevelCommaPieces(const QString& text);

}  // namespace mathx
