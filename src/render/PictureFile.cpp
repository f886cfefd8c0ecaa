#include "PictureFile.h"

#include "PngEncoder.h"
#include "core/RuntimeError.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

namespace render {

namespace {

constexpr int kCannotWrite = 75;  // the "Path/File access error" of a picture that cannot be written

// The file is opened before the picture is encoded, as Qt's writer does, and a name that cannot be
// written is told in Qt's writer's words.
void WritePng(const QImage& image, const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::WriteOnly)) {
    throw core::RuntimeError(
        kCannotWrite, QCoreApplication::translate("QImageWriter", "Cannot open device for writing: %1").arg(file.errorString()));
  }
  const QByteArray bytes = EncodePng(image);
  if (file.write(bytes) != bytes.size() || !file.flush()) throw core::RuntimeError(kCannotWrite, file.errorString());
}

}  // namespace

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
  if (format == "PNG" && PngEncodes(image)) return WritePng(image, name);
  QImageWriter writer(name, format);
  if (format == "JPEG") writer.setQuality(95);
  if (!writer.write(image)) throw core::RuntimeError(kCannotWrite, writer.errorString());
}

}  // namespace render
