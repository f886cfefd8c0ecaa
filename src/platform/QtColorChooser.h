#pragma once

#include "ColorChooser.h"

namespace platform {

// The desktop's colour dialog.
class QtColorChooser : public ColorChooser {
public:
  std::optional<QColor> Choose(const QColor& current, const QString& title) override;
};

}  // namespace platform
