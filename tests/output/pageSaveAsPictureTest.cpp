// The picture export page: sizes and their units, the opening of the page, the options and the
// thickness of the preview.
#include "PicturePage.h"


// ---- ChangeScale ---------------------------------------------------------------------------

struct ScaleCase {
  const char* Value;
  const char* Target;
  double Expected;
};

class ChangeScaleTable : public ::testing::TestWithParam<ScaleCase> {};

TEST_P(ChangeScaleTable, GivesTheNumberInTheTargetUnit) {
  const ScaleCase& c = GetParam();
  EXPECT_DOUBLE_EQ(pageSaveAsPicture::ChangeScale(QString::fromUtf8(c.Value), QString::fromUtf8(c.Target)), c.Expected)
      << c.Value << " to " << c.Target;
}

INSTANTIATE_TEST_SUITE_P(
    Units, ChangeScaleTable,
    ::testing::Values(ScaleCase{"10cm", "twip", 5669.28567000558}, ScaleCase{"1440twip", "inch", 1},
                      ScaleCase{"150twip", "pixle", 10}, ScaleCase{"2inch", "twip", 2880},
                      ScaleCase{"10pixle", "twip", 150}, ScaleCase{"566.928567000558twip", "cm", 1},
                      // "cm" is looked for first and every one of it goes.
                      ScaleCase{"5cmcm", "twip", 5 * 566.928567000558}, ScaleCase{"3cmpixle", "twip", 3 * 566.928567000558},
                      ScaleCase{"4pixleinch", "twip", 60},
                      // The search is case-sensitive, and a value without a unit is nothing.
                      ScaleCase{"10CM", "twip", 0}, ScaleCase{"10", "twip", 0}, ScaleCase{"10twip", "twip", 0},
                      // The number is the numeric prefix: "" and words give 0, blanks go first.
                      ScaleCase{"", "cm", 0}, ScaleCase{"cm", "twip", 0}, ScaleCase{"  30twip", "pixle", 2},
                      ScaleCase{"-15twip", "pixle", -1}, ScaleCase{"1.5e3twip", "pixle", 100},
                      ScaleCase{"2880twip", "inch", 2}, ScaleCase{"2880", "inch", 2},
                      // Unknown targets give 0.
                      ScaleCase{"10cm", "mm", 0}, ScaleCase{"10cm", "", 0}, ScaleCase{"10cm", "Twip", 0}));

TEST(pageSaveAsPicture, TenCentimetresAreExactlyTheseTwips) {
  EXPECT_EQ(core::FormatNumber(pageSaveAsPicture::ChangeScale("10cm", "twip")), "5669.28567000558");
  EXPECT_EQ(pageSaveAsPicture::ChangeScale("1440twip", "inch"), 1);
  EXPECT_EQ(pageSaveAsPicture::ChangeScale("150twip", "pixle"), 10);
}

// ---- The page as it is made -----------------------------------------------------------------

TEST(pageSaveAsPicture, TheWidgetsCarryTheirCaptions) {
  Page p;
  pageSaveAsPicture& page = *p.page;
  EXPECT_EQ(page.chkShowAxis()->text(), "Show &Axis");
  EXPECT_EQ(page.chkShowGrid()->text(), "Show &Gridlines");
  EXPECT_EQ(page.chkShowNumbers()->text(), "Show &Numbers");
  EXPECT_EQ(page.chkOuterFrame()->text(), "Show &Outerframe");
  EXPECT_EQ(page.chkTransparent()->text(), "&Transparent Background");
  EXPECT_EQ(page.btnShowTips()->text(), "Show Ti&ps");
  EXPECT_EQ(page.btnOK()->text(), "OK");
  EXPECT_EQ(page.btnReplot()->text(), "Replot");
  ASSERT_NE(page.findChild<QLabel*>("lblThick"), nullptr);
  EXPECT_EQ(page.findChild<QLabel*>("lblThick")->text(), "Line Thickness:");
  const std::pair<output::CaptionButton*, std::pair<const char*, const char*>> buttons[] = {
      {page.btnPNG(), {"Save as PNG", "High quality format with transparency"}},
      {page.btnJpg(), {"Save as Jpg", "To publish it on internet"}},
      {page.btnBMP(), {"Save as BMP", "Large size bitmap format"}},
      {page.btnSVG(), {"Save as SVG", "Vector drawing, sharp at any size"}},
      {page.btnPDF(), {"Save as PDF", "A page of the picture's size, to print"}},
      {page.btnCopy(), {"Copy picture", "To paste it into another program"}},
  };
  for (const auto& [button, texts] : buttons) {
    EXPECT_EQ(button->Caption(), texts.first);
    EXPECT_EQ(button->Description(), texts.second);
    EXPECT_NE(button->DescriptionLabel()->palette().color(QPalette::WindowText),
              button->CaptionLabel()->palette().color(QPalette::WindowText));
  }
  for (const char* name : {"Plot", "Plot3D", "grpPreview", "grpOptions", "txtWidth", "txtHeight", "cmbScaleWidth",
                           "cmbScaleHeight", "chkShowAxis", "chkShowGrid", "chkShowNumbers", "chkOuterFrame",
                           "chkTransparent", "btnShowTips", "txtThick", "updownTick", "btnOK", "btnReplot", "btnPNG",
                           "btnJpg", "btnBMP", "PB", "backSep1"}) {
    EXPECT_NE(page.findChild<QWidget*>(name), nullptr) << name;
  }
}

TEST(pageSaveAsPicture, TheUnitsAreCmPixleInchAndTheFieldsOpenInPixels) {
  Page p;
  for (QComboBox* units : {p.page->cmbScaleWidth(), p.page->cmbScaleHeight()}) {
    ASSERT_EQ(units->count(), 3);
    EXPECT_EQ(units->itemText(0), "cm");
    EXPECT_EQ(units->itemText(1), "pixle");
    EXPECT_EQ(units->itemText(2), "inch");
    EXPECT_EQ(units->currentText(), "pixle");
  }
  EXPECT_EQ(p.page->txtWidth()->text(), "600");
  EXPECT_EQ(p.page->txtHeight()->text(), "450");
  EXPECT_EQ(p.page->PlotWidth(), 9000);
  EXPECT_EQ(p.page->PlotHeight(), 6750);
}

TEST(pageSaveAsPicture, TheLoadCopiesTheDisplaySettingsToThePreview) {
  plot2d::PlotWidget main;
  main.Scene().SetShowAxis(false), main.Scene().SetShowGrid(false), main.Scene().SetShowNumbers(true);
  main.Scene().SetShowOuterFrame(true), main.Scene().SetShowTips(false), main.Scene().SetTransparentBackground(true);
  main.Scene().SetThickness(4);
  RecordingBoxes boxes;
  ScriptedFiles files;
  RecordingDesktop desktop;
  pageSaveAsPicture page(main, nullptr, nullptr, boxes, files, desktop);
  const plot2d::Plot& preview = page.Plot().Scene();
  EXPECT_FALSE(preview.ShowAxis());
  EXPECT_FALSE(preview.ShowGrid());
  EXPECT_TRUE(preview.ShowNumbers());
  EXPECT_TRUE(preview.ShowOuterFrame());  // from its own property
  EXPECT_FALSE(preview.ShowTips());
  EXPECT_TRUE(preview.TransparentBackground());
  EXPECT_EQ(preview.Thickness(), 4);
  EXPECT_EQ(page.txtThick()->text(), "4");
  EXPECT_FALSE(page.chkShowAxis()->isChecked());
  EXPECT_FALSE(page.chkShowGrid()->isChecked());
  EXPECT_TRUE(page.chkShowNumbers()->isChecked());
  EXPECT_FALSE(page.chkOuterFrame()->isChecked());  // the axis' setting
  EXPECT_FALSE(page.btnShowTips()->isChecked());
  EXPECT_TRUE(page.chkTransparent()->isChecked());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST(pageSaveAsPicture, TheOuterFrameBoxFollowsTheAxisWhenThePageOpens) {
  Page p;
  p.main.Scene().SetShowAxis(true);
  p.main.Scene().SetShowOuterFrame(false);
  p.page->StartUp();
  EXPECT_TRUE(p.page->chkOuterFrame()->isChecked());
  EXPECT_TRUE(p.page->chkShowAxis()->isChecked());
  p.main.Scene().SetShowAxis(false);
  p.main.Scene().SetShowOuterFrame(true);
  p.page->StartUp();
  EXPECT_FALSE(p.page->chkOuterFrame()->isChecked());
}

// ---- Changing the unit -----------------------------------------------------------------------

TEST(pageSaveAsPicture, ANewUnitShowsThePreviewsSizeAndDropsWhatWasTyped) {
  Page p;
  p.page->txtWidth()->setText("123");  // typed, not applied
  p.page->cmbScaleWidth()->setCurrentText("cm");
  EXPECT_EQ(p.page->txtWidth()->text(), core::FormatNumber(9000 / output::kTwipsPerCm));
  p.page->cmbScaleWidth()->setCurrentText("inch");
  EXPECT_EQ(p.page->txtWidth()->text(), "6.25");
  p.page->cmbScaleHeight()->setCurrentText("inch");
  EXPECT_EQ(p.page->txtHeight()->text(), "4.6875");
  p.page->cmbScaleHeight()->setCurrentText("pixle");
  EXPECT_EQ(p.page->txtHeight()->text(), "450");
  EXPECT_EQ(p.page->PlotWidth(), 9000);
}

// ---- Applying the size -----------------------------------------------------------------------

TEST(pageSaveAsPicture, OkAppliesWidthAndHeightInTheirUnits) {
  Page p;
  p.Type(p.page->txtWidth(), "10", "cm");
  p.Type(p.page->txtHeight(), "2", "inch");
  p.page->btnOK()->click();
  EXPECT_EQ(p.PreviewSize(), QSize(PixelsOfCm(10), 192));
  EXPECT_EQ(p.page->Plot().size(), QSize(378, 192));
  p.Type(p.page->txtWidth(), "150.4", "pixle");
  p.page->btnOK_Click();
  EXPECT_EQ(p.page->Plot().width(), 150);
  EXPECT_TRUE(p.boxes.boxes.empty());
  // The frame goes 120 twips round the preview.
  EXPECT_EQ(p.page->grpPreview()->size(), QSize(8 + 150 + 8, 8 + 192 + 8));
  EXPECT_EQ(p.page->Plot().pos(), QPoint(8, 8));
}

TEST(pageSaveAsPicture, AZeroFieldIsIgnoredWithoutAMessage) {
  Page p;
  for (const char* zero : {"0", "", "abc", "0cm", "-0"}) {
    p.Type(p.page->txtWidth(), QString::fromLatin1(zero), "cm");
    p.Type(p.page->txtHeight(), QString::fromLatin1(zero), "inch");
    p.page->btnOK()->click();
    EXPECT_EQ(p.PreviewSize(), QSize(600, 450)) << zero;
  }
  EXPECT_TRUE(p.boxes.boxes.empty());
}

// The largest side of a picture, in pixels, and as the page writes it in a field's unit.
constexpr int kLargest = 16384;
QString LargestIn(const char* unit) {
  return core::FormatNumber(pageSaveAsPicture::ChangeScale(core::FormatNumber(kLargest * 15.0) + "twip", unit));
}

struct SizeCase {
  const char* Unit;
  const char* Width;
  const char* Height;
  QSize Pixels;
};

class SizeInEveryUnit : public ::testing::TestWithParam<SizeCase> {};

TEST_P(SizeInEveryUnit, IsAppliedAsTypedAndHoldsAtTheNextVisit) {
  const SizeCase& c = GetParam();
  Page p;
  p.Type(p.page->txtWidth(), c.Width, c.Unit);
  p.Type(p.page->txtHeight(), c.Height, c.Unit);
  p.page->btnOK()->click();
  EXPECT_TRUE(p.boxes.boxes.empty());
  EXPECT_EQ(p.PreviewSize(), c.Pixels);
  EXPECT_EQ(p.page->Plot().size(), c.Pixels);
  EXPECT_EQ(p.page->txtWidth()->text(), c.Width);
  EXPECT_EQ(p.page->txtHeight()->text(), c.Height);
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), c.Pixels);
  EXPECT_EQ(p.Preview().Size(), c.Pixels);
  // Shown in another unit and applied again, the size stays to the pixel.
  for (const char* unit : {"cm", "inch", "pixle"}) {
    p.page->cmbScaleWidth()->setCurrentText(unit);
    p.page->cmbScaleHeight()->setCurrentText(unit);
    p.page->btnOK()->click();
    EXPECT_EQ(p.PreviewSize(), c.Pixels) << unit;
  }
  EXPECT_TRUE(p.boxes.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, SizeInEveryUnit,
    ::testing::Values(SizeCase{"pixle", "1920", "1080", {1920, 1080}}, SizeCase{"cm", "50.8", "28.575", {1920, 1080}},
                      SizeCase{"inch", "20", "11.25", {1920, 1080}}, SizeCase{"pixle", "3840", "2160", {3840, 2160}},
                      SizeCase{"cm", "101.6", "57.15", {3840, 2160}}, SizeCase{"inch", "40", "22.5", {3840, 2160}},
                      // What once was the largest is a size like any other now, and past it too.
                      SizeCase{"cm", "50", "51", {1890, 1928}}, SizeCase{"pixle", "16384", "100", {16384, 100}},
                      SizeCase{"inch", "1", "170.666666666667", {96, 16384}},
                      SizeCase{"cm", "433.493766772487", "2", {16384, 76}}),
    [](const ::testing::TestParamInfo<SizeCase>& test) { return std::to_string(test.index) + "_" + test.param.Unit; });

struct CapCase {
  const char* Unit;
  const char* Text;
  bool Width;
};

class OverTheLimit : public ::testing::TestWithParam<CapCase> {};

TEST_P(OverTheLimit, IsCappedAtTheLimitWithTheBoxAndKeepsItsUnit) {
  const CapCase& c = GetParam();
  Page p;
  QLineEdit* field = c.Width ? p.page->txtWidth() : p.page->txtHeight();
  QLineEdit* other = c.Width ? p.page->txtHeight() : p.page->txtWidth();
  QComboBox* unit = c.Width ? p.page->cmbScaleWidth() : p.page->cmbScaleHeight();
  p.Type(other, "100", "pixle");
  p.Type(field, QString::fromLatin1(c.Text), c.Unit);
  p.page->btnOK()->click();
  ASSERT_EQ(p.boxes.boxes.size(), 1u);
  EXPECT_EQ(p.boxes.boxes[0].Text,
            c.Width ? "The Largest Width Length is: 50 cm" : "The Largest Height Length is: 50 cm");
  EXPECT_EQ(p.boxes.boxes[0].Title, c.Width ? "Msg - [0002]" : "Msg - [0001]");
  EXPECT_EQ(p.boxes.boxes[0].Kind, Box::Icon::Exclamation);
  EXPECT_EQ(p.boxes.boxes[0].Shown, Box::Buttons::Ok);
  const QSize capped = c.Width ? QSize(kLargest, 100) : QSize(100, kLargest);
  EXPECT_EQ(p.PreviewSize(), capped);
  EXPECT_EQ(unit->currentText(), c.Unit);
  EXPECT_EQ(field->text(), LargestIn(c.Unit));
  EXPECT_EQ(other->text(), "100");
  // The field now holds the limit itself, which is taken without a word.
  p.page->btnOK()->click();
  EXPECT_EQ(p.boxes.boxes.size(), 1u);
  EXPECT_EQ(p.PreviewSize(), capped);
}

INSTANTIATE_TEST_SUITE_P(
    Sides, OverTheLimit,
    ::testing::Values(CapCase{"pixle", "16385", true}, CapCase{"pixle", "20000", false}, CapCase{"cm", "434", true},
                      CapCase{"cm", "1000", false}, CapCase{"inch", "171", true}, CapCase{"inch", "1e300", false},
                      CapCase{"pixle", "1e308", true},
                      CapCase{"pixle", "99999999999999999999999999999999999999999", false},
                      // A unit typed into the field is read too.
                      CapCase{"pixle", "1000cm", true}),
    [](const ::testing::TestParamInfo<CapCase>& test) {
      return std::to_string(test.index) + "_" + test.param.Unit + (test.param.Width ? "_width" : "_height");
    });

TEST(pageSaveAsPicture, ANegativeOrTinySizeLeavesThePreviewAsItIs) {
  Page p;
  for (const char* text : {"-5", "-1e999", "0.001", "1e-300"}) {
    p.Type(p.page->txtWidth(), QString::fromLatin1(text), "pixle");
    p.page->btnOK()->click();
    EXPECT_EQ(p.PreviewSize(), QSize(600, 450)) << text;
  }
}

TEST(pageSaveAsPicture, AnyTextInAnyFieldNeverBreaksThePage) {
  Page p;
  const QString texts[] = {"",        "-",        "+",         ".",      "1e999",     "-1e999", "nan",     "inf",
                           "  12  ", "\u0661\u0662", "\U0001F4A5", "1,5",   "0x10",      "&H10",   "cmcmcm",  "pixle",
                           "inch",    "20cm30",   "1e-300",    "3.4.5",  QString(400, u'9'), "-2147483649", "1e5inch",
                           "twip",    "\t7\n",    "20 cm",     "%",      "'",         "\""};
  for (const QString& text : texts) {
    for (const char* unit : {"cm", "pixle", "inch"}) {
      // One side at a time, the other small, so that a capped side makes no giant preview.
      for (const bool width : {true, false}) {
        p.Type(width ? p.page->txtWidth() : p.page->txtHeight(), text, QString::fromLatin1(unit));
        p.Type(width ? p.page->txtHeight() : p.page->txtWidth(), "50", "pixle");
        p.page->btnOK()->click();
        const QSize size = p.PreviewSize();
        EXPECT_TRUE(size.width() >= 1 && size.width() <= kLargest && size.height() >= 1 && size.height() <= kLargest)
            << text.toStdString();
      }
    }
    p.page->txtThick()->selectAll();
    TypeKeys(p.page->txtThick(), text);
    const double thickness = p.Preview().Thickness();
    EXPECT_TRUE(thickness >= 1 && thickness <= 10);
  }
}

// ---- Opening the page ------------------------------------------------------------------------

TEST(pageSaveAsPicture, StartUpResizesCheaplyThenReplotsAtFullQuality) {
  Page p;
  p.main.Scene().SetQuality(40);
  p.main.Scene().SetXMin(-3), p.main.Scene().SetXMax(4), p.main.Scene().SetYMin(-2), p.main.Scene().SetYMax(5);
  double qualityWhileSizing = -1;
  p.boxes.onShow = [&] { qualityWhileSizing = p.Preview().Quality(); };
  p.Type(p.page->txtWidth(), "500", "cm");  // a box in step 6 shows the quality of the resizing
  p.page->StartUp();
  EXPECT_EQ(qualityWhileSizing, 1);
  EXPECT_EQ(p.replots, 1);
  EXPECT_EQ(p.qualityAtReplot, 100);
  EXPECT_EQ(p.Preview().Quality(), 100);
  EXPECT_EQ(p.rangeAtReplot, (std::array<double, 4>{-3, 4, -2, 5}));
  EXPECT_NE(p.seen3D, nullptr);
  // The rows are drawn into the preview, not into the main plot.
  EXPECT_EQ(p.Preview().LastDrawing().Curves.size(), 1u);
  EXPECT_TRUE(p.main.Scene().LastDrawing().Curves.empty());
  EXPECT_EQ(p.page->PB()->value(), 100);
  // The frame and the separator follow the preview.
  const QSize size = p.PreviewSize();
  EXPECT_EQ(size, QSize(16384, 450));
  EXPECT_EQ(p.page->grpPreview()->size(), size + QSize(16, 16));
  EXPECT_EQ(p.page->backSep1()->maximumHeight(), size.height());
  EXPECT_EQ(p.Preview().Size(), size);
}

TEST(pageSaveAsPicture, UntilASizeIsChosenThePreviewFollowsTheMainPlot) {
  Page p;
  p.main.resize(720, 480);  // the window got its size after the page was made
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), QSize(720, 480));
  EXPECT_EQ(p.page->txtWidth()->text(), "720");
  p.main.resize(640, 400);
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), QSize(640, 400));
  p.Type(p.page->txtHeight(), "300", "pixle");
  p.main.resize(900, 500);
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), QSize(640, 300));
  p.Type(p.page->txtHeight(), "400", "pixle");  // back to what it was: still a choice
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), QSize(640, 400));
}

TEST(pageSaveAsPicture, ThePreviewHasTheMainPlotsColours) {
  Page p;
  p.main.Scene().SetAxisColor(16711680);
  p.main.Scene().SetBackColor(15663086);
  p.page->StartUp();
  EXPECT_EQ(p.Preview().AxisColor(), 16711680);
  EXPECT_EQ(p.Preview().BackColor(), 15663086);
}

TEST(pageSaveAsPicture, AChosenSizeHoldsFromOneVisitToTheNext) {
  Page p;
  p.Type(p.page->txtWidth(), "300", "pixle");
  p.page->btnOK()->click();
  p.main.resize(800, 700);
  p.page->StartUp();
  EXPECT_EQ(p.PreviewSize(), QSize(300, 450));
  p.page->txtHeight()->setText("200");
  p.page->StartUp();  // what is in the fields is applied over the main plot's size
  EXPECT_EQ(p.PreviewSize(), QSize(300, 200));
  EXPECT_EQ(p.replots, 2);
}

TEST(pageSaveAsPicture, OnTheSurfaceTabTheOptionsHideAndTheSurfaceSaves) {
  Page p;
  p.tab = 3;
  p.page->StartUp();
  EXPECT_TRUE(p.page->grpOptions()->isHidden());
  EXPECT_TRUE(p.page->Plot().isHidden());
  EXPECT_FALSE(p.page->Plot3D().isHidden());
  EXPECT_EQ(p.page->Plot3D().geometry(), p.page->Plot().geometry());
  QTemporaryDir folder;
  const QString name = folder.filePath("surface.png");
  p.files.names.push_back(name);
  p.page->btnPNG()->click();
  p.page->WaitForSurface();
  EXPECT_TRUE(p.boxes.boxes.empty());
  QImage saved(name);
  ASSERT_FALSE(saved.isNull());
  EXPECT_EQ(saved.size(), QSize(600, 450));
  EXPECT_FALSE(p.page->Plot3D().Scene().Surface().Triangles.empty());
  QImage expected = p.page->Plot3D().Scene().Picture().convertToFormat(saved.format());
  expected.setDevicePixelRatio(1);
  EXPECT_EQ(saved, expected);
  // Back on another tab, the plot shows and saves again.
  p.tab = 0;
  p.page->StartUp();
  EXPECT_FALSE(p.page->grpOptions()->isHidden());
  EXPECT_FALSE(p.page->Plot().isHidden());
  EXPECT_TRUE(p.page->Plot3D().isHidden());
}

// ---- Options and thickness -------------------------------------------------------------------

TEST(pageSaveAsPicture, TheOptionsActOnThePreviewOnly) {
  Page p;
  p.page->StartUp();
  struct Option {
    QCheckBox* Box;
    bool (plot2d::Plot::*Get)() const;
  };
  const Option options[] = {{p.page->chkShowAxis(), &plot2d::Plot::ShowAxis},
                            {p.page->chkShowGrid(), &plot2d::Plot::ShowGrid},
                            {p.page->chkShowNumbers(), &plot2d::Plot::ShowNumbers},
                            {p.page->chkOuterFrame(), &plot2d::Plot::ShowOuterFrame},
                            {p.page->chkTransparent(), &plot2d::Plot::TransparentBackground},
                            {p.page->btnShowTips(), &plot2d::Plot::ShowTips}};
  for (const Option& option : options) {
    const bool main = (p.main.Scene().*option.Get)();
    option.Box->click();
    EXPECT_EQ((p.Preview().*option.Get)(), option.Box->isChecked()) << option.Box->objectName().toStdString();
    option.Box->click();
    EXPECT_EQ((p.Preview().*option.Get)(), option.Box->isChecked());
    EXPECT_EQ((p.main.Scene().*option.Get)(), main);
  }
  p.page->chkTransparent()->setChecked(false);
  p.page->chkTransparent()->click();
  EXPECT_TRUE(p.Preview().TransparentBackground());
  EXPECT_EQ(p.page->Plot().LastPicture().pixelColor(1, 1).alpha(), 0);
  EXPECT_EQ(p.replots, 1);
}

TEST(pageSaveAsPicture, TheArrowsStepTheThicknessBetweenOneAndTen) {
  Page p;
  p.page->txtThick()->setText("2");
  p.page->updownTickUp()->click();
  EXPECT_EQ(p.page->txtThick()->text(), "3");
  EXPECT_EQ(p.Preview().Thickness(), 3);
  p.page->txtThick()->setText("10");
  p.page->updownTickUp()->click();
  EXPECT_EQ(p.page->txtThick()->text(), "10");
  EXPECT_EQ(p.Preview().Thickness(), 10);
  p.page->txtThick()->setText("1");
  p.page->updownTickDown()->click();
  EXPECT_EQ(p.page->txtThick()->text(), "1");
  EXPECT_EQ(p.Preview().Thickness(), 1);
  p.page->txtThick()->setText("5");
  p.page->updownTickDown()->click();
  EXPECT_EQ(p.page->txtThick()->text(), "4");
  EXPECT_EQ(p.Preview().Thickness(), 4);
  p.page->txtThick()->setText("4.6");
  p.page->updownTickUp()->click();
  EXPECT_EQ(p.page->txtThick()->text(), "5.6");
  EXPECT_EQ(p.Preview().Thickness(), 6);  // as a 16-bit integer
  // The keyboard's arrows in the field do the same.
  p.page->txtThick()->setText("3");
  QTest::keyClick(p.page->txtThick(), Qt::Key_Up);
  EXPECT_EQ(p.page->txtThick()->text(), "4");
  QTest::keyClick(p.page->txtThick(), Qt::Key_Down);
  QTest::keyClick(p.page->txtThick(), Qt::Key_Down);
  EXPECT_EQ(p.page->txtThick()->text(), "2");
  EXPECT_EQ(p.main.Scene().Thickness(), 2);  // the main plot's default, untouched
}

TEST(pageSaveAsPicture, ATypedThicknessIsKeptInRangeButDoesNotReachThePreview) {
  Page p;
  p.page->txtThick()->setText("3");
  p.page->updownTickUp()->click();
  ASSERT_EQ(p.Preview().Thickness(), 4);
  const std::pair<const char*, const char*> cases[] = {{"7", "7"}, {"12", "4"}, {"0", "4"}, {"abc", "4"},
                                                        {"9x", "9"}, {"-3", "4"}, {"", "4"}, {"10", "10"}};
  for (const auto& [typed, shown] : cases) {
    p.page->txtThick()->selectAll();
    if (*typed) QTest::keyClicks(p.page->txtThick(), QString::fromLatin1(typed));
    else QTest::keyClick(p.page->txtThick(), Qt::Key_Backspace);
    EXPECT_EQ(p.page->txtThick()->text(), shown) << typed;
    EXPECT_EQ(p.Preview().Thickness(), 4) << typed;
  }
}

// How the user may set the thickness on the page, and what the field and the preview then hold,
// from a main plot at 5.
struct ThicknessCase {
  const char* Name;
  std::function<void(Page&)> Set;
  const char* Field;
  double Preview;
  bool Chosen;
};

class ThicknessAtOpening : public ::testing::TestWithParam<ThicknessCase> {};

TEST_P(ThicknessAtOpening, FollowsTheMainPlotUntilTheUserSetsOne) {
  const ThicknessCase& c = GetParam();
  Page p;
  p.main.Scene().SetThickness(5);  // the ribbon changed it after the page was made
  p.page->StartUp();
  EXPECT_EQ(p.page->txtThick()->text(), "5");
  EXPECT_EQ(p.Preview().Thickness(), 5);
  c.Set(p);
  EXPECT_EQ(p.page->txtThick()->text(), c.Field);
  EXPECT_EQ(p.Preview().Thickness(), c.Preview);
  p.main.Scene().SetThickness(8);
  p.page->StartUp();
  EXPECT_EQ(p.page->txtThick()->text(), c.Chosen ? c.Field : "8");
  EXPECT_EQ(p.Preview().Thickness(), c.Chosen ? c.Preview : 8);
  EXPECT_EQ(p.main.Scene().Thickness(), 8);
  p.main.Scene().SetThickness(3);
  p.page->StartUp();
  EXPECT_EQ(p.page->txtThick()->text(), c.Chosen ? c.Field : "3");
}

INSTANTIATE_TEST_SUITE_P(
    Ways, ThicknessAtOpening,
    ::testing::Values(
        ThicknessCase{"Untouched", [](Page&) {}, "5", 5, false},
        ThicknessCase{"ArrowUp", [](Page& p) { p.page->updownTickUp()->click(); }, "6", 6, true},
        ThicknessCase{"ArrowDown", [](Page& p) { p.page->updownTickDown()->click(); }, "4", 4, true},
        ThicknessCase{"KeyDown", [](Page& p) { QTest::keyClick(p.page->txtThick(), Qt::Key_Down); }, "4", 4, true},
        // A typed number stays in the field, though only the arrows hand it to the preview.
        ThicknessCase{"Typed",
                      [](Page& p) {
                        p.page->txtThick()->selectAll();
                        QTest::keyClicks(p.page->txtThick(), QStringLiteral("7"));
                      },
                      "7", 5, true},
        // A number out of range gives way to the preview's, and sets nothing.
        ThicknessCase{"TypedOutOfRange",
                      [](Page& p) {
                        p.page->txtThick()->selectAll();
                        QTest::keyClicks(p.page->txtThick(), QStringLiteral("12"));
                      },
                      "5", 5, false}),
    [](const ::testing::TestParamInfo<ThicknessCase>& test) { return std::string(test.param.Name); });

TEST(pageSaveAsPicture, ReplotRedrawsThePreviewOnly) {
  Page p;
  p.page->StartUp();
  p.page->PB()->setValue(0);
  p.page->btnReplot()->click();
  EXPECT_EQ(p.replots, 1);
  EXPECT_EQ(p.page->PB()->value(), 100);
  EXPECT_EQ(p.Preview().LastDrawing().Curves.size(), 1u);
}

// ---- Saving ----------------------------------------------------------------------------------

// A circle that is round on the screen is round in the picture, whatever its proportions.
TEST(pageSaveAsPicture, ThePreviewKeepsEqualScales) {
  Page p;
  p.main.Scene().SetEqualScales(true);
  p.page->StartUp();
  EXPECT_TRUE(p.Preview().EqualScales());
  const plot2d::Plot& preview = p.Preview();
  EXPECT_NEAR((preview.XMax() - preview.XMin()) / preview.Size().width(),
              (preview.YMax() - preview.YMin()) / preview.Size().height(), 1e-9);
}
