#include "ThemeSwitch.h"

#include "core/SettingsStore.h"
#include "platform/Desktop.h"
#include "plot2d/Plot.h"
#include "plot3d/Plot3D.h"
#include "ribbon/CommandBars.h"

namespace rows {

namespace {

const QString kSettings = QStringLiteral("Settings");
const QString kKey = QStringLiteral("Theme");

}  // namespace

ThemeSwitch::ThemeSwitch(ribbon::CommandBars& bars, core::SettingsStore& settings, platform::Desktop& desktop,
                         plot2d::Plot& scene, plot3d::Plot3D& scene3d)
    : m_bars(bars), m_settings(settings), m_desktop(desktop), m_scene(scene), m_scene3d(scene3d) {}

void ThemeSwitch::ApplyStored() {
  Apply(platform::Theme::ChoiceOf(m_settings.GetSetting(kSettings, kKey, QStringLiteral("Desktop"))));
}

bool ThemeSwitch::Execute(std::int32_t id) {
  using Choice = platform::Theme::Choice;
  if (id != kLight && id != kDark && id != kDesktop) return false;
  const Choice choice = id == kLight ? Choice::Light : id == kDark ? Choice::Dark : Choice::Desktop;
  m_settings.SaveSetting(kSettings, kKey, platform::Theme::WordOf(choice));
  Apply(choice);
  if (Redraw) Redraw();
  return true;
}

void ThemeSwitch::Apply(platform::Theme::Choice choice) {
  using Choice = platform::Theme::Choice;
  m_choice = choice;
  m_dark = choice == Choice::Dark || (choice == Choice::Desktop && m_desktop.PrefersDark());
  for (const auto& [id, which] : {std::pair{kLight, Choice::Light}, {kDark, Choice::Dark}, {kDesktop, Choice::Desktop}}) {
    if (ribbon::CommandControl* control = m_bars.FindControl(id)) control->SetChecked(which == choice);
  }
  m_desktop.ApplyLook(m_dark);
  m_scene.SetDarkDefaults(m_dark);
  m_scene3d.SetDarkDefaults(m_dark);
}

}  // namespace rows
