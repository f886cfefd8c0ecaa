#pragma once

#include "core/SharedState.h"

#include <QString>

#include <optional>

namespace rows {

// What a row is, told afresh from its text and its note each time it is needed: the kind is
// stored nowhere.
enum class RowKind { Note, Empty, Command, Point, Declaration, Function };

RowKind KindOfRow(const QString& text, bool noteVisible);

// A row that gives a constant a plain number ("a=2", "k = -1.5"): what stands left of its "="
// as it was typed, and the number. Rows with a note shown, with any other value ("a=2+3") or
// with a name that is no constant ("x=2") are none.
struct ConstantRow {
  QString Left;
  double Value = 0;
};
std::optional<ConstantRow> ConstantOfRow(const core::SharedState& state, const QString& text, bool noteVisible);

}  // namespace rows
