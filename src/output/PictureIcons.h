#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

// The export page's icons, drawn as vectors at whatever size and density they are shown: a page
// with a curve on it and a coloured band naming the file type, and a clipboard holding a picture.
namespace output {

QIcon FileBadgeIcon(const QString& label, const QColor& accent);
QIcon ClipboardIcon(const QColor& accent);

}  // namespace output
