// A row copied from its menu or by Ctrl+Shift+C: LaTeX as the plain text and as text/x-tex, the
// readable form as HTML, all on the clipboard at once.
#include "mathx/MthX.h"
#include "rows/FunctionList.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"
#include "QtPrinters.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTextEdit>

namespace {

struct Window : MainWindowFixture {
  Window() {
    Fill({"y=2sin(x)+x/2", "", "declare(y=x^2,domain(x,0,3,0))", "", "x^2+y^2<=9"});
    Rows().Row(3).rchfunNote->show();
    Rows().Row(3).rchfunNote->setPlainText("The circle's radius is 3 & more");
    // The menu's item is clicked where the menu would open.
    form->FunctionMenu().Popup = [this](QMenu& menu, const QPoint&) {
      for (QAction* action : menu.actions())
        if (action->text().remove(u'&') == u"Copy as LaTeX and Text") ++found, action->trigger();
    };
  }
  void CopyFromMenu(int row) { form->FunctionMenu().btnMore_Click(row, QPoint()); }
  void CopyByKey(int row) {
    form->show();
    QApplication::setActiveWindow(form.get());
    QApplication::processEvents();
    Rows().SetActiveRow(row);
    QTest::keyClick(form.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  }
  int found = 0;
};

struct Copied {
  int row;
  const char* plain;  // text/plain and text/x-tex
  const char* html;
};

const Copied kCopied[] = {
    {0, R"(y=2\sin\left(x\right)+\frac{x}{2})", "y = 2 sin(x) + x/2"},
    {2, R"(y=x^{2}\quad\left\{0<x<3\right\})", "y = x², 0 &lt; x &lt; 3"},
    {4, R"(x^{2}+y^{2}\le 9)", "x² + y² ≤ 9"},
};

void ExpectCopied(const RecordingDesktop& desktop, const Copied& c) {
  EXPECT_EQ(desktop.clipboard, QString::fromUtf8(c.plain)) << c.row;
  EXPECT_EQ(desktop.clipboardFormats.value("text/plain"), QString::fromUtf8(c.plain)) << c.row;
  EXPECT_EQ(desktop.clipboardFormats.value("text/x-tex"), QString::fromUtf8(c.plain)) << c.row;
  EXPECT_EQ(desktop.clipboardFormats.value("text/html"), QString::fromUtf8(c.html)) << c.row;
}

TEST(RowCopy, TheMenuItemCopiesTheRowAsLatexAndAsText) {
  Window w;
  for (const Copied& c : kCopied) {
    w.CopyFromMenu(c.row);
    ExpectCopied(w.desktop, c);
  }
  EXPECT_EQ(w.found, 3);
}

TEST(RowCopy, CtrlShiftCCopiesTheActiveRow) {
  Window w;
  for (const Copied& c : kCopied) {
    w.desktop.clipboardFormats.clear();
    w.CopyByKey(c.row);
    ExpectCopied(w.desktop, c);
  }
}

TEST(RowCopy, ANoteCopiesItsTextAndAnEmptyRowNothing) {
  Window w;
  w.CopyFromMenu(3);
  EXPECT_EQ(w.desktop.clipboard, "The circle's radius is 3 & more");
  EXPECT_EQ(w.desktop.clipboardFormats.keys(), QStringList{"text/plain"});
  w.desktop.clipboard = "before";
  w.CopyFromMenu(1);
  w.CopyByKey(1);
  EXPECT_EQ(w.desktop.clipboard, "before");
}

TEST(RowCopy, TheMenuItemSaysWhatItDoesAndItsKey) {
  Window w;
  ribbon::CommandControl* item = w->FunctionMenu().Item(1175);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->Caption(), "Copy as LaTeX and Text");
  EXPECT_EQ(item->Shortcut(), "Ctrl+Shift+C");
  EXPECT_FALSE(item->ToolTip().isEmpty());
  // On every kind of row, so that the key works whichever row the menu opened on last.
  for (int row = 0; row < 5; ++row) {
    w->FunctionMenu().Prepare(row);
    EXPECT_TRUE(item->Visible()) << row;
  }
}

}  // namespace
