#pragma once

#include "CurveAnalysis.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace plot2d {
class PlotWidget;
}

namespace probe {

// The probe's window: the function and its range and step above; the plot of the curve with its
// asymptotes and points on the left; the findings and the table of values on the right. A click
// on a finding marks it on the plot in red; Ctrl+C on the table or Copy copies the table as
// tab-separated text.
class ProbeWindow : public QWidget {
  Q_OBJECT

public:
  explicit ProbeWindow(QWidget* parent = nullptr);

  // Reads the fields and examines the function, as the Probe button does.
  void Probe();
  // Marks the finding of that row on the plot (-1: none).
  void Mark(int row);

  QLineEdit* FunctionField() const { return m_function; }
  QLineEdit* FromField() const { return m_from; }
  QLineEdit* ToField() const { return m_to; }
  QLineEdit* StepField() const { return m_step; }
  QLabel* Message() const { return m_message; }
  QListWidget* Findings() const { return m_findings; }
  QTableWidget* Table() const { return m_table; }
  QPushButton* CopyButton() const { return m_copy; }
  plot2d::PlotWidget* Plot() const { return m_plot; }
  const std::vector<ProbeItem>& Items() const { return m_items; }
  // The text the Copy button copies.
  QString TableText() const { return m_tableText; }

  std::function<void(const QString&)> CopyText;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* BuildFields();
  QWidget* BuildSide();
  std::optional<double> ReadNumber(QLineEdit* field, const QString& name);
  void Fail(const QString& text);
  void ShowTable(const std::vector<TableRow>& rows);
  void DrawScene(int marked);
  void FitRange(const CurveAnalysis& analysis);
  void AddNotablePoints();

  core::SharedState m_state;
  script::ScriptControl m_engine;
  std::unique_ptr<expression::ScriptEvaluation> m_evaluation;
  std::optional<CurveFunction> m_curve;
  std::vector<ProbeItem> m_items;
  QString m_tableText;
  double m_xMin = -10, m_xMax = 10;

  QLineEdit* m_function = nullptr;
  QLineEdit* m_from = nullptr;
  QLineEdit* m_to = nullptr;
  QLineEdit* m_step = nullptr;
  QPushButton* m_probe = nullptr;
  QLabel* m_message = nullptr;
  plot2d::PlotWidget* m_plot = nullptr;
  QListWidget* m_findings = nullptr;
  QTableWidget* m_table = nullptr;
  QPushButton* m_copy = nullptr;
};

}  // namespace probe
