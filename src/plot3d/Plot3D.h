#pragma once

#include "Camera.h"
#include "GridMesher.h"
#include "Mesh.h"
#include "SurfaceRenderer.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>

namespace plot3d {

// The surface plot without a screen: the surface's text and kind, the box and parameter ranges,
// the grid, the zoom and the view. Redraw compiles and meshes the surface and renders it; Refresh
// renders the kept mesh again (after a turn, a zoom or a resize). A text that cannot be drawn
// leaves an empty box and says why in Problem.
class Plot3D {
public:
  QString Equation() const { return m_equation; }
  void SetEquation(const QString& text) { m_equation = text; }
  // 1 z=, 2 y=, 3 x=, 4 implicit, 5 spherical, 6 parametric.
  std::int32_t FunctionKind() const { return m_kind; }
  void SetFunctionKind(std::int32_t kind) { m_kind = kind; }
  // 1 to 6: 50, 75, 100, 125, 150 or 200 steps per side.
  std::int32_t GridCount() const { return m_gridCount; }
  void SetGridCount(std::int32_t count) { m_gridCount = count; }
  // 0.25 to 3; values outside are brought inside.
  double Zoom() const { return m_camera.Zoom; }
  void SetZoom(double zoom);
  // One step nearer or farther, as the keyboard's zoom keys take it: a quarter more or less, to two
  // decimals, within the bounds.
  void ZoomIn();
  void ZoomOut();
  // The edges of the mesh drawn over the shaded surface.
  bool ShowMeshLines() const { return m_meshLines; }
  void SetShowMeshLines(bool on) { m_meshLines = on; }
  // On a screen in the dark look: a dark back with a light box and numbers. Saved pictures keep
  // the light ones.
  void SetDarkDefaults(bool dark) { m_darkDefaults = dark; }
  bool DarkDefaults() const { return m_darkDefaults; }
  QColor Background() const;

  double XMin() const { return m_ranges.XMin; }
  double XMax() const { return m_ranges.XMax; }
  double YMin() const { return m_ranges.YMin; }
  double YMax() const { return m_ranges.YMax; }
  double ZMin() const { return m_ranges.ZMin; }
  double ZMax() const { return m_ranges.ZMax; }
  double ThetaMin() const { return m_ranges.ThetaMin; }
  double ThetaMax() const { return m_ranges.ThetaMax; }
  double PhiMin() const { return m_ranges.PhiMin; }
  double PhiMax() const { return m_ranges.PhiMax; }
  double UMin() const { return m_ranges.UMin; }
  double UMax() const { return m_ranges.UMax; }
  double VMin() const { return m_ranges.VMin; }
  double VMax() const { return m_ranges.VMax; }
  void SetXMin(double v) { m_ranges.XMin = v; }
  void SetXMax(double v) { m_ranges.XMax = v; }
  void SetYMin(double v) { m_ranges.YMin = v; }
  void SetYMax(double v) { m_ranges.YMax = v; }
  void SetZMin(double v) { m_ranges.ZMin = v; }
  void SetZMax(double v) { m_ranges.ZMax = v; }
  void SetThetaMin(double v) { m_ranges.ThetaMin = v; }
  void SetThetaMax(double v) { m_ranges.ThetaMax = v; }
  void SetPhiMin(double v) { m_ranges.PhiMin = v; }
  void SetPhiMax(double v) { m_ranges.PhiMax = v; }
  void SetUMin(double v) { m_ranges.UMin = v; }
  void SetUMax(double v) { m_ranges.UMax = v; }
  void SetVMin(double v) { m_ranges.VMin = v; }
  void SetVMax(double v) { m_ranges.VMax = v; }

  // How the box is seen; a turn changes it and calls Refresh.
  Camera& View() { return m_camera; }
  const Camera& View() const { return m_camera; }
  void SetSize(QSize size) { m_size = size.expandedTo(QSize(1, 1)); }
  QSize Size() const { return m_size; }
  // The screen's device pixels per logical pixel (1 to 8): the picture is drawn at Size times this
  // and marked with it, so that it is sharp on a dense screen. Saved pictures have Size.
  double DevicePixelRatio() const { return m_devicePixelRatio; }
  void SetDevicePixelRatio(double ratio);

  void Prepare3D();
  void Redraw();
  void Refresh();
  // The picture at the plot's size: 1 PNG, 2 JPEG, 3 BMP, 0 by the name's ending.
  void SavePicture(const QString& name, std::int32_t kind);

  QImage Picture() const { return m_picture; }
  const Mesh& Surface() const { return m_mesh; }
  QString Problem() const { return m_problem; }

  // Called with 0 to 100 while a surface is computed, and when it is drawn.
  std::function<void(int)> OnProgress;
  std::function<void()> OnFinished;
  // Asked now and then during Redraw; true stops it, leaving no surface, no picture and no
  // OnFinished: a newer surface is on its way.
  std::function<bool()> Cancelled;

private:
  // Points per side of the implicit grid: finer than the grid kinds', as cubes cost more.
  int ImplicitCells() const;

  QString m_equation;
  std::int32_t m_kind = 1;
  std::int32_t m_gridCount = 1;
  SurfaceRanges m_ranges;
  Camera m_camera;
  QSize m_size{640, 480};
  Mesh m_mesh;
  SurfaceRenderer m_renderer;
  QImage m_picture;
  QString m_problem;
  bool m_prepared = false;
  bool m_meshLines = false;
  bool m_darkDefaults = false;
  double m_devicePixelRatio = 1;
};

}  // namespace plot3d
