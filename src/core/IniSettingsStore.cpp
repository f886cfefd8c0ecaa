#include "IniSettingsStore.h"

namespace core {

namespace {

QString KeyOf(const QString& section, const QString& key) { return section + u'/' + key; }

}  // namespace

IniSettingsStore::IniSettingsStore()
    : m_settings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                             QStringLiteral("Quillograph"),
                                             QStringLiteral("Quillograph"))) {}

IniSettingsStore::IniSettingsStore(const QString& filePath)
    : m_settings(std::make_unique<QSettings>(filePath, QSettings::IniFormat)) {}

QString IniSettingsStore::GetSetting(const QString& section, const QString& key,
                                     const QString& fallback) {
  return m_settings->value(KeyOf(section, key), fallback).toString();
}

void IniSettingsStore::SaveSetting(const QString& section, const QString& key, const QString& value) {
  m_settings->setValue(KeyOf(section, key), value);
  m_settings->sync();
}

}  // namespace core
