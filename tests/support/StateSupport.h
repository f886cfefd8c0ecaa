#pragma once

#include "core/SharedState.h"

// Shared state with its tables filled, as it is after start-up.
inline core::SharedState InitialisedState() {
  core::SharedState state;
  core::InitTables(state);
  return state;
}

inline core::FunctionTokenTable FunctionTokens() { return InitialisedState().FunctionTokens; }
