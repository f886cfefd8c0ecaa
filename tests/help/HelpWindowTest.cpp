// The manual inside the program: its chapters, links, history, search and the PDF beside it.
#include "help/HelpWindow.h"
#include "help/ManualIndex.h"
#include "platform/DataFolder.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>

namespace {

QString ManualFolder() { return platform::DataFile(QStringLiteral("manual")); }

struct Window {
  Window(const QString& pdf = platform::DataFile(QStringLiteral("Help.pdf")))
      : help(ManualFolder(), pdf, desktop, boxes) {
    help.show();
  }
  QString Page() const { return QFileInfo(help.Browser()->source().toLocalFile()).fileName(); }
  RecordingDesktop desktop;
  RecordingBoxes boxes;
  help::HelpWindow help;
};

}  // namespace

TEST(ManualIndex, TheContentsPageListsTheChaptersInOrder) {
  const help::ManualIndex index(ManualFolder());
  ASSERT_GE(index.Chapters().size(), 13);
  EXPECT_EQ(index.Chapters()[0].File, "index.html");
  EXPECT_EQ(index.Chapters()[1].File, "getting-started.html");
  EXPECT_EQ(index.Chapters()[1].Title, "Getting started");
  EXPECT_EQ(index.TitleOf("rows.html"), "Rows and what you can type");
  for (const auto& chapter : index.Chapters()) {
    EXPECT_TRUE(QFileInfo::exists(ManualFolder() + "/" + chapter.File)) << chapter.File.toStdString();
  }
}

TEST(ManualIndex, SearchFindsEveryWordAcrossTheChapters) {
  const help::ManualIndex index(ManualFolder());
  struct Case {
    const char* Query;
    const char* Holds;  // a chapter that must be among the hits, or "" for none at all
  };
  for (const Case& c : {Case{"equal scales", "plot.html"}, Case{"EQUAL SCALES", "plot.html"},
                        Case{"quillograph-cli points", "command-line.html"}, Case{"Simpson zzqqxx", ""},
                        Case{"   ", ""}}) {
    const auto hits = index.Search(c.Query);
    if (*c.Holds == 0) {
      EXPECT_TRUE(hits.isEmpty()) << c.Query;
      continue;
    }
    const bool found = std::any_of(hits.begin(), hits.end(), [&](const auto& hit) { return hit.File == c.Holds; });
    EXPECT_TRUE(found) << c.Query;
    for (const auto& hit : hits) EXPECT_TRUE(hit.Snippet.contains(QString(c.Query).split(' ')[0], Qt::CaseInsensitive));
  }
}

TEST(HelpWindow, AChapterWithItsTitleAndItsPlaceInTheContents) {
  Window w;
  w.help.ShowChapter("rows.html");
  EXPECT_EQ(w.Page(), "rows.html");
  EXPECT_EQ(w.help.windowTitle(), "Quillograph manual – Rows and what you can type");
  EXPECT_EQ(w.help.Contents()->currentItem()->text(), "Rows and what you can type");
  EXPECT_FALSE(w.help.Browser()->toPlainText().isEmpty());
  // A click in the contents opens that chapter.
  w.help.Contents()->setCurrentRow(static_cast<int>(w.help.Index().Chapters().size()) - 1);
  EXPECT_EQ(w.Page(), w.help.Index().Chapters().back().File);
  EXPECT_TRUE(w.boxes.boxes.empty());
}

TEST(HelpWindow, LinksBetweenChaptersAndBackAndForward) {
  Window w;
  w.help.ShowChapter("index.html");
  EXPECT_FALSE(w.help.BackButton()->isEnabled());
  emit w.help.Browser()->anchorClicked(QUrl("plot.html"));
  EXPECT_EQ(w.Page(), "plot.html");
  ASSERT_TRUE(w.help.BackButton()->isEnabled());
  QTest::mouseClick(w.help.BackButton(), Qt::LeftButton);
  EXPECT_EQ(w.Page(), "index.html");
  ASSERT_TRUE(w.help.ForwardButton()->isEnabled());
  QTest::mouseClick(w.help.ForwardButton(), Qt::LeftButton);
  EXPECT_EQ(w.Page(), "plot.html");
  // An address outside the manual goes to the desktop; when nothing opens it, a box says so.
  w.desktop.opens = false;
  emit w.help.Browser()->anchorClicked(QUrl("https://example.org/"));
  ASSERT_EQ(w.desktop.opened.size(), 1u);
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Text, "The desktop has no program to open https://example.org/.");
  EXPECT_EQ(w.Page(), "plot.html");
}

TEST(HelpWindow, TheSearchFieldListsTheChaptersAndOpensTheFirst) {
  Window w;
  w.help.ShowChapter("index.html");
  QTest::keyClicks(w.help.SearchField(), "equal scales");
  QTest::keyClick(w.help.SearchField(), Qt::Key_Return);
  ASSERT_GT(w.help.Results()->count(), 0);
  EXPECT_FALSE(w.help.Results()->isHidden());
  EXPECT_EQ(w.Page(), w.help.Results()->item(0)->data(Qt::UserRole).toString());
  EXPECT_TRUE(w.help.Browser()->textCursor().selectedText().compare("equal", Qt::CaseInsensitive) == 0);
  // Nothing found is said in the list.
  w.help.SearchField()->clear();
  QTest::keyClicks(w.help.SearchField(), "zzqqxx");
  QTest::keyClick(w.help.SearchField(), Qt::Key_Return);
  ASSERT_EQ(w.help.Results()->count(), 1);
  EXPECT_EQ(w.help.Results()->item(0)->text(), "No chapter holds \"zzqqxx\".");
}

TEST(HelpWindow, OpenAsPdfSaysWhenNothingOpensIt) {
  Window w;
  QTest::mouseClick(w.help.PdfButton(), Qt::LeftButton);
  ASSERT_EQ(w.desktop.opened.size(), 1u);
  EXPECT_TRUE(w.desktop.opened[0].endsWith("/Help.pdf"));
  EXPECT_TRUE(w.boxes.boxes.empty());
  w.desktop.opens = false;
  QTest::mouseClick(w.help.PdfButton(), Qt::LeftButton);
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_TRUE(w.boxes.boxes[0].Text.startsWith("The desktop has no program that opens PDF files."));
  EXPECT_EQ(w.boxes.boxes[0].Title, "Manual");
}

TEST(HelpWindow, WhatIsMissingIsSaidNotDropped) {
  Window w("/nowhere/Help.pdf");
  w.help.ShowChapter("no-such-chapter.html");
  w.help.ShowPage("/nowhere/page.html");
  w.help.OpenPdf();
  ASSERT_EQ(w.boxes.boxes.size(), 3u);
  EXPECT_TRUE(w.boxes.boxes[0].Text.startsWith("The manual's page \"no-such-chapter.html\" is missing"));
  EXPECT_EQ(w.boxes.boxes[1].Text, "The page \"/nowhere/page.html\" is missing.");
  EXPECT_TRUE(w.boxes.boxes[2].Text.startsWith("The manual as a PDF file is missing"));
  EXPECT_TRUE(w.desktop.opened.empty());
}

TEST(HelpWindow, TheProgramsOwnPagesOpenHere) {
  Window w;
  w.help.ShowPage(platform::DataFile("pages/about.html"));
  EXPECT_EQ(w.Page(), "about.html");
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(w.help.Contents()->currentRow(), -1);
}
