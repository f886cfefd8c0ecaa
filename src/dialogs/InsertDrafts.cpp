#include "InsertDrafts.h"

namespace dialogs {

void InsertDrafts::Keep(std::int16_t source, double index, InsertDraft draft) {
  m_drafts[{source, index}] = std::move(draft);
}

std::optional<InsertDraft> InsertDrafts::Find(std::int16_t source, double index, const QString& base) const {
  const auto found = m_drafts.find({source, index});
  if (found == m_drafts.end() || found->second.Base != base) return std::nullopt;
  return found->second;
}

void InsertDrafts::Drop(std::int16_t source, double index) { m_drafts.erase({source, index}); }

}  // namespace dialogs
