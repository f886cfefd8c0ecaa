// Started from the build tree, the program finds every data file that it names: the files its
// sources name, the pages its buttons open, each sample's picture, and the manual's chapters.
#include "help/ManualIndex.h"
#include "platform/DataFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

// Every text in the sources that the pattern's first group captures.
QSet<QString> NamedInSources(const QString& pattern) {
  QSet<QString> names;
  const QRegularExpression named(pattern);
  QDirIterator files(QStringLiteral(QUILLOGRAPH_SOURCE_ROOT "/src"), {QStringLiteral("*.cpp")}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (!file.open(QIODevice::ReadOnly)) continue;
    const QString text = QString::fromUtf8(file.readAll());
    for (auto it = named.globalMatch(text); it.hasNext();) names.insert(it.next().captured(1));
  }
  return names;
}

}  // namespace

TEST(DataFiles, EveryFileTheSourcesNameIsThere) {
  const QSet<QString> names = NamedInSources(QStringLiteral("DataFile\\(QStringLiteral\\(\"([^\"]+)\"\\)\\)"));
  ASSERT_GE(names.size(), 8);
  for (const QString& name : names) {
    EXPECT_TRUE(QFileInfo::exists(platform::DataFile(name))) << name.toStdString();
  }
}

TEST(DataFiles, EveryPageTheInfoPageOpensIsThere) {
  const QSet<QString> pages = NamedInSources(QStringLiteral("open\\(\"([a-z-]+\\.html)\"\\)"));
  ASSERT_GE(pages.size(), 2);
  for (const QString& page : pages) {
    EXPECT_TRUE(QFileInfo::exists(platform::DataFile(QStringLiteral("pages/") + page))) << page.toStdString();
  }
}

TEST(DataFiles, EverySampleHasItsPicture) {
  const QDir samples(platform::DataFolder() + QStringLiteral("/Functions"));
  const QStringList projects = samples.entryList({QStringLiteral("*.qlfn")}, QDir::Files);
  ASSERT_GE(projects.size(), 24);
  for (const QString& project : projects) {
    const QString picture = QStringLiteral("Functions/") + QFileInfo(project).completeBaseName() + QStringLiteral(".jpg");
    EXPECT_TRUE(QFileInfo::exists(platform::DataFile(picture))) << picture.toStdString();
  }
}

TEST(DataFiles, TheManualHasEveryChapterAndPicture) {
  const QString folder = platform::DataFile(QStringLiteral("manual"));
  const help::ManualIndex index(folder);
  ASSERT_GE(index.Chapters().size(), 13);
  const QRegularExpression picture(QStringLiteral("<img src=\"([^\"]+)\""));
  for (const auto& chapter : index.Chapters()) {
    QFile file(folder + u'/' + chapter.File);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << chapter.File.toStdString();
    const QString html = QString::fromUtf8(file.readAll());
    for (auto it = picture.globalMatch(html); it.hasNext();) {
      const QString name = it.next().captured(1);
      EXPECT_TRUE(QFileInfo::exists(folder + u'/' + name)) << chapter.File.toStdString() << ": " << name.toStdString();
    }
  }
}
