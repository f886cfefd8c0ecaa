#pragma once

#include "benches/common/BenchProgram.h"

namespace probe {

// The probe as a program; its picture is x^3-3x with its maximum marked.
benches::BenchProgram ProbeProgram();
// The program's arguments after its name; the exit code.
int RunProbe(const QStringList& arguments);

}  // namespace probe
