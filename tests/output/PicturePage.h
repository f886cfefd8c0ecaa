// What the export page's tests share: the page over a main plot, boxes that watch the page,
// typing, the current folder.
#pragma once

#include "output/PictureSize.h"
#include "output/pageSaveAsPicture.h"

#include "FakeDesktop.h"
#include "core/NumberText.h"
#include "core/Twips.h"
#include "platform/DataFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <memory>

using output::pageSaveAsPicture;
using Box = platform::MessageBoxes;

// Each test file has its own copy.
namespace {

// Boxes that also let the test look at the page while a box is up.
class WatchingBoxes : public RecordingBoxes {
public:
  Answer Show(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    if (onShow) onShow();
    return RecordingBoxes::Show(text, buttons, icon, title);
  }
  std::function<void()> onShow;
};

// The page over a main plot of 600 by 450 pixels, with a replot driver that draws one curve in
// red (and a surface on the 3D tab) and counts its calls.
struct Page {
  Page() {
    main.resize(600, 450);
    page = std::make_unique<pageSaveAsPicture>(
        main, [this] { return tab; },
        [this](plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) {
          ++replots;
          seen3D = plot3d;
          qualityAtReplot = page->Plot().Scene().Quality();
          rangeAtReplot = {page->Plot().Scene().XMin(), page->Plot().Scene().XMax(), page->Plot().Scene().YMin(),
                           page->Plot().Scene().YMax()};
          plot.ClearAll(true, true, true, true, true);
          std::int32_t kind = 0;
          plot.AddFunction(1, QStringLiteral("y=sin(x)"), 255, false, kind, false, true, false, 0);
          plot.Redraw();
          if (tab == 3 && plot3d) {
            plot3d->SetEquation(QStringLiteral("sin(x)*cos(y)"));
            plot3d->SetFunctionKind(1);
            plot3d->SetGridCount(1);
            plot3d->Redraw();
          }
        },
        boxes, files, desktop);
  }

  plot2d::Plot& Preview() { return page->Plot().Scene(); }
  QSize PreviewSize() const { return QSize(static_cast<int>(page->PlotWidth()) / 15, static_cast<int>(page->PlotHeight()) / 15); }
  void Type(QLineEdit* field, const QString& text, const QString& unit = {}) {
    QComboBox* units = field == page->txtWidth() ? page->cmbScaleWidth() : page->cmbScaleHeight();
    if (!unit.isEmpty()) units->setCurrentText(unit);
    field->setText(text);
  }

  plot2d::PlotWidget main;
  WatchingBoxes boxes;
  ScriptedFiles files;
  RecordingDesktop desktop;
  int tab = 0;
  int replots = 0;
  plotcompiler::Plot3DControl* seen3D = nullptr;
  double qualityAtReplot = 0;
  std::array<double, 4> rangeAtReplot{};
  std::unique_ptr<pageSaveAsPicture> page;
};

[[maybe_unused]] int PixelsOfCm(double cm) { return core::Px(cm * output::kTwipsPerCm); }

// The current folder for one test.
class InFolder {
public:
  explicit InFolder(const QString& path) : m_before(QDir::currentPath()) { QDir::setCurrent(path); }
  ~InFolder() { QDir::setCurrent(m_before); }

private:
  QString m_before;
};

// Types text into a field key by key, as a keyboard of any language would.
[[maybe_unused]] void TypeKeys(QLineEdit* field, const QString& text) {
  for (const uint code : text.toUcs4()) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1));
    QApplication::sendEvent(field, &press);
  }
}

[[maybe_unused]] QByteArray Head(const QString& path, int bytes) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.read(bytes);
}

}  // namespace
