// The main window as a user meets it, offscreen: a replot of 109 mixed rows at 1280x800 and
// quality 90, split into our part (two compilations a row, the passes, the points) and the
// drawing; one keystroke in the insert dialog's linear style for a 60-character row; the main
// window from its construction to its first painted frame; switching between the 2D and the 3D
// page; a change of the surface's text, drawn by itself; a step of the quality slider; loading and saving a project of 109 rows with notes;
// a step of a constant's slider on that project, as redraws a second.
#include "../tests/plotcompiler/ReplotSupport.h"

#include "core/Tag.h"
#include "dialogs/frmInsert.h"
#include "platform/DataFolder.h"
#include "plot2d/Plot.h"
#include "rows/FunctionList.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/ConstantSlider.h"
#include "rows/InputTabs.h"
#include "rows/UndoCommands.h"
#include "rows/frmMain.h"

#include "../tests/support/FakeDesktop.h"

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QSlider>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <QTest>

#include <cstdio>
#include <map>
#include <string>

namespace {

// 109 rows of every kind, as a project a class might make.
QStringList MixedRows() {
  const QStringList kinds = {
      "y=sin(x)*%1", "x^2+y^2=%1", "r=2+%1cos(q..symb)", "declare(y=x^2/%1,domain(x,-2,3,1))",
      "[x,y;1,%1;2,3;-1,-%1;4,pi/2]", "y=%1x+1", "x=y^2/%1", "command==>[showgrid]", "y=e^(-x^2/%1)",
      "x*y=%1", "y=declare(sqrt(x)+%1,x>1)", "y=abs(x-%1)"};
  QStringList rows = {"a=2", "b=0.5"};
  for (int i = 0; rows.size() < 109; ++i) {
    rows << kinds[i % kinds.size()].arg(i % 5 + 1);
  }
  return rows;
}

// A plot that takes every call and draws nothing: what is left is our part.
class NullPlot : public RecordingPlot {
public:
  void AddFunction(std::int16_t, const QString&, double, bool, std::int32_t&, bool, bool, bool, std::int32_t) override {}
  void AddPoint(std::int16_t, double&, double&, std::int32_t, double, bool) override {}
  void Redraw() override {}
  void ClearAll(bool, bool, bool, bool, bool) override {}
};

void BM_Replot109_Whole(benchmark::State& state) {
  ReplotFixture f;
  f.host.SetTexts(MixedRows());
  plot2d::Plot scene;
  scene.SetSize(QSize(1280, 800));
  scene.SetQuality(90);
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(scene, nullptr);
  for (auto _ : state) f.driver.Replot(plot);
  state.counters["curves"] = static_cast<double>(scene.LastDrawing().Curves.size());
}

void BM_Replot109_Ours(benchmark::State& state) {
  ReplotFixture f;
  f.host.SetTexts(MixedRows());
  NullPlot plot;
  for (auto _ : state) f.driver.Replot(plot);
}

void BM_Replot109_Drawing(benchmark::State& state) {
  ReplotFixture f;
  f.host.SetTexts(MixedRows());
  plot2d::Plot scene;
  scene.SetSize(QSize(1280, 800));
  scene.SetQuality(90);
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(scene, nullptr);
  f.driver.Replot(plot);
  for (auto _ : state) scene.Redraw();
}

BENCHMARK(BM_Replot109_Whole)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Replot109_Ours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Replot109_Drawing)->Unit(benchmark::kMillisecond)->UseRealTime();

class Target : public dialogs::InsertTarget {
public:
  QString EditorText(std::int16_t, double) const override { return {}; }
  void SetEditorText(std::int16_t, double, const QString&) override {}
  QString InequalityOperator(int) const override { return QStringLiteral(">"); }
  void SetInequalityOperator(int, const QString&) override {}
  void FocusAfter(std::int16_t, bool) override {}
};

// One key typed at the end of a 60-character row, and one taken back: normalise, compile,
// typeset and lay out, twice.
void BM_InsertKeystroke60(benchmark::State& state) {
  core::SharedState shared = InitialisedState();
  RecordingBoxes boxes;
  Target target;
  dialogs::frmInsert dialog(shared, boxes, target, platform::DataFile(QStringLiteral("Ribbon/Menubar.xcb")));
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  dialog.txtLinear()->setFocus();
  const QString row = QStringLiteral("y=3sin(2x)/(x^2+1)+sqrt(abs(x))-e^(-x/4)*cos(pi*x);-4<x<4.5");
  dialog.txtLinear()->setText(row.left(60));
  for (auto _ : state) {
    QTest::keyClick(dialog.txtLinear(), Qt::Key_1);
    QTest::keyClick(dialog.txtLinear(), Qt::Key_Backspace);
  }
  state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_InsertKeystroke60)->Unit(benchmark::kMicrosecond)->UseRealTime();

// From the form's construction (its load included) to its first frame painted.
void BM_MainWindowFirstFrame(benchmark::State& state) {
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  for (auto _ : state) {
    core::SharedState shared = InitialisedState();
    rows::frmMain form(shared, rows::MainServices{settings, boxes, colors, files, desktop});
    form.show();
    const QPixmap frame = form.grab();
    benchmark::DoNotOptimize(frame.cacheKey());
  }
}
BENCHMARK(BM_MainWindowFirstFrame)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

// From a click on the 3D page to the surface on the screen, over a mesh of 100x100; and back to
// the 2D page with its curves drawn.
void BM_SwitchTo3D(benchmark::State& state) {
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared = InitialisedState();
  rows::frmMain form(shared, rows::MainServices{settings, boxes, colors, files, desktop});
  form.show();
  form.Functions().Row(0).mthFunction->SetText(QStringLiteral("y=sin(x)"));
  form.Tabs().Surface().Editor(1)->SetText(QStringLiteral("z=sin(x)*cos(y)"));
  for (auto _ : state) {
    QSignalSpy finished(&form.Plot3D(), &plot3d::Plot3DWidget::Finished);
    form.Tabs().setCurrentIndex(3);
    finished.wait(5000);
    benchmark::DoNotOptimize(form.Plot3D().grab().cacheKey());
    state.PauseTiming();
    form.Tabs().setCurrentIndex(0);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_SwitchTo3D)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SwitchTo2D(benchmark::State& state) {
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared = InitialisedState();
  rows::frmMain form(shared, rows::MainServices{settings, boxes, colors, files, desktop});
  form.show();
  form.Functions().Row(0).mthFunction->SetText(QStringLiteral("y=sin(x)"));
  for (auto _ : state) {
    state.PauseTiming();
    form.Tabs().setCurrentIndex(3);
    state.ResumeTiming();
    form.Tabs().setCurrentIndex(0);
    benchmark::DoNotOptimize(form.Plot().grab().cacheKey());
  }
}
BENCHMARK(BM_SwitchTo2D)->Unit(benchmark::kMillisecond)->UseRealTime();

// A change of the surface's text on the 3D page, with a 100x100 surface drawn: from the change
// to the new surface on the screen, with no Replot click (the form draws once the change's events
// are done).
void BM_SurfaceEditorChange(benchmark::State& state) {
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared = InitialisedState();
  rows::frmMain form(shared, rows::MainServices{settings, boxes, colors, files, desktop});
  form.show();
  mathx::MthX* editor = form.Tabs().Surface().Editor(1);
  editor->SetText(QStringLiteral("z=sin(x)*cos(y)"));
  QSignalSpy first(&form.Plot3D(), &plot3d::Plot3DWidget::Finished);
  form.Tabs().setCurrentIndex(3);
  first.wait(5000);
  int step = 0;
  for (auto _ : state) {
    QSignalSpy finished(&form.Plot3D(), &plot3d::Plot3DWidget::Finished);
    editor->SetText((++step % 2) ? QStringLiteral("z=sin(x)*sin(y)") : QStringLiteral("z=sin(x)*cos(y)"));
    if (!finished.wait(5000)) state.SkipWithError("the surface was not drawn by itself");
    benchmark::DoNotOptimize(form.Plot3D().grab().cacheKey());
  }
}
BENCHMARK(BM_SurfaceEditorChange)->Unit(benchmark::kMillisecond)->UseRealTime();

// A step of the quality slider itself; the redraw it asks for follows once its events are done.
void BM_QualitySliderStep(benchmark::State& state) {
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared = InitialisedState();
  rows::frmMain form(shared, rows::MainServices{settings, boxes, colors, files, desktop});
  form.Functions().Row(0).mthFunction->SetText(QStringLiteral("y=sin(x)"));
  int command = 0;
  for (auto _ : state) form.Panes().StatusBar_SliderPaneClick(QStringLiteral("Plot Quality"), (command ^= 1), 0);
}
BENCHMARK(BM_QualitySliderStep)->Unit(benchmark::kMicrosecond);

// A project of 109 mixed rows, each with a note of two lines, on a form: saved, and loaded with its
// replot.
struct ProjectOnForm {
  ProjectOnForm() : shared(InitialisedState()), form(shared, rows::MainServices{settings, boxes, colors, files, desktop}) {
    form.resize(1280, 800);
    const QStringList rowsOfText = MixedRows();
    for (int i = 0; i < rowsOfText.size(); ++i) {
      if (i > form.Functions().HighestIndex()) form.Functions().AddFunction(false);
      form.Functions().Row(i).mthFunction->SetText(rowsOfText[i]);
      form.Functions().Row(i).rchfunNote->setPlainText(QStringLiteral("A note for row %1\nand its second line").arg(i + 1));
    }
    path = dir.filePath(QStringLiteral("bench.qlp"));
    form.SaveProject(path);
  }
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  core::SharedState shared;
  rows::frmMain form;
  QTemporaryDir dir;
  QString path;
};

void BM_Project109_Load(benchmark::State& state) {
  ProjectOnForm p;
  for (auto _ : state) p.form.LoadProject(p.path);
  state.counters["rows"] = p.form.Functions().HighestIndex() + 1;
}
BENCHMARK(BM_Project109_Load)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Project109_Save(benchmark::State& state) {
  ProjectOnForm p;
  for (auto _ : state) p.form.SaveProject(p.path);
}
BENCHMARK(BM_Project109_Save)->Unit(benchmark::kMillisecond)->UseRealTime();

// The changed mark worked out after a change: what the writer would write, against the file's.
// It runs once after each key or click, so it must stay far below a frame.
void BM_Project109_ChangeCheck(benchmark::State& state) {
  ProjectOnForm p;
  p.form.Functions().Row(3).mthFunction->SetText(QStringLiteral("y=3x"));
  for (auto _ : state) benchmark::DoNotOptimize(p.form.RefreshProjectChanged());
}
BENCHMARK(BM_Project109_ChangeCheck)->Unit(benchmark::kMicrosecond)->UseRealTime();

// One step of the slider under "a=2" on the shown window, end to end: the row's text written, the
// 109 rows replotted and the picture drawn anew, then the change check and the paint that wait
// for the events. The sweep runs at 30 steps a second, so a step must stay under 33 ms.
void BM_Project109_ConstantSliderStep(benchmark::State& state) {
  ProjectOnForm p;
  p.form.show();
  QCoreApplication::processEvents();
  QSlider* slider = p.form.Functions().Row(0).sliConstant->sliValue();
  QSignalSpy replotted(&p.form, &rows::frmMain::Replotted);
  int direction = 1;
  for (auto _ : state) {
    if (slider->value() + direction > slider->maximum() || slider->value() + direction < 0) direction = -direction;
    slider->setValue(slider->value() + direction);
    QCoreApplication::processEvents();
  }
  if (replotted.count() < state.iterations()) state.SkipWithError("a step was not drawn");
  state.counters["redraws_per_second"] =
      benchmark::Counter(static_cast<double>(replotted.count()), benchmark::Counter::kIsRate);
  benchmark::DoNotOptimize(p.form.Functions().Row(0).mthFunction->Text());
}
BENCHMARK(BM_Project109_ConstantSliderStep)->Unit(benchmark::kMillisecond)->UseRealTime();

// Undo and redo of one step on the 109 rows: a row removed (the whole project put back) and a row
// edited (that row put back in place). Each iteration is an undo and a redo, each with its replot.
void UndoRedo(benchmark::State& state, const std::function<void(rows::frmMain&)>& change) {
  ProjectOnForm p;
  QCoreApplication::processEvents();
  p.form.Undo().Seal();
  change(p.form);
  QCoreApplication::processEvents();
  if (!p.form.Undo().History().CanUndo()) state.SkipWithError("the change was no step");
  for (auto _ : state) {
    p.form.Undo().Undo();
    p.form.Undo().Redo();
  }
}

void BM_Project109_UndoRedo_RemoveRow(benchmark::State& state) {
  UndoRedo(state, [](rows::frmMain& form) { form.Functions().RemoveFunction(5, true); });
}
BENCHMARK(BM_Project109_UndoRedo_RemoveRow)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Project109_UndoRedo_EditRow(benchmark::State& state) {
  UndoRedo(state, [](rows::frmMain& form) { form.Functions().Row(3).mthFunction->SetText(QStringLiteral("y=3x")); });
}
BENCHMARK(BM_Project109_UndoRedo_EditRow)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter(std::vector<RatioReporter::Pair>{
      {"BM_Replot109_Ours/real_time", "BM_Replot109_Drawing/real_time"},
      {"BM_Project109_UndoRedo_RemoveRow/real_time", "BM_Project109_Load/real_time"},
      {"BM_Project109_UndoRedo_EditRow/real_time", "BM_Project109_Load/real_time"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
