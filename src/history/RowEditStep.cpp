#include "RowEditStep.h"

namespace history {

void RowEditStep::Apply(const QString& text) {
  if (!Target().ApplyRow(What().Row, text)) Target().ApplyWhole(text);
}

}  // namespace history
