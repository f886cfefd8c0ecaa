#pragma once

#include "ProjectForm.h"

#include <QMap>

#include <vector>

namespace project {

// A main form held in memory, which takes a project as the real form does where a load can fail:
// rows added up to the list's limit, the only row reset in place when it is removed. The reader
// runs a file over one of these first, so that a file that fails never touches the real form.
class MemoryProjectForm : public ProjectForm {
public:
  struct Row {
    std::int32_t Color = 255;
    QString Text;
    QString Attributes = QStringLiteral("False,False,False,True,True,0");
    QString Note;
    bool NoteVisible = false;
    QString Slider;
    bool operator==(const Row&) const = default;
  };
  // As many rows as the main form's list holds at the most.
  static constexpr int kMaxRows = 109;

  MemoryProjectForm() : m_rows(1) {}

  double Number(const QString& control) const override { return m_numbers.value(control); }
  void SetNumber(const QString& control, double value) override { m_numbers[control] = value; }
  QString Text(const QString& control) const override { return m_texts.value(control); }
  void SetText(const QString& control, const QString& text) override { m_texts[control] = text; }
  void SetTag(const QString&, const QString&) override {}

  int HighestRow() const override { return static_cast<int>(m_rows.size()) - 1; }
  std::int32_t RowColor(int row) const override { return At(row).Color; }
  void SetRowColor(int row, std::int32_t color) override { At(row).Color = color; }
  QString RowText(int row) const override { return At(row).Text; }
  void SetRowText(int row, const QString& text) override { At(row).Text = text; }
  void SetRowEditorTag(int, const QString&) override {}
  void SetRowEditorVisible(int, bool) override {}
  QString RowAttributes(int row) const override { return At(row).Attributes; }
  void SetRowAttributes(int row, const QString& attributes) override { At(row).Attributes = attributes; }
  bool RowNoteVisible(int row) const override { return At(row).NoteVisible; }
  void SetRowNoteVisible(int row, bool visible) override { At(row).NoteVisible = visible; }
  QString RowNote(int row) const override { return At(row).Note; }
  void SetRowNote(int row, const QString& stored) override { At(row).Note = stored; }
  QString RowSlider(int row) const override { return At(row).Slider; }
  void SetRowSlider(int row, const QString& bounds) override { At(row).Slider = bounds; }

  void RemoveFunction(int index) override;
  void AddFunction() override;
  void Replot() override {}
  void Refresh_mth_Height() override {}
  void SetProjectChanged(bool) override {}

  // The same values and rows: what a load that failed must leave.
  bool SameAs(const MemoryProjectForm& other) const {
    return m_numbers == other.m_numbers && m_texts == other.m_texts && m_rows == other.m_rows;
  }

private:
  Row& At(int row) { return m_rows.at(static_cast<std::size_t>(row)); }
  const Row& At(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

  QMap<QString, double> m_numbers;
  QMap<QString, QString> m_texts;
  std::vector<Row> m_rows;
};

}  // namespace project
