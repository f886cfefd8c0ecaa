#pragma once

#include <QString>

#include <cstdint>

namespace core {

// The everyday name of a colour kept as the forms keep it (red in the low byte), as a screen
// reader says it: the nearest of a few plain names ("red", "dark blue", "grey"...).
QString ColorName(std::int32_t color);

}  // namespace core
