#include "ExactValues.h"

#include <array>
#include <cmath>
#include <numeric>

namespace trigon {

namespace {

// Within this of a whole degree an angle counts as that degree: typed radians such as "pi/6"
// come back a few bits away from 30.
constexpr double kWhole = 1e-9;

struct Reference {
  int Degrees;
  const char16_t* Sin;
  const char16_t* Tan;
};

// The first quadrant: cos is sin of the complementary angle, so it is not written twice.
constexpr std::array<Reference, 5> kFirstQuadrant{{
    {0, u"0", u"0"},
    {30, u"1/2", u"1/\u221A3"},
    {45, u"\u221A2/2", u"1"},
    {60, u"\u221A3/2", u"\u221A3"},
    {90, u"1", u"undefined"},
}};

const Reference* ReferenceOf(int degrees) {
  for (const Reference& r : kFirstQuadrant) {
    if (r.Degrees == degrees) return &r;
  }
  return nullptr;
}

QString Signed(const char16_t* text, bool negative) {
  const QString value = QString::fromUtf16(text);
  if (value == u"0" || value == u"undefined" || !negative) return value;
  return u'-' + value;
}

}  // namespace

double WrapDegrees(double degrees) {
  if (!std::isfinite(degrees)) return 0;
  double wrapped = std::fmod(degrees, 360.0);
  if (wrapped < 0) wrapped += 360;
  const double whole = std::round(wrapped);
  if (std::abs(wrapped - whole) < kWhole) wrapped = whole;
  return wrapped >= 360 ? wrapped - 360 : wrapped;
}

std::optional<TrigTexts> ExactValues(double degrees) {
  const double wrapped = WrapDegrees(degrees);
  if (wrapped != std::round(wrapped)) return std::nullopt;
  const int angle = static_cast<int>(wrapped);
  if (angle % 30 != 0 && angle % 45 != 0) return std::nullopt;
  // The reference angle in the first quadrant, and the signs of the quadrant.
  const int quadrant = angle / 90;
  const int inside = angle % 90;
  const int reference = quadrant % 2 == 0 ? inside : 90 - inside;
  const Reference* sinRef = ReferenceOf(reference);
  const Reference* cosRef = ReferenceOf(90 - reference);
  const bool sinNegative = angle > 180;
  const bool cosNegative = angle > 90 && angle < 270;
  return TrigTexts{Signed(sinRef->Sin, sinNegative), Signed(cosRef->Sin, cosNegative),
                   Signed(sinRef->Tan, sinNegative != cosNegative)};
}

QString DecimalText(double value) {
  if (!std::isfinite(value)) return QStringLiteral("undefined");
  QString text = QString::number(value, 'f', 6);
  if (text == u"-0.000000") text = QStringLiteral("0.000000");
  return text;
}

QString RadianText(double degrees) {
  const double whole = std::round(degrees);
  if (std::abs(degrees - whole) >= kWhole || std::abs(whole) > 1e9) {
    return DecimalText(degrees * std::acos(-1.0) / 180);
  }
  const long long n = static_cast<long long>(whole);
  if (n == 0) return QStringLiteral("0");
  const long long d = std::gcd(n < 0 ? -n : n, 180LL);
  const long long top = n / d, bottom = 180 / d;
  QString text = top == 1 ? QString() : top == -1 ? QStringLiteral("-") : QString::number(top);
  text += QChar(0x03C0);
  if (bottom != 1) text += u'/' + QString::number(bottom);
  return text;
}

}  // namespace trigon
