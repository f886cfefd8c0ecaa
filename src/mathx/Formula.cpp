#include "Formula.h"

#include "BoxPainter.h"
#include "RowParser.h"
#include "Typesetter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace mathx {

namespace {

double MarginX(double size) { return std::ceil(size * 0.2); }
double MarginY(double size) { return std::ceil(size * 0.15); }

// Collects the carets in picture coordinates, the outer structure's first: where two boxes offer
// a place for the same position, the one that encloses the other decides.
void CollectSlots(const LayoutBox& box, QPointF origin, std::vector<CaretPlace>& carets) {
  const QPointF at(origin.x() + box.x, origin.y() + box.y);
  for (const CaretSlot& slot : box.carets)
    carets.push_back({slot.position, at.x() + slot.x, at.y() - slot.ascent, at.y() + slot.descent});
  for (const LayoutBox& child : box.children) CollectSlots(child, at, carets);
}

void CollectSelection(const LayoutBox& box, QPointF origin, int from, int to, const FontSet& fonts,
                      std::vector<QRectF>& rects) {
  const QPointF at(origin.x() + box.x, origin.y() + box.y);
  if (box.sourceBegin >= 0 && box.kind != LayoutBox::Kind::Row) {
    const QRectF whole(at.x(), at.y() - box.ascent, box.width, box.Height());
    if (box.verbatim && box.kind == LayoutBox::Kind::Text) {
      const int first = std::max(from, box.sourceBegin) - box.sourceBegin;
      const int last = std::min(to, box.sourceEnd) - box.sourceBegin;
      if (first < last) {
        const QFontMetricsF& metrics = fonts.Metrics(box.font, box.size);
        const double left = metrics.horizontalAdvance(box.text.left(first));
        const double right = last >= box.text.size() ? box.width : metrics.horizontalAdvance(box.text.left(last));
        rects.emplace_back(at.x() + left, whole.top(), right - left, whole.height());
      }
    } else if (box.sourceBegin >= from && box.sourceEnd <= to && box.sourceEnd > box.sourceBegin) {
      rects.push_back(whole);
    }
  }
  for (const LayoutBox& child : box.children) CollectSelection(child, at, from, to, fonts, rects);
}

// The innermost box with characters of its own that covers point; deeper boxes win.
void FindPiece(const LayoutBox& box, QPointF origin, QPointF point, std::optional<std::pair<int, int>>& found) {
  const QPointF at(origin.x() + box.x, origin.y() + box.y);
  const QRectF rect(at.x(), at.y() - box.ascent, box.width, box.Height());
  if (box.sourceBegin >= 0 && box.sourceEnd > box.sourceBegin && rect.contains(point)) found = {box.sourceBegin, box.sourceEnd};
  for (const LayoutBox& child : box.children) FindPiece(child, at, point, found);
}

}  // namespace

Formula::Formula() { Rebuild(); }

void Formula::SetText(const QString& text) {
  if (text == m_text && !m_slots.empty()) return;
  m_text = text;
  Rebuild();
}

void Formula::SetPixelSize(double pixelSize) {
  const double size = std::clamp(std::isfinite(pixelSize) ? pixelSize : 16.0, 4.0, 400.0);
  if (size == m_pixelSize) return;
  m_pixelSize = size;
  Rebuild();
}

void Formula::Rebuild() {
  m_node = ParseRow(m_text);
  m_box = Typesetter(m_fonts, m_pixelSize).Layout(m_node);
  // An empty text still has a line's height, so that an empty row looks like one.
  const QFontMetricsF& metrics = m_fonts.Metrics(FontRole::Upright, m_pixelSize);
  m_box.ascent = std::max(m_box.ascent, metrics.ascent() * 0.85);
  m_box.descent = std::max(m_box.descent, metrics.descent() * 0.85);

  std::vector<CaretPlace> all;
  CollectSlots(m_box, Origin(), all);
  // Every text has a place for its start and its end.
  const QPointF origin = Origin();
  all.push_back({0, origin.x(), origin.y() - m_box.ascent, origin.y() + m_box.descent});
  all.push_back({int(m_text.size()), origin.x() + m_box.width, origin.y() - m_box.ascent, origin.y() + m_box.descent});
  m_slots.clear();
  std::vector<bool> known(size_t(m_text.size()) + 1, false);
  for (const CaretPlace& slot : all) {
    if (slot.position < 0 || slot.position > m_text.size() || known[size_t(slot.position)]) continue;
    known[size_t(slot.position)] = true;
    m_slots.push_back(slot);
  }
  std::stable_sort(m_slots.begin(), m_slots.end(),
                   [](const CaretPlace& a, const CaretPlace& b) { return a.position < b.position; });
}

QPointF Formula::Origin() const { return {MarginX(m_pixelSize), MarginY(m_pixelSize) + m_box.ascent}; }

QSizeF Formula::Size() const {
  return {std::ceil(m_box.width + 2 * MarginX(m_pixelSize)), std::ceil(m_box.Height() + 2 * MarginY(m_pixelSize))};
}

void Formula::Paint(QPainter& painter, QPointF topLeft, const QColor& color) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  PaintBox(painter, m_box, topLeft + Origin(), m_fonts, color);
  painter.restore();
}

QImage Formula::Render(const QColor& color, double devicePixelRatio) const {
  const double ratio = std::clamp(devicePixelRatio, 0.25, 8.0);
  const QSizeF size = Size();
  QImage image(std::max(1, int(std::ceil(size.width() * ratio))), std::max(1, int(std::ceil(size.height() * ratio))),
               QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  Paint(painter, QPointF(0, 0), color);
  return image;
}

CaretPlace Formula::PlaceOf(int position) const {
  CaretPlace best = m_slots.front();
  for (const CaretPlace& slot : m_slots)
    if (slot.position <= position) best = slot;
  return best;
}

int Formula::PositionAt(QPointF point) const {
  int best = 0;
  double bestScore = std::numeric_limits<double>::infinity();
  for (const CaretPlace& slot : m_slots) {
    // Across first, then up or down: a slot whose height covers the point wins over one above it.
    const double dy = point.y() < slot.top ? slot.top - point.y()
                    : point.y() > slot.bottom ? point.y() - slot.bottom : 0;
    // Among places at the same spot the smallest, the innermost, wins: an exponent's start over
    // its base's end.
    const double score = std::abs(point.x() - slot.x) + 2 * dy + 0.01 * (slot.bottom - slot.top);
    if (score < bestScore) {
      bestScore = score;
      best = slot.position;
    }
  }
  return best;
}

int Formula::PositionAbove(int position) const { return PositionBeside(position, true); }
int Formula::PositionBelow(int position) const { return PositionBeside(position, false); }

int Formula::PositionBeside(int position, bool above) const {
  const CaretPlace from = PlaceOf(position);
  int best = position;
  double bestScore = std::numeric_limits<double>::infinity();
  for (const CaretPlace& place : m_slots) {
    // Wholly above or below: a place that spans the current one is the same line.
    const bool beside = above ? place.bottom <= from.top + 0.5 : place.top >= from.bottom - 0.5;
    if (!beside) continue;
    const double gap = above ? from.top - place.bottom : place.top - from.bottom;
    const double score = std::abs(place.x - from.x) + 0.5 * gap;
    if (score < bestScore) {
      bestScore = score;
      best = place.position;
    }
  }
  return best;
}

std::optional<std::pair<int, int>> Formula::PieceAt(QPointF point) const {
  std::optional<std::pair<int, int>> found;
  FindPiece(m_box, Origin(), point, found);
  return found;
}

std::vector<QRectF> Formula::SelectionRects(int from, int to) const {
  std::vector<QRectF> rects;
  if (from > to) std::swap(from, to);
  if (from == to) return rects;
  CollectSelection(m_box, Origin(), from, to, m_fonts, rects);
  return rects;
}

}  // namespace mathx
