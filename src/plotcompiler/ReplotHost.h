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
};

}  // namespace plotcompiler
