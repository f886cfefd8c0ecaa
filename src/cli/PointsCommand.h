#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli points [options] [--line TEXT]...: builds the scene as plot does and prints
// every special point that the plot's tips would show, one a line: its kind and "(x, y)" as a
// click on its dot copies it, to 15 significant digits.
int RunPoints(const QStringList& arguments, Streams streams);

// The options of points, for --help.
QString PointsHelp();

}  // namespace cli
