#include "Quadrature.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <queue>

namespace mathlang {

namespace {

// Nodes and weights of the 15-point Kronrod rule and the embedded 7-point Gauss rule.
constexpr std::array<double, 8> kNodes = {0.991455371120812639, 0.949107912342758525, 0.864864423359769073,
                                          0.741531185599394440, 0.586087235467691130, 0.405845151377397167,
                                          0.207784955007898468, 0.0};
constexpr std::array<double, 8> kKronrod = {0.022935322010529225, 0.063092092629978553, 0.104790010322250184,
                                            0.140653259715525919, 0.169004726639267903, 0.190350578064785410,
                                            0.204432940075298892, 0.209482141084727828};
constexpr std::array<double, 4> kGauss = {0.129484966168869693, 0.279705391489276668, 0.381830050505118945,
                                          0.417959183673469388};

struct Piece {
  double A, B;
  double Value[3];  // total, above, below
  double Error;
  bool operator<(const Piece& other) const { return Error < other.Error; }
};

Piece Rule(const BlockProgram& f, double a, double b, bool& defined) {
  const double centre = (a + b) / 2;
  const double half = (b - a) / 2;
  std::array<double, 15> xs;
  for (int i = 0; i < 7; ++i) {
    xs[static_cast<size_t>(i)] = centre - half * kNodes[static_cast<size_t>(i)];
    xs[static_cast<size_t>(14 - i)] = centre + half * kNodes[static_cast<size_t>(i)];
  }
  xs[7] = centre;
  std::array<double, 15> ys;
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  f.Evaluate(inputs, 15, ys.data());
  Piece piece{a, b, {0, 0, 0}, 0};
  double gauss[3] = {0, 0, 0};
  for (size_t i = 0; i < 15; ++i) {
    if (std::isnan(ys[i])) defined = false;
    const size_t k = i < 8 ? i : 14 - i;
    const double w = kKronrod[k] * half;
    piece.Value[0] += w * ys[i];
    piece.Value[1] += w * std::max(ys[i], 0.0);
    piece.Value[2] += w * std::min(ys[i], 0.0);
    if (k % 2 == 1) {  // the Gauss nodes, the centre last
      const double g = kGauss[k / 2] * half;
      gauss[0] += g * ys[i];
      gauss[1] += g * std::max(ys[i], 0.0);
      gauss[2] += g * std::min(ys[i], 0.0);
    }
  }
  // The parts above and below have kinks at the roots; their errors count too.
  piece.Error = std::abs(piece.Value[0] - gauss[0]) + std::abs(piece.Value[1] - gauss[1]) +
                std::abs(piece.Value[2] - gauss[2]);
  return piece;
}

}  // namespace

IntegralValue Integrate(const BlockProgram& f, double a, double b, double relativeError) {
  IntegralValue result;
  if (!std::isfinite(a) || !std::isfinite(b)) return {0, 0, 0, false};
  if (a == b) return result;
  const double sign = b < a ? -1 : 1;
  if (b < a) std::swap(a, b);
  bool defined = true;
  std::priority_queue<Piece> pieces;
  double error = 0;
  double magnitude = 0;
  const auto add = [&](const Piece& p) {
    pieces.push(p);
    error += p.Error;
    magnitude += p.Value[1] - p.Value[2];
  };
  add(Rule(f, a, b, defined));
  // Split the worst piece until the summed error estimate is small enough.
  for (int splits = 0; splits < 4000 && defined; ++splits) {
    if (error <= relativeError * std::max(magnitude, 1e-300)) break;
    const Piece worst = pieces.top();
    pieces.pop();
    error -= worst.Error;
    magnitude -= worst.Value[1] - worst.Value[2];
    const double middle = (worst.A + worst.B) / 2;
    add(Rule(f, worst.A, middle, defined));
    add(Rule(f, middle, worst.B, defined));
  }
  while (!pieces.empty()) {
    const Piece& p = pieces.top();
    result.Total += p.Value[0];
    result.Above += p.Value[1];
    result.Below += p.Value[2];
    pieces.pop();
  }
  result.Defined = defined && std::isfinite(result.Total);
  result.Total *= sign;
  result.Above *= sign;
  result.Below *= sign;
  return result;
}

}  // namespace mathlang
