#include "MemoryProjectForm.h"

namespace project {

void MemoryProjectForm::RemoveFunction(int) {
  if (m_rows.size() == 1) m_rows[0] = Row{};
  else m_rows.pop_back();
}

void MemoryProjectForm::AddFunction() {
  if (m_rows.size() < kMaxRows) m_rows.emplace_back();
}

}  // namespace project
