#pragma once

#include <QString>

namespace core {

// The user's settings store: texts under a section and a key. The program talks to it through
// this interface so that tests can see exactly what is read and written.
class SettingsStore {
public:
  virtual ~SettingsStore() = default;
  // The stored text, or fallback when the key is absent.
  virtual QString GetSetting(const QString& section, const QString& key, const QString& fallback) = 0;
  virtual void SaveSetting(const QString& section, const QString& key, const QString& value) = 0;
};

}  // namespace core
