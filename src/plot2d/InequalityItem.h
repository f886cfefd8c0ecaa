#pragma once

#include "mathlang/BlockProgram.h"
#include "Drawing.h"
#include "mathlang/LineParser.h"
#include "ViewTransform.h"

namespace plot2d {

// The region where an inequality "y<f(x)" holds (where both hold, with a second one), shaded,
// and each boundary drawn: dashed where it does not belong to the region ("<", ">").
class InequalityItem {
public:
  InequalityItem(const QString& first, const QString* second, QColor line, QColor fill);

  QString Problem() const { return m_problem; }
  void Draw(const ViewTransform& view, int quality, Drawing& drawing) const;

private:
  struct Part {
    mathlang::ParsedInequality Parsed;
    mathlang::BlockProgram Boundary;
  };
  std::vector<Part> m_parts;
  QColor m_line, m_fill;
  QString m_problem;
};

}  // namespace plot2d
