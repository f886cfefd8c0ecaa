#pragma once

#include <QString>
#include <QStringList>

namespace dialogs {

// How the points editor reads a text that comes in from elsewhere: a plain number, and the
// lines and cells of a pasted table (a spreadsheet's tabs, semicolons, commas outside brackets,
// or blanks between numbers).

// A number as it stands, nothing around it ("2.5", "-1e3"; not "pi/2").
bool IsPlainNumber(const QString& text);
// The cells of one pasted line, trimmed.
QStringList CellsOf(const QString& line);
// The lines of a pasted text, whatever ends them.
QStringList LinesOf(const QString& text);
// Whether a pasted text is a table rather than one value: more than one line, or one line of
// more than one cell.
bool LooksLikeTable(const QString& text);

}  // namespace dialogs
