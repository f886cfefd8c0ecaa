// The samples page: its list, the pictures under the pointer, the load.
#include "output/pageSamples.h"

#include "core/SharedState.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include "WaitUntil.h"

namespace {

struct Page {
  Page() {
    qputenv("QUILLOGRAPH_DATA", dir.path().toUtf8());
    QDir(dir.path()).mkpath(QStringLiteral("Functions"));
    // Pictures for the first two samples only.
    for (const char* tag : {"Circle", "Pikachu"}) {
      QImage picture(80, 60, QImage::Format_RGB32);
      picture.fill(Qt::white);
      picture.save(dir.filePath(QStringLiteral("Functions/%1.jpg").arg(QString::fromLatin1(tag))));
    }
    page = std::make_unique<output::pageSamples>(state, boxes);
    page->LoadProject = [this](const QString& path) {
      loaded.push_back(path);
      state.ProjectChanged = true;  // what reading a project leaves behind
      return true;
    };
    page->resize(900, 600);
  }
  ~Page() { qunsetenv("QUILLOGRAPH_DATA"); }
  output::pageSamples* operator->() { return page.get(); }
  QString Picture(const char* tag) { return dir.filePath(QStringLiteral("Functions/%1.jpg").arg(QString::fromLatin1(tag))); }

  QTemporaryDir dir;
  core::SharedState state;
  RecordingBoxes boxes;
  std::unique_ptr<output::pageSamples> page;
  std::vector<QString> loaded;
};

TEST(pageSamples, TheSamplesInTheirOrder) {
  Page p;
  const struct {
    const char* title;
    const char* description;
  } expected[] = {
      {">>Circle", "Common Circle Function Sample"},
      {">>Pikachu", "Art of Pikachu character"},
      {">>Damped Oscillation", "Damped Oscillation curve"},
      {">>Flower", "Polar Flower Function"},
      {">>Gear", "Gear Function"},
      {">>Heart Curve", "Heart Curve Function"},
      {">>Heart Curve", "Parametric Heart Curve Sample 1"},
      {">>Heart Curve", "Parametric Heart Curve Sample 2"},
      {">>Heart Curve", "Polar Heart Curve Function"},
      {">>Muscle", "Muscle Curve Functions"},
      {">>Rainbow", "Rainbow Functions"},
      {">>Sine wave", "Saine wave Functions"},
      {">>Square root", "Square Root Functions"},
      {">>Triangle", "Triangle Curve Functions"},
      {">>Climbing sine", "Sine curves"},
      {">>Minions: Kevin!", "Art of one of Minions cartoon characters: Kevin!"},
      {">>The Simpsons: Homer", "Art of one of The Simpsons cartoon characters: Homer"},
      {">>Bear", "Art of a cartoon Bear"},
      {">>Frog", "Art of a cartoonic frog"},
      {">>Heart Shape 3D", "3D Heart Shape Sample 1"},
      {">>Heart Shape 3D", "3D Heart Shape Sample 2"},
      {">>8 Equation", "Equation of \"8\" shaped curve"},
      {">>8 Equation Y", "Equation of \"8\" shaped curve solved for y"},
      {">>Batman", "Batman logo curve"},
  };
  ASSERT_EQ(p->SampleCount(), 24);
  for (int i = 0; i < 24; ++i) {
    EXPECT_EQ(p->btnSample(i)->Caption(), QString::fromUtf8(expected[i].title)) << i;
    EXPECT_EQ(p->btnSample(i)->Description(), QString::fromUtf8(expected[i].description)) << i;
  }
  EXPECT_EQ(p->btnSample(21)->property("tag").toString(), "8 Curve");
  EXPECT_EQ(p->btnSample(19)->property("tag").toString(), "3D_Heart_1");
}

TEST(pageSamples, TheDescriptionsAreGrey) {
  Page p;
  const QColor grey = p->btnSample(3)->DescriptionLabel()->palette().color(QPalette::WindowText);
  EXPECT_EQ(grey, QColor(QStringLiteral("#6f6f6f")));
}

TEST(pageSamples, TheMisspelledCircleButtonDoesNothing) {
  Page p;
  ASSERT_NE(p->btnSmaple(), nullptr);
  EXPECT_EQ(p->btnSmaple()->objectName(), "btnSmaple");
  EXPECT_EQ(p->btnSmaple()->Caption(), "Circle");
  EXPECT_EQ(p->btnSmaple()->Description(), "Common Circle Function Sample");
  p->btnSmaple()->click();
  EXPECT_TRUE(p.loaded.empty());
  EXPECT_TRUE(p.boxes.boxes.empty());
}

TEST(pageSamples, ThePointerShowsEachPictureAndLeavingEmptiesTheBox) {
  Page p;
  p->btnSample_MouseMove(0, QPoint(5, 5));
  EXPECT_EQ(p->ShownPicture(), p.Picture("Circle"));
  EXPECT_FALSE(p->picSample()->pixmap().isNull());
  p->btnSample_MouseMove(0, QPoint(-1, 5));
  EXPECT_EQ(p->ShownPicture(), QString());
  EXPECT_TRUE(p->picSample()->pixmap().isNull());
  // From one button to the next.
  p->btnSample_MouseMove(0, QPoint(5, 5));
  p->btnSample_MouseMove(1, QPoint(5, 5));
  EXPECT_EQ(p->ShownPicture(), p.Picture("Pikachu"));
  // Past the button's width or height.
  p->btnSample_MouseMove(1, QPoint(p->btnSample(1)->width() + 1, 5));
  EXPECT_EQ(p->ShownPicture(), QString());
  p->btnSample_MouseMove(1, QPoint(5, p->btnSample(1)->height() + 1));
  EXPECT_EQ(p->ShownPicture(), QString());
}

TEST(pageSamples, AMissingPictureLeavesTheBoxAsItWas) {
  Page p;
  p->btnSample_MouseMove(1, QPoint(5, 5));
  p->btnSample_MouseMove(2, QPoint(5, 5));  // Damped Oscillation has no picture here
  EXPECT_EQ(p->ShownPicture(), p.Picture("Pikachu"));
}

TEST(pageSamples, ThePointerOnTheRealButtons) {
  Page p;
  p->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(p.page.get()));
  QTest::mouseMove(p->btnSample(0), QPoint(10, 10));
  EXPECT_TRUE(WaitUntil([&] { return p->ShownPicture() == p.Picture("Circle"); }));
  QTest::mouseMove(p->btnSample(1), QPoint(10, 10));
  EXPECT_TRUE(WaitUntil([&] { return p->ShownPicture() == p.Picture("Pikachu"); }));
  QTest::mouseMove(p->picSample(), QPoint(10, 10));
  EXPECT_TRUE(WaitUntil([&] { return p->ShownPicture() == QString(); }));
}

TEST(pageSamples, AClickLoadsTheSampleUnnamedAndUnchanged) {
  Page p;
  p.state.ProjectPath = QStringLiteral("/home/someone/work.qlp");
  p.state.ProjectChanged = true;
  p->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(p.page.get()));
  int loadedCalls = 0;
  p->Loaded = [&] { ++loadedCalls; };
  p->btnSample(21)->click();
  ASSERT_EQ(p.loaded.size(), 1u);
  EXPECT_EQ(p.loaded[0], p.dir.filePath(QStringLiteral("Functions/8 Curve.qlfn")));
  ASSERT_EQ(p.boxes.boxes.size(), 1u);
  EXPECT_EQ(p.boxes.boxes[0].Text, "Sample loaded, go back to the main form.");
  EXPECT_EQ(p.boxes.boxes[0].Title, "Sample Loaded - [Info-0003]");
  EXPECT_EQ(p.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Information);
  EXPECT_EQ(p.state.ProjectPath, QString());
  EXPECT_FALSE(p.state.ProjectChanged);
  EXPECT_FALSE(p->PB()->isVisible());
  EXPECT_EQ(loadedCalls, 1);
}

TEST(pageSamples, TheProgressBarMovesWhileTheSampleLoads) {
  Page p;
  p->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(p.page.get()));
  bool visible = false;
  int maximum = -1;
  p->LoadProject = [&](const QString&) {
    visible = p->PB()->isVisible();
    maximum = p->PB()->maximum();
    return true;
  };
  p->btnSample(0)->click();
  EXPECT_TRUE(visible);
  EXPECT_EQ(maximum, 0);  // no value: the bar that only moves
  EXPECT_EQ(p->PB()->x(), p->rszSamples()->x());
  EXPECT_EQ(p->PB()->width(), p->rszSamples()->width());
}

TEST(pageSamples, AHiddenPageLoadsWithoutTheBox) {
  Page p;
  p->btnSample(0)->click();
  EXPECT_EQ(p.loaded.size(), 1u);
  EXPECT_TRUE(p.boxes.boxes.empty());
  EXPECT_FALSE(p.state.ProjectChanged);
}

}  // namespace

// The samples' pictures are read when their buttons are first painted, not when the page is
// made: the page is built with the main window, long before anyone opens it.
TEST(pageSamples, PicturesAreReadWhenFirstShown) {
  Page p;
  QImage red(80, 60, QImage::Format_RGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(p.Picture("Circle")));
  p.page->show();
  auto* icon = p->btnSample(0)->findChild<QWidget*>(QStringLiteral("imgIcon"));
  ASSERT_NE(icon, nullptr);
  const QColor middle = icon->grab().toImage().pixelColor(15, 15);
  EXPECT_GT(middle.red(), 200);
  EXPECT_LT(middle.green(), 60);
  // A sample without a picture shows the general picture icon instead.
  auto* other = p->btnSample(2)->findChild<QWidget*>(QStringLiteral("imgIcon"));
  ASSERT_NE(other, nullptr);
  EXPECT_NE(other->grab().toImage().pixelColor(15, 15), QColor(Qt::red));
}
