// The project reader on any bytes, over a form in memory that behaves as the main form does
// where it matters (rows added up to the limit, the only row reset in place). Then the writer on
// what was read, and the reader again on that.
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"

#include <QMap>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

class MemoryForm : public project::ProjectForm {
public:
  struct Row {
    std::int32_t Color = 255;
    QString Text, Attributes = QStringLiteral("False,False,False,True,True,0"), Note;
    bool NoteVisible = false;
  };
  MemoryForm() : rows(1) {}

  double Number(const QString& c) const override { return numbers.value(c); }
  void SetNumber(const QString& c, double v) override { numbers[c] = v; }
  QString Text(const QString& c) const override { return texts.value(c); }
  void SetText(const QString& c, const QString& t) override { texts[c] = t; }
  void SetTag(const QString&, const QString&) override {}
  int HighestRow() const override { return static_cast<int>(rows.size()) - 1; }
  std::int32_t RowColor(int r) const override { return rows.at(r).Color; }
  void SetRowColor(int r, std::int32_t c) override { rows.at(r).Color = c; }
  QString RowText(int r) const override { return rows.at(r).Text; }
  void SetRowText(int r, const QString& t) override { rows.at(r).Text = t; }
  void SetRowEditorTag(int, const QString&) override {}
  void SetRowEditorVisible(int, bool) override {}
  QString RowAttributes(int r) const override { return rows.at(r).Attributes; }
  void SetRowAttributes(int r, const QString& a) override { rows.at(r).Attributes = a; }
  bool RowNoteVisible(int r) const override { return rows.at(r).NoteVisible; }
  void SetRowNoteVisible(int r, bool v) override { rows.at(r).NoteVisible = v; }
  QString RowNote(int r) const override { return rows.at(r).Note; }
  void SetRowNote(int r, const QString& n) override { rows.at(r).Note = n; }
  void RemoveFunction(int) override {
    if (rows.size() == 1) rows[0] = Row{};
    else rows.pop_back();
  }
  void AddFunction() override {
    if (rows.size() < 109) rows.emplace_back();
  }
  void Replot() override {}
  void Refresh_mth_Height() override {}
  void SetProjectChanged(bool) override {}

  QMap<QString, double> numbers;
  QMap<QString, QString> texts;
  std::vector<Row> rows;
};

class SilentBoxes : public platform::MessageBoxes {
public:
  Answer Show(const QString&, Buttons, Icon, const QString&) override { return Answer::Ok; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryForm form;
  core::SharedState state;
  SilentBoxes boxes;
  project::ProjectReader(form, state, boxes).LoadBytes(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  // What was read writes out, and reads back.
  try {
    const QString text = project::ProjectWriter::Compose(form);
    MemoryForm again;
    project::ProjectReader(again, state, boxes).LoadBytes(text.toUtf8());
  } catch (...) {
    // A value that the writer cannot put as its kind (a quality beyond 16 bits) is the writer's
    // own failure, told by its box in the program.
  }
  return 0;
}
