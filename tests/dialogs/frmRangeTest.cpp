// The range dialog in its three modes.
#include "core/Tag.h"
#include "core/Twips.h"
#include "dialogs/frmRange.h"
#include "expression/ScriptEvaluation.h"
#include "script/ScriptControl.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using dialogs::frmRange;

namespace {

struct RangeFixture {
  RangeFixture() : state(InitialisedState()), evaluation(state, engine) { expression::StartScriptEngine(engine, state); }
  ~RangeFixture() { delete dialog.data(); }

  // Opened, and grown to its size unless a test wants to watch it grow.
  frmRange& Open(const QString& mode, bool grown = true) {
    dialog = new frmRange(
        mode, plot, [this] { ++plotRedraws; }, plot3d, [this] { ++plot3DRedraws; },
        [this](const QString& text) { return evaluation.EvaluateExpression(text); });
    dialog->show();
    dialog->Form_Activate();
    for (int i = 0; grown && i < 100; ++i) dialog->Timer1_Timer();
    return *dialog;
  }
  QString Text(const char* field) { return dialog->Field(field)->text(); }
  void Type(const char* field, const QString& text) { dialog->Field(field)->setText(text); }

  core::SharedState state;
  script::ScriptControl engine;
  expression::ScriptEvaluation evaluation;
  plot2d::Plot plot;
  plot3d::Plot3D plot3d;
  QPointer<frmRange> dialog;
  int plotRedraws = 0, plot3DRedraws = 0;
};

}  // namespace

TEST(frmRange, PlotRangeShowsTheCurrentLimitsAndSetsThem) {
  RangeFixture f;
  f.plot.SetXMin(-3), f.plot.SetXMax(4), f.plot.SetYMin(-2.5), f.plot.SetYMax(7);
  frmRange& d = f.Open("Plot Range");
  EXPECT_EQ(core::Tag(&d), "Plot Range");
  EXPECT_EQ(d.lblRange()->text(), "Plot Range:");
  EXPECT_EQ(d.btnCurrentRange()->text(), "Default Range");
  EXPECT_EQ(f.Text("txtXmin"), "-3");
  EXPECT_EQ(f.Text("txtXmax"), "4");
  EXPECT_EQ(f.Text("txtYmin"), "-2.5");
  EXPECT_EQ(f.Text("txtYmax"), "7");
  EXPECT_TRUE(d.Field("txt_zMin")->isHidden());
  EXPECT_TRUE(d.Field("txt_ZMAX")->isHidden());
  f.Type("txtXmax", "pi");
  f.Type("txtYmin", "-2*pi");
  f.Type("txtYmax", "1/0");  // fails, and is set to what the evaluator gives
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.plot.XMax(), 3.14159265358979);
  EXPECT_EQ(f.plot.YMin(), -2 * 3.14159265358979);
  EXPECT_EQ(f.plot.YMax(), 0);
  EXPECT_EQ(f.plotRedraws, 1);
  EXPECT_TRUE(f.dialog.isNull() || f.dialog->isHidden());
  // The next opening shows the number, not the text.
  frmRange& again = f.Open("Plot Range");
  EXPECT_EQ(again.Field("txtXmax")->text(), "3.14159265358979");
}

TEST(frmRange, PlotRangesButtonFetchesTheDefaultRange) {
  RangeFixture f;
  f.plot.SetDefaultRange(-1, 1, -2, 2);
  frmRange& d = f.Open("Plot Range");
  QTest::mouseClick(d.btnCurrentRange(), Qt::LeftButton);
  EXPECT_EQ(f.Text("txtXmin"), "-1");
  EXPECT_EQ(f.Text("txtYmax"), "2");
  EXPECT_EQ(f.plot.XMin(), -10) << "nothing is applied before OK";
}

TEST(frmRange, DefaultRangeSetsTheDefaultAndDoesNotMoveThePlot) {
  RangeFixture f;
  f.plot.SetXMin(-4), f.plot.SetXMax(5);
  frmRange& d = f.Open("Default Range");
  EXPECT_EQ(d.lblRange()->text(), "Default Range:");
  EXPECT_EQ(d.btnCurrentRange()->text(), "Default Range");
  EXPECT_EQ(f.Text("txtXmin"), "-10");
  // The button captioned "Default Range" fetches the current range in this mode.
  QTest::mouseClick(d.btnCurrentRange(), Qt::LeftButton);
  EXPECT_EQ(f.Text("txtXmin"), "-4");
  EXPECT_EQ(f.Text("txtXmax"), "5");
  f.Type("txtYmin", "-e");
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.plot.DefaultXMin(), -4);
  EXPECT_EQ(f.plot.DefaultYMin(), -2.71828182845905);
  EXPECT_EQ(f.plot.XMin(), -4);
  EXPECT_EQ(f.plot.YMin(), -10);
  EXPECT_EQ(f.plotRedraws, 0);
}

TEST(frmRange, ThreeDRangeWithItsZFieldsAndItsMinusTwoToTwo) {
  RangeFixture f;
  f.plot3d.SetZMin(-7), f.plot3d.SetZMax(8);
  frmRange& d = f.Open("3D Range");
  EXPECT_EQ(d.lblRange()->text(), "3D Range:");
  EXPECT_EQ(d.btnCurrentRange()->text(), "Current &Rnage");
  EXPECT_FALSE(d.Field("txt_zMin")->isHidden());
  EXPECT_EQ(f.Text("txt_zMin"), "-7");
  EXPECT_EQ(f.Text("txt_ZMAX"), "8");
  QTest::mouseClick(d.btnCurrentRange(), Qt::LeftButton);
  for (const char* name : {"txtXmin", "txtYmin", "txt_zMin"}) EXPECT_EQ(f.Text(name), "-2") << name;
  for (const char* name : {"txtXmax", "txtYmax", "txt_ZMAX"}) EXPECT_EQ(f.Text(name), "2") << name;
  EXPECT_EQ(f.plot3d.ZMin(), -7) << "nothing is applied before OK";
  f.Type("txtXmin", "3");  // above its maximum: passed on as it is
  QTest::mouseClick(d.btnOK(), Qt::LeftButton);
  EXPECT_EQ(f.plot3d.XMin(), 3);
  EXPECT_EQ(f.plot3d.XMax(), 2);
  EXPECT_EQ(f.plot3d.ZMin(), -2);
  EXPECT_EQ(f.plot3DRedraws, 1);
}

TEST(frmRange, MinimumAboveMaximumIsPassedOnUnchanged) {
  RangeFixture f;
  frmRange& d = f.Open("Plot Range");
  f.Type("txtXmin", "5");
  f.Type("txtXmax", "-5");
  d.btnOK_Click();
  EXPECT_EQ(f.plot.XMin(), 5);
  EXPECT_EQ(f.plot.XMax(), -5);
}

TEST(frmRange, CancelAndLeavingApplyNothing) {
  RangeFixture f;
  frmRange& d = f.Open("Plot Range");
  f.Type("txtXmin", "1");
  QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
  EXPECT_EQ(f.plot.XMin(), -10);
  EXPECT_TRUE(f.dialog.isNull() || f.dialog->isHidden());
  frmRange& e = f.Open("Plot Range");
  f.Type("txtXmin", "1");
  QEvent leave(QEvent::WindowDeactivate);
  QApplication::sendEvent(&e, &leave);
  EXPECT_EQ(f.plot.XMin(), -10);
  EXPECT_TRUE(f.dialog.isNull() || f.dialog->isHidden());
}

TEST(frmRange, ItGrowsOpenToItsSize) {
  for (const char* mode : {"Plot Range", "3D Range"}) {
    RangeFixture f;
    frmRange& d = f.Open(mode, false);
    EXPECT_LE(d.width(), 20);
    d.Timer1_Timer();
    EXPECT_LE(d.width(), core::Px(200) + 1);
    for (int i = 0; i < 100; ++i) d.Timer1_Timer();
    EXPECT_EQ(d.size(), d.TargetSize());
    EXPECT_GE(d.width(), core::Px(3210));
    EXPECT_GE(d.height(), core::Px(QString(mode) == "3D Range" ? 2670 : 2175));
    // Its buttons ride on the bottom edge.
    EXPECT_LE(d.btnOK()->geometry().bottom(), d.height() - core::Px(60));
  }
}

// A click elsewhere only puts the dialog away: shown again, it holds what was typed, while the
// fields the user did not touch follow the plot. Only OK, Cancel, Escape or closing end it.
TEST(frmRange, WhatWasTypedOutlivesAClickElsewhere) {
  struct Case {
    const char* mode;
    const char* field;
    const char* typed;
    const char* untouched;  // a field left alone: it shows the plot's limit of the moment
    const char* follows;
  };
  const Case cases[] = {
      {"Plot Range", "txtXmax", "2*pi", "txtYmin", "-6"},
      {"Default Range", "txtYmin", "-e", "txtXmax", "10"},
      {"3D Range", "txt_zMin", "-3/2", "txtXmin", "-6"},
  };
  for (const Case& c : cases) {
    RangeFixture f;
    const double zMin = f.plot3d.ZMin();
    frmRange& d = f.Open(c.mode);
    QLineEdit* field = d.Field(c.field);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, c.typed);
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(f.dialog.isNull()) << c.mode;
    EXPECT_TRUE(d.isHidden()) << c.mode;
    EXPECT_EQ(f.plot.XMax(), 10) << c.mode;
    EXPECT_EQ(f.plot.DefaultYMin(), -10) << c.mode;
    EXPECT_EQ(f.plot3d.ZMin(), zMin) << c.mode;
    // Meanwhile the plot moved.
    f.plot.SetYMin(-6), f.plot.SetXMin(-6), f.plot3d.SetXMin(-6);
    d.show();
    d.Form_Activate();
    EXPECT_EQ(f.Text(c.field), c.typed) << c.mode;
    EXPECT_EQ(f.Text(c.untouched), c.follows) << c.mode;
    EXPECT_EQ(d.lblRange()->text(), QString(c.mode) + ":") << c.mode;
  }
}

TEST(frmRange, OkCancelEscapeAndClosingEndWhatWasTyped) {
  const char* const ends[] = {"OK", "Cancel", "Escape", "close"};
  for (const char* end : ends) {
    RangeFixture f;
    frmRange& d = f.Open("Plot Range");
    QLineEdit* field = d.Field("txtXmin");
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, "-1");
    QEvent leave(QEvent::WindowDeactivate);
    QApplication::sendEvent(&d, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(f.dialog.isNull()) << end;
    d.show();
    d.Form_Activate();
    ASSERT_EQ(f.Text("txtXmin"), "-1") << end;
    const QString how(end);
    if (how == "OK") QTest::mouseClick(d.btnOK(), Qt::LeftButton);
    else if (how == "Cancel") QTest::mouseClick(d.btnCancel(), Qt::LeftButton);
    else if (how == "Escape") QTest::keyClick(field, Qt::Key_Escape);
    else d.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(f.dialog.isNull()) << end;
    EXPECT_EQ(f.plot.XMin(), how == "OK" ? -1 : -10) << end;
  }
}

// A limit that cannot be read is never taken as 0: its field turns red as it is typed, and OK then
// applies nothing and keeps the dialog open, until the text can be read.
TEST(frmRange, AnUnreadableLimitStaysRedAndKeepsTheOldValue) {
  struct Case {
    const char* Mode;
    const char* FieldName;
  };
  for (const Case& c : {Case{"Plot Range", "txtXmax"}, Case{"3D Range", "txt_ZMAX"}, Case{"Default Range", "txtYmin"}}) {
    SCOPED_TRACE(c.Mode);
    RangeFixture f;
    f.plot.SetXMax(4);
    f.plot3d.SetZMax(5);
    frmRange& d = f.Open(c.Mode);
    d.SetReadable([&f](const QString& text) {
      f.evaluation.EvaluateExpression(text);
      return !f.state.MathError;
    });
    QLineEdit* field = d.Field(c.FieldName);
    field->selectAll();
    QTest::keyClicks(field, "2pj");
    EXPECT_TRUE(d.Unreadable(c.FieldName));
    EXPECT_TRUE(field->styleSheet().contains("rgb(255, 0, 0)"));
    const double defaultYMin = f.plot.DefaultYMin();
    QTest::mouseClick(d.btnOK(), Qt::LeftButton);
    ASSERT_FALSE(f.dialog.isNull());
    EXPECT_FALSE(d.Unloading());
    EXPECT_EQ(f.plot.XMax(), 4);
    EXPECT_EQ(f.plot3d.ZMax(), 5);
    EXPECT_EQ(f.plot.DefaultYMin(), defaultYMin);
    EXPECT_EQ(f.plotRedraws + f.plot3DRedraws, 0);
    // Put right, it is read.
    field->selectAll();
    QTest::keyClicks(field, "2pi");
    EXPECT_FALSE(d.Unreadable(c.FieldName));
    EXPECT_TRUE(field->styleSheet().isEmpty());
    QTest::mouseClick(d.btnOK(), Qt::LeftButton);
    EXPECT_TRUE(f.dialog.isNull() || f.dialog->Unloading());
  }
}

TEST(frmRange, ALongLimitShowsItsStart) {
  RangeFixture f;
  f.plot.SetXMin(-123456789.123457);
  frmRange& d = f.Open("Plot Range");
  EXPECT_EQ(d.Field("txtXmin")->cursorPosition(), 0);
}
