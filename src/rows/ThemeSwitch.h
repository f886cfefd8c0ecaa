#pragma once

#include "platform/Theme.h"

#include <cstdint>
#include <functional>

namespace core {
class SettingsStore;
}
namespace platform {
class Desktop;
}
namespace ribbon {
class CommandBars;
}
namespace plot2d {
class Plot;
}
namespace plot3d {
class Plot3D;
}

namespace rows {

// The View tab's Theme group: Light, Dark, or as the desktop asks (the default). The choice is
// kept in the settings for the next start, never in a project; the plot's own default colours
// follow it on the screen.
class ThemeSwitch {
public:
  static constexpr std::int32_t kLight = 1201;
  static constexpr std::int32_t kDark = 1202;
  static constexpr std::int32_t kDesktop = 1203;

  ThemeSwitch(ribbon::CommandBars& bars, core::SettingsStore& settings, platform::Desktop& desktop, plot2d::Plot& scene,
              plot3d::Plot3D& scene3d);

  // Puts the windows and the plot in the stored look and checks its button: at the start, before
  // the first picture.
  void ApplyStored();
  // One of the three theme commands; false, and nothing done, for any other id.
  bool Execute(std::int32_t id);

  platform::Theme::Choice Choice() const { return m_choice; }
  bool Dark() const { return m_dark; }

  // Draws the plots again after their colours changed.
  std::function<void()> Redraw;

private:
  void Apply(platform::Theme::Choice choice);

  ribbon::CommandBars& m_bars;
  core::SettingsStore& m_settings;
  platform::Desktop& m_desktop;
  plot2d::Plot& m_scene;
  plot3d::Plot3D& m_scene3d;
  platform::Theme::Choice m_choice = platform::Theme::Choice::Desktop;
  bool m_dark = false;
};

}  // namespace rows
