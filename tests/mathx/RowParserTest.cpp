#include "mathx/RowParser.h"

#include <gtest/gtest.h>

namespace mathx {
namespace {

using Kind = MathNode::Kind;

// A short picture of the tree: kinds, texts and operators, children in brackets.
QString Describe(const MathNode& node) {
  static const char* const names[] = {"Num",   "Var",    "Greek",   "Word",   "Call",  "Group",    "Bin",
                                      "Unary", "Pow",    "Chain",   "Root",   "Abs",   "Declare",  "Domain",
                                      "Table", "Line",   "Empty",   "Command", "Plain"};
  QString text = QString::fromLatin1(names[int(node.kind)]);
  if (!node.text.isEmpty()) text += u' ' + node.text;
  if (!node.ops.isEmpty()) text += QStringLiteral("(%1)").arg(node.ops.join(u' '));
  if (node.hideBrackets) text += u'~';
  if (!node.children.empty()) {
    QStringList parts;
    for (const MathNode& child : node.children) parts << Describe(child);
    text += u'[' + parts.join(u", ") + u']';
  }
  return text;
}

struct ParseCase {
  const char* text;
  const char* tree;
};

class RowParserTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(RowParserTest, ReadsTheRowAsAMathematicianWould) {
  const ParseCase& c = GetParam();
  EXPECT_EQ(Describe(ParseRow(QString::fromUtf8(c.text))).toStdString(), c.tree) << c.text;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RowParserTest,
    ::testing::Values(
        ParseCase{"y=x^2", "Chain(=)[Var y, Pow[Var x, Num 2]]"},
        ParseCase{"y = x ^ 2 + 1", "Chain(=)[Var y, Bin(+)[Pow[Var x, Num 2], Num 1]]"},
        ParseCase{"x^2+y^2=1", "Chain(=)[Bin(+)[Pow[Var x, Num 2], Pow[Var y, Num 2]], Num 1]"},
        ParseCase{"r=2*q..symb", "Chain(=)[Var r, Bin(*)[Num 2, Greek θ]]"},
        ParseCase{"r=2*theta", "Chain(=)[Var r, Bin(*)[Num 2, Greek θ]]"},
        ParseCase{"f..var..symb+f..symb", "Bin(+)[Greek φ, Greek ϕ]"},
        ParseCase{"a..symb+b..symb+t..symb+m..symb+l..symb+r..symb", "Bin(+ + + + +)[Greek α, Greek β, Greek τ, Greek μ, Greek λ, Greek ρ]"},
        ParseCase{"alpha+beta+phi+tau+meu+lambda+rho+pi", "Bin(+ + + + + + +)[Greek α, Greek β, Greek φ, Greek τ, Greek μ, Greek λ, Greek ρ, Greek π]"},
        ParseCase{"y=2x", "Chain(=)[Var y, Bin()[Num 2, Var x]]"},
        ParseCase{"y=2pi", "Chain(=)[Var y, Bin()[Num 2, Greek π]]"},
        ParseCase{"y=xsin(x)", "Chain(=)[Var y, Bin()[Var x, Call sin[Var x]]]"},
        ParseCase{"y=sin x", "Chain(=)[Var y, Call sin[Var x]]"},
        ParseCase{"y=(x+1)(x-1)", "Chain(=)[Var y, Bin()[Group ()[Bin(+)[Var x, Num 1]], Group ()[Bin(-)[Var x, Num 1]]]]"},
        ParseCase{"y=-x^2", "Chain(=)[Var y, Unary -[Pow[Var x, Num 2]]]"},
        ParseCase{"y=x^2^3", "Chain(=)[Var y, Pow[Var x, Pow[Num 2, Num 3]]]"},
        ParseCase{"y=e^(x+1)", "Chain(=)[Var y, Pow[Var e, Group ()~[Bin(+)[Var x, Num 1]]]]"},
        ParseCase{"y=(x+1)/(x-1)", "Chain(=)[Var y, Bin(/)[Group ()[Bin(+)[Var x, Num 1]], Group ()[Bin(-)[Var x, Num 1]]]]"},
        ParseCase{"y=1/2*x", "Chain(=)[Var y, Bin(*)[Bin(/)[Num 1, Num 2], Var x]]"},
        ParseCase{"y=2*x/3", "Chain(=)[Var y, Bin(/)[Bin(*)[Num 2, Var x], Num 3]]"},
        ParseCase{"y=sqrt(x)", "Chain(=)[Var y, Root sqrt[Var x]]"},
        ParseCase{"y=sqr(x)", "Chain(=)[Var y, Root sqr[Var x]]"},
        ParseCase{"y=xroot(x,3)", "Chain(=)[Var y, Root xroot[Var x, Num 3]]"},
        ParseCase{"y=abs(x)", "Chain(=)[Var y, Abs abs[Var x]]"},
        ParseCase{"y=[x]+1", "Chain(=)[Var y, Bin(+)[Group [][Var x], Num 1]]"},
        ParseCase{"y=log10(x)", "Chain(=)[Var y, Call log10[Var x]]"},
        ParseCase{"y=x mod 3", "Chain(=)[Var y, Bin(mod)[Var x, Num 3]]"},
        ParseCase{"y=.5x", "Chain(=)[Var y, Bin()[Num .5, Var x]]"},
        ParseCase{"y>=x+1", "Chain(>=)[Var y, Bin(+)[Var x, Num 1]]"},
        ParseCase{"0<x=<3", "Chain(< =<)[Num 0, Var x, Num 3]"},
        ParseCase{"y=x;0<x<1", "Chain(;)[Chain(=)[Var y, Var x], Chain(< <)[Num 0, Var x, Num 1]]"},
        ParseCase{"declare(y=x^2,x>0)", "Declare declare[Chain(=)[Var y, Pow[Var x, Num 2]], Chain(>)[Var x, Num 0]]"},
        ParseCase{"y=declare(x^2,x>0)", "Chain(=)[Var y, Declare declare[Pow[Var x, Num 2], Chain(>)[Var x, Num 0]]]"},
        ParseCase{"declare(y=x^2,domain(x,0,3,0))", "Declare declare[Chain(=)[Var y, Pow[Var x, Num 2]], Domain 0[Var x, Num 0, Num 3]]"},
        ParseCase{"declare(y=x,domain(x,0,1,0) and domain(y,0,1,1))",
                  "Declare declare[Chain(=)[Var y, Var x], Chain(and)[Domain 0[Var x, Num 0, Num 1], Domain 1[Var y, Num 0, Num 1]]]"},
        ParseCase{"declare(y=x,(domain(x,1,2,3)))", "Declare declare[Chain(=)[Var y, Var x], Group ()~[Domain 3[Var x, Num 1, Num 2]]]"},
        ParseCase{"declare(y=x,domain(x,0,3,7))", "Declare declare[Chain(=)[Var y, Var x], Call domain[Var x, Num 0, Num 3, Num 7]]"},
        ParseCase{"[x,y;1,2;3,4.5]", "Table[Line[Var x, Var y], Line[Num 1, Num 2], Line[Num 3, Num 4.5]]"},
        ParseCase{"[x,y;pi/2,sin(1)]", "Table[Line[Var x, Var y], Line[Bin(/)[Greek π, Num 2], Call sin[Num 1]]]"},
        ParseCase{"[x,y;,]", "Table[Line[Var x, Var y], Line[Empty, Empty]]"},
        ParseCase{"[r,q..symb;,]", "Table[Line[Var r, Greek θ], Line[Empty, Empty]]"},
        ParseCase{"[q..symb,r;,]", "Table[Line[Greek θ, Var r], Line[Empty, Empty]]"},
        ParseCase{"[x,y;1,2", "Table[Line[Var x, Var y], Line[Num 1, Num 2]]"},
        ParseCase{"[x,y;1", "Table[Line[Var x, Var y], Line[Num 1, Empty]]"},
        ParseCase{"[x,y;", "Table[Line[Var x, Var y], Line[Empty, Empty]]"},
        ParseCase{"command==>[showgrid]", "Command show grid"},
        ParseCase{"command==>[transparentbackground]", "Command transparent background"},
        ParseCase{"command==>[enterfullscreen]", "Command enter full screen"},
        // What the user is still typing.
        ParseCase{"y=sqrt(x", "Chain(=)[Var y, Root sqrt[Var x]]"},
        ParseCase{"y=x+", "Chain(=)[Var y, Bin(+)[Var x, Empty]]"},
        ParseCase{"y=(", "Chain(=)[Var y, Group ()[Empty]]"},
        ParseCase{"y=", "Chain(=)[Var y, Empty]"},
        // What does not parse is shown as it stands.
        ParseCase{"command==>[show grid]", "Plain command==>[show grid]"},
        ParseCase{"command==>[SHOWGRID]", "Plain command==>[SHOWGRID]"},
        ParseCase{"commandshowgrid", "Plain commandshowgrid"},
        ParseCase{"y=x)", "Plain y=x)"},
        ParseCase{"y==x", "Plain y==x"},
        ParseCase{"y=(x]", "Plain y=(x]"},
        ParseCase{"@~@", "Plain @~@"},
        ParseCase{"[x)+fix(x]", "Plain [x)+fix(x]"},
        ParseCase{"hello world", "Plain hello world"},
        ParseCase{"", "Plain"},
        ParseCase{"   ", "Plain    "}));

TEST(RowParser, DeepNestingIsShownAsPlainText) {
  const QString deep = QString(5000, u'(') + u'x' + QString(5000, u')');
  EXPECT_EQ(ParseRow(deep).kind, Kind::PlainText);
  const QString powers = QStringLiteral("x^").repeated(3000) + u'x';
  EXPECT_EQ(ParseRow(powers).kind, Kind::PlainText);
  const QString quotients = QStringLiteral("1/").repeated(3000) + u'x';
  EXPECT_EQ(ParseRow(quotients).kind, Kind::PlainText);
}

TEST(RowParser, LongSumsStayShallow) {
  const QString sum = QStringLiteral("x+").repeated(20000) + u'x';
  const MathNode node = ParseRow(sum);
  ASSERT_EQ(node.kind, Kind::Binary);
  EXPECT_EQ(node.children.size(), 20001u);
}

TEST(RowParser, NodesKnowTheirCharacters) {
  const MathNode node = ParseRow(QStringLiteral("y = sqrt(x)"));
  ASSERT_EQ(node.kind, Kind::Chain);
  const MathNode& root = node.children[1];
  EXPECT_EQ(root.begin, 4);
  EXPECT_EQ(root.end, 11);
  EXPECT_EQ(root.children[0].begin, 9);
  EXPECT_EQ(root.marks.front().begin, 4);
  EXPECT_EQ(root.marks.front().end, 8);
  EXPECT_EQ(root.marks.back().begin, 10);
}

TEST(RowParser, GreekLettersAndCommandPhrases) {
  EXPECT_EQ(GreekLetter(QStringLiteral("q..symb")), QString::fromUtf8("θ"));
  EXPECT_EQ(GreekLetter(QStringLiteral("f..var..symb")), QString::fromUtf8("φ"));
  EXPECT_EQ(GreekLetter(QStringLiteral("f..symb")), QString::fromUtf8("ϕ"));
  EXPECT_EQ(GreekLetter(QStringLiteral("meu")), QString::fromUtf8("μ"));
  EXPECT_EQ(GreekLetter(QStringLiteral("x")), QString());
  EXPECT_EQ(CommandPhrase(QStringLiteral("hideouterframe")), QStringLiteral("hide outer frame"));
  EXPECT_EQ(CommandPhrase(QStringLiteral("opaquebackground")), QStringLiteral("opaque background"));
  EXPECT_EQ(CommandPhrase(QStringLiteral("nonsense")), QStringLiteral("nonsense"));
}

}  // namespace
}  // namespace mathx
