#include "PastedTable.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "mathx/TypedInput.h"

#include <QRegularExpression>

namespace dialogs {

bool IsPlainNumber(const QString& text) {
  try {
    core::StrictToDouble(text);
    return true;
  } catch (const core::RuntimeError&) {
    return false;
  }
}

// The cells of one pasted line: a spreadsheet's tabs, else semicolons, else commas outside
// brackets, else blanks between plain numbers ("1  2.5").
QStringList CellsOf(const QString& line) {
  QStringList cells;
  if (line.contains(u'\t')) cells = line.split(u'\t');
  else if (line.contains(u';')) cells = line.split(u';');
  else cells = mathx::TopLevelCommaPieces(line);
  if (cells.size() == 1) {
    const QStringList words = line.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    bool numbers = words.size() >= 2;
    for (const QString& word : words) numbers = numbers && IsPlainNumber(word);
    if (numbers) cells = words;
  }
  for (QString& cell : cells) cell = cell.trimmed();
  return cells;
}

QStringList LinesOf(const QString& text) {
  return text.split(QRegularExpression(QStringLiteral("\r\n|\r|\n")));
}

bool LooksLikeTable(const QString& text) {
  const QString body = text.trimmed();
  if (body.contains(u'\n') || body.contains(u'\r')) return true;
  return CellsOf(body).size() > 1;
}

}  // namespace dialogs
