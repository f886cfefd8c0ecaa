#pragma once

#include "ChainCheck.h"
#include "ChainRule.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace plot2d {
class PlotWidget;
}

namespace chain {

// The Chain Bench: an outer function f and an inner function g, and the chain rule worked out step
// by step, each step as text, typeset and graphed in a colour of its own, with the product checked
// against a numeric derivative of the composition.
class ChainWindow : public QWidget {
  Q_OBJECT

public:
  explicit ChainWindow(QWidget* parent = nullptr);

  const ChainRule& Rule() const { return m_rule; }
  const ChainCheck::Result& Check() const { return m_check; }
  plot2d::PlotWidget* Plot() const { return m_plot; }
  // The plot's colour of a step, red in the low byte.
  static double StepColor(int step);
  // The object names of a step's widgets end in this key ("chkComposition", "lblTextProduct").
  static QString StepKey(int step);

protected:
  void showEvent(QShowEvent* event) override;

private:
  struct StepWidgets {
    QCheckBox* Show = nullptr;
    QLabel* Typeset = nullptr;
    QLabel* Text = nullptr;
  };

  QWidget* BuildPanel();
  QWidget* BuildFunctionsGroup();
  QWidget* BuildStepsGroup();
  void SetTabOrder();
  void Recompute();
  void ShowSteps();
  void ShowTypeset(int step);
  void Replot();

  ChainRule m_rule;
  ChainCheck::Result m_check;
  QLineEdit* m_edtF = nullptr;
  QLineEdit* m_edtG = nullptr;
  std::array<StepWidgets, ChainRule::kStepCount> m_steps;
  QLabel* m_lblDirect = nullptr;
  QLabel* m_lblCheck = nullptr;
  QLabel* m_lblMessage = nullptr;
  plot2d::PlotWidget* m_plot = nullptr;
};

}  // namespace chain
