#pragma once

#include "mathx/LayoutBox.h"

#include <QRectF>

#include <functional>
#include <vector>

namespace mathx {

// A box of a formula with its place: origin (left, baseline) and extent in formula coordinates.
struct PlacedBox {
  const LayoutBox* box = nullptr;
  double x = 0;
  double baseline = 0;
  double Top() const { return baseline - box->ascent; }
  double Bottom() const { return baseline + box->descent; }
  QRectF Rect() const { return {x, Top(), box->width, box->Height()}; }
};

inline void Walk(const LayoutBox& box, double x, double y, const std::function<void(const PlacedBox&)>& visit) {
  const PlacedBox placed{&box, x + box.x, y + box.y};
  visit(placed);
  for (const LayoutBox& child : box.children) Walk(child, placed.x, placed.baseline, visit);
}

inline std::vector<PlacedBox> Find(const LayoutBox& root, const std::function<bool(const LayoutBox&)>& match) {
  std::vector<PlacedBox> found;
  Walk(root, 0, 0, [&](const PlacedBox& placed) {
    if (match(*placed.box)) found.push_back(placed);
  });
  return found;
}

inline std::vector<PlacedBox> WithRole(const LayoutBox& root, LayoutBox::Role role) {
  return Find(root, [role](const LayoutBox& box) { return box.role == role; });
}

inline std::vector<PlacedBox> WithText(const LayoutBox& root, const QString& text) {
  return Find(root, [&text](const LayoutBox& box) { return box.kind == LayoutBox::Kind::Text && box.text == text; });
}

}  // namespace mathx
