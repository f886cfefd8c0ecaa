#include "BoxPainter.h"

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#include <immintrin.h>
#endif

namespace mathx {

namespace {

void PaintRule(QPainter& painter, const LayoutBox& box, QPointF origin, const QColor& color) {
  QRectF rect(origin.x(), origin.y() - box.ascent, box.width, box.Height());
  painter.fillRect(rect, color);
}

// The hook of a radical: a short rise, the long stroke down, and the stroke up to the line.
void PaintRadicalSign(QPainter& painter, const LayoutBox& box, QPointF origin, const QColor& color) {
  const double top = origin.y() - box.ascent;
  const double bottom = origin.y() + box.descent;
  const double left = origin.x();
  const double w = box.width;
  const double h = bottom - top;
  // The tick stays near the foot however tall the radicand is, as in type.
  const double tick = bottom - std::min(h * 0.42, w * 0.95);
  QPainterPath path;
  path.moveTo(left + 0.02 * w, tick + w * 0.12);
  path.lineTo(left + 0.22 * w, tick);
  path.lineTo(left + 0.50 * w, bottom);
  path.lineTo(left + w, top + box.thickness / 2);
  painter.setPen(QPen(color, box.thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(path);
  // The down stroke is the heavy one.
  painter.setPen(QPen(color, box.thickness * 1.9, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(left + 0.24 * w, tick + box.thickness), QPointF(left + 0.48 * w, bottom - box.thickness));
}

void PaintFence(QPainter& painter, const LayoutBox& box, QPointF origin, const QColor& color) {
  const double top = origin.y() - box.ascent;
  const double bottom = origin.y() + box.descent;
  const double left = origin.x();
  const double w = box.width;
  const bool opening = box.fence == u'(' || box.fence == u'[' || box.fence == u'{';
  // Closing brackets are the opening ones mirrored.
  auto at = [&](double fx, double y) { return QPointF(opening ? left + fx * w : left + (1 - fx) * w, y); };
  QPainterPath path;
  if (box.fence == u'|') {
    path.moveTo(left + w / 2, top);
    path.lineTo(left + w / 2, bottom);
  } else if (box.fence == u'[' || box.fence == u']') {
    path.moveTo(at(0.8, top));
    path.lineTo(at(0.3, top));
    path.lineTo(at(0.3, bottom));
    path.lineTo(at(0.8, bottom));
  } else {
    const double mid = (top + bottom) / 2;
    path.moveTo(at(0.85, top));
    path.cubicTo(at(0.2, top + (bottom - top) * 0.15), at(0.2, mid), at(0.2, mid));
    path.cubicTo(at(0.2, mid), at(0.2, bottom - (bottom - top) * 0.15), at(0.85, bottom));
  }
  painter.setPen(QPen(color, box.thickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(path);
}

void PaintFrame(QPainter& painter, const LayoutBox& box, QPointF origin, const QColor& color) {
  const double half = box.thickness / 2;
  QRectF rect(origin.x() + half, origin.y() - box.ascent + half, box.width - box.thickness,
              box.Height() - box.thickness);
  QColor fill = color;
  fill.setAlphaF(0.08f);
  painter.setPen(QPen(color, box.thickness));
  painter.setBrush(fill);
  const double radius = rect.height() * 0.3;
  painter.drawRoundedRect(rect, radius, radius);
}

void PaintPlaceholder(QPainter& painter, const LayoutBox& box, QPointF origin, const QColor& color) {
  QColor faint = color;
  faint.setAlphaF(color.alphaF() * 0.45f);
  QPen pen(faint, box.thickness, Qt::DotLine);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(origin.x() + box.thickness, origin.y() - box.ascent, box.width - 2 * box.thickness,
                          box.Height()));
}

// Some of Qt's painting and hashing leaves the upper halves of the wide vector registers in use,
// and the older vector code that blends glyphs and spans then runs several times slower (a
// table of formulas took some 40% longer to paint). Clearing them before each piece costs a
// cycle and changes no pixel.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
__attribute__((target("avx"))) void ZeroUpperHalves() { _mm256_zeroupper(); }
void ClearWideRegisters() {
  if (__builtin_cpu_supports("avx")) ZeroUpperHalves();
}
#else
void ClearWideRegisters() {}
#endif

}  // namespace

void PaintBox(QPainter& painter, const LayoutBox& box, QPointF origin, const FontSet& fonts, const QColor& color) {
  const QPointF at(origin.x() + box.x, origin.y() + box.y);
  if (box.kind != LayoutBox::Kind::Row) ClearWideRegisters();
  switch (box.kind) {
    case LayoutBox::Kind::Text: {
      painter.setPen(color);
      // The glyphs are placed by the line's top, the ascent above the baseline. They are shaped
      // once and kept by the font set, and need no font set on the painter.
      const QPointF top(at.x(), at.y() - fonts.Metrics(box.font, box.size).ascent());
      for (const QGlyphRun& run : fonts.Glyphs(box.font, box.size, box.text)) painter.drawGlyphRun(top, run);
      break;
    }
    case LayoutBox::Kind::Rule: PaintRule(painter, box, at, color); break;
    case LayoutBox::Kind::RadicalSign: PaintRadicalSign(painter, box, at, color); break;
    case LayoutBox::Kind::Fence: PaintFence(painter, box, at, color); break;
    case LayoutBox::Kind::Frame: PaintFrame(painter, box, at, color); break;
    case LayoutBox::Kind::Placeholder: PaintPlaceholder(painter, box, at, color); break;
    case LayoutBox::Kind::Row: break;
  }
  for (const LayoutBox& child : box.children) PaintBox(painter, child, at, fonts, color);
}

}  // namespace mathx
