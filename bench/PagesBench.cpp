// The backstage pages a user waits on: a sample read into the main window with its replot, the
// picture export page opened at the largest size (50 by 50 cm, 1890 by 1890 pixels), and that
// picture saved as PNG and as SVG. The peer of the PNG save is Qt's own encoder writing the same
// picture: the ratio shows the whole save (drawing, encoding, writing) against Qt's encoding
// alone. Our encoder writing that same picture shows how the save's time splits.
#include "output/pageSaveAsPicture.h"
#include "platform/DataFolder.h"
#include "plot2d/Plot.h"
#include "plot2d/PlotWidget.h"
#include "render/PictureFile.h"
#include "rows/frmMain.h"

#include "../tests/support/FakeDesktop.h"
#include "../tests/support/StateSupport.h"

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>


namespace {

struct Window {
  Window() : shared(InitialisedState()), form(shared, rows::MainServices{settings, boxes, colors, files, desktop}) {
    form.resize(1280, 800);
  }
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared;
  rows::frmMain form;
};

QString Sample(const char* tag) { return platform::DataFile(QStringLiteral("Functions/%1.qlfn").arg(QString::fromLatin1(tag))); }

void BM_SampleLoad(benchmark::State& state, const char* tag) {
  Window w;
  for (auto _ : state) w.form.LoadProject(Sample(tag));
}
BENCHMARK_CAPTURE(BM_SampleLoad, Frog, "Frog")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_SampleLoad, Batman, "Batman")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_SampleLoad, Heart3D, "3D_Heart_1")->Unit(benchmark::kMillisecond)->UseRealTime();

// The export page over the window with a sample, set to 50 by 50 cm.
struct LargeExport {
  LargeExport() {
    w.form.LoadProject(Sample("Flower"));
    page = std::make_unique<output::pageSaveAsPicture>(
        w.form.Plot(), [] { return 0; },
        [this](plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) { w.form.ReplotInto(plot, plot3d); },
        w.boxes, w.files, w.desktop);
    page->resize(1200, 800);
    for (QComboBox* unit : {page->cmbScaleWidth(), page->cmbScaleHeight()}) unit->setCurrentText(QStringLiteral("cm"));
    page->txtWidth()->setText(QStringLiteral("50"));
    page->txtHeight()->setText(QStringLiteral("50"));
  }
  Window w;
  std::unique_ptr<output::pageSaveAsPicture> page;
  QTemporaryDir dir;
};

void BM_ExportPageOpens50cm(benchmark::State& state) {
  LargeExport e;
  for (auto _ : state) e.page->StartUp();
  state.counters["width"] = e.page->Plot().Scene().Picture().width();
}
BENCHMARK(BM_ExportPageOpens50cm)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ExportSave50cm(benchmark::State& state, bool svg) {
  LargeExport e;
  e.page->StartUp();
  const QString name = e.dir.filePath(svg ? QStringLiteral("big.svg") : QStringLiteral("big.png"));
  for (auto _ : state) {
    state.PauseTiming();
    QFile::remove(name);
    e.w.files.names = {name};
    state.ResumeTiming();
    (svg ? e.page->btnSVG() : e.page->btnPNG())->click();
  }
}
BENCHMARK_CAPTURE(BM_ExportSave50cm, Png, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_ExportSave50cm, Svg, true)->Unit(benchmark::kMillisecond)->UseRealTime();

// The peer: the same picture written by QImage alone.
void BM_QtWritesTheSamePng(benchmark::State& state) {
  LargeExport e;
  e.page->StartUp();
  const QImage picture = e.page->Plot().Scene().Picture();
  const QString name = e.dir.filePath(QStringLiteral("peer.png"));
  for (auto _ : state) picture.save(name, "PNG");
}
BENCHMARK(BM_QtWritesTheSamePng)->Unit(benchmark::kMillisecond)->UseRealTime();

// The save's encoding and writing alone, of the peer's picture (premultiplied, so divided back).
void BM_EncoderWritesTheSamePng(benchmark::State& state) {
  LargeExport e;
  e.page->StartUp();
  const QImage picture = e.page->Plot().Scene().Picture();
  const QString name = e.dir.filePath(QStringLiteral("ours.png"));
  for (auto _ : state) render::WritePicture(picture, name, 1);
}
BENCHMARK(BM_EncoderWritesTheSamePng)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter(std::vector<RatioReporter::Pair>{
      {"BM_ExportSave50cm/Png/real_time", "BM_QtWritesTheSamePng/real_time"},
      {"BM_EncoderWritesTheSamePng/real_time", "BM_QtWritesTheSamePng/real_time"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
