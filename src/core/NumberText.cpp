#include "NumberText.h"

#include "RuntimeError.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>

namespace core {

namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

// Length of the longest number at position from: a sign, digits with at most one ".", at least
// one digit, then an optional exponent that counts only when it has digits.
qsizetype ScanNumber(const QString& text, qsizetype from) {
  qsizetype i = from;
  const qsizetype n = text.size();
  if (i < n && (text[i] == u'+' || text[i] == u'-')) ++i;
  qsizetype digits = 0;
  while (i < n && IsDigit(text[i])) ++i, ++digits;
  if (i < n && text[i] == u'.') {
    ++i;
    while (i < n && IsDigit(text[i])) ++i, ++digits;
  }
  if (digits == 0) return 0;
  if (i < n && (text[i] == u'e' || text[i] == u'E')) {
    qsizetype j = i + 1;
    if (j < n && (text[j] == u'+' || text[j] == u'-')) ++j;
    const qsizetype expStart = j;
    while (j < n && IsDigit(text[j])) ++j;
    if (j > expStart) i = j;
  }
  return i - from;
}

// Converts a scanned number; ok is false when it lies beyond the double range. strtod_l with the
// "C" locale keeps "." the decimal point whatever locale the process runs in.
double Convert(const QString& number, bool& ok) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", locale_t{});
  const QByteArray bytes = number.toLatin1();
  const double value = strtod_l(bytes.constData(), nullptr, cLocale);
  ok = std::isfinite(value);
  return value;
}

}  // namespace

QString FormatNumber(double value) {
  if (value == 0) return QStringLiteral("0");
  if (std::isnan(value)) return QStringLiteral("NAN");
  if (std::isinf(value)) return value > 0 ? QStringLiteral("INF") : QStringLiteral("-INF");
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::general, 15);
  QString text = QString::fromLatin1(buffer.data(), result.ptr - buffer.data());
  return text.replace(u'e', u'E');
}

QString Str(double value) {
  const QString text = FormatNumber(value);
  return text.startsWith(u'-') ? text : u' ' + text;
}

double NumericPrefix(const QString& text) {
  qsizetype from = 0;
  while (from < text.size() && IsBlank(text[from])) ++from;
  const qsizetype length = ScanNumber(text, from);
  if (length == 0) return 0;
  QString number = text.mid(from, length);
  bool ok = false;
  double value = Convert(number, ok);
  if (ok) return value;
  // Beyond the double range: the longest prefix that still reads as a number is the mantissa
  // alone, and failing that its first 308 integer digits.
  const qsizetype e = number.indexOf(u'e', 0, Qt::CaseInsensitive);
  if (e > 0) {
    value = Convert(number.left(e), ok);
    if (ok) return value;
    number = number.left(e);
  }
  const qsizetype sign = (number.startsWith(u'-') || number.startsWith(u'+')) ? 1 : 0;
  value = Convert(number.left(sign + 308), ok);
  return ok ? value : 0;
}

double StrictToDouble(const QString& text) {
  const QString trimmed = text.trimmed();
  const qsizetype length = ScanNumber(trimmed, 0);
  if (length == 0 || length != trimmed.size()) throw RuntimeError::Of(RuntimeError::TypeMismatch);
  bool ok = false;
  const double value = Convert(trimmed, ok);
  if (!ok) throw RuntimeError::Of(RuntimeError::Overflow);
  return value;
}

bool StrictToBoolean(const QString& text) {
  const QString trimmed = text.trimmed();
  if (trimmed.compare(QStringLiteral("true"), Qt::CaseInsensitive) == 0) return true;
  if (trimmed.compare(QStringLiteral("false"), Qt::CaseInsensitive) == 0) return false;
  return StrictToDouble(trimmed) != 0;
}

QString BooleanText(bool value) { return value ? QStringLiteral("True") : QStringLiteral("False"); }

namespace {

template <typename Int>
Int RoundTo(double value) {
  const double rounded = std::nearbyint(value);  // the default rounding mode: halves to even
  if (!std::isfinite(rounded) || rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
      rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
    throw RuntimeError::Of(RuntimeError::Overflow);
  }
  return static_cast<Int>(rounded);
}

}  // namespace

std::int16_t RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }

std::int32_t RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }

double MaxValue(double a, double b) { return a > b ? a : b; }

}  // namespace core
