#include "QtColorChooser.h"

#include <QApplication>
#include <QColorDialog>

namespace platform {

std::optional<QColor> QtColorChooser::Choose(const QColor& current, const QString& title) {
  const QColor chosen = QColorDialog::getColor(current, QApplication::activeWindow(), title);
  if (!chosen.isValid()) return std::nullopt;
  return chosen;
}

}  // namespace platform
