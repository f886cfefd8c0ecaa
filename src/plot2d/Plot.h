#pragma once

#include "Drawing.h"
#include "FunctionItem.h"
#include "IntegralItem.h"
#include "InequalityItem.h"
#include "ParametricItem.h"
#include "PlotPainter.h"

#include <QImage>
#include <QPainter>
#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace plot2d {

// The 2D plot as a headless scene: its range and display options, the items added since
// ClearAll, and the drawing that Redraw samples from them for the current range and size. The
// widget, saved pictures, the full-screen form and the export page all paint this scene.
class Plot {
public:
  Plot();

  // Operations.
  void ClearAll(bool a = true, bool b = true, bool c = true, bool d = true, bool e = true);
  void AddFunction(std::int16_t index, const QString& line, double color, bool option2, std::int32_t& kind,
                   bool option0, bool option3, bool hasLineStyle, std::int32_t lineStyle);
  void AddPoint(std::int16_t number, double& a, double& b, std::int32_t form, double color, bool option3);
  void AddIntegral(const QString& functionA, double min, double max, double color, bool& hasSecond,
                   QString& functionB);
  void AddInequality(const QString& first, double lineColor, double fillColor, bool hasSecond, const QString& second);
  void AddParametric(const QString& x, const QString& y, double min, double max, std::int32_t type, double color);
  void Redraw();
  void SetDefaultRange(double xMin, double xMax, double yMin, double yMax);
  void ResetRange();
  void ZoomIn();
  void ZoomOut();
  // The derivative of a row's text (see mathlang::Derivative); raises core::RuntimeError where
  // there is none.
  QString Derivative(const QString& text) const;
  // Kind 1 PNG (with alpha when the background is transparent), 2 JPEG, 3 BMP, 0 by the name's
  // ending, else PNG. Raises core::RuntimeError with the system's description on failure.
  void SavePicture(const QString& name, std::int32_t kind);

  // Painting. The scene has a size in logical pixels; at a device pixel ratio above 1 (a
  // high-density screen) it is sampled and painted in device pixels, size times ratio.
  QSize Size() const { return m_size; }
  void SetSize(QSize size) { m_size = size; }
  double DevicePixelRatio() const { return m_devicePixelRatio; }
  void SetDevicePixelRatio(double ratio);
  // Paints in device pixels, for a painter on a surface of DeviceSize().
  void Paint(QPainter& painter) const;
  QSize DeviceSize() const;
  // The picture in device pixels, marked with the device pixel ratio.
  QImage Picture(QImage::Format format = QImage::Format_ARGB32_Premultiplied) const;
  // The same picture drawn into image, whose memory is used again when it has the size and
  // format already and is not shared: a widget redrawing many times a second keeps one.
  void DrawPicture(QImage& image, QImage::Format format = QImage::Format_ARGB32_Premultiplied) const;

  // What could not be drawn since ClearAll, one line each: "row 2: unknown name \"z\"".
  QStringList Problems() const { return m_problems; }
  const Drawing& LastDrawing() const { return m_drawing; }
  // The range mapped onto device pixels, as the last drawing was made.
  ViewTransform View() const;

  // Called during Redraw with 0 to 100, and when it has finished.
  std::function<void(int)> OnProgress;
  std::function<void()> OnFinished;

  // Properties.
  bool ShowIntegral() const { return m_style.ShowIntegral; }
  void SetShowIntegral(bool v) { m_style.ShowIntegral = v; }
  std::int32_t IntegralMode() const { return m_integralMode; }
  void SetIntegralMode(std::int32_t v) { m_integralMode = v; }
  bool ShowAxis() const { return m_style.ShowAxis; }
  void SetShowAxis(bool v) { m_style.ShowAxis = v; }
  bool ShowGrid() const { return m_style.ShowGrid; }
  void SetShowGrid(bool v) { m_style.ShowGrid = v; }
  bool ShowNumbers() const { return m_style.ShowNumbers; }
  void SetShowNumbers(bool v) { m_style.ShowNumbers = v; }
  bool ShowOuterFrame() const { return m_style.ShowOuterFrame; }
  void SetShowOuterFrame(bool v) { m_style.ShowOuterFrame = v; }
  bool ShowTips() const { return m_showTips; }
  void SetShowTips(bool v) { m_showTips = v; }
  bool TransparentBackground() const { return m_style.TransparentBackground; }
  void SetTransparentBackground(bool v) { m_style.TransparentBackground = v; }
  bool ShowMouseCoordinate() const { return m_showMouseCoordinate; }
  void SetShowMouseCoordinate(bool v) { m_showMouseCoordinate = v; }
  double Quality() const { return m_quality; }
  void SetQuality(double v) { m_quality = v; }
  double Thickness() const { return m_style.Thickness; }
  void SetThickness(double v) { m_style.Thickness = v; }
  double XMin() const { return m_xMin; }
  void SetXMin(double v) { m_xMin = v; }
  double XMax() const { return m_xMax; }
  void SetXMax(double v) { m_xMax = v; }
  double YMin() const { return m_yMin; }
  void SetYMin(double v) { m_yMin = v; }
  double YMax() const { return m_yMax; }
  void SetYMax(double v) { m_yMax = v; }
  double DefaultXMin() const { return m_defaultXMin; }
  void SetDefaultXMin(double v) { m_defaultXMin = v; }
  double DefaultXMax() const { return m_defaultXMax; }
  void SetDefaultXMax(double v) { m_defaultXMax = v; }
  double DefaultYMin() const { return m_defaultYMin; }
  void SetDefaultYMin(double v) { m_defaultYMin = v; }
  double DefaultYMax() const { return m_defaultYMax; }
  void SetDefaultYMax(double v) { m_defaultYMax = v; }
  double AxisColor() const { return m_axisColor; }
  void SetAxisColor(double v) { m_axisColor = v; }
  double BackColor() const { return m_backColor; }
  void SetBackColor(double v) { m_backColor = v; }
  // On a screen in the dark look: the default white back shows dark and the axes, grid and
  // numbers are lightened to read on it. The colours themselves, the project file and saved
  // pictures keep what the user chose.
  void SetDarkDefaults(bool dark) { m_darkDefaults = dark; }
  bool DarkDefaults() const { return m_darkDefaults; }
  QColor ShownBack() const;
  QColor ShownAxis() const;
  bool Interactive() const { return m_interactive; }
  void SetInteractive(bool v) { m_interactive = v; }
  std::int32_t ZoomType() const { return m_zoomType; }
  void SetZoomType(std::int32_t v) { m_zoomType = v; }
  // One unit as long on the x axis as on the y axis: each Redraw widens the range that needs it,
  // about its middle, so that a circle is round.
  bool EqualScales() const { return m_equalScales; }
  void SetEqualScales(bool v) { m_equalScales = v; }
  // Widens the range now, for the current size.
  void MakeScalesEqual();
  // Whether the range is the default one, as a reset would draw it at the current size.
  bool AtDefaultRange() const;

  // A colour value (red in the low byte) as a colour.
  static QColor ColorOf(double value);
  // What the painter draws with at a device pixel ratio: colours, options, pen widths. Writers of
  // other formats (vector pictures) draw with it too.
  PlotStyle StyleAt(double ratio) const;

private:
  PlotStyle Style() const;
  int QualityPercent() const;
  void Remember(int row, const QString& what, const QString& problem);

  std::vector<FunctionItem> m_functions;
  std::vector<Drawing::Dot> m_points;
  std::vector<IntegralItem> m_integrals;
  std::vector<InequalityItem> m_inequalities;
  std::vector<ParametricItem> m_parametrics;
  QStringList m_problems;
  Drawing m_drawing;

  QSize m_size{800, 600};
  double m_devicePixelRatio = 1;
  PlotStyle m_style;
  std::int32_t m_integralMode = 0;
  bool m_showTips = true;
  bool m_showMouseCoordinate = false;
  double m_quality = 100;
  double m_xMin = -10, m_xMax = 10, m_yMin = -10, m_yMax = 10;
  double m_defaultXMin = -10, m_defaultXMax = 10, m_defaultYMin = -10, m_defaultYMax = 10;
  double m_axisColor = 0;
  double m_backColor = 16777215;
  bool m_darkDefaults = false;
  bool m_interactive = true;
  std::int32_t m_zoomType = 3;
  bool m_equalScales = false;
};

}  // namespace plot2d
