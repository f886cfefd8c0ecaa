#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace core {

using FunctionTokenTable = std::array<QString, 45>;
using ConstantTable = std::array<QString, 28>;
using CommandPhraseTable = std::array<QString, 13>;

// The state that the expression pipeline, the plot compiler, the project files and the dialogs
// share for the life of the process. One instance is made at start-up and handed to whoever
// needs it; tests make their own.
struct SharedState {
  // Function names in folding order (a longer name before every name it contains); empty slots
  // count as no name.
  FunctionTokenTable FunctionTokens;
  // The names a constant row can define ("a=2"), and beside them the values the last replot
  // found for them. Values are never cleared: a value outlives the row that gave it.
  ConstantTable ConstantNames;
  ConstantTable ConstantValues;
  // The spelled-out forms of the display commands.
  CommandPhraseTable CommandPhrases;
  // The one failure flag of all numeric work.
  bool MathError = false;
  // Path of the current project file, "" while unsaved, and whether it has unsaved changes.
  QString ProjectPath;
  bool ProjectChanged = false;
  // The editor the insert dialog works on: the input tab (0 a function row, 1 the inequality, 2
  // the parametric, 3 the 3D inputs) and which editor of it (for a row, its index). They keep
  // their last values after the dialog has gone.
  std::int16_t InsertSource = 0;
  double InsertIndex = 0;
};

// Fills FunctionTokens, ConstantNames and CommandPhrases. Runs once, before any row is compiled.
void InitTables(SharedState& state);

}  // namespace core
