#include "mathx/Formula.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace mathx {
namespace {

std::vector<int> Stops(const Formula& formula) {
  std::vector<int> stops;
  for (const CaretPlace& place : formula.Places()) stops.push_back(place.position);
  return stops;
}

Formula Make(const char* text) {
  Formula formula;
  formula.SetPixelSize(20);
  formula.SetText(QString::fromUtf8(text));
  return formula;
}

TEST(Formula, KeepsTheTextExactlyAsGiven) {
  for (const char* text : {"y = x^2", "  y=x  ", "y=x)", "command==>[showgrid]", "[x,y;,]", "", "\t"}) {
    EXPECT_EQ(Make(text).Text(), QString::fromUtf8(text));
  }
}

TEST(Formula, TheCaretStandsBetweenPiecesNotInsideNames) {
  EXPECT_EQ(Stops(Make("y=sqrt(x)")), (std::vector<int>{0, 1, 2, 7, 8, 9}));
  EXPECT_EQ(Stops(Make("r=2*q..symb")), (std::vector<int>{0, 1, 2, 3, 4, 11}));
  EXPECT_EQ(Stops(Make("x+12")), (std::vector<int>{0, 1, 2, 3, 4}));
  EXPECT_EQ(Stops(Make("y=x)")), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST(Formula, EveryPositionOfPlainTextIsAStop) {
  const Formula formula = Make("@~@ hello");
  EXPECT_EQ(Stops(formula).size(), 10u);
}

TEST(Formula, PlacesFollowTheText) {
  const Formula formula = Make("y=x+1");
  const auto& places = formula.Places();
  for (size_t i = 1; i < places.size(); ++i) EXPECT_GT(places[i].x, places[i - 1].x);
}

TEST(Formula, TheCaretInAnExponentIsRaised) {
  const Formula formula = Make("y=x^2");
  // Position 4 is before the 2, 5 behind it: both in the exponent, above the line's middle.
  EXPECT_LT(formula.PlaceOf(4).bottom, formula.PlaceOf(2).bottom - 4);
  EXPECT_LT(formula.PlaceOf(5).bottom, formula.PlaceOf(2).bottom - 4);
}

TEST(Formula, TheCaretInAFractionIsInItsPart) {
  const Formula formula = Make("(a+b)/(c+d)");
  const CaretPlace numerator = formula.PlaceOf(2);
  const CaretPlace denominator = formula.PlaceOf(8);
  EXPECT_LT(numerator.bottom, denominator.top + 1);
}

TEST(Formula, UpAndDownGoBetweenNumeratorAndDenominator) {
  const Formula formula = Make("(a+b)/(c+d)");
  // From behind a, down to behind c, and back up.
  EXPECT_EQ(formula.PositionBelow(2), 8);
  EXPECT_EQ(formula.PositionAbove(8), 2);
  EXPECT_EQ(formula.PositionAbove(2), 2);
  EXPECT_EQ(formula.PositionBelow(8), 8);
  const Formula line = Make("y=x+1");
  EXPECT_EQ(line.PositionAbove(3), 3);
  EXPECT_EQ(line.PositionBelow(3), 3);
}

TEST(Formula, UpAndDownGoBetweenTheLinesOfATable) {
  const Formula table = Make("[x,y;1,2;3,4]");
  // Behind the 1 (position 6): down is behind the 3, up is behind the x.
  EXPECT_EQ(table.PositionBelow(6), 10);
  EXPECT_EQ(table.PositionAbove(6), 2);
}

TEST(Formula, AClickFindsThePlaceUnderIt) {
  for (const char* text : {"y=x^2+1", "y=(x+1)/(x-1)", "[x,y;1,2;3,4]", "y=sqrt(x)+abs(x)", "hello world"}) {
    const Formula formula = Make(text);
    std::set<std::pair<long, long>> seen;
    for (const CaretPlace& place : formula.Places()) {
      // Only places that no other place shares can be told apart by a click.
      const auto key = std::make_pair(std::lround(place.x * 4), std::lround(place.top * 4));
      if (!seen.insert(key).second) continue;
      int sharing = 0;
      for (const CaretPlace& other : formula.Places())
        if (std::abs(other.x - place.x) < 0.5 && std::abs(other.top - place.top) < 0.5 &&
            std::abs(other.bottom - place.bottom) < 0.5)
          ++sharing;
      if (sharing > 1) continue;
      const QPointF middle(place.x, (place.top + place.bottom) / 2);
      EXPECT_EQ(formula.PositionAt(middle), place.position) << text;
    }
  }
}

TEST(Formula, SelectionCoversTheSelectedCharacters) {
  const Formula formula = Make("y=x+123");
  const auto all = formula.SelectionRects(0, 7);
  EXPECT_GE(all.size(), 5u);
  const auto digits = formula.SelectionRects(5, 7);
  ASSERT_EQ(digits.size(), 1u);
  const auto whole = formula.SelectionRects(4, 7);
  ASSERT_EQ(whole.size(), 1u);
  EXPECT_LT(digits[0].width(), whole[0].width());
  EXPECT_TRUE(formula.SelectionRects(3, 3).empty());
}

TEST(Formula, APieceIsFoundUnderThePointer) {
  const Formula formula = Make("y=123+sin(x)");
  const auto middleOf = [&](int from, int to) {
    const CaretPlace a = formula.PlaceOf(from), b = formula.PlaceOf(to);
    return QPointF((a.x + b.x) / 2, (a.top + a.bottom) / 2);
  };
  EXPECT_EQ(formula.PieceAt(middleOf(2, 5)), std::make_pair(2, 5));  // the whole number
  EXPECT_EQ(formula.PieceAt(middleOf(6, 9)), std::make_pair(6, 9));  // the name
  EXPECT_EQ(formula.PieceAt(QPointF(-50, -50)), std::nullopt);
  // On a fraction's bar, the whole fraction.
  const Formula fraction = Make("(a+b)/(c+d)");
  const CaretPlace end = fraction.PlaceOf(11), start = fraction.PlaceOf(0);
  const double barY = fraction.Origin().y() - 0.27 * 20;
  EXPECT_EQ(fraction.PieceAt(QPointF((start.x + end.x) / 2, barY)), std::make_pair(0, 11));
}

TEST(Formula, AnEmptyTextHasTheHeightOfALine) {
  const Formula empty = Make("");
  const Formula line = Make("y=x");
  EXPECT_GT(empty.Size().height(), 0.8 * line.Size().height());
  EXPECT_EQ(Stops(empty), (std::vector<int>{0}));
}

TEST(Formula, GrowsWithTheFontSize) {
  Formula formula = Make("y=x^2");
  const QSizeF small = formula.Size();
  formula.SetPixelSize(40);
  EXPECT_GT(formula.Size().width(), 1.8 * small.width());
  EXPECT_GT(formula.Size().height(), 1.8 * small.height());
  formula.SetPixelSize(std::nan(""));
  EXPECT_GT(formula.PixelSize(), 0);
}

int InkedPixels(const QImage& image) {
  int inked = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) inked += qAlpha(image.pixel(x, y)) > 128;
  return inked;
}

TEST(Formula, RendersInkOnATransparentGround) {
  const Formula formula = Make("y=sqrt(x^2+1)");
  const QImage image = formula.Render(Qt::black);
  EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
  EXPECT_GT(InkedPixels(image), 100);
  const QImage dense = formula.Render(Qt::black, 2.0);
  EXPECT_EQ(dense.width(), 2 * image.width());
  EXPECT_GT(InkedPixels(dense), 3 * InkedPixels(image));
}

TEST(Formula, PaintsInTheGivenColour) {
  const Formula formula = Make("y=x");
  const QImage image = formula.Render(QColor(0, 0, 255));
  bool blue = false;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QRgb p = image.pixel(x, y);
      if (qAlpha(p) == 255) {
        EXPECT_EQ(qRed(p), 0);
        blue = blue || qBlue(p) == 255;
      }
    }
  EXPECT_TRUE(blue);
}

}  // namespace
}  // namespace mathx
