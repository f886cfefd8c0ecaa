#pragma once

#include <QColor>
#include <QString>

#include <optional>

namespace platform {

// Asks the user for a colour (the desktop's colour dialog); nothing when cancelled.
class ColorChooser {
public:
  virtual ~ColorChooser() = default;
  virtual std::optional<QColor> Choose(const QColor& current, const QString& title) = 0;
};

}  // namespace platform
