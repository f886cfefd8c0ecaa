#include "mathx/EditBuffer.h"

#include <gtest/gtest.h>

namespace mathx {
namespace {

EditBuffer With(const char* text, std::vector<int> stops) {
  EditBuffer buffer;
  buffer.SetText(QString::fromUtf8(text));
  buffer.SetStops(std::move(stops));
  return buffer;
}

TEST(EditBuffer, TypingIsWhatTheTextHolds) {
  EditBuffer buffer;
  for (const char* piece : {"y", "=", "s", "q", "r", "t", "(", "x", "^", "2", ")"}) buffer.Insert(QString::fromUtf8(piece));
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=sqrt(x^2)"));
  EXPECT_EQ(buffer.Caret(), 11);
}

TEST(EditBuffer, SetTextPutsTheCaretAtTheEnd) {
  EditBuffer buffer = With("y=x", {});
  EXPECT_EQ(buffer.Caret(), 3);
  EXPECT_FALSE(buffer.HasSelection());
}

TEST(EditBuffer, TheCaretMovesFromStopToStop) {
  EditBuffer buffer = With("y=sqrt(x)", {0, 1, 2, 7, 8, 9});
  buffer.Left(false);
  EXPECT_EQ(buffer.Caret(), 8);
  buffer.Left(false);
  buffer.Left(false);
  EXPECT_EQ(buffer.Caret(), 2);
  buffer.Right(false);
  EXPECT_EQ(buffer.Caret(), 7);
  buffer.Home(false);
  EXPECT_EQ(buffer.Caret(), 0);
  buffer.Left(false);
  EXPECT_EQ(buffer.Caret(), 0);
  buffer.End(false);
  EXPECT_EQ(buffer.Caret(), 9);
  buffer.Right(false);
  EXPECT_EQ(buffer.Caret(), 9);
}

TEST(EditBuffer, BackspaceTakesAWholeNameAndItsBracket) {
  EditBuffer buffer = With("y=sqrt(x)+1", {0, 1, 2, 7, 8, 9, 10, 11});
  buffer.MoveTo(7, false);
  EXPECT_TRUE(buffer.Backspace());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x+1"));
  EXPECT_EQ(buffer.Caret(), 2);
}

TEST(EditBuffer, DeleteTakesAGroupsBracketsButLeavesItsContent) {
  EditBuffer buffer = With("(x+1)*2", {0, 1, 2, 3, 4, 5, 6, 7});
  buffer.MoveTo(0, false);
  EXPECT_TRUE(buffer.Delete());
  EXPECT_EQ(buffer.Text(), QStringLiteral("x+1*2"));
}

TEST(EditBuffer, AnOpeningBracketWithoutItsPartnerGoesAlone) {
  EditBuffer buffer = With("y=(x", {0, 1, 2, 3, 4});
  buffer.MoveTo(3, false);
  buffer.Backspace();
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x"));
}

TEST(EditBuffer, NothingToDeleteChangesNothing) {
  EditBuffer buffer = With("y", {0, 1});
  EXPECT_FALSE(buffer.Delete());
  buffer.Home(false);
  EXPECT_FALSE(buffer.Backspace());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y"));
  EditBuffer empty;
  EXPECT_FALSE(empty.Backspace());
  EXPECT_FALSE(empty.Delete());
  EXPECT_FALSE(empty.Insert(QString()));
}

TEST(EditBuffer, ShiftSelectsAndTypingReplacesTheSelection) {
  EditBuffer buffer = With("y=x+1", {0, 1, 2, 3, 4, 5});
  buffer.Left(true);
  buffer.Left(true);
  EXPECT_EQ(buffer.SelectedText(), QStringLiteral("+1"));
  EXPECT_EQ(buffer.SelectionStart(), 3);
  buffer.Insert(QStringLiteral("^2"));
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x^2"));
  EXPECT_FALSE(buffer.HasSelection());
}

TEST(EditBuffer, AnArrowWithoutShiftCollapsesTheSelection) {
  EditBuffer buffer = With("abc", {0, 1, 2, 3});
  buffer.SelectAll();
  buffer.Left(false);
  EXPECT_EQ(buffer.Caret(), 0);
  buffer.SelectAll();
  buffer.Right(false);
  EXPECT_EQ(buffer.Caret(), 3);
  EXPECT_FALSE(buffer.HasSelection());
}

TEST(EditBuffer, BackspaceAndDeleteRemoveASelection) {
  EditBuffer buffer = With("y=x+1", {0, 1, 2, 3, 4, 5});
  buffer.MoveTo(2, false);
  buffer.MoveTo(4, true);
  EXPECT_TRUE(buffer.Delete());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=1"));
  buffer.SelectAll();
  EXPECT_TRUE(buffer.Backspace());
  EXPECT_EQ(buffer.Text(), QString());
}

TEST(EditBuffer, PositionsOutsideTheTextAreKeptInside) {
  EditBuffer buffer = With("xy", {0, 1, 2, 7, -3});
  buffer.MoveTo(99, false);
  EXPECT_EQ(buffer.Caret(), 2);
  buffer.MoveTo(-5, false);
  EXPECT_EQ(buffer.Caret(), 0);
  buffer.End(false);
  buffer.Right(false);
  EXPECT_EQ(buffer.Caret(), 2);
}

TEST(EditBuffer, TypingIsUndoneAsOneStepAndRedone) {
  EditBuffer buffer;
  buffer.SetText(QStringLiteral("y="));
  for (const char* piece : {"x", "^", "2"}) buffer.Insert(QString::fromUtf8(piece));
  buffer.Backspace();
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x^"));
  EXPECT_TRUE(buffer.Undo());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x^2"));
  EXPECT_TRUE(buffer.Undo());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y="));
  EXPECT_EQ(buffer.Caret(), 2);
  EXPECT_FALSE(buffer.Undo());
  EXPECT_TRUE(buffer.Redo());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x^2"));
  EXPECT_TRUE(buffer.Redo());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y=x^"));
  EXPECT_FALSE(buffer.Redo());
}

TEST(EditBuffer, ANewTextForgetsTheHistory) {
  EditBuffer buffer;
  buffer.Insert(QStringLiteral("x"));
  buffer.SetText(QStringLiteral("y"));
  EXPECT_FALSE(buffer.Undo());
  buffer.Insert(QStringLiteral("1"));
  buffer.Undo();
  buffer.Insert(QStringLiteral("2"));
  EXPECT_FALSE(buffer.Redo());
  EXPECT_EQ(buffer.Text(), QStringLiteral("y2"));
}

TEST(EditBuffer, PastingAndReplacingAreStepsOfTheirOwn) {
  EditBuffer buffer;
  buffer.Insert(QStringLiteral("a"));
  buffer.Insert(QStringLiteral("+1"));
  buffer.Insert(QStringLiteral("b"));
  buffer.SelectAll();
  buffer.Insert(QStringLiteral("c"));
  EXPECT_EQ(buffer.Text(), QStringLiteral("c"));
  buffer.Undo();
  EXPECT_EQ(buffer.Text(), QStringLiteral("a+1b"));
  buffer.Undo();
  EXPECT_EQ(buffer.Text(), QStringLiteral("a+1"));
  buffer.Undo();
  EXPECT_EQ(buffer.Text(), QStringLiteral("a"));
}

}  // namespace
}  // namespace mathx
