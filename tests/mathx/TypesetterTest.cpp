#include "BoxSearch.h"

#include "mathx/Formula.h"

#include <gtest/gtest.h>

namespace mathx {
namespace {

using Role = LayoutBox::Role;
using BoxKind = LayoutBox::Kind;

LayoutBox Typeset(const char* text) {
  Formula formula;
  formula.SetPixelSize(20);
  formula.SetText(QString::fromUtf8(text));
  return formula.Box();
}

TEST(Typesetter, APowerIsRaisedAndSmaller) {
  const LayoutBox box = Typeset("y=x^2");
  const auto base = WithRole(box, Role::Base);
  const auto exponent = WithRole(box, Role::Exponent);
  ASSERT_EQ(base.size(), 1u);
  ASSERT_EQ(exponent.size(), 1u);
  EXPECT_LT(exponent[0].baseline, base[0].baseline - 5);
  EXPECT_GE(exponent[0].x, base[0].x + base[0].box->width);
  const auto two = WithText(box, "2");
  ASSERT_EQ(two.size(), 1u);
  EXPECT_LT(two[0].box->size, 20);
}

TEST(Typesetter, TheFractionBarLiesBetweenItsParts) {
  for (const char* text : {"y=(x+1)/(x-1)", "y=1/x", "y=sqrt(x^2+1)/(1+abs(x))"}) {
    const LayoutBox box = Typeset(text);
    const auto numerator = WithRole(box, Role::Numerator);
    const auto bar = WithRole(box, Role::FractionBar);
    const auto denominator = WithRole(box, Role::Denominator);
    ASSERT_EQ(numerator.size(), 1u) << text;
    ASSERT_EQ(bar.size(), 1u) << text;
    ASSERT_EQ(denominator.size(), 1u) << text;
    EXPECT_LE(numerator[0].Bottom(), bar[0].Top()) << text;
    EXPECT_GE(denominator[0].Top(), bar[0].Bottom()) << text;
    // The bar spans both parts.
    EXPECT_LE(bar[0].x, numerator[0].x) << text;
    EXPECT_GE(bar[0].x + bar[0].box->width, denominator[0].x + denominator[0].box->width) << text;
  }
}

TEST(Typesetter, AFractionsBracketsAreLeftOut) {
  const LayoutBox box = Typeset("y=(x+1)/(x-1)");
  EXPECT_TRUE(WithText(box, "(").empty());
  EXPECT_TRUE(WithText(box, ")").empty());
}

TEST(Typesetter, AChainOfQuotientsIsNotStacked) {
  const LayoutBox box = Typeset("y=x/2/3");
  EXPECT_EQ(WithRole(box, Role::FractionBar).size(), 1u);
  EXPECT_EQ(WithText(box, "/").size(), 1u);
}

TEST(Typesetter, QuotientsOfLongTermsAndInExponentsStayOnTheLine) {
  EXPECT_TRUE(WithRole(Typeset("y=x+1/x-1"), Role::FractionBar).size() == 1u);
  EXPECT_TRUE(WithRole(Typeset("y=e^(-x^2/2)"), Role::FractionBar).empty());
  EXPECT_EQ(WithText(Typeset("y=e^(-x^2/2)"), "/").size(), 1u);
}

TEST(Typesetter, APointListIsATableWithALinePerPoint) {
  struct Case {
    const char* text;
    size_t points;
  };
  for (const Case& c : {Case{"[x,y;1,2]", 1}, Case{"[x,y;1,2;3,4.5]", 2}, Case{"[r,q..symb;2,pi/4;3,pi/2;4,pi]", 3},
                        Case{"[x,y;,]", 1}}) {
    const LayoutBox box = Typeset(c.text);
    EXPECT_EQ(WithRole(box, Role::TableHeader).size(), 1u) << c.text;
    const auto lines = WithRole(box, Role::TableRow);
    ASSERT_EQ(lines.size(), c.points) << c.text;
    for (size_t i = 1; i < lines.size(); ++i) EXPECT_GT(lines[i].Top(), lines[i - 1].Bottom() - 0.5) << c.text;
    EXPECT_EQ(WithRole(box, Role::TableCell).size(), 2 * (c.points + 1)) << c.text;
    const auto header = WithRole(box, Role::TableHeader);
    EXPECT_LT(header[0].Bottom(), lines[0].Top() + 0.5) << c.text;
  }
}

TEST(Typesetter, EmptyTemplateCellsAreEmptyPlaces) {
  const LayoutBox box = Typeset("[x,y;,]");
  EXPECT_EQ(Find(box, [](const LayoutBox& b) { return b.kind == BoxKind::Placeholder; }).size(), 2u);
  EXPECT_EQ(WithText(box, "x").size(), 1u);
  EXPECT_EQ(WithText(box, "y").size(), 1u);
}

TEST(Typesetter, ARadicalCoversItsRadicand) {
  const LayoutBox box = Typeset("y=sqrt(x^2+1)");
  const auto radicand = WithRole(box, Role::Radicand);
  const auto sign = Find(box, [](const LayoutBox& b) { return b.kind == BoxKind::RadicalSign; });
  const auto rules = Find(box, [](const LayoutBox& b) { return b.kind == BoxKind::Rule; });
  ASSERT_EQ(radicand.size(), 1u);
  ASSERT_EQ(sign.size(), 1u);
  ASSERT_EQ(rules.size(), 1u);
  EXPECT_LE(rules[0].Bottom(), radicand[0].Top());
  EXPECT_LE(rules[0].x, radicand[0].x);
  EXPECT_GE(rules[0].x + rules[0].box->width, radicand[0].x + radicand[0].box->width);
  EXPECT_LE(sign[0].x + sign[0].box->width, radicand[0].x);
}

TEST(Typesetter, AnIndexSitsInTheCrookOfTheRoot) {
  const LayoutBox box = Typeset("y=xroot(x,3)");
  const auto index = WithRole(box, Role::RootIndex);
  const auto radicand = WithRole(box, Role::Radicand);
  ASSERT_EQ(index.size(), 1u);
  EXPECT_LT(index[0].baseline, radicand[0].baseline);
  EXPECT_LT(index[0].x, radicand[0].x);
}

TEST(Typesetter, FacesFollowTheKindOfName) {
  const LayoutBox box = Typeset("y=sin(x)+2*pi+q..symb");
  EXPECT_EQ(WithText(box, "sin")[0].box->font, FontRole::Upright);
  EXPECT_EQ(WithText(box, "x")[0].box->font, FontRole::Italic);
  EXPECT_EQ(WithText(box, "y")[0].box->font, FontRole::Italic);
  EXPECT_EQ(WithText(box, "2")[0].box->font, FontRole::Upright);
  EXPECT_EQ(WithText(box, QString::fromUtf8("π"))[0].box->font, FontRole::Upright);
  EXPECT_EQ(WithText(box, QString::fromUtf8("θ"))[0].box->font, FontRole::Italic);
}

struct GlyphCase {
  const char* text;
  const char* glyph;
};

class TypesetGlyphs : public ::testing::TestWithParam<GlyphCase> {};

TEST_P(TypesetGlyphs, ShowsTheMathematicalSign) {
  const LayoutBox box = Typeset(GetParam().text);
  EXPECT_FALSE(WithText(box, QString::fromUtf8(GetParam().glyph)).empty()) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Signs, TypesetGlyphs,
                         ::testing::Values(GlyphCase{"y<=x", "≤"}, GlyphCase{"y=<x", "≤"}, GlyphCase{"y>=x", "≥"},
                                           GlyphCase{"y=>x", "≥"}, GlyphCase{"y<>x", "≠"}, GlyphCase{"y=x-1", "−"},
                                           GlyphCase{"y=-x", "−"}, GlyphCase{"y=2*3", "·"},
                                           GlyphCase{"y=pi", "π"}, GlyphCase{"r=theta", "θ"},
                                           GlyphCase{"declare(y=x,x>0)", ","},
                                           GlyphCase{"declare(y=x,domain(x,0,1,1))", "≤"},
                                           GlyphCase{"declare(y=x,domain(x,0,1,0) and domain(y,0,1,1))", "and"},
                                           GlyphCase{"y=log10(x)", "log"}, GlyphCase{"y=log10(x)", "10"},
                                           GlyphCase{"command==>[showgrid]", "show grid"},
                                           GlyphCase{"y=x)", "y=x)"}));

TEST(Typesetter, RelationsTakeAlikeRoom) {
  // The face gives ≤ much more side room than <; the typesetter evens them out.
  const auto relation = [](const char* text) {
    const LayoutBox box = Typeset(text);
    const auto operators = WithRole(box, Role::Operator);
    double widest = 0;
    for (const PlacedBox& op : operators) widest = std::max(widest, op.box->width);
    return widest;
  };
  EXPECT_NEAR(relation("y<=x"), relation("y<x"), 0.25 * relation("y<x"));
  EXPECT_NEAR(relation("y>=x"), relation("y>x"), 0.25 * relation("y>x"));
}

TEST(Typesetter, TheDomainFormReadsAsItsChain) {
  // domain(x,0,3,2): 0 < x <= 3, the variable between its bounds.
  const LayoutBox box = Typeset("declare(y=x^2,domain(x,0,3,2))");
  const auto zero = WithText(box, "0");
  const auto less = WithText(box, "<");
  const auto atMost = WithText(box, QString::fromUtf8("≤"));
  const auto three = WithText(box, "3");
  ASSERT_EQ(zero.size(), 1u);
  ASSERT_EQ(less.size(), 1u);
  ASSERT_EQ(atMost.size(), 1u);
  ASSERT_EQ(three.size(), 1u);
  EXPECT_LT(zero[0].x, less[0].x);
  EXPECT_LT(less[0].x, atMost[0].x);
  EXPECT_LT(atMost[0].x, three[0].x);
  const auto xs = WithText(box, "x");
  ASSERT_EQ(xs.size(), 2u);
  EXPECT_GT(xs[1].x, less[0].x);
  EXPECT_LT(xs[1].x, atMost[0].x);
}

TEST(Typesetter, TallContentGetsTallBrackets) {
  const LayoutBox low = Typeset("y=(x+1)");
  EXPECT_EQ(WithText(low, "(").size(), 1u);
  const LayoutBox tall = Typeset("y=((x+1)/(x-1))^2");
  const auto fences = Find(tall, [](const LayoutBox& b) { return b.kind == BoxKind::Fence; });
  ASSERT_EQ(fences.size(), 2u);
  EXPECT_LT(fences[0].Top(), WithRole(tall, Role::Numerator)[0].Top());
  EXPECT_GT(fences[0].Bottom(), WithRole(tall, Role::Denominator)[0].Bottom());
}

TEST(Typesetter, AThreeStoryFormulaIsTallerThanALine) {
  Formula line;
  line.SetText("y=x+1");
  Formula tall;
  tall.SetText("y=1/(1+1/(1+1/x))");
  EXPECT_GT(tall.Size().height(), 1.8 * line.Size().height());
}

}  // namespace
}  // namespace mathx
