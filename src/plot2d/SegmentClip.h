#pragma once

#include <QPointF>
#include <QRectF>

namespace plot2d {

// Cuts segment a-b to the part inside rect (Liang-Barsky); false when none of it is inside. The
// painter cuts curves so, and so does any writer that draws them as paths.
bool ClipSegment(QPointF& a, QPointF& b, const QRectF& rect);

}  // namespace plot2d
