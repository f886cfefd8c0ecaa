#include "CurveAnalysis.h"

#include "core/NumberText.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace probe {

namespace {

constexpr int kSamples = 4000;
constexpr std::size_t kMostOfAKind = 40;  // a curve such as sin(1/x) has no end of them

bool Defined(double y) { return std::isfinite(y); }

double Round12(double v) {
  if (!std::isfinite(v) || v == 0) return v;
  return QString::number(v, 'g', 12).toDouble();
}

// The last point from a (where inside holds) towards b (where it does not).
double BisectEdge(double a, double b, const std::function<bool(double)>& inside) {
  for (int i = 0; i < 200; ++i) {
    const double mid = a + (b - a) / 2;
    if (mid == a || mid == b) break;
    (inside(mid) ? a : b) = mid;
  }
  return a;
}

// Where g changes sign between a and b (g(a) and g(b) of opposite signs): of the last two
// points, the one where |g| is smaller.
double BisectSign(const CurveFunction& g, double a, double b) {
  double ga = g.At(a);
  double gb = g.At(b);
  for (int i = 0; i < 200; ++i) {
    const double mid = a + (b - a) / 2;
    if (mid == a || mid == b) break;
    const double gm = g.At(mid);
    if (gm == 0) return mid;
    if (!Defined(gm)) break;
    if ((gm < 0) == (ga < 0)) {
      a = mid;
      ga = gm;
    } else {
      b = mid;
      gb = gm;
    }
  }
  return std::abs(ga) <= std::abs(gb) ? a : b;
}

// The place of the largest |g| between a and b, an undefined value counting as the largest.
double TernaryPeak(const CurveFunction& g, double a, double b) {
  const auto size = [&](double x) {
    const double v = g.At(x);
    return Defined(v) ? std::abs(v) : HUGE_VAL;
  };
  for (int i = 0; i < 200 && b - a > 0; ++i) {
    const double m1 = a + (b - a) / 3;
    const double m2 = b - (b - a) / 3;
    if (m1 <= a || m2 >= b) break;
    (size(m1) < size(m2) ? a : b) = size(m1) < size(m2) ? m1 : m2;
  }
  return a + (b - a) / 2;
}

bool Near(double a, double b) { return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a)); }

}  // namespace

bool ProbeItem::IsPoint() const {
  return What == Kind::Root || What == Kind::Maximum || What == Kind::Minimum || What == Kind::Inflection ||
         What == Kind::YIntercept;
}

// A value within a few last digits of a 12-digit one is taken as that one: 0.9999999999999999
// is 1, while √3 keeps its 15 digits.
double CurveAnalysis::Tidy(double value) {
  const double round = Round12(value);
  return std::abs(round - value) <= 1e-13 * std::max(1.0, std::abs(value)) ? round : value;
}

QString CurveAnalysis::Show(double value) { return core::FormatNumber(Tidy(value)); }

// A point found by bisection next to 0 is 0, not the smallest number the bisection reached.
double CurveAnalysis::Snap(double x) const { return std::abs(x) < 1e-12 * (m_to - m_from) ? 0.0 : x; }

CurveAnalysis::CurveAnalysis(const CurveFunction& f, std::optional<CurveFunction> derivative,
                             std::optional<CurveFunction> second, double from, double to)
    : m_f(f), m_derivative(std::move(derivative)), m_second(std::move(second)), m_from(from), m_to(to) {
  Sample();
  FindGaps();
  FindPoles();
  FindRoots();
  if (m_derivative) FindTurns(*m_derivative, false);
  if (m_second) FindTurns(*m_second, true);
  FindYIntercept();
  FindHorizontalAsymptotes();
  FindIntervals();
  Sort();
}

void CurveAnalysis::Sample() {
  m_xs.resize(kSamples + 1);
  m_ys.resize(kSamples + 1);
  for (int i = 0; i <= kSamples; ++i) {
    m_xs[i] = m_from + (m_to - m_from) * i / kSamples;
    m_ys[i] = m_f.At(m_xs[i]);
  }
}

void CurveAnalysis::Add(ProbeItem item) {
  const auto count = std::count_if(m_items.begin(), m_items.end(), [&](const ProbeItem& i) { return i.What == item.What; });
  if (static_cast<std::size_t>(count) >= kMostOfAKind) return;
  for (const ProbeItem& other : m_items) {
    if (other.What == item.What && other.Text == item.Text) return;
  }
  m_items.push_back(std::move(item));
}

void CurveAnalysis::FindGaps() {
  const auto defined = [this](double x) { return Defined(m_f.At(x)); };
  for (int i = 0; i <= kSamples; ++i) {
    if (Defined(m_ys[i])) continue;
    int j = i;
    while (j < kSamples && !Defined(m_ys[j + 1])) ++j;
    const double left = i == 0 ? m_from : Snap(BisectEdge(m_xs[i - 1], m_xs[i], defined));
    const double right = j == kSamples ? m_to : Snap(BisectEdge(m_xs[j + 1], m_xs[j], defined));
    m_gaps.emplace_back(left, right);
    ProbeItem item{ProbeItem::Kind::Gap};
    item.From = left;
    item.To = right;
    const QString leftSign = defined(Show(left).toDouble()) ? QStringLiteral(" < ") : QStringLiteral(" ≤ ");
    const QString rightSign = defined(Show(right).toDouble()) ? QStringLiteral(" < ") : QStringLiteral(" ≤ ");
    if (i == 0 && j == kSamples) {
      item.Text = QStringLiteral("Not defined anywhere from %1 to %2").arg(Show(m_from), Show(m_to));
    } else if (i == 0) {
      item.Text = QStringLiteral("Not defined: x") + rightSign + Show(right);
    } else if (j == kSamples) {
      item.Text = QStringLiteral("Not defined: x") + (leftSign == u" < " ? QStringLiteral(" > ") : QStringLiteral(" ≥ ")) + Show(left);
    } else if (Show(left) == Show(right)) {
      item.X = (left + right) / 2;
      item.Text = QStringLiteral("Not defined at x = ") + Show(item.X);
    } else {
      item.Text = QStringLiteral("Not defined: ") + Show(left) + leftSign + QStringLiteral("x") + rightSign + Show(right);
    }
    Add(item);
    i = j;
  }
}

// |f| grows without bound towards c from one side: larger at each of three steps closer, at
// least twice as large at the last, and not small. ln(x) at 0 passes; sqrt(x) at 0 does not.
bool CurveAnalysis::GrowsWithoutBound(double c, double side) const {
  const double scale = std::max(1.0, std::abs(c));
  double last = 0;
  double first = 0;
  for (const double d : {1e-4, 1e-7, 1e-10}) {
    const double v = std::abs(m_f.At(c + side * d * scale));
    if (!Defined(v) || v <= last) return false;
    if (first == 0) first = v;
    last = v;
  }
  return last >= 2 * first && last > 10;
}

void CurveAnalysis::AddPole(double c) {
  for (double pole : m_poles) {
    if (Near(pole, c) || Show(pole) == Show(c)) return;
  }
  m_poles.push_back(c);
  ProbeItem item{ProbeItem::Kind::VerticalAsymptote};
  item.X = c;
  item.Text = QStringLiteral("Vertical asymptote: x = ") + Show(c);
  Add(item);
}

void CurveAnalysis::FindPoles() {
  for (const auto& [left, right] : m_gaps) {
    if (left > m_from && GrowsWithoutBound(left, -1)) AddPole(left);
    if (right < m_to && GrowsWithoutBound(right, 1)) AddPole(right);
  }
  // Between samples: where |f| peaks, a pole the samples stepped over.
  for (int i = 1; i < kSamples; ++i) {
    const double a = std::abs(m_ys[i - 1]), b = std::abs(m_ys[i]), c = std::abs(m_ys[i + 1]);
    if (!Defined(a) || !Defined(b) || !Defined(c) || b < a || b < c) continue;
    const double peak = Snap(TernaryPeak(m_f, m_xs[i - 1], m_xs[i + 1]));
    if (GrowsWithoutBound(peak, -1) && GrowsWithoutBound(peak, 1)) AddPole(peak);
  }
}

bool CurveAnalysis::NearPole(double x) const {
  const double reach = (m_to - m_from) / kSamples;
  return std::any_of(m_poles.begin(), m_poles.end(), [&](double pole) { return std::abs(pole - x) < reach; });
}

void CurveAnalysis::FindRoots() {
  const auto addRoot = [this](double x) {
    ProbeItem item{ProbeItem::Kind::Root};
    item.X = Snap(x);
    item.Y = 0;
    item.Text = QStringLiteral("Root: x = ") + Show(item.X);
    Add(item);
  };
  for (int i = 0; i <= kSamples; ++i) {
    if (m_ys[i] == 0) {
      addRoot(m_xs[i]);
      continue;
    }
    if (i == kSamples || !Defined(m_ys[i]) || !Defined(m_ys[i + 1]) || m_ys[i + 1] == 0) continue;
    if ((m_ys[i] < 0) == (m_ys[i + 1] < 0)) continue;
    const double c = BisectSign(m_f, m_xs[i], m_xs[i + 1]);
    // A jump or a pole changes the sign too, but the value there is not near 0.
    if (std::abs(m_f.At(c)) < 1e-6 && !NearPole(c)) addRoot(c);
  }
  // Where the curve starts or ends on the x axis at the edge of a gap, as sqrt(x) does.
  for (const auto& [left, right] : m_gaps) {
    for (const double edge : {left, right}) {
      if (edge > m_from && edge < m_to && std::abs(m_f.At(edge)) < 1e-12) addRoot(edge);
    }
  }
}

// Where g (the first or second derivative) changes sign with f defined: an extremum or an
// inflection point. An exact zero of g on a sample is taken as it is.
void CurveAnalysis::FindTurns(const CurveFunction& g, bool second) {
  int lastSign = 0;
  double lastX = 0;
  std::optional<double> zeroAt;
  for (int i = 0; i <= kSamples; ++i) {
    const double v = g.At(m_xs[i]);
    if (!Defined(v) || !Defined(m_ys[i])) {
      lastSign = 0;
      zeroAt.reset();
      continue;
    }
    const int sign = v > 0 ? 1 : (v < 0 ? -1 : 0);
    if (sign == 0) {
      if (!zeroAt) zeroAt = m_xs[i];
      continue;
    }
    if (lastSign != 0 && sign != lastSign) {
      const double c = zeroAt ? *zeroAt : BisectSign(g, lastX, m_xs[i]);
      const double y = m_f.At(c);
      if (Defined(y) && !NearPole(c)) {
        ProbeItem item{second ? ProbeItem::Kind::Inflection : (lastSign > 0 ? ProbeItem::Kind::Maximum : ProbeItem::Kind::Minimum)};
        item.X = c;
        item.Y = y;
        const QString name = second ? QStringLiteral("Inflection point") : (lastSign > 0 ? QStringLiteral("Maximum") : QStringLiteral("Minimum"));
        item.Text = QStringLiteral("%1: (%2, %3)").arg(name, Show(c), Show(y));
        if (!second) m_extrema.push_back(c);
        Add(item);
        if (!second && std::abs(y) < 1e-12) {
          ProbeItem root{ProbeItem::Kind::Root};
          root.X = c;
          root.Text = QStringLiteral("Root: x = ") + Show(c);
          Add(root);
        }
      }
    }
    lastSign = sign;
    lastX = m_xs[i];
    zeroAt.reset();
  }
}

void CurveAnalysis::FindYIntercept() {
  if (m_from > 0 || m_to < 0) return;
  const double y = m_f.At(0);
  if (!Defined(y)) return;
  ProbeItem item{ProbeItem::Kind::YIntercept};
  item.X = 0;
  item.Y = y;
  item.Text = QStringLiteral("y-intercept: (0, %1)").arg(Show(y));
  Add(item);
}

// The limit far out on one side: values at 1E4 to 1E10 that settle to within a millionth.
void CurveAnalysis::FindHorizontalAsymptotes() {
  std::optional<double> limits[2];
  for (int side = 0; side < 2; ++side) {
    const double sign = side == 0 ? -1 : 1;
    double v[4];
    bool finite = true;
    for (int k = 0; k < 4; ++k) {
      v[k] = m_f.At(sign * std::pow(10.0, 4 + 2 * k));
      finite = finite && Defined(v[k]);
    }
    if (!finite) continue;
    const double size = 1 + std::abs(v[3]);
    if (std::abs(v[3] - v[2]) <= 1e-6 * size && std::abs(v[2] - v[1]) <= 1e-4 * size) {
      // A curve nearing its limit as 1/x does is a hundredth as far at each step: the rest of
      // the way is a ninety-ninth of the last step.
      const double limit = v[3] - (v[2] - v[3]) / 99;
      limits[side] = std::round(limit * 1e9) / 1e9 + 0.0;
    }
  }
  const auto add = [this](double y, const QString& where) {
    ProbeItem item{ProbeItem::Kind::HorizontalAsymptote};
    item.Y = y;
    item.Text = QStringLiteral("Horizontal asymptote: y = %1 (as x → %2)").arg(Show(y), where);
    Add(item);
  };
  if (limits[0] && limits[1] && *limits[0] == *limits[1]) {
    add(*limits[0], QStringLiteral("±∞"));
    return;
  }
  if (limits[0]) add(*limits[0], QStringLiteral("−∞"));
  if (limits[1]) add(*limits[1], QStringLiteral("+∞"));
}

// Between neighbouring extrema, poles and gaps the sign of f' is one; its middle tells it.
void CurveAnalysis::FindIntervals() {
  if (!m_derivative) return;
  std::vector<double> cuts{m_from, m_to};
  cuts.insert(cuts.end(), m_extrema.begin(), m_extrema.end());
  cuts.insert(cuts.end(), m_poles.begin(), m_poles.end());
  for (const auto& [left, right] : m_gaps) cuts.insert(cuts.end(), {left, right});
  std::sort(cuts.begin(), cuts.end());
  for (std::size_t k = 0; k + 1 < cuts.size(); ++k) {
    const double l = cuts[k], r = cuts[k + 1];
    if (r - l <= 1e-9 * (m_to - m_from)) continue;
    const double mid = l + (r - l) / 2;
    const double slope = m_derivative->At(mid);
    if (!Defined(m_f.At(mid)) || !Defined(slope) || slope == 0) continue;
    ProbeItem item{slope > 0 ? ProbeItem::Kind::Rising : ProbeItem::Kind::Falling};
    item.From = l;
    item.To = r;
    item.Text = QStringLiteral("%1: %2 < x < %3").arg(slope > 0 ? QStringLiteral("Rises") : QStringLiteral("Falls"), Show(l), Show(r));
    Add(item);
  }
}

namespace {

QString PointText(ProbeItem::Kind kind, QPointF at) {
  switch (kind) {
    case ProbeItem::Kind::Root: return QStringLiteral("Root: x = ") + CurveAnalysis::Show(at.x());
    case ProbeItem::Kind::Maximum: return QStringLiteral("Maximum: (%1, %2)").arg(CurveAnalysis::Show(at.x()), CurveAnalysis::Show(at.y()));
    case ProbeItem::Kind::Minimum: return QStringLiteral("Minimum: (%1, %2)").arg(CurveAnalysis::Show(at.x()), CurveAnalysis::Show(at.y()));
    default: return QStringLiteral("y-intercept: (0, %1)").arg(CurveAnalysis::Show(at.y()));
  }
}

}  // namespace

void CurveAnalysis::MergeNotablePoints(std::vector<ProbeItem>& items, const std::vector<std::pair<ProbeItem::Kind, QPointF>>& points) {
  for (const auto& [kind, at] : points) {
    const bool known = std::any_of(items.begin(), items.end(), [&](const ProbeItem& item) {
      return item.What == kind && std::abs(item.X - at.x()) <= 1e-9 * std::max(1.0, std::abs(at.x()));
    });
    if (known) continue;
    ProbeItem item{kind};
    item.X = at.x();
    item.Y = kind == ProbeItem::Kind::Root ? 0.0 : at.y();
    item.Text = PointText(kind, at);
    items.push_back(item);
  }
  SortItems(items);
}

void CurveAnalysis::Sort() { SortItems(m_items); }

// Points by kind, then from left to right; the lines and stretches after them.
void CurveAnalysis::SortItems(std::vector<ProbeItem>& items) {
  std::stable_sort(items.begin(), items.end(), [](const ProbeItem& a, const ProbeItem& b) {
    // Rising and falling stretches go together, from left to right.
    const auto rank = [](ProbeItem::Kind k) { return k == ProbeItem::Kind::Falling ? static_cast<int>(ProbeItem::Kind::Rising) : static_cast<int>(k); };
    if (rank(a.What) != rank(b.What)) return rank(a.What) < rank(b.What);
    const double ka = a.IsPoint() || a.What == ProbeItem::Kind::VerticalAsymptote ? a.X : a.From;
    const double kb = b.IsPoint() || b.What == ProbeItem::Kind::VerticalAsymptote ? b.X : b.From;
    return ka < kb;
  });
}

std::vector<TableRow> CurveAnalysis::Table(double step) const {
  std::vector<TableRow> rows;
  if (!(step > 0) || !std::isfinite(step)) return rows;
  for (int k = 0; k < kMaxRows; ++k) {
    const double x = Tidy(m_from + k * step);
    if (x > m_to + 1e-9 * step) break;
    const double y = m_f.At(x);
    rows.push_back({x, Defined(y) ? std::optional<double>(y) : std::nullopt});
  }
  return rows;
}

QString CurveAnalysis::TableText(const std::vector<TableRow>& rows) {
  QString text = QStringLiteral("x\tf(x)\n");
  for (const TableRow& row : rows) {
    text += core::FormatNumber(row.X) + u'\t' + (row.Y ? core::FormatNumber(*row.Y) : QStringLiteral("undefined")) + u'\n';
  }
  return text;
}

}  // namespace probe
