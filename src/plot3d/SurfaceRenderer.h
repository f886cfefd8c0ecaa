#pragma once

#include "Camera.h"
#include "GridMesher.h"
#include "Mesh.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>
#include <QPainter>

#include <optional>
#include <vector>

namespace plot3d {

// Draws a mesh into a picture in software: a z-buffer rasteriser that shades each triangle
// smoothly from its corners, coloured by height (blue lowest to red highest) and lit by a light over
// the viewer's shoulder, both sides of the surface alike. Then the edges of the box, with the
// numbers of each axis along the edge nearest the viewer.
class SurfaceRenderer {
public:
  // An axis number or name as the picture shows it: its text and the rectangle it fills.
  struct AxisLabel {
    QString Text;
    QRectF Rect;
    bool Name = false;
  };
  // The numbers and names of the box's axes for a picture of size, in font: the names kept
  // inside the picture, the numbers where their point of the edge is in view, none over another.
  // scale is the picture's pixels per pixel of the screen: spacing and margins grow with it.
  static std::vector<AxisLabel> AxisLabels(const SurfaceRanges& box, const Camera& camera, QSize size, const QFont& font,
                                           double scale = 1);
  // The face of the axis numbers for a picture of size: a fixed share of the picture, within
  // bounds, in the picture's pixels.
  static QFont AxisFont(const QFont& base, QSize size, double scale = 1);

  struct Options {
    QColor Background = Qt::white;
    bool MeshLines = false;
    bool Box = true;
    // The picture's pixels per pixel of the screen (the device pixel ratio): lines, numbers and
    // their spacing keep their size on the screen, and stay sharp on a dense one.
    double Scale = 1;
    // The surface is filled in bands of this many rows, shared among the cores, each band with
    // the triangles that reach it: its depths and pixels stay in the core's cache. The picture
    // is the same for any height.
    int BandRows = 64;
    // The box's edges and its numbers: grey on the light back, lighter on a dark one.
    QColor BoxColor = QColor(90, 90, 90);
    QColor NumberColor = QColor(60, 60, 60);
  };

  // Render keeps what a picture of a mesh needs that does not depend on the camera (its points
  // in the cube, their colours) for the next picture of the same mesh, as a turn draws it. A mesh
  // changed in place, in the same memory, between two pictures must be announced by MeshChanged.
  void Render(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QImage& image, const Options& options);
  void Render(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QImage& image) {
    Render(mesh, box, camera, image, Options{});
  }

  // The colour for a height, 0 the surface's lowest and 1 its highest.
  static QRgb HeightColor(double level);

  void MeshChanged() { m_prepared.reset(); }

private:
  struct ScreenVertex {
    float X, Y, Depth;
    float R, G, B;
  };
  // The mesh whose points and colours are kept, as far as can be told without looking at them.
  struct Prepared {
    const Mesh* Of;
    const Vec3* Positions;
    std::size_t Count;
    SurfaceRanges Box;
    friend bool operator==(const Prepared&, const Prepared&) = default;
  };
  void Prepare(const Mesh& mesh, const SurfaceRanges& box);
  void Shade(const Mesh& mesh, const SurfaceRanges& box, const Camera& camera, QSize size);
  // Sorts the triangles into the bands of rows they reach, each band's in the mesh's order.
  void SortIntoBands(const Mesh& mesh, int rows, int bandRows);
  // The rows first to last of the picture (pixels from bits, lines of stride bytes) that a
  // thread fills, with the depth buffer's rows beside them.
  struct Band {
    uchar* bits;
    qsizetype stride;
    int width;
    int first;
    int last;
  };
  // The corners by value: the compiler then knows that the pixels written are not among them.
  void Fill(ScreenVertex a, ScreenVertex b, ScreenVertex c, const Band& band);
  void DrawBox(const SurfaceRanges& box, const Camera& camera, QImage& image, const Options& options) const;
  void DrawNumbers(QPainter& painter, const SurfaceRanges& box, const Camera& camera, QSize size, double scale) const;
  void DrawMeshLines(const Mesh& mesh, QImage& image) const;

  std::vector<ScreenVertex> m_vertices;  // kept between pictures, as the depths are
  std::vector<float> m_depth;
  std::optional<Prepared> m_prepared;
  std::vector<Vec3> m_cube;      // the mesh's points in the cube [-1, 1]^3
  std::vector<QRgb> m_colours;   // their colours by height
  std::vector<std::array<std::uint32_t, 2>> m_reach;  // the bands each triangle reaches, first to last + 1
  std::vector<std::uint32_t> m_bandStart;  // where each band's triangles begin in m_banded
  std::vector<std::uint32_t> m_banded;     // the numbers of the triangles, band after band
};

}  // namespace plot3d
