#pragma once

#include "core/SharedState.h"

#include <QString>

namespace plotcompiler {

// Why a row draws nothing, in the words its warning mark shows ("Unknown name: q", "A bracket is
// not closed"); empty where it draws. The plot is silent about what it cannot draw, so the row
// says it instead.
class RowProblem {
public:
  // A function line as the plot takes it: what the plot's parser would refuse, worded for people.
  static QString OfLine(const QString& line);
  // The constants that a compiled row uses while no row gives them a value: substitution deletes
  // them, and the plot would be handed a line with a hole in it.
  static QString UnsetConstants(const core::SharedState& state, const QString& compiled);
  // The parser's own account of a failure, put as the mark says it.
  static QString Worded(const QString& parserError, const QString& line);
};

}  // namespace plotcompiler
