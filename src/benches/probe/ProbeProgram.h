#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace probe {

// The window in a typical state (x^3-3x with a finding marked), laid out offscreen at size and
// grabbed into file: the manual's picture. Returns whether the file was written.
bool SaveProbePicture(const QString& file, QSize size);

// The program: with no arguments the window, until it is closed; with "--picture FILE" and an
// optional "--size WxH" the picture alone. Returns the exit code; messages go to standard error.
int RunProbe(const QStringList& arguments);

}  // namespace probe
