#include "core/RuntimeError.h"
#include "core/TextFunctions.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using namespace core;

namespace {

int ErrorNumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace

TEST(TextFunctions, InStrCountsFromOneWithZeroForNotFound) {
  struct Case { const char* text; const char* find; int expected; };
  const Case cases[] = {
      {"abcabc", "b", 2}, {"abcabc", "c", 3}, {"abcabc", "x", 0}, {"abc", "", 1},
      {"", "a", 0},       {"", "", 0},        {"a,domain(x)", ",domain", 2}, {"aaa", "aa", 1},
  };
  for (const auto& c : cases) EXPECT_EQ(InStr(c.text, c.find), c.expected) << c.text << " / " << c.find;
}

TEST(TextFunctions, InStrFromAStartPosition) {
  EXPECT_EQ(InStr(3, "abcabc", "b"), 5);
  EXPECT_EQ(InStr(7, "abcabc", "b"), 0);
  EXPECT_EQ(ErrorNumberOf([] { InStr(0, "abc", "a"); }), RuntimeError::InvalidProcedureCall);
}

TEST(TextFunctions, LeftRightMidBehaveAsTheScriptLanguage) {
  EXPECT_EQ(Left("hello", 2), "he");
  EXPECT_EQ(Left("hello", 0), "");
  EXPECT_EQ(Left("hello", 99), "hello");
  EXPECT_EQ(Right("hello", 2), "lo");
  EXPECT_EQ(Mid("hello", 2), "ello");
  EXPECT_EQ(Mid("hello", 6), "");
  EXPECT_EQ(Mid("hello", 2, 3), "ell");
  EXPECT_EQ(Mid("hello", 4, 99), "lo");
  EXPECT_EQ(Mid("", 2, 0), "");
}

TEST(TextFunctions, InvalidArgumentsRaiseErrorFive) {
  EXPECT_EQ(ErrorNumberOf([] { Left("abc", -1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Right("abc", -1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid("abc", 0); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid("abc", 2, -1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { Mid("", 2, -2); }), 5);
}

TEST(TextFunctions, ReplaceIsLeftToRightWithoutRescanning) {
  EXPECT_EQ(Replace("aaaa", "aa", "a"), "aa");
  EXPECT_EQ(Replace("x+x", "x", "*x^"), "*x^+*x^");
  EXPECT_EQ(Replace("abc", "", "X"), "abc");
  EXPECT_EQ(Replace("Sin", "sin", "X"), "Sin");
  EXPECT_EQ(Replace("***", "**", "*"), "**");
}

TEST(TextFunctions, SplitOfTheEmptyTextHasNoPieces) {
  EXPECT_TRUE(Split("", ",").isEmpty());
  EXPECT_EQ(Split("a,,b", ","), QStringList({"a", "", "b"}));
  EXPECT_EQ(Split("x and y", "and"), QStringList({"x ", " y"}));
  EXPECT_EQ(Split("abc", ""), QStringList({"abc"}));
}

TEST(TextFunctions, AtRaisesSubscriptOutOfRange) {
  const QStringList pieces{"a", "b"};
  EXPECT_EQ(At(pieces, 1), "b");
  EXPECT_EQ(ErrorNumberOf([&] { At(pieces, 2); }), RuntimeError::SubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { At(pieces, -1); }), RuntimeError::SubscriptOutOfRange);
}

TEST(TextFunctions, TrimRemovesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim("   "), "");
}

TEST(TextFunctions, OccurrencesDoNotOverlap) {
  EXPECT_EQ(Occurrences("aaa", "aa"), 1);
  EXPECT_EQ(Occurrences("0<=x<3", "<"), 2);
  EXPECT_EQ(Occurrences("abc", ""), 0);
}

TEST(TextFunctions, TryStepIgnoresTheErrorAndKeepsEarlierAssignments) {
  QString value = "before";
  TryStep([&] { value = Left("abc", -1); });
  EXPECT_EQ(value, "before");
  int steps = 0;
  TryStep([&] {
    ++steps;
    Mid("x", 0);
    ++steps;
  });
  EXPECT_EQ(steps, 1);
}
