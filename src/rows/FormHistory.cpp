#include "FormHistory.h"

#include "FunctionList.h"

#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "history/ProjectText.h"
#include "project/ProjectForm.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace rows {

namespace {

using Keys = std::vector<std::pair<QString, QString>>;

// The keys whose values in wanted differ from those in now, with wanted's values.
Keys ChangedKeys(const Keys& now, const Keys& wanted) {
  QHash<QString, QString> current;
  for (const auto& [key, value] : now) current.insert(key, value);
  Keys changed;
  for (const auto& pair : wanted) {
    const auto found = current.constFind(pair.first);
    if (found == current.constEnd() || *found != pair.second) changed.push_back(pair);
  }
  return changed;
}

}  // namespace

FormHistory::FormHistory(project::ProjectForm& form, FunctionList& rows, core::SharedState& state,
                         platform::MessageBoxes& boxes, std::function<void()> afterRead)
    : m_form(form), m_rows(rows), m_state(state), m_boxes(boxes), m_afterRead(std::move(afterRead)) {}

QString FormHistory::Compose() {
  try {
    return project::ProjectWriter::Compose(m_form);
  } catch (const core::RuntimeError&) {
    return {};
  }
}

// A row exactly as the writer wrote it. The reader would add the list's later flags to the
// attributes and a line break before the note, as older files need; a step put back must give
// the same bytes again.
void FormHistory::PutRow(int row, const history::ProjectText::Row& wanted) {
  const QStringList fields = wanted.Fields();
  if (fields.size() < 4) return;
  const bool note = fields.last() == u"True";
  m_form.SetRowColor(row, fields.first().toInt());
  m_form.SetRowEditorTag(row, core::kQuiet);
  m_form.SetRowText(row, fields.mid(1, fields.size() - 3).join(u':'));
  m_form.SetRowAttributes(row, fields.at(fields.size() - 2));
  m_form.SetRowNoteVisible(row, note);
  m_form.SetRowEditorVisible(row, !note);
  m_form.SetRowEditorTag(row, QString());
  m_form.SetRowNote(row, wanted.Note.join(QStringLiteral("\r\n")));
  QString slider;
  for (const auto& [name, value] : wanted.Extra) {
    if (name == u"Slider") slider = value;
  }
  m_form.SetRowSlider(row, slider);
}

void FormHistory::ApplyWhole(const QString& text) {
  const history::ProjectText wanted = history::ProjectText::Parse(text);
  const history::ProjectText now = history::ProjectText::Parse(Compose());
  const int rows = std::max<int>(1, static_cast<int>(wanted.Rows.size()));
  const int active = m_rows.ActiveRow();
  m_form.BeginLoad();
  while (m_form.HighestRow() >= rows) m_form.RemoveFunction(m_form.HighestRow());
  while (m_form.HighestRow() < rows - 1) m_form.AddFunction();
  for (int row = 0; row < static_cast<int>(wanted.Rows.size()); ++row) PutRow(row, wanted.Rows[static_cast<std::size_t>(row)]);
  project::ProjectReader(m_form, m_state, m_boxes).ApplyKeys(ChangedKeys(now.Keys, wanted.Keys));
  m_form.EndLoad();
  m_form.Replot();
  m_form.Refresh_mth_Height();
  m_rows.SetActiveRow(std::min(active, m_rows.HighestIndex()));
  if (m_afterRead) m_afterRead();
}

bool FormHistory::ApplyRow(int row, const QString& text) {
  const history::ProjectText parsed = history::ProjectText::Parse(text);
  if (row < 0 || static_cast<std::size_t>(row) >= parsed.Rows.size() || row > m_rows.HighestIndex()) return false;
  PutRow(row, parsed.Rows[static_cast<std::size_t>(row)]);
  m_form.Replot();
  m_form.Refresh_mth_Height();
  m_rows.SetActiveRow(row);
  return true;
}

}  // namespace rows
