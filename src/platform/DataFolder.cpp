#include "DataFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace platform {

QString DataFolder() {
  const QString chosen = qEnvironmentVariable("QUILLOGRAPH_DATA");
  if (!chosen.isEmpty()) return QDir::cleanPath(chosen);
  if (QCoreApplication::instance() != nullptr) {
    const QString installed = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quillograph");
    if (QFileInfo::exists(installed + QStringLiteral("/Ribbon"))) return QDir::cleanPath(installed);
  }
  return QStringLiteral(QUILLOGRAPH_SOURCE_DATA);
}

QString DataFile(const QString& relativePath) { return DataFolder() + u'/' + relativePath; }

}  // namespace platform
