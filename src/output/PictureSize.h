#pragma once

#include <QString>

// The lengths of the picture export page. Sizes are kept in twips (1/1440 inch) as everywhere in
// the forms; the page's fields show them in "cm", "pixle" (so spelled in the fields' units) or
// "inch".
namespace output {

// One centimetre in twips: this very constant, not 1440 / 2.54, so that the fields read as they
// always have.
constexpr double kTwipsPerCm = 566.928567000558;
constexpr double kTwipsPerInch = 1440;
constexpr double kTwipsPerPixle = 15;

// The largest side of a picture: 16384 pixels, enough for a poster or a print of a metre at
// 300 dots an inch. The boxes that tell the limit keep their old words ("50 cm").
constexpr int kLargestPixels = 16384;
constexpr double kLargestSide = kLargestPixels * kTwipsPerPixle;

// A number with its unit glued to its end ("10cm", "150twip") in the target unit: "twip" takes
// "cm", "pixle" or "inch" (looked for in that order, case-sensitive; every occurrence of the unit
// found is removed before the number is read); "pixle", "cm" and "inch" take twips. The number is
// the text's numeric prefix, so "" and "abc" give 0, and a value for "cm" or "inch" may carry
// "twip" behind its number. An unknown target, or a "twip" value without a known unit, gives 0.
double ChangeScale(const QString& value, const QString& target);

}  // namespace output
