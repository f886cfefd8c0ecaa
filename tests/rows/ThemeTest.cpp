// The light and the dark look: text that reads in both, the View tab's three choices kept for the
// next start, and a plot whose default colours follow the look on the screen alone.
#include "MainWindowFixture.h"

#include "output/frmContactUS.h"
#include "platform/DataFolder.h"
#include "platform/Theme.h"
#include "plot2d/Plot.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "project/ProjectWriter.h"
#include "render/Contrast.h"
#include "ribbon/Icons.h"
#include "rows/ThemeSwitch.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using platform::Theme;
using render::Contrast;

QString LightSheet() {
  QFile sheet(platform::DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  EXPECT_TRUE(sheet.open(QIODevice::ReadOnly));
  return QString::fromUtf8(sheet.readAll());
}

struct Rule {
  QString Selector;
  QMap<QString, QString> Values;  // property to its first colour
};

// The sheet's rules with the colours they give: comments dropped, each property's first #rrggbb.
std::vector<Rule> Rules(QString sheet) {
  sheet.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
  std::vector<Rule> rules;
  static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^}]*)\\}"));
  static const QRegularExpression declaration(QStringLiteral("([a-z-]+)\\s*:\\s*[^;]*?(#[0-9a-fA-F]{6})"));
  for (auto r = rule.globalMatch(sheet); r.hasNext();) {
    const auto m = r.next();
    Rule one{m.captured(1).simplified(), {}};
    for (auto d = declaration.globalMatch(m.captured(2)); d.hasNext();) {
      const auto dm = d.next();
      if (!one.Values.contains(dm.captured(1))) one.Values[dm.captured(1)] = dm.captured(2).toLower();
    }
    rules.push_back(one);
  }
  return rules;
}

// The surfaces that text without a background of its own stands on: windows, panels, menus, cards.
QStringList Surfaces(bool dark) {
  const QString sheet = Theme::Sheet(LightSheet(), dark);
  QStringList surfaces;
  for (const Rule& rule : Rules(sheet)) {
    for (const char* container : {"QMainWindow, QDialog", "QFrame#RibbonPanel", "#Backstage", "QMenu", "#grp_Control_Functions",
                                  "#grpFunctions", "#BackstageNav"}) {
      if (rule.Selector == QLatin1String(container) && rule.Values.contains(QStringLiteral("background"))) {
        surfaces << rule.Values[QStringLiteral("background")];
      }
    }
  }
  return surfaces;
}

class BothLooks : public ::testing::TestWithParam<bool> {};

// Every rule that gives a text colour: against its own background where it gives one, else
// against every surface of the look. Disabled controls are exempt, as the guidelines allow.
TEST_P(BothLooks, TextReadsOnItsBackground) {
  const bool dark = GetParam();
  const QStringList surfaces = Surfaces(dark);
  ASSERT_EQ(surfaces.size(), 7);
  int checked = 0;
  for (const Rule& rule : Rules(Theme::Sheet(LightSheet(), dark))) {
    if (!rule.Values.contains(QStringLiteral("color")) || rule.Selector.contains(QStringLiteral(":disabled"))) continue;
    const QColor text(rule.Values[QStringLiteral("color")]);
    const QString back = rule.Values.value(QStringLiteral("background"), rule.Values.value(QStringLiteral("background-color")));
    for (const QString& under : back.isEmpty() ? surfaces : QStringList{back}) {
      EXPECT_GE(Contrast::Ratio(text, QColor(under)), 4.5)
          << rule.Selector.toStdString() << ": " << text.name().toStdString() << " on " << under.toStdString();
      ++checked;
    }
  }
  EXPECT_GT(checked, 60);
}

// The palette under the sheet, for labels, text areas, tool tips and the widgets that paint
// themselves.
TEST_P(BothLooks, ThePalettesTextReads) {
  const QPalette palette = Theme::Palette(GetParam());
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
      {QPalette::WindowText, QPalette::Window}, {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button}, {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::Link, QPalette::Base}, {QPalette::Text, QPalette::AlternateBase},
  };
  for (const auto& [text, back] : pairs) {
    EXPECT_GE(Contrast::Ratio(palette.color(text), palette.color(back)), 4.5) << text << " on " << back;
  }
}

std::string LookName(const ::testing::TestParamInfo<bool>& look) { return look.param ? "Dark" : "Light"; }

INSTANTIATE_TEST_SUITE_P(Theme, BothLooks, ::testing::Values(false, true), LookName);

// In the dark sheet, surfaces are dark and texts light: no colour of the light sheet is left
// behind by a rule that was missed.
TEST(Theme, EveryColourOfTheSheetHasItsDarkCounterpart) {
  for (const Rule& rule : Rules(Theme::Sheet(LightSheet(), true))) {
    for (auto it = rule.Values.begin(); it != rule.Values.end(); ++it) {
      const QColor color(it.value());
      const bool text = it.key() == u"color" || it.key() == u"selection-color";
      if (text) EXPECT_GT(color.lightness(), 120) << rule.Selector.toStdString() << " " << it.key().toStdString();
      else EXPECT_LT(color.lightness(), 160) << rule.Selector.toStdString() << " " << it.key().toStdString();
    }
  }
  EXPECT_EQ(Theme::Sheet(LightSheet(), false), LightSheet()) << "the light look is the sheet as written";
}

TEST(Theme, TheSettingsWordsAndBack) {
  using Choice = Theme::Choice;
  for (const auto& [word, choice] : {std::pair{"Light", Choice::Light}, {"Dark", Choice::Dark}, {"Desktop", Choice::Desktop}}) {
    EXPECT_EQ(Theme::ChoiceOf(QString::fromLatin1(word)), choice);
    EXPECT_EQ(Theme::WordOf(choice), QString::fromLatin1(word));
  }
  EXPECT_EQ(Theme::ChoiceOf(QStringLiteral("dark?")), Choice::Desktop);
}

struct Window : MainWindowFixture {
  bool Checked(std::int32_t id) { return form->CommandBars().FindControl(id)->Checked(); }
  QString Text() { return project::ProjectWriter::Compose(form->ProjectInterface()); }
  QColor Corner() { return form->Plot().LastPicture().pixelColor(2, 2); }
};

TEST(Theme, TheViewTabSwitchesTheLookAndKeepsItForTheNextStart) {
  Window w;
  w->resize(1000, 700);
  w->show();
  EXPECT_EQ(w.desktop.looks, std::vector<bool>{false}) << "a light desktop: the light look";
  EXPECT_TRUE(w.Checked(rows::ThemeSwitch::kDesktop));
  const QString project = w.Text();
  EXPECT_EQ(w.Corner(), QColor(Qt::white));

  w.Run(rows::ThemeSwitch::kDark);
  EXPECT_EQ(w.desktop.looks.back(), true);
  EXPECT_EQ(w.settings.values.value(QStringLiteral("Settings/Theme")), "Dark");
  EXPECT_TRUE(w.Checked(rows::ThemeSwitch::kDark));
  EXPECT_FALSE(w.Checked(rows::ThemeSwitch::kDesktop));
  EXPECT_EQ(w.Corner(), QColor(0x1a, 0x1d, 0x22)) << "the default white back shows dark";
  EXPECT_EQ(w.Text(), project) << "the project keeps its colours";
  EXPECT_EQ(w->Plot().Scene().BackColor(), 16777215);

  w.Run(rows::ThemeSwitch::kLight);
  EXPECT_EQ(w.desktop.looks.back(), false);
  EXPECT_EQ(w.settings.values.value(QStringLiteral("Settings/Theme")), "Light");
  EXPECT_EQ(w.Corner(), QColor(Qt::white));

  w.desktop.prefersDark = true;
  w.Run(rows::ThemeSwitch::kDesktop);
  EXPECT_EQ(w.desktop.looks.back(), true) << "the desktop asks for dark";
  EXPECT_EQ(w.settings.values.value(QStringLiteral("Settings/Theme")), "Desktop");
  EXPECT_TRUE(w.Checked(rows::ThemeSwitch::kDesktop));
  EXPECT_FALSE(w.Checked(rows::ThemeSwitch::kLight));
}

TEST(Theme, ANewWindowStartsInTheStoredLook) {
  core::SharedState state = InitialisedState();
  MemorySettings settings;
  settings.values[QStringLiteral("Settings/Theme")] = QStringLiteral("Dark");
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  rows::frmMain form(state, rows::MainServices{settings, boxes, colors, files, desktop});
  EXPECT_EQ(desktop.looks, std::vector<bool>{true});
  EXPECT_TRUE(form.CommandBars().FindControl(rows::ThemeSwitch::kDark)->Checked());
  EXPECT_TRUE(form.Plot().Scene().DarkDefaults());
  EXPECT_TRUE(form.Plot3D().Scene().DarkDefaults());
  EXPECT_EQ(form.Plot3D().Scene().Background(), QColor(0x1a, 0x1d, 0x22));
}

// Only the default white back turns dark, and then the axes are lightened to read on it; a back
// the user chose stays, and a saved picture has the project's colours.
TEST(Theme, ThePlotsDefaultColoursFollowTheLookOnTheScreenOnly) {
  plot2d::Plot plot;
  plot.SetSize(QSize(120, 90));
  plot.SetAxisColor(16711680);  // the default blue axes
  plot.SetDarkDefaults(true);
  EXPECT_EQ(plot.ShownBack(), QColor(0x1a, 0x1d, 0x22));
  EXPECT_GE(Contrast::Ratio(plot.ShownAxis(), plot.ShownBack()), 4.5);
  EXPECT_EQ(plot.BackColor(), 16777215);
  QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("plot.png"));
  plot.Redraw();
  plot.SavePicture(file, 0);
  EXPECT_EQ(QImage(file).pixelColor(1, 1), QColor(Qt::white)) << "a saved picture keeps the white back";
  plot.SetBackColor(65535);  // yellow, chosen by the user
  EXPECT_EQ(plot.ShownBack(), QColor(Qt::yellow));
  EXPECT_EQ(plot.ShownAxis(), QColor(Qt::blue));
}

double MeanLightness(const QImage& image) {
  double sum = 0, weight = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor c = image.pixelColor(x, y);
      sum += c.lightnessF() * c.alphaF(), weight += c.alphaF();
    }
  }
  return weight > 0 ? sum / weight : 0;
}

// The program's own icons are drawn for the look of the moment, so buttons made before a change
// of look follow it.
TEST(Theme, IconsAreDrawnLightOnDarkWindows) {
  const QIcon icon = ribbon::IconFor(QStringLiteral("grid"));
  const QPalette before = QApplication::palette();
  QApplication::setPalette(Theme::Palette(false));
  const double light = MeanLightness(icon.pixmap(32, 32).toImage());
  QApplication::setPalette(Theme::Palette(true));
  const double dark = MeanLightness(icon.pixmap(32, 32).toImage());
  QApplication::setPalette(before);
  EXPECT_GT(dark, light + 0.2);
}

}  // namespace

namespace {

// The contact form paints its own wash: in either look the form's text reads on it.
TEST(Theme, TheContactFormsTextReadsOnItsWashInBothLooks) {
  const QPalette before = QApplication::palette();
  for (const bool dark : {false, true}) {
    QApplication::setPalette(Theme::Palette(dark));
    RecordingDesktop desktop;
    output::frmContactUS form(desktop);
    form.resize(400, 300);
    const QImage picture = form.grab().toImage();
    const QLabel* title = form.findChild<QLabel*>(QStringLiteral("ContactTitle"));
    ASSERT_NE(title, nullptr);
    for (const QPoint at : {QPoint(4, 4), QPoint(395, 295)}) {
      EXPECT_GE(Contrast::Ratio(title->palette().color(QPalette::WindowText), picture.pixelColor(at)), 4.5)
          << (dark ? "dark" : "light") << " at " << at.x();
    }
  }
  QApplication::setPalette(before);
}

}  // namespace
