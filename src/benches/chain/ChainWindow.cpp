#include "ChainWindow.h"

#include "mathx/Formula.h"
#include "plot2d/PlotWidget.h"
#include "plotcompiler/EquationCompiler.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QScrollArea>
#include <QVBoxLayout>

namespace chain {

namespace {

constexpr double Rgb(int r, int g, int b) { return r + 256.0 * g + 65536.0 * b; }
constexpr std::array<double, ChainRule::kStepCount> kColors = {Rgb(20, 80, 200), Rgb(0, 125, 125), Rgb(140, 40, 170),
                                                               Rgb(195, 90, 0), Rgb(200, 30, 30)};
constexpr std::array<const char*, ChainRule::kStepCount> kKeys = {"Composition", "InnerSlope", "OuterSlope",
                                                                  "OuterAtInner", "Product"};
// The composition and its derivative show at first; the steps between are a click away.
constexpr std::array<bool, ChainRule::kStepCount> kShownAtFirst = {true, false, false, false, true};
constexpr double kTypesetPixels = 19;

QLabel* WrappedLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLineEdit* Field(const QString& text, const QString& name, const QString& accessible, QWidget* parent) {
  auto* field = new QLineEdit(text, parent);
  field->setObjectName(name);
  field->setAccessibleName(accessible);
  return field;
}

}  // namespace

double ChainWindow::StepColor(int step) { return kColors[static_cast<std::size_t>(step)]; }

QString ChainWindow::StepKey(int step) { return QString::fromLatin1(kKeys[static_cast<std::size_t>(step)]); }

ChainWindow::ChainWindow(QWidget* parent) : QWidget(parent) {
  setWindowTitle(tr("Chain Bench — Quillograph"));
  setMinimumSize(1000, 660);
  resize(1280, 820);
  m_plot = new plot2d::PlotWidget(this);
  m_plot->setObjectName(QStringLiteral("plot"));
  m_plot->setAccessibleName(tr("Plot of the chain rule's steps"));
  m_plot->setMinimumSize(440, 400);
  m_plot->Scene().SetDefaultRange(-3, 3, -6, 6);
  m_plot->Scene().ResetRange();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(12);
  layout->addWidget(BuildPanel());
  layout->addWidget(m_plot, 1);
  SetTabOrder();
  Recompute();
}

QWidget* ChainWindow::BuildPanel() {
  auto* scroll = new QScrollArea(this);
  scroll->setObjectName(QStringLiteral("panel"));
  scroll->setAccessibleName(tr("The functions and the chain rule's steps"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setMinimumWidth(440);
  scroll->setMaximumWidth(520);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* panel = new QWidget(scroll);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 8, 0);
  column->addWidget(BuildFunctionsGroup());
  column->addWidget(BuildStepsGroup());
  m_lblCheck = WrappedLabel(QStringLiteral("lblCheck"), panel);
  m_lblCheck->setAccessibleName(tr("Numeric check"));
  column->addWidget(m_lblCheck);
  m_lblMessage = WrappedLabel(QStringLiteral("lblMessage"), panel);
  m_lblMessage->setAccessibleName(tr("Message"));
  m_lblMessage->setStyleSheet(QStringLiteral("color: #a01010;"));
  column->addWidget(m_lblMessage);
  column->addStretch(1);
  scroll->setWidget(panel);
  return scroll;
}

QWidget* ChainWindow::BuildFunctionsGroup() {
  auto* group = new QGroupBox(tr("Functions"), this);
  auto* form = new QFormLayout(group);
  m_edtF = Field(QStringLiteral("sin(x)"), QStringLiteral("edtF"), tr("Outer function f(x)"), group);
  m_edtG = Field(QStringLiteral("x^2"), QStringLiteral("edtG"), tr("Inner function g(x)"), group);
  auto* labelF = new QLabel(tr("&f(x) ="), group);
  auto* labelG = new QLabel(tr("&g(x) ="), group);
  labelF->setBuddy(m_edtF);
  labelG->setBuddy(m_edtG);
  form->addRow(labelF, m_edtF);
  form->addRow(labelG, m_edtG);
  auto* hint = new QLabel(tr("f is the outer function, g the inner one: the bench differentiates f(g(x))."), group);
  hint->setWordWrap(true);
  form->addRow(hint);
  connect(m_edtF, &QLineEdit::textChanged, this, &ChainWindow::Recompute);
  connect(m_edtG, &QLineEdit::textChanged, this, &ChainWindow::Recompute);
  return group;
}

QWidget* ChainWindow::BuildStepsGroup() {
  auto* group = new QGroupBox(tr("Step by step"), this);
  auto* box = new QVBoxLayout(group);
  box->setSpacing(4);
  for (int i = 0; i < ChainRule::kStepCount; ++i) {
    const ChainStep& step = m_rule.Steps()[static_cast<std::size_t>(i)];
    StepWidgets& w = m_steps[static_cast<std::size_t>(i)];
    w.Show = new QCheckBox(QStringLiteral("%1. %2 — %3").arg(i + 1).arg(step.Name, step.Caption), group);
    w.Show->setObjectName(QStringLiteral("chk") + StepKey(i));
    w.Show->setAccessibleName(tr("Show %1 on the plot").arg(step.Name));
    w.Show->setChecked(kShownAtFirst[static_cast<std::size_t>(i)]);
    QPalette palette = w.Show->palette();
    palette.setColor(QPalette::WindowText, plot2d::Plot::ColorOf(StepColor(i)));
    w.Show->setPalette(palette);
    w.Typeset = new QLabel(group);
    w.Typeset->setObjectName(QStringLiteral("lblTypeset") + StepKey(i));
    w.Typeset->setAccessibleName(tr("%1 typeset").arg(step.Name));
    w.Typeset->setContentsMargins(24, 0, 0, 0);
    w.Text = WrappedLabel(QStringLiteral("lblText") + StepKey(i), group);
    w.Text->setAccessibleName(tr("%1 as text").arg(step.Name));
    w.Text->setContentsMargins(24, 0, 0, 6);
    w.Text->setStyleSheet(QStringLiteral("color: #404040;"));
    box->addWidget(w.Show);
    box->addWidget(w.Typeset);
    box->addWidget(w.Text);
    connect(w.Show, &QCheckBox::toggled, this, &ChainWindow::Replot);
  }
  m_lblDirect = WrappedLabel(QStringLiteral("lblDirect"), group);
  m_lblDirect->setAccessibleName(tr("The derivative of f(g(x)) taken at once"));
  box->addWidget(m_lblDirect);
  return group;
}

void ChainWindow::SetTabOrder() {
  QWidget* previous = m_edtG;
  setTabOrder(m_edtF, m_edtG);
  for (const StepWidgets& w : m_steps) {
    setTabOrder(previous, w.Show);
    previous = w.Show;
  }
  setTabOrder(previous, m_plot);
}

void ChainWindow::Recompute() {
  m_rule.Set(m_edtF->text(), m_edtG->text());
  m_check = ChainCheck::Run(m_rule);
  ShowSteps();
  Replot();
}

void ChainWindow::ShowSteps() {
  for (int i = 0; i < ChainRule::kStepCount; ++i) {
    const ChainStep& step = m_rule.Steps()[static_cast<std::size_t>(i)];
    m_steps[static_cast<std::size_t>(i)].Text->setText(
        step.Text.isEmpty() ? tr("%1: not found").arg(step.Name) : QStringLiteral("%1 = %2").arg(step.Name, step.Text));
    ShowTypeset(i);
  }
  m_lblDirect->setText(m_rule.DirectText().isEmpty()
                           ? QString()
                           : tr("Our derivative of f(g(x)) taken at once: %1").arg(m_rule.DirectText()));
  m_lblCheck->setText(m_rule.Ok() ? m_check.Words : QString());
  QPalette palette = m_lblCheck->palette();
  palette.setColor(QPalette::WindowText, m_check.Agrees ? QColor(0, 110, 40) : QColor(160, 16, 16));
  m_lblCheck->setPalette(palette);
  m_lblMessage->setText(m_rule.Problem());
  m_lblMessage->setVisible(!m_rule.Ok());
}

void ChainWindow::ShowTypeset(int step) {
  const ChainStep& s = m_rule.Steps()[static_cast<std::size_t>(step)];
  QLabel* label = m_steps[static_cast<std::size_t>(step)].Typeset;
  label->setVisible(!s.Text.isEmpty());
  if (s.Text.isEmpty()) return;
  mathx::Formula formula;
  formula.SetPixelSize(kTypesetPixels);
  formula.SetText(s.Text);
  label->setPixmap(QPixmap::fromImage(formula.Render(plot2d::Plot::ColorOf(StepColor(step)), devicePixelRatioF())));
}

void ChainWindow::showEvent(QShowEvent* event) {
  // Shown on its screen, the window knows the screen's density: typeset again, sharp at it.
  ShowSteps();
  QWidget::showEvent(event);
}

void ChainWindow::Replot() {
  auto& scene = m_plot->Scene();
  scene.ClearAll();
  std::int32_t kind = 1;
  for (int i = 0; i < ChainRule::kStepCount; ++i) {
    const ChainStep& step = m_rule.Steps()[static_cast<std::size_t>(i)];
    if (step.Text.isEmpty() || !step.Line.Ok() || !m_steps[static_cast<std::size_t>(i)].Show->isChecked()) continue;
    scene.AddFunction(static_cast<std::int16_t>(i + 1),
                      plotcompiler::CompileEquation(QStringLiteral("y=") + step.Text, false), StepColor(i), false, kind,
                      false, true, false, 0);
  }
  m_plot->Redraw();
}

}  // namespace chain
