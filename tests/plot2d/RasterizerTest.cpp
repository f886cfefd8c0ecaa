// The curve rasterizer's pictures do not depend on how the picture's rows lie in memory, on
// whether it draws in one band or several, or on the order its memory is asked for ahead.
#include "plot2d/CurveRasterizer.h"

#include <gtest/gtest.h>

#include <QImage>

#include <cmath>
#include <limits>
#include <random>
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

namespace {

// Aliased solid lines as plainly as they can be drawn: every row of a capsule, its interval the
// union of the discs at the ends and of the band around the segment cut to the segment's slab.
void PlainSpans(QImage& image, QPointF a, QPointF b, double radius, QRgb colour) {
  const double dx = b.x() - a.x(), dy = b.y() - a.y();
  const double length2 = dx * dx + dy * dy, length = std::sqrt(length2);
  const double r2 = radius * radius;
  for (int y = 0; y < image.height(); ++y) {
    const double py = y + 0.5;
    double from = std::numeric_limits<double>::infinity(), to = -from;
    const auto take = [&](double l, double r) {
      if (l <= r) from = std::min(from, l), to = std::max(to, r);
    };
    for (const QPointF& end : {a, b}) {
      const double h = py - end.y();
      if (h * h <= r2) take(end.x() - std::sqrt(r2 - h * h), end.x() + std::sqrt(r2 - h * h));
    }
    if (length > 0) {
      double bandFrom = -std::numeric_limits<double>::infinity(), bandTo = -bandFrom;
      if (dy != 0) {
        const double base = a.x() + (py - a.y()) * dx / dy, half = radius * length / std::abs(dy);
        bandFrom = base - half, bandTo = base + half;
      } else if (std::abs(py - a.y()) > radius) {
        bandFrom = 1, bandTo = 0;
      }
      double slabFrom = -std::numeric_limits<double>::infinity(), slabTo = -slabFrom;
      if (dx != 0) {
        const double s0 = a.x() - (py - a.y()) * dy / dx, s1 = a.x() + (length2 - (py - a.y()) * dy) / dx;
        slabFrom = std::min(s0, s1), slabTo = std::max(s0, s1);
      } else if ((py - a.y()) * dy < 0 || (py - a.y()) * dy > length2) {
        slabFrom = 1, slabTo = 0;
      }
      take(std::max(bandFrom, slabFrom), std::min(bandTo, slabTo));
    }
    if (!(from <= to)) continue;
    for (int x = std::max(0, static_cast<int>(std::ceil(from - 0.5))); x <= std::min(image.width() - 1, static_cast<int>(std::floor(to - 0.5))); ++x) {
      image.setPixel(x, y, colour);
    }
  }
}

}  // namespace

// The quick ways of the aliased lines (rows in the middle of a segment skip the slab) give the
// plain way's pixels, for segments of every slope and length, some of them tiny.
TEST(CurveRasterizer, AliasedLinesAreThePlainWaysLines) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> along(-20, 260), nudge(-3, 3), tiny(-1e-3, 1e-3);
  for (const double width : {1.0, 2.0, 3.0, 6.5}) {
    QImage quick(240, 180, QImage::Format_RGB32), plain(240, 180, QImage::Format_RGB32);
    quick.fill(Qt::white);
    plain.fill(Qt::white);
    CurveRasterizer rasterizer(quick);
    rasterizer.SetAntialiased(false);
    for (int k = 0; k < 300; ++k) {
      const QPointF a(along(random), along(random) * 0.7);
      // Long, short, steep, shallow, and nearly a point.
      const QPointF b = k % 3 == 0 ? QPointF(along(random), along(random) * 0.7)
                        : k % 3 == 1 ? a + QPointF(nudge(random), nudge(random) * 10)
                                     : a + QPointF(tiny(random), tiny(random));
      const QColor colour = QColor::fromHsv(k % 360, 255, 200);
      rasterizer.Stroke({QPolygonF{a, b}}, colour, width, Drawing::Style::Solid);
      PlainSpans(plain, a, b, std::max(0.5, width / 2), colour.rgb());
    }
    int differing = 0;
    for (int y = 0; y < plain.height(); ++y) {
      for (int x = 0; x < plain.width(); ++x) differing += quick.pixel(x, y) != plain.pixel(x, y);
    }
    EXPECT_EQ(differing, 0) << "width " << width;
  }
}
