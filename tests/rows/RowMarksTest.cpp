// What a row shows of itself in the list: the warning of a row that cannot be drawn, a hidden row
// greyed, its whole text where the editor cuts it off.
#include "core/Tag.h"
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "rows/FunctionList.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"
#include "QtPrinters.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

namespace {

struct Window : MainWindowFixture {
  Window() {
    form->resize(1200, 800);
    form->show();
  }
  // Types text into row i as a user does: a click on the row's editor, the linear text typed into
  // the insert dialog, Insert.
  void Type(int i, const QString& text) {
    QTest::mouseClick(Rows().Row(i).mthFunction, Qt::LeftButton);
    dialogs::frmInsert* insert = form->Insert();
    ASSERT_NE(insert, nullptr);
    QApplication::setActiveWindow(insert);
    insert->txtLinear()->setFocus();
    insert->txtLinear()->selectAll();
    QTest::keyClick(insert->txtLinear(), Qt::Key_Delete);
    QTest::keyClicks(insert->txtLinear(), text);
    QTest::mouseClick(insert->btnInsert(), Qt::LeftButton);
    QApplication::processEvents();
  }
  QToolButton* Mark(int i) { return Rows().Row(i).imgProblem; }
};

struct TypedCase {
  const char* Typed;
  const char* Why;
};

class ARowThatCannotBeDrawn : public ::testing::TestWithParam<TypedCase> {};

TEST_P(ARowThatCannotBeDrawn, ShowsAWarningThatSaysWhyAndGoesWhenMended) {
  const TypedCase& c = GetParam();
  Window w;
  w.Fill({"y=x"});
  w.Rows().AddFunction(false);
  w.Type(1, QString::fromUtf8(c.Typed));
  ASSERT_EQ(w.Rows().Row(1).mthFunction->Text(), QString::fromUtf8(c.Typed));
  ASSERT_FALSE(w.Mark(1)->isHidden());
  EXPECT_EQ(w.Mark(1)->toolTip(), QString::fromUtf8(c.Why));
  EXPECT_EQ(w.Mark(1)->accessibleDescription(), QString::fromUtf8(c.Why));
  EXPECT_EQ(w.Mark(1)->accessibleName(), "Cannot be drawn");
  EXPECT_FALSE(w.Mark(1)->icon().isNull());
  EXPECT_EQ(w.Mark(1)->iconSize(), QSize(16, 16));
  // Beside the editor, in the row, and on the screen.
  const QRect editor = w.Rows().Row(1).mthFunction->geometry();
  EXPECT_GE(w.Mark(1)->x(), editor.right());
  EXPECT_LE(w.Mark(1)->geometry().bottom(), w.Rows().Row(1).grpFunction->height());
  EXPECT_TRUE(w.Mark(1)->isVisible());
  // The good row beside it has none, and no message box came.
  EXPECT_TRUE(w.Mark(0)->isHidden());
  EXPECT_TRUE(w.boxes.boxes.empty());

  w.Type(1, QStringLiteral("y=2x+1"));
  EXPECT_TRUE(w.Mark(1)->isHidden());
}

INSTANTIATE_TEST_SUITE_P(Typed, ARowThatCannotBeDrawn,
                         ::testing::Values(TypedCase{"y=q*x", "Unknown name: q"},
                                           TypedCase{"[x,y;1,q]", "Unknown name: q"},
                                           TypedCase{"r=r+1", "r stands on both sides of the \"=\""},
                                           TypedCase{"7", "Nothing to draw: the row has no x, y or r"}));

TEST(RowMarks, AWarningGoesWithItsRowWhenRowsAreExchanged) {
  Window w;
  w.Fill({"y=(x", "y=x"});
  w->Replot(false);
  ASSERT_FALSE(w.Mark(0)->isHidden());
  w.Rows().MoveFunctionTo(0, 1);
  EXPECT_TRUE(w.Mark(0)->isHidden());
  EXPECT_EQ(w.Mark(1)->toolTip(), "A bracket is not closed");
}

TEST(RowMarks, NotesAndConstantsCarryNone) {
  Window w;
  w.Fill({"a=2", "y=a*x", "command==>[showgrid]", ""});
  w->Replot(false);
  for (int i = 0; i <= w.Rows().HighestIndex(); ++i) EXPECT_TRUE(w.Mark(i)->isHidden()) << i;
}

// Dark pixels of a row's equation, as the list shows it.
int DarkPixels(rows::FunctionRow& row) {
  const QImage picture = row.grpFunction->grab(row.mthFunction->geometry()).toImage();
  int dark = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) dark += qGray(picture.pixel(x, y)) < 128;
  }
  return dark;
}

TEST(RowMarks, AHiddenRowLooksHidden) {
  Window w;
  w.Fill({"y=x^2+2x+1", "y=x^2+2x+1"});
  auto& menu = w->FunctionMenu();
  menu.Prepare(1);
  w.Run(1169);  // hidden
  EXPECT_EQ(core::Tag(w.Rows().Row(1).grpFunction), "False,False,False,True,False,0");
  const int shown = DarkPixels(w.Rows().Row(0)), hidden = DarkPixels(w.Rows().Row(1));
  EXPECT_GT(shown, 20);
  EXPECT_LT(hidden, shown / 4) << "the hidden row's equation is greyed";
  EXPECT_TRUE(w.Rows().Row(1).mthFunction->accessibleDescription().endsWith("hidden: not drawn"))
      << w.Rows().Row(1).mthFunction->accessibleDescription().toStdString();
  // The layout pass keeps it so, and showing the row again brings its colour back.
  w.Rows().Refresh_mth_Height(false);
  EXPECT_LT(DarkPixels(w.Rows().Row(1)), shown / 4);
  menu.Prepare(1);
  w.Run(1169);
  EXPECT_EQ(DarkPixels(w.Rows().Row(1)), shown);
}

TEST(RowMarks, AHiddenCommandRowIsNotGreyed) {
  Window w;
  w.Fill({"command==>[showgrid]"});
  core::SetTag(w.Rows().Row(0).grpFunction, "False,False,False,True,False,0");
  w.Rows().Refresh_mth_Height(false);
  EXPECT_EQ(w.Rows().Row(0).mthFunction->graphicsEffect(), nullptr);
}

TEST(RowMarks, ARowCutOffByItsEditorShowsItsWholeTextOnHover) {
  Window w;
  w.Fill({"y=x", "y=x^2+2*x+1+x^3+x^4+x^5+x^6+x^7+x^8+x^9+x^10+x^11+x^12+x^13+x^14"});
  mathx::MthX* shortRow = w.Rows().Row(0).mthFunction;
  mathx::MthX* longRow = w.Rows().Row(1).mthFunction;
  ASSERT_GT(longRow->sizeHint().width(), longRow->width());
  EXPECT_EQ(w.Rows().EditorToolTip(0), shortRow->toolTip());
  const QString whole = w.Rows().EditorToolTip(1);
  EXPECT_TRUE(whole.contains("data:image/png;base64,")) << whole.left(80).toStdString();
  EXPECT_TRUE(whole.contains(longRow->toolTip()));
  // The picture is the whole formula: as wide as the editor would need to be.
  EXPECT_TRUE(whole.contains(QStringLiteral("width=\"%1\"").arg(std::ceil(longRow->Typeset().Size().width()))));
  // Hovering shows it.
  QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), longRow->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(longRow, &hover);
  EXPECT_EQ(QToolTip::text(), whole);
  QToolTip::hideText();
}

// The rows take the width the scroll bar leaves them: all of it once the bar hides.
TEST(RowMarks, NoStripIsLeftWhereTheScrollBarWas) {
  Window w;
  rows::FunctionList& list = w.Rows();
  for (int i = 0; i < 30; ++i) list.AddFunction(false);
  ASSERT_FALSE(list.scrlFunctions()->isHidden());
  EXPECT_EQ(list.Row(0).grpFunction->width(), list.grpFunctions()->width() - list.scrlFunctions()->width());
  // Right after the removal that hides the bar, with no other layout pass after it.
  while (!list.scrlFunctions()->isHidden() && list.HighestIndex() > 0) list.RemoveFunction(list.HighestIndex(), false);
  ASSERT_TRUE(list.scrlFunctions()->isHidden());
  EXPECT_EQ(list.Row(0).grpFunction->width(), list.grpFunctions()->width());
  EXPECT_EQ(list.picFunction()->width(), list.grpFunctions()->width());
}

}  // namespace
