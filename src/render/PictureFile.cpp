#include "PictureFile.h"

#include "core/RuntimeError.h"

#include <QFileInfo>
#include <QImageWriter>

namespace render {

QByteArray PictureFormat(const QString& name, std::int32_t kind) {
  if (kind == 2) return "JPEG";
  if (kind == 3) return "BMP";
  if (kind == 0) {
    const QString suffix = QFileInfo(name).suffix().toLower();
    if (suffix == u"jpg" || suffix == u"jpeg") return "JPEG";
    if (suffix == u"bmp") return "BMP";
  }
  return "PNG";
}

void WritePicture(const QImage& image, const QString& name, std::int32_t kind) {
  const QByteArray format = PictureFormat(name, kind);
  QImageWriter writer(name, format);
  if (format == "JPEG") writer.setQuality(95);
  if (!writer.write(image)) throw core::RuntimeError(75, writer.errorString());
}

}  // namespace render
