// The curve rasterizer's pictures do not depend on how the picture's rows lie in memory, on
// whether it draws in one band or several, or on the order its memory is asked for ahead.
#include "plot2d/CurveRasterizer.h"

#include <gtest/gtest.h>

#include <QImage>

#include <cmath>
#include <vector>

using namespace plot2d;

namespace {

std::vector<QPolygonF> Wiggles(int width, int height, int seed) {
  std::vector<QPolygonF> lines;
  for (int k = 0; k < 6; ++k) {
    QPolygonF line;
    for (int i = 0; i <= 400; ++i) {
      const double x = width * i / 400.0;
      // Steep, shallow and vertical pieces, some crossing their own path.
      const double y = height / 2.0 + height / 3.0 * std::sin((seed + k + 1) * 0.05 * i) * std::cos(0.013 * i * k);
      line << QPointF(x + (k == 3 ? 40 * std::sin(0.2 * i) : 0), y);
    }
    lines.push_back(line);
  }
  lines.push_back(QPolygonF{QPointF(width / 2.0, -5), QPointF(width / 2.0 + 0.3, height + 5)});
  return lines;
}

QImage Drawn(QImage image, int bands, bool antialiased, double width, Drawing::Style style) {
  const int bandHeight = (image.height() + bands - 1) / bands;
  for (int band = 0; band < bands; ++band) {
    const int top = band * bandHeight;
    const int height = std::min(bandHeight, image.height() - top);
    QImage rows(image.bits() + static_cast<qsizetype>(top) * image.bytesPerLine(), image.width(), height, image.bytesPerLine(),
                image.format());
    CurveRasterizer rasterizer(rows, top);
    rasterizer.SetAntialiased(antialiased);
    for (int seed = 0; seed < 3; ++seed) {
      rasterizer.Stroke(Wiggles(image.width(), image.height(), seed), QColor::fromHsv(seed * 100, 200, 180, 200 + seed * 20),
                        width, style);
    }
  }
  return image;
}

// The same pixels in memory whose rows are further apart than they need to be.
QImage Padded(int width, int height, QImage::Format format, std::vector<uchar>& memory) {
  const qsizetype stride = static_cast<qsizetype>(width) * 4 + 36;
  memory.assign(static_cast<size_t>(stride * height), 0);
  QImage image(memory.data(), width, height, stride, format);
  image.fill(Qt::white);
  return image;
}

}  // namespace

TEST(CurveRasterizer, DrawsTheSameIntoRowsThatAreNotPacked) {
  struct Case {
    QImage::Format Format;
    bool Antialiased;
    double Width;
    Drawing::Style Style;
  };
  const Case cases[] = {{QImage::Format_RGB32, true, 2, Drawing::Style::Solid},
                        {QImage::Format_ARGB32_Premultiplied, true, 3.5, Drawing::Style::Solid},
                        {QImage::Format_RGB32, true, 1, Drawing::Style::Dashed},
                        {QImage::Format_RGB32, false, 2, Drawing::Style::Solid},
                        {QImage::Format_ARGB32_Premultiplied, false, 5, Drawing::Style::Dotted}};
  for (const Case& c : cases) {
    for (const int bands : {1, 2, 3}) {
      QImage packed(301, 203, c.Format);
      packed.fill(Qt::white);
      std::vector<uchar> memory;
      const QImage padded = Drawn(Padded(301, 203, c.Format, memory), bands, c.Antialiased, c.Width, c.Style);
      const QImage reference = Drawn(packed, 1, c.Antialiased, c.Width, c.Style);
      ASSERT_EQ(padded.size(), reference.size());
      int differing = 0;
      for (int y = 0; y < reference.height(); ++y) {
        for (int x = 0; x < reference.width(); ++x) differing += padded.pixel(x, y) != reference.pixel(x, y);
      }
      EXPECT_EQ(differing, 0) << "bands " << bands << ", width " << c.Width << ", antialiased " << c.Antialiased;
      // And something was drawn at all.
      EXPECT_NE(reference.pixel(150, 101), QColor(Qt::white).rgb());
    }
  }
}
