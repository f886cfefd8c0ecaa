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

// Run from the build tree, what the build makes (the manual, the samples' pictures) stands in the
// build's own data folder, beside the sources' one.
QString DataFile(const QString& relativePath) {
  const QString folder = DataFolder();
  if (folder == QStringLiteral(QUILLOGRAPH_SOURCE_DATA)) {
    const QString built = QStringLiteral(QUILLOGRAPH_BUILD_DATA) + u'/' + relativePath;
    if (QFileInfo::exists(built)) return built;
  }
  return folder + u'/' + relativePath;
}

}  // namespace platform
