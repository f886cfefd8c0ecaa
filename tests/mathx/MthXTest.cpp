#include "mathx/MthX.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using mathx::MthX;

namespace {

// An editor on the screen with a replaced clipboard, as the forms would hold it.
struct Editor {
  MthX widget;
  QString clipboard;
  explicit Editor(const QString& text = QString()) {
    widget.CopyText = [this](const QString& copied) { clipboard = copied; };
    widget.PasteText = [this] { return clipboard; };
    widget.SetText(text);
    widget.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.setFocus();
    QApplication::processEvents();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(&widget, key, modifiers); }
  void Click(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(&widget, Qt::LeftButton, modifiers, at.toPoint());
  }
  // The screen point of a caret position's place.
  QPointF PlaceOf(int position) const {
    const mathx::CaretPlace place = widget.Typeset().PlaceOf(position);
    const mathx::CaretPlace shown = widget.CaretPlaceOnScreen();
    const mathx::CaretPlace current = widget.Typeset().PlaceOf(widget.CaretPosition());
    // The picture's offset in the widget, learnt from where the caret is shown now.
    return {place.x + (shown.x - current.x) + 0.4, (place.top + place.bottom) / 2 + (shown.top - current.top)};
  }
};

TEST(MthX, WhatIsTypedIsWhatTextHolds) {
  for (const char* typed : {"y=x^2+1", "declare(y=x^2,domain(x,0,3,2))", "[x,y;1,2;3,4]", "r=2*q..symb",
                            "command==>[showgrid]", "y = sqrt(x", "hello world", "@~@ )("}) {
    Editor e;
    QTest::keyClicks(&e.widget, QString::fromUtf8(typed));
    EXPECT_EQ(e.widget.Text(), QString::fromUtf8(typed));
  }
}

TEST(MthX, EveryChangeOfTextIsSignalled) {
  Editor e;
  QSignalSpy changes(&e.widget, &MthX::Change);
  QTest::keyClicks(&e.widget, "y=x");
  EXPECT_EQ(changes.count(), 3);
  e.widget.SetText("y=2");
  EXPECT_EQ(changes.count(), 4);
  e.widget.SetText("y=2");
  EXPECT_EQ(changes.count(), 4);
  e.Key(Qt::Key_Backspace);
  EXPECT_EQ(changes.count(), 5);
  e.Key(Qt::Key_Left);
  EXPECT_EQ(changes.count(), 5);
  // Size, mode and colour are no change of the text.
  e.widget.SetFontSize(20);
  e.widget.SetEditMode(0);
  e.widget.SetEditMode(1);
  e.widget.SetForeColor(255);
  EXPECT_EQ(changes.count(), 5);
}

TEST(MthX, ArrowsHomeEndBackspaceAndDelete) {
  Editor e("y=x+1");
  e.Key(Qt::Key_Home);
  EXPECT_EQ(e.widget.CaretPosition(), 0);
  e.Key(Qt::Key_Right);
  e.Key(Qt::Key_Right);
  EXPECT_EQ(e.widget.CaretPosition(), 2);
  e.Key(Qt::Key_Delete);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=+1"));
  QTest::keyClicks(&e.widget, "2x");
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=2x+1"));
  e.Key(Qt::Key_End);
  e.Key(Qt::Key_Backspace);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=2x+"));
  e.Key(Qt::Key_Left);
  EXPECT_EQ(e.widget.CaretPosition(), 4);
}

TEST(MthX, ANameIsOnePieceForTheCaret) {
  Editor e("y=sin(x)");
  e.Key(Qt::Key_Home);
  e.Key(Qt::Key_Right);
  e.Key(Qt::Key_Right);
  e.Key(Qt::Key_Right);
  EXPECT_EQ(e.widget.CaretPosition(), 5);
  e.Key(Qt::Key_Backspace);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=(x)"));
  // A radical's sign stands for "sqrt(": one piece, and its bracket goes with it.
  Editor root("y=sqrt(x)+1");
  root.Key(Qt::Key_Home);
  root.Key(Qt::Key_Right);
  root.Key(Qt::Key_Right);
  root.Key(Qt::Key_Right);
  EXPECT_EQ(root.widget.CaretPosition(), 7);
  root.Key(Qt::Key_Backspace);
  EXPECT_EQ(root.widget.Text(), QStringLiteral("y=x+1"));
}

TEST(MthX, ShiftSelectsCopyCutAndPaste) {
  Editor e("y=x+1");
  e.Key(Qt::Key_Left, Qt::ShiftModifier);
  e.Key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(e.widget.SelectedText(), QStringLiteral("+1"));
  e.Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(e.clipboard, QStringLiteral("+1"));
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x+1"));
  e.Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x"));
  e.Key(Qt::Key_Home);
  e.Key(Qt::Key_End);
  e.clipboard = QStringLiteral("^2\n+1");
  e.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x^2+1"));
  e.Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(e.widget.SelectionLength(), 7);
  QTest::keyClicks(&e.widget, "r");
  EXPECT_EQ(e.widget.Text(), QStringLiteral("r"));
}

TEST(MthX, UndoAndRedoByTheKeys) {
  Editor e("y=x");
  QTest::keyClicks(&e.widget, "+1");
  QSignalSpy changes(&e.widget, &MthX::Change);
  e.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x"));
  EXPECT_EQ(changes.count(), 1);
  e.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x+1"));
}

TEST(MthX, AClickPutsTheCaretWhereItPoints) {
  Editor e("y=x+123");
  for (int position : {0, 2, 4, 6, 7}) {
    e.Click(e.PlaceOf(position));
    EXPECT_EQ(e.widget.CaretPosition(), position);
  }
  // With Shift the click selects from the caret.
  e.Click(e.PlaceOf(2));
  e.Click(e.PlaceOf(5), Qt::ShiftModifier);
  EXPECT_EQ(e.widget.SelectedText(), QStringLiteral("x+1"));
}

TEST(MthX, UpAndDownMoveBetweenTheStoriesOfAFraction) {
  Editor e("(a+b)/(c+d)");
  e.Click(e.PlaceOf(2));
  ASSERT_EQ(e.widget.CaretPosition(), 2);
  e.Key(Qt::Key_Down);
  EXPECT_EQ(e.widget.CaretPosition(), 8);
  e.Key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(e.widget.CaretPosition(), 2);
  EXPECT_EQ(e.widget.SelectedText(), QStringLiteral("+b)/(c"));
}

TEST(MthX, ADoubleClickSelectsThePieceUnderThePointer) {
  Editor e("y=123+x");
  const QPointF middle = (e.PlaceOf(2) + e.PlaceOf(5)) / 2;
  QTest::mouseDClick(&e.widget, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
  EXPECT_EQ(e.widget.SelectedText(), QStringLiteral("123"));
}

TEST(MthX, ADragSelects) {
  Editor e("y=x+123");
  const QPoint from = e.PlaceOf(4).toPoint();
  const QPoint to = e.PlaceOf(7).toPoint();
  QTest::mousePress(&e.widget, Qt::LeftButton, Qt::NoModifier, from);
  QTest::mouseMove(&e.widget, to);
  QMouseEvent move(QEvent::MouseMove, QPointF(to), e.widget.mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(&e.widget, &move);
  QTest::mouseRelease(&e.widget, Qt::LeftButton, Qt::NoModifier, to);
  EXPECT_EQ(e.widget.SelectedText(), QStringLiteral("123"));
}

TEST(MthX, TheCaretIsDrawnInThePicture) {
  Editor e("y=x^2");
  e.Key(Qt::Key_End);
  const mathx::CaretPlace end = e.widget.CaretPlaceOnScreen();
  e.Key(Qt::Key_Home);
  const mathx::CaretPlace start = e.widget.CaretPlaceOnScreen();
  EXPECT_GT(end.x, start.x + 20);
  // At the end the caret stands in the exponent.
  EXPECT_LT(end.bottom, start.bottom - 3);
  const QImage shown = e.widget.grab().toImage();
  const QColor caret = shown.pixelColor(int(std::round(start.x)), int((start.top + start.bottom) / 2));
  EXPECT_LT(caret.lightness(), 100);
}

TEST(MthX, InertEditorsTakeNoInputAndNoColour) {
  Editor e("y=x");
  e.widget.SetForeColor(16711680);
  EXPECT_EQ(e.widget.ForeColor(), 16711680);
  e.widget.SetEditMode(0);
  QSignalSpy changes(&e.widget, &MthX::Change);
  QTest::keyClicks(&e.widget, "abc");
  e.Key(Qt::Key_Backspace);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x"));
  EXPECT_EQ(changes.count(), 0);
  e.widget.SetForeColor(12632256);
  EXPECT_EQ(e.widget.ForeColor(), 16711680);
  EXPECT_EQ(e.widget.focusPolicy(), Qt::NoFocus);
  // The program may still write the text.
  e.widget.SetText("y=2");
  EXPECT_EQ(changes.count(), 1);
  // Back to editing, the colour is taken again.
  e.widget.SetEditMode(1);
  e.widget.SetForeColor(255);
  EXPECT_EQ(e.widget.ForeColor(), 255);
}

bool HasColour(const QImage& image, const std::function<bool(const QColor&)>& test) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (test(image.pixelColor(x, y))) return true;
  return false;
}

TEST(MthX, ShowsItsTextInItsColourOrGreyedWhenInert) {
  Editor e("y=x^2");
  e.widget.SetForeColor(16711680);  // blue: red is the low byte
  const QImage blue = e.widget.grab().toImage();
  EXPECT_TRUE(HasColour(blue, [](const QColor& c) { return c.blue() > 200 && c.red() < 60 && c.green() < 60; }));
  e.widget.SetEditMode(0);
  const QImage grey = e.widget.grab().toImage();
  EXPECT_FALSE(HasColour(grey, [](const QColor& c) { return c.lightness() < 150; }));
  EXPECT_TRUE(HasColour(grey, [](const QColor& c) { return c.lightness() < 210; }));
}

TEST(MthX, TheEditorAsksForTheSizeItsContentNeeds) {
  Editor e("y=x");
  const QSize line = e.widget.sizeHint();
  EXPECT_EQ(e.widget.size(), line);
  QSignalSpy changes(&e.widget, &MthX::Change);
  int heightAtChange = 0;
  QObject::connect(&e.widget, &MthX::Change, [&] { heightAtChange = e.widget.height(); });
  e.widget.SetText("y=1/(1+1/(1+1/x))");
  EXPECT_GT(e.widget.sizeHint().height(), 2 * line.height());
  // The size is fitted before the change is told, so the forms read the new height.
  EXPECT_EQ(heightAtChange, e.widget.sizeHint().height());
  e.widget.SetFontSize(28);
  EXPECT_GT(e.widget.sizeHint().width(), line.width());
}

TEST(MthX, AClickWithoutADragIsReported) {
  Editor e("y=x");
  QSignalSpy clicks(&e.widget, &MthX::Clicked);
  e.Click(QPointF(5, 5));
  EXPECT_EQ(clicks.count(), 1);
  e.widget.SetEditMode(0);
  e.Click(QPointF(5, 5));
  EXPECT_EQ(clicks.count(), 2);
}

TEST(MthX, ControlCharactersNeverReachTheText) {
  Editor e;
  e.clipboard = QStringLiteral("y=\tx\r\n+1");
  e.Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x+1"));
  QTest::keyClick(&e.widget, Qt::Key_Return);
  QTest::keyClick(&e.widget, Qt::Key_Escape);
  EXPECT_EQ(e.widget.Text(), QStringLiteral("y=x+1"));
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

TEST(MthX, AnEmptyEditorShowsItsHintUntilItHasTheFocusOrAText) {
  QWidget window;
  QWidget other(&window);  // holds the focus, so that the editor shows no caret
  other.setFocusPolicy(Qt::StrongFocus);
  MthX widget(&window);
  widget.setGeometry(0, 0, 300, 50);
  widget.SetPlaceholderText("Click to type an equation");
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  other.setFocus();
  const auto inked = [&widget] {
    return HasColour(widget.grab().toImage(), [](const QColor& c) { return c.lightness() < 200; });
  };
  EXPECT_TRUE(inked());
  widget.SetPlaceholderText(QString());
  EXPECT_FALSE(inked());
  widget.SetPlaceholderText("Click to type an equation");
  widget.SetText("1");
  widget.SetText(QString());
  EXPECT_TRUE(inked());
}
