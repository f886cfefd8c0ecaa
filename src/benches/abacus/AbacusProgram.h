#pragma once

#include "benches/common/BenchProgram.h"

namespace abacus {

// The calculator as a program; its picture has a few answers in the history.
benches::BenchProgram AbacusProgram();
// The program's arguments after its name; the exit code.
int RunAbacus(const QStringList& arguments);

}  // namespace abacus
