#pragma once

#include "core/SettingsStore.h"
#include "platform/ColorChooser.h"
#include "platform/Desktop.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

namespace rows {

// What the main form needs of the world outside it: the settings store, the desktop's dialogs,
// other programs and the clipboard. The program hands over the real ones; tests hand over their own and answer them.
struct MainServices {
  core::SettingsStore& Settings;
  platform::MessageBoxes& Boxes;
  platform::ColorChooser& Colors;
  platform::FileDialogs& Files;
  platform::Desktop& Desktop;
};

}  // namespace rows
