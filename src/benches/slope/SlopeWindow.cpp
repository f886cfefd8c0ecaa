#include "SlopeWindow.h"

#include "core/NumberText.h"
#include "plot2d/PlotWidget.h"
#include "plotcompiler/EquationCompiler.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace slope {

namespace {

// Colours as the plot keeps them: red in the low byte.
constexpr double Rgb(int r, int g, int b) { return r + 256.0 * g + 65536.0 * b; }
constexpr double kCurveColor = Rgb(20, 80, 200);
constexpr double kSecantColor = Rgb(205, 95, 0);
constexpr double kTangentColor = Rgb(0, 130, 60);
constexpr double kTraceColor = Rgb(150, 40, 170);
constexpr double kPointColor = Rgb(200, 30, 30);

constexpr double kHMax = 2;
constexpr double kHMin = 1e-6;
constexpr double kStep = 0.1;
constexpr int kAnimationMs = 30;
constexpr int kAnimationStride = 5;
constexpr double kGrabPixels = 12;
constexpr std::size_t kTraceLimit = 5000;

QColor ColorOf(double value) { return plot2d::Plot::ColorOf(value); }

// A number as the line language reads it: plain decimals, no exponent (an "e" would be Euler's).
QString LineNumber(double value) { return QStringLiteral("(%1)").arg(QString::number(value, 'f', 15)); }

// The line through (x0, y0) with slope m, as a row "y=...".
QString LineThrough(double x0, double y0, double m) {
  return QStringLiteral("y=%1+%2*(x-%3)").arg(LineNumber(y0), LineNumber(m), LineNumber(x0));
}

QLabel* ColoredLabel(double color, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, ColorOf(color));
  label->setPalette(palette);
  return label;
}

QPushButton* Button(const QString& text, const QString& name, const QString& accessible, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setAccessibleName(accessible);
  button->setToolTip(accessible);
  return button;
}

QLineEdit* Field(const QString& text, const QString& name, const QString& accessible, QWidget* parent) {
  auto* field = new QLineEdit(text, parent);
  field->setObjectName(name);
  field->setAccessibleName(accessible);
  field->setMinimumWidth(120);
  return field;
}

}  // namespace

SlopeWindow::SlopeWindow(QWidget* parent) : QWidget(parent), m_evaluation(m_state, m_engine) {
  core::InitTables(m_state);
  expression::StartScriptEngine(m_engine, m_state);
  setWindowTitle(tr("Slope Bench — Quillograph"));
  setMinimumSize(920, 600);
  resize(1200, 760);
  m_animation.setInterval(kAnimationMs);
  connect(&m_animation, &QTimer::timeout, this, &SlopeWindow::AnimationStep);
  BuildControls();
  m_function.SetText(m_edtFunction->text());
  AddTracePoint();
  Refresh();
}

double SlopeWindow::HOfSlider(int position) {
  if (position <= 0) return kHMax;
  if (position >= kSliderSteps) return kHMin;
  const double h = kHMax * std::pow(kHMin / kHMax, static_cast<double>(position) / kSliderSteps);
  // Three significant digits: a step a student can read and type again.
  return QString::number(h, 'g', 3).toDouble();
}

int SlopeWindow::SliderOf(double h) {
  h = std::abs(h);
  if (!(h < kHMax)) return 0;
  if (h <= kHMin) return kSliderSteps;
  return static_cast<int>(std::lround(kSliderSteps * std::log(h / kHMax) / std::log(kHMin / kHMax)));
}

void SlopeWindow::BuildControls() {
  auto* panel = new QWidget(this);
  panel->setObjectName(QStringLiteral("panel"));
  panel->setMinimumWidth(360);
  panel->setMaximumWidth(420);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(BuildFunctionGroup());
  column->addWidget(BuildPointGroup());
  column->addWidget(BuildStepGroup());
  column->addWidget(BuildSlopesGroup());
  m_lblMessage = new QLabel(panel);
  m_lblMessage->setObjectName(QStringLiteral("lblMessage"));
  m_lblMessage->setAccessibleName(tr("Message"));
  m_lblMessage->setWordWrap(true);
  m_lblMessage->setStyleSheet(QStringLiteral("color: #a01010;"));
  column->addWidget(m_lblMessage);
  column->addStretch(1);

  m_plot = new plot2d::PlotWidget(this);
  m_plot->setObjectName(QStringLiteral("plot"));
  m_plot->setAccessibleName(tr("Plot of f, the secant, the tangent and the traced derivative"));
  m_plot->setMinimumSize(440, 400);
  m_plot->setMouseTracking(true);
  m_plot->installEventFilter(this);
  auto& scene = m_plot->Scene();
  scene.SetDefaultRange(-3, 4, -2, 6);
  scene.ResetRange();

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(12);
  layout->addWidget(panel);
  layout->addWidget(m_plot, 1);
  SetTabOrder();
}

QWidget* SlopeWindow::BuildFunctionGroup() {
  auto* group = new QGroupBox(tr("Function"), this);
  auto* form = new QFormLayout(group);
  m_edtFunction = Field(QStringLiteral("x^2"), QStringLiteral("edtFunction"), tr("Function f(x), after y ="), group);
  m_edtFunction->setPlaceholderText(tr("a function of x, such as sin(x)"));
  auto* label = new QLabel(tr("&y ="), group);
  label->setBuddy(m_edtFunction);
  form->addRow(label, m_edtFunction);
  auto* legend = ColoredLabel(kCurveColor, group);
  legend->setText(
      tr("The curve is blue, the secant orange, the tangent green and the derivative's trace purple."));
  form->addRow(legend);
  connect(m_edtFunction, &QLineEdit::textChanged, this, &SlopeWindow::FunctionEdited);
  return group;
}

QWidget* SlopeWindow::BuildPointGroup() {
  auto* group = new QGroupBox(tr("Point"), this);
  auto* box = new QVBoxLayout(group);
  auto* form = new QFormLayout;
  m_edtX0 = Field(QStringLiteral("1"), QStringLiteral("edtX0"), tr("Point x0"), group);
  auto* label = new QLabel(tr("&x₀ ="), group);
  label->setBuddy(m_edtX0);
  form->addRow(label, m_edtX0);
  box->addLayout(form);
  auto* buttons = new QHBoxLayout;
  m_btnLeft = Button(tr("← x₀ − 0.1"), QStringLiteral("btnLeft"), tr("Move x0 left by 0.1"), group);
  m_btnRight = Button(tr("x₀ + 0.1 →"), QStringLiteral("btnRight"), tr("Move x0 right by 0.1"), group);
  buttons->addWidget(m_btnLeft);
  buttons->addWidget(m_btnRight);
  box->addLayout(buttons);
  auto* hint = new QLabel(tr("Or drag the red point along the curve."), group);
  hint->setWordWrap(true);
  box->addWidget(hint);
  connect(m_edtX0, &QLineEdit::textChanged, this, &SlopeWindow::X0Edited);
  connect(m_btnLeft, &QPushButton::clicked, this, [this] { StepX0(-kStep); });
  connect(m_btnRight, &QPushButton::clicked, this, [this] { StepX0(kStep); });
  return group;
}

QWidget* SlopeWindow::BuildStepGroup() {
  auto* group = new QGroupBox(tr("Step h"), this);
  auto* box = new QVBoxLayout(group);
  auto* form = new QFormLayout;
  m_edtH = Field(QStringLiteral("0.5"), QStringLiteral("edtH"), tr("Step h"), group);
  auto* label = new QLabel(tr("&h ="), group);
  label->setBuddy(m_edtH);
  form->addRow(label, m_edtH);
  box->addLayout(form);
  m_sldH = new QSlider(Qt::Horizontal, group);
  m_sldH->setObjectName(QStringLiteral("sldH"));
  m_sldH->setAccessibleName(tr("Step h, from 2 down to 0.000001"));
  m_sldH->setRange(0, kSliderSteps);
  m_sldH->setPageStep(kSliderSteps / 20);
  m_sldH->setValue(SliderOf(m_h));
  auto* ends = new QHBoxLayout;
  ends->addWidget(new QLabel(tr("h = 2"), group));
  ends->addWidget(m_sldH, 1);
  ends->addWidget(new QLabel(tr("0.000001"), group));
  box->addLayout(ends);
  m_btnAnimate = Button(tr("&Slide h to 0"), QStringLiteral("btnAnimate"), tr("Slide h to 0"), group);
  box->addWidget(m_btnAnimate);
  connect(m_edtH, &QLineEdit::textChanged, this, &SlopeWindow::HEdited);
  connect(m_sldH, &QSlider::valueChanged, this, &SlopeWindow::SliderMoved);
  connect(m_btnAnimate, &QPushButton::clicked, this, &SlopeWindow::ToggleAnimation);
  return group;
}

QWidget* SlopeWindow::BuildSlopesGroup() {
  auto* group = new QGroupBox(tr("Slopes"), this);
  auto* box = new QVBoxLayout(group);
  m_lblDerivative = ColoredLabel(kTraceColor, group);
  m_lblSecant = ColoredLabel(kSecantColor, group);
  m_lblTangent = ColoredLabel(kTangentColor, group);
  m_lblGap = ColoredLabel(Rgb(40, 40, 40), group);
  m_lblTrace = ColoredLabel(kTraceColor, group);
  const std::pair<QLabel*, const char*> names[] = {{m_lblDerivative, "lblDerivative"},
                                                   {m_lblSecant, "lblSecant"},
                                                   {m_lblTangent, "lblTangent"},
                                                   {m_lblGap, "lblGap"},
                                                   {m_lblTrace, "lblTrace"}};
  for (const auto& [label, name] : names) {
    label->setObjectName(QString::fromLatin1(name));
    box->addWidget(label);
  }
  m_btnClearTrace =
      Button(tr("&Clear trace"), QStringLiteral("btnClearTrace"), tr("Clear the derivative's trace"), group);
  box->addWidget(m_btnClearTrace);
  connect(m_btnClearTrace, &QPushButton::clicked, this, &SlopeWindow::ClearTrace);
  return group;
}

void SlopeWindow::SetTabOrder() {
  const QWidget* order[] = {m_edtFunction, m_edtX0,      m_btnLeft,       m_btnRight, m_edtH,
                            m_sldH,        m_btnAnimate, m_btnClearTrace, m_plot};
  for (std::size_t i = 1; i < std::size(order); ++i) {
    setTabOrder(const_cast<QWidget*>(order[i - 1]), const_cast<QWidget*>(order[i]));
  }
}

void SlopeWindow::FunctionEdited() {
  m_function.SetText(m_edtFunction->text());
  m_trace.clear();
  AddTracePoint();
  Refresh();
}

void SlopeWindow::X0Edited() {
  const auto value = ReadNumber(m_edtX0->text(), QStringLiteral("x₀"), m_x0Problem);
  if (value)
    MoveX0(*value, false);
  else
    Refresh();
}

void SlopeWindow::HEdited() {
  const auto value = ReadNumber(m_edtH->text(), QStringLiteral("h"), m_hProblem);
  if (value && *value == 0) {
    m_hProblem = tr("h must not be 0: the secant needs two different points. Slide h towards 0 instead.");
  } else if (value) {
    m_h = *value;
    const QSignalBlocker block(m_sldH);
    m_sldH->setValue(SliderOf(m_h));
  }
  Refresh();
}

void SlopeWindow::SliderMoved(int position) {
  m_h = HOfSlider(position);
  m_hProblem.clear();
  {
    const QSignalBlocker block(m_edtH);
    m_edtH->setText(core::FormatNumber(m_h));
  }
  Refresh();
}

void SlopeWindow::ToggleAnimation() {
  if (m_animation.isActive()) {
    StopAnimation();
    return;
  }
  if (m_sldH->value() >= m_sldH->maximum()) m_sldH->setValue(0);
  m_btnAnimate->setText(tr("&Stop"));
  m_btnAnimate->setAccessibleName(tr("Stop sliding h"));
  m_animation.start();
}

void SlopeWindow::AnimationStep() {
  const int next = std::min(m_sldH->value() + kAnimationStride, m_sldH->maximum());
  m_sldH->setValue(next);
  if (next >= m_sldH->maximum()) StopAnimation();
}

void SlopeWindow::StopAnimation() {
  m_animation.stop();
  m_btnAnimate->setText(tr("&Slide h to 0"));
  m_btnAnimate->setAccessibleName(tr("Slide h to 0"));
}

void SlopeWindow::ClearTrace() {
  m_trace.clear();
  Refresh();
}

void SlopeWindow::StepX0(double by) {
  // Whole steps stay on the grid of tenths, so the field shows 1.1 rather than 1.0999999.
  MoveX0(std::round((m_x0 + by) / kStep) * kStep, true);
}

void SlopeWindow::Sweep(double from, double to, int steps) {
  for (int i = 0; i <= steps; ++i) MoveX0(from + (to - from) * i / std::max(1, steps), true);
}

void SlopeWindow::MoveX0(double x0, bool writeField) {
  m_x0 = x0;
  m_x0Problem.clear();
  if (writeField) {
    const QSignalBlocker block(m_edtX0);
    m_edtX0->setText(core::FormatNumber(x0));
  }
  AddTracePoint();
  Refresh();
}

void SlopeWindow::AddTracePoint() {
  const double slope = m_function.Slope(m_x0);
  if (!std::isfinite(slope) || m_trace.size() >= kTraceLimit) return;
  const bool known = std::any_of(m_trace.begin(), m_trace.end(), [&](const QPointF& p) { return p.x() == m_x0; });
  if (!known) m_trace.emplace_back(m_x0, slope);
}

std::optional<double> SlopeWindow::ReadNumber(const QString& text, const QString& name, QString& problem) {
  problem.clear();
  if (text.trimmed().isEmpty()) {
    problem = tr("Type a number for %1.").arg(name);
    return std::nullopt;
  }
  const double value = m_evaluation.EvaluateExpression(text);
  if (m_state.MathError || !std::isfinite(value)) {
    problem = tr("%1 cannot be read as a number: \"%2\".").arg(name, text);
    return std::nullopt;
  }
  return value;
}

bool SlopeWindow::DragStarts(QPointF pixel) const {
  const double y0 = m_function.Value(m_x0);
  if (!std::isfinite(y0)) return false;
  const auto& scene = m_plot->Scene();
  const QPointF at = scene.View().ToPixel(m_x0, y0) / scene.DevicePixelRatio();
  return QLineF(at, pixel).length() <= kGrabPixels;
}

double SlopeWindow::DataX(QPointF pixel) const {
  const auto& scene = m_plot->Scene();
  const auto view = scene.View();
  const double x = view.ToDataX(pixel.x() * scene.DevicePixelRatio());
  // Rounded to the pixel's own decimal, so a dragged x0 reads 1.23 rather than 1.2298765.
  const double grid = std::pow(10.0, std::floor(std::log10(view.XPerPixel() * scene.DevicePixelRatio())));
  return std::round(x / grid) * grid;
}

bool SlopeWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != m_plot) return QWidget::eventFilter(watched, event);
  const auto type = event->type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove && type != QEvent::MouseButtonRelease) {
    return QWidget::eventFilter(watched, event);
  }
  const auto* mouse = static_cast<QMouseEvent*>(event);
  const QPointF pixel = mouse->position();
  if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton && DragStarts(pixel)) {
    m_dragging = true;
    m_plot->setCursor(Qt::ClosedHandCursor);
    return true;
  }
  if (type == QEvent::MouseMove && m_dragging) {
    MoveX0(DataX(pixel), true);
    return true;
  }
  if (type == QEvent::MouseButtonRelease && m_dragging) {
    m_dragging = false;
    m_plot->setCursor(Qt::OpenHandCursor);
    return true;
  }
  if (type == QEvent::MouseMove && mouse->buttons() == Qt::NoButton) {
    if (DragStarts(pixel))
      m_plot->setCursor(Qt::OpenHandCursor);
    else
      m_plot->unsetCursor();
  }
  return QWidget::eventFilter(watched, event);
}

void SlopeWindow::Refresh() {
  ShowNumbers();
  Replot();
  ShowMessage();
}

void SlopeWindow::ShowNumbers() {
  const bool ready = m_function.Ok() && m_x0Problem.isEmpty() && m_hProblem.isEmpty();
  if (!m_function.Ok()) {
    m_lblDerivative->setText(tr("f′(x): none, f is not a function of x."));
  } else if (m_function.HasDerivative()) {
    m_lblDerivative->setText(tr("f′(x) = %1").arg(m_function.DerivativeText()));
  } else {
    m_lblDerivative->setText(m_function.DerivativeProblem());
  }
  const double secant = ready ? m_function.SecantSlope(m_x0, m_h) : NAN;
  const double tangent = ready ? m_function.Slope(m_x0) : NAN;
  if (!ready) {
    // The message below says what stands in the way; the slopes only point to it.
    m_lblSecant->setText(tr("Secant slope: none, see the message below."));
    m_lblTangent->setText(tr("Tangent slope: none, see the message below."));
  } else {
    m_lblSecant->setText(std::isfinite(secant)
                             ? tr("Secant slope (f(x₀+h) − f(x₀)) / h = %1").arg(core::FormatNumber(secant))
                             : tr("Secant slope: f is not defined at both x₀ and x₀+h."));
    m_lblTangent->setText(std::isfinite(tangent) ? tr("Tangent slope f′(x₀) = %1").arg(core::FormatNumber(tangent))
                                                 : tr("Tangent slope: none at this x₀."));
  }
  m_lblGap->setText(std::isfinite(secant) && std::isfinite(tangent)
                        ? tr("Secant minus tangent = %1").arg(core::FormatNumber(secant - tangent))
                        : QString());
  m_lblTrace->setText(tr("Derivative traced at %n point(s) (x₀, f′(x₀)).", nullptr, static_cast<int>(m_trace.size())));
  m_btnClearTrace->setEnabled(!m_trace.empty());
}

void SlopeWindow::Replot() {
  auto& scene = m_plot->Scene();
  scene.ClearAll();
  if (m_function.Ok()) {
    std::int32_t kind = 1;
    std::int16_t row = 0;
    const auto addLine = [&](const QString& text, double color) {
      scene.AddFunction(++row, plotcompiler::CompileEquation(text, false), color, false, kind, false, true, false, 0);
    };
    addLine(QStringLiteral("y=") + m_function.Text(), kCurveColor);
    const double y0 = m_function.Value(m_x0);
    const double secant = m_function.SecantSlope(m_x0, m_h);
    const double tangent = m_function.Slope(m_x0);
    const bool ready = m_x0Problem.isEmpty() && std::isfinite(y0);
    if (ready && m_hProblem.isEmpty() && std::isfinite(secant)) addLine(LineThrough(m_x0, y0, secant), kSecantColor);
    if (ready && std::isfinite(tangent)) addLine(LineThrough(m_x0, y0, tangent), kTangentColor);
    std::int16_t number = 0;
    for (const QPointF& p : m_trace) {
      double a = p.x(), b = p.y();
      scene.AddPoint(++number, a, b, 1, kTraceColor, true);
    }
    if (ready && m_hProblem.isEmpty() && std::isfinite(secant)) {
      double a = m_x0 + m_h, b = m_function.Value(m_x0 + m_h);
      scene.AddPoint(++number, a, b, 1, kSecantColor, true);
    }
    if (ready) {
      double a = m_x0, b = y0;
      scene.AddPoint(++number, a, b, 1, kPointColor, true);
    }
  }
  m_plot->Redraw();
}

void SlopeWindow::ShowMessage() {
  QStringList lines;
  if (!m_function.Ok()) lines << m_function.Problem();
  if (!m_x0Problem.isEmpty()) lines << m_x0Problem;
  if (!m_hProblem.isEmpty()) lines << m_hProblem;
  if (m_function.Ok() && m_x0Problem.isEmpty() && !std::isfinite(m_function.Value(m_x0))) {
    lines << tr("f is not defined at x₀ = %1.").arg(core::FormatNumber(m_x0));
  }
  m_lblMessage->setText(lines.join(u'\n'));
  m_lblMessage->setVisible(!lines.isEmpty());
}

}  // namespace slope
