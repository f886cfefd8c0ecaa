#pragma once

#include <QString>

namespace history {

// The project that the history changes: what it holds now as text, and the two ways of putting
// back what a text holds.
class ProjectTarget {
public:
  virtual ~ProjectTarget() = default;

  // The text the writer would write now.
  virtual QString Compose() = 0;
  // Everything as the text holds it, through the reader.
  virtual void ApplyWhole(const QString& text) = 0;
  // One row as the text holds it, in place, the others untouched; false where that cannot be
  // done (the whole text is applied then).
  virtual bool ApplyRow(int row, const QString& text) = 0;
};

}  // namespace history
