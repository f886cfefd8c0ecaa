#pragma once

#include "PlotControl.h"

#include <QString>

namespace plotcompiler {

// A display command row's keyword ("showgrid", "transparentbackground", ...), applied to the plot.
// Compared exactly, case and all, after the blanks around it are trimmed; any other keyword,
// "enterfullscreen" among them, does nothing here.
void ApplyDisplayCommand(const QString& keyword, PlotControl& plot);

}  // namespace plotcompiler
