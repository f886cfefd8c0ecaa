#include "PastedTable.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <QRegularExpression>

namespace dialogs {

namespace {

// The pieces of a text between commas that stand outside any bracket: "max(1,2),3" is two.
QStringList TopLevelCommaPieces(const QString& text) {
  QStringList pieces;
  int depth = 0;
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c == u'(' || c == u'[') ++depth;
    else if ((c == u')' || c == u']') && depth > 0) --depth;
    else if (c == u',' && depth == 0) {
      pieces << text.mid(start, i - start);
      start = i + 1;
    }
  }
  pieces << text.mid(start);
  return pieces;
}

}  // namespace

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
  else cells = TopLevelCommaPieces(line);
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
