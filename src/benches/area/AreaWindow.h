#pragma once

#include "AreaFunction.h"
#include "OrderStudy.h"
#include "RiemannRules.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QSlider;
class QSpinBox;

namespace area {

class AreaPlot;
class ErrorPlot;

// The bench's window: f, [a, b], the rule and n; the pieces of the sum over the curve; the sum,
// the integral and the error; and how the error of every rule falls with n.
class AreaWindow : public QWidget {
  Q_OBJECT

public:
  explicit AreaWindow(QWidget* parent = nullptr);
  ~AreaWindow() override;

  QLineEdit* FunctionField() const { return m_function; }
  QLineEdit* FromField() const { return m_from; }
  QLineEdit* ToField() const { return m_to; }
  QComboBox* RuleBox() const { return m_rule; }
  QSlider* CountSlider() const { return m_countSlider; }
  QSpinBox* CountBox() const { return m_countBox; }
  QLabel* Message() const { return m_message; }
  QLabel* SumText() const { return m_sumText; }
  QLabel* IntegralText() const { return m_integralText; }
  QLabel* ErrorText() const { return m_errorText; }
  QLabel* OrderNote() const { return m_orderNote; }
  AreaPlot* Plot() const { return m_plot; }
  ErrorPlot* Errors() const { return m_errors; }

  // The numbers now shown; nothing while the inputs have a problem.
  std::optional<double> Sum() const { return m_sum; }
  std::optional<double> Integral() const { return m_integral; }

  // Reads f, a and b again and redraws everything.
  void ApplyInputs();

private:
  QWidget* BuildInputs();
  QWidget* BuildResults();
  QWidget* BuildErrorColumn();
  std::optional<double> ReadBound(QLineEdit* field, const QString& name, QString& problem);
  void ShowSum();
  void ExplainOrders(const OrderStudy& study);
  void Fail(const QString& problem);
  void Say(const QString& text, bool problem);
  Rule CurrentRule() const;

  core::SharedState m_state;
  script::ScriptControl m_engine;
  expression::ScriptEvaluation m_evaluation;

  QLineEdit* m_function = nullptr;
  QLineEdit* m_from = nullptr;
  QLineEdit* m_to = nullptr;
  QComboBox* m_rule = nullptr;
  QSlider* m_countSlider = nullptr;
  QSpinBox* m_countBox = nullptr;
  QLabel* m_message = nullptr;
  QLabel* m_sumText = nullptr;
  QLabel* m_integralText = nullptr;
  QLabel* m_errorText = nullptr;
  QLabel* m_orderNote = nullptr;
  QLabel* m_legend = nullptr;
  AreaPlot* m_plot = nullptr;
  ErrorPlot* m_errors = nullptr;

  AreaFunction m_f;
  double m_a = 0, m_b = 1;
  std::optional<double> m_sum;
  std::optional<double> m_integral;
};

}  // namespace area
