#pragma once

#include <QString>

#include <optional>

namespace plotcompiler {

// Turns a row's text into a function line: Greek names spelled out, "declare" and "domain"
// wrappers taken apart into the equation and its conditions behind ";", integer brackets "[x]"
// turned into "fix(x)", a point list's outer brackets kept. With bare true the caller wants the
// right-hand side alone. An error in a step is ignored and the next step runs: it always returns.
QString CompileEquation(const QString& text, bool bare);

// "domain(x,0,3,1)" to its inequality chain "0<=x<=3". Text without "domain" comes back
// unchanged; bounds other than 0 to 3, or a form with fewer than four fields, give "".
QString DomainToInequality(const QString& text);

// The same, but nothing for a form with fewer than four fields, so that the compiler can leave
// such a piece as it stands.
std::optional<QString> TryDomainToInequality(const QString& text);

}  // namespace plotcompiler
