#pragma once

#include "project/ProjectForm.h"

#include <QMap>
#include <QStringList>

#include <vector>

// The main form in memory: named numbers and texts, tags, rows, and a log of what the reader did
// in which order.
class FakeProjectForm : public project::ProjectForm {
public:
  struct Row {
    std::int32_t Color = 255;
    QString Text;
    QString Attributes = QStringLiteral("False,False,False,True,True,0");
    bool NoteVisible = false;
    bool EditorVisible = true;
    QString Note = QStringLiteral("Your note here.");
    QString EditorTag;
  };

  FakeProjectForm() { rows.push_back(Row{}); }

  double Number(const QString& control) const override { return numbers.value(control); }
  void SetNumber(const QString& control, double value) override {
    numbers[control] = value;
    log << control + u'=' + QString::number(value);
  }
  QString Text(const QString& control) const override { return texts.value(control); }
  void SetText(const QString& control, const QString& text) override {
    texts[control] = text;
    log << control + QStringLiteral(":=") + text + QStringLiteral(" [") + tags.value(control) + u']';
  }
  void SetTag(const QString& control, const QString& tag) override { tags[control] = tag; }

  int HighestRow() const override { return static_cast<int>(rows.size()) - 1; }
  std::int32_t RowColor(int row) const override { return rows.at(row).Color; }
  void SetRowColor(int row, std::int32_t color) override { rows.at(row).Color = color; }
  QString RowText(int row) const override { return rows.at(row).Text; }
  void SetRowText(int row, const QString& text) override {
    rows.at(row).Text = text;
    log << QStringLiteral("row %1:=%2 [%3]").arg(row).arg(text, rows.at(row).EditorTag);
  }
  void SetRowEditorTag(int row, const QString& tag) override { rows.at(row).EditorTag = tag; }
  void SetRowEditorVisible(int row, bool visible) override { rows.at(row).EditorVisible = visible; }
  QString RowAttributes(int row) const override { return rows.at(row).Attributes; }
  void SetRowAttributes(int row, const QString& attributes) override { rows.at(row).Attributes = attributes; }
  bool RowNoteVisible(int row) const override { return rows.at(row).NoteVisible; }
  void SetRowNoteVisible(int row, bool visible) override { rows.at(row).NoteVisible = visible; }
  QString RowNote(int row) const override { return rows.at(row).Note; }
  void SetRowNote(int row, const QString& stored) override { rows.at(row).Note = stored; }

  void RemoveFunction(int index) override {
    log << QStringLiteral("RemoveFunction %1").arg(index);
    if (rows.size() == 1) rows[0] = Row{};
    else if (index >= 0 && index < static_cast<int>(rows.size())) rows.erase(rows.begin() + index);
  }
  void AddFunction() override {
    if (rows.size() >= 109) return;  // the main form refuses the 110th row with its own box
    rows.push_back(Row{});
  }
  void Replot() override { log << QStringLiteral("Replot"); }
  void Refresh_mth_Height() override { log << QStringLiteral("Refresh_mth_Height"); }
  void SetProjectChanged(bool changed) override { projectChanged = changed; }

  QMap<QString, double> numbers;
  QMap<QString, QString> texts;
  QMap<QString, QString> tags;
  std::vector<Row> rows;
  QStringList log;
  bool projectChanged = true;
};
