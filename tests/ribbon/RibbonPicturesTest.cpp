// Pictures of the ribbon and the backstage with the program's look, for a person to look at:
// written only when QUILLOGRAPH_RIBBON_SHOTS names a folder. Run the tests once more with
// QT_SCALE_FACTOR=2 for the pictures of a dense screen (their names end in @2x).
#include "platform/DataFolder.h"
#include "ribbon/Backstage.h"
#include "ribbon/ColorPickerButton.h"
#include "ribbon/CommandBars.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QStyleFactory>
#include <QTest>
#include <QVBoxLayout>

namespace {

const QByteArray kProgramDesign = R"json({
  "commandbars": 1,
  "controls": [
    { "kind": "tab", "caption": "&Home", "controls": [
      { "kind": "group", "id": 2101, "caption": "Rows", "controls": [
        { "kind": "button", "id": 1001, "caption": "New row", "large": true, "icon": "function-row", "shortcut": "Ctrl+Return",
          "description": "A new row under the current one." },
        { "kind": "button", "id": 1002, "caption": "Note", "icon": "note" },
        { "kind": "button", "id": 1003, "caption": "Evaluate points", "icon": "evaluate-points" },
        { "kind": "popup", "id": 1004, "caption": "Insert", "icon": "list-add", "controls": [
          { "kind": "button", "id": 1005, "caption": "Points (x, y)" } ] }
      ] },
      { "kind": "group", "id": 2102, "caption": "Plot", "controls": [
        { "kind": "button", "id": 1023, "caption": "Replot", "large": true, "icon": "replot", "shortcut": "F5",
          "description": "Draw every row again." },
        { "kind": "button", "id": 1024, "caption": "Full screen", "large": true, "icon": "full-screen-plot", "shortcut": "F11" }
      ] },
      { "kind": "group", "id": 2103, "caption": "Range", "controls": [
        { "kind": "button", "id": 1030, "caption": "Plot range", "icon": "plot-range" },
        { "kind": "button", "id": 1031, "caption": "Default range", "icon": "default-range" },
        { "kind": "label", "id": 1126, "caption": "Zoom: X and Y" }
      ] },
      { "kind": "group", "id": 2104, "caption": "Move", "controls": [
        { "kind": "button", "id": 1040, "caption": "Left", "icon": "pan-left" },
        { "kind": "button", "id": 1041, "caption": "Right", "icon": "pan-right" },
        { "kind": "button", "id": 1042, "caption": "Up", "icon": "pan-up" },
        { "kind": "button", "id": 1043, "caption": "Down", "icon": "pan-down" }
      ] },
      { "kind": "group", "id": 2105, "caption": "Zoom", "controls": [
        { "kind": "check", "id": 1050, "caption": "Zoom X and Y", "large": true, "icon": "zoom-xy", "checked": true },
        { "kind": "check", "id": 1051, "caption": "Zoom X", "icon": "zoom-x" },
        { "kind": "check", "id": 1052, "caption": "Zoom Y", "icon": "zoom-y" }
      ] }
    ] },
    { "kind": "tab", "caption": "&View", "controls": [
      { "kind": "group", "id": 1125, "caption": "Show", "controls": [
        { "kind": "check", "id": 1087, "caption": "Axis", "icon": "axis", "checked": true },
        { "kind": "check", "id": 1088, "caption": "Grid", "icon": "grid", "checked": true },
        { "kind": "check", "id": 1090, "caption": "Numbers", "icon": "numbers", "checked": true },
        { "kind": "check", "id": 1089, "caption": "Outer frame", "icon": "frame" },
        { "kind": "check", "id": 1124, "caption": "Tips", "icon": "tips", "checked": true },
        { "kind": "check", "id": 1092, "caption": "Coordinates", "icon": "coordinates" },
        { "kind": "check", "id": 1086, "caption": "Transparent", "icon": "transparent" }
      ] },
      { "kind": "group", "id": 1043, "caption": "Colours", "controls": [
        { "kind": "color", "id": 1142, "caption": "Background", "color": 16777215 },
        { "kind": "color", "id": 1144, "caption": "Axis colour", "color": 16711680 }
      ] },
      { "kind": "group", "id": 1110, "caption": "Drawing", "controls": [
        { "kind": "slider", "id": 1112, "caption": "Thickness", "min": 1, "max": 10, "pos": 2 },
        { "kind": "slider", "id": 1113, "caption": "Quality", "min": 1, "max": 100, "pos": 90 }
      ] }
    ] },
    { "kind": "tab", "caption": "&Tools", "controls": [
      { "kind": "group", "id": 2301, "caption": "Sibling tools", "controls": [
        { "kind": "button", "id": 1201, "caption": "Abacus", "large": true, "icon": "tool-abacus" },
        { "kind": "button", "id": 1202, "caption": "Trigonometry", "large": true, "icon": "tool-trigon" },
        { "kind": "button", "id": 1203, "caption": "Area under a curve", "large": true, "icon": "tool-area" },
        { "kind": "button", "id": 1204, "caption": "Slope", "large": true, "icon": "tool-slope" },
        { "kind": "button", "id": 1205, "caption": "Chain rule", "large": true, "icon": "tool-chain" },
        { "kind": "button", "id": 1206, "caption": "Curve probe", "large": true, "icon": "tool-curve-probe" }
      ] },
      { "kind": "group", "id": 2302, "caption": "Insert", "controls": [
        { "kind": "popup", "id": 1210, "caption": "Points", "large": true, "icon": "point-cartesian", "controls": [
          { "kind": "button", "id": 1213, "caption": "Points (x, y)" }, { "kind": "button", "id": 1214, "caption": "Points (r, theta)" } ] },
        { "kind": "color", "id": 1211, "caption": "Curve colour", "large": true, "icon": "format-stroke-color", "color": 255 },
        { "kind": "button", "id": 1212, "caption": "Derivative", "icon": "derivative", "enabled": false },
        { "kind": "color", "id": 1215, "caption": "Fill", "icon": "color-fill", "color": 3329330 }
      ] }
    ] }
  ]
})json";

// The program's look: Fusion, the desktop's icons and our style sheet.
void ApplyLook() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << QStringLiteral("/usr/share/icons"));
  QIcon::setThemeName(QStringLiteral("breeze"));
  QFile sheet(platform::DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
  qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()).replace(QStringLiteral("%DATA%"), platform::DataFolder()));
}

void Save(QWidget& widget, const QString& folder, const QString& name) {
  const QString suffix = qApp->devicePixelRatio() > 1 ? QStringLiteral("@2x") : QStringLiteral("@1x");
  EXPECT_TRUE(widget.grab().save(folder + u'/' + name + suffix + QStringLiteral(".png")));
}

QWidget* Page(const QString& text) {
  auto* label = new QLabel(text);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setWordWrap(true);
  return label;
}

}  // namespace

TEST(RibbonPictures, RibbonAndBackstage) {
  const QString folder = qEnvironmentVariable("QUILLOGRAPH_RIBBON_SHOTS");
  if (folder.isEmpty()) GTEST_SKIP() << "set QUILLOGRAPH_RIBBON_SHOTS to a folder for pictures";
  QDir().mkpath(folder);
  ApplyLook();
  {
    ribbon::CommandBars bars;
    ScriptedColors colors;
    bars.LoadDesign(kProgramDesign);
    QMainWindow window;
    window.resize(1100, 560);
    auto* central = new QWidget(&window);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* ribbon = new ribbon::RibbonBar(bars, colors, central);
    layout->addWidget(ribbon);
    auto* content = new QLabel(QStringLiteral("  the rows and the plot"), central);
    content->setStyleSheet(QStringLiteral("background: #ffffff; color: #9ca3af;"));
    layout->addWidget(content, 1);
    window.setCentralWidget(central);
    ribbon->QuickAccess().AddCommand(57600, QStringLiteral("New"), QStringLiteral("document-new"), QStringLiteral("Ctrl+N"));
    ribbon->QuickAccess().AddCommand(57601, QStringLiteral("Open"), QStringLiteral("document-open"), QStringLiteral("Ctrl+O"));
    ribbon->QuickAccess().AddCommand(57603, QStringLiteral("Save"), QStringLiteral("document-save"), QStringLiteral("Ctrl+S"));
    auto* backstage = new ribbon::Backstage(bars, window);
    backstage->AddPage(10010, QStringLiteral("&Info"), Page(QStringLiteral("Untitled project\n12 rows")), QStringLiteral("help-about"));
    backstage->AddCommand(57600, QStringLiteral("&New"), QStringLiteral("document-new"));
    backstage->AddCommand(57601, QStringLiteral("&Open"), QStringLiteral("document-open"));
    backstage->AddCommand(57603, QStringLiteral("&Save"), QStringLiteral("document-save"));
    backstage->AddCommand(57604, QStringLiteral("Save &As"), QStringLiteral("document-save-as"));
    backstage->AddPage(10011, QStringLiteral("Save as &picture"), Page(QStringLiteral("The picture export page.")), QStringLiteral("image-x-generic"));
    backstage->AddSeparator();
    backstage->AddPage(10012, QStringLiteral("&Samples"), Page(QStringLiteral("Samples")), QStringLiteral("folder-documents"));
    backstage->AddPage(10013, QStringLiteral("What is new?"), Page(QStringLiteral("News")), QStringLiteral("help-whatsthis"));
    backstage->AddPage(10014, QStringLiteral("Support Us"), Page(QStringLiteral("Thanks")), QStringLiteral("emblem-favorite"));
    backstage->AddSeparator();
    backstage->AddCommand(57602, QStringLiteral("&Exit"), QStringLiteral("application-exit"));
    backstage->SetStartPage(10010);
    ribbon->SetBackstage(backstage);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    for (int tab = 0; tab < ribbon->TabCount(); ++tab) {
      ribbon->SelectTab(tab);
      QCoreApplication::processEvents();
      Save(*ribbon, folder, QStringLiteral("ribbon-tab%1").arg(tab));
    }
    ribbon->SelectTab(1);
    auto* picker = qobject_cast<ribbon::ColorPickerButton*>(ribbon->WidgetFor(1144));
    ASSERT_NE(picker, nullptr);
    picker->menu()->popup(picker->mapToGlobal(QPoint(0, picker->height())));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(picker->menu()));
    Save(*picker->menu(), folder, QStringLiteral("palette"));
    picker->menu()->hide();
    ribbon->SetCollapsed(true);
    QCoreApplication::processEvents();
    Save(window, folder, QStringLiteral("window-collapsed"));
    ribbon->SetCollapsed(false);
    QCoreApplication::processEvents();
    Save(window, folder, QStringLiteral("window"));
    backstage->Open();
    QCoreApplication::processEvents();
    Save(window, folder, QStringLiteral("backstage"));
    window.close();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  qApp->setStyleSheet(QString());
}
