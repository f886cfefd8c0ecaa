#include "Plot3D.h"

#include "IsoMesher.h"
#include "SurfaceSource.h"

#include "render/PictureFile.h"

#include <algorithm>
#include <cmath>

namespace plot3d {

void Plot3D::SetZoom(double zoom) { m_camera.Zoom = std::isfinite(zoom) ? std::clamp(zoom, 0.25, 3.0) : 1.0; }

namespace {

constexpr double kZoomStep = 1.25;

// Two decimals, so that the zoom field shows a number a user would type.
double Rounded(double zoom) { return std::round(zoom * 100) / 100; }

}  // namespace

void Plot3D::ZoomIn() { SetZoom(Rounded(Zoom() * kZoomStep)); }
void Plot3D::ZoomOut() { SetZoom(Rounded(Zoom() / kZoomStep)); }

// The renderer's buffers are made once, at the size the plot first has.
void Plot3D::Prepare3D() {
  if (m_prepared) return;
  m_prepared = true;
  Refresh();
}

int Plot3D::ImplicitCells() const { return std::min(2 * GridSteps(m_gridCount), 120); }

void Plot3D::Redraw() {
  if (OnProgress) OnProgress(0);
  const SurfaceSource source = SurfaceSource::Compile(m_equation, m_kind);
  m_problem = source.Error;
  if (!source.Ok()) {
    m_mesh.Clear();
  } else if (source.Kind == SurfaceKind::Implicit) {
    // The mesh's share of the work is most of it: its progress is reported as 0 to 90.
    const std::function<bool(int)> meshed = [this](int percent) {
      if (OnProgress) OnProgress(percent * 9 / 10);
      return !(Cancelled && Cancelled());
    };
    MeshImplicit(source, m_ranges, ImplicitCells(), m_mesh, meshed);
  } else {
    MeshOnGrid(source, m_ranges, GridSteps(m_gridCount), m_mesh);
  }
  m_renderer.MeshChanged();  // a new mesh in the old one's memory
  if (Cancelled && Cancelled()) {
    m_mesh.Clear();
    return;
  }
  if (OnProgress) OnProgress(90);
  Refresh();
  if (OnProgress) OnProgress(100);
  if (OnFinished) OnFinished();
}

void Plot3D::SetDevicePixelRatio(double ratio) {
  m_devicePixelRatio = std::isfinite(ratio) ? std::clamp(ratio, 1.0, 8.0) : 1.0;
}

void Plot3D::Refresh() {
  const QSize device(static_cast<int>(std::lround(m_size.width() * m_devicePixelRatio)),
                     static_cast<int>(std::lround(m_size.height() * m_devicePixelRatio)));
  if (m_picture.size() != device) m_picture = QImage(device, QImage::Format_RGB32);
  SurfaceRenderer::Options options;
  options.MeshLines = m_meshLines;
  options.Background = Background();
  if (m_darkDefaults) options.BoxColor = QColor(0x8a, 0x91, 0x9e), options.NumberColor = QColor(0xd1, 0xd5, 0xdb);
  options.Scale = m_devicePixelRatio;
  m_picture.setDevicePixelRatio(1);  // the renderer works in the picture's own pixels
  m_renderer.Render(m_mesh, m_ranges, m_camera, m_picture, options);
  m_picture.setDevicePixelRatio(m_devicePixelRatio);
}

// At the plot's size, whatever screen it is shown on.
QColor Plot3D::Background() const { return m_darkDefaults ? QColor(0x1a, 0x1d, 0x22) : QColor(Qt::white); }

void Plot3D::SavePicture(const QString& name, std::int32_t kind) {
  if (m_devicePixelRatio == 1 && !m_darkDefaults) {
    if (m_picture.size() != m_size) Refresh();
    return render::WritePicture(m_picture, name, kind);
  }
  Plot3D flat = *this;
  flat.SetDevicePixelRatio(1);
  flat.SetDarkDefaults(false);
  flat.Refresh();
  QImage picture = flat.Picture();
  picture.setDevicePixelRatio(1);
  render::WritePicture(picture, name, kind);
}

}  // namespace plot3d
