#pragma once

#include <cmath>

namespace plot3d {

// A point or direction in the plot's space.
struct Vec3 {
  double X = 0, Y = 0, Z = 0;

  friend Vec3 operator+(Vec3 a, Vec3 b) { return {a.X + b.X, a.Y + b.Y, a.Z + b.Z}; }
  friend Vec3 operator-(Vec3 a, Vec3 b) { return {a.X - b.X, a.Y - b.Y, a.Z - b.Z}; }
  friend Vec3 operator*(double s, Vec3 a) { return {s * a.X, s * a.Y, s * a.Z}; }
  Vec3& operator+=(Vec3 b) { return X += b.X, Y += b.Y, Z += b.Z, *this; }
  friend bool operator==(Vec3 a, Vec3 b) = default;
};

inline double Dot(Vec3 a, Vec3 b) { return a.X * b.X + a.Y * b.Y + a.Z * b.Z; }
inline Vec3 Cross(Vec3 a, Vec3 b) { return {a.Y * b.Z - a.Z * b.Y, a.Z * b.X - a.X * b.Z, a.X * b.Y - a.Y * b.X}; }
inline double Length(Vec3 a) { return std::sqrt(Dot(a, a)); }
inline Vec3 Normalized(Vec3 a) {
  const double length = Length(a);
  return length > 0 ? (1 / length) * a : Vec3{0, 0, 1};
}
inline Vec3 Lerp(Vec3 a, Vec3 b, double t) { return a + t * (b - a); }
inline bool Finite(Vec3 a) { return std::isfinite(a.X) && std::isfinite(a.Y) && std::isfinite(a.Z); }

}  // namespace plot3d
