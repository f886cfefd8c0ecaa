#pragma once

#include <QIcon>
#include <QString>

namespace ribbon {

// An icon by name: the program's own drawing (Icons/<name>.svg of the data folder) where there is
// one, else the desktop theme's icon of that standard name; none for an empty name.
QIcon IconFor(const QString& name);

}  // namespace ribbon
