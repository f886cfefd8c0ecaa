#pragma once

#include "CurveSampler.h"
#include "Drawing.h"
#include "mathlang/LineParser.h"
#include "ViewTransform.h"

#include <QColor>
#include <QString>

namespace plot2d {

// A curve added from a function line: y=f(x) (kind 1), x=f(y) (2), r=f(theta) (3) or an implicit
// equation (4), with its conditions, shading, end dots and line style.
class FunctionItem {
public:
  struct Options {
    QColor Color;
    bool ShadeGreater = false;  // the side where the left side is greater
    bool ShadeLess = false;     // the other side
    bool EndDots = false;
    Drawing::Style Line = Drawing::Style::Solid;
  };

  FunctionItem(int index, const QString& line, const Options& options);

  int Index() const { return m_index; }
  // 1 to 4 as classified; 0 for a line that cannot be drawn.
  int Kind() const { return m_kind; }
  // Why the line draws nothing; empty when it draws.
  QString Problem() const { return m_line.Error; }

  void Draw(const ViewTransform& view, int quality, Drawing& drawing) const;

private:
  void Classify();
  void DrawCurve(const ViewTransform& view, int quality, Drawing& drawing) const;
  void DrawImplicit(const ViewTransform& view, int quality, Drawing& drawing) const;
  void Shade(const SampledCurve& curve, const ViewTransform& view, Drawing& drawing) const;
  void ShadeImplicit(const ViewTransform& view, int quality, Drawing& drawing) const;
  std::pair<double, double> ThetaRange() const;

  int m_index;
  Options m_options;
  mathlang::ParsedLine m_line;
  int m_kind = 0;
  CurveSource m_source;
  mathlang::BlockProgram m_difference;  // F - G of an implicit curve
  // For F1*F2*...*Fn = 0, the factors, each traced on its own: a product is zero where one of
  // its factors is, even where another one is undefined (the pieces of a "Batman" equation).
  std::vector<mathlang::BlockProgram> m_factors;
};

}  // namespace plot2d
