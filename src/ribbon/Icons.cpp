#include "Icons.h"

#include "ThemedIconEngine.h"

#include "platform/DataFolder.h"

#include <QFile>

namespace ribbon {

QIcon IconFor(const QString& name) {
  if (name.isEmpty()) return {};
  const QString own = platform::DataFile(QStringLiteral("Icons/") + name + QStringLiteral(".svg"));
  QFile file(own);
  if (file.open(QIODevice::ReadOnly)) return QIcon(new ThemedIconEngine(file.readAll()));
  return QIcon::fromTheme(name);
}

}  // namespace ribbon
