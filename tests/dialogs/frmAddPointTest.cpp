// The points editor: a row's point list taken apart into table lines and written back, the line
// that waits under the filled ones, removal, the coordinates, the values of the expressions, the
// keys, pasting columns, the points computed from the evaluator's description, and its growing.
#include "core/Tag.h"
#include "core/Twips.h"
#include "dialogs/frmAddPoint.h"
#include "script/ScriptControl.h"

#include <gtest/gtest.h>

#include "RowDialogsSupport.h"

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

using dialogs::frmAddPoint;

namespace {

struct TableFixture {
  TableFixture() : state(InitialisedState()), evaluation(state, engine) {
    expression::StartScriptEngine(engine, state);
  }
  ~TableFixture() { delete dialog.data(); }

  // The table for a row holding the text given, opened and activated, grown unless a test wants
  // to watch it grow.
  frmAddPoint& Open(const QString& rowText, const QString& tag = QStringLiteral("0"), bool grown = true) {
    rows.texts[0] = rowText;
    delete dialog.data();
    dialog = new frmAddPoint(tag, rows, state, evaluation, boxes);
    dialog->PasteText = [this] { return clipboard; };
    dialog->show();
    QApplication::setActiveWindow(dialog);
    dialog->Form_Activate();
    for (int i = 0; grown && i < 200; ++i) dialog->tmrResize_Timer();
    return *dialog;
  }
  QLineEdit* Field(int line, int column) const {
    return column == 0 ? dialog->txtPoint_X(line) : dialog->txtPoint_Y(line);
  }
  // Types into a field as the user does: the field takes the focus, its text is replaced.
  void Type(int line, int column, const QString& text) {
    QLineEdit* field = Field(line, column);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    TypeKeys(field, text);
  }
  QString X(int line) const { return dialog->txtPoint_X(line)->text(); }
  QString Y(int line) const { return dialog->txtPoint_Y(line)->text(); }
  QString Ok() {
    QTest::mouseClick(dialog->btnOK(), Qt::LeftButton);
    return rows.texts[0];
  }
  QWidget* Focus() const { return QApplication::focusWidget(); }

  core::SharedState state;
  script::ScriptControl engine;
  expression::ScriptEvaluation evaluation;
  RecordingBoxes boxes;
  FakeRows rows;
  QPointer<frmAddPoint> dialog;
  QString clipboard;
};

}  // namespace

TEST(frmAddPoint, OnePointOpensAsOneFilledLineAndAnEmptyOneWaitsAfterTheFirstChange) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]");
  ASSERT_EQ(d.PointCount(), 1);
  EXPECT_EQ(f.X(0), "1");
  EXPECT_EQ(f.Y(0), "2");
  EXPECT_EQ(d.lblIndex(0)->text(), "1");
  EXPECT_EQ(d.cmbPointGrid()->currentText(), "Cartesian");
  EXPECT_EQ(d.lblColumn(0)->text(), "x");
  EXPECT_EQ(d.lblColumn(1)->text(), "y");
  EXPECT_EQ(d.windowTitle(), "Points of Function 1");
  QTest::keyClick(d.txtPoint_Y(0), Qt::Key_End);
  TypeKeys(d.txtPoint_Y(0), "5");
  ASSERT_EQ(d.PointCount(), 2);
  EXPECT_EQ(f.Y(0), "25");
  EXPECT_EQ(f.X(1), "");
  EXPECT_EQ(f.Y(1), "");
  EXPECT_EQ(d.lblIndex(1)->text(), "2");
  // Further changes of the filled line add no more.
  QTest::keyClick(d.txtPoint_X(0), Qt::Key_End);
  TypeKeys(d.txtPoint_X(0), "0");
  EXPECT_EQ(d.PointCount(), 2);
  EXPECT_EQ(f.Ok(), "[x,y;10,25]");
}

TEST(frmAddPoint, EveryHeadOpensInItsColumnsAndComesBackInTheNormalHead) {
  struct Case {
    const char* row;
    const char* grid;
    const char* first;
    const char* second;
    const char* written;
  };
  const Case cases[] = {
      {"[x,y;1,2;3,4.5]", "Cartesian", "1", "2", "[x,y;1,2;3,4.5]"},
      {"[y,x;1,2;3,4.5]", "Cartesian", "2", "1", "[x,y;2,1;4.5,3]"},
      {"[r,q..symb;1,2;3,4.5]", "Polar", "1", "2", "[r,q..symb;1,2;3,4.5]"},
      {"[q..symb,r;1,2;3,4.5]", "Polar", "2", "1", "[r,q..symb;2,1;4.5,3]"},
      {"[x, y; 1 , 2 ;3,4.5 ]", "Cartesian", "1", "2", "[x,y;1,2;3,4.5]"},
      {"[x,y;pi/2,sin(1);3,4.5]", "Cartesian", "pi/2", "sin(1)", "[x,y;pi/2,sin(1);3,4.5]"},
  };
  for (const Case& c : cases) {
    TableFixture f;
    frmAddPoint& d = f.Open(c.row);
    ASSERT_EQ(d.PointCount(), 2) << c.row;
    EXPECT_EQ(d.cmbPointGrid()->currentText(), c.grid) << c.row;
    EXPECT_EQ(f.X(0), c.first) << c.row;
    EXPECT_EQ(f.Y(0), c.second) << c.row;
    EXPECT_EQ(f.Ok(), c.written) << c.row;
    EXPECT_EQ(f.rows.focus, std::vector<int>{0});
  }
}

TEST(frmAddPoint, TemplatesAndTextsWithoutPointsOpenOneEmptyLine) {
  for (const char* row : {"", "[x,y;,]", "[r,q..symb;,]", "[x,y]", "[", "y=sin(x)", "command==>[showgrid]"}) {
    TableFixture f;
    frmAddPoint& d = f.Open(row);
    EXPECT_EQ(d.PointCount(), 1) << row;
    EXPECT_EQ(f.X(0), "") << row;
    EXPECT_EQ(f.Y(0), "") << row;
  }
}

TEST(frmAddPoint, OKWithNoCompleteLineWritesTheBareHead) {
  {
    TableFixture f;
    f.Open("");
    EXPECT_EQ(f.Ok(), "[x,y]");
  }
  {
    TableFixture f;
    frmAddPoint& d = f.Open("");
    f.Type(0, 0, "3");
    EXPECT_EQ(d.PointCount(), 1);
    EXPECT_EQ(f.Ok(), "[x,y]") << "a line with one empty field is dropped";
  }
  {
    TableFixture f;
    frmAddPoint& d = f.Open("");
    d.cmbPointGrid()->setCurrentText("Polar");
    f.Type(0, 1, "   ");
    f.Type(0, 0, "1");
    EXPECT_EQ(f.Ok(), "[r,q..symb]");
  }
}

TEST(frmAddPoint, HalfFilledLinesAreDroppedAndTheOthersKeepTheirOrder) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2;3,4;5,6]");
  f.Type(1, 1, "");
  ASSERT_EQ(d.PointCount(), 3);
  EXPECT_EQ(f.Ok(), "[x,y;1,2;5,6]");
}

TEST(frmAddPoint, TypingAddsLinesUpToTheFiftiethAndNoFiftyFirst) {
  TableFixture f;
  frmAddPoint& d = f.Open("");
  for (int i = 0; i < 50; ++i) {
    ASSERT_EQ(d.PointCount(), i + 1);
    f.Type(i, 0, QString::number(i));
    EXPECT_EQ(d.PointCount(), i + 1) << "one field is not enough";
    f.Type(i, 1, QString::number(i * i));
  }
  EXPECT_EQ(d.PointCount(), 50);
  f.Type(49, 1, "2");
  f.Type(49, 0, "7");
  EXPECT_EQ(d.PointCount(), 50);
  EXPECT_EQ(d.lblIndex(49)->text(), "50");
  // Enter on the last line adds none either.
  QTest::keyClick(d.txtPoint_Y(49), Qt::Key_Return);
  EXPECT_EQ(d.PointCount(), 50);
  const QString written = f.Ok();
  EXPECT_EQ(written.count(u';'), 50);
  EXPECT_TRUE(written.endsWith(";48,2304;7,2]"));
}

TEST(frmAddPoint, RemovingALineMovesTheOthersUpAndTheLastWidgetsGo) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2;3,4;5,6;7,8]");
  ASSERT_EQ(d.PointCount(), 4);
  QPointer<QLineEdit> lastX = d.txtPoint_X(3);
  QTest::mouseClick(d.btnRemove(1), Qt::LeftButton);
  ASSERT_EQ(d.PointCount(), 3);
  EXPECT_EQ(f.X(0), "1");
  EXPECT_EQ(f.X(1), "5");
  EXPECT_EQ(f.Y(2), "8");
  EXPECT_EQ(d.lblIndex(2)->text(), "3") << "a line's number stays with its widgets";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(lastX.isNull());
  EXPECT_EQ(d.btnRemove(1)->toolTip(), "Remove This Point");
  // The line after the one removed has the focus.
  EXPECT_EQ(f.Focus(), d.txtPoint_X(1));
  QTest::mouseClick(d.btnRemove(2), Qt::LeftButton);
  QTest::mouseClick(d.btnRemove(0), Qt::LeftButton);
  ASSERT_EQ(d.PointCount(), 1);
  EXPECT_EQ(f.X(0), "5");
  // The only line is emptied, not removed.
  QTest::mouseClick(d.btnRemove(0), Qt::LeftButton);
  ASSERT_EQ(d.PointCount(), 1);
  EXPECT_EQ(f.X(0), "");
  EXPECT_EQ(f.Y(0), "");
  EXPECT_TRUE(f.boxes.boxes.empty());
  EXPECT_EQ(f.Ok(), "[x,y]");
}

TEST(frmAddPoint, TheCoordinatesChangeTheColumnLettersOnly) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]");
  d.cmbPointGrid()->setCurrentText("Polar");
  EXPECT_EQ(d.lblColumn(0)->text(), "r");
  EXPECT_EQ(d.lblColumn(1)->text(), QString(QChar(0x03b8))) << "a real theta";
  EXPECT_EQ(f.X(0), "1");
  EXPECT_EQ(f.Y(0), "2");
  d.cmbPointGrid()->setCurrentText("Cartesian");
  EXPECT_EQ(d.lblColumn(0)->text(), "x");
  EXPECT_EQ(d.lblColumn(1)->text(), "y");
  EXPECT_TRUE(d.lblColumn(0)->font().italic());
  d.cmbPointGrid()->setCurrentText("Polar");
  EXPECT_EQ(f.Ok(), "[r,q..symb;1,2]");
}

TEST(frmAddPoint, CancelEscapeAndTheCloseButtonWriteNothing) {
  for (int way = 0; way < 3; ++way) {
    TableFixture f;
    frmAddPoint& d = f.Open("[x,y;1,2]");
    f.Type(0, 0, "9");
    if (way == 0) QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    if (way == 1) QTest::keyClick(d.txtPoint_X(0), Qt::Key_Escape);
    if (way == 2) d.close();
    EXPECT_TRUE(f.dialog.isNull() || f.dialog->isHidden()) << way;
    EXPECT_EQ(f.rows.texts[0], "[x,y;1,2]") << way;
    EXPECT_TRUE(f.rows.writes.isEmpty()) << way;
    EXPECT_EQ(f.rows.focus, std::vector<int>{0}) << way;
  }
}

TEST(frmAddPoint, ItStaysOpenWhenAnotherWindowIsActivated) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]");
  QEvent leave(QEvent::WindowDeactivate);
  QApplication::sendEvent(&d, &leave);
  EXPECT_FALSE(d.isHidden());
  EXPECT_TRUE(f.rows.writes.isEmpty());
}

TEST(frmAddPoint, ExpressionsShowTheirValueAndAreWrittenAsTyped) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;pi/2,2]");
  ASSERT_NE(d.ValueOf(0, 0), nullptr);
  EXPECT_FALSE(d.ValueOf(0, 0)->isHidden());
  EXPECT_EQ(d.ValueOf(0, 0)->text(), "= 1.5708");
  EXPECT_TRUE(d.ValueOf(0, 1)->isHidden()) << "a plain number shows nothing more";
  // The value stands inside the field, at its right, and the typed text keeps clear of it.
  const QRect value = d.ValueOf(0, 0)->geometry();
  EXPECT_GT(value.x(), d.txtPoint_X(0)->width() / 3);
  EXPECT_LE(value.right(), d.txtPoint_X(0)->width());
  EXPECT_GE(d.txtPoint_X(0)->textMargins().right(), value.width());
  f.Type(0, 1, "sqrt(2)");
  EXPECT_EQ(d.ValueOf(0, 1)->text(), "= 1.4142");
  f.Type(0, 1, "1/0");
  EXPECT_EQ(d.ValueOf(0, 1)->text(), "?");
  EXPECT_TRUE(d.ValueOf(0, 1)->property("invalid").toBool());
  f.Type(0, 1, "-2.5e1");
  EXPECT_TRUE(d.ValueOf(0, 1)->isHidden());
  EXPECT_EQ(d.txtPoint_Y(0)->textMargins().right(), 0);
  f.Type(0, 1, "2pi");
  EXPECT_EQ(d.ValueOf(0, 1)->text(), "= 6.2832");
  // A comma or a semicolon cannot stand in a point of the row's text.
  f.Type(0, 0, "1,5");
  EXPECT_EQ(d.ValueOf(0, 0)->text(), "?");
  f.Type(0, 0, "pi/2");
  EXPECT_EQ(f.Ok(), "[x,y;pi/2,2pi]");
}

TEST(frmAddPoint, TabRunsThroughTheFieldsLineAfterLine) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2;3,4]");
  d.txtPoint_X(0)->setFocus();
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  EXPECT_EQ(f.Focus(), d.txtPoint_Y(0));
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  EXPECT_EQ(f.Focus(), d.txtPoint_X(1)) << "the remove button is no stop";
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  EXPECT_EQ(f.Focus(), d.txtPoint_Y(1));
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  EXPECT_EQ(f.Focus(), d.btnOK());
  QTest::keyClick(f.Focus(), Qt::Key_Backtab);
  EXPECT_EQ(f.Focus(), d.txtPoint_Y(1));
}

TEST(frmAddPoint, EnterOnAButtonPressesIt) {
  {
    TableFixture f;
    frmAddPoint& d = f.Open("[x,y;1,2]");
    d.btnCancel()->setFocus();
    QTest::keyClick(d.btnCancel(), Qt::Key_Return);
    EXPECT_TRUE(f.dialog.isNull() || f.dialog->isHidden());
    EXPECT_TRUE(f.rows.writes.isEmpty());
  }
  {
    TableFixture f;
    frmAddPoint& d = f.Open("[x,y;1,2]");
    d.btnOK()->setFocus();
    QTest::keyClick(d.btnOK(), Qt::Key_Return);
    EXPECT_EQ(f.rows.writes, QStringList{"[x,y;1,2]"});
  }
}

TEST(frmAddPoint, PointsCanBeTypedWithTheKeysAlone) {
  TableFixture f;
  frmAddPoint& d = f.Open("");
  EXPECT_EQ(f.Focus(), d.txtPoint_X(0));
  TypeKeys(f.Focus(), "1");
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  TypeKeys(f.Focus(), "2");
  ASSERT_EQ(d.PointCount(), 2) << "the waiting line";
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  EXPECT_EQ(f.Focus(), d.txtPoint_X(1));
  TypeKeys(f.Focus(), "pi");
  QTest::keyClick(f.Focus(), Qt::Key_Tab);
  TypeKeys(f.Focus(), "-1");
  EXPECT_EQ(f.Ok(), "[x,y;1,2;pi,-1]");
}

TEST(frmAddPoint, EnterGoesOnAndOnTheLastLineAddsTheNext) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]");
  ASSERT_EQ(d.PointCount(), 1);
  d.txtPoint_Y(0)->setFocus();
  QTest::keyClick(d.txtPoint_Y(0), Qt::Key_Return);
  ASSERT_EQ(d.PointCount(), 2);
  EXPECT_EQ(f.Focus(), d.txtPoint_X(1));
  // In the first field with the second empty, Enter goes to the second.
  TypeKeys(d.txtPoint_X(1), "3");
  QTest::keyClick(d.txtPoint_X(1), Qt::Key_Enter);
  EXPECT_EQ(f.Focus(), d.txtPoint_Y(1));
  TypeKeys(d.txtPoint_Y(1), "4");
  ASSERT_EQ(d.PointCount(), 3) << "the filled last line got its waiting line";
  QTest::keyClick(d.txtPoint_Y(1), Qt::Key_Return);
  EXPECT_EQ(f.Focus(), d.txtPoint_X(2));
  // On an empty last line Enter adds nothing and does not close the table.
  QTest::keyClick(d.txtPoint_X(2), Qt::Key_Return);
  QTest::keyClick(d.txtPoint_Y(2), Qt::Key_Return);
  EXPECT_EQ(d.PointCount(), 3);
  EXPECT_FALSE(d.isHidden());
  EXPECT_TRUE(f.rows.writes.isEmpty());
  EXPECT_EQ(f.Ok(), "[x,y;1,2;3,4]");
}

TEST(frmAddPoint, PastingTwoColumnsFillsTheLines) {
  struct Case {
    const char* clipboard;
    const char* written;
  };
  const Case cases[] = {
      {"1\t2\n3\t4\n5\t6\n", "[x,y;1,2;3,4;5,6]"},                   // a spreadsheet's cells
      {"1\t2\r\n3\t4\r\n", "[x,y;1,2;3,4]"},                         // with Windows line ends
      {"x\ty\n1\t2\n3\t4", "[x,y;1,2;3,4]"},                         // its head line left out
      {"1,2\n3.5,4\n\n5,6", "[x,y;1,2;3.5,4;5,6]"},                  // commas, a blank line
      {"0, sin(0)\npi/2, sin(pi/2)", "[x,y;0,sin(0);pi/2,sin(pi/2)]"},  // expressions
      {"max(1,2),3", nullptr},  // a comma in brackets stays in its cell, where OK refuses it
      {"1 2\n3   4", "[x,y;1,2;3,4]"},                                // numbers apart by blanks
      {"1;2", "[x,y;1,2]"},
  };
  for (const Case& c : cases) {
    TableFixture f;
    frmAddPoint& d = f.Open("");
    f.clipboard = c.clipboard;
    d.txtPoint_X(0)->setFocus();
    QTest::keySequence(d.txtPoint_X(0), QKeySequence::Paste);
    if (c.written == nullptr) {
      EXPECT_FALSE(d.btnOK()->isEnabled()) << c.clipboard;
      EXPECT_EQ(f.Ok(), "") << c.clipboard;
      continue;
    }
    EXPECT_EQ(f.Ok(), c.written) << c.clipboard;
  }
}

TEST(frmAddPoint, APasteStartsAtTheFieldAndOneColumnFillsThatColumn) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2;3,4]");
  f.clipboard = "10\t20\n30\t40\n";
  QTest::keySequence(d.txtPoint_X(1), QKeySequence::Paste);
  ASSERT_EQ(d.PointCount(), 4) << "two lines, then the waiting one";
  EXPECT_EQ(f.X(1), "10");
  EXPECT_EQ(f.Y(2), "40");
  EXPECT_EQ(f.Focus(), d.txtPoint_X(3));
  f.clipboard = "7\n8\n9";
  QTest::keySequence(d.txtPoint_Y(1), QKeySequence::Paste);
  EXPECT_EQ(f.Y(1), "7");
  EXPECT_EQ(f.Y(2), "8");
  EXPECT_EQ(f.Y(3), "9");
  EXPECT_EQ(f.X(3), "");
  EXPECT_EQ(f.Ok(), "[x,y;1,2;10,7;30,8]");
}

TEST(frmAddPoint, OneValueFromTheClipboardIsAnOrdinaryPaste) {
  TableFixture f;
  frmAddPoint& d = f.Open("");
  f.clipboard = "2.5\n";  // one spreadsheet cell
  QTest::keySequence(d.txtPoint_X(0), QKeySequence::Paste);
  EXPECT_EQ(f.X(0), "2.5");
  f.clipboard = "pi";
  d.txtPoint_Y(0)->setFocus();
  TypeKeys(d.txtPoint_Y(0), "2");
  QTest::keySequence(d.txtPoint_Y(0), QKeySequence::Paste);
  EXPECT_EQ(f.Y(0), "2pi");
}

TEST(frmAddPoint, APasteStopsAtFiftyLinesAndSaysSo) {
  TableFixture f;
  frmAddPoint& d = f.Open("");
  QStringList lines;
  for (int i = 0; i < 60; ++i) lines << QStringLiteral("%1\t%2").arg(i).arg(2 * i);
  f.clipboard = lines.join(u'\n');
  QTest::keySequence(d.txtPoint_X(0), QKeySequence::Paste);
  EXPECT_EQ(d.PointCount(), 50);
  EXPECT_EQ(f.X(49), "49");
  EXPECT_TRUE(d.btnFade()->property("warning").toBool());
  EXPECT_TRUE(d.btnFade()->text().contains("10 pasted line"));
  // The next change takes the warning away.
  f.Type(0, 0, "-1");
  EXPECT_FALSE(d.btnFade()->property("warning").toBool());
}

TEST(frmAddPoint, ColumnsThatArriveInTheFieldItselfAreSpreadToo) {
  // Through the field's own menu or a drop the text lands in the field: it is spread all the same.
  TableFixture f;
  frmAddPoint& d = f.Open("");
  d.txtPoint_X(0)->insert("1\t2\n3\t4");
  EXPECT_EQ(f.X(0), "1");
  EXPECT_EQ(f.Y(0), "2");
  EXPECT_EQ(f.X(1), "3");
  EXPECT_EQ(f.Ok(), "[x,y;1,2;3,4]");
}

TEST(frmAddPoint, ThePointsOfADescriptionFromTheEvaluator) {
  struct Case {
    const char* tag;
    const char* grid;
    const char* written;
  };
  const Case cases[] = {
      {"0;x^2;y;0;2;1", "Cartesian", "[x,y;0,0;1,1;2,4]"},
      {"0;y+1;x;0;2;1", "Cartesian", "[x,y;1,0;2,1;3,2]"},
      {"0;2*x;r;0;1;0.5", "Polar", "[r,q..symb;0,0;1,0.5;2,1]"},
      {"0;1/x;y;-1;1;1", "Cartesian", "[x,y;-1,-1;1,1]"},          // x = 0 fails and is left out
      {"0;x;y;2;0;-1", "Cartesian", "[x,y;2,2;1,1;0,0]"},          // a step down
      {"0;x;y;0;1;0", "Cartesian", "[x,y;0,0]"},                   // no step: the first point alone
      {"0;x;y;0;0.3;0.1", "Cartesian", "[x,y;0,0;0.1,0.1;0.2,0.2;0.3,0.3]"},  // no point lost to rounding
      {"0;x;y;5;1;1", "Cartesian", "[x,y;5,5]"},
      {"0;y+1;i;0;2;1", "Cartesian", "[x,y]"},                     // no points for the name i
      {"0;x", "Cartesian", "[x,y]"},                               // a torn description
      {"0;;;;;", "Cartesian", "[x,y]"},
      {"0;x;y;0;1e300;1e-300", "Cartesian", nullptr},              // never ends by itself
  };
  for (const Case& c : cases) {
    TableFixture f;
    frmAddPoint& d = f.Open("y=x", c.tag);
    EXPECT_EQ(core::Tag(&d), "0") << c.tag;
    EXPECT_EQ(d.cmbPointGrid()->currentText(), c.grid) << c.tag;
    EXPECT_EQ(f.Focus(), d.txtPoint_X(0)) << c.tag;
    const QString written = f.Ok();
    if (c.written) {
      EXPECT_EQ(written, c.written) << c.tag;
    }
  }
}

TEST(frmAddPoint, ARowOutsideTheListIsLeftAloneAndThePointsGoIntoANewRow) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]", "7");
  EXPECT_EQ(d.PointCount(), 1);
  EXPECT_EQ(f.X(0), "");
  f.Type(0, 0, "1");
  f.Type(0, 1, "1");
  f.Ok();
  EXPECT_EQ(f.rows.writes, QStringList{"[x,y;1,1]"});
  EXPECT_EQ(f.rows.texts, (QStringList{"[x,y;1,2]", "[x,y;1,1]"}));
}

TEST(frmAddPoint, RefreshControlsKeepsTheMarkUnderTheLastLineAndShowsIt) {
  TableFixture f;
  QStringList points{"[x,y"};
  for (int i = 0; i < 20; ++i) points << QStringLiteral("%1,%2").arg(i).arg(i);
  frmAddPoint& d = f.Open(points.join(u';') + u']');
  ASSERT_EQ(d.PointCount(), 20);
  d.Refresh_Controls();
  EXPECT_EQ(d.btnFade()->y(), d.txtPoint_X(19)->geometry().bottom() + 1 + core::Px(60));
  EXPECT_EQ(d.btnFade()->parentWidget()->height(), d.btnFade()->geometry().bottom() + 1 + core::Px(120));
  QScrollBar* bar = d.rszPoints()->verticalScrollBar();
  EXPECT_GT(bar->maximum(), 0);
  EXPECT_EQ(bar->value(), bar->maximum());
  // Lines stand 60 twips apart.
  EXPECT_EQ(d.txtPoint_X(1)->y() - d.txtPoint_X(0)->geometry().bottom() - 1, core::Px(60));
}

TEST(frmAddPoint, ItGrowsOpenStepByStepAndCanBeTypedIntoMeanwhile) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]", "0", false);
  EXPECT_LE(d.width(), 20);
  EXPECT_LE(d.height(), 20);
  QSize before = d.size();
  d.tmrResize_Timer();
  EXPECT_LE(d.width() - before.width(), core::Px(100));
  EXPECT_LE(d.height() - before.height(), core::Px(170));
  EXPECT_GT(d.width(), before.width());
  // Its values show their start; typing on goes after End.
  QTest::keyClick(d.txtPoint_Y(0), Qt::Key_End);
  TypeKeys(d.txtPoint_Y(0), "5");
  EXPECT_EQ(f.Y(0), "25");
  for (int i = 0; i < 200; ++i) d.tmrResize_Timer();
  EXPECT_EQ(d.size(), d.TargetSize());
  EXPECT_GE(d.width(), core::Px(4000));
  EXPECT_GE(d.height(), core::Px(5500));
  // Its buttons and fields lie inside it.
  EXPECT_LE(d.btnCancel()->geometry().right(), d.width());
  EXPECT_LE(d.btnOK()->geometry().bottom(), d.height());
  EXPECT_GE(d.txtPoint_X(0)->width(), 80);
  // A larger size given by the user stays.
  d.resize(d.width() + 50, d.height() + 80);
  before = d.size();
  d.tmrResize_Timer();
  EXPECT_EQ(d.size(), before);
}

TEST(frmAddPoint, AnyTextInAnyFieldNeverBreaksIt) {
  const QString texts[] = {"",      ";",     ",",        "]",     "[",       "[x,y;1,2]", ";;;", ",,,",   "1,2,3",
                           "1;2;3", "\t",    "\n",       "\r\n",  "x\ty",    "1e308",     "nan", "1/0",   "q..symb",
                           "θ",     "\"",    QString(400, u'('), QString(1000, u'9'), "a\tb\tc\n1\t2\t3", "2pi"};
  for (const QString& text : texts) {
    TableFixture f;
    frmAddPoint& d = f.Open(text.startsWith(u'[') ? text : QStringLiteral("[x,y;") + text + u']');
    f.Type(0, 0, text);
    if (d.PointCount() > 0) f.Type(0, 1, text);
    f.clipboard = text;
    QTest::keySequence(d.txtPoint_X(d.PointCount() - 1), QKeySequence::Paste);
    QTest::keyClick(d.txtPoint_Y(d.PointCount() - 1), Qt::Key_Return);
    d.cmbPointGrid()->setCurrentText("Polar");
    QTest::mouseClick(d.btnRemove(0), Qt::LeftButton);
    f.Ok();
    SUCCEED() << text.toStdString();
  }
}

TEST(frmAddPoint, OKWaitsWhileAFieldIsNoNumber) {
  struct Case {
    const char* typed;
    bool readable;
    const char* written;  // the row after OK, when it takes the table
  };
  const Case cases[] = {
      {"1,5", false, nullptr}, {";", false, nullptr},  {"1;2", false, nullptr}, {"abc", false, nullptr},
      {"2+", false, nullptr},  {"1]", false, nullptr}, {"1.5", true, "[x,y;1.5,2]"},
      {"pi/2", true, "[x,y;pi/2,2]"},                  {"-3e2", true, "[x,y;-3e2,2]"},
  };
  for (const Case& c : cases) {
    TableFixture f;
    frmAddPoint& d = f.Open("[x,y;1,2]");
    f.Type(0, 0, c.typed);
    EXPECT_EQ(d.Readable(), c.readable) << c.typed;
    EXPECT_EQ(d.btnOK()->isEnabled(), c.readable) << c.typed;
    if (!c.readable) {
      EXPECT_EQ(d.ValueOf(0, 0)->text(), "?") << c.typed;
      EXPECT_TRUE(d.btnFade()->text().contains("?")) << c.typed << ": the reason stands under the lines";
      // Neither the button nor a call past it writes the row.
      QTest::mouseClick(d.btnOK(), Qt::LeftButton);
      d.btnOK_Click();
      EXPECT_TRUE(f.rows.writes.isEmpty()) << c.typed;
      EXPECT_FALSE(d.isHidden()) << c.typed;
      // Mended, the table is taken.
      f.Type(0, 0, "7");
      EXPECT_TRUE(d.btnOK()->isEnabled()) << c.typed;
      EXPECT_EQ(f.Ok(), "[x,y;7,2]") << c.typed;
    } else {
      EXPECT_EQ(f.Ok(), c.written) << c.typed;
    }
  }
}

TEST(frmAddPoint, AFieldOfAHalfLineOrALineRemovedCountsAsItStands) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2;3,4]");
  f.Type(1, 1, "4,5");
  EXPECT_FALSE(d.btnOK()->isEnabled());
  QTest::mouseClick(d.btnRemove(1), Qt::LeftButton);
  EXPECT_TRUE(d.btnOK()->isEnabled()) << "the line with the comma is gone";
  EXPECT_EQ(f.Ok(), "[x,y;1,2]");
}

TEST(frmAddPoint, ARemovalPastLineFiftyTakesOneLineLikeAnyOther) {
  for (const int removed : {0, 3, 49, 50, 60}) {
    TableFixture f;
    frmAddPoint& d = f.Open("", "0;2*x;y;0;60;1");
    ASSERT_EQ(d.PointCount(), 61);
    QTest::mouseClick(d.btnRemove(removed), Qt::LeftButton);
    EXPECT_TRUE(f.boxes.boxes.empty()) << removed;
    ASSERT_EQ(d.PointCount(), 60) << removed;
    EXPECT_EQ(f.X(removed == 60 ? 59 : removed), QString::number(removed == 60 ? 59 : removed + 1)) << removed;
    EXPECT_EQ(f.Ok().count(u';'), 60) << removed;
  }
}

TEST(frmAddPoint, PointsReplaceAFunctionOnlyWhenTheUserSaysSo) {
  struct Case {
    const char* row;
    bool asked;
    const char* written;
  };
  const Case cases[] = {{"y=sin(x)", true, "[x,y;5,6]"},  {"x^2+y^2=1", true, "[x,y;5,6]"},
                        {"a=2", true, "[x,y;5,6]"},       {"", false, "[x,y;5,6]"},
                        {"[x,y;1,2]", false, "[x,y;5,6]"}, {"[r,q..symb;1,2]", false, "[r,q..symb;5,6]"}};
  for (const Case& c : cases) {
    for (const auto answer : {platform::MessageBoxes::Answer::No, platform::MessageBoxes::Answer::Yes}) {
      TableFixture f;
      frmAddPoint& d = f.Open(c.row);
      f.Type(0, 0, "5");
      f.Type(0, 1, "6");
      f.boxes.answers.push_back(answer);
      QTest::mouseClick(d.btnOK(), Qt::LeftButton);
      if (!c.asked) {
        EXPECT_TRUE(f.boxes.boxes.empty()) << c.row;
        EXPECT_EQ(f.rows.texts[0], c.written) << c.row;
        continue;
      }
      ASSERT_EQ(f.boxes.boxes.size(), 1u) << c.row;
      EXPECT_EQ(f.boxes.boxes[0].Text, "Replace function 1 with these points?");
      EXPECT_EQ(f.boxes.boxes[0].Title, "Replace Function - [Msg-0031]");
      EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::YesNo);
      EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Question);
      if (answer == platform::MessageBoxes::Answer::No) {
        EXPECT_EQ(f.rows.texts[0], c.row) << c.row;
        EXPECT_TRUE(f.rows.writes.isEmpty()) << c.row;
        ASSERT_FALSE(f.dialog.isNull());
        EXPECT_FALSE(d.isHidden()) << c.row << ": the points wait in the table";
        EXPECT_EQ(f.X(0), "5");
      } else {
        EXPECT_EQ(f.rows.texts[0], c.written) << c.row;
      }
    }
  }
}

TEST(frmAddPoint, TheTableFollowsItsRow) {
  TableFixture f;
  f.rows.texts = QStringList{"y=1", "y=2", "y=3"};
  f.rows.texts[2] = "[x,y;1,2]";
  frmAddPoint& d = *new frmAddPoint("2", f.rows, f.state, f.evaluation, f.boxes);
  f.dialog = &d;
  d.show();
  d.Form_Activate();
  f.Type(0, 0, "8");
  d.SetRow(0);
  EXPECT_EQ(d.Row(), 0);
  EXPECT_EQ(d.windowTitle(), "Points of Function 1");
  f.rows.texts[0] = "[x,y;1,2]";
  f.rows.texts[2] = "y=3";
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.rows.writes, QStringList{"[x,y;8,2]"});
  EXPECT_EQ(f.rows.texts[0], "[x,y;8,2]");
  EXPECT_EQ(f.rows.texts[2], "y=3");
}

TEST(frmAddPoint, ARemovedRowAsksBeforeTheTypedPointsGo) {
  using Answer = platform::MessageBoxes::Answer;
  struct Case {
    const char* name;
    bool typed;
    Answer answer;
    bool open;
  };
  const Case cases[] = {{"untouched", false, Answer::Yes, false},
                        {"typed, dropped", true, Answer::Yes, false},
                        {"typed, kept", true, Answer::No, true}};
  for (const Case& c : cases) {
    TableFixture f;
    f.rows.texts = QStringList{"[x,y;1,2]", "y=x"};
    frmAddPoint& d = f.Open("[x,y;1,2]");
    if (c.typed) f.Type(0, 1, "3");
    f.boxes.answers.push_back(c.answer);
    f.rows.texts.removeFirst();
    d.RowRemoved();
    EXPECT_EQ(f.boxes.boxes.size(), c.typed ? 1u : 0u) << c.name;
    if (c.typed) {
      EXPECT_EQ(f.boxes.boxes[0].Text, "The function of these points was removed. Drop the points?");
      EXPECT_EQ(f.boxes.boxes[0].Title, "Removed Function - [Msg-0032]");
      EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::YesNo);
    }
    EXPECT_EQ(!f.dialog.isNull() && !d.isHidden(), c.open) << c.name;
    EXPECT_TRUE(f.rows.writes.isEmpty()) << c.name;
    if (!c.open) continue;
    EXPECT_EQ(d.Row(), -1);
    EXPECT_TRUE(d.btnFade()->text().contains("new row")) << d.btnFade()->text().toStdString();
    // More rows going leave it alone; OK puts the points into a new row and asks nothing more.
    d.RowRemoved();
    QTest::mouseClick(d.btnOK(), Qt::LeftButton);
    EXPECT_EQ(f.rows.texts, (QStringList{"y=x", "[x,y;1,3]"}));
    EXPECT_EQ(f.boxes.boxes.size(), 1u);
  }
}

TEST(frmAddPoint, KeptPointsWaitWhenTheListIsFull) {
  TableFixture f;
  frmAddPoint& d = f.Open("[x,y;1,2]");
  f.Type(0, 1, "3");
  f.boxes.answers.push_back(platform::MessageBoxes::Answer::No);
  d.RowRemoved();
  f.rows.maxRows = 1;
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_FALSE(d.isHidden());
  EXPECT_TRUE(f.rows.writes.isEmpty());
  f.rows.maxRows = 2;
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.rows.texts.value(1), "[x,y;1,3]");
}

// A long number the table is given shows its start, sign and integer part, not its tail: the
// field's cursor stands at its first character, whichever way the value came in. The lines the
// paste does not end in are checked; the one it ends in takes the focus for typing.
TEST(frmAddPoint, LongNumbersShowTheirStart) {
  const QString x = QStringLiteral("-123456789012345678901234567890.125");
  const QString y = QStringLiteral("98765432109876543210987654321.5");
  const struct {
    const char* how;
    std::function<void(TableFixture&, frmAddPoint&)> give;
  } cases[] = {
      {"opened from the row", [&](TableFixture&, frmAddPoint&) {}},
      {"pasted",
       [&](TableFixture& f, frmAddPoint& d) {
         f.clipboard = x + u'\t' + y + QStringLiteral("\n1\t2\n");
         d.txtPoint_X(0)->setFocus();
         QTest::keySequence(d.txtPoint_X(0), QKeySequence::Paste);
       }},
  };
  for (const auto& c : cases) {
    TableFixture f;
    frmAddPoint& d = f.Open(c.how == std::string("pasted") ? QString() : QStringLiteral("[x,y;%1,%2]").arg(x, y));
    c.give(f, d);
    ASSERT_EQ(f.X(0), x) << c.how;
    ASSERT_EQ(f.Y(0), y) << c.how;
    for (QLineEdit* field : {d.txtPoint_X(0), d.txtPoint_Y(0)}) {
      // Too long for the field: which end shows matters.
      ASSERT_GT(field->fontMetrics().horizontalAdvance(field->text()), field->width()) << c.how;
      EXPECT_EQ(field->cursorPosition(), 0) << c.how;
    }
  }
}
