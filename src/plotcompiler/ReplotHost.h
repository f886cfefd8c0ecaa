#pragma once

#include <QString>

#include <cstdint>

namespace plotcompiler {

// What the replot driver reads of the main form and writes back to it: the function rows (their
// widgets hold their state), the selected input tab, the ribbon's display checks, the integral
// bounds, the status pane and the tab strip.
class ReplotHost {
public:
  virtual ~ReplotHost() = default;

  // Rows 0 to RowCount() - 1.
  virtual int RowCount() const = 0;
  virtual QString RowText(int row) const = 0;
  // Red in the low byte.
  virtual std::int32_t RowColor(int row) const = 0;
  virtual bool RowNoteVisible(int row) const = 0;
  // The attribute list, "False,False,False,True,True,0" for a new row.
  virtual QString RowAttributes(int row) const = 0;
  // Why a row draws nothing, in words for its warning mark; empty when it draws (or is not meant
  // to: a note, a hidden row, a constant). Told for every row each time the function tab is drawn.
  virtual void SetRowProblem(int row, const QString& why) = 0;

  virtual int SelectedTab() const = 0;
  // Checked of a ribbon control, by command id.
  virtual bool RibbonChecked(std::int32_t id) const = 0;
  virtual QString IntegralMinText() const = 0;
  virtual QString IntegralMaxText() const = 0;
  // The text of the status bar's first pane.
  virtual void SetStatusText(const QString& text) = 0;
  virtual void SetInputEnabled(bool enabled) = 0;
  // The display command "enterfullscreen" after a drawing.
  virtual void ShowFullScreen() = 0;

  // The inequality tab: the two sides (editor texts and the relations chosen beside them), the
  // colours of the line and the fill, and whether the second side takes part.
  virtual QString InequalityText(int side) const = 0;
  virtual QString InequalityRelation(int side) const = 0;
  virtual std::int32_t InequalityLineColor() const = 0;
  virtual std::int32_t InequalityFillColor() const = 0;
  virtual bool InequalityTwoSides() const = 0;

  // The parametric tab.
  virtual QString ParametricX() const = 0;
  virtual QString ParametricY() const = 0;
  virtual QString ParametricMin() const = 0;
  virtual QString ParametricMax() const = 0;
  virtual QString ParametricType() const = 0;  // "Cartesian" or "Polar"
  virtual std::int32_t ParametricColor() const = 0;

  // The 3D tab: which of its pages (0 function, 1 polar, 2 parametric), the texts of its editors
  // and fields by name ("mth_3D_Function", "txt_thetaMin", ...), the mesh's index and the zoom.
  virtual int Selected3DTab() const = 0;
  virtual QString Text3D(const QString& name) const = 0;
  virtual int GridIndex() const = 0;
  virtual QString ZoomText() const = 0;
};

}  // namespace plotcompiler
