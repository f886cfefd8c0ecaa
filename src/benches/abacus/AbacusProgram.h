#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace abacus {

// The window in a typical state (a few answers in the history), laid out offscreen at size and
// grabbed into file: the manual's picture. Returns whether the file was written.
bool SaveAbacusPicture(const QString& file, QSize size);

// The program: with no arguments the window, until it is closed; with "--picture FILE" and an
// optional "--size WxH" the picture alone. Returns the exit code; messages go to standard error.
int RunAbacus(const QStringList& arguments);

}  // namespace abacus
