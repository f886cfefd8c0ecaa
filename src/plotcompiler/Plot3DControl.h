#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace plotcompiler {

// What the replot driver asks of a 3D plot on the 3D tab: the surface's text and kind, the mesh,
// the zoom and the parameter ranges, then a redraw.
class Plot3DControl {
public:
  virtual ~Plot3DControl() = default;
  virtual void SetEquation(const QString& text) = 0;
  virtual void SetFunctionKind(std::int32_t kind) = 0;
  virtual void SetGridCount(std::int32_t count) = 0;
  virtual void SetZoom(double zoom) = 0;
  virtual void SetThetaMin(double value) = 0;
  virtual void SetThetaMax(double value) = 0;
  virtual void SetPhiMin(double value) = 0;
  virtual void SetPhiMax(double value) = 0;
  virtual void SetUMin(double value) = 0;
  virtual void SetUMax(double value) = 0;
  virtual void SetVMin(double value) = 0;
  virtual void SetVMax(double value) = 0;
  virtual void Redraw() = 0;
};

// A Plot3DControl over any scene with the 3D plot's members (plot3d::Plot3D); Redraw is the
// caller's, so that a widget computes the surface away from the window's thread.
template <typename Scene>
class ScenePlot3DControl : public Plot3DControl {
public:
  ScenePlot3DControl(Scene& scene, std::function<void()> redraw) : m_scene(scene), m_redraw(std::move(redraw)) {}

  void SetEquation(const QString& text) override { m_scene.SetEquation(text); }
  void SetFunctionKind(std::int32_t kind) override { m_scene.SetFunctionKind(kind); }
  void SetGridCount(std::int32_t count) override { m_scene.SetGridCount(count); }
  void SetZoom(double zoom) override { m_scene.SetZoom(zoom); }
  void SetThetaMin(double value) override { m_scene.SetThetaMin(value); }
  void SetThetaMax(double value) override { m_scene.SetThetaMax(value); }
  void SetPhiMin(double value) override { m_scene.SetPhiMin(value); }
  void SetPhiMax(double value) override { m_scene.SetPhiMax(value); }
  void SetUMin(double value) override { m_scene.SetUMin(value); }
  void SetUMax(double value) override { m_scene.SetUMax(value); }
  void SetVMin(double value) override { m_scene.SetVMin(value); }
  void SetVMax(double value) override { m_scene.SetVMax(value); }
  void Redraw() override {
    if (m_redraw) m_redraw();
    else m_scene.Redraw();
  }

private:
  Scene& m_scene;
  std::function<void()> m_redraw;
};

}  // namespace plotcompiler
