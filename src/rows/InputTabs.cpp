#include "InputTabs.h"

#include "FieldGuard.h"

#include "mathx/MthX.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>

namespace rows {

namespace {

constexpr std::int32_t kBlue = 16711680;

}  // namespace

InputTabs::InputTabs(core::SharedState& state, expression::ScriptEvaluation& evaluation, platform::MessageBoxes& boxes,
                     platform::ColorChooser& chooser, QWidget* parent)
    : QTabWidget(parent), m_state(state), m_evaluation(evaluation) {
  setObjectName(QStringLiteral("tabInput"));
  setAccessibleName(tr("Input"));
  m_functions = new FunctionList(state, boxes, chooser);
  m_inequality = new InequalityPage(chooser);
  m_parametric = new ParametricPage(chooser);
  m_surface = new SurfacePage;
  addTab(m_functions, tr("Function"));
  addTab(m_inequality, tr("Inequality"));
  addTab(m_parametric, tr("Parametric"));
  addTab(m_surface, tr("3D"));
  setTabToolTip(0, tr("Rows of equations, points, commands and notes"));
  setTabToolTip(1, tr("The region where one or two inequalities hold"));
  setTabToolTip(2, tr("A curve of a parameter, in x and y or in r and theta"));
  setTabToolTip(3, tr("A surface in space"));
  BuildIntegralRange();
  GuardRangeFields();

  connect(m_functions, &FunctionList::ReplotRequested, this, &InputTabs::ReplotRequested);
  connect(m_functions, &FunctionList::Changed, this, &InputTabs::Changed);
  connect(m_functions, &FunctionList::InsertRequested, this, &InputTabs::InsertRequested);
  connect(m_inequality, &InequalityPage::EditorClicked, this, [this](int i) { Insert(1, i); });
  connect(m_inequality, &InequalityPage::Changed, this, &InputTabs::Changed);
  connect(m_inequality, &InequalityPage::ReplotRequested, this, [this] { emit ReplotRequested(false); });
  connect(m_parametric, &ParametricPage::EditorClicked, this, [this](int i) { Insert(2, i); });
  connect(m_parametric, &ParametricPage::Changed, this, &InputTabs::Changed);
  connect(m_parametric, &ParametricPage::ReplotRequested, this, [this] { emit ReplotRequested(false); });
  connect(m_surface, &SurfacePage::EditorClicked, this, [this](int i) { Insert(3, i); });
  connect(m_surface, &SurfacePage::Changed, this, &InputTabs::Changed);
  connect(m_surface, &SurfacePage::ReplotRequested, this, [this] { emit ReplotRequested(true); });
  connect(m_surface, &SurfacePage::ZoomApplied, this, &InputTabs::ZoomApplied);
}

void InputTabs::Insert(std::int16_t source, double index) {
  m_state.InsertSource = source;
  m_state.InsertIndex = index;
  emit InsertRequested();
}

// The bounds of the area between marked rows, beside the list's buttons. Each is an expression;
// one that does not evaluate turns red and keeps the focus.
void InputTabs::BuildIntegralRange() {
  auto* group = new QWidget(m_functions->grp_Control_Functions());
  group->setObjectName(QStringLiteral("grp_IntegralRange"));
  auto* bounds = new QHBoxLayout(group);
  bounds->setContentsMargins(0, 0, 0, 0);
  m_integralMin = new QLineEdit(QStringLiteral("-1"), group);
  m_integralMin->setObjectName(QStringLiteral("mnu_Integral_min"));
  m_integralMax = new QLineEdit(QStringLiteral("1"), group);
  m_integralMax->setObjectName(QStringLiteral("mnu_Integral_max"));
  auto* label = new QLabel(tr("Area from"), group);
  label->setBuddy(m_integralMin);
  m_integralMin->setToolTip(tr("Where the shaded area between marked rows begins"));
  m_integralMax->setToolTip(tr("Where it ends"));
  m_integralMin->setAccessibleName(tr("Area from"));
  m_integralMax->setAccessibleName(tr("Area to"));
  bounds->addWidget(label);
  bounds->addWidget(m_integralMin);
  bounds->addWidget(new QLabel(tr("to"), group));
  bounds->addWidget(m_integralMax);
  static_cast<QHBoxLayout*>(m_functions->grp_Control_Functions()->layout())->addWidget(group);
  for (QLineEdit* edit : {m_integralMin, m_integralMax}) {
    edit->setFixedWidth(64);
    edit->setAlignment(Qt::AlignCenter);
    auto* guard = new FieldGuard(*edit, [this](const QString& text) { return m_evaluation.CheckExpression(text); });
    m_guards.push_back(guard);
    connect(edit, &QLineEdit::textEdited, this, [this, guard] {
      guard->Refresh();
      emit Changed();
    });
  }
}

// The ranges of the parametric curve and of the surfaces: one that cannot be read turns red and
// keeps the focus, and the plot goes on showing the last range that could be read.
void InputTabs::GuardRangeFields() {
  std::vector<QLineEdit*> fields = {m_parametric->txtThetaMin(), m_parametric->txtThetaMax()};
  for (const char* name : {"txt_thetaMin", "txt_thetaMax", "txt_phiMin", "txt_phiMax", "txt_3D_uMin", "txt_3D_uMax",
                           "txt_3D_vMin", "txt_3D_vMax"}) {
    fields.push_back(qobject_cast<QLineEdit*>(m_surface->Field(QString::fromLatin1(name))));
  }
  for (QLineEdit* field : fields) {
    auto* guard = new FieldGuard(*field, [this](const QString& text) {
      m_evaluation.EvaluateExpression(text);
      return !m_state.MathError;
    });
    m_guards.push_back(guard);
    connect(field, &QLineEdit::textEdited, guard, &FieldGuard::Refresh);
  }
}

bool InputTabs::FieldsReadable() const {
  return SurfacePage::ZoomValid(m_surface->txt3DZoom()->text()) &&
         std::all_of(m_guards.begin(), m_guards.end(), [](const FieldGuard* guard) { return guard->Valid(); });
}

void InputTabs::Refresh_mth_Backcolor() {
  switch (currentIndex()) {
    case 0:
      for (int i = 0; i <= m_functions->HighestIndex(); ++i) m_functions->Row(i).mthFunction->SetForeColor(kBlue);
      break;
    case 1: {
      // An inert editor takes no colour: the second is made live for the moment.
      mathx::MthX* second = m_inequality->mthInequality(1);
      const int mode = second->EditMode();
      second->SetEditMode(1);
      second->SetForeColor(kBlue);
      second->SetEditMode(mode);
      m_inequality->mthInequality(0)->SetForeColor(kBlue);
      break;
    }
    case 2:
      m_parametric->mthParametricX()->SetForeColor(kBlue);
      m_parametric->mthParametricY()->SetForeColor(kBlue);
      break;
    default: break;
  }
}

}  // namespace rows
