// The picture of a formula must not depend on what its fonts have remembered: text painted from
// the glyph runs the fonts keep is compared pixel for pixel with text laid out afresh for every
// box, the way each box was painted before anything was kept, and with the picture of a fresh
// formula after sizes and texts have changed under a formula that already painted.
#include "mathx/BoxPainter.h"
#include "mathx/Formula.h"

#include <QImage>
#include <QPainter>
#include <QStaticText>

#include <gtest/gtest.h>

namespace mathx {
namespace {

// Fractions, roots, powers, indices, Greek, a long sum, brackets tall and short, a table, a
// command, broken texts, and nothing at all.
const char* const kTable[] = {
    "y=(x+1)/(x-1)",
    "y=sqrt(x^2+1)/(1+abs(x))",
    "y=xroot(x+1,n)",
    "y=x^2^3",
    "y=e^(-x^2/2)/sqrt(2*pi)",
    "y=log10(x)+ln(x)",
    "r=l..symb*cos(3*q..symb)+m..symb",
    "y=sin(t..symb*x+f..var..symb)",
    "r=alpha+beta*theta-lambda/omega",
    "y=1+x+x^2/2+x^3/6+x^4/24+x^5/120+x^6/720+x^7/5040+x^8/40320",
    "y=((x+1)/(x-1))^2",
    "y=[x]+{x}*(x)",
    "[r,q..symb;2,pi/4;3,pi/2]",
    "declare(y=x,domain(x,0,1,0) and domain(y,0,1,3))",
    "y=x;0<=x<=2",
    "command==>[showgrid]",
    "y=(",
    "y=x+",
    "hello world",
    "",
};

// Every box painted by itself, in the order of the tree; text as a fresh prepared text in the
// box's font, nothing kept from one box to the next.
void PaintUncached(QPainter& painter, const LayoutBox& box, QPointF origin, const FontSet& fonts, const QColor& color) {
  const QPointF at(origin.x() + box.x, origin.y() + box.y);
  if (box.kind == LayoutBox::Kind::Text) {
    const QFont font = fonts.Font(box.font, box.size);
    QStaticText text(box.text);
    text.setTextFormat(Qt::PlainText);
    text.prepare(QTransform(), font);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawStaticText(QPointF(at.x(), at.y() - QFontMetricsF(font).ascent()), text);
  } else {
    LayoutBox alone = box;
    alone.children.clear();
    alone.x = alone.y = 0;
    PaintBox(painter, alone, at, fonts, color);
  }
  for (const LayoutBox& child : box.children) PaintUncached(painter, child, at, fonts, color);
}

// Opaque paper as in the editor, where text is blended with its gamma corrected, and clear paper
// as in the pictures the program saves.
QImage Paper(const Formula& formula, bool opaque) {
  QImage image(formula.Size().toSize() + QSize(4, 4), QImage::Format_ARGB32_Premultiplied);
  image.fill(opaque ? QColor(Qt::white) : QColor(Qt::transparent));
  return image;
}

QImage Painted(const Formula& formula, bool opaque, const QColor& color) {
  QImage image = Paper(formula, opaque);
  QPainter painter(&image);
  formula.Paint(painter, QPointF(1.5, 2), color);
  return image;
}

QImage PaintedUncached(const Formula& formula, bool opaque, const QColor& color) {
  QImage image = Paper(formula, opaque);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  PaintUncached(painter, formula.Box(), QPointF(1.5, 2) + formula.Origin(), formula.Fonts(), color);
  return image;
}

std::unique_ptr<Formula> Fresh(const QString& text, double pixelSize) {
  auto formula = std::make_unique<Formula>();
  formula->SetPixelSize(pixelSize);
  formula->SetText(text);
  return formula;
}

TEST(PaintPicture, KeptGlyphsPaintAsTextLaidOutAfresh) {
  for (const double size : {11.0, 18.67, 27.0}) {
    for (const char* text : kTable) {
      const auto formula = Fresh(QString::fromUtf8(text), size);
      for (const bool opaque : {true, false}) {
        const QColor color = opaque ? QColor(20, 40, 160) : QColor(Qt::black);
        const QImage expected = PaintedUncached(*formula, opaque, color);
        // Twice: the second paint takes everything from what the first one kept.
        EXPECT_EQ(Painted(*formula, opaque, color), expected) << text << " at " << size;
        EXPECT_EQ(Painted(*formula, opaque, color), expected) << text << " at " << size;
      }
    }
  }
}

TEST(PaintPicture, ANewSizeOrTextPaintsAsAFreshFormula) {
  // One formula goes through the whole table at one size, then at others and back: whatever its
  // fonts kept for an earlier size or text must not show in a later picture.
  Formula formula;
  const double sizes[] = {18.67, 24.0, 13.0, 18.67, 40.0};
  for (const double size : sizes) {
    formula.SetPixelSize(size);
    for (const char* text : kTable) {
      formula.SetText(QString::fromUtf8(text));
      const auto fresh = Fresh(QString::fromUtf8(text), size);
      EXPECT_EQ(Painted(formula, true, Qt::black), Painted(*fresh, true, Qt::black)) << text << " at " << size;
    }
  }
}

TEST(PaintPicture, AFormulaPaintsTheSameInEveryColour) {
  const auto formula = Fresh(QString::fromUtf8("y=sqrt(x^2+1)/(1+abs(x))"), 20);
  for (const QColor color : {QColor(Qt::black), QColor(Qt::red), QColor(0, 0, 255, 128)}) {
    EXPECT_EQ(Painted(*formula, true, color), PaintedUncached(*formula, true, color)) << color.name().toStdString();
  }
}

}  // namespace
}  // namespace mathx
