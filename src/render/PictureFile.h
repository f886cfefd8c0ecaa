#pragma once

#include <QImage>
#include <QString>

#include <cstdint>

namespace render {

// The image format for a picture kind (1 PNG, 2 JPEG, 3 BMP), or for the name's ending when the
// kind is 0; PNG otherwise.
QByteArray PictureFormat(const QString& name, std::int32_t kind);

// Writes a picture as SavePicture does on both plots; raises error 75 with the writer's reason
// when the file cannot be written. PNG goes through PngEncoder where it takes the picture, the
// rest through Qt's writers.
void WritePicture(const QImage& image, const QString& name, std::int32_t kind);

}  // namespace render
