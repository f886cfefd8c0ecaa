#include "mathx/Formula.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>

namespace mathx {
namespace {

QStringList RowTexts() {
  QFile file(QStringLiteral(QUILLOGRAPH_MATHX_DATA "/row-texts.txt"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QStringList texts = QString::fromUtf8(file.readAll()).split(u'\n');
  texts.removeAll(QString());
  return texts;
}

bool Finite(const LayoutBox& box) {
  if (!std::isfinite(box.x) || !std::isfinite(box.y) || !std::isfinite(box.width) || !std::isfinite(box.ascent) ||
      !std::isfinite(box.descent))
    return false;
  for (const LayoutBox& child : box.children)
    if (!Finite(child)) return false;
  return true;
}

// The table of row texts that the pictures of the editor are looked at with: every one is typeset,
// keeps its text, has places for both its ends, and only the broken ones come out as plain text.
TEST(RowTexts, EveryTextIsTypeset) {
  const QStringList texts = RowTexts();
  ASSERT_GE(texts.size(), 40);
  const QStringList plain = {"y=x)", "y==x", "@~@", "hello world", "command==>[show grid]"};
  for (const QString& text : texts) {
    Formula formula;
    formula.SetText(text);
    EXPECT_EQ(formula.Text(), text);
    EXPECT_TRUE(Finite(formula.Box())) << text.toStdString();
    EXPECT_GT(formula.Size().width(), 0) << text.toStdString();
    ASSERT_FALSE(formula.Places().empty());
    EXPECT_EQ(formula.Places().front().position, 0) << text.toStdString();
    EXPECT_EQ(formula.Places().back().position, text.size()) << text.toStdString();
    EXPECT_EQ(formula.Node().kind == MathNode::Kind::PlainText, plain.contains(text)) << text.toStdString();
  }
}

}  // namespace
}  // namespace mathx
