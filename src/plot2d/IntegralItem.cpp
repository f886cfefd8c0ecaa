#include "IntegralItem.h"

#include "ColumnRegion.h"

#include <algorithm>
#include <cmath>

namespace plot2d {

using mathlang::BlockProgram;
using mathlang::ParseExpression;

namespace {

QString Number(double v) { return QString::number(v, 'g', 10); }

}  // namespace

IntegralItem::IntegralItem(const QString& first, const QString* second, double from, double to, QColor color)
    : m_first(ParseExpression(first)), m_hasSecond(second != nullptr), m_from(from), m_to(to), m_color(color) {
  if (m_hasSecond) m_second = ParseExpression(*second);
  if (!m_first.Ok()) m_problem = m_first.Error;
  else if (m_hasSecond && !m_second.Ok()) m_problem = m_second.Error;
  if (!m_problem.isEmpty()) return;
  m_top = BlockProgram(m_first.Tree, m_first.Right);
  if (m_hasSecond) {
    m_bottom = BlockProgram(m_second.Tree, m_second.Right);
    // The difference as one expression of its own, for the quadrature.
    mathlang::ParsedLine both = ParseExpression(QStringLiteral("(") + first + QStringLiteral(")-(") + *second + u')');
    if (both.Ok()) m_difference = BlockProgram(both.Tree, both.Right);
  }
  m_value = Integrate(m_hasSecond ? m_difference : m_top, m_from, m_to, 1e-11);
}

QString IntegralItem::Text() const {
  if (!m_value.Defined) return QStringLiteral("\u222B undefined");
  QString text = QStringLiteral("\u222B = ") + Number(m_value.Total);
  if (m_value.Above != 0 && m_value.Below != 0) {
    text += QStringLiteral("  (above %1, below %2)").arg(Number(m_value.Above), Number(m_value.Below));
  }
  return text;
}

void IntegralItem::Draw(const ViewTransform& view, int quality, Drawing& drawing) const {
  if (!m_problem.isEmpty()) return;
  const double low = std::min(m_from, m_to);
  const double high = std::max(m_from, m_to);
  // Even samples at about a pixel apart over the interval's visible part, and its ends.
  const double from = std::max(low, view.XMin() - view.XPerPixel());
  const double to = std::min(high, view.XMax() + view.XPerPixel());
  if (!(from < to)) return;
  const int count = std::clamp(static_cast<int>((to - from) / view.XPerPixel() * quality / 100.0), 8, 20000);
  std::vector<double> xs(static_cast<size_t>(count) + 1);
  for (int i = 0; i <= count; ++i) xs[static_cast<size_t>(i)] = from + (to - from) * i / count;
  std::vector<double> top(xs.size()), bottom(xs.size(), 0.0);
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  m_top.Evaluate(inputs, xs.size(), top.data());
  if (m_hasSecond) m_bottom.Evaluate(inputs, xs.size(), bottom.data());

  const QPainterPath path = ColumnRegion(xs, top, bottom, [&](size_t i) { return !std::isnan(top[i]) && !std::isnan(bottom[i]); });
  QColor fill = m_color;
  fill.setAlpha(90);
  drawing.Fills.push_back({path, fill});
  // The value in the tallest column of the shaded part in view, where it has the most room.
  size_t tallest = xs.size() / 2;
  double tallestHeight = -1;
  const auto clipped = [&](double y) { return std::clamp(y, view.YMin(), view.YMax()); };
  for (size_t i = 0; i < xs.size(); ++i) {
    if (!std::isfinite(top[i]) || !std::isfinite(bottom[i])) continue;
    const double height = std::abs(clipped(top[i]) - clipped(bottom[i]));
    if (height > tallestHeight) tallestHeight = height, tallest = i;
  }
  const double x = xs[tallest];
  const double upper = tallestHeight >= 0 ? clipped(std::max(top[tallest], bottom[tallest])) : 0;
  const double lower = tallestHeight >= 0 ? clipped(std::min(top[tallest], bottom[tallest])) : 0;
  drawing.Labels.push_back({QPointF(x, upper), Text(), m_color.darker(160), QPointF(x, lower)});
}

}  // namespace plot2d
