#pragma once

#include <QString>

namespace rows {

// What a row is, told afresh from its text and its note each time it is needed: the kind is
// stored nowhere.
enum class RowKind { Note, Empty, Command, Point, Declaration, Function };

RowKind KindOfRow(const QString& text, bool noteVisible);

}  // namespace rows
