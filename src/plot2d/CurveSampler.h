#pragma once

#include "mathlang/BlockProgram.h"
#include "ViewTransform.h"

#include <QPolygonF>

#include <cstdint>
#include <optional>
#include <vector>

namespace plot2d {

// A curve as a function of one parameter s, and the conditions that keep parts of it.
struct CurveSource {
  enum class Mode : std::uint8_t {
    YOfX,              // (s, f(s))
    XOfY,              // (f(s), s)
    Polar,             // r = f(s) at theta = s
    Parametric,        // (First(s), Second(s)); s is read as x, t and theta alike
    ParametricPolar    // r = First(s), theta = Second(s)
  };
  Mode Kind = Mode::YOfX;
  mathlang::BlockProgram First;
  mathlang::BlockProgram Second;
  bool HasCondition = false;
  mathlang::BlockProgram Condition;
  // The single comparisons of the condition: the test, its two sides, and whether its bound
  // belongs to the curve.
  struct Bound {
    mathlang::BlockProgram Test;
    mathlang::BlockProgram Left;
    mathlang::BlockProgram Right;
    bool Inclusive = false;
  };
  std::vector<Bound> Comparisons;

  // The point at s, whether or not the condition holds there.
  QPointF PointAt(double s) const;
};

// Where a condition ends a curve: the last point that belongs to it.
struct EndPoint {
  QPointF At;  // in plot coordinates
  bool Inclusive = false;
};

// The curve in plot coordinates: unbroken pieces, and the ends that the conditions made.
struct SampledCurve {
  std::vector<QPolygonF> Pieces;
  std::vector<EndPoint> Ends;
};

// Adaptive sampling in screen space. Starts from an even spread of the parameter, then refines,
// one batch of midpoints per round, where the curve bends more than a fraction of a pixel; bisects
// to the edge wherever the curve stops being defined or its condition stops holding, so that it
// ends exactly there; and breaks the line where a jump stays after the parameter interval has
// shrunk to nothing (the poles of tan(x), the steps of fix(x)).
class CurveSampler {
public:
  CurveSampler(const CurveSource& source, const ViewTransform& view, int quality);

  SampledCurve Sample(double from, double to, int initialSamples) const;

  // The number of even samples that the view calls for at this quality.
  static int SamplesFor(double pixels, int quality);

private:
  struct Point {
    double S = 0;
    double X = 0, Y = 0;      // plot coordinates
    double Px = 0, Py = 0;    // pixels
    double T = 0, Theta = 0, R = 0;
    bool Defined = false;     // the function has a finite value
    bool Allowed = true;      // the condition holds
    bool Valid() const { return Defined && Allowed; }
  };

  // Lists an evaluation fills on the way, kept from one round of refinement to the next.
  struct Scratch {
    std::vector<double> First, Second, X, Y, T, Theta, R, Allowed;
  };
  void Evaluate(const std::vector<double>& parameters, std::vector<Point>& points, Scratch& scratch) const;
  bool OffScreenTogether(const Point& a, const Point& b) const;
  // The bound that a comparison of the condition makes between a point inside and one outside,
  // if one does: whether it is inclusive.
  std::optional<bool> BoundBetween(const Point& inside, const Point& outside) const;
  SampledCurve Assemble(const std::vector<Point>& points, const std::vector<std::uint8_t>& broken) const;

  const CurveSource& m_source;
  const ViewTransform& m_view;
  double m_tolerance;   // how far, in pixels, the polyline may stray from the curve
  double m_shortest;    // pieces shorter than this, in pixels, are not looked into
  double m_longest;     // pieces longer than this are split however straight they look
};

}  // namespace plot2d
