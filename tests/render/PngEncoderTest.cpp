#include "render/PngEncoder.h"
#include "render/PictureFile.h"

#include "core/RuntimeError.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>

#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "QtPrinters.h"

using render::EncodePng;
using render::PngEncodes;

namespace {

using Paint = std::function<QRgb(int x, int y)>;

QImage Picture(QSize size, QImage::Format format, const Paint& paint) {
  QImage image(size, format);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, paint(x, y));
  }
  return image;
}

// Premultiplied pixels are painted with their colours scaled down, as they are stored.
QImage Premultiplied(QSize size, const Paint& paint) {
  return Picture(size, QImage::Format_ARGB32, paint).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage Grey(QSize size) {
  QImage image(size, QImage::Format_Grayscale8);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) image.scanLine(y)[x] = static_cast<uchar>(x * 7 + y * 3);
  }
  return image;
}

QRgb Noise(int x, int y) {
  std::uint32_t h = static_cast<std::uint32_t>(x) * 73856093u ^ static_cast<std::uint32_t>(y) * 19349663u;
  h ^= h >> 13, h *= 0x5bd1e995u, h ^= h >> 15;
  return h;
}

// A plot's look: white, a grid, a curve, and a band of noise, so that rows differ from the rows
// above them in every way the filter meets.
QRgb PlotLike(int x, int y) {
  if (y % 50 == 0 || x % 50 == 0) return qRgb(200, 200, 200);
  if (std::abs(y - 300 - static_cast<int>(200 * std::sin(x / 80.0))) < 3) return qRgb(220, 30, 40);
  if (y > 600 && y < 640) return Noise(x, y) | 0xff000000u;
  return qRgb(255, 255, 255);
}

struct Case {
  const char* Name;
  QImage Image;
};

std::vector<Case> Pictures() {
  return {
      {"opaque", Picture({64, 48}, QImage::Format_RGB32, [](int x, int y) { return qRgb(x * 4, y * 5, 128); })},
      {"opaque noise", Picture({33, 31}, QImage::Format_RGB32, Noise)},
      // Qt's writer keeps the alpha channel of a format that has one, opaque or not.
      {"opaque with an alpha channel", Premultiplied({50, 20}, [](int x, int y) { return qRgb(x, y, x + y); })},
      {"transparent", Picture({40, 30}, QImage::Format_ARGB32, [](int, int) { return qRgba(0, 0, 0, 0); })},
      {"alpha gradient", Picture({256, 20}, QImage::Format_ARGB32, [](int x, int y) { return qRgba(y * 12, 90, 255 - x, x); })},
      {"premultiplied gradient", Premultiplied({255, 17}, [](int x, int y) { return qRgba(250 - y, x, 33, x); })},
      {"premultiplied noise", Premultiplied({37, 23}, Noise)},
      {"odd width", Picture({7, 5}, QImage::Format_RGB32, Noise)},
      {"one pixel", Picture({1, 1}, QImage::Format_RGB32, [](int, int) { return qRgb(1, 2, 3); })},
      {"one transparent pixel", Picture({1, 1}, QImage::Format_ARGB32, [](int, int) { return qRgba(9, 8, 7, 6); })},
      {"one column", Picture({1, 300}, QImage::Format_ARGB32, [](int, int y) { return qRgba(y, 255 - y, y / 2, y); })},
      {"one row", Picture({999, 1}, QImage::Format_RGB32, Noise)},
      {"grey", Grey({77, 45})},
      {"grey one pixel", Grey({1, 1})},
      // Large enough to be cut into bands that are deflated on separate threads.
      {"large", Picture({1501, 1203}, QImage::Format_RGB32, PlotLike)},
      {"large premultiplied", Premultiplied({1200, 801}, [](int x, int y) { return (PlotLike(x, y) & 0xffffff) | ((x + y) % 256) << 24; })},
      {"large grey", Grey({2049, 700})},
  };
}

QImage Decoded(const QByteArray& png) {
  QImage image;
  image.loadFromData(png, "PNG");
  return image;
}

QByteArray QtsPng(const QImage& image) {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter(&buffer, "PNG").write(image);
  return png;
}

struct Chunk {
  QByteArray Type;
  QByteArray Data;
};

// The file's chunks, each with its checksum verified; an empty list when the file is not a PNG.
std::vector<Chunk> Chunks(const QByteArray& png) {
  if (!png.startsWith("\x89PNG\r\n\x1a\n")) return {};
  std::vector<Chunk> chunks;
  for (qsizetype at = 8; at + 12 <= png.size();) {
    const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(png.constData() + at));
    if (at + 12 + length > png.size()) return {};
    const QByteArray typed = png.mid(at + 4, length + 4);
    const quint32 crc = qFromBigEndian<quint32>(png.constData() + at + 8 + length);
    EXPECT_EQ(crc, crc32(0, reinterpret_cast<const Bytef*>(typed.constData()), static_cast<uInt>(typed.size())));
    chunks.push_back({typed.left(4), typed.mid(4)});
    at += 12 + length;
  }
  return chunks;
}

// What a PNG reader finds: the chunks in order with their checksums, one zlib stream across the
// image data that ends with its own checksum and holds exactly the filtered rows.
void ExpectWellFormed(const QByteArray& png, const QImage& image, int channels) {
  const std::vector<Chunk> chunks = Chunks(png);
  ASSERT_GE(chunks.size(), 3u);
  EXPECT_EQ(chunks.front().Type, "IHDR");
  EXPECT_EQ(chunks.back().Type, "IEND");
  EXPECT_TRUE(chunks.back().Data.isEmpty());
  QByteArray stream;
  for (const Chunk& chunk : chunks) {
    if (chunk.Type == "IDAT") stream += chunk.Data;
  }
  const auto rows = static_cast<uLongf>(image.height()) * (1 + static_cast<uLongf>(image.width()) * channels);
  std::vector<Bytef> inflated(rows + 1);
  uLongf length = inflated.size();
  uLong read = static_cast<uLong>(stream.size());
  EXPECT_EQ(uncompress2(inflated.data(), &length, reinterpret_cast<const Bytef*>(stream.constData()), &read), Z_OK);
  EXPECT_EQ(length, rows);
  EXPECT_EQ(read, static_cast<uLong>(stream.size())) << "data behind the zlib stream";
}

// Where two pictures first differ, for the failure's message; "" when they are the same.
std::string FirstDifference(const QImage& a, const QImage& b) {
  if (a.size() != b.size() || a.format() != b.format()) return "size or format";
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (a.pixel(x, y) != b.pixel(x, y)) {
        return QStringLiteral("(%1, %2): %3 against %4")
            .arg(x).arg(y).arg(a.pixel(x, y), 8, 16, QChar(u'0')).arg(b.pixel(x, y), 8, 16, QChar(u'0')).toStdString();
      }
    }
  }
  return "";
}

int ChannelsOf(const QImage& image) {
  if (image.format() == QImage::Format_Grayscale8) return 1;
  return image.hasAlphaChannel() ? 4 : 3;
}

// Reads the file as the program's readers do, and returns what Qt and libpng said on the way.
QStringList ReaderWarnings(const QByteArray& png, QImage* image) {
  static QStringList* said = nullptr;
  QStringList messages;
  said = &messages;
  const QtMessageHandler before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
    said->append(text);
  });
  QBuffer buffer;
  buffer.setData(png);
  QImageReader reader(&buffer, "PNG");
  *image = reader.read();
  qInstallMessageHandler(before);
  said = nullptr;
  if (image->isNull()) messages.append(reader.errorString());
  return messages;
}

}  // namespace

TEST(PngEncoder, TakesThePlotsFormatsAndLeavesTheRestToQt) {
  EXPECT_TRUE(PngEncodes(QImage(2, 2, QImage::Format_RGB32)));
  EXPECT_TRUE(PngEncodes(QImage(2, 2, QImage::Format_ARGB32)));
  EXPECT_TRUE(PngEncodes(QImage(2, 2, QImage::Format_ARGB32_Premultiplied)));
  EXPECT_TRUE(PngEncodes(QImage(2, 2, QImage::Format_Grayscale8)));
  EXPECT_FALSE(PngEncodes(QImage()));
  EXPECT_FALSE(PngEncodes(QImage(2, 2, QImage::Format_RGB888)));
  EXPECT_FALSE(PngEncodes(QImage(2, 2, QImage::Format_Indexed8)));
  EXPECT_FALSE(PngEncodes(QImage(2, 2, QImage::Format_RGBA64)));
  QImage described(2, 2, QImage::Format_RGB32);
  described.setText(QStringLiteral("Title"), QStringLiteral("A graph"));
  EXPECT_FALSE(PngEncodes(described));
  QImage coloured(2, 2, QImage::Format_RGB32);
  coloured.setColorSpace(QColorSpace::SRgb);
  EXPECT_FALSE(PngEncodes(coloured));
}

TEST(PngEncoder, ReadsBackAsTheSamePixels) {
  for (const Case& c : Pictures()) {
    const QImage decoded = Decoded(EncodePng(c.Image));
    ASSERT_FALSE(decoded.isNull()) << c.Name;
    EXPECT_EQ(decoded.size(), c.Image.size()) << c.Name;
    EXPECT_EQ(FirstDifference(decoded.convertToFormat(QImage::Format_ARGB32), c.Image.convertToFormat(QImage::Format_ARGB32)), "")
        << c.Name;
  }
}

// The reference: what Qt's own writer puts in the file is what comes out of ours, in the same
// kind of samples (alpha only where the picture has it, grey for grey).
TEST(PngEncoder, ReadsBackAsQtsOwnFileDoes) {
  for (const Case& c : Pictures()) {
    const QImage ours = Decoded(EncodePng(c.Image));
    const QImage qts = Decoded(QtsPng(c.Image));
    EXPECT_EQ(ours.format(), qts.format()) << c.Name;
    EXPECT_EQ(FirstDifference(ours, qts), "") << c.Name;
    EXPECT_EQ(ours.dotsPerMeterX(), qts.dotsPerMeterX()) << c.Name;
    EXPECT_EQ(ours.dotsPerMeterY(), qts.dotsPerMeterY()) << c.Name;
  }
}

TEST(PngEncoder, FilesAreWellFormed) {
  for (const Case& c : Pictures()) {
    SCOPED_TRACE(c.Name);
    ExpectWellFormed(EncodePng(c.Image), c.Image, ChannelsOf(c.Image));
  }
}

TEST(PngEncoder, ReadersSayNothingAboutTheFiles) {
  for (const Case& c : Pictures()) {
    QImage image;
    EXPECT_EQ(ReaderWarnings(EncodePng(c.Image), &image), QStringList()) << c.Name;
    EXPECT_EQ(image.size(), c.Image.size()) << c.Name;
  }
}

TEST(PngEncoder, CarriesTheResolution) {
  QImage image(10, 10, QImage::Format_RGB32);
  image.fill(Qt::blue);
  image.setDotsPerMeterX(5000);
  image.setDotsPerMeterY(2500);
  const QImage decoded = Decoded(EncodePng(image));
  EXPECT_EQ(decoded.dotsPerMeterX(), 5000);
  EXPECT_EQ(decoded.dotsPerMeterY(), 2500);
}

TEST(WritePicture, WritesPngThroughTheEncoder) {
  QTemporaryDir dir;
  const QImage image = Picture({320, 200}, QImage::Format_ARGB32_Premultiplied, Noise);
  const QString name = dir.filePath(QStringLiteral("a.png"));
  render::WritePicture(image, name, 1);
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), EncodePng(image));
}

TEST(WritePicture, LeavesOtherFormatsToQt) {
  QTemporaryDir dir;
  QImage image = Picture({31, 17}, QImage::Format_RGB32, Noise).convertToFormat(QImage::Format_RGB888);
  image.setText(QStringLiteral("Title"), QStringLiteral("A graph"));
  const QString name = dir.filePath(QStringLiteral("b.png"));
  render::WritePicture(image, name, 0);
  const QImage read(name);
  EXPECT_EQ(read.text(QStringLiteral("Title")), QStringLiteral("A graph"));
  EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), image.convertToFormat(QImage::Format_RGB32));
}

TEST(WritePicture, OverwritesALongerFile) {
  QTemporaryDir dir;
  const QString name = dir.filePath(QStringLiteral("c.png"));
  render::WritePicture(Picture({900, 900}, QImage::Format_RGB32, Noise), name, 1);
  const QImage small = Picture({3, 3}, QImage::Format_RGB32, Noise);
  render::WritePicture(small, name, 1);
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), EncodePng(small));
}

// The words of Qt's writer, which the file's saving told before.
TEST(WritePicture, AnUnwritableNameRaisesWhatQtsWriterSaid) {
  QTemporaryDir dir;
  const QImage image = Picture({8, 8}, QImage::Format_RGB32, Noise);
  for (const QString& name : {dir.filePath(QStringLiteral("no/such/folder/x.png")), dir.path()}) {
    QImageWriter qts(name, "PNG");
    ASSERT_FALSE(qts.write(image));
    try {
      render::WritePicture(image, name, 1);
      ADD_FAILURE() << "no error for " << name.toStdString();
    } catch (const core::RuntimeError& e) {
      EXPECT_EQ(e.Number(), 75);
      EXPECT_EQ(e.Description(), qts.errorString());
    }
  }
}
