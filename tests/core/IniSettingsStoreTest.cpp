#include "core/IniSettingsStore.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QFile>
#include <QTemporaryDir>

using namespace core;

TEST(IniSettingsStore, WritesSectionsAndKeysToAnIniFile) {
  QTemporaryDir dir;
  ASSERT_TRUE(dir.isValid());
  const QString path = dir.filePath("Quillograph.ini");
  {
    IniSettingsStore store(path);
    EXPECT_EQ(store.GetSetting("Options", "Revision", "12000"), "12000");
    store.SaveSetting("Options", "Revision", "12001");
    store.SaveSetting("Settings", "Backcolor", "16777215");
  }
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString content = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(content.contains("[Options]")) << content.toStdString();
  EXPECT_TRUE(content.contains("Revision=12001")) << content.toStdString();
  IniSettingsStore again(path);
  EXPECT_EQ(again.GetSetting("Settings", "Backcolor", ""), "16777215");
}
