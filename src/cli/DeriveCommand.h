#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli derive TEXT...: the derivative of each row text, one line each, or
// "Could Not Derivative!" (and exit status 1) where there is none. With no TEXT, one text per
// line of standard input.
int RunDerive(const QStringList& arguments, Streams streams);

}  // namespace cli
