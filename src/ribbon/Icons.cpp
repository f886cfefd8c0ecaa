#include "Icons.h"

#include "platform/DataFolder.h"

#include <QFileInfo>

namespace ribbon {

QIcon IconFor(const QString& name) {
  if (name.isEmpty()) return {};
  const QString own = platform::DataFile(QStringLiteral("Icons/") + name + QStringLiteral(".svg"));
  if (QFileInfo::exists(own)) return QIcon(own);
  return QIcon::fromTheme(name);
}

}  // namespace ribbon
