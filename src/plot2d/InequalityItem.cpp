#include "InequalityItem.h"

#include "ColumnRegion.h"
#include "CurveSampler.h"
#include "PolylineSimplifier.h"

#include <algorithm>
#include <cmath>

namespace plot2d {

InequalityItem::InequalityItem(const QString& first, const QString* second, QColor line, QColor fill)
    : m_line(line), m_fill(fill) {
  std::vector<QString> texts{first};
  if (second) texts.push_back(*second);
  for (const QString& text : texts) {
    Part part{mathlang::ParseInequality(text), {}};
    if (!part.Parsed.Ok()) {
      m_problem = part.Parsed.Error;
      m_parts.clear();
      return;
    }
    part.Boundary = mathlang::BlockProgram(part.Parsed.Tree, part.Parsed.Boundary);
    m_parts.push_back(std::move(part));
  }
}

void InequalityItem::Draw(const ViewTransform& view, int quality, Drawing& drawing) const {
  if (m_parts.empty()) return;
  // Column by column: the region spans from the highest lower bound to the lowest upper bound.
  const int step = std::max(1, 100 / std::clamp(quality, 1, 100));
  const int columns = view.Width() / step + 2;
  std::vector<double> xs(static_cast<size_t>(columns));
  for (int i = 0; i < columns; ++i) xs[static_cast<size_t>(i)] = view.ToDataX(i * step);
  const double beyond = view.YMax() - view.YMin();
  std::vector<double> low(xs.size(), view.YMin() - beyond), high(xs.size(), view.YMax() + beyond);
  std::vector<double> boundary(xs.size());
  mathlang::BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  for (const Part& part : m_parts) {
    part.Boundary.Evaluate(inputs, xs.size(), boundary.data());
    for (size_t i = 0; i < xs.size(); ++i) {
      const double b = std::clamp(boundary[i], view.YMin() - beyond, view.YMax() + beyond);
      if (std::isnan(boundary[i])) low[i] = high[i] = 0;  // undefined: no region here
      else if (part.Parsed.Above) low[i] = std::max(low[i], b);
      else high[i] = std::min(high[i], b);
    }
  }
  const QPainterPath path = ColumnRegion(xs, high, low, [&](size_t i) { return low[i] < high[i]; });
  drawing.Fills.push_back({path, m_fill});
  for (std::size_t k = 0; k < m_parts.size(); ++k) {
    const Part& part = m_parts[k];
    CurveSource source;
    source.Kind = CurveSource::Mode::YOfX;
    source.First = part.Boundary;
    SampledCurve curve = CurveSampler(source, view, quality)
                             .Sample(view.XMin(), view.XMax(), CurveSampler::SamplesFor(view.Width(), quality));
    SimplifyForView(curve.Pieces, view);
    Drawing::Curve edge;
    edge.Pieces = curve.Pieces, edge.Color = m_line;
    edge.Line = part.Parsed.Inclusive ? Drawing::Style::Solid : Drawing::Style::Dashed;
    // The boundary y = f(x), so that its special points and the region's corners are exact.
    const mathlang::BlockProgram f = part.Boundary;
    edge.Explicit = [f](double x) { return f.At(x); };
    edge.Zero = [f](double x, double y) { return f.At(x) - y; };
    if (m_parts.size() == 2) edge.Edge = static_cast<int>(k) + 1;
    drawing.Curves.push_back(std::move(edge));
  }
}

}  // namespace plot2d
