#include "PictureSize.h"

#include "core/NumberText.h"

namespace output {

namespace {

// The number of a value once every occurrence of unit is taken out of it.
double NumberWithout(QString value, const QString& unit) { return core::NumericPrefix(value.remove(unit)); }

}  // namespace

double ChangeScale(const QString& value, const QString& target) {
  const QString cm = QStringLiteral("cm");
  const QString pixle = QStringLiteral("pixle");
  const QString inch = QStringLiteral("inch");
  if (target == u"twip") {
    if (value.contains(cm)) return NumberWithout(value, cm) * kTwipsPerCm;
    if (value.contains(pixle)) return NumberWithout(value, pixle) * kTwipsPerPixle;
    if (value.contains(inch)) return NumberWithout(value, inch) * kTwipsPerInch;
    return 0;
  }
  if (target == pixle) return NumberWithout(value, QStringLiteral("twip")) / kTwipsPerPixle;
  if (target == cm) return NumberWithout(value, cm) / kTwipsPerCm;
  if (target == inch) return NumberWithout(value, inch) / kTwipsPerInch;
  return 0;
}

}  // namespace output
