#pragma once

#include "SettingsStore.h"

#include <QSettings>

#include <memory>

namespace core {

// The settings store on disk: an ini file under the application name "Quillograph" in the
// user's configuration folder, or at a path of the caller's choosing.
class IniSettingsStore : public SettingsStore {
public:
  IniSettingsStore();
  explicit IniSettingsStore(const QString& filePath);

  QString GetSetting(const QString& section, const QString& key, const QString& fallback) override;
  void SaveSetting(const QString& section, const QString& key, const QString& value) override;

private:
  std::unique_ptr<QSettings> m_settings;
};

}  // namespace core
