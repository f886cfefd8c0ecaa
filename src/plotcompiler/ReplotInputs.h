#pragma once

#include "ReplotHost.h"

#include <QString>

namespace plotcompiler {

// Everything of the form that a replot reads, as one text: two texts are equal exactly when a
// replot of them would draw the same picture. The main form compares it after each change, so
// that every input redraws the plot by itself without drawing twice what a handler drew already.
// The ribbon's display checks are left out: their commands redraw at once.
QString ReplotInputs(const ReplotHost& host);

}  // namespace plotcompiler
