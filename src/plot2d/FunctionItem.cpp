#include "FunctionItem.h"

#include "ImplicitTracer.h"
#include "PolylineSimplifier.h"

#include "numeric/NumericKernel.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace plot2d {

using mathlang::BlockProgram;
using mathlang::Comparison;
using mathlang::LineForm;
using mathlang::Node;
using mathlang::NodeKind;
using mathlang::Variable;

namespace {

constexpr int kShadeAlpha = 56;

QColor Translucent(QColor color) {
  color.setAlpha(kShadeAlpha);
  return color;
}

}  // namespace

FunctionItem::FunctionItem(int index, const QString& line, const Options& options)
    : m_index(index), m_options(options), m_line(mathlang::ParseLine(line)) {
  if (m_line.Ok()) Classify();
}

// The kind follows the line's own left side; a bare expression is read from its variables. A
// left side that also stands on the right makes the equation implicit ("y=x*y").
void FunctionItem::Classify() {
  mathlang::ExpressionTree& tree = m_line.Tree;
  const int right = m_line.Right;
  const auto implicitWith = [&](Variable left) {
    Node load;
    load.Kind = NodeKind::Load;
    load.Var = left;
    m_line.Left = tree.Add(load);
    m_line.Form = LineForm::Implicit;
  };
  switch (m_line.Form) {
    case LineForm::Y:
      if (tree.Uses(right, Variable::Y)) implicitWith(Variable::Y);
      break;
    case LineForm::X:
      if (tree.Uses(right, Variable::X)) implicitWith(Variable::X);
      break;
    case LineForm::R:
      if (tree.Uses(right, Variable::R)) {
        m_line.Error = QStringLiteral("r stands on both sides");
        return;
      }
      break;
    case LineForm::Bare:
      if (tree.Uses(right, Variable::Theta)) m_line.Form = LineForm::R;
      else if (tree.Uses(right, Variable::X) && tree.Uses(right, Variable::Y)) m_line.Form = LineForm::Implicit, m_line.Left = tree.AddNumber(0);
      else if (tree.Uses(right, Variable::Y)) m_line.Form = LineForm::X;
      else m_line.Form = LineForm::Y;
      break;
    case LineForm::Implicit: break;
  }
  if (m_line.Condition >= 0) {
    m_source.HasCondition = true;
    m_source.Condition = BlockProgram(tree, m_line.Condition);
    for (const Comparison& c : m_line.Comparisons) {
      const Node& n = tree.At(c.Node);
      m_source.Comparisons.push_back({BlockProgram(tree, c.Node), BlockProgram(tree, n.A), BlockProgram(tree, n.B), c.Inclusive});
    }
  }
  switch (m_line.Form) {
    case LineForm::Y: m_kind = 1, m_source.Kind = CurveSource::Mode::YOfX; break;
    case LineForm::X: m_kind = 2, m_source.Kind = CurveSource::Mode::XOfY; break;
    case LineForm::R: m_kind = 3, m_source.Kind = CurveSource::Mode::Polar; break;
    default: m_kind = 4; break;
  }
  if (m_kind == 4) {
    m_difference = BlockProgram(tree, tree.AddBinary(NodeKind::Subtract, m_line.Left, right));
    const auto isZero = [&](int index) { return tree.At(index).Kind == NodeKind::Number && tree.At(index).Number == 0; };
    const int product = isZero(right) ? m_line.Left : isZero(m_line.Left) ? right : -1;
    if (product >= 0 && tree.At(product).Kind == NodeKind::Multiply) {
      std::vector<int> pending{product};
      while (!pending.empty()) {
        const int index = pending.back();
        pending.pop_back();
        const Node& n = tree.At(index);
        if (n.Kind == NodeKind::Multiply) {
          pending.push_back(n.B);
          pending.push_back(n.A);
        } else {
          m_factors.emplace_back(tree, index);
        }
      }
    }
  } else {
    m_source.First = BlockProgram(tree, right);
  }
}

void FunctionItem::Draw(const ViewTransform& view, int quality, Drawing& drawing) const {
  if (m_kind == 0) return;
  if (m_kind == 4) DrawImplicit(view, quality, drawing);
  else DrawCurve(view, quality, drawing);
}

// theta from 0 to 2 pi, unless comparisons of theta with numbers bound it.
std::pair<double, double> FunctionItem::ThetaRange() const {
  double low = 0;
  double high = 2 * numeric::kPi;
  bool lowSet = false, highSet = false;
  const mathlang::ExpressionTree& tree = m_line.Tree;
  for (const Comparison& c : m_line.Comparisons) {
    const Node& n = tree.At(c.Node);
    // A comparison of two numbers ("0<+0") is folded into its value and compares nothing.
    if (n.A < 0 || n.B < 0) continue;
    const Node& a = tree.At(n.A);
    const Node& b = tree.At(n.B);
    const bool aTheta = a.Kind == NodeKind::Load && a.Var == Variable::Theta;
    const bool bTheta = b.Kind == NodeKind::Load && b.Var == Variable::Theta;
    if (aTheta == bTheta) continue;
    const Node& number = aTheta ? b : a;
    if (number.Kind != NodeKind::Number || !std::isfinite(number.Number)) continue;
    const bool less = n.Kind == NodeKind::Less || n.Kind == NodeKind::LessEqual;
    const bool greater = n.Kind == NodeKind::Greater || n.Kind == NodeKind::GreaterEqual;
    // number < theta and theta > number bound from below.
    const bool lowerBound = (less && bTheta) || (greater && aTheta);
    const bool upperBound = (less && aTheta) || (greater && bTheta);
    if (lowerBound) low = lowSet ? std::max(low, number.Number) : number.Number, lowSet = true;
    if (upperBound) high = highSet ? std::min(high, number.Number) : number.Number, highSet = true;
  }
  if (lowSet && !highSet && high <= low) high = low + 2 * numeric::kPi;
  if (highSet && !lowSet && high <= low) low = high - 2 * numeric::kPi;
  return {low, high};
}

void FunctionItem::DrawCurve(const ViewTransform& view, int quality, Drawing& drawing) const {
  CurveSampler sampler(m_source, view, quality);
  SampledCurve curve;
  if (m_kind == 1) {
    const double margin = 2 * view.XPerPixel();
    curve = sampler.Sample(view.XMin() - margin, view.XMax() + margin, CurveSampler::SamplesFor(view.Width(), quality));
  } else if (m_kind == 2) {
    const double margin = 2 * view.YPerPixel();
    curve = sampler.Sample(view.YMin() - margin, view.YMax() + margin, CurveSampler::SamplesFor(view.Height(), quality));
  } else {
    const auto [low, high] = ThetaRange();
    // About a thousand samples a turn at full quality; the refinement adds what the view needs.
    const double turns = std::min(std::abs(high - low) / (2 * numeric::kPi), 50.0);
    curve = sampler.Sample(low, high, CurveSampler::SamplesFor(std::max(1.0, turns) * 1000, quality));
  }
  Shade(curve, view, drawing);
  SimplifyForView(curve.Pieces, view);
  Drawing::Curve drawn;
  drawn.Pieces = curve.Pieces, drawn.Color = m_options.Color, drawn.Line = m_options.Line, drawn.Row = m_index;
  const BlockProgram f = m_source.First;
  if (m_kind == 1) {
    drawn.Zero = [f](double x, double y) { return f.At(x) - y; };
    if (!m_source.HasCondition) drawn.Explicit = [f](double x) { return f.At(x); };
  } else if (m_kind == 2) {
    drawn.Zero = [f](double x, double y) { return f.At(0, y) - x; };
  } else {
    const CurveSource source = m_source;
    drawn.PointAt = [source](double theta) { return source.PointAt(theta); };
    std::tie(drawn.From, drawn.To) = ThetaRange();
  }
  drawing.Curves.push_back(std::move(drawn));
  if (m_options.EndDots) {
    for (const EndPoint& end : curve.Ends) drawing.Dots.push_back({end.At, m_options.Color, end.Inclusive});
  }
}

// The shaded side of an explicit curve: above or below y=f(x), right or left of x=f(y),
// outside or inside r=f(theta).
void FunctionItem::Shade(const SampledCurve& curve, const ViewTransform& view, Drawing& drawing) const {
  // The shaded side reaches one view size beyond the edge, so its border never shows.
  const double width = view.XMax() - view.XMin();
  const double height = view.YMax() - view.YMin();
  for (const bool greater : {true, false}) {
    if (greater ? !m_options.ShadeGreater : !m_options.ShadeLess) continue;
    QPainterPath path;
    if (m_kind == 3) {
      QPolygonF outline;
      for (const QPolygonF& piece : curve.Pieces) outline << piece;
      if (outline.size() < 3) continue;
      path.addPolygon(outline);
      path.closeSubpath();
      if (greater) {
        path.setFillRule(Qt::OddEvenFill);
        path.addRect(QRectF(QPointF(view.XMin() - 1, view.YMin() - 1), QPointF(view.XMax() + 1, view.YMax() + 1)));
      }
    } else {
      for (const QPolygonF& piece : curve.Pieces) {
        if (piece.size() < 2) continue;
        QPolygonF region = piece;
        if (m_kind == 1) {
          const double edge = greater ? view.YMax() + height : view.YMin() - height;
          region << QPointF(piece.last().x(), edge) << QPointF(piece.first().x(), edge);
        } else {
          const double edge = greater ? view.XMax() + width : view.XMin() - width;
          region << QPointF(edge, piece.last().y()) << QPointF(edge, piece.first().y());
        }
        path.addPolygon(region);
        path.closeSubpath();
      }
    }
    drawing.Fills.push_back({path, Translucent(m_options.Color)});
  }
}

void FunctionItem::DrawImplicit(const ViewTransform& view, int quality, Drawing& drawing) const {
  ShadeImplicit(view, quality, drawing);
  std::vector<QPolygonF> lines;
  const auto trace = [&](const BlockProgram& zeroSet) {
    ImplicitTracer tracer(zeroSet, view, quality);
    if (m_source.HasCondition) tracer.SetCondition(&m_source.Condition);
    for (QPolygonF& line : tracer.Trace()) lines.push_back(std::move(line));
  };
  if (m_factors.empty()) {
    trace(m_difference);
  } else {
    for (const BlockProgram& factor : m_factors) trace(factor);
  }
  SimplifyForView(lines, view);
  Drawing::Curve drawn;
  drawn.Pieces = std::move(lines), drawn.Color = m_options.Color, drawn.Line = m_options.Line, drawn.Row = m_index;
  const BlockProgram difference = m_difference;
  drawn.Zero = [difference](double x, double y) { return difference.At(x, y); };
  drawing.Curves.push_back(std::move(drawn));
}

// The side where F > G (or F < G), cell by cell at about two pixels, as a translucent image.
void FunctionItem::ShadeImplicit(const ViewTransform& view, int quality, Drawing& drawing) const {
  if (!m_options.ShadeGreater && !m_options.ShadeLess) return;
  const int cell = std::max(2, 200 / std::clamp(quality, 1, 100));
  const int columns = (view.Width() + cell - 1) / cell;
  const int rows = (view.Height() + cell - 1) / cell;
  std::vector<double> xs, ys;
  xs.reserve(static_cast<size_t>(columns * rows));
  ys.reserve(xs.capacity());
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      xs.push_back(view.ToDataX((i + 0.5) * cell));
      ys.push_back(view.ToDataY((j + 0.5) * cell));
    }
  }
  std::vector<double> values(xs.size());
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  inputs[1] = ys.data();
  m_difference.Evaluate(inputs, xs.size(), values.data());
  QImage image(columns, rows, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  const QColor fill = Translucent(m_options.Color);
  for (int j = 0; j < rows; ++j) {
    for (int i = 0; i < columns; ++i) {
      const double v = values[static_cast<size_t>(j * columns + i)];
      if ((v > 0 && m_options.ShadeGreater) || (v < 0 && m_options.ShadeLess)) image.setPixelColor(i, j, fill);
    }
  }
  const QRectF area(QPointF(view.XMin(), view.YMax()), QPointF(view.ToDataX(columns * cell), view.ToDataY(rows * cell)));
  drawing.Masks.push_back({image, area});
}

}  // namespace plot2d
