#pragma once

#include "FunctionList.h"
#include "InequalityPage.h"
#include "ParametricPage.h"
#include "SurfacePage.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "platform/ColorChooser.h"
#include "platform/MessageBoxes.h"

#include <QLineEdit>
#include <QTabWidget>

#include <vector>

namespace rows {

class FieldGuard;

// tabInput: the function rows, the inequality, the parametric curve and the 3D surface, one page
// each, and under the rows the bounds of the area between marked rows. The selected page decides
// what is drawn.
class InputTabs : public QTabWidget {
  Q_OBJECT

public:
  InputTabs(core::SharedState& state, expression::ScriptEvaluation& evaluation, platform::MessageBoxes& boxes,
            platform::ColorChooser& chooser, QWidget* parent = nullptr);

  FunctionList& Functions() { return *m_functions; }
  InequalityPage& Inequality() { return *m_inequality; }
  ParametricPage& Parametric() { return *m_parametric; }
  SurfacePage& Surface() { return *m_surface; }
  QLineEdit* mnu_Integral_min() const { return m_integralMin; }
  QLineEdit* mnu_Integral_max() const { return m_integralMax; }

  // Whether every bound and range field can be read; while one cannot, the plot is not drawn
  // anew by itself.
  bool FieldsReadable() const;

  // The editors of the page now selected take the form's blue (16711680).
  void Refresh_mth_Backcolor();

signals:
  void ReplotRequested(bool with3D);
  void Changed();
  // A click on an editor of a page: the insert dialog for it (InsertSource and InsertIndex set).
  void InsertRequested();
  void ZoomApplied(const QString& text);

private:
  void BuildIntegralRange();
  void GuardRangeFields();
  void Insert(std::int16_t source, double index);

  core::SharedState& m_state;
  expression::ScriptEvaluation& m_evaluation;
  FunctionList* m_functions;
  InequalityPage* m_inequality;
  ParametricPage* m_parametric;
  SurfacePage* m_surface;
  QLineEdit* m_integralMin = nullptr;
  QLineEdit* m_integralMax = nullptr;
  std::vector<FieldGuard*> m_guards;
};

}  // namespace rows
