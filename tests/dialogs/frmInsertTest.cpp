// The insert dialog: the two styles following each other, its menu bar's commands, Insert and
// Cancel for every source, and its growing size.
#include "core/Twips.h"
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "platform/DataFolder.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <map>

using dialogs::frmInsert;

namespace {

// The main form's editors, as plain texts.
class FakeTarget : public dialogs::InsertTarget {
public:
  QString EditorText(std::int16_t source, double index) const override {
    const auto found = texts.find({source, index});
    return found == texts.end() ? QString() : found->second;
  }
  void SetEditorText(std::int16_t source, double index, const QString& text) override {
    texts[{source, index}] = text;
    writes << QStringLiteral("%1/%2=%3").arg(source).arg(index).arg(text);
  }
  QString InequalityOperator(int index) const override { return relations.at(index); }
  void SetInequalityOperator(int index, const QString& relation) override {
    relations[index] = relation;
    writes << QStringLiteral("op%1=%2").arg(index).arg(relation);
  }
  void FocusAfter(std::int16_t source, bool inserted) override {
    focus << QStringLiteral("%1:%2").arg(source).arg(inserted ? "insert" : "cancel");
  }

  std::map<std::pair<int, double>, QString> texts;
  std::map<int, QString> relations{{0, ">"}, {1, ">"}};
  QStringList writes, focus;
};

struct DialogFixture {
  DialogFixture() : state(InitialisedState()) {}

  frmInsert& Open(std::int16_t source, double index) {
    state.InsertSource = source;
    state.InsertIndex = index;
    dialog = new frmInsert(state, boxes, target, platform::DataFile("Ribbon/Menubar.xcb"));
    dialog->show();
    return *dialog;
  }
  ~DialogFixture() { delete dialog.data(); }

  // Types into the linear style as the user does, with the focus in it.
  void TypeLinear(const QString& text) {
    dialog->txtLinear()->setFocus();
    QApplication::setActiveWindow(dialog);
    dialog->txtLinear()->setFocus();
    dialog->txtLinear()->selectAll();
    QTest::keyClicks(dialog->txtLinear(), text);
  }
  void Execute(int id) { dialog->CommandBars().Execute(*dialog->CommandBars().FindControl(id)); }
  bool Enabled(int id) { return dialog->CommandBars().FindControl(id)->Enabled(); }

  core::SharedState state;
  RecordingBoxes boxes;
  FakeTarget target;
  QPointer<frmInsert> dialog;
};

}  // namespace

TEST(frmInsert, OpensWithTheEditorsTextInBothStyles) {
  DialogFixture f;
  f.target.texts[{0, 3}] = "declare(y=x^2,domain(x,0,3,2))";
  frmInsert& d = f.Open(0, 3);
  EXPECT_EQ(d.mthStandard()->Text(), "declare(y=x^2,domain(x,0,3,2))");
  EXPECT_EQ(d.txtLinear()->text(), "y=x^2;0<x<=3");
  EXPECT_TRUE(d.CommandBars().FindByName("menuInsert")->Visible());
}

TEST(frmInsert, OpensForEverySourceAsTheTableSays) {
  struct Case {
    std::int16_t source;
    double index;
    const char* text;
    const char* standard;
    const char* linear;
  };
  const Case cases[] = {
      {1, 0, "x+1", ">x+1", ">x+1"},
      {1, 1, "2[x]", ">=2[x]", ">=2fix(x)"},
      {2, 1, "cos(t)", "x=cos(t)", "x=cos(t)"},
      {2, 2, "sin(t)", "y=sin(t)", "y=sin(t)"},
      {3, 1, "sin(x)*cos(y)", "sin(x)*cos(y)", "sin(x)*cos(y)"},
      {3, 4, "sin(v)", "sin(v)", "sin(v)"},
  };
  for (const Case& c : cases) {
    DialogFixture f;
    f.target.texts[{c.source, c.index}] = c.text;
    f.target.relations[1] = ">=";
    frmInsert& d = f.Open(c.source, c.index);
    const QString prefix = c.source == 1 ? "y" : "";
    EXPECT_EQ(d.mthStandard()->Text(), prefix + c.standard) << c.text;
    EXPECT_EQ(d.txtLinear()->text(), prefix + c.linear) << c.text;
    // The templates of a row are switched off elsewhere.
    EXPECT_FALSE(d.CommandBars().FindByName("menuInsert")->Visible()) << c.source;
  }
}

TEST(frmInsert, TheDerivativeIsOffForPointListsAndBackWithTheFirstCharacter) {
  DialogFixture f;
  f.target.texts[{0, 0}] = "[x,y;1,2]";
  f.Open(0, 0);
  EXPECT_FALSE(f.Enabled(1044));
  f.TypeLinear("[x,y;1,2");
  EXPECT_FALSE(f.Enabled(1044));
  f.TypeLinear("y=x");
  EXPECT_TRUE(f.Enabled(1044));
  f.TypeLinear("[");
  EXPECT_FALSE(f.Enabled(1044));
}

TEST(frmInsert, TheLinearStyleGoesThroughTheNormaliserAndTheInequalityCompiler) {
  DialogFixture f;
  f.Open(0, 0);
  f.TypeLinear("y=2x;0<x<3");
  EXPECT_EQ(f.dialog->mthStandard()->Text(), "declare(y=2*x,domain(x,0,3,0))");
  EXPECT_FALSE(f.dialog->txtLinear()->property("invalid").toBool());
}

TEST(frmInsert, AnUnreadableLinearTextTurnsRedAndKeepsTheLastGoodEquation) {
  DialogFixture f;
  f.Open(0, 0);
  f.TypeLinear("y=x^2");
  EXPECT_EQ(f.dialog->mthStandard()->Text(), "y=x^2");
  // Typed key by key: "y=x" was the last text that could be read.
  f.TypeLinear("y=x)");
  EXPECT_TRUE(f.dialog->txtLinear()->property("invalid").toBool());
  EXPECT_EQ(f.dialog->mthStandard()->Text(), "y=x");
  f.TypeLinear("hello world");
  EXPECT_TRUE(f.dialog->txtLinear()->property("invalid").toBool());
  f.TypeLinear("y=x+1");
  EXPECT_FALSE(f.dialog->txtLinear()->property("invalid").toBool());
  EXPECT_EQ(f.dialog->mthStandard()->Text(), "y=x+1");
}

TEST(frmInsert, TheStandardStyleTypedIntoFollowsInTheLinear) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  QApplication::setActiveWindow(&d);
  d.mthStandard()->setFocus();
  QTest::keyClicks(d.mthStandard(), "y=[x]");
  EXPECT_EQ(d.txtLinear()->text(), "y=fix(x)");
}

TEST(frmInsert, InsertForARowWritesTheTextAsItStands) {
  DialogFixture f;
  f.target.texts[{0, 2}] = "y=x";
  frmInsert& d = f.Open(0, 2);
  d.mthStandard()->SetText("y=x^3");
  QTest::mouseClick(d.btnInsert(), Qt::LeftButton);
  EXPECT_EQ(f.target.writes, (QStringList{"0/2=y=x^3"}));
  EXPECT_EQ(f.target.focus, (QStringList{"0:insert"}));
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(f.dialog.isNull());
}

TEST(frmInsert, InsertForAnInequalityTakesTheRelationAndTheRightHandSide) {
  struct Case {
    const char* text;
    const char* relation;
    const char* right;
  };
  const Case cases[] = {{"y>=x+1", ">=", "x+1"}, {"y<x", "<", "x"}, {"y<=2", "<=", "2"}, {"y>x^2", ">", "x^2"},
                        {"x+1", ">", "x+1"},    {"y=x", ">", "yx"}};
  for (const Case& c : cases) {
    DialogFixture f;
    frmInsert& d = f.Open(1, 1);
    d.mthStandard()->SetText(c.text);
    d.Insert();
    EXPECT_EQ(f.target.relations[1], c.relation) << c.text;
    EXPECT_EQ((f.target.texts[{1, 1}]), c.right) << c.text;
    EXPECT_EQ(f.target.focus, (QStringList{"1:insert"}));
  }
}

TEST(frmInsert, InsertForTheParametricTakesWhatStandsBehindTheEquals) {
  DialogFixture f;
  frmInsert& d = f.Open(2, 1);
  d.mthStandard()->SetText("x=cos(3t)");
  d.Insert();
  EXPECT_EQ(f.target.writes, (QStringList{"2/1=cos(3t)"}));
  DialogFixture g;
  frmInsert& e = g.Open(2, 2);
  e.mthStandard()->SetText("sin(2t)");  // without "=": the whole text
  e.Insert();
  EXPECT_EQ(g.target.writes, (QStringList{"2/2=sin(2t)"}));
}

TEST(frmInsert, InsertFor3DWritesTheWholeText) {
  DialogFixture f;
  frmInsert& d = f.Open(3, 5);
  d.mthStandard()->SetText("u+v");
  d.Insert();
  EXPECT_EQ(f.target.writes, (QStringList{"3/5=u+v"}));
  EXPECT_EQ(f.target.focus, (QStringList{"3:insert"}));
}

TEST(frmInsert, CancelClosingAndLeavingWriteNothing) {
  {
    DialogFixture f;
    frmInsert& d = f.Open(0, 0);
    d.mthStandard()->SetText("y=9");
    QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    EXPECT_TRUE(f.target.writes.isEmpty());
    EXPECT_EQ(f.target.focus, (QStringList{"0:cancel"}));
  }
  {
    DialogFixture f;
    frmInsert& d = f.Open(1, 0);
    d.close();
    EXPECT_TRUE(f.target.writes.isEmpty());
    EXPECT_EQ(f.target.focus, (QStringList{"1:cancel"}));
  }
  {
    DialogFixture f;
    frmInsert& d = f.Open(0, 0);
    d.mthStandard()->SetText("y=9");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    EXPECT_TRUE(f.target.writes.isEmpty());
    EXPECT_TRUE(d.isHidden());
  }
}

TEST(frmInsert, TheDerivativeReplacesTheEquation) {
  struct Case {
    const char* text;
    const char* derivative;
  };
  const Case cases[] = {{"y=x^2", "y=2*x"}, {"x^3", "3*x^2"}, {"r=2*q..symb", "r=2"}, {"y=sqrt(x)", "y=1/(2*sqrt(x))"}};
  for (const Case& c : cases) {
    DialogFixture f;
    frmInsert& d = f.Open(0, 0);
    d.mthStandard()->SetText(c.text);
    f.Execute(1044);
    EXPECT_EQ(d.mthStandard()->Text(), c.derivative) << c.text;
    EXPECT_EQ(d.txtLinear()->text(), c.derivative) << c.text;
    EXPECT_FALSE(d.mthStandard()->Text().contains("sqr(")) << c.text;
    EXPECT_TRUE(f.boxes.boxes.empty());
  }
}

TEST(frmInsert, AnEquationWithoutDerivativeSaysSo) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  d.mthStandard()->SetText("x^2+y^2=1");
  f.Execute(1044);
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "Could Not Derivative!");
  EXPECT_EQ(f.boxes.boxes[0].Title, "[Derivative Error - [Err-0008]");
  EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
  EXPECT_EQ(d.mthStandard()->Text(), "x^2+y^2=1");
  EXPECT_FALSE(d.isHidden()) << "its own box is no leave";
}

TEST(frmInsert, PointTemplates) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  const std::pair<int, const char*> cases[] = {{1023, "[x,y;,]"}, {1028, "[x,y;,]"}, {1024, "[r,q..symb;,]"},
                                              {1030, "[r,q..symb;,]"}, {1029, "[y,x;,]"}, {1031, "[q..symb,r;,]"}};
  for (const auto& [id, text] : cases) {
    f.Execute(id);
    EXPECT_EQ(d.mthStandard()->Text(), text) << id;
  }
  d.CommandBars().Execute(*d.CommandBars().FindByName("mnuCartesian"));
  EXPECT_EQ(d.mthStandard()->Text(), "[x,y;,]");
  EXPECT_EQ(d.txtLinear()->text(), "[x,y;,]");
  d.CommandBars().Execute(*d.CommandBars().FindByName("mnuPolar"));
  EXPECT_EQ(d.mthStandard()->Text(), "[r,q..symb;,]");
  EXPECT_EQ(d.txtLinear()->text(), "[r,theta;,]");
  EXPECT_FALSE(f.Enabled(1044));
}

TEST(frmInsert, DisplayCommandsAreOneExclusiveGroup) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  f.Execute(1049);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[showgrid]");
  EXPECT_EQ(d.mthStandard()->Text(), "command==>[showgrid]");
  EXPECT_TRUE(d.CommandBars().FindControl(1049)->Checked());
  f.Execute(1049);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[hidegrid]");
  EXPECT_FALSE(d.CommandBars().FindControl(1049)->Checked());
  f.Execute(1046);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[showaxis]");
  f.Execute(1050);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[shownumbers]");
  EXPECT_FALSE(d.CommandBars().FindControl(1046)->Checked());
  f.Execute(1051);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[showouterframe]");
  f.Execute(1056);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[showtips]");
  f.Execute(1053);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[transparentbackground]");
  f.Execute(1053);
  EXPECT_EQ(d.txtLinear()->text(), "command==>[opaquebackground]");
  f.Execute(1055);
  EXPECT_EQ(d.mthStandard()->Text(), "command==>[enterfullscreen]");
  int checked = 0;
  for (int id : {1046, 1049, 1050, 1051, 1053, 1055, 1056}) checked += d.CommandBars().FindControl(id)->Checked();
  EXPECT_EQ(checked, 1);
  f.Execute(1055);
  EXPECT_EQ(d.mthStandard()->Text(), "");
  EXPECT_EQ(d.txtLinear()->text(), "");
}

TEST(frmInsert, TheWindowGrowsWithTheEquationAndSnapsBack) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  for (int i = 0; i < 200 && d.size() != d.WantedSize(); ++i) d.Animate();
  const QSize rest = d.size();
  EXPECT_GE(rest.width(), core::Px(6790));
  EXPECT_GE(rest.height(), core::Px(5165));
  EXPECT_GE(d.mthStandard()->width(), core::Px(6895));
  EXPECT_GE(d.mthStandard()->height(), core::Px(2445));
  d.mthStandard()->SetText("y=" + QString("x+").repeated(60) + "1");
  const QSize wide = d.WantedSize();
  EXPECT_GT(wide.width(), rest.width());
  d.Animate();
  EXPECT_EQ(d.width(), rest.width() + core::Px(230));
  for (int i = 0; i < 400 && d.size() != d.WantedSize(); ++i) d.Animate();
  EXPECT_EQ(d.size(), wide);
  d.mthStandard()->SetText("y=x");
  d.Animate();
  EXPECT_EQ(d.size(), rest);
}

TEST(frmInsert, ARedLinearTextHoldsInsertBackAndSaysWhy) {
  struct Case {
    const char* typed;
    const char* reason;
  };
  const Case cases[] = {
      {"y=sin(x", "a bracket is not closed"},
      {"y=(x+1", "a bracket is not closed"},
      {"y=x)", "a bracket is closed that was never opened"},
      {"y=[x)", "a bracket is closed with the wrong kind"},
      {"y=x+", "the expression ends too early"},
  };
  for (const Case& c : cases) {
    DialogFixture f;
    f.target.texts[{0, 1}] = "y=x";
    frmInsert& d = f.Open(0, 1);
    EXPECT_TRUE(d.btnInsert()->isEnabled());
    EXPECT_EQ(d.lblReason()->text(), "");
    EXPECT_FALSE(d.lblReason()->accessibleName().isEmpty());
    f.TypeLinear(c.typed);
    EXPECT_TRUE(d.txtLinear()->property("invalid").toBool()) << c.typed;
    EXPECT_EQ(d.txtLinear()->text(), c.typed) << "what was typed stays whole";
    EXPECT_EQ(d.lblReason()->text(), c.reason) << c.typed;
    EXPECT_EQ(d.Problem(c.typed), c.reason) << c.typed;
    EXPECT_FALSE(d.btnInsert()->isEnabled()) << c.typed;
    EXPECT_FALSE(d.CommandBars().FindControl(1032)->Enabled()) << c.typed;
    // The standard style still shows an older equation: none of the ways to Insert writes it.
    QTest::mouseClick(d.btnInsert(), Qt::LeftButton);
    f.Execute(1032);
    d.Insert();
    EXPECT_TRUE(f.target.writes.isEmpty()) << c.typed;
    EXPECT_FALSE(d.isHidden()) << c.typed;
    // Mended, Insert writes what is shown.
    f.TypeLinear("y=2x");
    EXPECT_EQ(d.lblReason()->text(), "");
    EXPECT_TRUE(d.btnInsert()->isEnabled());
    QTest::mouseClick(d.btnInsert(), Qt::LeftButton);
    EXPECT_EQ(f.target.writes, QStringList{"0/1=y=2*x"}) << c.typed;
  }
}

TEST(frmInsert, AnUnknownNameIsNamed) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  EXPECT_EQ(d.Problem("y=2x"), "");
  EXPECT_EQ(d.Problem(""), "");
  EXPECT_EQ(d.Problem("[x,y;1,2]"), "");
  EXPECT_EQ(d.Problem("command==>[showgrid]"), "");
  for (const QString& text : {QString("hello world"), QString("y=x;;"), QString("=="), QString(";")}) {
    const QString reason = d.Problem(text);
    f.TypeLinear(text);
    if (d.txtLinear()->property("invalid").toBool()) {
      EXPECT_FALSE(reason.isEmpty()) << text.toStdString();
      EXPECT_EQ(d.lblReason()->text(), reason);
    }
  }
}

TEST(frmInsert, TheStandardStyleEditedClearsTheRed) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  f.TypeLinear("y=(x");
  ASSERT_FALSE(d.btnInsert()->isEnabled());
  QApplication::setActiveWindow(&d);
  d.mthStandard()->setFocus();
  d.mthStandard()->SetText("y=x^2");
  EXPECT_TRUE(d.btnInsert()->isEnabled());
  EXPECT_EQ(d.lblReason()->text(), "");
  d.Insert();
  EXPECT_EQ(f.target.writes, QStringList{"0/0=y=x^2"});
}

// Each way the dialog goes, and whether the next opening for the same editor shows the text typed.
TEST(frmInsert, WhatWasTypedComesBackUntilInsertOrCancel) {
  struct Case {
    const char* name;
    std::function<void(frmInsert&)> leave;
    bool kept;
  };
  const Case cases[] = {
      {"a click elsewhere",
       [](frmInsert& d) {
         QApplication::setActiveWindow(nullptr);
         QEvent leave(QEvent::WindowDeactivate);
         QApplication::sendEvent(&d, &leave);
       },
       true},
      {"the main form closes it", [](frmInsert& d) { d.Cancel(); }, true},
      {"Cancel", [](frmInsert& d) { QTest::mouseClick(d.btnCancel(), Qt::LeftButton); }, false},
      {"Escape", [](frmInsert& d) { QTest::keyClick(&d, Qt::Key_Escape); }, false},
      {"the close button", [](frmInsert& d) { d.close(); }, false},
  };
  for (const Case& c : cases) {
    DialogFixture f;
    f.target.texts[{0, 2}] = "y=x";
    f.target.texts[{0, 3}] = "y=1";
    f.Open(0, 2);
    f.TypeLinear("y=3x+");  // red, as typing leaves it midway
    c.leave(*f.dialog);
    EXPECT_TRUE(f.target.writes.isEmpty()) << c.name;
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Another editor shows its own text.
    frmInsert& other = f.Open(0, 3);
    EXPECT_EQ(other.txtLinear()->text(), "y=1") << c.name;
    other.Cancel();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmInsert& again = f.Open(0, 2);
    if (!c.kept) {
      EXPECT_EQ(again.txtLinear()->text(), "y=x") << c.name;
      EXPECT_TRUE(again.btnInsert()->isEnabled()) << c.name;
      continue;
    }
    EXPECT_EQ(again.txtLinear()->text(), "y=3x+") << c.name;
    EXPECT_EQ(again.lblReason()->text(), "the expression ends too early") << c.name;
    EXPECT_FALSE(again.btnInsert()->isEnabled()) << c.name;
    f.TypeLinear("y=3x+1");
    again.Insert();
    EXPECT_EQ(f.target.writes, QStringList{"0/2=y=3*x+1"}) << c.name;
    // Inserted, the draft is done with.
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(f.Open(0, 2).txtLinear()->text(), "y=3*x+1") << c.name;
  }
}

TEST(frmInsert, ADraftIsNotShownOnceItsEditorHoldsAnotherText) {
  DialogFixture f;
  f.target.texts[{3, 1}] = "sin(x)";
  f.Open(3, 1);
  f.TypeLinear("cos(x)*2");
  f.dialog->Cancel();
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(f.Open(3, 1).txtLinear()->text(), "cos(x)*2");
  f.dialog->Cancel();
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  f.target.texts[{3, 1}] = "x*y";
  EXPECT_EQ(f.Open(3, 1).txtLinear()->text(), "x*y");
}

TEST(frmInsert, ALongTextIsNeverCutShort) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  const QString text = "y=" + QString("x+").repeated(20000) + "1";
  d.txtLinear()->setFocus();
  d.txtLinear()->setText(text);
  EXPECT_EQ(d.txtLinear()->text(), text);
}

TEST(frmInsert, WhatIsTypedOrPastedTurnsIntoTheRowLanguage) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  f.TypeLinear("y=|x|");
  EXPECT_EQ(d.txtLinear()->text(), "y=abs(x)");
  EXPECT_EQ(d.txtLinear()->cursorPosition(), d.txtLinear()->text().size());
  EXPECT_EQ(d.mthStandard()->Text(), "y=abs(x)");
  EXPECT_FALSE(d.txtLinear()->property("invalid").toBool());

  f.TypeLinear("y=");
  QApplication::clipboard()->setText(QStringLiteral("\\frac{1}{\\sqrt{x^{2}+1}}"));
  d.txtLinear()->paste();
  EXPECT_EQ(d.txtLinear()->text(), "y=(1)/(sqrt(x^2+1))");
  EXPECT_EQ(d.mthStandard()->Text(), "y=(1)/(sqrt(x^2+1))");
  EXPECT_FALSE(d.txtLinear()->property("invalid").toBool());
  QTest::mouseClick(d.btnInsert(), Qt::LeftButton);
  EXPECT_EQ(f.target.writes, QStringList{"0/0=y=(1)/(sqrt(x^2+1))"});
}

namespace {

// Types key by key as TypeLinear does, with the characters that no key of the test's keyboard
// has (√, ²) sent as the text of a key press, as an input method does.
void TypeKeys(DialogFixture& f, const QString& text, bool replace = true) {
  if (replace) f.TypeLinear(QString());
  for (const QChar c : text) {
    if (c.unicode() < 0x80) {
      QTest::keyClick(f.dialog->txtLinear(), char(c.unicode()));
      continue;
    }
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
    QApplication::sendEvent(f.dialog->txtLinear(), &press);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
    QApplication::sendEvent(f.dialog->txtLinear(), &release);
  }
}

}  // namespace

TEST(frmInsert, TypingIsNotFoughtWhileANumberOrNameGoesOn) {
  DialogFixture f;
  frmInsert& d = f.Open(0, 0);
  // The bar waits for its partner; the root for the rest of its number, while the standard
  // style already shows what was understood.
  f.TypeLinear("y=|x");
  EXPECT_EQ(d.txtLinear()->text(), "y=|x");
  TypeKeys(f, "y=√12");
  EXPECT_EQ(d.txtLinear()->text(), "y=√12");
  EXPECT_EQ(d.mthStandard()->Text(), "y=sqrt(12)");
  TypeKeys(f, "+1", false);
  EXPECT_EQ(d.txtLinear()->text(), "y=sqrt(12)+1");
  // Leaving the field converts what still waited.
  TypeKeys(f, "y=√12");
  d.mthStandard()->setFocus();
  EXPECT_EQ(d.txtLinear()->text(), "y=sqrt(12)");
  EXPECT_EQ(d.mthStandard()->Text(), "y=sqrt(12)");
  // Typed in the middle, the caret stays before what stood behind it.
  f.TypeLinear("y=+1");
  d.txtLinear()->setCursorPosition(2);
  QTest::keyClicks(d.txtLinear(), "|x|");
  EXPECT_EQ(d.txtLinear()->text(), "y=abs(x)+1");
  EXPECT_EQ(d.txtLinear()->cursorPosition(), 8);
  EXPECT_EQ(d.mthStandard()->Text(), "y=abs(x)+1");
  // Points and a named function, as typed.
  f.TypeLinear("(1,2),(3,4)");
  EXPECT_EQ(d.txtLinear()->text(), "[x,y;1,2;3,4]");
  EXPECT_EQ(d.mthStandard()->Text(), "[x,y;1,2;3,4]");
  TypeKeys(f, "f(x)=x²");
  EXPECT_EQ(d.txtLinear()->text(), "y=x^2");
  EXPECT_EQ(d.mthStandard()->Text(), "y=x^2");
}

TEST(frmInsert, PastedTextsShowTheirEquation) {
  struct Case {
    const char* pasted;
    const char* linear;
    const char* standard;
  };
  const Case cases[] = {
      {"y=|x-1|+|2x|", "y=abs(x-1)+abs(2x)", "y=abs(x-1)+abs(2*x)"},
      {"r(θ)=2sin(3θ)", "r=2sin(3theta)", "r=2sin*(3q..symb)"},
      {"$y=\\sqrt[3]{x}$", "y=xroot(x,3)", "y=xroot(x,3)"},
      {"y=\\frac{x+1}{x-1}", "y=(x+1)/(x-1)", "y=(x+1)/(x-1)"},
      {"y≤x²", "y<=x^2", "y<=x^2"},
      {"(1,2),(3,4)", "[x,y;1,2;3,4]", "[x,y;1,2;3,4]"},
      {"y=2√x", "y=2sqrt(x)", "y=2*sqrt(x)"},
  };
  for (const Case& c : cases) {
    DialogFixture f;
    frmInsert& d = f.Open(0, 0);
    f.TypeLinear("");
    QApplication::clipboard()->setText(QString::fromUtf8(c.pasted));
    d.txtLinear()->paste();
    EXPECT_EQ(d.txtLinear()->text().toStdString(), c.linear) << c.pasted;
    EXPECT_FALSE(d.txtLinear()->property("invalid").toBool()) << c.pasted << ": " << d.lblReason()->text().toStdString();
    EXPECT_EQ(d.mthStandard()->Text().toStdString(), c.standard) << c.pasted;
  }
}
