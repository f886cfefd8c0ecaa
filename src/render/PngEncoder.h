#pragma once

#include <QByteArray>
#include <QImage>

namespace render {

// The PNG writer of the saved pictures. Qt's writer lets libpng try five filters on every row and
// deflates at zlib's default level on one core, which takes longer than drawing the picture. This
// one subtracts the row above (which suits plots: long runs of one colour, straight lines) and
// deflates at zlib's fastest level in bands of rows on all cores, joined into one zlib stream as
// pigz does. The files are somewhat larger than Qt's and every reader opens them.

// Whether EncodePng takes the picture: the formats the plots draw in (32-bit RGB, ARGB and
// premultiplied ARGB) and 8-bit grey, without text or a colour space to carry. Anything else is
// for Qt's writer.
bool PngEncodes(const QImage& image);

// The PNG file of a picture that PngEncodes takes, with the samples and chunks Qt's writer puts
// in: 8-bit RGB for an opaque format, RGBA (not premultiplied) for a format with alpha, grey for
// grey; the resolution when the picture has one.
QByteArray EncodePng(const QImage& image);

}  // namespace render
