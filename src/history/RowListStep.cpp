#include "RowListStep.h"

namespace history {

void RowListStep::Apply(const QString& text) { Target().ApplyWhole(text); }

}  // namespace history
