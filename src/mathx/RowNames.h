#pragma once

#include <QString>
#include <QStringList>

namespace mathx {

// The names a row text knows: functions (shown upright), Greek letters spelled out or in the
// editor's dotted form, and the display commands' keywords.

// Every function name of the row language, a longer name before any it contains.
const QStringList& FunctionNames();
// The spelled-out Greek names the editor shows as letters.
const QStringList& GreekNames();

// The Greek letter for a spelled-out name ("theta", "pi") or an editor symbol ("q..symb"), or an
// empty text.
QString GreekLetter(const QString& name);

// The readable form of a display command's keyword ("showgrid" -> "show grid"); a keyword that
// is no display command comes back as it stands.
QString CommandPhrase(const QString& keyword);
// The keyword of a display command's readable form ("show grid" -> "showgrid"), or an empty text.
QString CommandKeyword(const QString& phrase);

}  // namespace mathx
