#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli surface --kind N --equation TEXT [options] OUT: draws one surface with the
// program's 3D engine and saves the picture, the format by OUT's ending.
int RunSurface(const QStringList& arguments, Streams streams);

// The options of surface, for --help.
QString SurfaceHelp();

}  // namespace cli
