#pragma once

#include <QString>

#include <cstdint>

// Numbers to text and back, the way every number the program writes or reads is converted.
// Independent of the process locale: "." is always the decimal point.
namespace core {

// At most 15 significant digits, trailing zeros dropped, an exponent below -4 or from 15 on:
// C's "%.15G" ("6.28318530717958", "1E+15", "1.2345E-05"). Negative zero is "0".
QString FormatNumber(double value);

// A number formatted for display: FormatNumber with one leading blank for values that are not
// negative (" 18", "-1").
QString Str(double value);

// The numeric-prefix rule: leading blanks are skipped and the longest prefix that reads as a
// number is taken ("12abc" is 12, "  -1.5e3x" is -1500); text that starts with no number gives 0.
// Never fails.
double NumericPrefix(const QString& text);

// Strict conversion: the whole text, blanks around it aside, must be a number; otherwise
// RuntimeError 13 (Type mismatch), or 6 (Overflow) for a number beyond the double range.
double StrictToDouble(const QString& text);

// Strict conversion to a boolean: "True" or "False" in any case, or a number (zero is false);
// anything else raises RuntimeError 13.
bool StrictToBoolean(const QString& text);

// The text of a boolean: "True" or "False".
QString BooleanText(bool value);

// Rounding to an integer type with halves going to the even neighbour; a value outside the
// type's range raises RuntimeError 6.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

// Of two doubles the larger; when they are equal, the second.
double MaxValue(double a, double b);

}  // namespace core
