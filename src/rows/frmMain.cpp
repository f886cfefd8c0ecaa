#include "frmMain.h"

#include "AutoReplot.h"
#include "CommandDispatch.h"
#include "FileCommands.h"
#include "FormInsertTarget.h"
#include "FormProject.h"
#include "FormReplotHost.h"
#include "FormHistory.h"
#include "FunctionList.h"
#include "InputTabs.h"
#include "PlotDescription.h"
#include "RowCommands.h"
#include "RowDialogs.h"

#include "output/RichTextPage.h"
#include "output/pageSaveAsPicture.h"
#include "output/pageInfo.h"
#include "RowMenu.h"
#include "ThemeSwitch.h"
#include "UndoCommands.h"

#include "core/NumberText.h"
#include "help/HelpWindow.h"
#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "core/Twips.h"
#include "interaction/PlotButtons.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "platform/DataFolder.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "plotcompiler/PlotControl.h"
#include "plotcompiler/ReplotInputs.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"
#include "ribbon/Backstage.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"

#include <QApplication>
#include <QTextDocument>
#include <QToolButton>

#include <cmath>
#include <QCloseEvent>
#include <QFileInfo>

#include <utility>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTabBar>

namespace rows {

using core::Px;
using core::Tw;

namespace {

// The form's lengths, in twips.
constexpr double kPlotLeft = 7200;
constexpr double kPlot3DLeft = 6870;
constexpr double kPlotRightMargin = 60;
constexpr double kPlotBottomMargin = 90;
constexpr double kTabBottomMargin = 60;
constexpr double kTabLeft = 60;
constexpr double kRangeWidth = 3210;

const QString kSettings = QStringLiteral("Settings");
constexpr std::int32_t kEqualScales = 1200;  // the View tab's "Equal scales" check

}  // namespace

frmMain::frmMain(core::SharedState& state, const MainServices& services, QWidget* parent)
    : QMainWindow(parent), m_state(state), m_services(services), m_evaluation(state, m_sc) {
  setObjectName(QStringLiteral("frmMain"));
  auto* central = new QWidget(this);
  setCentralWidget(central);
  m_ribbonHost = new QWidget(central);
  m_ribbonHost->setObjectName(QStringLiteral("RibbonHost"));
  m_ribbon = new ribbon::RibbonBar(m_commandBars, m_services.Colors, m_ribbonHost);
  m_rszControls = new QWidget(central);
  m_rszControls->setObjectName(QStringLiteral("rszControls"));

  m_tabs = new InputTabs(m_state, m_evaluation, m_services.Boxes, m_services.Colors, m_rszControls);
  m_plot = new plot2d::PlotWidget(m_rszControls);
  m_plot->setObjectName(QStringLiteral("Plot"));
  m_plot3d = new plot3d::Plot3DWidget(m_rszControls);
  m_plot3d->setObjectName(QStringLiteral("Plot3D"));
  m_plot->setAccessibleName(tr("Plot"));
  m_plot3d->setAccessibleName(tr("3D plot"));
  m_plot3d->hide();
  m_buttons = new interaction::PlotButtons(*m_rszControls, *m_plot, *m_plot3d);
  m_panes = new interaction::StatusPanes(*statusBar(), m_plot->Scene());

  m_replotHost = std::make_unique<FormReplotHost>(*this);
  m_replotDriver = std::make_unique<plotcompiler::ReplotDriver>(m_state, m_evaluation, *m_replotHost);
  m_insertTarget = std::make_unique<FormInsertTarget>(*this);
  m_project = std::make_unique<FormProject>(*this);
  m_files = std::make_unique<FileCommands>(
      m_state, m_services.Boxes, m_services.Files, [this](const QString& path) { return SaveProject(path); },
      [this](const QString& path) { return LoadProject(path); });
  m_files->RefreshChanged = [this] { RefreshProjectChanged(); };
  m_historyTarget = std::make_unique<FormHistory>(*m_project, Functions(), m_state, m_services.Boxes, [this] { AfterRead(); });
  m_undo = new UndoCommands(*m_historyTarget, m_ribbon->QuickAccess(), *this, [this] {
    if (!m_reading) RefreshProjectChanged();
  });
  m_rowMenu = std::make_unique<RowMenu>(m_commandBars, Functions());
  m_rowCommands = std::make_unique<RowCommands>(Functions(), *m_rowMenu, m_services.Colors, m_services.Desktop);
  m_dispatch = std::make_unique<CommandDispatch>(*this, m_services, *m_rowCommands);
  m_theme = std::make_unique<ThemeSwitch>(m_commandBars, m_services.Settings, m_services.Desktop, m_plot->Scene(),
                                          m_plot3d->Scene());
  m_theme->Redraw = [this] {
    m_plot->Redraw();
    m_plot3d->Refresh();
  };
  m_rowDialogs = std::make_unique<RowDialogs>(Functions(), m_state, m_evaluation, m_services.Boxes, this);
  WireParts();

  setMinimumSize(900, 560);
  resize(1280, 800);
  Form_Load();
  m_autoReplot->Drawn();
}

frmMain::~frmMain() {
  // The history follows the focus, which moves as the widgets go: it goes first.
  delete std::exchange(m_undo, nullptr);
  if (m_insert) disconnect(m_insert, nullptr, this, nullptr);  // no focus to hand back while the window goes
  m_rowDialogs->CloseAll();
  for (QWidget* popup : {static_cast<QWidget*>(m_insert.data()), static_cast<QWidget*>(m_range.data()),
                         static_cast<QWidget*>(m_fullScreen.data()), static_cast<QWidget*>(m_contact.data())}) {
    delete popup;
  }
  // The widgets go before the script engine and the driver that their handlers use.
  delete m_panes;
  delete takeCentralWidget();
}

// A change may come from anywhere the writer reads: rows, pages, the plot's view, the ribbon.
// Each of those paths ends in an input event or one of these signals, and the comparison runs once
// after them, when the change is complete.
void frmMain::WatchChanges() {
  m_changeCheck.setSingleShot(true);
  m_changeCheck.setInterval(0);
  connect(&m_changeCheck, &QTimer::timeout, this, &frmMain::RefreshProjectChanged);
  connect(&Functions(), &FunctionList::Changed, this, &frmMain::ProjectChanged);
  connect(this, &frmMain::Replotted, this, &frmMain::CheckChanged);
  // What a screen reader hears of the plot follows what it shows, and ends with the keys it takes.
  const auto describe = [this] {
    m_plot->setAccessibleDescription(PlotDescription::Of(Functions(), m_state, m_plot->Scene()) + u' ' +
                                     plot2d::PlotWidget::KeyHelp());
  };
  connect(this, &frmMain::Replotted, this, describe);
  connect(m_plot, &plot2d::PlotWidget::SettingsChanged, this, describe);
  connect(m_plot, &plot2d::PlotWidget::SettingsChanged, this, &frmMain::CheckChanged);
  connect(&m_commandBars, &ribbon::CommandBars::Executed, this, &frmMain::CheckChanged);
  connect(m_panes, &interaction::StatusPanes::SliderChanged, this, &frmMain::CheckChanged);
  // What is drawn follows what was typed or chosen, with no Replot click.
  m_autoReplot = new AutoReplot(
      [this] {
        const plot2d::Plot& scene = m_plot->Scene();
        return plotcompiler::ReplotInputs(*m_replotHost) + u'|' + QString::number(scene.Quality()) + u'|' +
               QString::number(scene.Thickness());
      },
      [this] {
        if (m_tabs->FieldsReadable()) Replot(true);
      },
      this);
  connect(this, &frmMain::Replotted, m_autoReplot, &AutoReplot::Drawn);
  qApp->installEventFilter(this);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: m_typed = true; break;
    case QEvent::MouseButtonPress:
      m_typed = false;
      // A click begins another action, and so another step.
      if (m_undo) m_undo->Seal();
      break;
    default: break;
  }
  switch (event->type()) {
    case QEvent::MouseButtonRelease:
    case QEvent::KeyRelease:
    case QEvent::Wheel: CheckChanged(); break;
    default: break;
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmMain::WireParts() {
  connect(m_tabs, &InputTabs::ReplotRequested, this, [this](bool with3D) { Replot(with3D); });
  connect(m_tabs, &InputTabs::Changed, this, &frmMain::ProjectChanged);
  connect(m_tabs, &InputTabs::InsertRequested, this, &frmMain::ShowInsert);
  connect(m_tabs, &InputTabs::ZoomApplied, this, &frmMain::ApplyZoom);
  connect(m_tabs, &QTabWidget::currentChanged, this, &frmMain::tabInput_Click);
  connect(&Functions(), &FunctionList::CloseInsertRequested, this, &frmMain::CloseInsert);
  connect(&Functions(), &FunctionList::RowsRenumbered, this,
          [this](const QList<int>& newIndexOfOld) { m_rowDialogs->RowsRenumbered(newIndexOfOld); });
  connect(m_panes, &interaction::StatusPanes::SliderChanged, this, &frmMain::MirrorSliders);
  connect(m_panes, &interaction::StatusPanes::SliderChanged, this, &frmMain::SaveSliderSettings);
  connect(m_panes, &interaction::StatusPanes::ReplotClicked, this, [this] {
    Replot(true);
    if (m_tabs->currentIndex() == 3) {
      m_buttons->PB_3D()->show();
      return;
    }
    for (int t = 0; t < m_ribbon->TabCount(); ++t) {
      if (m_ribbon->TabControl(t)->Id() == 1065) m_ribbon->SelectTab(t);
    }
  });
  connect(m_plot, &plot2d::PlotWidget::Ready, this, [this] { m_tabs->tabBar()->setEnabled(true); });
  connect(m_plot, &plot2d::PlotWidget::SettingsChanged, this, [this] { MirrorPlot(true); });
  connect(m_buttons, &interaction::PlotButtons::FullScreenRequested, this, &frmMain::ShowFullScreen);
  connect(m_buttons, &interaction::PlotButtons::SettingRequested, this, [this] {
    QWidget* central = centralWidget();
    const QToolButton* setting = m_buttons->btnSetting();
    const int left = Px(Tw(central->width()) - kRangeWidth - Tw(setting->width()) - 180);
    const int top = m_rszControls->y() + setting->y();
    ShowRange(m_tabs->currentIndex() == 3 ? QStringLiteral("3D Range") : QStringLiteral("Plot Range"),
              central->mapToGlobal(QPoint(left, top)));
  });
  m_buttons->GiveFocusAway = [this] {
    if (m_tabs->currentIndex() == 0) Functions().cmdAddFunction()->setFocus();
  };
  m_replotHost->OnFullScreen = [this] { ShowFullScreen(); };
  connect(&m_commandBars, &ribbon::CommandBars::Executed, this, &frmMain::CommandBars_Execute);
  connect(m_ribbon, &ribbon::RibbonBar::CollapsedChanged, this, [this] { Form_Resize(); });
  connect(&Functions(), &FunctionList::MoreRequested, this, [this](int i) {
    const QToolButton* more = Functions().Row(i).btnMore;
    m_rowMenu->btnMore_Click(i, more->mapToGlobal(QPoint(0, more->height())));
  });
  connect(&Functions(), &FunctionList::NoteMenuRequested, this,
          [this](int i, QPoint at) { m_rowMenu->ShowNoteMenu(i, at); });
  m_rowCommands->Replot = [this] { Replot(false); };
  m_rowCommands->ProjectChanged = [this] { ProjectChanged(); };
  m_rowCommands->MoveTo = [this](int i) { m_rowDialogs->ShowMoveTo(i); };
  m_rowCommands->PointsOf = [this](int i) { m_rowDialogs->ShowPoints(i); };
  m_rowDialogs->ProjectChanged = [this] { ProjectChanged(); };
  m_dispatch->ShowContact = [this] { ShowContact(); };
  m_dispatch->ShowHelp = [this](const QString& page) { ShowHelp(page); };
  m_dispatch->ControlPlace = [this](std::int32_t id) {
    const QWidget* view = m_ribbon->WidgetFor(id);
    return view ? view->mapToGlobal(QPoint(0, 0)) : mapToGlobal(QPoint(0, 0));
  };
  WatchChanges();
  m_resizeSettled.setSingleShot(true);
  m_resizeSettled.setInterval(200);
  connect(&m_resizeSettled, &QTimer::timeout, this, [this] {
    if (m_plot->isVisible()) m_plot->Redraw();
  });
}

FunctionList& frmMain::Functions() { return m_tabs->Functions(); }
project::ProjectForm& frmMain::ProjectInterface() { return *m_project; }
QTabWidget* frmMain::tabInput() const { return m_tabs; }
QLineEdit* frmMain::mnu_Integral_min() const { return m_tabs->mnu_Integral_min(); }
QLineEdit* frmMain::mnu_Integral_max() const { return m_tabs->mnu_Integral_max(); }
QString frmMain::StatusText(int pane) const { return m_panes->PaneText(pane); }
void frmMain::SetStatusText(int pane, const QString& text) { m_panes->SetPaneText(pane, text); }

void frmMain::Form_Load() {
  auto& settings = m_services.Settings;
  auto& scene = m_plot->Scene();
  const auto setting = [&](const char* key, const char* fallback) {
    return core::StrictToDouble(settings.GetSetting(kSettings, QString::fromLatin1(key), QString::fromLatin1(fallback)));
  };
  core::TryStep([&] { scene.SetBackColor(setting("Backcolor", "16777215")); });
  core::TryStep([&] { scene.SetAxisColor(setting("Axiscolor", "16711680")); });
  core::TryStep([&] { scene.SetThickness(setting("Thickness", "2")); });
  core::TryStep([&] { scene.SetQuality(setting("Quality", "90")); });
  scene.SetEqualScales(settings.GetSetting(kSettings, QStringLiteral("EqualScales"), QStringLiteral("0")) == u"1");
  m_commandBars.LoadDesignFile(platform::DataFile(QStringLiteral("Ribbon/Ribbon.xcb")));
  StartRibbon();
  CreateFileMenu();
  core::TryStep([&] {
    expression::StartScriptEngine(m_sc, m_state);
    m_sc.ExecuteStatement(QStringLiteral("pi=3.14159265358979"));
    m_sc.ExecuteStatement(QStringLiteral("e=2.71828182845905"));
  });
  ToolTipReNew();
  Refresh_mth_Height(false);
  m_state.ProjectChanged = false;
  MarkSaved();
  m_undo->History().Reset(m_savedText);
}

void frmMain::StartRibbon() {
  m_panes->Sync();
  m_theme->ApplyStored();
  ribbon::QuickAccessBar& quick = m_ribbon->QuickAccess();
  quick.AddCommand(57600, QStringLiteral("New"), QStringLiteral("document-new"), QStringLiteral("Ctrl+N"),
                   tr("Another window, for a new project"));
  quick.AddCommand(57601, QStringLiteral("open"), QStringLiteral("document-open"), QStringLiteral("Ctrl+O"),
                   tr("Open a project"));
  quick.AddCommand(57603, QStringLiteral("Save"), QStringLiteral("document-save"), QStringLiteral("Ctrl+S"),
                   tr("Save the project"));
  MirrorPlot(false);
  MirrorSliders();
}

// The ribbon's sliders and their values where the plot stands: at the start, after a project
// was read, and after the status bar's sliders moved.
void frmMain::MirrorSliders() {
  const plot2d::Plot& scene = m_plot->Scene();
  if (auto* quality = m_commandBars.FindControl(1113)) quality->SetPos(static_cast<std::int16_t>(std::lround(scene.Quality())));
  if (auto* thickness = m_commandBars.FindControl(1122)) thickness->SetPos(static_cast<std::int16_t>(std::lround(scene.Thickness())));
  if (auto* text = m_commandBars.FindControl(1119)) text->SetCaption(core::FormatNumber(scene.Quality()));
  if (auto* text = m_commandBars.FindControl(1121)) text->SetCaption(core::FormatNumber(scene.Thickness()));
}

void frmMain::CreateFileMenu() {
  m_backstage = new ribbon::Backstage(m_commandBars, *this);
  m_backstage->AddCommand(57600, QStringLiteral("&New"), QStringLiteral("document-new"));
  m_backstage->AddCommand(57603, QStringLiteral("&Save"), QStringLiteral("document-save"));
  m_backstage->AddCommand(57604, QStringLiteral("Save &As"), QStringLiteral("document-save-as"));
  m_backstage->AddCommand(57601, QStringLiteral("&Open"), QStringLiteral("document-open"));
  m_backstage->AddCommand(57602, QStringLiteral("&Exit"), QStringLiteral("application-exit"));
  m_backstage->AddSeparator();
  auto* picture = new output::pageSaveAsPicture(
      *m_plot, [this] { return m_tabs->currentIndex(); },
      [this](plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) { ReplotInto(plot, plot3d); },
      m_services.Boxes, m_services.Files, m_services.Desktop);
  m_backstage->AddPage(10011, QStringLiteral("Save as &picture"), picture, QStringLiteral("image-x-generic"));
  // The preview takes the window's rows and display afresh each time the page opens.
  connect(m_backstage, &ribbon::Backstage::PageShowing, picture, [picture](int id) {
    if (id == 10011) picture->StartUp();
  });
  m_backstage->AddPage(10013, QStringLiteral("What is new?"),
                       new output::RichTextPage(QStringLiteral("pageWhatIsNew"), QStringLiteral("rchWhatIsNew"),
                                                QStringLiteral("What is new.rtf")),
                       QStringLiteral("help-whatsthis"));
  auto* info = new output::pageInfo(m_services.Desktop);
  info->ShowContact = [this] { ShowContact(); };
  info->ShowHelp = [this](const QString& page) { ShowHelp(page); };
  m_backstage->AddPage(10010, QStringLiteral("&Info"), info, QStringLiteral("help-about"));
  m_samples = new output::pageSamples(m_state, m_services.Boxes);
  m_samples->MayReplace = [this] { return m_files->MayReplace(); };
  m_samples->LoadProject = [this](const QString& path) { return LoadProject(path); };
  m_samples->Loaded = [this] { MarkSaved(); };
  m_backstage->AddPage(10012, QStringLiteral("&Samples"), m_samples, QStringLiteral("folder-documents"));
  m_backstage->AddPage(10014, QStringLiteral("Support Us"),
                       new output::RichTextPage(QStringLiteral("pageSupportUs"), QStringLiteral("rchSupportUs"),
                                                QStringLiteral("Support Us.rtf")),
                       QStringLiteral("emblem-favorite"));
  m_backstage->SetStartPage(10010);
  m_ribbon->SetBackstage(m_backstage);
}

void frmMain::ShowContact() {
  delete m_contact.data();
  m_contact = new output::frmContactUS(m_services.Desktop, this);
  m_contact->ShowPage = [this](const QString& page) { ShowHelp(page); };
  m_contact->show();
  m_contact->raise();
  m_contact->activateWindow();
}

void frmMain::CommandBars_Execute(ribbon::CommandControl& control) {
  if (control.Id() == kEqualScales) {
    ToggleEqualScales(control);
    return;
  }
  if (m_theme->Execute(control.Id())) return;
  m_dispatch->CommandBars_Execute(control);
  // The ribbon's sliders and the status bar's show the same two values.
  if (control.Id() == 1113 || control.Id() == 1122) m_panes->Sync();
}

// Kept for the next start, as the colours are; the project file does not hold it.
void frmMain::ToggleEqualScales(ribbon::CommandControl& control) {
  control.SetChecked(!control.Checked());
  m_plot->Scene().SetEqualScales(control.Checked());
  m_services.Settings.SaveSetting(kSettings, QStringLiteral("EqualScales"), control.Checked() ? QStringLiteral("1") : QStringLiteral("0"));
  m_plot->Redraw();
}

void frmMain::ToolTipReNew() {
  for (QWidget* widget : findChildren<QWidget*>()) {
    const QString tip = widget->toolTip();
    if (tip.isEmpty() || Qt::mightBeRichText(tip) || widget->property("controlToolTip").isValid()) continue;
    widget->setProperty("controlToolTip", tip);
    widget->setToolTip(QStringLiteral("<p style='white-space:pre'><b>") + tip.toHtmlEscaped() + QStringLiteral("</b></p>"));
  }
}

void frmMain::MirrorPlot(bool afterEvent) {
  const plot2d::Plot& scene = m_plot->Scene();
  const auto check = [this](std::int32_t id, bool value) {
    if (auto* control = m_commandBars.FindControl(id)) control->SetChecked(value);
  };
  const auto color = [this](std::int32_t id, double value) {
    if (auto* control = m_commandBars.FindControl(id)) control->SetColor(static_cast<std::int32_t>(value));
  };
  auto* zoomLabel = m_commandBars.FindControl(1126);
  if (!afterEvent) {
    color(1042, scene.BackColor());
    color(1044, scene.AxisColor());
    check(1087, scene.ShowAxis());
    check(1088, scene.ShowGrid());
    check(1089, scene.ShowOuterFrame());
    check(1090, scene.ShowNumbers());
    check(1092, scene.ShowMouseCoordinate());
    check(1086, scene.TransparentBackground());
    check(1124, scene.ShowTips());
    check(kEqualScales, scene.EqualScales());
    if (zoomLabel) zoomLabel->SetCaption(QStringLiteral("Zoom: X and Y"));
    return;
  }
  check(1087, scene.ShowAxis());
  check(1124, scene.ShowTips());
  check(1088, scene.ShowGrid());
  check(1089, scene.ShowOuterFrame());
  check(1092, scene.ShowMouseCoordinate());
  check(1090, scene.ShowNumbers());
  check(1086, scene.TransparentBackground());
  color(1044, scene.AxisColor());
  color(1042, scene.BackColor());
  if (zoomLabel == nullptr) return;
  switch (scene.ZoomType()) {
    case 1: zoomLabel->SetCaption(QStringLiteral("Zoom: X")); break;
    case 2: zoomLabel->SetCaption(QStringLiteral("Zoom: Y")); break;
    case 3: zoomLabel->SetCaption(QStringLiteral("Zoom: X and Y")); break;
    default: break;
  }
}

void frmMain::Change3D(bool enable) {
  for (std::int32_t id : {1087, 1088, 1090, 1089, 1124, 1086, 1092, 1043, 1034, kEqualScales}) {
    if (auto* control = m_commandBars.FindControl(id)) control->SetEnabled(enable);
  }
}

void frmMain::ReplotInto(plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) {
  try {
    m_replotDriver->Replot(plot, plot3d);
  } catch (const core::RuntimeError&) {
    // A row whose attribute list cannot be read stops the drawing where it is; the rows stay
    // editable, and the next replot that succeeds brings the tabs back.
  }
}

void frmMain::Replot(bool with3D) {
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(m_plot->Scene(), [this] { m_plot->Redraw(); });
  plotcompiler::ScenePlot3DControl<plot3d::Plot3D> plot3d(m_plot3d->Scene(), [this] { m_plot3d->Redraw(); });
  ReplotInto(plot, with3D ? &plot3d : nullptr);
  emit Replotted();
}

bool frmMain::SaveProject(const QString& path) {
  const bool saved = project::ProjectWriter(*m_project, m_state, m_services.Boxes).SaveProject(path);
  // The file holds the old bytes when the save failed: the changes are still unsaved.
  if (saved) {
    MarkSaved();
    m_undo->History().MarkClean();
  } else {
    RefreshProjectChanged();
  }
  return saved;
}

bool frmMain::LoadProject(const QString& path) {
  m_reading = true;
  const bool read = project::ProjectReader(*m_project, m_state, m_services.Boxes).LoadProject(path);
  m_reading = false;
  if (!read) return false;
  AfterRead();
  MarkSaved();
  m_undo->History().Reset(m_savedText);  // another project: the steps of the last one are gone
  return true;
}

void frmMain::AfterRead() {
  m_panes->Sync();
  MirrorSliders();
  MirrorPlot(true);  // the ribbon's colours and checks show what the file holds
}

void frmMain::SaveThisFile() {
  m_files->SaveThisFile();
  UpdateTitle();
}

void frmMain::OpenThisFile() {
  m_files->OpenThisFile();
  UpdateTitle();
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (!m_files->MayClose()) {
    event->ignore();
    return;
  }
  for (QWidget* popup : {static_cast<QWidget*>(m_insert.data()), static_cast<QWidget*>(m_range.data()),
                         static_cast<QWidget*>(m_fullScreen.data()), static_cast<QWidget*>(m_contact.data()),
                         static_cast<QWidget*>(m_help.data())}) {
    if (popup) popup->close();
  }
  event->accept();
}

void frmMain::Refresh_mth_Height(bool scrollToEnd) { Functions().Refresh_mth_Height(scrollToEnd); }

void frmMain::AddFunction(bool showNote) { Functions().AddFunction(showNote); }

// A control's change handler: the project is marked at once, as the handler always did, and
// the comparison with the file follows (a change typed back to what was saved clears it).
void frmMain::ProjectChanged() {
  m_state.ProjectChanged = true;
  UpdateTitle();
  CheckChanged();
}

void frmMain::CheckChanged() { m_changeCheck.start(); }

bool frmMain::RefreshProjectChanged() {
  m_changeCheck.stop();
  try {
    const QString now = project::ProjectWriter::Compose(*m_project);
    m_state.ProjectChanged = now != m_savedText;
    if (m_undo && !m_reading) m_undo->History().Record(now);
  } catch (const core::RuntimeError&) {
    // What the writer cannot write (a value beyond its kind) cannot be the saved project.
    m_state.ProjectChanged = true;
  }
  UpdateTitle();
  if (m_autoReplot) m_autoReplot->Check(m_typed);
  return m_state.ProjectChanged;
}

// The status bar's sliders are remembered for the next start, as the ribbon's thickness is.
void frmMain::SaveSliderSettings() {
  const plot2d::Plot& scene = m_plot->Scene();
  m_services.Settings.SaveSetting(kSettings, QStringLiteral("Thickness"), core::FormatNumber(scene.Thickness()));
  m_services.Settings.SaveSetting(kSettings, QStringLiteral("Quality"), core::FormatNumber(scene.Quality()));
}

void frmMain::MarkSaved() {
  m_changeCheck.stop();
  try {
    m_savedText = project::ProjectWriter::Compose(*m_project);
  } catch (const core::RuntimeError&) {
    m_savedText.clear();
  }
  m_state.ProjectChanged = false;
  UpdateTitle();
}

void frmMain::UpdateTitle() {
  QString title = QStringLiteral("Quillograph");
  if (!m_state.ProjectPath.isEmpty()) title += QStringLiteral(" - ") + QFileInfo(m_state.ProjectPath).fileName();
  if (m_state.ProjectChanged) title += u'*';
  setWindowTitle(title);
}

void frmMain::ApplyZoom(const QString& text) {
  m_plot3d->Scene().SetZoom(m_evaluation.EvaluateExpression(text));
  m_plot3d->Refresh();
}

// The page decides what is drawn, and which plot is on the screen.
void frmMain::tabInput_Click(int index) {
  m_tabs->Refresh_mth_Backcolor();
  if (core::Tag(m_tabs) != core::kQuiet) Replot(true);
  if (index != 3) {
    Change3D(true);
    m_plot->show();
    m_plot3d->hide();
    m_buttons->PB_3D()->hide();
    for (std::int32_t id : {1125, 1070}) {
      if (auto* group = m_commandBars.FindControl(id)) group->SetVisible(true);
    }
    m_buttons->btnLock()->setVisible(m_plot->isVisible());
    m_buttons->SetDark(false);
    m_tabs->Surface().btnOK()->hide();
  } else {
    Change3D(false);
    m_plot->hide();
    m_buttons->btnLock()->setVisible(false);
    if (!m_prepared3D) {
      m_plot3d->Prepare3D();
      ++m_prepare3DCalls;
    }
    m_plot3d->show();
    m_buttons->SetDark(true);
    for (std::int32_t id : {1125, 1070}) {
      if (auto* group = m_commandBars.FindControl(id)) group->SetVisible(false);
    }
    m_buttons->PB_3D()->show();
    m_prepared3D = true;
    m_tabs->Surface().txt3DZoom()->setFocus();
  }
  Form_Resize();
}

void frmMain::ShowInsert() {
  CloseInsert();
  m_insert = new dialogs::frmInsert(m_state, m_services.Boxes, *m_insertTarget,
                                    platform::DataFile(QStringLiteral("Ribbon/Menubar.xcb")), this);
  // Beside the list, level with the editor it works on.
  QPoint at = m_rszControls->mapToGlobal(QPoint(Px(kPlotLeft) + 12, 12));
  if (const QWidget* editor = m_insertTarget->Editor(m_state.InsertSource, m_state.InsertIndex)) {
    at.setY(editor->mapToGlobal(QPoint(0, 0)).y() - 40);
  }
  if (const QScreen* screen = this->screen()) {
    const QRect free = screen->availableGeometry();
    const QSize wanted = m_insert->WantedSize();
    at.setX(std::clamp(at.x(), free.left(), std::max(free.left(), free.right() - wanted.width())));
    at.setY(std::clamp(at.y(), free.top(), std::max(free.top(), free.bottom() - wanted.height())));
  }
  m_insert->move(at);
  // When the dialog goes, the keyboard goes on from the editor it worked on.
  QPointer<QWidget> editor = m_insertTarget->Editor(m_state.InsertSource, m_state.InsertIndex);
  connect(m_insert, &QObject::destroyed, this, [this, editor] {
    if (!editor || !isVisible()) return;
    activateWindow();
    editor->setFocus(Qt::OtherFocusReason);
  });
  // F1 in the dialog opens the manual on the dialog's own chapter.
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), m_insert);
  connect(help, &QShortcut::activated, this, [this] { ShowHelp(QStringLiteral("insert-dialog.html")); });
  m_insert->show();
  m_insert->activateWindow();
  m_insert->raise();
}

void frmMain::CloseInsert() {
  if (m_insert) m_insert->Cancel();
}

void frmMain::ShowRange(const QString& mode, QPoint at) {
  // The dialog put away by a click elsewhere comes back in its mode with what was typed.
  const bool again = m_range && !m_range->Unloading() && core::Tag(m_range) == mode;
  if (!again) {
    if (m_range) m_range->close();
    m_range = new dialogs::frmRange(
        mode, m_plot->Scene(), [this] { m_plot->Redraw(); }, m_plot3d->Scene(), [this] { m_plot3d->Redraw(); },
        [this](const QString& text) { return m_evaluation.EvaluateExpression(text); }, this);
    m_range->SetReadable([this](const QString& text) {
      m_evaluation.EvaluateExpression(text);
      return !m_state.MathError;
    });
  }
  m_range->move(at);
  m_range->show();
  m_range->activateWindow();
  m_range->raise();
}

void frmMain::ShowHelp(const QString& page) {
  if (!m_help) {
    m_help = new help::HelpWindow(platform::DataFile(QStringLiteral("manual")), platform::DataFile(QStringLiteral("Help.pdf")),
                                  m_services.Desktop, m_services.Boxes, this);
    m_help->setAttribute(Qt::WA_DeleteOnClose);
  }
  if (QFileInfo(page).isAbsolute()) m_help->ShowPage(page);
  else m_help->ShowChapter(page);
  m_help->show();
  m_help->raise();
  m_help->activateWindow();
}

void frmMain::ShowFullScreen() {
  if (m_fullScreen) {
    m_fullScreen->activateWindow();
    return;
  }
  m_fullScreen = new output::frmFullScreen(
      m_plot->Scene(), m_tabs->currentIndex() == 3,
      [this](plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d) { ReplotInto(plot, plot3d); });
  m_fullScreen->CopyView3D(m_plot3d->Scene());
  if (const QScreen* screen = this->screen()) m_fullScreen->setGeometry(screen->geometry());
  m_fullScreen->showFullScreen();
  m_fullScreen->activateWindow();
  m_fullScreen->raise();
}

void frmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Form_Resize();
  m_resizeSettled.start();
}

// The form's layout, in twips: the ribbon on top, under it the input tabs on the left and the
// plot beside them. The plot redraws at quality 20 while the window changes size.
void frmMain::Form_Resize() {
  QWidget* central = centralWidget();
  const int W = central->width();
  const int H = central->height();
  const int ribbonHeight = m_ribbon->sizeHint().height();
  m_ribbonHost->setGeometry(0, 0, W, ribbonHeight);
  m_ribbon->setGeometry(0, 0, W, ribbonHeight);
  m_rszControls->setGeometry(0, ribbonHeight, W, H - ribbonHeight);
  const double controlsHeight = Tw(m_rszControls->height());
  m_tabs->setGeometry(Px(kTabLeft), Px(kTabLeft), Px(kPlot3DLeft - 2 * kTabLeft),
                      Px(controlsHeight - kTabBottomMargin - kTabLeft));
  const auto area = [&](double left) {
    return QRect(Px(left), Px(kTabLeft), Px(Tw(W) - left - kPlotRightMargin),
                 Px(controlsHeight - kPlotBottomMargin - kTabLeft));
  };
  if (m_tabs->currentIndex() != 3) {
    m_plot->show();
    m_plot3d->hide();
    plot2d::Plot& scene = m_plot->Scene();
    const double quality = scene.Quality();
    scene.SetQuality(20);
    m_plot->setGeometry(area(kPlotLeft));
    scene.SetQuality(quality);
  } else {
    m_plot3d->show();
    m_plot->hide();
    m_plot3d->setGeometry(area(kPlot3DLeft));
    m_plot3d->Refresh();
  }
  m_buttons->Place(area(kPlotLeft), area(kPlot3DLeft), W);
  m_buttons->RefreshReset();
}

}  // namespace rows
