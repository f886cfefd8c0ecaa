// The information pages of the backstage and the contact form.
#include "core/Twips.h"
#include "core/Version.h"
#include "output/RichTextPage.h"
#include "output/frmContactUS.h"
#include "output/pageInfo.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocumentFragment>
#include "WaitUntil.h"

namespace {

using core::Px;

// A data folder of the test's own, for as long as the object lives.
struct DataFolder {
  DataFolder() { qputenv("QUILLOGRAPH_DATA", dir.path().toUtf8()); }
  ~DataFolder() { qunsetenv("QUILLOGRAPH_DATA"); }
  void Write(const QString& name, const QByteArray& bytes) {
    QFile file(dir.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  QTemporaryDir dir;
};

TEST(pageInfo, TheVersionLineHasFourNumbers) {
  RecordingDesktop desktop;
  output::pageInfo page(desktop);
  EXPECT_EQ(page.lblVersion()->text(), QStringLiteral("Version: %1.%2.0.%3")
                                           .arg(core::VersionMajor())
                                           .arg(core::VersionMinor())
                                           .arg(core::VersionRevision()));
  EXPECT_TRUE(QRegularExpression(QStringLiteral("^Version: \\d+\\.\\d+\\.0\\.\\d+$")).match(page.lblVersion()->text()).hasMatch());
}

TEST(pageInfo, TheButtonsOpenTheProgramsOwnPages) {
  DataFolder data;
  RecordingDesktop desktop;
  output::pageInfo page(desktop);
  int contacts = 0;
  page.ShowContact = [&] { ++contacts; };
  const struct {
    const char* button;
    const char* opens;
  } cases[] = {
      {"btnHelp", "pages/about.html"},
      {"btnTutorial", "pages/tutorial.html"},
      {"btnWebSite", "Help.pdf"},
      {"btnFacebook", "pages/contact.html"},
  };
  for (const auto& c : cases) {
    QPushButton* button = page.Button(QString::fromLatin1(c.button));
    ASSERT_NE(button, nullptr) << c.button;
    button->click();
    ASSERT_FALSE(desktop.opened.empty()) << c.button;
    EXPECT_EQ(desktop.opened.back(), data.dir.filePath(QString::fromLatin1(c.opens))) << c.button;
  }
  const auto openedBefore = desktop.opened.size();
  page.Button(QStringLiteral("btnContactUs"))->click();
  EXPECT_EQ(contacts, 1);
  EXPECT_EQ(desktop.opened.size(), openedBefore);
}

TEST(RichTextPage, ReadsItsFileWithAMarginOf120Twips) {
  DataFolder data;
  data.Write(QStringLiteral("What is new.rtf"), "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Points in tables\\par}");
  output::RichTextPage page(QStringLiteral("pageWhatIsNew"), QStringLiteral("rchWhatIsNew"), QStringLiteral("What is new.rtf"));
  EXPECT_EQ(page.objectName(), "pageWhatIsNew");
  EXPECT_EQ(page.Box()->objectName(), "rchWhatIsNew");
  EXPECT_TRUE(page.Box()->toPlainText().contains(QStringLiteral("Points in tables")));
  page.resize(600, 400);
  page.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&page));
  EXPECT_EQ(page.Box()->geometry(), QRect(Px(120), Px(120), 600 - 2 * Px(120), 400 - 2 * Px(120)));
}

TEST(RichTextPage, AMissingFileLeavesThePageEmpty) {
  DataFolder data;
  output::RichTextPage page(QStringLiteral("pageSupportUs"), QStringLiteral("rchSupportUs"), QStringLiteral("Support Us.rtf"));
  EXPECT_TRUE(page.Box()->toPlainText().isEmpty());
}

TEST(RichTextPage, TheProgramsOwnFilesRead) {
  for (const char* file : {"What is new.rtf", "Support Us.rtf"}) {
    output::RichTextPage page(QStringLiteral("page"), QStringLiteral("box"), QString::fromLatin1(file));
    EXPECT_GT(page.Box()->toPlainText().trimmed().size(), 100) << file;
  }
}

QPoint ScreenCentre() { return QApplication::primaryScreen()->geometry().center(); }

TEST(frmContactUS, AfterTwoTicksItIsCentredAnd600By500) {
  RecordingDesktop desktop;
  auto* form = new output::frmContactUS(desktop);
  QPointer<output::frmContactUS> guard(form);
  EXPECT_EQ(form->SizeTwips(), QSize(0, 0));
  form->tmrSizer_Timer();
  form->tmrSizer_Timer();
  EXPECT_EQ(form->SizeTwips(), QSize(600, 500));
  EXPECT_EQ(form->size(), QSize(Px(600), Px(500)));
  const QRect screen = QApplication::primaryScreen()->geometry();
  EXPECT_EQ(form->pos(), QPoint(screen.width() / 2 - form->width() / 2, screen.height() / 2 - form->height() / 2));
  for (int tick = 0; tick < 40; ++tick) form->tmrSizer_Timer();
  EXPECT_EQ(form->SizeTwips(), QSize(5100, 4500));
  EXPECT_EQ(form->size(), QSize(Px(5100), Px(4500)));
  EXPECT_LE((form->geometry().center() - ScreenCentre()).manhattanLength(), 2);
  // Moved away, the next tick brings it back to the centre.
  form->move(0, 0);
  form->tmrSizer_Timer();
  EXPECT_LE((form->geometry().center() - ScreenCentre()).manhattanLength(), 2);
  delete form;
}

TEST(frmContactUS, GrowsByItsOwnTimer) {
  RecordingDesktop desktop;
  auto* form = new output::frmContactUS(desktop);
  form->show();
  EXPECT_TRUE(WaitUntil([&] { return form->SizeTwips() == QSize(5100, 4500); }, 5000));
  delete form;
}

TEST(frmContactUS, ClickingElsewhereClosesIt) {
  RecordingDesktop desktop;
  QPointer<output::frmContactUS> form = new output::frmContactUS(desktop);
  form->show();
  QEvent deactivate(QEvent::WindowDeactivate);
  QApplication::sendEvent(form, &deactivate);
  EXPECT_TRUE(WaitUntil([&] { return form.isNull(); }));
}

TEST(frmContactUS, TheLinksOpenPagesOfTheirOwn) {
  DataFolder data;
  RecordingDesktop desktop;
  output::frmContactUS form(desktop);
  for (const char* name : {"Label1", "lblPage", "lblWebsite"}) {
    QLabel* link = form.Link(QString::fromLatin1(name));
    ASSERT_NE(link, nullptr) << name;
    // What the label shows is not the address it opens.
    const QString shown = QTextDocumentFragment::fromHtml(link->text()).toPlainText();
    emit link->linkActivated(link->text().section(u'"', 1, 1));
    ASSERT_FALSE(desktop.opened.empty());
    EXPECT_TRUE(desktop.opened.back().startsWith(data.dir.filePath(QStringLiteral("pages/")))) << name;
    EXPECT_NE(desktop.opened.back(), shown);
  }
  EXPECT_EQ(desktop.opened.size(), 3u);
}

}  // namespace
