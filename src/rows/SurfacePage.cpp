#include "SurfacePage.h"

#include "FieldGuard.h"
#include "PageEditor.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "mathx/MthX.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace rows {

namespace {

constexpr int kZoomPauseMs = 150;  // as long as the plot waits for typing to pause

}  // namespace

SurfacePage::SurfacePage(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("SurfacePage"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(10);
  m_tabs = new QTabWidget(this);
  m_tabs->setObjectName(QStringLiteral("Tab_3D"));
  m_tabs->addTab(FunctionTab(), QStringLiteral("Function"));
  m_tabs->addTab(PolarTab(), QStringLiteral("Polar"));
  m_tabs->addTab(ParametricTab(), QStringLiteral("Parametric"));
  m_tabs->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  layout->addWidget(m_tabs);

  m_grid = new QComboBox(this);
  m_grid->setObjectName(QStringLiteral("cmb3DGrid"));
  for (const char* size : {"50x50", "75x75", "100x100", "125x125", "150x150", "200x200"}) {
    m_grid->addItem(QStringLiteral("Grid: ") + QString::fromLatin1(size));
  }
  m_grid->setCurrentIndex(2);
  m_grid->setToolTip(tr("How fine the surface's mesh is"));
  m_zoom = new QLineEdit(QStringLiteral("1"), this);
  m_zoom->setObjectName(QStringLiteral("txt3DZoom"));
  m_zoom->setFixedWidth(64);
  m_zoom->setToolTip(tr("Zoom of the 3D view, from 0.25 to 3"));
  m_ok = new QPushButton(tr("&Apply"), this);
  m_ok->setObjectName(QStringLiteral("btnOK"));
  m_ok->setToolTip(tr("Apply the zoom"));
  m_ok->hide();
  auto* view = new QHBoxLayout;
  view->addWidget(m_grid);
  view->addSpacing(12);
  view->addWidget(new QLabel(tr("Zoom"), this));
  view->addWidget(m_zoom);
  view->addWidget(m_ok);
  view->addStretch();
  layout->addLayout(view);
  layout->addStretch();

  m_zoomGuard = new FieldGuard(*m_zoom, &SurfacePage::ZoomValid);
  m_zoom->installEventFilter(this);
  connect(m_zoom, &QLineEdit::textEdited, this, &SurfacePage::ZoomEdited);
  const auto apply = [this] {
    m_zoomPause.stop();
    emit ZoomApplied(m_zoom->text());
    m_ok->hide();
  };
  connect(m_ok, &QPushButton::clicked, this, apply);
  m_zoomPause.setSingleShot(true);
  m_zoomPause.setInterval(kZoomPauseMs);
  connect(&m_zoomPause, &QTimer::timeout, this, apply);
  // A fresh project holds these surfaces, so that one saved at once writes what a new file has.
  Editor(1)->SetText(QStringLiteral("z=x+y"));
  Editor(4)->SetText(QStringLiteral("u*v"));
  Editor(5)->SetText(QStringLiteral("u+v"));
  connect(m_tabs, &QTabWidget::currentChanged, this, &SurfacePage::ReplotRequested);
  connect(m_grid, &QComboBox::currentIndexChanged, this, &SurfacePage::Changed);
  for (const auto& [index, editor] : m_editors) {
    connect(editor, &mathx::MthX::Clicked, this, [this, i = index] { emit EditorClicked(i); });
    connect(editor, &mathx::MthX::Change, this, &SurfacePage::Changed);
  }
}

QLineEdit* SurfacePage::RangeField(QWidget* parent, const char* name, const char* text) {
  auto* field = new QLineEdit(QString::fromLatin1(text), parent);
  field->setObjectName(QString::fromLatin1(name));
  field->setFixedWidth(72);
  field->setToolTip(tr("An expression: 2*pi, -pi/2 ..."));
  m_fields[field->objectName()] = field;
  connect(field, &QLineEdit::textEdited, this, &SurfacePage::Changed);
  return field;
}

QWidget* SurfacePage::FunctionTab() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* editor = NewPageEditor(page, QStringLiteral("mth_3D_Function"), tr("z=sin(x)*cos(y)"));
  m_editors[1] = editor;
  m_fields[editor->objectName()] = editor;
  layout->addWidget(editor);
  auto* hint = new QLabel(tr("z=, y= or x= a function of the other two, or an equation in x, y and z."), page);
  hint->setWordWrap(true);
  hint->setProperty("hint", true);
  layout->addWidget(hint);
  layout->addStretch();
  return page;
}

QWidget* SurfacePage::PolarTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  auto* editor = NewPageEditor(page, QStringLiteral("mth_3D_Polar"), tr("r=2+sin(3theta)"));
  m_editors[2] = editor;
  m_fields[editor->objectName()] = editor;
  grid->addWidget(editor, 0, 0, 1, 5);
  grid->addWidget(new QLabel(QStringLiteral("\u03b8"), page), 1, 0);
  grid->addWidget(RangeField(page, "txt_thetaMin", "-2*pi"), 1, 1);
  grid->addWidget(new QLabel(tr("to"), page), 1, 2);
  grid->addWidget(RangeField(page, "txt_thetaMax", "2*pi"), 1, 3);
  grid->addWidget(new QLabel(QStringLiteral("\u03c6"), page), 2, 0);
  grid->addWidget(RangeField(page, "txt_phiMin", "0"), 2, 1);
  grid->addWidget(new QLabel(tr("to"), page), 2, 2);
  grid->addWidget(RangeField(page, "txt_phiMax", "pi"), 2, 3);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(3, 1);
  return page;
}

QWidget* SurfacePage::ParametricTab() {
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  const char* names[] = {"mth_3D_Para_x", "mth_3D_Para_y", "mth_3D_Para_z"};
  const char* hints[] = {"(2+cos(v))cos(u)", "(2+cos(v))sin(u)", "sin(v)"};
  for (int i = 0; i < 3; ++i) {
    auto* editor = NewPageEditor(page, QString::fromLatin1(names[i]), QString::fromLatin1(hints[i]));
    m_editors[3 + i] = editor;
    m_fields[editor->objectName()] = editor;
    grid->addWidget(new QLabel(QString(QChar(u'x' + i)) + u'=', page), i, 0, Qt::AlignRight);
    grid->addWidget(editor, i, 1, 1, 4);
  }
  grid->addWidget(new QLabel(QStringLiteral("u"), page), 3, 0, Qt::AlignRight);
  grid->addWidget(RangeField(page, "txt_3D_uMin", "0"), 3, 1);
  grid->addWidget(new QLabel(tr("to"), page), 3, 2);
  grid->addWidget(RangeField(page, "txt_3D_uMax", "2"), 3, 3);
  grid->addWidget(new QLabel(QStringLiteral("v"), page), 4, 0, Qt::AlignRight);
  grid->addWidget(RangeField(page, "txt_3D_vMin", "0"), 4, 1);
  grid->addWidget(new QLabel(tr("to"), page), 4, 2);
  grid->addWidget(RangeField(page, "txt_3D_vMax", "2"), 4, 3);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(5, 1);
  return page;
}

QWidget* SurfacePage::Field(const QString& name) const {
  const auto found = m_fields.find(name);
  return found == m_fields.end() ? nullptr : found->second;
}

QString SurfacePage::Text(const QString& name) const {
  const QWidget* field = Field(name);
  if (const auto* editor = qobject_cast<const mathx::MthX*>(field)) return editor->Text();
  if (const auto* edit = qobject_cast<const QLineEdit*>(field)) return edit->text();
  return {};
}

mathx::MthX* SurfacePage::Editor(int index) const {
  const auto found = m_editors.find(index);
  return found == m_editors.end() ? nullptr : found->second;
}

bool SurfacePage::ZoomValid(const QString& text) {
  try {
    const double zoom = core::StrictToDouble(text);
    return zoom >= 0.25 && zoom <= 3;
  } catch (const core::RuntimeError&) {
    return false;
  }
}

void SurfacePage::ZoomEdited() {
  emit Changed();
  m_zoomGuard->Refresh();
  m_ok->setVisible(m_zoomGuard->Valid());
  // A zoom within its bounds applies by itself once the typing pauses; Apply does it at once.
  if (m_zoomGuard->Valid()) m_zoomPause.start();
  else m_zoomPause.stop();
}

bool SurfacePage::eventFilter(QObject* watched, QEvent* event) {
  // Leaving the zoom: a number in bounds is written back as its plain number; anything else
  // that got out becomes 1.
  if (watched == m_zoom && event->type() == QEvent::FocusOut && m_zoomGuard->Valid()) {
    const double zoom = core::NumericPrefix(m_zoom->text());
    if (zoom >= 0.25 && zoom <= 3) {
      m_zoom->setText(core::FormatNumber(zoom));
    } else {
      m_zoom->setText(QStringLiteral("1"));
      FieldGuard::SetBackground(*m_zoom, false);
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace rows
