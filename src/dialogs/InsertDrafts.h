#pragma once

#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace dialogs {

// What was typed into the insert dialog for one editor of the main form, kept when the dialog
// lost the activation, until Insert or Cancel: the next opening for the same editor shows it
// again. A draft belongs to the text the editor held when it was begun; once the editor holds
// another text, the draft no longer fits and is not shown.
struct InsertDraft {
  QString Base;      // the editor's text, in the standard style, as the dialog opened with it
  QString Standard;  // the two styles as the user left them
  QString Linear;
};

class InsertDrafts {
public:
  void Keep(std::int16_t source, double index, InsertDraft draft);
  // The draft for the editor, if one was kept and still fits the text it holds now.
  std::optional<InsertDraft> Find(std::int16_t source, double index, const QString& base) const;
  void Drop(std::int16_t source, double index);

private:
  std::map<std::pair<std::int16_t, double>, InsertDraft> m_drafts;
};

}  // namespace dialogs
