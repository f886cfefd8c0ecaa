#pragma once

#include "CurveFunction.h"

#include <QPointF>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace probe {

// One finding about the curve: a point (X, Y), a line (an asymptote) or a stretch of x (From, To).
struct ProbeItem {
  enum class Kind { Gap, Root, Maximum, Minimum, Inflection, YIntercept, VerticalAsymptote, HorizontalAsymptote, Rising, Falling };
  Kind What = Kind::Root;
  double X = 0, Y = 0;      // a point; X of a vertical asymptote; Y of a horizontal one
  double From = 0, To = 0;  // a gap or an interval
  QString Text = {};        // "Root: x = 1.73205080756888", "Rises: -10 < x < -1"

  bool IsPoint() const;
};

struct TableRow {
  double X = 0;
  std::optional<double> Y;  // nothing where f is not defined
};

// What the probe finds about f over [from, to]: the stretches where it is not defined, its roots,
// extrema (where the symbolic derivative changes sign), inflection points (where the second
// derivative does), the y-intercept, vertical asymptotes (where |f| grows without bound next to a
// point), horizontal asymptotes (the limits far out on either side) and where it rises and falls.
// The points are made exact by bisection to the last digit a double keeps.
class CurveAnalysis {
public:
  // derivative and second: the symbolic derivatives' texts, if there are any.
  CurveAnalysis(const CurveFunction& f, std::optional<CurveFunction> derivative,
                std::optional<CurveFunction> second, double from, double to);

  const std::vector<ProbeItem>& Items() const { return m_items; }

  // x from "from" by step while within "to" (at most kMaxRows rows), each x tidied so that
  // 0.1 steps read 0.3 and not 0.30000000000000004.
  static constexpr int kMaxRows = 10001;
  std::vector<TableRow> Table(double step) const;
  // The table as tab-separated text with a header line, for the clipboard.
  static QString TableText(const std::vector<TableRow>& rows);

  // Adds the plot's exact special points (roots, extrema, the y-intercept) that the analysis
  // did not find, such as a root the curve only touches where f has no derivative; keeps the
  // order of the findings.
  static void MergeNotablePoints(std::vector<ProbeItem>& items, const std::vector<std::pair<ProbeItem::Kind, QPointF>>& points);

  // A number as the probe shows it: within a few last digits of a 12-digit one, that one
  // (0.9999999999999999 is 1, while √3 keeps its 15 digits), then the program's format.
  static QString Show(double value);
  static double Tidy(double value);

private:
  void Sample();
  void FindGaps();
  void FindPoles();
  void FindRoots();
  void FindTurns(const CurveFunction& g, bool second);
  void FindYIntercept();
  void FindHorizontalAsymptotes();
  void FindIntervals();
  bool NearPole(double x) const;
  double Snap(double x) const;
  bool GrowsWithoutBound(double c, double side) const;
  void AddPole(double c);
  void Add(ProbeItem item);
  void Sort();
  static void SortItems(std::vector<ProbeItem>& items);

  const CurveFunction& m_f;
  std::optional<CurveFunction> m_derivative;
  std::optional<CurveFunction> m_second;
  double m_from, m_to;
  std::vector<double> m_xs, m_ys;
  std::vector<ProbeItem> m_items;
  std::vector<double> m_poles;
  std::vector<double> m_extrema;
  std::vector<std::pair<double, double>> m_gaps;
};

}  // namespace probe
