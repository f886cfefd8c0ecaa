#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli plot [options] [--line TEXT]... OUT: draws rows with the program's plot engine
// and saves the picture, the format by OUT's ending.
int RunPlot(const QStringList& arguments, Streams streams);

// The options of plot, for --help.
QString PlotHelp();

}  // namespace cli
