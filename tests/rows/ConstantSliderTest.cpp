// The slider under a constant row, through the real widgets of the main window: moved, stepped by
// keys and swept, it rewrites the row and the picture follows; its bounds go into the project file
// only where the user chose them; it goes with its row and leaves a row that is no constant.
#include "platform/DataFolder.h"
#include "plot2d/Plot.h"
#include "project/MemoryProjectForm.h"
#include "project/ProjectFile.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"
#include "plot2d/PlotWidget.h"
#include "rows/ConstantSlider.h"
#include "rows/RowKind.h"
#include "rows/RowMetrics.h"
#include "rows/SliderBounds.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"
#include "QtPrinters.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

using rows::ConstantSlider;
using rows::SliderBounds;

namespace {

struct Window : MainWindowFixture {
  ConstantSlider& Slider(int row) { return *Rows().Row(row).sliConstant; }
  QString Text(int row) { return Rows().Row(row).mthFunction->Text(); }
  QImage Picture() { return form->Plot().Scene().Picture(); }
  // Bounds typed into the fields, each taken with Enter.
  void TypeBounds(int row, const QString& min, const QString& max, const QString& step) {
    ConstantSlider& slider = Slider(row);
    for (auto [field, text] : {std::pair{slider.txtMin(), min}, {slider.txtMax(), max}, {slider.txtStep(), step}}) {
      field->setText(text);
      QTest::keyClick(field, Qt::Key_Return);
    }
  }
};

QByteArray Bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST(ConstantRows, TheRowsThatGetASlider) {
  struct Case {
    const char* text;
    bool note;
    bool constant;
    const char* left;
    double value;
  };
  const Case cases[] = {
      {"a=2", false, true, "a", 2},          {"k=-1.5", false, true, "k", -1.5}, {"b=+.5", false, true, "b", 0.5},
      {"w=1e3", false, true, "w", 1000},     {"alpha=3", false, true, "alpha", 3},
      {"a=2", true, false, "", 0},           {"x=2", false, false, "", 0},       {"y=2", false, false, "", 0},
      {"e=2", false, false, "", 0},          {"a=2+3", false, false, "", 0},     {"a=", false, false, "", 0},
      {"y=a*x", false, false, "", 0},        {"a=b", false, false, "", 0},       {"=2", false, false, "", 0},
      {"command==>[showgrid]", false, false, "", 0},
  };
  const core::SharedState state = InitialisedState();
  for (const Case& c : cases) {
    const auto row = rows::ConstantOfRow(state, QString::fromLatin1(c.text), c.note);
    ASSERT_EQ(row.has_value(), c.constant) << c.text;
    if (!row) continue;
    EXPECT_EQ(row->Left, c.left) << c.text;
    EXPECT_EQ(row->Value, c.value) << c.text;
  }
}

TEST(SliderBounds, ValuesAreWholeStepsWrittenWithoutNoise) {
  struct Case {
    SliderBounds bounds;
    int position;
    const char* text;
  };
  const Case cases[] = {
      {{-10, 10, 0.1}, 123, "2.3"},  {{-10, 10, 0.1}, 100, "0.0"},  {{-10, 10, 0.1}, 0, "-10.0"},
      {{-10, 10, 0.1}, 200, "10.0"}, {{0, 1, 0.25}, 3, "0.75"},     {{-5, 5, 1}, 7, "2"},
      {{-0.05, 1, 0.1}, 1, "0.05"},  {{0, 1, 0.001}, 457, "0.457"}, {{-1, 1, 0.1}, 10, "0.0"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.bounds.Format(c.bounds.ValueAt(c.position)), c.text) << c.text;
  EXPECT_EQ((SliderBounds{-10, 10, 0.1}).Positions(), 200);
  EXPECT_EQ((SliderBounds{-10, 10, 0.3}).Positions(), 66);
  EXPECT_EQ((SliderBounds{-10, 10, 0.1}).PositionOf(2.3), 123);
  EXPECT_EQ((SliderBounds{-10, 10, 0.1}).PositionOf(99), 200);
}

TEST(SliderBounds, WidenedToHoldTheValueAndReadFromText) {
  EXPECT_EQ(SliderBounds{}.WidenedFor(25), (SliderBounds{-10, 25, 0.1}));
  EXPECT_EQ(SliderBounds{}.WidenedFor(-12.5), (SliderBounds{-13, 10, 0.1}));
  EXPECT_EQ(SliderBounds{}.WidenedFor(3), SliderBounds{});
  EXPECT_EQ((SliderBounds{-5, 5, 0.5}).Text(), "-5:5:0.5");
  EXPECT_EQ(SliderBounds::FromText("-5:5:0.5"), (SliderBounds{-5, 5, 0.5}));
  EXPECT_EQ(SliderBounds::FromText("0:2.5:1e-3"), (SliderBounds{0, 2.5, 0.001}));
  for (const char* bad : {"5:-5:1", "1:1:1", "0:1:0", "0:1:-1", "a:b:c", "0:1", "0:1:1:1", "", "0:1000000:0.001"}) {
    EXPECT_FALSE(SliderBounds::FromText(bad).has_value()) << bad;
  }
}

TEST(ConstantSlider, OnlyConstantRowsHaveOneAndTheyGrowToHoldIt) {
  Window w;
  w.Fill({"a=2", "y=a*x", "", "k=-1.5"});
  EXPECT_FALSE(w.Slider(0).isHidden());
  EXPECT_TRUE(w.Slider(1).isHidden());
  EXPECT_TRUE(w.Slider(2).isHidden());
  EXPECT_FALSE(w.Slider(3).isHidden());
  EXPECT_EQ(w.Rows().Row(0).Height, w.Rows().Row(1).Height + rows::metrics::kSliderHeight);
  EXPECT_EQ(w.Rows().Row(1).Top, w.Rows().Row(0).Height);
  EXPECT_EQ(w.Slider(0).sliValue()->accessibleName(), "Value of a");
  EXPECT_FALSE(w.Slider(0).sliValue()->toolTip().isEmpty());
  for (QWidget* field : {static_cast<QWidget*>(w.Slider(0).txtMin()), static_cast<QWidget*>(w.Slider(0).txtMax()),
                         static_cast<QWidget*>(w.Slider(0).txtStep()), static_cast<QWidget*>(w.Slider(0).btnPlay())}) {
    EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    EXPECT_FALSE(field->toolTip().isEmpty()) << field->objectName().toStdString();
  }
  // A row that stops being a constant loses its slider and its height.
  const double height = w.Rows().Row(1).Height;
  w.Rows().Row(0).mthFunction->SetText("a=2+x");
  EXPECT_TRUE(w.Slider(0).isHidden());
  EXPECT_EQ(w.Rows().Row(0).Height, height);
  // A note shown over a constant hides its slider too.
  w.Rows().Row(3).rchfunNote->show();
  w.Rows().Refresh_mth_Height(false);
  EXPECT_TRUE(w.Slider(3).isHidden());
}

TEST(ConstantSlider, AMoveRewritesTheRowAndRedrawsThePicture) {
  Window w;
  w.Fill({"y=a*x", "a=2"});
  const QImage before = w.Picture();
  w.state.ProjectChanged = false;
  QSlider* slider = w.Slider(1).sliValue();
  EXPECT_EQ(slider->value(), 120);
  slider->setValue(123);
  EXPECT_EQ(w.Text(1), "a=2.3");
  EXPECT_NE(w.Picture(), before);
  EXPECT_TRUE(w.state.ProjectChanged);
  EXPECT_TRUE(w->RefreshProjectChanged());
  // The echo of the move leaves the bounds and the position as they were.
  EXPECT_EQ(w.Slider(1).Bounds(), SliderBounds{});
  EXPECT_EQ(slider->value(), 123);
}

TEST(ConstantSlider, KeysStepTheValue) {
  struct Case {
    Qt::Key key;
    const char* text;
  };
  const Case cases[] = {{Qt::Key_Right, "k=2.1"},  {Qt::Key_Up, "k=2.1"},       {Qt::Key_Left, "k=1.9"},
                        {Qt::Key_Down, "k=1.9"},   {Qt::Key_PageUp, "k=3.0"},   {Qt::Key_PageDown, "k=1.0"}};
  for (const Case& c : cases) {
    Window w;
    w.Fill({"k=2", "y=k*x"});
    const QImage before = w.Picture();
    QTest::keyClick(w.Slider(0).sliValue(), c.key);
    EXPECT_EQ(w.Text(0), c.text);
    EXPECT_NE(w.Picture(), before) << c.text;
  }
}

TEST(ConstantSlider, AValueBeyondTheDefaultsWidensThemWithoutChangingThem) {
  Window w;
  w.Fill({"a=25"});
  EXPECT_EQ(w.Slider(0).Bounds(), (SliderBounds{-10, 25, 0.1}));
  EXPECT_EQ(w.Slider(0).txtMax()->text(), "25");
  EXPECT_EQ(w.Slider(0).sliValue()->value(), w.Slider(0).sliValue()->maximum());
  EXPECT_FALSE(w.Slider(0).UserBounds().has_value());
  EXPECT_EQ(w.Rows().SliderText(0), "");
}

TEST(ConstantSlider, TypedBoundsAreTakenAndWrongOnesRefused) {
  Window w;
  w.Fill({"a=2"});
  w.state.ProjectChanged = false;
  w.TypeBounds(0, "-5", "5", "0.5");
  EXPECT_EQ(w.Slider(0).Bounds(), (SliderBounds{-5, 5, 0.5}));
  EXPECT_EQ(w.Slider(0).sliValue()->maximum(), 20);
  EXPECT_EQ(w.Slider(0).sliValue()->value(), 14);
  EXPECT_EQ(w.Text(0), "a=2") << "bounds leave the value alone";
  EXPECT_TRUE(w.state.ProjectChanged);
  EXPECT_EQ(w.Rows().SliderText(0), "-5:5:0.5");
  w.Slider(0).txtMin()->setText("7");  // above the highest value: the field shows the bounds again
  QTest::keyClick(w.Slider(0).txtMin(), Qt::Key_Return);
  EXPECT_EQ(w.Slider(0).txtMin()->text(), "-5");
  EXPECT_EQ(w.Rows().SliderText(0), "-5:5:0.5");
  // Typed back to the defaults, they are no longer the user's own.
  w.TypeBounds(0, "-10", "10", "0.1");
  EXPECT_EQ(w.Rows().SliderText(0), "");
}

TEST(ConstantSlider, BoundsComeBackThroughSaveAndLoad) {
  QTemporaryDir dir;
  const QString path = dir.filePath("bounds.qlp");
  {
    Window w;
    w.Fill({"y=a*x", "a=2", "b=1"});
    w.TypeBounds(1, "-5", "5", "0.5");
    ASSERT_TRUE(w->SaveProject(path));
  }
  const QByteArray saved = Bytes(path);
  EXPECT_TRUE(saved.contains("[EndNote](2)\r\n[Slider](1)=-5:5:0.5\r\n\r\n[Tabs][Inequality]")) << saved.toStdString();
  EXPECT_EQ(saved.count("[Slider]"), 1);
  Window w;
  ASSERT_TRUE(w->LoadProject(path));
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(w.Slider(1).Bounds(), (SliderBounds{-5, 5, 0.5}));
  EXPECT_EQ(w.Slider(1).txtStep()->text(), "0.5");
  EXPECT_FALSE(w.Slider(2).UserBounds().has_value());
  EXPECT_FALSE(w.state.ProjectChanged);
  ASSERT_TRUE(w->SaveProject(path));
  EXPECT_TRUE(Bytes(path).contains("\r\n[Slider](1)=-5:5:0.5\r\n"));
  EXPECT_EQ(Bytes(path).count("[Slider]"), 1);
}

// A load and a save change a file by themselves (the attribute lists grow): what must hold is that
// the form, with its sliders, writes what the writer makes of the same file read into a form
// without any.
TEST(ConstantSlider, AProjectWithoutChosenBoundsIsWrittenAsBefore) {
  QTemporaryDir dir;
  const QString path = dir.filePath("saved.qlp");
  const QString sample = platform::DataFile("Functions/Damped Oscillation.qlfn");
  Window w;
  ASSERT_TRUE(w->LoadProject(sample));
  ASSERT_FALSE(w.Slider(0).isHidden()) << "a=5 has a slider";
  ASSERT_FALSE(w.Slider(1).isHidden()) << "k=0.3 has a slider";
  ASSERT_TRUE(w->SaveProject(path));
  project::MemoryProjectForm plain;
  core::SharedState state = InitialisedState();
  ASSERT_TRUE(project::ProjectReader(plain, state, w.boxes).LoadProject(sample));
  const QByteArray expected =
      project::ProjectFile::Encode(u'"' + project::ProjectWriter::Compose(plain) + QStringLiteral("\"\r\n"));
  EXPECT_EQ(Bytes(path), expected);
  EXPECT_FALSE(Bytes(path).contains("[Slider]"));
}

TEST(ConstantSlider, TheBoundsGoWithTheirRow) {
  Window w;
  w.Fill({"y=x", "a=2", "b=3"});
  w.TypeBounds(1, "0", "4", "0.25");
  w.Rows().MoveFunctionUp(1);
  EXPECT_EQ(w.Text(0), "a=2");
  EXPECT_EQ(w.Rows().SliderText(0), "0:4:0.25");
  EXPECT_FALSE(w.Slider(0).isHidden());
  EXPECT_TRUE(w.Slider(1).isHidden());
  EXPECT_EQ(w.Slider(0).sliValue()->value(), 8);
  w.Rows().RemoveFunction(1, false);
  w.Rows().MoveFunctionDown(0);
  EXPECT_EQ(w.Text(1), "a=2");
  EXPECT_EQ(w.Rows().SliderText(1), "0:4:0.25");
  EXPECT_EQ(w.Rows().SliderText(0), "");
  w.Rows().RemoveFunction(0, false);
  EXPECT_EQ(w.Rows().SliderText(0), "0:4:0.25");
}

TEST(ConstantSlider, PlaySweepsBackAndForthUntilPressedAgain) {
  Window w;
  w.Fill({"a=1", "y=a*x"});
  w.TypeBounds(0, "0", "1", "0.5");
  ConstantSlider& slider = w.Slider(0);
  EXPECT_EQ(slider.btnPlay()->accessibleName(), "Play");
  QTest::mouseClick(slider.btnPlay(), Qt::LeftButton);
  EXPECT_TRUE(slider.Playing());
  EXPECT_EQ(slider.btnPlay()->accessibleName(), "Pause");
  EXPECT_EQ(slider.btnPlay()->text(), "Pause");
  QStringList seen;
  for (int tick = 0; tick < 5; ++tick) {
    const QImage before = w.Picture();
    slider.Tick();
    seen << w.Text(0);
    EXPECT_NE(w.Picture(), before) << tick;
  }
  EXPECT_EQ(seen, QStringList({"a=0.5", "a=0.0", "a=0.5", "a=1.0", "a=0.5"}));
  QTest::mouseClick(slider.btnPlay(), Qt::LeftButton);
  EXPECT_FALSE(slider.Playing());
  EXPECT_EQ(slider.btnPlay()->accessibleName(), "Play");
}

TEST(ConstantSlider, ARowThatStopsBeingAConstantStopsItsSweep) {
  Window w;
  w.Fill({"a=1"});
  QTest::mouseClick(w.Slider(0).btnPlay(), Qt::LeftButton);
  ASSERT_TRUE(w.Slider(0).Playing());
  w.Rows().Row(0).mthFunction->SetText("y=x");
  EXPECT_FALSE(w.Slider(0).Playing());
}

TEST(ConstantSlider, TheWheelMovesItOnlyWithTheFocus) {
  Window w;
  w.Fill({"a=2"});
  QSlider* slider = w.Slider(0).sliValue();
  const auto wheel = [slider] {
    QWheelEvent event(QPointF(5, 5), slider->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(slider, &event);
  };
  wheel();
  EXPECT_EQ(w.Text(0), "a=2") << "a wheel passing over scrolls the list";
  w->show();
  QApplication::setActiveWindow(w.form.get());
  slider->setFocus();
  QCoreApplication::processEvents();
  ASSERT_TRUE(slider->hasFocus());
  wheel();
  EXPECT_NE(w.Text(0), "a=2");
}
