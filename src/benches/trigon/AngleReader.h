#pragma once

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <QString>

namespace trigon {

// What a typed angle came to: its degrees, or why it could not be read.
struct AngleReading {
  bool Ok = false;
  double Degrees = 0;
  QString Message;  // in words, for the window, when not Ok
};

// Reads a typed angle as the program reads its number fields (the script engine with the
// program's constants), so "3pi/4", "2*pi/3" and "sqr(2)" all work. The unit: a trailing "°" or
// "deg" means degrees, a trailing "rad" radians, a text with pi (or π) in it radians; any other
// number is taken in the default unit.
class AngleReader {
public:
  AngleReader();

  AngleReading Read(const QString& text, bool radiansByDefault);

private:
  core::SharedState m_state;
  script::ScriptControl m_engine;
  expression::ScriptEvaluation m_evaluation;
};

}  // namespace trigon
