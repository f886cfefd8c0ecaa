#include "PngEncoder.h"

#include "Adler32.h"
#include "Parallel.h"

#include <QColorSpace>
#include <QRgb>

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <thread>
#include <vector>

namespace render {

namespace {

using Bytes = std::vector<unsigned char>;

// zlib's fastest level: on plots it takes less than half the default level's time for files a
// third larger, as the row above has taken most of the redundancy out already.
constexpr int kLevel = 1;
// A band is at least this much filtered data, so a small picture is one band on the calling
// thread; a large one is cut into a few bands for each core, so that a core that gets the empty
// bands goes on with another.
constexpr qint64 kBandBytes = 256 * 1024;
constexpr qint64 kBandsPerCore = 4;
// Rows are filtered into a buffer of about this size before deflate reads them, while they are
// still in the cache.
constexpr qint64 kChunkBytes = 64 * 1024;
constexpr qsizetype kIdatBytes = 1 << 20;
constexpr unsigned char kUpFilter = 2;  // each byte less the byte above it
constexpr unsigned char kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};

int Channels(QImage::Format format) {
  switch (format) {
    case QImage::Format_Grayscale8: return 1;
    case QImage::Format_RGB32: return 3;
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied: return 4;
    default: return 0;
  }
}

unsigned char ColourType(int channels) { return channels == 1 ? 0 : channels == 3 ? 2 : 6; }

void RgbSamples(const QRgb* pixels, int width, unsigned char* out) {
  for (int x = 0; x < width; ++x, out += 3) {
    const QRgb p = pixels[x];
    out[0] = static_cast<unsigned char>(qRed(p));
    out[1] = static_cast<unsigned char>(qGreen(p));
    out[2] = static_cast<unsigned char>(qBlue(p));
  }
}

void RgbaSamples(const QRgb* pixels, int width, unsigned char* out) {
  for (int x = 0; x < width; ++x, out += 4) {
    const QRgb p = pixels[x];
    out[0] = static_cast<unsigned char>(qRed(p));
    out[1] = static_cast<unsigned char>(qGreen(p));
    out[2] = static_cast<unsigned char>(qBlue(p));
    out[3] = static_cast<unsigned char>(qAlpha(p));
  }
}

// Premultiplied pixels are divided back by Qt's own conversion, as Qt's writer has them divided:
// qUnpremultiply rounds some of them otherwise.
void UnpremultipliedSamples(const uchar* line, int width, unsigned char* out) {
  const QImage row = QImage(line, width, 1, QImage::Format_ARGB32_Premultiplied).convertToFormat(QImage::Format_ARGB32);
  RgbaSamples(reinterpret_cast<const QRgb*>(row.constBits()), width, out);
}

// Row y of the picture as the file's samples.
void Samples(const QImage& image, int y, unsigned char* out) {
  const uchar* line = image.constScanLine(y);
  const auto* pixels = reinterpret_cast<const QRgb*>(line);
  switch (image.format()) {
    case QImage::Format_RGB32: return RgbSamples(pixels, image.width(), out);
    case QImage::Format_ARGB32: return RgbaSamples(pixels, image.width(), out);
    case QImage::Format_ARGB32_Premultiplied: return UnpremultipliedSamples(line, image.width(), out);
    default: std::memcpy(out, line, static_cast<std::size_t>(image.width()));
  }
}

// Rows First to End - 1, filtered and deflated as a piece of the file's zlib stream: the last band
// ends the stream, the others end on a byte boundary (a sync flush) so that the next band's
// blocks follow them.
struct Band {
  int First = 0;
  int End = 0;
  Bytes Deflated;
  uLong Adler = 1;
  qint64 Length = 0;  // of the filtered rows
  std::exception_ptr Failure;
};

class RawDeflate {
public:
  RawDeflate() {
    if (deflateInit2(&m_z, kLevel, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK) throw std::bad_alloc();
  }
  ~RawDeflate() { deflateEnd(&m_z); }
  RawDeflate(const RawDeflate&) = delete;
  RawDeflate& operator=(const RawDeflate&) = delete;

  // Deflates the bytes into out, which grows as needed, and does the flush. Out holds
  // Written() bytes of deflated data and room behind them.
  void Put(const unsigned char* bytes, uInt length, Bytes& out, int flush) {
    m_z.next_in = const_cast<unsigned char*>(bytes);
    m_z.avail_in = length;
    for (;;) {
      if (m_z.total_out == out.size()) out.resize(std::max<std::size_t>(2 * out.size(), 16 * 1024));
      m_z.next_out = out.data() + m_z.total_out;
      m_z.avail_out = static_cast<uInt>(std::min<std::size_t>(out.size() - m_z.total_out, 1u << 30));
      const int result = deflate(&m_z, flush);
      if (result == Z_STREAM_END) break;
      if (result != Z_OK && result != Z_BUF_ERROR) throw std::bad_alloc();
      if (m_z.avail_in == 0 && m_z.avail_out != 0 && flush != Z_FINISH) break;
    }
  }
  // How much of out is deflated data; the rest is room for more.
  std::size_t Written() const { return m_z.total_out; }

private:
  z_stream m_z{};
};

void DeflateBand(const QImage& image, int channels, bool last, Band& band) {
  const qint64 samples = qint64(image.width()) * channels;
  const qint64 rowBytes = samples + 1;
  const int rowsPerChunk = static_cast<int>(std::max<qint64>(1, kChunkBytes / rowBytes));
  Bytes above(static_cast<std::size_t>(samples), 0), row(above.size()), chunk(static_cast<std::size_t>(rowBytes * rowsPerChunk));
  if (band.First > 0) Samples(image, band.First - 1, above.data());
  RawDeflate deflater;
  for (int y = band.First; y < band.End;) {
    const int rows = std::min(rowsPerChunk, band.End - y);
    unsigned char* out = chunk.data();
    for (int i = 0; i < rows; ++i, ++y, out += rowBytes) {
      Samples(image, y, row.data());
      out[0] = kUpFilter;
      for (qint64 s = 0; s < samples; ++s) out[1 + s] = static_cast<unsigned char>(row[s] - above[s]);
      std::swap(row, above);
    }
    const auto length = static_cast<uInt>(rows * rowBytes);
    band.Adler = Adler32(static_cast<std::uint32_t>(band.Adler), chunk.data(), length);
    deflater.Put(chunk.data(), length, band.Deflated, Z_NO_FLUSH);
  }
  deflater.Put(nullptr, 0, band.Deflated, last ? Z_FINISH : Z_SYNC_FLUSH);
  band.Deflated.resize(deflater.Written());
  band.Length = (band.End - band.First) * rowBytes;
}

std::vector<Band> Bands(const QImage& image, qint64 rowBytes) {
  const qint64 cores = std::max(1u, std::thread::hardware_concurrency());
  const qint64 most = std::min<qint64>(kBandsPerCore * cores, image.height());
  const qint64 count = std::clamp<qint64>(rowBytes * image.height() / kBandBytes, 1, most);
  std::vector<Band> bands(static_cast<std::size_t>(count));
  for (qint64 i = 0; i < count; ++i) {
    bands[i].First = static_cast<int>(image.height() * i / count);
    bands[i].End = static_cast<int>(image.height() * (i + 1) / count);
  }
  return bands;
}

void PutUint32(Bytes& out, quint32 value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<unsigned char>(value >> shift));
}

// The zlib stream of the filtered rows: a header for the fastest level, the bands' deflated
// pieces one after the other, and the checksum of all the rows.
Bytes ZlibStream(const QImage& image, int channels) {
  std::vector<Band> bands = Bands(image, qint64(image.width()) * channels + 1);
  ParallelFor(bands.size(), [&](std::size_t i) {
    try {
      DeflateBand(image, channels, i + 1 == bands.size(), bands[i]);
    } catch (...) {
      bands[i].Failure = std::current_exception();
    }
  });
  Bytes stream{0x78, 0x01};
  uLong adler = adler32(0, nullptr, 0);
  for (const Band& band : bands) {
    if (band.Failure) std::rethrow_exception(band.Failure);
    stream.insert(stream.end(), band.Deflated.begin(), band.Deflated.end());
    adler = adler32_combine(adler, band.Adler, static_cast<z_off_t>(band.Length));
  }
  PutUint32(stream, static_cast<quint32>(adler));
  return stream;
}

void PutChunk(QByteArray& file, const char* type, const unsigned char* data, std::size_t size) {
  Bytes head;
  PutUint32(head, static_cast<quint32>(size));
  file.append(reinterpret_cast<const char*>(head.data()), 4);
  file.append(type, 4);
  if (size > 0) file.append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  uLong crc = crc32(0, reinterpret_cast<const Bytef*>(type), 4);
  if (size > 0) crc = crc32_z(crc, data, size);
  Bytes tail;
  PutUint32(tail, static_cast<quint32>(crc));
  file.append(reinterpret_cast<const char*>(tail.data()), 4);
}

Bytes Header(const QImage& image, int channels) {
  Bytes header;
  PutUint32(header, static_cast<quint32>(image.width()));
  PutUint32(header, static_cast<quint32>(image.height()));
  header.insert(header.end(), {8, ColourType(channels), 0, 0, 0});  // 8 bits, deflate, filters by row, no interlace
  return header;
}

// As Qt's writer: the picture's resolution when it has one, in dots per metre.
Bytes Resolution(const QImage& image) {
  Bytes resolution;
  PutUint32(resolution, static_cast<quint32>(image.dotsPerMeterX()));
  PutUint32(resolution, static_cast<quint32>(image.dotsPerMeterY()));
  resolution.push_back(1);
  return resolution;
}

}  // namespace

bool PngEncodes(const QImage& image) {
  return !image.isNull() && Channels(image.format()) > 0 && image.textKeys().isEmpty() && !image.colorSpace().isValid();
}

QByteArray EncodePng(const QImage& image) {
  const int channels = Channels(image.format());
  const Bytes stream = ZlibStream(image, channels);
  QByteArray file;
  file.reserve(static_cast<qsizetype>(stream.size()) + 1024);
  file.append(reinterpret_cast<const char*>(kSignature), sizeof kSignature);
  const Bytes header = Header(image, channels);
  PutChunk(file, "IHDR", header.data(), header.size());
  if (image.dotsPerMeterX() > 0 || image.dotsPerMeterY() > 0) {
    const Bytes resolution = Resolution(image);
    PutChunk(file, "pHYs", resolution.data(), resolution.size());
  }
  for (std::size_t at = 0; at < stream.size(); at += kIdatBytes) {
    PutChunk(file, "IDAT", stream.data() + at, std::min<std::size_t>(kIdatBytes, stream.size() - at));
  }
  PutChunk(file, "IEND", nullptr, 0);
  return file;
}

}  // namespace render
