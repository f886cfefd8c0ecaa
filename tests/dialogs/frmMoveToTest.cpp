// The move dialog: its label, the number it reads, its refusal and the exchange of two rows.
#include "dialogs/frmMoveTo.h"

#include <gtest/gtest.h>

#include "RowDialogsSupport.h"

#include "FakeDesktop.h"
#include "QtPrinters.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using dialogs::frmMoveTo;

namespace {

struct MoveFixture {
  explicit MoveFixture(int rows) : target(rows) {}
  ~MoveFixture() { delete dialog.data(); }

  frmMoveTo& Open(int index) {
    dialog = new frmMoveTo(index, target, boxes);
    dialog->show();
    dialog->Form_Activate();
    return *dialog;
  }
  // Types the number as the user does and presses OK.
  void Answer(const QString& text) {
    dialog->txtMoveTo()->clear();
    TypeKeys(dialog->txtMoveTo(), text);
    QTest::mouseClick(dialog->btnOK(), Qt::LeftButton);
  }
  bool Closed() const { return dialog.isNull() || dialog->isHidden(); }

  FakeRows target;
  RecordingBoxes boxes;
  QPointer<frmMoveTo> dialog;
};

}  // namespace

TEST(frmMoveTo, TheLabelCountsTheRowsNotFiveHundred) {
  MoveFixture f(5);
  frmMoveTo& d = f.Open(1);
  EXPECT_EQ(d.lblMoveTo()->text(), "Move Function To (1-5):");
  f.target.texts << "y=6x";
  d.Form_Activate();
  EXPECT_EQ(d.lblMoveTo()->text(), "Move Function To (1-6):");
  MoveFixture one(1);
  EXPECT_EQ(one.Open(0).lblMoveTo()->text(), "Move Function To (1-1):");
}

TEST(frmMoveTo, AValidNumberExchangesTheRowsAndMarksTheProject) {
  MoveFixture f(8);
  f.Open(2);
  f.Answer("6");
  ASSERT_EQ(f.target.moves.size(), 1u);
  EXPECT_EQ(f.target.moves[0], std::make_pair(2, 5));
  EXPECT_EQ(f.target.texts[2], "y=6x");
  EXPECT_EQ(f.target.texts[5], "y=3x");
  EXPECT_EQ(f.target.texts[3], "y=4x") << "the rows between stay";
  EXPECT_EQ(f.target.changed, 1);
  EXPECT_TRUE(f.boxes.boxes.empty());
  EXPECT_TRUE(f.Closed());
}

TEST(frmMoveTo, HalvesGoToTheEvenNeighbour) {
  struct Case {
    const char* text;
    int target;
  };
  const Case cases[] = {{"2.5", 1}, {"3.5", 3}, {"4.4", 3}, {"1.6", 1}, {" 4xyz", 3}, {"5", 4}};
  for (const Case& c : cases) {
    MoveFixture f(5);
    f.Open(0);
    f.Answer(c.text);
    ASSERT_EQ(f.target.moves.size(), 1u) << c.text;
    EXPECT_EQ(f.target.moves[0], std::make_pair(0, c.target)) << c.text;
    EXPECT_TRUE(f.Closed()) << c.text;
  }
}

TEST(frmMoveTo, ANumberOutsideTheListOrTheRowsOwnIsRefusedAndTheDialogStays) {
  // The row under the menu is row 3 (index 2) of five.
  for (const char* text : {"", "abc", "0", "-1", "6", "3", "2.6", "3.4", "0.5", "99999", "-40000", ".", "-"}) {
    MoveFixture f(5);
    f.Open(2);
    f.Answer(text);
    ASSERT_EQ(f.boxes.boxes.size(), 1u) << text;
    EXPECT_EQ(f.boxes.boxes[0].Text, "Invalid Function Number.");
    EXPECT_EQ(f.boxes.boxes[0].Title, "Invalid Move to [Msg-0005]");
    EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
    EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::Ok);
    EXPECT_TRUE(f.target.moves.empty()) << text;
    EXPECT_EQ(f.target.changed, 0);
    EXPECT_FALSE(f.Closed()) << text;
    // The field is ready for the next try.
    EXPECT_EQ(f.dialog->txtMoveTo()->selectedText(), f.dialog->txtMoveTo()->text());
  }
}

TEST(frmMoveTo, AfterARefusalTheNextNumberIsTaken) {
  MoveFixture f(4);
  f.Open(0);
  f.Answer("9");
  EXPECT_EQ(f.boxes.boxes.size(), 1u);
  f.Answer("4");
  EXPECT_EQ(f.boxes.boxes.size(), 1u);
  ASSERT_EQ(f.target.moves.size(), 1u);
  EXPECT_EQ(f.target.moves[0], std::make_pair(0, 3));
}

TEST(frmMoveTo, EnterInTheFieldIsOK) {
  MoveFixture f(3);
  frmMoveTo& d = f.Open(2);
  TypeKeys(d.txtMoveTo(), "1");
  QTest::keyClick(d.txtMoveTo(), Qt::Key_Return);
  ASSERT_EQ(f.target.moves.size(), 1u);
  EXPECT_EQ(f.target.moves[0], std::make_pair(2, 0));
  EXPECT_TRUE(f.Closed());
}

TEST(frmMoveTo, CancelEscapeAndLeavingChangeNothing) {
  {
    MoveFixture f(3);
    frmMoveTo& d = f.Open(1);
    TypeKeys(d.txtMoveTo(), "3");
    QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    EXPECT_TRUE(f.Closed());
    EXPECT_EQ(f.target.focus, std::vector<int>{1});
  }
  {
    MoveFixture f(3);
    frmMoveTo& d = f.Open(1);
    TypeKeys(d.txtMoveTo(), "3");
    QTest::keyClick(d.txtMoveTo(), Qt::Key_Escape);
    EXPECT_TRUE(f.Closed());
    EXPECT_TRUE(f.target.moves.empty());
  }
  {
    MoveFixture f(3);
    frmMoveTo& d = f.Open(1);
    TypeKeys(d.txtMoveTo(), "3");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    EXPECT_TRUE(f.Closed());
    EXPECT_TRUE(f.target.moves.empty());
    EXPECT_EQ(f.target.changed, 0);
    EXPECT_TRUE(f.target.focus.empty()) << "the focus went where the user clicked";
  }
}

TEST(frmMoveTo, AnyTextNeverBreaksIt) {
  const QString texts[] = {"1e308",  "-1e308", "nan",   "inf",    "1e-320", "32767", "32768", "-32769",
                           "\t2",    "2\n",    "２",     "٣",      "0x2",    "2,5",   "+2",    "--2",
                           "2e",     "2e+",    ".5e1",   "9999999999999999999999", QString(300, u'9')};
  for (const QString& text : texts) {
    MoveFixture f(6);
    f.Open(3);
    f.Answer(text);
    EXPECT_LE(f.target.moves.size() + f.boxes.boxes.size(), 1u) << text.toStdString();
  }
}
