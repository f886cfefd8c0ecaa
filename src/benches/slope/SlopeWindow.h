#pragma once

#include "SlopeFunction.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <QPointF>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;

namespace plot2d {
class PlotWidget;
}

namespace slope {

// The Slope Bench: a function, a point x0 on it and a step h. The secant through x0 and x0+h
// turns into the tangent as h slides to 0; the tangent's slope comes from the program's symbolic
// derivative, and moving x0 traces the derivative's graph point by point.
class SlopeWindow : public QWidget {
  Q_OBJECT

public:
  explicit SlopeWindow(QWidget* parent = nullptr);

  // The slider's ends: h from 2 down to 1e-6, spaced evenly on a logarithmic scale.
  static constexpr int kSliderSteps = 1000;
  static double HOfSlider(int position);
  static int SliderOf(double h);

  double X0() const { return m_x0; }
  double H() const { return m_h; }
  const SlopeFunction& Function() const { return m_function; }
  // The traced points (x0, f'(x0)), in the order they were visited.
  const std::vector<QPointF>& Trace() const { return m_trace; }
  // Visits x0 from "from" to "to" in even steps, tracing the derivative as a drag would.
  void Sweep(double from, double to, int steps);
  plot2d::PlotWidget* Plot() const { return m_plot; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void BuildControls();
  QWidget* BuildFunctionGroup();
  QWidget* BuildPointGroup();
  QWidget* BuildStepGroup();
  QWidget* BuildSlopesGroup();
  void SetTabOrder();
  void FunctionEdited();
  void X0Edited();
  void HEdited();
  void SliderMoved(int position);
  void ToggleAnimation();
  void AnimationStep();
  void StopAnimation();
  void ClearTrace();
  void StepX0(double by);
  void MoveX0(double x0, bool writeField);
  void AddTracePoint();
  std::optional<double> ReadNumber(const QString& text, const QString& name, QString& problem);
  bool DragStarts(QPointF pixel) const;
  double DataX(QPointF pixel) const;
  void Refresh();
  void ShowNumbers();
  void Replot();
  void ShowMessage();

  core::SharedState m_state;
  script::ScriptControl m_engine;
  expression::ScriptEvaluation m_evaluation;
  SlopeFunction m_function;
  double m_x0 = 1;
  double m_h = 0.5;
  QString m_x0Problem;
  QString m_hProblem;
  std::vector<QPointF> m_trace;
  bool m_dragging = false;
  QTimer m_animation;

  QLineEdit* m_edtFunction = nullptr;
  QLineEdit* m_edtX0 = nullptr;
  QPushButton* m_btnLeft = nullptr;
  QPushButton* m_btnRight = nullptr;
  QSlider* m_sldH = nullptr;
  QLineEdit* m_edtH = nullptr;
  QPushButton* m_btnAnimate = nullptr;
  QLabel* m_lblDerivative = nullptr;
  QLabel* m_lblSecant = nullptr;
  QLabel* m_lblTangent = nullptr;
  QLabel* m_lblGap = nullptr;
  QLabel* m_lblTrace = nullptr;
  QPushButton* m_btnClearTrace = nullptr;
  QLabel* m_lblMessage = nullptr;
  plot2d::PlotWidget* m_plot = nullptr;
};

}  // namespace slope
