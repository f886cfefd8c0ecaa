#pragma once

#include <QString>

#include <optional>

namespace mathlang {

// The derivative of a row's text, as the insert dialog puts it into a row: "y=..." and a bare
// expression by x, "x=..." by y, "r=..." by theta; the result is the right-hand side alone.
// "declare(y=f,cond)" gives the derivative of f followed by ",cond)", and "y=declare(f,cond)"
// gives "declare(f',cond)", so that the dialog's prefix (the text up to the first "=") makes a
// valid row again. Nothing for implicit equations, point lists, command rows and texts that do
// not parse.
std::optional<QString> Derivative(const QString& text);

}  // namespace mathlang
