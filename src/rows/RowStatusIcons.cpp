#include "RowStatusIcons.h"

#include "ribbon/Icons.h"

namespace rows {

QIcon RowStatusIcons::Icon(Kind kind) {
  switch (kind) {
    case Note: return ribbon::IconFor(QStringLiteral("row-note"));
    case Hidden: return ribbon::IconFor(QStringLiteral("row-hidden"));
    case Command: return ribbon::IconFor(QStringLiteral("row-command"));
  }
  return {};
}

}  // namespace rows
