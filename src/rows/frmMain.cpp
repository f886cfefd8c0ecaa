#include "frmMain.h"

#include "FormInsertTarget.h"
#include "FormReplotHost.h"
#include "FunctionList.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Twips.h"
#include "dialogs/frmInsert.h"
#include "mathx/MthX.h"
#include "platform/DataFolder.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "plotcompiler/PlotControl.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>

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

const QString kSettings = QStringLiteral("Settings");

}  // namespace

frmMain::frmMain(core::SharedState& state, const MainServices& services, QWidget* parent)
    : QMainWindow(parent), m_state(state), m_services(services), m_evaluation(state, m_sc) {
  setObjectName(QStringLiteral("frmMain"));
  auto* central = new QWidget(this);
  setCentralWidget(central);
  m_ribbonHost = new QWidget(central);
  m_ribbonHost->setObjectName(QStringLiteral("RibbonHost"));
  m_rszControls = new QWidget(central);
  m_rszControls->setObjectName(QStringLiteral("rszControls"));

  BuildInputTabs();
  BuildPlots();
  BuildStatusBar();

  m_replotHost = std::make_unique<FormReplotHost>(*this);
  m_replotDriver = std::make_unique<plotcompiler::ReplotDriver>(m_state, m_evaluation, *m_replotHost);
  m_insertTarget = std::make_unique<FormInsertTarget>(*this);

  connect(m_functions, &FunctionList::ReplotRequested, this, [this](bool with3D) { Replot(with3D); });
  connect(m_functions, &FunctionList::Changed, this, &frmMain::ProjectChanged);
  connect(m_functions, &FunctionList::InsertRequested, this, &frmMain::ShowInsert);
  connect(m_functions, &FunctionList::CloseInsertRequested, this, &frmMain::CloseInsert);

  m_resizeSettled.setSingleShot(true);
  m_resizeSettled.setInterval(200);
  connect(&m_resizeSettled, &QTimer::timeout, this, [this] {
    if (m_plot->isVisible()) m_plot->Redraw();
  });

  setMinimumSize(900, 560);
  resize(1280, 800);
  Form_Load();
}

frmMain::~frmMain() {
  if (m_insert) delete m_insert.data();
}

void frmMain::BuildInputTabs() {
  m_tabInput = new QTabWidget(m_rszControls);
  m_tabInput->setObjectName(QStringLiteral("tabInput"));
  m_tabInput->setDocumentMode(false);
  m_functions = new FunctionList(m_state, m_services.Boxes, m_services.Colors);
  m_tabInput->addTab(m_functions, tr("Function"));
  for (const QString& caption : {tr("Inequality"), tr("Parametric"), tr("3D")}) {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("tabPage") + caption);
    m_tabInput->addTab(page, caption);
  }
  m_tabInput->setTabToolTip(0, tr("Rows of equations, points, commands and notes"));

  // The bounds of the area between marked rows, beside the list's buttons.
  m_grpIntegralRange = new QWidget(m_functions->grp_Control_Functions());
  m_grpIntegralRange->setObjectName(QStringLiteral("grp_IntegralRange"));
  auto* bounds = new QHBoxLayout(m_grpIntegralRange);
  bounds->setContentsMargins(0, 0, 0, 0);
  m_integralMin = new QLineEdit(QStringLiteral("-1"), m_grpIntegralRange);
  m_integralMin->setObjectName(QStringLiteral("mnu_Integral_min"));
  m_integralMax = new QLineEdit(QStringLiteral("1"), m_grpIntegralRange);
  m_integralMax->setObjectName(QStringLiteral("mnu_Integral_max"));
  for (QLineEdit* edit : {m_integralMin, m_integralMax}) {
    edit->setFixedWidth(64);
    edit->setAlignment(Qt::AlignCenter);
  }
  auto* label = new QLabel(tr("Area from"), m_grpIntegralRange);
  label->setBuddy(m_integralMin);
  m_integralMin->setToolTip(tr("Where the shaded area between marked rows begins"));
  m_integralMax->setToolTip(tr("Where it ends"));
  bounds->addWidget(label);
  bounds->addWidget(m_integralMin);
  bounds->addWidget(new QLabel(tr("to"), m_grpIntegralRange));
  bounds->addWidget(m_integralMax);
  static_cast<QHBoxLayout*>(m_functions->grp_Control_Functions()->layout())->addWidget(m_grpIntegralRange);
  for (QLineEdit* edit : {m_integralMin, m_integralMax}) {
    connect(edit, &QLineEdit::textEdited, this, &frmMain::ProjectChanged);
  }
}

void frmMain::BuildPlots() {
  m_plot = new plot2d::PlotWidget(m_rszControls);
  m_plot->setObjectName(QStringLiteral("Plot"));
  m_plot3d = new plot3d::Plot3DWidget(m_rszControls);
  m_plot3d->setObjectName(QStringLiteral("Plot3D"));
  m_plot3d->hide();
  connect(m_plot, &plot2d::PlotWidget::SettingsChanged, this, [this] { MirrorPlot(true); });
}

void frmMain::BuildStatusBar() {
  m_statusPane = new QLabel(QStringLiteral("Ready..."));
  m_statusPane->setObjectName(QStringLiteral("Pane9000"));
  m_statusPane->setToolTip(tr("Status"));
  m_statusPane->setMinimumWidth(120);
  statusBar()->addWidget(m_statusPane);
}

QString frmMain::StatusText(int pane) const { return pane == 9000 ? m_statusPane->text() : QString(); }

void frmMain::SetStatusText(int pane, const QString& text) {
  if (pane == 9000) m_statusPane->setText(text);
}

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
  m_commandBars.LoadDesignFile(platform::DataFile(QStringLiteral("Ribbon/Ribbon.xcb")));
  StartRibbon();
  core::TryStep([&] {
    expression::StartScriptEngine(m_sc, m_state);
    m_sc.ExecuteStatement(QStringLiteral("pi=3.14159265358979"));
    m_sc.ExecuteStatement(QStringLiteral("e=2.71828182845905"));
  });
  Refresh_mth_Height(false);
  m_state.ProjectChanged = false;
  UpdateTitle();
}

void frmMain::StartRibbon() {
  MirrorPlot(false);
}

void frmMain::MirrorPlot(bool afterEvent) {
  const plot2d::Plot& scene = m_plot->Scene();
  const auto check = [this](std::int32_t id, bool value) {
    if (auto* control = m_commandBars.FindControl(id)) control->SetChecked(value);
  };
  const auto color = [this](std::int32_t id, double value) {
    if (auto* control = m_commandBars.FindControl(id)) control->SetColor(static_cast<std::int32_t>(value));
  };
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
    if (auto* label = m_commandBars.FindControl(1126)) label->SetCaption(QStringLiteral("Zoom: X and Y"));
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
  if (auto* label = m_commandBars.FindControl(1126)) {
    const std::int32_t zoom = scene.ZoomType();
    label->SetCaption(zoom == 1   ? QStringLiteral("Zoom: X")
                      : zoom == 2 ? QStringLiteral("Zoom: Y")
                                  : QStringLiteral("Zoom: X and Y"));
  }
}

void frmMain::Replot(bool with3D) {
  (void)with3D;
  plotcompiler::ScenePlotControl<plot2d::Plot> plot(m_plot->Scene(), [this] { m_plot->Redraw(); });
  try {
    m_replotDriver->Replot(plot, nullptr);
  } catch (const core::RuntimeError&) {
    // A row whose attribute list cannot be read stops the drawing where it is; the rows stay
    // editable, and the next replot that succeeds brings the tabs back.
  }
  emit Replotted();
}

void frmMain::Refresh_mth_Height(bool scrollToEnd) { m_functions->Refresh_mth_Height(scrollToEnd); }

void frmMain::AddFunction(bool showNote) { m_functions->AddFunction(showNote); }

void frmMain::ProjectChanged() {
  m_state.ProjectChanged = true;
  UpdateTitle();
}

void frmMain::UpdateTitle() {
  QString title = QStringLiteral("Quillograph");
  if (!m_state.ProjectPath.isEmpty()) {
    title += QStringLiteral(" - ") + QFileInfo(m_state.ProjectPath).fileName();
    if (m_state.ProjectChanged) title += u'*';
  }
  setWindowTitle(title);
}

void frmMain::ShowInsert() {
  CloseInsert();
  m_insert = new dialogs::frmInsert(m_state, m_services.Boxes, *m_insertTarget,
                                    platform::DataFile(QStringLiteral("Ribbon/Menubar.xcb")), this);
  // Beside the list, level with the row it edits.
  QPoint at = m_rszControls->mapToGlobal(QPoint(Px(kPlotLeft) + 12, 12));
  if (m_state.InsertSource == 0) {
    const int row = static_cast<int>(m_state.InsertIndex);
    if (row >= 0 && row <= m_functions->HighestIndex()) {
      at.setY(m_functions->Row(row).mthFunction->mapToGlobal(QPoint(0, 0)).y() - 40);
    }
  }
  if (const QScreen* screen = this->screen()) {
    const QRect free = screen->availableGeometry();
    const QSize wanted = m_insert->WantedSize();
    at.setX(std::clamp(at.x(), free.left(), std::max(free.left(), free.right() - wanted.width())));
    at.setY(std::clamp(at.y(), free.top(), std::max(free.top(), free.bottom() - wanted.height())));
  }
  m_insert->move(at);
  m_insert->show();
  m_insert->activateWindow();
  m_insert->raise();
}

void frmMain::CloseInsert() {
  if (m_insert) m_insert->Cancel();
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
  const int ribbonHeight = m_ribbonHost->sizeHint().isValid() ? m_ribbonHost->sizeHint().height() : 0;
  m_ribbonHost->setGeometry(0, 0, W, ribbonHeight);
  m_rszControls->setGeometry(0, ribbonHeight, W, H - ribbonHeight);
  const double controlsHeight = Tw(m_rszControls->height());
  m_tabInput->setGeometry(Px(kTabLeft), Px(kTabLeft), Px(kPlotLeft - 2 * kTabLeft - kPlotRightMargin),
                          Px(controlsHeight - kTabBottomMargin - kTabLeft));
  const bool on3D = m_tabInput->currentIndex() == 3;
  const double left = on3D ? kPlot3DLeft : kPlotLeft;
  const QRect plotArea(Px(left), Px(kTabLeft), Px(Tw(W) - left - kPlotRightMargin),
                       Px(controlsHeight - kPlotBottomMargin - kTabLeft));
  if (!on3D) {
    m_plot->show();
    m_plot3d->hide();
    plot2d::Plot& scene = m_plot->Scene();
    const double quality = scene.Quality();
    scene.SetQuality(20);
    m_plot->setGeometry(plotArea);
    scene.SetQuality(quality);
  } else {
    m_plot3d->show();
    m_plot->hide();
    m_plot3d->setGeometry(plotArea);
    m_plot3d->Refresh();
  }
}

}  // namespace rows
