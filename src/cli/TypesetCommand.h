#pragma once

#include "CommandLine.h"

namespace cli {

// quillograph-cli typeset TEXT OUT [--size PT] [--color #RRGGBB] [--scale R] [--tree]: sets a
// row text as the equation editor shows it and saves the picture (transparent PNG unless OUT's
// ending asks for JPEG or BMP, which get a white ground).
int RunTypeset(const QStringList& arguments, Streams streams);

// The options of typeset, for --help.
QString TypesetHelp();

}  // namespace cli
