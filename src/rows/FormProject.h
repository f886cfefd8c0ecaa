#pragma once

#include "project/ProjectForm.h"

#include <QHash>

#include <functional>

class QObject;

namespace rows {

class frmMain;

// The main form as the project files see it: its controls by name, and its rows.
class FormProject : public project::ProjectForm {
public:
  explicit FormProject(frmMain& form);

  double Number(const QString& control) const override;
  void SetNumber(const QString& control, double value) override;
  QString Text(const QString& control) const override;
  void SetText(const QString& control, const QString& text) override;
  void SetTag(const QString& control, const QString& tag) override;

  int HighestRow() const override;
  std::int32_t RowColor(int row) const override;
  void SetRowColor(int row, std::int32_t color) override;
  QString RowText(int row) const override;
  void SetRowText(int row, const QString& text) override;
  void SetRowEditorTag(int row, const QString& tag) override;
  void SetRowEditorVisible(int row, bool visible) override;
  QString RowAttributes(int row) const override;
  void SetRowAttributes(int row, const QString& attributes) override;
  bool RowNoteVisible(int row) const override;
  void SetRowNoteVisible(int row, bool visible) override;
  QString RowNote(int row) const override;
  void SetRowNote(int row, const QString& stored) override;
  QString RowSlider(int row) const override;
  void SetRowSlider(int row, const QString& bounds) override;

  void RemoveFunction(int index) override;
  void AddFunction() override;
  void Replot() override;
  void Refresh_mth_Height() override;
  void SetProjectChanged(bool changed) override;
  void BeginLoad() override;
  void EndLoad() override;

private:
  struct Number_ {
    std::function<double()> Get;
    std::function<void(double)> Set;
  };
  struct Text_ {
    std::function<QString()> Get;
    std::function<void(const QString&)> Set;
  };
  void BuildNumbers();
  void BuildTexts();

  frmMain& m_form;
  QHash<QString, Number_> m_numbers;
  QHash<QString, Text_> m_texts;
  QHash<QString, QObject*> m_tagged;
};

}  // namespace rows
