#include "benches/probe/ProbeProgram.h"
#include "benches/probe/ProbeWindow.h"

#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

namespace {

using probe::ProbeWindow;

class ProbeWindowTest : public ::testing::Test {
protected:
  ProbeWindowTest() {
    window.CopyText = [this](const QString& text) { copied = text; };
    window.show();
  }

  void Enter(const QString& function, const QString& from, const QString& to, const QString& step) {
    window.FunctionField()->setText(function);
    window.FromField()->setText(from);
    window.ToField()->setText(to);
    window.StepField()->setText(step);
    QTest::keyClick(window.FunctionField(), Qt::Key_Return);
  }

  QStringList FindingTexts() const {
    QStringList texts;
    for (int i = 0; i < window.Findings()->count(); ++i) texts << window.Findings()->item(i)->text();
    return texts;
  }

  // How many pixels of the plot's picture are red within 8 pixels of a point of the data: a dot
  // is a ring, so its colour is around the point rather than on it.
  int RedPixelsNear(double x, double y) const {
    const QImage picture = window.Plot()->LastPicture();
    const QPoint centre = window.Plot()->Scene().View().ToPixel(x, y).toPoint();
    int count = 0;
    for (int dx = -8; dx <= 8; ++dx) {
      for (int dy = -8; dy <= 8; ++dy) {
        const QColor c = picture.pixelColor(centre + QPoint(dx, dy));
        if (c.red() > 170 && c.green() < 90 && c.blue() < 90) ++count;
      }
    }
    return count;
  }

  ProbeWindow window;
  QString copied;
};

TEST_F(ProbeWindowTest, EnterProbesAndListsTheFindings) {
  Enter(QStringLiteral("1/(x-2)"), QStringLiteral("-10"), QStringLiteral("10"), QStringLiteral("5"));
  const QStringList texts = FindingTexts();
  EXPECT_TRUE(texts.contains(QStringLiteral("Vertical asymptote: x = 2"))) << texts.join(u'|').toStdString();
  EXPECT_TRUE(texts.contains(QStringLiteral("Horizontal asymptote: y = 0 (as x → ±∞)")));
  EXPECT_TRUE(window.Message()->isHidden());
  EXPECT_EQ(window.Table()->rowCount(), 5);
  EXPECT_EQ(window.Table()->item(2, 1)->text(), QStringLiteral("-0.5"));
}

TEST_F(ProbeWindowTest, RangeFieldsReadAsTheProgramsRangeFields) {
  Enter(QStringLiteral("sin(x)"), QStringLiteral("0"), QStringLiteral("2pi"), QStringLiteral("pi/2"));
  ASSERT_EQ(window.Table()->rowCount(), 5);
  EXPECT_EQ(window.Table()->item(1, 0)->text(), QStringLiteral("1.5707963267949"));
  EXPECT_EQ(window.Table()->item(1, 1)->text(), QStringLiteral("1"));
}

TEST_F(ProbeWindowTest, CopyButtonAndCtrlCCopyTheTableAsTabSeparatedText) {
  Enter(QStringLiteral("x^2"), QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("1"));
  const QString expected = QStringLiteral("x\tf(x)\n0\t0\n1\t1\n2\t4\n");
  QTest::mouseClick(window.CopyButton(), Qt::LeftButton);
  EXPECT_EQ(copied, expected);
  copied.clear();
  window.Table()->setFocus();
  QTest::keyClick(window.Table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied, expected);
}

TEST_F(ProbeWindowTest, ChoosingAFindingMarksItInRed) {
  Enter(QStringLiteral("x^3-3x"), QStringLiteral("-3"), QStringLiteral("3"), QStringLiteral("1"));
  const int maximum = static_cast<int>(FindingTexts().indexOf(QStringLiteral("Maximum: (-1, 2)")));
  ASSERT_GE(maximum, 0) << FindingTexts().join(u'|').toStdString();
  EXPECT_EQ(RedPixelsNear(-1, 2), 0);
  window.Findings()->setCurrentRow(maximum);
  EXPECT_GT(RedPixelsNear(-1, 2), 8);
  EXPECT_EQ(RedPixelsNear(1, -2), 0);
}

TEST_F(ProbeWindowTest, BadInputIsSaidInWords) {
  struct Bad {
    const char *Function, *From, *To, *Step, *Message;
  };
  for (const Bad& bad : {Bad{"x^2", "1", "1", "1", "From must be less than To"},
                         Bad{"x^2", "abc(", "1", "1", "From is not a number: \"abc(\""},
                         Bad{"x^2", "0", "1", "0", "Step must be more than 0"},
                         Bad{"x^2", "0", "1", "", "Step is empty: type a number"},
                         Bad{"x^2", "0", "1000", "0.001", "The step is too small: the table would have more than 10000 rows"},
                         Bad{"", "0", "1", "1", "Type a function of x, such as x^3-3x"},
                         Bad{"x=y^2", "0", "1", "1", "The probe takes y = f(x): type a function of x, such as x^3-3x"}}) {
    Enter(QString::fromUtf8(bad.Function), QString::fromUtf8(bad.From), QString::fromUtf8(bad.To), QString::fromUtf8(bad.Step));
    EXPECT_FALSE(window.Message()->isHidden()) << bad.Message;
    EXPECT_EQ(window.Message()->text().toStdString(), bad.Message);
  }
}

TEST_F(ProbeWindowTest, EveryControlHasAName) {
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (child->focusPolicy() == Qt::NoFocus || qobject_cast<QLabel*>(child)) continue;
    if (child->parentWidget() && child->parentWidget()->inherits("QAbstractScrollArea")) continue;
    if (child->inherits("QHeaderView")) continue;
    EXPECT_FALSE(child->accessibleName().isEmpty()) << child->metaObject()->className();
  }
  EXPECT_FALSE(window.windowTitle().isEmpty());
}

TEST(ProbeProgram, PictureIsWrittenAtTheAskedSize) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("probe.png"));
  ASSERT_EQ(probe::RunProbe({QStringLiteral("--picture"), file, QStringLiteral("--size"), QStringLiteral("900x600")}), 0);
  const QImage picture(file);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(900, 600));
}

TEST(ProbeProgram, BadArgumentsAreRefused) {
  EXPECT_EQ(probe::RunProbe({QStringLiteral("--size"), QStringLiteral("0x")}), 2);
  EXPECT_EQ(probe::RunProbe({QStringLiteral("--what")}), 2);
}

}  // namespace

namespace {

// The plot's exact special points are the probe's own: merged in, they add nothing to the closed
// forms' findings.
TEST_F(ProbeWindowTest, ThePlotsSpecialPointsAgreeWithTheFindings) {
  struct Expected {
    const char* Function;
    const char* From;
    const char* To;
    int Count;
  };
  for (const Expected& e : {Expected{"x^3-3x", "-3", "3", 10}, Expected{"1/(x-2)", "-10", "10", 6},
                            Expected{"sqrt(x)", "-4", "9", 4}, Expected{"x^2-4", "-5", "5", 6}}) {
    Enter(QString::fromLatin1(e.Function), QString::fromLatin1(e.From), QString::fromLatin1(e.To), QStringLiteral("1"));
    EXPECT_EQ(window.Findings()->count(), e.Count) << e.Function << ": " << FindingTexts().join(u'|').toStdString();
  }
}

TEST(CurveAnalysisMerge, APointTheAnalysisMissedIsAddedInOrder) {
  std::vector<probe::ProbeItem> items(1);
  items[0].What = probe::ProbeItem::Kind::Root;
  items[0].X = 1;
  items[0].Text = QStringLiteral("Root: x = 1");
  probe::CurveAnalysis::MergeNotablePoints(items, {{probe::ProbeItem::Kind::Root, QPointF(1 + 1e-12, 0)},
                                                   {probe::ProbeItem::Kind::Root, QPointF(-2, 0)},
                                                   {probe::ProbeItem::Kind::Minimum, QPointF(0.5, -0.25)}});
  QStringList texts;
  for (const auto& item : items) texts << item.Text;
  EXPECT_EQ(texts, QStringList({QStringLiteral("Root: x = -2"), QStringLiteral("Root: x = 1"), QStringLiteral("Minimum: (0.5, -0.25)")}));
}

}  // namespace
