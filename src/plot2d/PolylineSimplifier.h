#pragma once

#include "ViewTransform.h"

#include <QPolygonF>

#include <vector>

namespace plot2d {

// Leaves out the points of sampled lines that lie within a fraction of a pixel of the line
// through their neighbours in this view, so that painting strokes long segments rather than many
// short ones. The points kept are the sampled points themselves.
void SimplifyForView(std::vector<QPolygonF>& lines, const ViewTransform& view);

}  // namespace plot2d
