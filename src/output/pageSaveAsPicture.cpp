#include "pageSaveAsPicture.h"

#include "PictureIcons.h"
#include "PictureSaving.h"
#include "PictureSize.h"
#include "PictureWriter.h"
#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Twips.h"

#include <QCoreApplication>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace output {

namespace {

using Box = platform::MessageBoxes;
using core::FormatNumber;
using core::NumericPrefix;
using core::Px;
using core::Tw;

// The preview stands this far inside its frame, and the frame reaches as far past it.
constexpr double kFrameMargin = 120;
constexpr int kThickest = 10;
constexpr int kThinnest = 1;
// The saving buttons, in the order of Output.
const SaveKind kSaveKinds[] = {
    {"Save graph as PNG picture...", "PNG File (*.png) |*.png|All Files (*.*)|*.*", "Overwrite - [Msg-0003]", 1,
     "Error - Err-[0001]", "Unknown Error - Err-[0002]", "png"},
    {"Save graph as JPG picture...", "JPG File (*.jpg) |*.jpg|All Files (*.*)|*.*", "Overwrite - [Msg-0004]", 2,
     "Err-[0003]", "Err-[0004]", "jpg"},
    {"Save graph as Bitmap picture...", "Bitmap File (*.bmp) |*.bmp|All Files (*.*)|*.*", "Overwrite - [Msg-0002]", 3,
     "Error - Err-[0005]", "Unknown Error - Err-[0006]", "bmp"},
    {"Save graph as SVG picture...", "SVG File (*.svg) |*.svg|All Files (*.*)|*.*", "Overwrite - [Msg-0021]", 0,
     "Error - Err-[0021]", "Unknown Error - Err-[0022]", "svg"},
    {"Save graph as PDF document...", "PDF File (*.pdf) |*.pdf|All Files (*.*)|*.*", "Overwrite - [Msg-0022]", 0,
     "Error - Err-[0023]", "Unknown Error - Err-[0024]", "pdf"},
};

QLabel* Heading(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(QStringLiteral("lblHeading"));
  QFont font = label->font();
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  return label;
}

QFrame* Card(const char* name, QWidget* parent) {
  auto* card = new QFrame(parent);
  card->setObjectName(QString::fromLatin1(name));
  card->setProperty("exportCard", true);
  return card;
}

}  // namespace

// One side of the size: its field, its unit, and what is said when it is too long.
struct pageSaveAsPicture::Side {
  QLineEdit* Field;
  QComboBox* Unit;
  bool Width;
  const char* Message;
  const char* Title;
};

double pageSaveAsPicture::ChangeScale(const QString& value, const QString& target) {
  return output::ChangeScale(value, target);
}

pageSaveAsPicture::pageSaveAsPicture(const plot2d::PlotWidget& mainPlot, std::function<int()> selectedTab,
                                     Replot replot, platform::MessageBoxes& boxes, platform::FileDialogs& files,
                                     platform::Desktop& desktop, QWidget* parent)
    : QWidget(parent), m_main(mainPlot), m_selectedTab(std::move(selectedTab)), m_replot(std::move(replot)),
      m_boxes(boxes), m_files(files), m_desktop(desktop) {
  setObjectName(QStringLiteral("pageSaveAsPicture"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(20);
  auto* previewColumn = new QWidget(this);
  BuildPreview(previewColumn);
  row->addWidget(previewColumn, 1);
  m_backSep1 = new QFrame(this);
  m_backSep1->setObjectName(QStringLiteral("backSep1"));
  m_backSep1->setFrameShape(QFrame::VLine);
  m_backSep1->setFixedWidth(1);
  // As tall as the preview, or as the page where the preview is taller, from the top.
  auto* rule = new QVBoxLayout;
  rule->addWidget(m_backSep1, 1);
  rule->addStretch(0);
  row->addLayout(rule);
  row->addWidget(BuildSettings(), 0);
  Form_Load();
}

void pageSaveAsPicture::BuildPreview(QWidget* column) {
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(8);
  m_rszPreview = new QScrollArea(column);
  m_rszPreview->setObjectName(QStringLiteral("rszPreview"));
  m_rszPreview->setWidgetResizable(true);
  m_rszPreview->setFrameShape(QFrame::NoFrame);
  // The canvas fills the view; the frame stands in its middle, and past the view's edges the
  // canvas scrolls.
  auto* canvas = new QWidget;
  canvas->setObjectName(QStringLiteral("picCanvas"));
  auto* centre = new QGridLayout(canvas);
  centre->setContentsMargins(16, 16, 16, 16);
  m_grpPreview = new QFrame(canvas);
  m_grpPreview->setObjectName(QStringLiteral("grpPreview"));
  centre->addWidget(m_grpPreview, 0, 0, Qt::AlignCenter);
  m_rszPreview->setWidget(canvas);
  m_plot = new plot2d::PlotWidget(m_grpPreview);
  m_plot->setObjectName(QStringLiteral("Plot"));
  m_plot->CopyText = [this](const QString& text) { m_desktop.SetClipboardText(text); };
  m_plot3d = new plot3d::Plot3DWidget(m_grpPreview);
  m_plot3d->setObjectName(QStringLiteral("Plot3D"));
  m_plot3d->hide();
  layout->addWidget(m_rszPreview, 1);

  auto* under = new QHBoxLayout;
  under->setSpacing(12);
  m_lblSize = new QLabel(column);
  m_lblSize->setObjectName(QStringLiteral("lblSize"));
  m_lblSize->setProperty("hint", true);
  under->addWidget(m_lblSize, 1);
  m_pb = new QProgressBar(column);
  m_pb->setObjectName(QStringLiteral("PB"));
  m_pb->setRange(0, 100);
  m_pb->setValue(0);
  m_pb->setTextVisible(false);
  m_pb->setFixedSize(160, 8);
  under->addWidget(m_pb, 0, Qt::AlignVCenter);
  layout->addLayout(under);

  // The bar shows while a drawing is on its way, and keeps its place when it goes.
  QSizePolicy keep = m_pb->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  m_pb->setSizePolicy(keep);
  m_pb->hide();
  const auto progress = [this](int value) {
    m_pb->setValue(value);
    m_pb->setVisible(value < 100);
  };
  connect(m_plot, &plot2d::PlotWidget::Progress, this, progress);
  connect(m_plot3d, &plot3d::Plot3DWidget::Progress, this, progress);
  connect(m_plot, &plot2d::PlotWidget::Finished, m_pb, &QProgressBar::hide);
  connect(m_plot3d, &plot3d::Plot3DWidget::Finished, m_pb, &QProgressBar::hide);
}

QWidget* pageSaveAsPicture::BuildSettings() {
  auto* scroll = new QScrollArea(this);
  scroll->setObjectName(QStringLiteral("rszSettings"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* content = new QWidget;
  content->setObjectName(QStringLiteral("picSettings"));
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(12);
  column->addWidget(BuildSize());
  column->addWidget(BuildOptions());
  column->addWidget(BuildSaving());
  column->addStretch(1);
  scroll->setWidget(content);
  scroll->setFixedWidth(360);
  return scroll;
}

QWidget* pageSaveAsPicture::BuildSize() {
  QFrame* card = Card("grpSize", this);
  auto* grid = new QGridLayout(card);
  grid->setContentsMargins(14, 10, 14, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  grid->addWidget(Heading(tr("Picture size"), card), 0, 0, 1, 4);
  const auto side = [&](int at, const QString& caption, const char* field, const char* unit) {
    auto* label = new QLabel(caption, card);
    auto* edit = new QLineEdit(card);
    edit->setObjectName(QString::fromLatin1(field));
    auto* units = new QComboBox(card);
    units->setObjectName(QString::fromLatin1(unit));
    units->setMinimumWidth(76);
    label->setBuddy(edit);
    grid->addWidget(label, at, 0);
    grid->addWidget(edit, at, 1);
    grid->addWidget(units, at, 2);
    connect(edit, &QLineEdit::returnPressed, this, &pageSaveAsPicture::btnOK_Click);
    return std::pair{edit, units};
  };
  std::tie(m_txtWidth, m_cmbScaleWidth) = side(1, tr("&Width"), "txtWidth", "cmbScaleWidth");
  std::tie(m_txtHeight, m_cmbScaleHeight) = side(2, tr("&Height"), "txtHeight", "cmbScaleHeight");
  m_btnOK = new QPushButton(QStringLiteral("OK"), card);
  m_btnOK->setObjectName(QStringLiteral("btnOK"));
  m_btnOK->setToolTip(tr("Apply the width and the height to the preview"));
  m_btnOK->setMinimumWidth(56);
  grid->addWidget(m_btnOK, 2, 3);
  grid->setColumnStretch(1, 1);
  connect(m_btnOK, &QPushButton::clicked, this, &pageSaveAsPicture::btnOK_Click);
  connect(m_cmbScaleWidth, &QComboBox::currentIndexChanged, this, &pageSaveAsPicture::cmbScaleWidth_Click);
  connect(m_cmbScaleHeight, &QComboBox::currentIndexChanged, this, &pageSaveAsPicture::cmbScaleHeight_Click);
  return card;
}

QFrame* pageSaveAsPicture::BuildOptions() {
  m_grpOptions = Card("grpOptions", this);
  auto* grid = new QGridLayout(m_grpOptions);
  grid->setContentsMargins(14, 10, 14, 12);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(6);
  grid->addWidget(Heading(tr("Display"), m_grpOptions), 0, 0, 1, 2);
  const auto box = [&](const char* name, const QString& caption, int at, void (plot2d::Plot::*set)(bool)) {
    auto* check = new QCheckBox(caption, m_grpOptions);
    check->setObjectName(QString::fromLatin1(name));
    grid->addWidget(check, 1 + at / 2, at % 2);
    connect(check, &QCheckBox::clicked, this, [this, check, set] { OptionClicked(check, set); });
    return check;
  };
  m_chkShowAxis = box("chkShowAxis", QStringLiteral("Show &Axis"), 0, &plot2d::Plot::SetShowAxis);
  m_chkShowGrid = box("chkShowGrid", QStringLiteral("Show &Gridlines"), 1, &plot2d::Plot::SetShowGrid);
  m_chkShowNumbers = box("chkShowNumbers", QStringLiteral("Show &Numbers"), 2, &plot2d::Plot::SetShowNumbers);
  m_chkOuterFrame = box("chkOuterFrame", QStringLiteral("Show &Outerframe"), 3, &plot2d::Plot::SetShowOuterFrame);
  m_chkTransparent = box("chkTransparent", QStringLiteral("&Transparent Background"), 4,
                         &plot2d::Plot::SetTransparentBackground);
  m_btnShowTips = box("btnShowTips", QStringLiteral("Show Ti&ps"), 5, &plot2d::Plot::SetShowTips);

  auto* thickness = new QHBoxLayout;
  thickness->setSpacing(0);
  auto* label = new QLabel(QStringLiteral("Line Thickness:"), m_grpOptions);
  label->setObjectName(QStringLiteral("lblThick"));
  m_txtThick = new QLineEdit(m_grpOptions);
  m_txtThick->setObjectName(QStringLiteral("txtThick"));
  m_txtThick->setFixedWidth(48);
  m_txtThick->setAlignment(Qt::AlignCenter);
  label->setBuddy(m_txtThick);
  m_updownTick = new QWidget(m_grpOptions);
  m_updownTick->setObjectName(QStringLiteral("updownTick"));
  auto* arrows = new QVBoxLayout(m_updownTick);
  arrows->setContentsMargins(2, 0, 0, 0);
  arrows->setSpacing(1);
  const auto arrow = [&](const char* name, Qt::ArrowType type, const QString& tip) {
    auto* button = new QToolButton(m_updownTick);
    button->setObjectName(QString::fromLatin1(name));
    button->setArrowType(type);
    button->setToolTip(tip);
    button->setAutoRepeat(true);
    button->setFixedSize(22, 13);
    arrows->addWidget(button);
    return button;
  };
  m_tickUp = arrow("btnTickUp", Qt::UpArrow, tr("Thicker"));
  m_tickDown = arrow("btnTickDown", Qt::DownArrow, tr("Thinner"));
  thickness->addWidget(label);
  thickness->addSpacing(10);
  thickness->addWidget(m_txtThick);
  thickness->addWidget(m_updownTick);
  thickness->addStretch(1);
  m_btnReplot = new QPushButton(QStringLiteral("Replot"), m_grpOptions);
  m_btnReplot->setObjectName(QStringLiteral("btnReplot"));
  m_btnReplot->setToolTip(tr("Draw the preview again"));
  m_btnReplot->setMinimumWidth(84);
  thickness->addWidget(m_btnReplot);
  grid->addLayout(thickness, 4, 0, 1, 2);

  connect(m_tickUp, &QToolButton::clicked, this, &pageSaveAsPicture::updownTick_UpClick);
  connect(m_tickDown, &QToolButton::clicked, this, &pageSaveAsPicture::updownTick_DownClick);
  m_txtThick->installEventFilter(this);  // the keyboard's arrows step it as the buttons do
  connect(m_txtThick, &QLineEdit::textEdited, this, &pageSaveAsPicture::txtThick_Change);
  connect(m_btnReplot, &QPushButton::clicked, this, &pageSaveAsPicture::btnReplot_Click);
  return m_grpOptions;
}

QWidget* pageSaveAsPicture::BuildSaving() {
  QWidget* group = new QWidget(this);
  group->setObjectName(QStringLiteral("grpSave"));
  auto* column = new QVBoxLayout(group);
  column->setContentsMargins(0, 2, 0, 0);
  column->setSpacing(5);
  column->addWidget(Heading(tr("Save the picture"), group));
  const auto button = [&](const char* name, const QString& caption, const QString& description, const QIcon& icon) {
    auto* made = new CaptionButton(caption, description, icon, group);
    made->setObjectName(QString::fromLatin1(name));
    column->addWidget(made);
    return made;
  };
  m_btnPNG = button("btnPNG", QStringLiteral("Save as PNG"), QStringLiteral("High quality format with transparency"),
                    FileBadgeIcon(QStringLiteral("PNG"), QColor(0x25, 0x63, 0xeb)));
  m_btnJpg = button("btnJpg", QStringLiteral("Save as Jpg"), QStringLiteral("To publish it on internet"),
                    FileBadgeIcon(QStringLiteral("JPG"), QColor(0xd9, 0x77, 0x06)));
  m_btnBMP = button("btnBMP", QStringLiteral("Save as BMP"), QStringLiteral("Large size bitmap format"),
                    FileBadgeIcon(QStringLiteral("BMP"), QColor(0x0d, 0x94, 0x88)));
  m_btnSVG = button("btnSVG", tr("Save as SVG"), tr("Vector drawing, sharp at any size"),
                    FileBadgeIcon(QStringLiteral("SVG"), QColor(0x7c, 0x3a, 0xed)));
  m_btnPDF = button("btnPDF", tr("Save as PDF"), tr("A page of the picture's size, to print"),
                    FileBadgeIcon(QStringLiteral("PDF"), QColor(0xdc, 0x26, 0x26)));
  m_btnCopy = button("btnCopy", tr("Copy picture"), tr("To paste it into another program"),
                     ClipboardIcon(QColor(0x47, 0x55, 0x69)));
  m_lblStatus = new QLabel(group);
  m_lblStatus->setObjectName(QStringLiteral("lblStatus"));
  m_lblStatus->setProperty("hint", true);
  m_lblStatus->setWordWrap(true);
  column->addWidget(m_lblStatus);
  connect(m_btnPNG, &QPushButton::clicked, this, [this] { Save(Output::Png); });
  connect(m_btnJpg, &QPushButton::clicked, this, [this] { Save(Output::Jpg); });
  connect(m_btnBMP, &QPushButton::clicked, this, [this] { Save(Output::Bmp); });
  connect(m_btnSVG, &QPushButton::clicked, this, [this] { Save(Output::Svg); });
  connect(m_btnPDF, &QPushButton::clicked, this, [this] { Save(Output::Pdf); });
  connect(m_btnCopy, &QPushButton::clicked, this, &pageSaveAsPicture::CopyPicture);
  return group;
}

// Once, when the page is made: the units, the preview at the main plot's size, the fields in
// pixels, the display settings and the boxes.
void pageSaveAsPicture::Form_Load() {
  for (QComboBox* units : {m_cmbScaleWidth, m_cmbScaleHeight}) {
    units->addItems({QStringLiteral("cm"), QStringLiteral("pixle"), QStringLiteral("inch")});
    units->setCurrentIndex(units->findText(QStringLiteral("cm")));
  }
  m_plot3d->Prepare3D();
  m_size = m_main.size();
  FitFrame();
  if (!m_plot3d->isHidden()) m_plot3d->Refresh();
  m_txtWidth->setText(FormatNumber(Tw(m_main.width()) / kTwipsPerCm));
  m_txtHeight->setText(FormatNumber(Tw(m_main.height()) / kTwipsPerCm));
  m_cmbScaleWidth->setCurrentIndex(m_cmbScaleWidth->findText(QStringLiteral("pixle")));
  m_cmbScaleHeight->setCurrentIndex(m_cmbScaleHeight->findText(QStringLiteral("pixle")));
  const plot2d::Plot& main = m_main.Scene();
  plot2d::Plot& preview = m_plot->Scene();
  preview.SetShowAxis(main.ShowAxis());
  preview.SetShowTips(main.ShowTips());
  preview.SetShowGrid(main.ShowGrid());
  preview.SetShowNumbers(main.ShowNumbers());
  preview.SetShowOuterFrame(main.ShowOuterFrame());
  preview.SetTransparentBackground(main.TransparentBackground());
  preview.SetThickness(main.Thickness());
  m_txtThick->setText(FormatNumber(preview.Thickness()));
  SetBoxesFromMainPlot();
  m_untouchedWidth = m_txtWidth->text();
  m_untouchedHeight = m_txtHeight->text();
}

// The boxes show the main plot's settings; the outer frame's box shows its axis setting, as it
// always has.
void pageSaveAsPicture::SetBoxesFromMainPlot() {
  const plot2d::Plot& main = m_main.Scene();
  m_chkShowAxis->setChecked(main.ShowAxis());
  m_btnShowTips->setChecked(main.ShowTips());
  m_chkShowGrid->setChecked(main.ShowGrid());
  m_chkShowNumbers->setChecked(main.ShowNumbers());
  m_chkOuterFrame->setChecked(main.ShowAxis());
  m_chkTransparent->setChecked(main.TransparentBackground());
}

void pageSaveAsPicture::StartUp() {
  QCoreApplication::processEvents();
  plot2d::Plot& preview = m_plot->Scene();
  const plot2d::Plot& main = m_main.Scene();
  // Cheap while the preview changes its size; the replot at the end is at full quality.
  preview.SetQuality(1);
  m_size = m_main.size();
  preview.SetXMax(main.XMax());
  preview.SetXMin(main.XMin());
  preview.SetYMax(main.YMax());
  preview.SetYMin(main.YMin());
  // A circle that is round on the screen is round in the picture, whatever its proportions.
  preview.SetEqualScales(main.EqualScales());
  // The picture has the plot's colours as the window shows them.
  preview.SetAxisColor(main.AxisColor());
  preview.SetBackColor(main.BackColor());
  const bool surface = m_selectedTab && m_selectedTab() == 3;
  m_plot3d->setVisible(surface);
  m_plot->setVisible(!surface);
  m_grpOptions->setVisible(!surface);
  SetBoxesFromMainPlot();
  // The line thickness of the window, until one is chosen here.
  if (!m_thicknessChosen && !m_thicknessTyped) {
    preview.SetThickness(main.Thickness());
    m_txtThick->setText(FormatNumber(preview.Thickness()));
  }
  FollowMainPlotSize();
  btnOK_Click();
  FitFrame();
  preview.SetQuality(100);
  m_backSep1->setMaximumHeight(m_size.height());
  RunReplot();
}

// Until a size is chosen the fields follow the main plot: the page is made before the window has
// its size, and the window may have changed its size since. A field typed in, or a unit changed,
// is a choice, and from then on the fields hold.
void pageSaveAsPicture::FollowMainPlotSize() {
  if (m_sizeChosen) return;
  const bool untouched = m_txtWidth->text() == m_untouchedWidth && m_txtHeight->text() == m_untouchedHeight &&
                         m_cmbScaleWidth->currentText() == QStringLiteral("pixle") &&
                         m_cmbScaleHeight->currentText() == QStringLiteral("pixle");
  if (!untouched) {
    m_sizeChosen = true;
    return;
  }
  m_untouchedWidth = QString::number(m_main.width());
  m_untouchedHeight = QString::number(m_main.height());
  m_txtWidth->setText(m_untouchedWidth);
  m_txtHeight->setText(m_untouchedHeight);
}

double pageSaveAsPicture::PlotWidth() const { return Tw(m_size.width()); }
double pageSaveAsPicture::PlotHeight() const { return Tw(m_size.height()); }

// A new unit shows the preview's actual size in it: what was typed and not applied is lost.
void pageSaveAsPicture::cmbScaleWidth_Click() {
  m_txtWidth->setText(FormatNumber(ChangeScale(FormatNumber(PlotWidth()) + QStringLiteral("twip"), m_cmbScaleWidth->currentText())));
}

void pageSaveAsPicture::cmbScaleHeight_Click() {
  m_txtHeight->setText(FormatNumber(ChangeScale(FormatNumber(PlotHeight()) + QStringLiteral("twip"), m_cmbScaleHeight->currentText())));
}

void pageSaveAsPicture::btnOK_Click() {
  ApplySide({m_txtWidth, m_cmbScaleWidth, true, "The Largest Width Length is: 50 cm", "Msg - [0002]"});
  ApplySide({m_txtHeight, m_cmbScaleHeight, false, "The Largest Height Length is: 50 cm", "Msg - [0001]"});
  FitFrame();
}

// A side is taken in whole pixels. A field that comes to no size (0, a word, a negative number,
// less than half a pixel) leaves the side as it is; one past the largest is told, and then the
// side and the field, in its own unit, are set to the largest.
void pageSaveAsPicture::ApplySide(const Side& side) {
  const QString unit = side.Unit->currentText();
  if (NumericPrefix(side.Field->text()) == 0) return;
  // The field's whole text with the unit behind it: a unit typed into the field is read too.
  const double twips = ChangeScale(side.Field->text() + unit, QStringLiteral("twip"));
  if (!(twips > 0)) return;
  int pixels = kLargestPixels;
  if (twips < Tw(kLargestPixels) + kTwipsPerPixle / 2) {
    pixels = Px(twips);
    if (pixels <= 0) return;
  } else {
    m_boxes.Show(QString::fromLatin1(side.Message), Box::Buttons::Ok, Box::Icon::Exclamation,
                 QString::fromLatin1(side.Title));
    side.Field->setText(FormatNumber(ChangeScale(FormatNumber(kLargestSide) + QStringLiteral("twip"), unit)));
  }
  side.Width ? m_size.setWidth(pixels) : m_size.setHeight(pixels);
}

// The preview at its size inside the frame, the frame around it, and the surface over the plot.
void pageSaveAsPicture::FitFrame() {
  const int inset = Px(kFrameMargin);
  const QRect area(QPoint(inset, inset), m_size);
  m_plot->setGeometry(area);
  m_grpPreview->setFixedSize(inset + m_size.width() + Px(kFrameMargin), inset + m_size.height() + Px(kFrameMargin));
  if (!m_plot3d->isHidden()) {
    // A surface shown now is drawn at its new size by its resize; one not shown is drawn here.
    const bool resizes = m_plot3d->geometry() != area && m_plot3d->isVisible();
    m_plot3d->setGeometry(area);
    if (!resizes) m_plot3d->Refresh();
  }
  m_lblSize->setText(QStringLiteral("%1 \u00d7 %2 pixels  \u00b7  %3 \u00d7 %4 cm")
                         .arg(m_size.width())
                         .arg(m_size.height())
                         .arg(PlotWidth() / kTwipsPerCm, 0, 'f', 1)
                         .arg(PlotHeight() / kTwipsPerCm, 0, 'f', 1));
}

void pageSaveAsPicture::RunReplot() {
  if (!m_replot) return;
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(m_plot->Scene(), [this] { m_plot->Redraw(); });
  plotcompiler::ScenePlot3DControl<plot3d::Plot3D> plot3d(m_plot3d->Scene(), [this] { m_plot3d->Redraw(); });
  m_replot(plot, &plot3d);
}

// The options hold for this picture alone: the main plot isn't touched.
void pageSaveAsPicture::OptionClicked(QCheckBox* box, void (plot2d::Plot::*set)(bool)) {
  (m_plot->Scene().*set)(box->isChecked());
  m_plot->Redraw();
}

void pageSaveAsPicture::btnReplot_Click() { m_plot->Redraw(); }

void pageSaveAsPicture::ThicknessFromField() {
  core::TryStep([this] { m_plot->Scene().SetThickness(core::RoundToInt16(NumericPrefix(m_txtThick->text()))); });
  m_plot->Redraw();
}

void pageSaveAsPicture::updownTick_UpClick() {
  m_thicknessChosen = true;
  const double value = NumericPrefix(m_txtThick->text());
  if (value < kThickest) m_txtThick->setText(FormatNumber(value + 1));
  ThicknessFromField();
}

void pageSaveAsPicture::updownTick_DownClick() {
  m_thicknessChosen = true;
  const double value = NumericPrefix(m_txtThick->text());
  if (value > kThinnest) m_txtThick->setText(FormatNumber(value - 1));
  ThicknessFromField();
}

// A typed thickness is rewritten to its number, and one outside 1 to 10 gives way to the
// preview's; only the arrows hand the number to the preview.
void pageSaveAsPicture::txtThick_Change() {
  const double value = NumericPrefix(m_txtThick->text());
  m_thicknessTyped = value <= kThickest && value >= kThinnest;
  const QString number = m_thicknessTyped ? FormatNumber(value) : FormatNumber(m_plot->Scene().Thickness());
  if (number != m_txtThick->text()) m_txtThick->setText(number);
  m_plot->Redraw();
}

bool pageSaveAsPicture::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_txtThick && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up) return updownTick_UpClick(), true;
    if (key == Qt::Key_Down) return updownTick_DownClick(), true;
  }
  return QWidget::eventFilter(watched, event);
}

void pageSaveAsPicture::WaitForSurface() {
  while (m_plot3d->Computing()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::ExcludeUserInputEvents);
  }
}

void pageSaveAsPicture::Save(Output output) {
  m_lblStatus->clear();
  const SaveKind& kind = kSaveKinds[static_cast<int>(output)];
  const QString saved = SaveThroughDialog(m_files, m_boxes, kind, [&](const QString& name) { Write(output, name); });
  if (!saved.isEmpty()) m_lblStatus->setText(tr("Saved as %1").arg(QDir::toNativeSeparators(saved)));
}

// What the preview shows, at its size: the plot when it is shown, else the surface.
void pageSaveAsPicture::Write(Output output, const QString& name) {
  const std::int32_t kind = kSaveKinds[static_cast<int>(output)].Kind;
  if (PreviewIs2D()) {
    plot2d::Plot& scene = m_plot->Scene();
    // Drawn for the widget's size, should the widget have changed it unseen.
    if (scene.Size() != m_plot->size().expandedTo(QSize(1, 1))) m_plot->Redraw();
    if (output == Output::Svg) return WriteSvg(scene, name);
    if (output == Output::Pdf) return WritePdf(scene, name);
    return scene.SavePicture(name, kind);
  }
  WaitForSurface();
  plot3d::Plot3D& surface = m_plot3d->Scene();
  if (output == Output::Svg) return WriteSvg(surface, name);
  if (output == Output::Pdf) return WritePdf(surface, name);
  surface.SavePicture(name, kind);
}

void pageSaveAsPicture::CopyPicture() {
  QImage picture;
  if (PreviewIs2D()) {
    if (m_plot->Scene().Size() != m_plot->size().expandedTo(QSize(1, 1))) m_plot->Redraw();
    picture = FlatPicture(m_plot->Scene());
  } else {
    WaitForSurface();
    picture = FlatPicture(m_plot3d->Scene());
  }
  m_desktop.SetClipboardImage(picture);
  m_lblStatus->setText(tr("The picture is on the clipboard."));
}

}  // namespace output
