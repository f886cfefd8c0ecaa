// The letters of the key tips, chosen from the captions of one level.
#include "ribbon/KeyTipLetters.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QSet>

using ribbon::KeyTipLetters;

namespace {

struct LetterCase {
  const char* What;
  QStringList Captions;
  QStringList Taken;
  QStringList Tips;
};

void PrintTo(const LetterCase& c, std::ostream* os) { *os << c.What; }

class KeyTipLettersTest : public ::testing::TestWithParam<LetterCase> {};

TEST_P(KeyTipLettersTest, ChoosesFromTheCaption) {
  const LetterCase& c = GetParam();
  EXPECT_EQ(KeyTipLetters(c.Captions, c.Taken), c.Tips);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KeyTipLettersTest,
    ::testing::Values(
        LetterCase{"first letters", {"Replot", "Full screen", "Plot range", "Default range"}, {}, {"R", "F", "P", "D"}},
        LetterCase{"next letters of the caption", {"Zoom in", "Zoom out", "Reset", "Zoom along"}, {}, {"Z", "O", "R", "M"}},
        LetterCase{"the same caption twice", {"Save", "Save", "Send"}, {}, {"S", "A", "E"}},
        LetterCase{"case does not matter", {"axis", "Axis colour"}, {}, {"A", "X"}},
        LetterCase{"any free letter when the caption has none left", {"A", "A", "Ab"}, {}, {"A", "B", "C"}},
        LetterCase{"letters only", {"3D", "...", "x^2"}, {}, {"D", "A", "X"}},
        LetterCase{"mnemonic marks", {"Save &As", "&&Picture"}, {}, {"S", "P"}},
        LetterCase{"empty captions", {"", ""}, {}, {"A", "B"}},
        LetterCase{"taken letters", {"File", "Help"}, {"F", "1"}, {"I", "H"}},
        LetterCase{"accents", {"Échelle", "Ähnlich"}, {}, {"E", "A"}},
        LetterCase{"nothing", {}, {}, {}}),
    [](const ::testing::TestParamInfo<LetterCase>& tested) {
      QString name = QString::fromLatin1(tested.param.What);
      name.replace(u' ', u'_');
      return name.toStdString();
    });

QStringList Numbered(const QString& caption, int count) {
  QStringList captions;
  for (int i = 1; i <= count; ++i) captions << caption + QString::number(i);
  return captions;
}

}  // namespace

TEST(KeyTipLetters, TwentySixCaptionsStillGetOneLetterEach) {
  const QStringList tips = KeyTipLetters(Numbered("Item ", 26));
  EXPECT_EQ(tips.first(), "I");
  EXPECT_EQ(tips[1], "T");
  EXPECT_EQ(QSet<QString>(tips.begin(), tips.end()).size(), 26);
  for (const QString& tip : tips) EXPECT_EQ(tip.size(), 1) << tip.toStdString();
}

TEST(KeyTipLetters, MoreCaptionsThanLettersGetTwoLettersEach) {
  const QStringList tips = KeyTipLetters(Numbered("Item ", 30));
  ASSERT_EQ(tips.size(), 30);
  EXPECT_EQ(tips.mid(0, 5), (QStringList{"IT", "IE", "IM", "IA", "IB"}));
  EXPECT_EQ(QSet<QString>(tips.begin(), tips.end()).size(), 30);
  for (const QString& tip : tips) EXPECT_EQ(tip.size(), 2) << tip.toStdString();
}

TEST(KeyTipLetters, TakenLettersLeaveFewerForOneLetterTips) {
  QStringList taken;
  for (char letter = 'A'; letter <= 'Y'; ++letter) taken << QString(QChar::fromLatin1(letter));
  EXPECT_EQ(KeyTipLetters({"Zebra"}, taken), QStringList{"Z"});
  // Two captions for one free letter: both get two letters, none starting with a taken one.
  EXPECT_EQ(KeyTipLetters({"Zebra", "Zoo"}, taken), (QStringList{"ZE", "ZO"}));
}
