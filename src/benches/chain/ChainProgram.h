#pragma once

#include "benches/common/BenchProgram.h"

namespace chain {

// The bench as a program, and the state of the window that the manual's picture shows.
benches::BenchProgram ChainProgram();

}  // namespace chain
