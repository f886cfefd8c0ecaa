#include "AreaWindow.h"

#include "AreaPlot.h"
#include "ErrorPlot.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace area {

namespace {

constexpr int kMostPieces = 1000;

QString Number(double v) { return QString::number(v, 'g', 15); }

QLineEdit* Field(const QString& text, const QString& accessibleName, int width) {
  auto* field = new QLineEdit(text);
  field->setAccessibleName(accessibleName);
  field->setMinimumWidth(width);
  return field;
}

QLabel* ResultLabel(const QString& accessibleName) {
  auto* label = new QLabel;
  label->setAccessibleName(accessibleName);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.15);
  label->setFont(font);
  return label;
}

}  // namespace

AreaWindow::AreaWindow(QWidget* parent) : QWidget(parent), m_evaluation(m_state, m_engine) {
  core::InitTables(m_state);
  expression::StartScriptEngine(m_engine, m_state);
  setWindowTitle(QStringLiteral("Area Bench \u2014 Riemann sums"));
  setMinimumSize(960, 640);
  m_plot = new AreaPlot;
  m_errors = new ErrorPlot;
  auto* root = new QVBoxLayout(this);
  root->setContentsMargins(14, 12, 14, 12);
  root->setSpacing(10);
  root->addWidget(BuildInputs());
  m_message = new QLabel;
  m_message->setWordWrap(true);
  m_message->setAccessibleName(QStringLiteral("Message"));
  root->addWidget(m_message);
  auto* body = new QHBoxLayout;
  body->setSpacing(14);
  auto* left = new QVBoxLayout;
  left->addWidget(m_plot, 1);
  left->addWidget(BuildResults());
  body->addLayout(left, 3);
  body->addWidget(BuildErrorColumn(), 2);
  root->addLayout(body, 1);
  setTabOrder(m_function, m_from);
  setTabOrder(m_from, m_to);
  setTabOrder(m_to, m_rule);
  setTabOrder(m_rule, m_countSlider);
  setTabOrder(m_countSlider, m_countBox);
  setTabOrder(m_countBox, m_plot);
  ApplyInputs();
}

// A field losing its focus as the window goes would otherwise read the inputs into a window
// already half taken down.
AreaWindow::~AreaWindow() {
  for (QObject* control : std::initializer_list<QObject*>{m_function, m_from, m_to, m_rule, m_countBox, m_countSlider}) {
    disconnect(control, nullptr, this, nullptr);
  }
}

QWidget* AreaWindow::BuildInputs() {
  auto* box = new QWidget;
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(8);
  m_function = Field(QStringLiteral("x^2"), QStringLiteral("Function f of x"), 220);
  m_from = Field(QStringLiteral("0"), QStringLiteral("Interval start a"), 80);
  m_to = Field(QStringLiteral("1"), QStringLiteral("Interval end b"), 80);
  m_rule = new QComboBox;
  for (Rule rule : kRules) m_rule->addItem(RuleName(rule));
  m_rule->setCurrentIndex(static_cast<int>(Rule::Midpoint));
  m_rule->setAccessibleName(QStringLiteral("Rule"));
  m_countSlider = new QSlider(Qt::Horizontal);
  m_countSlider->setRange(1, kMostPieces);
  m_countSlider->setAccessibleName(QStringLiteral("Number of pieces n"));
  m_countSlider->setMinimumWidth(220);
  m_countBox = new QSpinBox;
  m_countBox->setRange(1, kMostPieces);
  m_countBox->setAccessibleName(QStringLiteral("Number of pieces n, typed"));
  m_countSlider->setValue(4);
  m_countBox->setValue(4);
  const struct {
    const char* Text;
    QWidget* Buddy;
    int Row, Column;
  } labels[] = {{"&f(x) =", m_function, 0, 0}, {"&a =", m_from, 0, 2}, {"&b =", m_to, 0, 4},
                {"&Rule:", m_rule, 1, 0},     {"&n =", m_countSlider, 1, 2}};
  for (const auto& l : labels) {
    auto* label = new QLabel(QString::fromUtf8(l.Text));
    label->setBuddy(l.Buddy);
    grid->addWidget(label, l.Row, l.Column, Qt::AlignRight);
  }
  grid->addWidget(m_function, 0, 1);
  grid->addWidget(m_from, 0, 3);
  grid->addWidget(m_to, 0, 5);
  grid->addWidget(m_rule, 1, 1);
  grid->addWidget(m_countSlider, 1, 3, 1, 3);
  grid->addWidget(m_countBox, 1, 6);
  grid->setColumnStretch(7, 1);
  for (QLineEdit* field : {m_function, m_from, m_to}) {
    connect(field, &QLineEdit::editingFinished, this, &AreaWindow::ApplyInputs);
  }
  connect(m_countSlider, &QSlider::valueChanged, m_countBox, &QSpinBox::setValue);
  connect(m_countBox, &QSpinBox::valueChanged, m_countSlider, &QSlider::setValue);
  connect(m_countBox, &QSpinBox::valueChanged, this, &AreaWindow::ShowSum);
  connect(m_rule, &QComboBox::currentIndexChanged, this, &AreaWindow::ShowSum);
  return box;
}

QWidget* AreaWindow::BuildResults() {
  auto* box = new QGroupBox(QStringLiteral("The sum and the integral"));
  auto* layout = new QVBoxLayout(box);
  m_sumText = ResultLabel(QStringLiteral("Sum"));
  m_integralText = ResultLabel(QStringLiteral("Integral"));
  m_errorText = ResultLabel(QStringLiteral("Error"));
  layout->addWidget(m_sumText);
  layout->addWidget(m_integralText);
  layout->addWidget(m_errorText);
  return box;
}

QWidget* AreaWindow::BuildErrorColumn() {
  auto* column = new QWidget;
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* title = new QLabel(QStringLiteral("<b>How fast each rule closes in</b><br>log\u2081\u2080 |error| against "
                                          "log\u2081\u2080 n, for n = 4, 8, \u2026, 256. A slope of \u2212k means "
                                          "doubling n divides the error by 2<sup>k</sup>."));
  title->setWordWrap(true);
  layout->addWidget(title);
  layout->addWidget(m_errors, 1);
  m_legend = new QLabel;
  m_legend->setAccessibleName(QStringLiteral("Slopes of the lines"));
  layout->addWidget(m_legend);
  m_orderNote = new QLabel;
  m_orderNote->setWordWrap(true);
  m_orderNote->setAccessibleName(QStringLiteral("Note on the orders"));
  layout->addWidget(m_orderNote);
  return column;
}

Rule AreaWindow::CurrentRule() const { return kRules[static_cast<size_t>(std::max(0, m_rule->currentIndex()))]; }

std::optional<double> AreaWindow::ReadBound(QLineEdit* field, const QString& name, QString& problem) {
  const QString text = field->text().trimmed();
  const double value = text.isEmpty() ? 0 : m_evaluation.EvaluateExpression(text);
  if (text.isEmpty() || m_state.MathError || !std::isfinite(value) || std::abs(value) > 1e12) {
    problem = QStringLiteral("%1 = \u201C%2\u201D is not a number the bench can use: type one such as 0, 2.5 or pi.")
                  .arg(name, text);
    return std::nullopt;
  }
  return value;
}

void AreaWindow::ApplyInputs() {
  QString problem;
  const AreaFunction f(m_function->text());
  const auto a = ReadBound(m_from, QStringLiteral("a"), problem);
  const auto b = a ? ReadBound(m_to, QStringLiteral("b"), problem) : std::nullopt;
  if (!f.Ok()) return Fail(f.Problem());
  if (!a || !b) return Fail(problem);
  if (!(*a < *b)) return Fail(QStringLiteral("The interval needs a < b: here a = %1 and b = %2.").arg(Number(*a), Number(*b)));
  const mathlang::IntegralValue integral = f.Integral(*a, *b);
  if (!integral.Defined) {
    return Fail(QStringLiteral("f(x) = %1 has no value somewhere in [%2, %3], so its area is not defined there: "
                               "choose an interval where f is defined.")
                    .arg(m_function->text().trimmed(), Number(*a), Number(*b)));
  }
  m_f = f;
  m_a = *a, m_b = *b;
  m_integral = integral.Total;
  m_plot->ShowFunction(m_f, m_a, m_b);
  const OrderStudy study(m_f, m_a, m_b, *m_integral);
  m_errors->ShowStudy(study);
  m_legend->setText(m_errors->LegendHtml());
  ExplainOrders(study);
  ShowSum();
}

void AreaWindow::ShowSum() {
  if (!m_integral) return;
  const Rule rule = CurrentRule();
  const int asked = m_countBox->value();
  const int n = UsableCount(rule, asked);
  const double sum = RiemannSum([this](double x) { return m_f.At(x); }, m_a, m_b, asked, rule);
  m_plot->ShowSum(rule, n);
  if (!std::isfinite(sum)) {
    m_sum.reset();
    m_errors->Mark(rule, n, std::nan(""));
    m_sumText->setText(QStringLiteral("Sum: f has no value at one of the %1 rule's sample points.").arg(RuleName(rule)));
    m_errorText->clear();
    Say(QStringLiteral("Choose another rule, n or interval, so that every sample point lies where f is defined."), true);
    return;
  }
  m_sum = sum;
  const double error = sum - *m_integral;
  m_errors->Mark(rule, n, std::abs(error));
  m_sumText->setText(QStringLiteral("Sum (%1 rule, n = %2) = %3").arg(RuleName(rule)).arg(n).arg(Number(sum)));
  m_integralText->setText(QStringLiteral("Integral of f from %1 to %2 = %3").arg(Number(m_a), Number(m_b),
                                                                                  Number(*m_integral)));
  m_errorText->setText(QStringLiteral("Error = sum \u2212 integral = %1").arg(QString::number(error, 'g', 6)));
  if (n != asked) {
    Say(QStringLiteral("Simpson's rule pairs the pieces, so it needs an even n: n = %1 is odd, and the sum uses "
                       "n = %2.").arg(asked).arg(n),
        false);
  } else {
    Say(QStringLiteral("Type f, a and b and press Enter; move n with the slider or the arrow keys."), false);
  }
}

// Where a rule does better than its order, say why rather than let the picture look wrong.
void AreaWindow::ExplainOrders(const OrderStudy& study) {
  const double left = study.Of(Rule::Left).Slope;
  if (std::isfinite(left) && left < -1.5) {
    const bool sameEnds = std::abs(m_f.At(m_a) - m_f.At(m_b)) <= 1e-12 * std::max(1.0, std::abs(m_f.At(m_a)));
    m_orderNote->setText(sameEnds ? QStringLiteral("Here the left and right sums close in at order 2, not 1: "
                                                   "f(a) = f(b), so both equal the trapezoid sum and hide behind its line.")
                                  : QStringLiteral("Here the left and right sums close in faster than order 1: "
                                                   "their first-order errors cancel for this f."));
  } else if (study.Of(Rule::Simpson).Errors.empty()) {
    m_orderNote->setText(QStringLiteral("Simpson's rule is exact for this f (it is exact up to cubics), so it has "
                                        "no error to draw."));
  } else {
    m_orderNote->clear();
  }
}

void AreaWindow::Fail(const QString& problem) {
  m_orderNote->clear();
  m_legend->clear();
  m_sum.reset();
  m_integral.reset();
  m_plot->Clear();
  m_errors->Clear();
  m_sumText->setText(QStringLiteral("Sum: \u2014"));
  m_integralText->setText(QStringLiteral("Integral: \u2014"));
  m_errorText->setText(QStringLiteral("Error: \u2014"));
  Say(problem, true);
}

void AreaWindow::Say(const QString& text, bool problem) {
  m_message->setText(text);
  m_message->setStyleSheet(problem ? QStringLiteral("color: #b00020; font-weight: bold;")
                                   : QStringLiteral("color: #505050;"));
}

}  // namespace area
