// The samples that come with the program, loaded into the main window as the samples page loads
// them: each reads without a message and draws something in its range.
#include "output/SampleList.h"
#include "output/pageSamples.h"
#include "plot2d/Plot.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3D.h"
#include "plot3d/Plot3DWidget.h"
#include "mathx/MthX.h"
#include "rows/FileCommands.h"
#include "rows/FunctionList.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "MainWindowFixture.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QFile>
#include <QTabWidget>
#include <QTemporaryDir>

namespace {

using Window = MainWindowFixture;

int Differing(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y);
  }
  return count;
}

class EverySample : public ::testing::TestWithParam<int> {};

TEST_P(EverySample, LoadsWithoutAMessageAndDraws) {
  const int i = GetParam();
  const output::Sample& sample = output::kSamples[static_cast<std::size_t>(i)];
  Window w;
  w->Samples().btnSample_Click(i);
  EXPECT_TRUE(w.boxes.boxes.empty()) << sample.Tag << ": " << w.boxes.boxes.front().Title.toStdString() << ": "
                                     << w.boxes.boxes.front().Text.toStdString();
  const QSize size(320, 240);
  if (w->tabInput()->currentIndex() == 3) {
    plot3d::Plot3D& scene = w->Plot3D().Scene();
    scene.SetSize(size);
    scene.SetDevicePixelRatio(1);
    scene.Redraw();
    const QImage picture = scene.Picture();
    QImage blank(picture.size(), picture.format());
    blank.fill(picture.pixel(0, 0));
    EXPECT_GT(Differing(picture, blank), size.width() * size.height() / 20) << sample.Tag;
    return;
  }
  plot2d::Plot& scene = w->Plot().Scene();
  scene.SetSize(size);
  scene.SetDevicePixelRatio(1);
  scene.Redraw();
  EXPECT_TRUE(scene.Problems().isEmpty()) << sample.Tag << ": " << scene.Problems().join(u'\n').toStdString();
  const QImage drawn = scene.Picture();
  // The same range and grid without the sample's curves.
  scene.ClearAll();
  scene.Redraw();
  EXPECT_GT(Differing(drawn, scene.Picture()), size.width() * size.height() / 100) << sample.Tag;
}

INSTANTIATE_TEST_SUITE_P(Samples, EverySample, ::testing::Range(0, static_cast<int>(output::kSamples.size())),
                         [](const ::testing::TestParamInfo<int>& param) {
                           QString name = QString::fromUtf8(output::kSamples[static_cast<std::size_t>(param.param)].Tag);
                           name.replace(u' ', u'_');
                           return name.toStdString();
                         });

TEST(Samples, ASampleLoadsOverADirtyProjectWithoutAQuestion) {
  Window w;
  w.state.ProjectPath = QStringLiteral("/tmp/somewhere.qlp");
  w.state.ProjectChanged = true;
  w->Samples().btnSample_Click(0);
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(w.state.ProjectPath, QString());
  EXPECT_FALSE(w.state.ProjectChanged);
  EXPECT_EQ(w->windowTitle(), "Quillograph");
}

// A sample has no file of its own: Save, fired as the ribbon fires it, asks for a name and
// writes the sample there.
TEST(Samples, AfterASampleSaveAsksForAName) {
  QTemporaryDir dir;
  Window w;
  w->Samples().btnSample_Click(3);
  const QString sampleText = w->Functions().Row(0).mthFunction->Text();
  w.files.names = {dir.filePath("mine.qlp")};
  w.Run(57603);
  ASSERT_EQ(w.files.shown.size(), 1u);
  EXPECT_TRUE(w.files.shown[0].Save);
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(w.state.ProjectPath, dir.filePath("mine.qlp"));
  EXPECT_FALSE(w.state.ProjectChanged);
  QFile saved(dir.filePath("mine.qlp"));
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_TRUE(QString::fromUtf8(saved.readAll()).contains(sampleText)) << sampleText.toStdString();
  EXPECT_EQ(w->windowTitle(), "Quillograph - mine.qlp");
}

}  // namespace
