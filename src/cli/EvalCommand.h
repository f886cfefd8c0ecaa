#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli eval [--script] [--exec STATEMENT]... [--const NAME=VALUE]... [TEXT...]:
// a calculator with the program's own engine, one line of output for each text.
int RunEval(const QStringList& arguments, Streams streams);

}  // namespace cli
