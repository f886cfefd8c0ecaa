// The point evaluator: the equation taken from the row, the count of steps kept up to date, the
// refusal, and the description it hands the points editor, which computes the table from it.
#include "core/Tag.h"
#include "dialogs/frmAddPoint.h"
#include "dialogs/frmPointEvaluator.h"
#include "mathx/MthX.h"
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
#include <QTest>
#include <QToolButton>

using dialogs::frmAddPoint;
using dialogs::frmPointEvaluator;

namespace {

struct EvaluatorFixture {
  EvaluatorFixture() : state(InitialisedState()), evaluation(state, engine) {
    expression::StartScriptEngine(engine, state);
  }
  ~EvaluatorFixture() {
    delete dialog.data();
    delete table.data();
  }

  // The evaluator for a row; Evaluate and Table open the points editor as the main form does.
  frmPointEvaluator& Open(int row) {
    delete dialog.data();
    dialog = new frmPointEvaluator(row, rows, state, evaluation, boxes, [this](const QString& tag, const QPoint& at) {
      tags << tag;
      places.push_back(at);
      delete table.data();
      table = new frmAddPoint(tag, rows, state, evaluation, boxes);
      table->show();
      table->Form_Activate();
    });
    dialog->move(120, 80);
    dialog->show();
    dialog->Form_Activate();
    return *dialog;
  }
  void Type(QLineEdit* field, const QString& text) {
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    TypeKeys(field, text);
  }
  void Range(const QString& from, const QString& to, const QString& step) {
    Type(dialog->txtFrom(), from);
    Type(dialog->txtTo(), to);
    Type(dialog->txtStep(), step);
  }
  QString Count() const { return dialog->lblPointNmb()->text(); }
  bool Red() const { return dialog->PointCountColor() == 255; }
  bool Closed() const { return dialog.isNull() || dialog->isHidden(); }
  QString X(int line) const { return table->txtPoint_X(line)->text(); }
  QString Y(int line) const { return table->txtPoint_Y(line)->text(); }

  core::SharedState state;
  script::ScriptControl engine;
  expression::ScriptEvaluation evaluation;
  RecordingBoxes boxes;
  FakeRows rows{QStringList{QStringLiteral("y=sin(x)")}};
  QPointer<frmPointEvaluator> dialog;
  QPointer<frmAddPoint> table;
  QStringList tags;
  std::vector<QPoint> places;
};

}  // namespace

TEST(frmPointEvaluator, TheEquationComesFromTheRowWithoutItsCondition) {
  struct Case {
    const char* row;
    const char* equation;
  };
  const Case cases[] = {
      {"y=sin(x)", "y=sin(x)"},
      {"x=y^2", "x=y^2"},
      {"r=2*q..symb", "r=2*q..symb"},
      {"declare(y=x^2,x>0)", "y=x^2"},
      {"declare(y=x^2,domain(x,0,3,2))", "y=x^2"},
      {"y=declare(sqrt(x),domain(x,0,4,3))", "y=sqrt(x)"},
  };
  for (const Case& c : cases) {
    EvaluatorFixture f;
    f.rows.texts = QStringList{"a=2", c.row};
    frmPointEvaluator& d = f.Open(1);
    EXPECT_EQ(d.mthEquation()->Text(), c.equation) << c.row;
    EXPECT_EQ(core::Tag(&d), "1");
  }
}

TEST(frmPointEvaluator, MinusFourToFourByAHalfIsSeventeenPointsInBlackAndSeventeenLines) {
  EvaluatorFixture f;
  frmPointEvaluator& d = f.Open(0);
  EXPECT_EQ(d.txtFrom()->text(), "-4");
  EXPECT_EQ(d.txtTo()->text(), "4");
  EXPECT_EQ(d.txtStep()->text(), "0.5");
  // The count is right from the start, not the design's 40.
  EXPECT_EQ(f.Count(), "Number of points: 17");
  f.Range("-4", "4", "0.5");
  EXPECT_EQ(f.Count(), "Number of points: 17");
  EXPECT_FALSE(f.Red());
  EXPECT_EQ(d.lblPointNmb()->palette().color(QPalette::WindowText), QColor(0, 0, 0));
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  EXPECT_TRUE(f.boxes.boxes.empty());
  ASSERT_EQ(f.tags.size(), 1);
  EXPECT_EQ(f.tags[0], "0;sin(x);y;-4;4;0.5");
  EXPECT_EQ(f.places[0], d.pos());
  EXPECT_TRUE(f.Closed());
  ASSERT_TRUE(f.table);
  EXPECT_EQ(core::Tag(f.table.data()), "0") << "cut back to the row";
  ASSERT_EQ(f.table->PointCount(), 17);
  EXPECT_EQ(f.X(0), "-4");
  EXPECT_EQ(f.Y(0), "0.756802495307928");
  EXPECT_EQ(f.X(8), "0");
  EXPECT_EQ(f.Y(8), "0");
  EXPECT_EQ(f.X(16), "4");
  EXPECT_EQ(f.Y(16), "-0.756802495307928");
  EXPECT_EQ(f.table->cmbPointGrid()->currentText(), "Cartesian");
  // OK writes the points into the row, which held the function.
  QTest::mouseClick(f.table->btnOK(), Qt::LeftButton);
  ASSERT_EQ(f.rows.writes.size(), 1);
  EXPECT_TRUE(f.rows.texts[0].startsWith("[x,y;-4,0.756802495307928;-3.5,0.35078322768962;"));
  EXPECT_EQ(f.rows.texts[0].count(u';'), 17);
}

TEST(frmPointEvaluator, APointOneIsRefusedWithItsMessage) {
  EvaluatorFixture f;
  frmPointEvaluator& d = f.Open(0);
  f.Range("-4", "4", "0.1");
  EXPECT_EQ(f.Count(), "Number of points: 81");
  EXPECT_TRUE(f.Red());
  EXPECT_EQ(d.lblPointNmb()->palette().color(QPalette::WindowText), QColor(255, 0, 0));
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "Number of point must be 50 or less.");
  EXPECT_EQ(f.boxes.boxes[0].Title, "Point Evaluator - [Msg-0008]");
  EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
  EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::Ok);
  EXPECT_TRUE(f.tags.isEmpty());
  EXPECT_FALSE(f.Closed());
  // Back to a count it takes.
  f.Range("-4", "4", "0.2");
  EXPECT_EQ(f.Count(), "Number of points: 41");
  EXPECT_FALSE(f.Red());
}

TEST(frmPointEvaluator, FromAboveToIsANegativeCountAndTheSameMessage) {
  EvaluatorFixture f;
  frmPointEvaluator& d = f.Open(0);
  f.Range("4", "-4", "0.5");
  EXPECT_EQ(f.Count(), "Number of points: -16");
  EXPECT_TRUE(f.Red());
  d.btnEvaluate_Click();
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "Number of point must be 50 or less.");
  EXPECT_TRUE(f.tags.isEmpty());
}

TEST(frmPointEvaluator, TheCountIsTheNumberOfPointsTheTableGets) {
  struct Case {
    const char *from, *to, *step, *count;
    bool red;
  };
  const Case cases[] = {
      {"0", "49", "1", "Number of points: 50", false},  {"0", "50", "1", "Number of points: 51", true},
      {"0", "1", "1", "Number of points: 2", false},    {"0", "0.4", "1", "Number of points: 1", false},
      {"0", "0", "1", "Number of points: 1", false},    {"0", "2.5", "1", "Number of points: 3", false},
      {"0", "3.5", "1", "Number of points: 4", false},  {"-pi", "pi", "0.5", "Number of points: 13", false},
      {"0", "2pi", "0.5", "Number of points: 13", false}, {"0", "10", "2abc", "Number of points: 6", false},
      {"0", "10", "-2", "Number of points: -5", true},  {"0", "0.3", "0.1", "Number of points: 4", false},
      {"1", "0", "-0.1", "Number of points: 11", false},
  };
  for (const Case& c : cases) {
    EvaluatorFixture f;
    f.Open(0);
    f.Range(c.from, c.to, c.step);
    EXPECT_EQ(f.Count(), c.count) << c.from << " " << c.to << " " << c.step;
    EXPECT_EQ(f.Red(), c.red) << c.from << " " << c.to << " " << c.step;
    if (c.red) continue;
    // The number shown is the number of lines the table gets.
    f.dialog->btnEvaluate_Click();
    ASSERT_TRUE(f.table) << c.from << " " << c.to << " " << c.step;
    EXPECT_EQ(QStringLiteral("Number of points: %1").arg(f.table->PointCount()), c.count)
        << c.from << " " << c.to << " " << c.step;
  }
}

TEST(frmPointEvaluator, AFailureTurnsTheCountRedAndKeepsItsText) {
  for (const char* field : {"step 0", "step abc", "from junk", "to 1/0", "to empty", "huge"}) {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    f.Range("0", "10", "1");
    ASSERT_EQ(f.Count(), "Number of points: 11");
    // Each text arrives at once, as a paste does.
    const QString which = field;
    if (which == "step 0") d.txtStep()->setText("0");
    if (which == "step abc") d.txtStep()->setText("abc");
    if (which == "from junk") d.txtFrom()->setText("junk+");
    if (which == "to 1/0") d.txtTo()->setText("1/0");
    if (which == "to empty") d.txtTo()->setText("");
    if (which == "huge") d.txtTo()->setText("1e300");
    EXPECT_TRUE(f.Red()) << field;
    EXPECT_EQ(f.Count(), "Number of points: 11") << field;
    d.btnEvaluate_Click();
    EXPECT_EQ(f.boxes.boxes.size(), 1u) << field;
    EXPECT_TRUE(f.tags.isEmpty()) << field;
  }
}

TEST(frmPointEvaluator, YEqualsYPlusOneGoesWholeUnderTheNameIAndTheTableOpensEmpty) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"y=y+1"};
  f.Open(0);
  f.dialog->btnEvaluate_Click();
  ASSERT_EQ(f.tags.size(), 1);
  const QStringList pieces = f.tags[0].split(u';');
  ASSERT_EQ(pieces.size(), 6);
  EXPECT_EQ(pieces[0], "0");
  EXPECT_EQ(pieces[2], "i");
  EXPECT_EQ(pieces.mid(3), (QStringList{"-4", "4", "0.5"}));
  ASSERT_TRUE(f.table);
  EXPECT_EQ(f.table->PointCount(), 1);
  EXPECT_EQ(f.X(0), "");
  EXPECT_EQ(f.Y(0), "");
  EXPECT_EQ(core::Tag(f.table.data()), "0");
}

TEST(frmPointEvaluator, TheNamesOfTheQuantities) {
  struct Case {
    const char* equation;
    const char* expression;
    const char* name;
  };
  const Case cases[] = {
      {"y=x^2", "x^2", "y"},       {"y=y+1", nullptr, "i"},      {"x=y^2", "y^2", "x"},
      {"x=x+1", nullptr, "i"},     {"r=2*q..symb", "2*x", "r"}, {"r=r+1", nullptr, "r"},
      {"x^2+y^2=1", nullptr, "i"}, {"sin(x)", "sin(x)", "i"},   {"y=exp(x)", "exp(x)", "y"},
      {"y = x", nullptr, "i"},
  };
  for (const Case& c : cases) {
    EvaluatorFixture f;
    f.rows.texts = QStringList{c.equation};
    f.Open(0);
    f.dialog->btnEvaluate_Click();
    ASSERT_EQ(f.tags.size(), 1) << c.equation;
    const QStringList pieces = f.tags[0].split(u';');
    EXPECT_EQ(pieces.value(2), c.name) << c.equation;
    if (c.expression) {
      EXPECT_EQ(pieces.value(1), c.expression) << c.equation;
    }
  }
}

TEST(frmPointEvaluator, XOfYFillsTheFirstColumnWithTheResults) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"x=y^2"};
  frmPointEvaluator& d = f.Open(0);
  f.Range("-2", "2", "1");
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_TRUE(f.table);
  ASSERT_EQ(f.table->PointCount(), 5);
  EXPECT_EQ(f.X(0), "4");
  EXPECT_EQ(f.Y(0), "-2");
  EXPECT_EQ(f.X(3), "1");
  EXPECT_EQ(f.Y(3), "1");
  EXPECT_EQ(f.table->cmbPointGrid()->currentText(), "Cartesian");
}

TEST(frmPointEvaluator, ROfThetaIsAPolarTableWithTheResultsFirst) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"r=2*q..symb"};
  frmPointEvaluator& d = f.Open(0);
  f.Range("0", "pi", "1.5");
  EXPECT_EQ(f.Count(), "Number of points: 3");
  f.Type(d.txtStep(), "0.5");
  f.Type(d.txtTo(), "1");
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_TRUE(f.table);
  EXPECT_EQ(f.table->cmbPointGrid()->currentText(), "Polar");
  EXPECT_EQ(f.table->lblColumn(0)->text(), "r");
  EXPECT_EQ(f.table->lblColumn(1)->text(), QString(QChar(0x03b8)));
  ASSERT_EQ(f.table->PointCount(), 3);
  EXPECT_EQ(f.X(1), "1");
  EXPECT_EQ(f.Y(1), "0.5");
  QTest::mouseClick(f.table->btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.rows.texts[0], "[r,q..symb;0,0;1,0.5;2,1]");
}

TEST(frmPointEvaluator, PointsThatFailAreLeftOut) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"y=sqrt(x)"};
  frmPointEvaluator& d = f.Open(0);
  f.Range("-2", "4", "1");
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_TRUE(f.table);
  ASSERT_EQ(f.table->PointCount(), 5) << "x = -2 and -1 give nothing";
  EXPECT_EQ(f.X(0), "0");
  EXPECT_EQ(f.X(4), "4");
  EXPECT_EQ(f.Y(4), "2");
}

TEST(frmPointEvaluator, FiftyPointsAreTheMostAndTheirTableWorksToTheLastLine) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"y=2*x"};
  frmPointEvaluator& d = f.Open(0);
  f.Range("0", "50", "1");
  EXPECT_EQ(f.Count(), "Number of points: 51");
  EXPECT_TRUE(f.Red());
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "Number of point must be 50 or less.");
  f.Range("0", "49", "1");
  EXPECT_EQ(f.Count(), "Number of points: 50");
  EXPECT_FALSE(f.Red());
  QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
  ASSERT_TRUE(f.table);
  frmAddPoint& t = *f.table;
  ASSERT_EQ(t.PointCount(), 50);
  QTest::mouseClick(t.btnRemove(3), Qt::LeftButton);
  EXPECT_EQ(f.boxes.boxes.size(), 1u) << "no message: the removal works";
  EXPECT_EQ(t.PointCount(), 49);
  EXPECT_EQ(f.X(3), "4");
  f.Type(t.txtPoint_Y(48), "pi");
  QTest::mouseClick(t.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.rows.texts[0].count(u';'), 49);
  EXPECT_TRUE(f.rows.texts[0].endsWith(";48,96;49,pi]"));
}

TEST(frmPointEvaluator, TheTableAsksBeforeItsPointsReplaceTheFunction) {
  for (const auto answer : {platform::MessageBoxes::Answer::No, platform::MessageBoxes::Answer::Yes}) {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    f.Range("0", "2", "1");
    QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
    ASSERT_TRUE(f.table);
    f.boxes.answers.push_back(answer);
    QTest::mouseClick(f.table->btnOK(), Qt::LeftButton);
    ASSERT_EQ(f.boxes.boxes.size(), 1u);
    EXPECT_EQ(f.boxes.boxes[0].Text, "Replace function 1 with these points?");
    EXPECT_EQ(f.boxes.boxes[0].Title, "Replace Function - [Msg-0031]");
    if (answer == platform::MessageBoxes::Answer::No) {
      EXPECT_EQ(f.rows.texts[0], "y=sin(x)");
      ASSERT_TRUE(f.table);
      EXPECT_FALSE(f.table->isHidden()) << "the computed points wait in the table";
      EXPECT_EQ(f.table->PointCount(), 3);
    } else {
      EXPECT_EQ(f.rows.texts[0], "[x,y;0,0;1,0.841470984807897;2,0.909297426825682]");
    }
  }
}

TEST(frmPointEvaluator, TableOpensTheEditorForTheRowAlone) {
  EvaluatorFixture f;
  f.rows.texts = QStringList{"y=1", "y=x^3"};
  frmPointEvaluator& d = f.Open(1);
  QTest::mouseClick(d.btnNew(), Qt::LeftButton);
  ASSERT_EQ(f.tags, QStringList{"1"});
  EXPECT_TRUE(f.Closed());
  ASSERT_TRUE(f.table);
  EXPECT_EQ(f.table->PointCount(), 1);
  EXPECT_EQ(f.X(0), "");
}

TEST(frmPointEvaluator, EnterEvaluatesAndCancelEscapeAndLeavingDoNothing) {
  {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    QTest::keyClick(d.txtStep(), Qt::Key_Return);
    EXPECT_EQ(f.tags.size(), 1);
  }
  {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    EXPECT_TRUE(f.Closed());
    EXPECT_TRUE(f.tags.isEmpty());
    EXPECT_EQ(f.rows.focus, std::vector<int>{0});
  }
  {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    QTest::keyClick(d.txtFrom(), Qt::Key_Escape);
    EXPECT_TRUE(f.Closed());
    EXPECT_TRUE(f.tags.isEmpty());
  }
  {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    EXPECT_TRUE(f.Closed());
    EXPECT_TRUE(f.tags.isEmpty());
    EXPECT_EQ(f.rows.texts[0], "y=sin(x)");
  }
}

TEST(frmPointEvaluator, AnyTextInAnyFieldNeverBreaksIt) {
  const QString texts[] = {"",    ";",      ";;;;;", "1;2", "[",     "]",      "(((",  "1e308",  "-1e308", "1/0",
                           "nan", "2^1000", "x",     "y",   "q..symb", "\"", "'",    "&", "\t", "٣",
                           "9999999999", "0.0000000001", "-0", "pi/0", QString(500, u'9'), "y=x;", "declare(",
                           "[x,y;1,2]"};
  for (const QString& text : texts) {
    EvaluatorFixture f;
    f.rows.texts = QStringList{text};
    for (int which = 0; which < 3; ++which) {
      f.Open(0);
      QLineEdit* field = which == 0 ? f.dialog->txtFrom() : which == 1 ? f.dialog->txtTo() : f.dialog->txtStep();
      f.Range("-1", "1", "0.5");
      f.Type(field, text);
      f.dialog->btnEvaluate_Click();
      if (f.table) f.table->btnOK_Click();
    }
    // The equation itself typed over.
    f.Open(0);
    f.dialog->mthEquation()->SetText(text);
    f.dialog->btnEvaluate_Click();
    if (f.table) f.table->btnOK_Click();
    SUCCEED() << text.toStdString();
  }
}

// A click elsewhere only puts the evaluator away: shown again, it holds the range as it was typed,
// with its count, and the equation of the row as the row reads now.
TEST(frmPointEvaluator, WhatWasTypedOutlivesAClickElsewhere) {
  struct Case {
    const char* from;
    const char* to;
    const char* step;
    const char* count;
    bool red;
  };
  const Case cases[] = {
      {"0", "2*pi", "1", "Number of points: 7", false},
      {"-1", "1", "0.01", "Number of points: 201", true},
      {"3", "-3", "1", "Number of points: -6", true},
  };
  for (const Case& c : cases) {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    for (auto [field, text] : {std::pair{d.txtFrom(), c.from}, {d.txtTo(), c.to}, {d.txtStep(), c.step}}) {
      field->selectAll();
      QTest::keyClick(field, Qt::Key_Delete);
      QTest::keyClicks(field, text);
    }
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(f.dialog.isNull()) << c.from;
    EXPECT_TRUE(d.isHidden()) << c.from;
    EXPECT_TRUE(f.tags.isEmpty()) << c.from;
    // Meanwhile the row was edited.
    f.rows.texts[0] = QStringLiteral("y=x^2");
    d.show();
    d.Form_Activate();
    EXPECT_EQ(d.txtFrom()->text(), c.from);
    EXPECT_EQ(d.txtTo()->text(), c.to);
    EXPECT_EQ(d.txtStep()->text(), c.step);
    EXPECT_EQ(f.Count(), c.count);
    EXPECT_EQ(f.Red(), c.red) << c.from;
    EXPECT_EQ(d.mthEquation()->Text(), "y=x^2") << c.from;
  }
}

TEST(frmPointEvaluator, EvaluateTableCancelEscapeAndClosingEndWhatWasTyped) {
  const char* const ends[] = {"Evaluate", "Table", "Cancel", "Escape", "close"};
  for (const char* end : ends) {
    EvaluatorFixture f;
    frmPointEvaluator& d = f.Open(0);
    d.txtTo()->selectAll();
    QTest::keyClick(d.txtTo(), Qt::Key_Delete);
    QTest::keyClicks(d.txtTo(), "1");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(f.dialog.isNull()) << end;
    d.show();
    d.Form_Activate();
    ASSERT_EQ(d.txtTo()->text(), "1") << end;
    const QString how(end);
    if (how == "Evaluate") QTest::mouseClick(d.btnEvaluate(), Qt::LeftButton);
    else if (how == "Table") QTest::mouseClick(d.btnNew(), Qt::LeftButton);
    else if (how == "Cancel") QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    else if (how == "Escape") QTest::keyClick(d.txtTo(), Qt::Key_Escape);
    else d.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(f.dialog.isNull()) << end;
    EXPECT_EQ(f.tags.size(), how == "Evaluate" || how == "Table" ? 1 : 0) << end;
  }
}
