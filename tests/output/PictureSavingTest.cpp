// The picture export page's save buttons with their dialogs and boxes, answered by the fakes,
// and what they write.
#include "PicturePage.h"

#include <QFileInfo>

struct SaveCase {
  const char* Button;
  const char* Title;
  const char* Filter;
  const char* Overwrite;
  const char* Error;
  const char* Unknown;
  const char* Ending;
  const char* Head;
};

class SavingTable : public ::testing::TestWithParam<SaveCase> {
protected:
  output::CaptionButton* Button(Page& p) { return p.page->findChild<output::CaptionButton*>(GetParam().Button); }
};

INSTANTIATE_TEST_SUITE_P(
    Buttons, SavingTable,
    ::testing::Values(
        SaveCase{"btnPNG", "Save graph as PNG picture...", "PNG File (*.png) |*.png|All Files (*.*)|*.*",
                 "Overwrite - [Msg-0003]", "Error - Err-[0001]", "Unknown Error - Err-[0002]", "png", "\x89PNG"},
        SaveCase{"btnJpg", "Save graph as JPG picture...", "JPG File (*.jpg) |*.jpg|All Files (*.*)|*.*",
                 "Overwrite - [Msg-0004]", "Err-[0003]", "Err-[0004]", "jpg", "\xff\xd8\xff"},
        SaveCase{"btnBMP", "Save graph as Bitmap picture...", "Bitmap File (*.bmp) |*.bmp|All Files (*.*)|*.*",
                 "Overwrite - [Msg-0002]", "Error - Err-[0005]", "Unknown Error - Err-[0006]", "bmp", "BM"},
        SaveCase{"btnSVG", "Save graph as SVG picture...", "SVG File (*.svg) |*.svg|All Files (*.*)|*.*",
                 "Overwrite - [Msg-0021]", "Error - Err-[0021]", "Unknown Error - Err-[0022]", "svg", "<?xml"},
        SaveCase{"btnPDF", "Save graph as PDF document...", "PDF File (*.pdf) |*.pdf|All Files (*.*)|*.*",
                 "Overwrite - [Msg-0022]", "Error - Err-[0023]", "Unknown Error - Err-[0024]", "pdf", "%PDF-"}),
    [](const ::testing::TestParamInfo<SaveCase>& test) { return std::string(test.param.Button); });

TEST_P(SavingTable, ANewFileIsWrittenWithoutAQuestion) {
  const SaveCase& c = GetParam();
  Page p;
  p.page->StartUp();
  QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("graph.") + QString::fromLatin1(c.Ending));
  p.files.names.push_back(name);
  Button(p)->click();
  ASSERT_EQ(p.files.shown.size(), 1u);
  EXPECT_EQ(p.files.shown[0].Title, c.Title);
  EXPECT_EQ(p.files.shown[0].Filter, c.Filter);
  EXPECT_TRUE(p.files.shown[0].Save);
  EXPECT_TRUE(p.boxes.boxes.empty());
  EXPECT_TRUE(Head(name, 16).startsWith(QByteArray(c.Head)));
  EXPECT_TRUE(p.page->lblStatus()->text().contains(QStringLiteral("graph.")));
}

TEST_P(SavingTable, NoOnTheOverwriteBoxOpensTheDialogAgain) {
  const SaveCase& c = GetParam();
  Page p;
  p.page->StartUp();
  QTemporaryDir folder;
  const QString first = folder.filePath("first.x"), second = folder.filePath("second.x");
  for (const QString& name : {first, second}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
  }
  p.files.names = {first, second};
  p.boxes.answers = {Box::Answer::No, Box::Answer::Yes};
  Button(p)->click();
  ASSERT_EQ(p.files.shown.size(), 2u);
  ASSERT_EQ(p.boxes.boxes.size(), 2u);
  for (const auto& box : p.boxes.boxes) {
    EXPECT_EQ(box.Text, "The file is already exist, overwrite?");
    EXPECT_EQ(box.Title, c.Overwrite);
    EXPECT_EQ(box.Shown, Box::Buttons::YesNo);
    EXPECT_EQ(box.Kind, Box::Icon::Question);
  }
  EXPECT_EQ(Head(first, 3), "old");
  EXPECT_TRUE(Head(second, 16).startsWith(QByteArray(c.Head)));
}

// What the current folder holds when the dialog is cancelled: nothing at all, only a folder, a file.
enum class Holds { Nothing, OnlyAFolder, AFile };

TEST_P(SavingTable, CancelIsSilentWhateverTheFolderHolds) {
  for (const Holds holds : {Holds::Nothing, Holds::OnlyAFolder, Holds::AFile}) {
    Page p;
    QTemporaryDir folder;
    if (holds == Holds::OnlyAFolder) {
      ASSERT_TRUE(QDir(folder.path()).mkdir("inner"));
    }
    if (holds == Holds::AFile) {
      QFile any(folder.filePath("something"));
      ASSERT_TRUE(any.open(QIODevice::WriteOnly));
    }
    InFolder here(folder.path());
    Button(p)->click();
    EXPECT_EQ(p.files.shown.size(), 1u);
    EXPECT_TRUE(p.boxes.boxes.empty()) << static_cast<int>(holds);
    EXPECT_TRUE(p.page->lblStatus()->text().isEmpty());
  }
}

TEST_P(SavingTable, CancelAfterNoOnTheOverwriteBoxWritesNothingAndSaysNothingMore) {
  Page p;
  p.page->StartUp();
  QTemporaryDir folder;
  const QString name = folder.filePath(QStringLiteral("old.") + QString::fromLatin1(GetParam().Ending));
  {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
  }
  QTemporaryDir empty;
  InFolder here(empty.path());
  p.files.names = {name, std::nullopt};
  p.boxes.answers = {Box::Answer::No};
  Button(p)->click();
  EXPECT_EQ(p.files.shown.size(), 2u);
  EXPECT_EQ(p.boxes.boxes.size(), 1u);
  EXPECT_EQ(Head(name, 3), "old");
}

// The name as typed in the dialog, and the file that is written: the button's ending goes onto a
// name that has none.
struct EndingCase {
  const char* Typed;
  const char* Written;  // with %1 for the button's ending
};

TEST_P(SavingTable, ANameWithoutAnEndingGetsTheButtonsOwn) {
  const SaveCase& c = GetParam();
  const EndingCase cases[] = {{"graph", "graph.%1"},
                              {"graph.", "graph.%1"},
                              {"my.folder/graph", "my.folder/graph.%1"},
                              {"graph.%1", "graph.%1"},
                              {"graph.txt", "graph.txt"},
                              {"GRAPH.%1.old", "GRAPH.%1.old"}};
  for (const EndingCase& e : cases) {
    Page p;
    p.page->StartUp();
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("my.folder"));
    const QString ending = QString::fromLatin1(c.Ending);
    const QString typed = folder.filePath(QString::fromLatin1(e.Typed).arg(ending));
    const QString written = folder.filePath(QString::fromLatin1(e.Written).arg(ending));
    p.files.names.push_back(typed);
    Button(p)->click();
    EXPECT_TRUE(p.boxes.boxes.empty()) << e.Typed;
    EXPECT_TRUE(Head(written, 16).startsWith(QByteArray(c.Head))) << e.Typed;
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size() + QDir(folder.filePath("my.folder")).entryList(QDir::Files).size(),
              1)
        << e.Typed;
    EXPECT_TRUE(p.page->lblStatus()->text().contains(QFileInfo(written).fileName())) << e.Typed;
  }
}

TEST_P(SavingTable, AnExistingFileIsAskedAboutAlsoWhenItsEndingWasAdded) {
  const SaveCase& c = GetParam();
  Page p;
  p.page->StartUp();
  QTemporaryDir folder;
  const QString existing = folder.filePath(QStringLiteral("graph.") + QString::fromLatin1(c.Ending));
  {
    QFile file(existing);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
  }
  p.files.names = {folder.filePath("graph"), folder.filePath("graph")};
  p.boxes.answers = {Box::Answer::No, Box::Answer::Yes};
  Button(p)->click();
  ASSERT_EQ(p.boxes.boxes.size(), 2u);
  EXPECT_EQ(p.boxes.boxes[0].Text, "The file is already exist, overwrite?");
  EXPECT_EQ(p.boxes.boxes[0].Title, c.Overwrite);
  EXPECT_EQ(p.files.shown.size(), 2u);
  EXPECT_TRUE(Head(existing, 16).startsWith(QByteArray(c.Head)));
  EXPECT_FALSE(QFile::exists(folder.filePath("graph")));
}

TEST_P(SavingTable, AnUnwritableTargetGivesTheErrorAndThenTheStopBox) {
  const SaveCase& c = GetParam();
  Page p;
  p.page->StartUp();
  QTemporaryDir folder;
  p.files.names.push_back(folder.filePath(QStringLiteral("no such folder/graph.") + QString::fromLatin1(c.Ending)));
  Button(p)->click();
  ASSERT_EQ(p.boxes.boxes.size(), 2u);
  EXPECT_FALSE(p.boxes.boxes[0].Text.isEmpty());
  EXPECT_EQ(p.boxes.boxes[0].Title, c.Error);
  EXPECT_EQ(p.boxes.boxes[0].Kind, Box::Icon::Exclamation);
  EXPECT_EQ(p.boxes.boxes[0].Shown, Box::Buttons::Ok);
  EXPECT_EQ(p.boxes.boxes[1].Text, "Could not save the file.\nPlease contact us to fix it.");
  EXPECT_EQ(p.boxes.boxes[1].Title, c.Unknown);
  EXPECT_EQ(p.boxes.boxes[1].Kind, Box::Icon::Critical);
  EXPECT_EQ(p.boxes.boxes[1].Shown, Box::Buttons::Ok);
}

TEST(pageSaveAsPicture, ThePictureHasThePreviewsSizeAndItsOptions) {
  Page p;
  p.Type(p.page->txtWidth(), "321", "pixle");
  p.Type(p.page->txtHeight(), "2", "inch");
  p.page->StartUp();
  p.page->chkTransparent()->click();
  ASSERT_TRUE(p.Preview().TransparentBackground());
  QTemporaryDir folder;
  p.files.names = {folder.filePath("a.png"), folder.filePath("a.jpg")};
  p.page->btnPNG()->click();
  p.page->btnJpg()->click();
  const QImage png(folder.filePath("a.png"));
  EXPECT_EQ(png.size(), QSize(321, 192));
  EXPECT_TRUE(png.hasAlphaChannel());
  EXPECT_EQ(png.pixelColor(2, 2).alpha(), 0);
  EXPECT_EQ(QImageReader(folder.filePath("a.jpg")).size(), QSize(321, 192));
}

TEST(pageSaveAsPicture, ScreenSizesAreSavedAtTheirSizeFromAnyUnit) {
  const std::tuple<const char*, const char*, const char*, QSize> cases[] = {
      {"cm", "50.8", "28.575", QSize(1920, 1080)}, {"inch", "40", "22.5", QSize(3840, 2160)}};
  for (const auto& [unit, width, height, size] : cases) {
    Page p;
    p.Type(p.page->txtWidth(), width, unit);
    p.Type(p.page->txtHeight(), height, unit);
    p.page->StartUp();
    QTemporaryDir folder;
    const QString name = folder.filePath("screen.png");
    p.files.names.push_back(name);
    p.page->btnPNG()->click();
    EXPECT_EQ(QImageReader(name).size(), size) << unit;
    EXPECT_TRUE(p.boxes.boxes.empty());
  }
}

TEST(pageSaveAsPicture, SvgIsADrawingOfPathsAtThePreviewsSize) {
  Page p;
  p.Type(p.page->txtWidth(), "400", "pixle");
  p.Type(p.page->txtHeight(), "300", "pixle");
  p.page->StartUp();
  QTemporaryDir folder;
  const QString name = folder.filePath("graph.svg");
  p.files.names.push_back(name);
  p.page->btnSVG()->click();
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString svg = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(svg.contains(QStringLiteral("<svg")));
  EXPECT_TRUE(svg.contains(QStringLiteral("viewBox=\"0 0 400 300\""))) << svg.left(600).toStdString();
  // The red curve is a path, not a picture: a drawing without implicit regions has no image.
  EXPECT_TRUE(svg.contains(QStringLiteral("stroke=\"#ff0000\"")));
  EXPECT_FALSE(svg.contains(QStringLiteral("<image")));
  EXPECT_TRUE(p.boxes.boxes.empty());
}

TEST(pageSaveAsPicture, PdfIsAPageOfThePicturesPhysicalSize) {
  Page p;
  p.Type(p.page->txtWidth(), "10", "cm");
  p.Type(p.page->txtHeight(), "2", "inch");
  p.page->StartUp();
  QTemporaryDir folder;
  const QString name = folder.filePath("graph.pdf");
  p.files.names.push_back(name);
  p.page->btnPDF()->click();
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray pdf = file.readAll();
  EXPECT_TRUE(pdf.startsWith("%PDF-"));
  EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
  // 378 by 192 pixels of 15 twips: 283.5 by 144 points.
  const QRegularExpression box(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
  const QRegularExpressionMatch match = box.match(QString::fromLatin1(pdf));
  ASSERT_TRUE(match.hasMatch());
  EXPECT_NEAR(match.captured(1).toDouble(), 378 * 0.75, 0.6);
  EXPECT_NEAR(match.captured(2).toDouble(), 144, 0.6);
  EXPECT_TRUE(p.boxes.boxes.empty());
}

TEST(pageSaveAsPicture, TheSurfaceGoesIntoSvgAndPdfAsItsPicture) {
  Page p;
  p.tab = 3;
  p.page->StartUp();
  p.page->WaitForSurface();
  QTemporaryDir folder;
  p.files.names = {folder.filePath("s.svg"), folder.filePath("s.pdf")};
  p.page->btnSVG()->click();
  p.page->btnPDF()->click();
  EXPECT_TRUE(Head(folder.filePath("s.svg"), 5000).contains("<image"));
  EXPECT_TRUE(Head(folder.filePath("s.pdf"), 5).startsWith("%PDF-"));
  EXPECT_TRUE(p.boxes.boxes.empty());
}

TEST(pageSaveAsPicture, CopyPutsThePreviewsPictureOnTheClipboard) {
  Page p;
  p.Type(p.page->txtWidth(), "250", "pixle");
  p.Type(p.page->txtHeight(), "150", "pixle");
  p.page->StartUp();
  p.page->btnCopy()->click();
  EXPECT_EQ(p.desktop.clipboardImage.size(), QSize(250, 150));
  EXPECT_EQ(p.desktop.clipboardImage.devicePixelRatio(), 1);
  EXPECT_FALSE(p.desktop.clipboardImage.hasAlphaChannel());
  EXPECT_EQ(p.desktop.clipboardImage, QImage(p.Preview().Picture(QImage::Format_RGB32)));
  p.page->chkTransparent()->click();
  p.page->btnCopy()->click();
  EXPECT_TRUE(p.desktop.clipboardImage.hasAlphaChannel());
  p.tab = 3;
  p.page->StartUp();
  p.page->btnCopy()->click();
  EXPECT_EQ(p.desktop.clipboardImage.size(), QSize(250, 150));
  EXPECT_TRUE(p.boxes.boxes.empty());
  EXPECT_TRUE(p.files.shown.empty());
}

// ---- Pictures of the page --------------------------------------------------------------------

// With QUILLOGRAPH_EXPORT_SHOTS naming a folder, the page is drawn into it as the program shows it
// (its style sheet on), at the screen's scale: run with QT_SCALE_FACTOR=1 and 2.
TEST(pageSaveAsPicture, PicturesOfThePage) {
  const QString folder = qEnvironmentVariable("QUILLOGRAPH_EXPORT_SHOTS");
  if (folder.isEmpty()) GTEST_SKIP() << "QUILLOGRAPH_EXPORT_SHOTS names no folder";
  QDir().mkpath(folder);
  QFile sheet(platform::DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
  qApp->setStyle(QStringLiteral("Fusion"));
  qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()).replace(QStringLiteral("%DATA%"), platform::DataFolder()));
  const QString scale = QString::number(qApp->devicePixelRatio());
  for (int tab : {0, 3}) {
    Page p;
    p.tab = tab;
    QWidget frame;  // the backstage's white content area
    frame.setObjectName(QStringLiteral("BackstageContent"));
    frame.setStyleSheet(QStringLiteral("#BackstageContent { background: #ffffff; }"));
    auto* layout = new QVBoxLayout(&frame);
    layout->setContentsMargins(40, 28, 40, 24);
    p.page->setParent(&frame);
    layout->addWidget(p.page.get());
    frame.resize(1100, 720);
    frame.show();
    p.page->StartUp();
    p.page->WaitForSurface();
    QCoreApplication::processEvents();
    const QString name = QStringLiteral("%1/page-%2-x%3.png").arg(folder, tab == 3 ? "3d" : "2d", scale);
    EXPECT_TRUE(frame.grab().save(name));
    if (tab == 0) {
      // The vector files beside them, and the SVG as a reader draws it.
      p.files.names = {folder + "/graph.svg", folder + "/graph.pdf"};
      p.page->btnSVG()->click();
      p.page->btnPDF()->click();
      QSvgRenderer reader(folder + "/graph.svg");
      QImage drawn(reader.defaultSize(), QImage::Format_ARGB32_Premultiplied);
      drawn.fill(Qt::transparent);
      QPainter painter(&drawn);
      reader.render(&painter);
      painter.end();
      EXPECT_TRUE(drawn.save(folder + "/graph-svg.png"));
      p.Type(p.page->txtWidth(), "50", "cm");
      p.page->btnOK()->click();
      QCoreApplication::processEvents();
      EXPECT_TRUE(frame.grab().save(QStringLiteral("%1/page-large-x%2.png").arg(folder, scale)));
    }
    p.page->setParent(nullptr);
  }
  qApp->setStyleSheet(QString());
}
