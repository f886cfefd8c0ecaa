#include "SurfaceRenderer.h"

#include "render/AxisTicks.h"
#include "render/Parallel.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace plot3d {

namespace {

constexpr float kAmbient = 0.35f;
constexpr float kDiffuse = 0.65f;
constexpr double kTickSpacing = 45;  // screen pixels at least between two numbers of an axis

double ValidScale(double scale) { return std::isfinite(scale) ? std::clamp(scale, 1.0, 8.0) : 1.0; }

}  // namespace

QRgb SurfaceRenderer::HeightColor(double level) {
  // Hue from 240 (blue) at the bottom to 0 (red) at the top.
  const double clamped = std::isfinite(level) ? std::clamp(level, 0.0, 1.0) : 0.5;
  return QColor::fromHsvF(static_cast<float>((1 - clamped) * 240 / 360), 0.75f, 1.0f).rgb();
}

// What a picture of the mesh needs that no turn or zoom changes, worked out once per mesh.
void SurfaceRenderer::Prepare(const Mesh& mesh, const SurfaceRanges& box) {
  const Prepared key{&mesh, mesh.Positions.data(), mesh.Positions.size(), box};
  if (m_prepared == key) return;
  // The colour scale spans the surface's own heights, so that a low wave in a tall box still shows
  // its hills and valleys; a level surface takes the middle colour.
  double low = INFINITY, high = -INFINITY;
  for (const Vec3& p : mesh.Positions) {
    if (std::isfinite(p.Z)) low = std::min(low, p.Z), high = std::max(high, p.Z);
  }
  const std::size_t count = mesh.Positions.size();
  m_cube.resize(count);
  m_colours.resize(count);
  constexpr std::size_t kChunk = 8192;
  render::ParallelFor((count + kChunk - 1) / kChunk, [&](std::size_t chunk) {
    for (std::size_t i = chunk * kChunk; i < std::min(count, (chunk + 1) * kChunk); ++i) {
      const Vec3 p = mesh.Positions[i];
      m_cube[i] = Camera::ToCube(p, box);
      m_colours[i] = HeightColor(high > low ? (p.Z - low) / (high - low) : 0.5);
    }
  });
  m_prepared = key;
}

void SurfaceRenderer::Shade(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QSize size) {
  Prepare(mesh, box);
  const Vec3 light = Normalized(Vec3{-0.4, 0.5, 1});  // in view space: from the upper left, in front
  const Camera::Projection project = camera.Projecting(size);
  m_vertices.resize(mesh.Positions.size());
  const auto shade = [&](std::size_t i) {
    const Camera::Projected s = project(m_cube[i]);
    const Vec3 n = i < mesh.Normals.size() ? project.Turned(mesh.Normals[i]) : Vec3{0, 0, 1};
    // Both sides lit alike: the surface has no inside.
    const float brightness = kAmbient + kDiffuse * static_cast<float>(std::abs(Dot(Normalized(n), light)));
    const QRgb c = m_colours[i];
    m_vertices[i] = {static_cast<float>(s.X), static_cast<float>(s.Y), static_cast<float>(s.Depth),
                     static_cast<float>(qRed(c)) * brightness, static_cast<float>(qGreen(c)) * brightness,
                     static_cast<float>(qBlue(c)) * brightness};
  };
  // In chunks, shared among the cores.
  constexpr std::size_t kChunk = 8192;
  const std::size_t count = mesh.Positions.size();
  render::ParallelFor((count + kChunk - 1) / kChunk, [&](std::size_t chunk) {
    for (std::size_t i = chunk * kChunk; i < std::min(count, (chunk + 1) * kChunk); ++i) shade(i);
  });
}

void SurfaceRenderer::SortIntoBands(const Mesh& mesh, int rows, int bandRows) {
  const auto bands = static_cast<std::uint32_t>((rows + bandRows - 1) / bandRows);
  std::vector<std::uint32_t> bandOf(static_cast<std::size_t>(rows));
  for (int y = 0; y < rows; ++y) bandOf[static_cast<std::size_t>(y)] = static_cast<std::uint32_t>(y / bandRows);
  // The bands from first to last that a triangle's rows reach, as Fill takes them; a triangle
  // with a corner beyond float's range is given to every band, and Fill decides.
  const auto reach = [&](const std::array<std::uint32_t, 3>& t) -> std::array<std::uint32_t, 2> {
    const ScreenVertex &a = m_vertices[t[0]], &b = m_vertices[t[1]], &c = m_vertices[t[2]];
    const float top = std::floor(std::min({a.Y, b.Y, c.Y})), bottom = std::ceil(std::max({a.Y, b.Y, c.Y}));
    if (!std::isfinite(top) || !std::isfinite(bottom)) return {0, bands};
    if (bottom < 0 || top > static_cast<float>(rows - 1)) return {0, 0};
    const int first = top <= 0 ? 0 : static_cast<int>(top);
    const int last = bottom >= static_cast<float>(rows - 1) ? rows - 1 : static_cast<int>(bottom);
    return {bandOf[static_cast<std::size_t>(first)], bandOf[static_cast<std::size_t>(last)] + 1};
  };
  const std::size_t count = mesh.Triangles.size();
  m_reach.resize(count);
  constexpr std::size_t kChunk = 16384;
  render::ParallelFor((count + kChunk - 1) / kChunk, [&](std::size_t chunk) {
    for (std::size_t i = chunk * kChunk; i < std::min(count, (chunk + 1) * kChunk); ++i) m_reach[i] = reach(mesh.Triangles[i]);
  });
  m_bandStart.assign(bands + 1, 0);
  for (const auto& [from, to] : m_reach) {
    for (std::uint32_t b = from; b < to; ++b) ++m_bandStart[b + 1];
  }
  for (std::uint32_t b = 0; b < bands; ++b) m_bandStart[b + 1] += m_bandStart[b];
  m_banded.resize(m_bandStart[bands]);
  std::vector<std::uint32_t> next(m_bandStart.begin(), m_bandStart.end() - 1);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::uint32_t b = m_reach[i][0]; b < m_reach[i][1]; ++b) m_banded[next[b]++] = static_cast<std::uint32_t>(i);
  }
}

#if defined(__SSE2__)
namespace {

__m128i Clamped(__m128i v, __m128i top) {
  const __m128i over = _mm_cmpgt_epi32(v, top);
  v = _mm_or_si128(_mm_andnot_si128(over, v), _mm_and_si128(over, top));
  return _mm_andnot_si128(_mm_cmplt_epi32(v, _mm_setzero_si128()), v);
}

// Pixels x to x + 3 of a row, those up to last: the scalar loop's sums, in the same order, on
// four pixels at once, so the same bits; a triangle of the heart is a pixel or two wide, and
// most of its bounding box is one such step. Called from one place, so inlined there, and what
// does not change along the row or the triangle is worked out once.
template <typename Corner>
void FillFour(const Corner& a, const Corner& b, const Corner& c, float inverse, int x, int last, float py, QRgb* line,
              float* depth) {
  const __m128i lanes = _mm_add_epi32(_mm_set1_epi32(x), _mm_setr_epi32(0, 1, 2, 3));
  const __m128 px = _mm_add_ps(_mm_cvtepi32_ps(lanes), _mm_set1_ps(0.5f));
  const __m128 ax = _mm_sub_ps(_mm_set1_ps(a.X), px), bx = _mm_sub_ps(_mm_set1_ps(b.X), px);
  const __m128 cx = _mm_sub_ps(_mm_set1_ps(c.X), px);
  const __m128 ay = _mm_set1_ps(a.Y - py), by = _mm_set1_ps(b.Y - py), cy = _mm_set1_ps(c.Y - py);
  const __m128 scale = _mm_set1_ps(inverse), zero = _mm_setzero_ps();
  const __m128 wa = _mm_mul_ps(_mm_sub_ps(_mm_mul_ps(bx, cy), _mm_mul_ps(by, cx)), scale);
  const __m128 wb = _mm_mul_ps(_mm_sub_ps(_mm_mul_ps(cx, ay), _mm_mul_ps(cy, ax)), scale);
  const __m128 wc = _mm_sub_ps(_mm_sub_ps(_mm_set1_ps(1), wa), wb);
  const __m128 outside = _mm_or_ps(_mm_cmplt_ps(wa, zero), _mm_or_ps(_mm_cmplt_ps(wb, zero), _mm_cmplt_ps(wc, zero)));
  const __m128 within = _mm_castsi128_ps(_mm_cmplt_epi32(lanes, _mm_set1_epi32(last + 1)));
  const auto sum = [&](float va, float vb, float vc) {
    return _mm_add_ps(_mm_add_ps(_mm_mul_ps(wa, _mm_set1_ps(va)), _mm_mul_ps(wb, _mm_set1_ps(vb))), _mm_mul_ps(wc, _mm_set1_ps(vc)));
  };
  const __m128 z = sum(a.Depth, b.Depth, c.Depth), before = _mm_loadu_ps(depth + x);
  const __m128 draw = _mm_andnot_ps(outside, _mm_and_ps(within, _mm_cmpnle_ps(z, before)));
  if (_mm_movemask_ps(draw) == 0) return;
  _mm_storeu_ps(depth + x, _mm_or_ps(_mm_and_ps(draw, z), _mm_andnot_ps(draw, before)));
  const __m128i top = _mm_set1_epi32(255);
  const __m128i red = Clamped(_mm_cvttps_epi32(sum(a.R, b.R, c.R)), top);
  const __m128i green = Clamped(_mm_cvttps_epi32(sum(a.G, b.G, c.G)), top);
  const __m128i blue = Clamped(_mm_cvttps_epi32(sum(a.B, b.B, c.B)), top);
  const __m128i colour = _mm_or_si128(_mm_or_si128(_mm_set1_epi32(static_cast<int>(0xff000000u)), _mm_slli_epi32(red, 16)),
                                      _mm_or_si128(_mm_slli_epi32(green, 8), blue));
  auto* pixels = reinterpret_cast<__m128i*>(line + x);
  const __m128i mask = _mm_castps_si128(draw);
  _mm_storeu_si128(pixels, _mm_or_si128(_mm_and_si128(mask, colour), _mm_andnot_si128(mask, _mm_loadu_si128(pixels))));
}

}  // namespace
#endif

// One triangle by its edge functions over its bounding box, pixel centres inside (or on a top or
// left edge) filled where nearer than what is there.
void SurfaceRenderer::Fill(const ScreenVertex a, const ScreenVertex b, const ScreenVertex c, const Band& band) {
  const float top = std::min({a.Y, b.Y, c.Y}), bottom = std::max({a.Y, b.Y, c.Y});
  if (!(bottom >= static_cast<float>(band.first)) || !(top <= static_cast<float>(band.last) + 1)) return;
  const float area = (b.X - a.X) * (c.Y - a.Y) - (b.Y - a.Y) * (c.X - a.X);
  if (!(std::abs(area) > 1e-12f)) return;
  const int width = band.width;
  const int x0 = std::max(0, static_cast<int>(std::floor(std::min({a.X, b.X, c.X}))));
  const int x1 = std::min(width - 1, static_cast<int>(std::ceil(std::max({a.X, b.X, c.X}))));
  const int y0 = std::max(band.first, static_cast<int>(std::floor(top)));
  const int y1 = std::min(band.last, static_cast<int>(std::ceil(bottom)));
  const float inverse = 1 / area;
  for (int y = y0; y <= y1; ++y) {
    auto* line = reinterpret_cast<QRgb*>(band.bits + static_cast<qsizetype>(y) * band.stride);
    float* depth = m_depth.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    const float py = static_cast<float>(y) + 0.5f;
    int x = x0;
#if defined(__SSE2__)
    for (; x <= x1 && x + 3 < width; x += 4) FillFour(a, b, c, inverse, x, x1, py, line, depth);
#endif
    for (; x <= x1; ++x) {  // at the picture's right edge, where four pixels would leave the row
      const float px = static_cast<float>(x) + 0.5f;
      const float wa = ((b.X - px) * (c.Y - py) - (b.Y - py) * (c.X - px)) * inverse;
      const float wb = ((c.X - px) * (a.Y - py) - (c.Y - py) * (a.X - px)) * inverse;
      const float wc = 1 - wa - wb;
      if (wa < 0 || wb < 0 || wc < 0) continue;
      const float z = wa * a.Depth + wb * b.Depth + wc * c.Depth;
      if (z <= depth[x]) continue;
      depth[x] = z;
      const auto channel = [&](float va, float vb, float vc) {
        return std::clamp(static_cast<int>(wa * va + wb * vb + wc * vc), 0, 255);
      };
      line[x] = qRgb(channel(a.R, b.R, c.R), channel(a.G, b.G, c.G), channel(a.B, b.B, c.B));
    }
  }
}

void SurfaceRenderer::DrawBox(const SurfaceRanges& box, const Camera& camera, QImage& image, const Options& options) const {
  const double scale = ValidScale(options.Scale);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(options.BoxColor, scale));
  const double xs[] = {box.XMin, box.XMax}, ys[] = {box.YMin, box.YMax}, zs[] = {box.ZMin, box.ZMax};
  const auto at = [&](int i, int j, int k) {
    const Camera::Projected p = camera.Project({xs[i], ys[j], zs[k]}, box, image.size());
    return QPointF(p.X, p.Y);
  };
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; j < 2; ++j) {
      painter.drawLine(at(0, i, j), at(1, i, j));
      painter.drawLine(at(i, 0, j), at(i, 1, j));
      painter.drawLine(at(i, j, 0), at(i, j, 1));
    }
  }
  painter.setPen(options.NumberColor);
  DrawNumbers(painter, box, camera, image.size(), scale);
}

namespace {

// A label before it is placed for good: InView where the point it labels is.
struct Candidate {
  SurfaceRenderer::AxisLabel Label;
  bool InView = true;
};

constexpr const char* kNames[] = {"x", "y", "z"};

}  // namespace

// For x and y, of the two edges along them on the floor of the box the one whose middle is
// nearest the viewer; for z, of the four upright edges the one farthest left on the picture;
// numbered at 1-2-5 steps with the axis's name at the end.
std::vector<SurfaceRenderer::AxisLabel> SurfaceRenderer::AxisLabels(const SurfaceRanges& box, const Camera& camera,
                                                                     QSize size, const QFont& font, double scale) {
  scale = ValidScale(scale);
  const double lows[] = {box.XMin, box.YMin, box.ZMin}, highs[] = {box.XMax, box.YMax, box.ZMax};
  const Camera::Projected centre = camera.Project(
      {(box.XMin + box.XMax) / 2, (box.YMin + box.YMax) / 2, (box.ZMin + box.ZMax) / 2}, box, size);
  QFont bold = font;
  bold.setBold(true);
  const QFontMetricsF metrics(font), boldMetrics(bold);
  // Where a label goes: off the edge, away from the centre of the box, by about a line's height.
  const auto place = [&](const Camera::Projected& at, const QString& text, bool name) {
    QPointF away(at.X - centre.X, at.Y - centre.Y);
    const double length = std::hypot(away.x(), away.y());
    away = length > 0 ? away / length * (metrics.height() * 0.9) : QPointF(0, metrics.height());
    const double width = (name ? boldMetrics : metrics).horizontalAdvance(text);
    const QRectF rect(at.X + away.x() - width / 2, at.Y + away.y() - metrics.height() / 2, width, metrics.height());
    return Candidate{{text, rect, name}, at.X >= 0 && at.X <= size.width() && at.Y >= 0 && at.Y <= size.height()};
  };
  std::vector<Candidate> numbers, names;
  for (int axis = 0; axis < 3; ++axis) {
    const int u = (axis + 1) % 3, v = (axis + 2) % 3;  // the other two axes fix the edge
    const auto point = [&](double along, double a, double b) {
      double c[3];
      c[axis] = along, c[u] = a, c[v] = b;
      return camera.Project({c[0], c[1], c[2]}, box, size);
    };
    double bestA = lows[u], bestB = lows[v], best = -INFINITY;
    for (const double a : {lows[u], highs[u]}) {
      for (const double b : {lows[v], highs[v]}) {
        // x and y are numbered on the floor of the box, z on an upright edge.
        if ((u == 2 && a != lows[u]) || (v == 2 && b != lows[v])) continue;
        const Camera::Projected middle = point((lows[axis] + highs[axis]) / 2, a, b);
        const double score = axis == 2 ? -middle.X : middle.Depth;
        if (score > best) best = score, bestA = a, bestB = b;
      }
    }
    const double range = highs[axis] - lows[axis];
    if (!(range > 0) || !std::isfinite(range)) continue;
    const Camera::Projected from = point(lows[axis], bestA, bestB), to = point(highs[axis], bestA, bestB);
    const double pixels = std::hypot(to.X - from.X, to.Y - from.Y);
    const double step = render::AxisTicks::StepFor(range, std::max(pixels, 1.0), kTickSpacing * scale);
    for (const double value : render::AxisTicks::Values(lows[axis], highs[axis], step))
      numbers.push_back(place(point(value, bestA, bestB), render::AxisTicks::Label(value, step), false));
    names.push_back(place(point(highs[axis] + range * 0.12, bestA, bestB), QString::fromLatin1(kNames[axis]), true));
  }
  // The names first, kept inside the picture; then the numbers whose place on their edge is in
  // view and that leave the labels before them clear. A zoomed box puts edges out of view, and
  // numbers pushed inside would pile up at the border.
  std::vector<AxisLabel> placed;
  const double margin = 2 * scale;
  const QRectF inside(margin, margin, size.width() - 2 * margin, size.height() - 2 * margin);
  const auto take = [&](Candidate candidate) {
    QRectF& rect = candidate.Label.Rect;
    if (candidate.Label.Name) {
      rect.moveLeft(std::clamp(rect.left(), inside.left(), std::max(inside.left(), inside.right() - rect.width())));
      rect.moveTop(std::clamp(rect.top(), inside.top(), std::max(inside.top(), inside.bottom() - rect.height())));
    } else if (!candidate.InView || !inside.contains(rect)) {
      return;
    }
    const QRectF clear = rect.adjusted(-2 * scale, -scale, 2 * scale, scale);
    if (std::any_of(placed.begin(), placed.end(), [&](const AxisLabel& l) { return l.Rect.intersects(clear); })) return;
    placed.push_back(candidate.Label);
  };
  for (const Candidate& name : names) take(name);
  for (const Candidate& number : numbers) take(number);
  return placed;
}

QFont SurfaceRenderer::AxisFont(const QFont& base, QSize size, double scale) {
  scale = ValidScale(scale);
  // Worked out on the screen's pixels, then set in the picture's.
  const double shortSide = std::min(size.width(), size.height()) / scale;
  QFont font = base;
  font.setPixelSize(static_cast<int>(std::lround(std::clamp(shortSide / 40, 8.0, 14.0) * scale)));
  return font;
}

void SurfaceRenderer::DrawNumbers(QPainter& painter, const SurfaceRanges& box, const Camera& camera, QSize size,
                                  double scale) const {
  const QFont font = AxisFont(painter.font(), size, scale);
  for (const AxisLabel& label : AxisLabels(box, camera, size, font, scale)) {
    QFont face = font;
    face.setBold(label.Name);
    painter.setFont(face);
    painter.drawText(label.Rect, Qt::AlignCenter, label.Text);
  }
  painter.setFont(font);
}

// The edges of the mesh, darkening the surface where they are not hidden: each edge is stepped
// pixel by pixel with its depth, and shows where it is no farther than the surface drawn there
// (give or take a little, so that an edge on the surface is not hidden by the surface itself).
void SurfaceRenderer::DrawMeshLines(const Mesh& mesh, QImage& image) const {
  constexpr float kBias = 0.01f;
  const int width = image.width(), height = image.height();
  const auto edge = [&](const ScreenVertex& a, const ScreenVertex& b) {
    const float dx = b.X - a.X, dy = b.Y - a.Y;
    const int steps = static_cast<int>(std::ceil(std::max(std::abs(dx), std::abs(dy))));
    if (steps <= 0 || steps > 4 * (width + height)) return;
    for (int i = 0; i <= steps; ++i) {
      const float t = static_cast<float>(i) / static_cast<float>(steps);
      const int x = static_cast<int>(a.X + t * dx), y = static_cast<int>(a.Y + t * dy);
      if (x < 0 || y < 0 || x >= width || y >= height) continue;
      const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
      if (a.Depth + t * (b.Depth - a.Depth) < m_depth[at] - kBias) continue;
      QRgb& pixel = reinterpret_cast<QRgb*>(image.scanLine(y))[x];
      pixel = qRgb(qRed(pixel) * 3 / 4, qGreen(pixel) * 3 / 4, qBlue(pixel) * 3 / 4);
    }
  };
  if (!mesh.Lines.empty()) {
    for (const auto& line : mesh.Lines) edge(m_vertices[line[0]], m_vertices[line[1]]);
    return;
  }
  for (const auto& t : mesh.Triangles) {
    edge(m_vertices[t[0]], m_vertices[t[1]]);
    edge(m_vertices[t[1]], m_vertices[t[2]]);
  }
}

void SurfaceRenderer::Render(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QImage& image,
                             const Options& options) {
  if (image.format() != QImage::Format_RGB32 && image.format() != QImage::Format_ARGB32) {
    image = image.convertToFormat(QImage::Format_RGB32);
  }
  // The background's pixel as QImage::fill writes it; each band fills its own rows.
  QImage one(1, 1, image.format());
  one.fill(options.Background);
  const QRgb background = *reinterpret_cast<const QRgb*>(one.constScanLine(0));  // as stored, alpha and all
  const int width = image.width(), rows = image.height(), bandRows = std::max(1, options.BandRows);
  m_depth.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(rows));
  Shade(mesh, box, camera, image.size());
  SortIntoBands(mesh, rows, bandRows);
  uchar* bits = image.bits();  // detached once, here, before the threads write
  const qsizetype stride = image.bytesPerLine();
  render::ParallelFor(m_bandStart.size() - 1, [&](std::size_t b) {
    const int first = static_cast<int>(b) * bandRows, last = std::min(rows, first + bandRows) - 1;
    for (int y = first; y <= last; ++y) {
      auto* line = reinterpret_cast<QRgb*>(bits + static_cast<qsizetype>(y) * stride);
      std::fill(line, line + width, background);
    }
    std::fill(m_depth.begin() + static_cast<std::ptrdiff_t>(first) * width,
              m_depth.begin() + static_cast<std::ptrdiff_t>(last + 1) * width, -std::numeric_limits<float>::infinity());
    const Band band{bits, stride, width, first, last};
    for (std::uint32_t n = m_bandStart[b]; n < m_bandStart[b + 1]; ++n) {
      const auto& t = mesh.Triangles[m_banded[n]];
      Fill(m_vertices[t[0]], m_vertices[t[1]], m_vertices[t[2]], band);
    }
  });
  if (options.MeshLines) DrawMeshLines(mesh, image);
  if (options.Box) DrawBox(box, camera, image, options);
}

}  // namespace plot3d
