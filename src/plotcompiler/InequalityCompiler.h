#pragma once

#include <QString>

namespace plotcompiler {

// A restriction as the user writes it, "y=x^2;0<x<3", turned into the row's stored form,
// "declare(y=x^2,domain(x,0,3,0))". Accepts the normaliser's bare tokens for theta and rho.
// Comes back unchanged for text without ";" and for point lists, empty when neither a comparison
// nor a chain can be read. Never fails.
QString CompileInequalityRow(const QString& text);

// One chain "0<=x<3" to its domain form "domain(x,0,3,3)"; anything else comes back unchanged.
QString InequalityToDomain(const QString& text);

}  // namespace plotcompiler
