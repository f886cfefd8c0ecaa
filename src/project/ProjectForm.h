#pragma once

#include <QString>

#include <cstdint>

namespace project {

// The main form as the project files read and write it: there is no document object, so the
// writer reads every value from the control that shows it and the reader puts every value into
// one. Controls are named as the form names them: numbers ("Plot.XMin", "btnLock" as 0 or 1,
// "tabInput" as its page, "Pane9005" as the slider's position), texts ("mnu_Integral_min",
// "mthParametricX", "cmbInequality(0)") and tags. Setting a value is what the user's change
// would be: the control's change handler runs, unless its tag holds "NOT".
class ProjectForm {
public:
  virtual ~ProjectForm() = default;

  virtual double Number(const QString& control) const = 0;
  virtual void SetNumber(const QString& control, double value) = 0;
  virtual QString Text(const QString& control) const = 0;
  virtual void SetText(const QString& control, const QString& text) = 0;
  virtual void SetTag(const QString& control, const QString& tag) = 0;

  // The function rows, 0 to HighestRow().
  virtual int HighestRow() const = 0;
  virtual std::int32_t RowColor(int row) const = 0;
  virtual void SetRowColor(int row, std::int32_t color) = 0;
  virtual QString RowText(int row) const = 0;
  virtual void SetRowText(int row, const QString& text) = 0;
  virtual void SetRowEditorTag(int row, const QString& tag) = 0;
  virtual void SetRowEditorVisible(int row, bool visible) = 0;
  virtual QString RowAttributes(int row) const = 0;
  virtual void SetRowAttributes(int row, const QString& attributes) = 0;
  virtual bool RowNoteVisible(int row) const = 0;
  virtual void SetRowNoteVisible(int row, bool visible) = 0;
  // The note as a file holds it: its lines, or rich text where it carries formatting.
  virtual QString RowNote(int row) const = 0;
  virtual void SetRowNote(int row, const QString& stored) = 0;
  // A constant row's slider bounds as "min:max:step", empty where the user left the defaults. A
  // form without sliders keeps none.
  virtual QString RowSlider(int) const { return {}; }
  virtual void SetRowSlider(int, const QString&) {}

  virtual void RemoveFunction(int index) = 0;  // without a replot
  virtual void AddFunction() = 0;              // a row with its note hidden
  virtual void Replot() = 0;                   // everything, the 3D plot included
  virtual void Refresh_mth_Height() = 0;
  virtual void SetProjectChanged(bool changed) = 0;
  // Around a load that has opened its file, whether it ends well or not: the form may hold back
  // its layout meanwhile.
  virtual void BeginLoad() {}
  virtual void EndLoad() {}
};

}  // namespace project
