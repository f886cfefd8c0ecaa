#include "ViewStep.h"

namespace history {

void ViewStep::Apply(const QString& text) { Target().ApplyWhole(text); }

}  // namespace history
