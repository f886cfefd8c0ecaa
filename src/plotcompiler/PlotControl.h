#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace plotcompiler {

// What the replot driver and the display commands ask of a 2D plot: the operations and the
// display properties they set. The main form, full screen and the export page each hand over
// their own plot; tests hand over a recorder.
class PlotControl {
public:
  virtual ~PlotControl() = default;

  virtual void ClearAll(bool a, bool b, bool c, bool d, bool e) = 0;
  virtual void AddFunction(std::int16_t index, const QString& line, double color, bool option2, std::int32_t& kind,
                           bool option0, bool option3, bool hasLineStyle, std::int32_t lineStyle) = 0;
  virtual void AddPoint(std::int16_t number, double& a, double& b, std::int32_t form, double color, bool option3) = 0;
  virtual void AddIntegral(const QString& functionA, double min, double max, double color, bool& hasSecond,
                           QString& functionB) = 0;
  virtual void AddInequality(const QString& first, double lineColor, double fillColor, bool hasSecond,
                             const QString& second) = 0;
  virtual void AddParametric(const QString& x, const QString& y, double min, double max, std::int32_t type,
                             double color) = 0;
  virtual void Redraw() = 0;

  virtual void SetShowIntegral(bool value) = 0;
  virtual void SetIntegralMode(std::int32_t value) = 0;
  virtual void SetShowAxis(bool value) = 0;
  virtual void SetShowGrid(bool value) = 0;
  virtual void SetShowNumbers(bool value) = 0;
  virtual void SetShowOuterFrame(bool value) = 0;
  virtual void SetShowTips(bool value) = 0;
  virtual void SetTransparentBackground(bool value) = 0;
};

// A PlotControl over any scene with the plot's members (plot2d::Plot); Redraw is the caller's,
// so that a widget repaints what its scene drew.
template <typename Scene>
class ScenePlotControl : public PlotControl {
public:
  ScenePlotControl(Scene& scene, std::function<void()> redraw) : m_scene(scene), m_redraw(std::move(redraw)) {}

  void ClearAll(bool a, bool b, bool c, bool d, bool e) override { m_scene.ClearAll(a, b, c, d, e); }
  void AddFunction(std::int16_t index, const QString& line, double color, bool option2, std::int32_t& kind,
                   bool option0, bool option3, bool hasLineStyle, std::int32_t lineStyle) override {
    m_scene.AddFunction(index, line, color, option2, kind, option0, option3, hasLineStyle, lineStyle);
  }
  void AddPoint(std::int16_t number, double& a, double& b, std::int32_t form, double color, bool option3) override {
    m_scene.AddPoint(number, a, b, form, color, option3);
  }
  void AddIntegral(const QString& functionA, double min, double max, double color, bool& hasSecond,
                   QString& functionB) override {
    m_scene.AddIntegral(functionA, min, max, color, hasSecond, functionB);
  }
  void AddInequality(const QString& first, double lineColor, double fillColor, bool hasSecond,
                     const QString& second) override {
    m_scene.AddInequality(first, lineColor, fillColor, hasSecond, second);
  }
  void AddParametric(const QString& x, const QString& y, double min, double max, std::int32_t type,
                     double color) override {
    m_scene.AddParametric(x, y, min, max, type, color);
  }
  void Redraw() override {
    if (m_redraw) m_redraw();
    else m_scene.Redraw();
  }
  void SetShowIntegral(bool value) override { m_scene.SetShowIntegral(value); }
  void SetIntegralMode(std::int32_t value) override { m_scene.SetIntegralMode(value); }
  void SetShowAxis(bool value) override { m_scene.SetShowAxis(value); }
  void SetShowGrid(bool value) override { m_scene.SetShowGrid(value); }
  void SetShowNumbers(bool value) override { m_scene.SetShowNumbers(value); }
  void SetShowOuterFrame(bool value) override { m_scene.SetShowOuterFrame(value); }
  void SetShowTips(bool value) override { m_scene.SetShowTips(value); }
  void SetTransparentBackground(bool value) override { m_scene.SetTransparentBackground(value); }

private:
  Scene& m_scene;
  std::function<void()> m_redraw;
};

}  // namespace plotcompiler
