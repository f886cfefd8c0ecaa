#pragma once

#include "core/SettingsStore.h"
#include "platform/ColorChooser.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

namespace rows {

// What the main form needs of the world outside it: the settings store and the desktop's
// dialogs. The program hands over the real ones; tests hand over their own and answer them.
struct MainServices {
  core::SettingsStore& Settings;
  platform::MessageBoxes& Boxes;
  platform::ColorChooser& Colors;
  platform::FileDialogs& Files;
};

}  // namespace rows
