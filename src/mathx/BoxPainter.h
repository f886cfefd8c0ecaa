#pragma once

#include "FontSet.h"
#include "LayoutBox.h"

#include <QColor>
#include <QPointF>

class QPainter;

namespace mathx {

// Draws a typeset box and everything in it, with its origin (left edge, baseline) at origin, in
// one colour. Everything is drawn as outlines and text, so the picture is sharp at any scale.
void PaintBox(QPainter& painter, const LayoutBox& box, QPointF origin, const FontSet& fonts, const QColor& color);

}  // namespace mathx
