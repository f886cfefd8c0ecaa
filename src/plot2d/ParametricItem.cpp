#include "ParametricItem.h"

#include "PolylineSimplifier.h"

#include <algorithm>
#include <cmath>

namespace plot2d {

ParametricItem::ParametricItem(const QString& x, const QString& y, double from, double to, int type, QColor color)
    : m_x(mathlang::ParseExpression(x)), m_y(mathlang::ParseExpression(y)), m_from(from), m_to(to), m_color(color) {
  if (!m_x.Ok()) m_problem = m_x.Error;
  else if (!m_y.Ok()) m_problem = m_y.Error;
  if (!m_problem.isEmpty()) return;
  m_source.Kind = type == 2 ? CurveSource::Mode::ParametricPolar : CurveSource::Mode::Parametric;
  m_source.First = mathlang::BlockProgram(m_x.Tree, m_x.Right);
  m_source.Second = mathlang::BlockProgram(m_y.Tree, m_y.Right);
}

void ParametricItem::Draw(const ViewTransform& view, int quality, Drawing& drawing) const {
  if (!m_problem.isEmpty() || !std::isfinite(m_from) || !std::isfinite(m_to) || m_from == m_to) return;
  const double pixels = 2.0 * std::max(view.Width(), view.Height());
  SampledCurve curve = CurveSampler(m_source, view, quality).Sample(m_from, m_to, CurveSampler::SamplesFor(pixels, quality));
  SimplifyForView(curve.Pieces, view);
  Drawing::Curve drawn;
  drawn.Pieces = std::move(curve.Pieces), drawn.Color = m_color;
  const CurveSource source = m_source;
  drawn.PointAt = [source](double t) { return source.PointAt(t); };
  drawn.From = m_from, drawn.To = m_to;
  drawing.Curves.push_back(std::move(drawn));
}

}  // namespace plot2d
