#include "PageStep.h"

namespace history {

void PageStep::Apply(const QString& text) { Target().ApplyWhole(text); }

}  // namespace history
