#include "RowKind.h"

namespace rows {

RowKind KindOfRow(const QString& text, bool noteVisible) {
  if (noteVisible) return RowKind::Note;
  if (text.isEmpty()) return RowKind::Empty;
  if (text.startsWith(QStringLiteral("command"))) return RowKind::Command;
  if (text.startsWith(u'[')) return RowKind::Point;
  if (text.contains(QStringLiteral("declare"))) return RowKind::Declaration;
  return RowKind::Function;
}

}  // namespace rows
