#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli render PROJECT OUT [--size WxH]: the project loaded into a fresh main form, and
// the picture of what its plot shows saved to OUT.
int RunRender(const QStringList& arguments, Streams streams);
// quillograph-cli resave PROJECT OUT: the project loaded into a fresh main form and saved again.
int RunResave(const QStringList& arguments, Streams streams);

QString ProjectCommandsHelp();

}  // namespace cli
