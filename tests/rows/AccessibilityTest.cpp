// What a screen reader hears of the main window: every control that the keyboard reaches has a
// name, so that nothing is announced as a bare "button" or "edit".
#include "rows/ColorButton.h"
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "rows/FunctionList.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QToolButton>
#include <QWidget>

namespace {

QString Describe(QWidget* widget) {
  QStringList path;
  for (QWidget* at = widget; at != nullptr; at = at->parentWidget())
    path.prepend(at->objectName().isEmpty() ? QString::fromLatin1(at->metaObject()->className()) : at->objectName());
  return path.join(u'/');
}

// The controls within the window that can take the focus (as the desktop's accessibility bus
// lists them) and that say nothing.
QStringList Nameless(QWidget& window) {
  QStringList nameless;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisibleTo(&window) || !widget->isEnabled()) continue;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
    if (accessible == nullptr || accessible->text(QAccessible::Name).trimmed().isEmpty()) nameless << Describe(widget);
  }
  return nameless;
}

}  // namespace

TEST(Accessibility, EveryControlOfTheMainWindowHasAName) {
  MainWindowFixture w;
  w->show();
  w.Fill({"y=2sin(x)+x/2", "a=2", "[x,y;1,2;3,4]"});
  QApplication::processEvents();
  const QStringList nameless = Nameless(*w.form);
  EXPECT_TRUE(nameless.isEmpty()) << nameless.join(u'\n').toStdString();
}

TEST(Accessibility, ARowSaysItsNumberColourEquationAndState) {
  MainWindowFixture w;
  w.Fill({"y=2sin(x)+x/2", "a=2"});
  w.Rows().Row(1).colrFunction->SetColor(16711680);
  w.Rows().Refresh_mth_Height(false);
  const auto name = [&w](int row) {
    return QAccessible::queryAccessibleInterface(w.Rows().Row(row).mthFunction)->text(QAccessible::Name);
  };
  const auto description = [&w](int row) {
    return QAccessible::queryAccessibleInterface(w.Rows().Row(row).mthFunction)->text(QAccessible::Description);
  };
  EXPECT_EQ(name(0), "Row 1, red");
  EXPECT_EQ(name(1), "Row 2, blue");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(w.Rows().Row(1).colrFunction)->text(QAccessible::Name),
            "Colour of row 2: blue");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(w.Rows().Row(0).btnMore)->text(QAccessible::Name), "Menu of row 1");
  EXPECT_EQ(description(0), "y equals 2 sine of x plus x over 2");
  EXPECT_EQ(description(1), "a equals 2");
  w->FunctionMenu().Prepare(1);
  w.Run(1169);  // hidden
  QApplication::processEvents();
  EXPECT_EQ(description(1), "a equals 2, hidden: not drawn");
  w->FunctionMenu().Prepare(0);
  w.Run(1135);  // a note
  QApplication::processEvents();
  EXPECT_TRUE(description(0).startsWith("Note")) << description(0).toStdString();
}

TEST(Accessibility, EveryControlOfTheDialogsHasAName) {
  MainWindowFixture w;
  w->show();
  w.Fill({"y=x^2"});
  w.state.InsertSource = 0;
  w.state.InsertIndex = 0;
  w->ShowInsert();
  QApplication::processEvents();
  ASSERT_NE(w->Insert(), nullptr);
  QStringList nameless = Nameless(*w->Insert());
  EXPECT_TRUE(nameless.isEmpty()) << "insert dialog:\n" << nameless.join(u'\n').toStdString();
  w->CloseInsert();
  w->ShowRange(QStringLiteral("Plot Range"), QPoint(100, 100));
  QApplication::processEvents();
  ASSERT_NE(w->Range(), nullptr);
  nameless = Nameless(*w->Range());
  EXPECT_TRUE(nameless.isEmpty()) << "range dialog:\n" << nameless.join(u'\n').toStdString();
}

TEST(Accessibility, ThePlotSaysWhatItShows) {
  MainWindowFixture w;
  w.Fill({"y=x^2", "a=2", "", "[x,y;1,2;3,4]", "r=2cos(3theta)"});
  w->Replot();
  const auto description = [&w] {
    return QAccessible::queryAccessibleInterface(&w->Plot())->text(QAccessible::Description);
  };
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&w->Plot())->text(QAccessible::Name), "Plot");
  EXPECT_EQ(description(),
            "x from -10 to 10, y from -10 to 10. Row 1, red: curve, y equals x squared. Row 2, orange: constant, a equals "
            "2. Row 4, yellow: points, points: 1 comma 2; 3 comma 4. Row 5, green: polar curve, r equals 2 cosine of 3 theta. "
            "Arrow keys move the view, plus and minus zoom. N goes to the next notable point, Shift+N to the previous, "
            "Home and End to the first and last, Escape leaves them.");
  w->FunctionMenu().Prepare(0);
  w.Run(1169);  // hidden: no longer drawn, no longer said
  w->Replot();
  EXPECT_FALSE(description().contains("squared"));
}

TEST(Accessibility, NAtThePlotSaysANotablePointWithTheRowItBelongsTo) {
  MainWindowFixture w;
  w->show();
  QApplication::setActiveWindow(w.form.get());
  // The curve is typed into the second row with the first left empty: the first curve drawn is
  // row 2's, and it is said as row 2.
  w.Fill({"", ""});
  mathx::MthX* second = w.Rows().Row(1).mthFunction;
  second->setFocus();
  QTest::keyClicks(second, QStringLiteral("y=x^2-1"));
  ASSERT_EQ(second->Text(), "y=x^2-1");
  w->Replot();
  // The window draws the plot once more when it has kept its size for 200 ms after showing, and
  // a redraw ends a walk: that drawing comes first.
  QTest::qWait(500);
  plot2d::PlotWidget& plot = w->Plot();
  plot.setFocus();
  QApplication::processEvents();
  ASSERT_EQ(QApplication::focusWidget(), &plot);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&plot);
  const QString description = accessible->text(QAccessible::Description);
  EXPECT_TRUE(description.startsWith("x from -10 to 10, y from -10 to 10. Row 2, orange: curve")) << description.toStdString();

  QTest::keyClick(&plot, Qt::Key_N);
  QApplication::processEvents();
  EXPECT_EQ(accessible->text(QAccessible::Name), "Root of row 2 at (-1, 0), point 1 of 3");
  QTest::keyClick(&plot, Qt::Key_N);
  QApplication::processEvents();
  EXPECT_EQ(accessible->text(QAccessible::Name), "Minimum and y-Intercept of row 2 at (0, -1), point 2 of 3");
  // The window's account of what is drawn stays as it was, and the plot's name comes back.
  EXPECT_EQ(accessible->text(QAccessible::Description), description);
  QTest::keyClick(&plot, Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(accessible->text(QAccessible::Name), "Plot");
  EXPECT_EQ(accessible->text(QAccessible::Description), description);
}

TEST(Accessibility, AnEquationEditorIsEditableTextWithTheEquationAsItsValue) {
  MainWindowFixture w;
  w->show();
  w.Fill({"y=x^2"});
  QAccessibleInterface* row = QAccessible::queryAccessibleInterface(w.Rows().Row(0).mthFunction);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->role(), QAccessible::EditableText) << "a row takes typing in place";
  EXPECT_EQ(row->text(QAccessible::Value), "y=x^2");
  w.state.InsertSource = 0;
  w.state.InsertIndex = 0;
  w->ShowInsert();
  QApplication::processEvents();
  ASSERT_NE(w->Insert(), nullptr);
  QAccessibleInterface* standard = QAccessible::queryAccessibleInterface(w->Insert()->mthStandard());
  ASSERT_NE(standard, nullptr);
  EXPECT_EQ(standard->role(), QAccessible::EditableText);
  EXPECT_TRUE(standard->state().editable);
  EXPECT_EQ(standard->text(QAccessible::Name), "Standard Equation Style");
  // An editor that takes no typing (the second inequality while it is off) is a button to click.
  mathx::MthX still;
  still.SetEditMode(0);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&still)->role(), QAccessible::Button);
}
