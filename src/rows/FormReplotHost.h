#pragma once

#include "plotcompiler/ReplotHost.h"

#include <functional>

namespace rows {

class frmMain;

// The main form as the replot driver reads it: its rows, tabs, ribbon checks, integral bounds
// and status pane.
class FormReplotHost : public plotcompiler::ReplotHost {
public:
  explicit FormReplotHost(frmMain& form) : m_form(form) {}

  int RowCount() const override;
  QString RowText(int row) const override;
  std::int32_t RowColor(int row) const override;
  bool RowNoteVisible(int row) const override;
  QString RowAttributes(int row) const override;
  void SetRowProblem(int row, const QString& why) override;
  int SelectedTab() const override;
  bool RibbonChecked(std::int32_t id) const override;
  QString IntegralMinText() const override;
  QString IntegralMaxText() const override;
  void SetStatusText(const QString& text) override;
  void SetInputEnabled(bool enabled) override;
  void ShowFullScreen() override;
  QString InequalityText(int side) const override;
  QString InequalityRelation(int side) const override;
  std::int32_t InequalityLineColor() const override;
  std::int32_t InequalityFillColor() const override;
  bool InequalityTwoSides() const override;
  QString ParametricX() const override;
  QString ParametricY() const override;
  QString ParametricMin() const override;
  QString ParametricMax() const override;
  QString ParametricType() const override;
  std::int32_t ParametricColor() const override;
  int Selected3DTab() const override;
  QString Text3D(const QString& name) const override;
  int GridIndex() const override;
  QString ZoomText() const override;

  // What "enterfullscreen" opens.
  std::function<void()> OnFullScreen;

private:
  frmMain& m_form;
};

}  // namespace rows
