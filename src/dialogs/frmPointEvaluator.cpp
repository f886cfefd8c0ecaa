#include "frmPointEvaluator.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "core/TextFunctions.h"
#include "expression/SymbolFolding.h"
#include "mathx/MthX.h"
#include "plotcompiler/EquationCompiler.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace dialogs {

namespace {

constexpr int kRed = 255;
constexpr int kBlack = 0;
constexpr int kMostPoints = 50;
constexpr double kSlack = 1e-9;  // of a step: what the points editor allows the end for rounding

// The right-hand side of an equation: what stands behind its first "=".
QString RightSide(const QString& text) { return core::Mid(text, core::InStr(text, QStringLiteral("=")) + 1); }

}  // namespace

frmPointEvaluator::frmPointEvaluator(int row, RowTarget& target, core::SharedState& state,
                                     expression::ScriptEvaluation& evaluation, platform::MessageBoxes& boxes,
                                     OpenTable openTable, QWidget* parent)
    : RowPopup(parent),
      m_target(target),
      m_state(state),
      m_evaluation(evaluation),
      m_boxes(boxes),
      m_openTable(std::move(openTable)) {
  setObjectName(QStringLiteral("frmPointEvaluator"));
  setWindowTitle(tr("Point Evaluator"));
  core::SetTag(this, QString::number(row));

  auto* heading = new QLabel(tr("Points of function %1").arg(row + 1), this);
  heading->setObjectName(QStringLiteral("lblHeading"));
  m_mthEquation = new mathx::MthX(this);
  m_mthEquation->setObjectName(QStringLiteral("mthEquation"));
  m_mthEquation->SetFontSize(16);
  m_mthEquation->SetFramed(true);
  m_mthEquation->SetText(QStringLiteral("y=sin(x)"));
  m_mthEquation->setMinimumHeight(44);

  const auto field = [this](const char* name, const char* text, const QString& tip) {
    auto* edit = new QLineEdit(QString::fromLatin1(text), this);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAlignment(Qt::AlignCenter);
    edit->setToolTip(tip);
    edit->setMinimumWidth(64);
    return edit;
  };
  m_txtFrom = field("txtFrom", "-4", tr("The first value of the variable: a number or an expression (-2*pi ...)"));
  m_txtTo = field("txtTo", "4", tr("The last value of the variable: a number or an expression (2*pi ...)"));
  m_txtStep = field("txtStep", "0.5", tr("The step between two points: a number"));
  m_lblPointNmb = new QLabel(QStringLiteral("Number of points: 40"), this);
  m_lblPointNmb->setObjectName(QStringLiteral("lblPointNmb"));
  m_btnEvaluate = new QPushButton(QStringLiteral("&Evaluate"), this);
  m_btnEvaluate->setObjectName(QStringLiteral("btnEvaluate"));
  m_btnEvaluate->setDefault(true);
  m_btnEvaluate->setToolTip(tr("Compute the points and open them in the table"));
  m_btnNew = new QPushButton(QStringLiteral("&Table"), this);
  m_btnNew->setObjectName(QStringLiteral("btnNew"));
  m_btnNew->setToolTip(tr("Open an empty table and type the points by hand"));
  m_btnCancel = new QPushButton(QStringLiteral("&Cancel"), this);
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));

  auto* range = new QGridLayout;
  range->setHorizontalSpacing(6);
  range->setVerticalSpacing(2);
  const std::pair<const char*, QLineEdit*> columns[] = {{"From", m_txtFrom}, {"To", m_txtTo}, {"Step", m_txtStep}};
  int column = 0;
  for (const auto& [caption, edit] : columns) {
    auto* label = new QLabel(tr(caption), this);
    label->setObjectName(QStringLiteral("lbl") + QString::fromLatin1(caption));
    label->setProperty("hint", true);
    label->setBuddy(edit);
    range->addWidget(label, 0, column);
    range->addWidget(edit, 1, column);
    ++column;
  }
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(6);
  buttons->addWidget(m_btnEvaluate);
  buttons->addWidget(m_btnNew);
  buttons->addStretch();
  buttons->addWidget(m_btnCancel);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 10, 12, 12);
  layout->setSpacing(6);
  layout->addWidget(heading);
  layout->addWidget(m_mthEquation);
  layout->addSpacing(2);
  layout->addLayout(range);
  layout->addWidget(m_lblPointNmb);
  layout->addSpacing(4);
  layout->addLayout(buttons);
  setMinimumWidth(300);

  for (QLineEdit* edit : {m_txtFrom, m_txtTo, m_txtStep}) {
    connect(edit, &QLineEdit::textChanged, this, &frmPointEvaluator::PointCount_Change);
  }
  connect(m_btnEvaluate, &QPushButton::clicked, this, &frmPointEvaluator::btnEvaluate_Click);
  connect(m_btnNew, &QPushButton::clicked, this, &frmPointEvaluator::btnNew_Click);
  connect(m_btnCancel, &QPushButton::clicked, this, &frmPointEvaluator::btnCancel_Click);

  // The equation and the count are right before the form is first seen.
  Form_Activate();
  PointCount_Change();
}

frmPointEvaluator::~frmPointEvaluator() = default;

int frmPointEvaluator::Row() const { return static_cast<int>(core::NumericPrefix(core::Tag(this))); }

void frmPointEvaluator::SetRow(int row) {
  if (row < 0) return;
  core::SetTag(this, QString::number(row));
  if (auto* heading = findChild<QLabel*>(QStringLiteral("lblHeading"))) heading->setText(tr("Points of function %1").arg(row + 1));
}

void frmPointEvaluator::Form_Activate() {
  if (!m_filled) {
    m_filled = true;
    // The equation alone: a condition behind it has no say in the points.
    const QString text = m_target.RowText(Row());
    const QString line = plotcompiler::CompileEquation(text, false);
    const int semicolon = core::InStr(line, QStringLiteral(";"));
    m_mthEquation->SetText(semicolon > 0 ? core::Left(line, semicolon - 1) : text);
  }
  // The start of the range waits for the user's input (and keeps it after a message box).
  if (!Unloading() && focusWidget() == nullptr) {
    m_txtFrom->setFocus();
    m_txtFrom->selectAll();
  }
}

void frmPointEvaluator::SetCountColor(int color) {
  m_countColor = color;
  m_lblPointNmb->setStyleSheet(color == kRed ? QStringLiteral("color: rgb(255, 0, 0);")
                                             : QStringLiteral("color: rgb(0, 0, 0);"));
}

// The count is the number of points the table gets, the start and every whole step up to the end
// (counted as the table counts them, with the same allowance for rounding), so that the number
// shown is the number written. An end before the start counts the steps backwards, in red. An
// expression that can't be computed, a zero step or a count beyond any integer is a failure: red,
// with the text as it was.
void frmPointEvaluator::PointCount_Change() {
  try {
    const double to = m_evaluation.EvaluateExpression(m_txtTo->text());
    if (m_state.MathError) throw core::RuntimeError::Of(core::RuntimeError::TypeMismatch);
    const double from = m_evaluation.EvaluateExpression(m_txtFrom->text());
    if (m_state.MathError) throw core::RuntimeError::Of(core::RuntimeError::TypeMismatch);
    const double step = core::NumericPrefix(m_txtStep->text());
    if (step == 0) throw core::RuntimeError::Of(core::RuntimeError::DivisionByZero);
    const double steps = (to - from) / step;
    const std::int32_t n = steps < 0 ? core::RoundToInt32(steps) : core::RoundToInt32(std::floor(steps + kSlack)) + 1;
    SetCountColor(n > kMostPoints || n < 1 ? kRed : kBlack);
    m_lblPointNmb->setText(QStringLiteral("Number of points: ") + QString::number(n));
  } catch (const core::RuntimeError&) {
    SetCountColor(kRed);
  }
}

void frmPointEvaluator::btnEvaluate_Click() {
  if (Unloading()) return;
  if (m_countColor == kRed) {
    SetAnswering(true);
    m_boxes.Show(QStringLiteral("Number of point must be 50 or less."), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, QStringLiteral("Point Evaluator - [Msg-0008]"));
    SetAnswering(false);
    return;
  }
  // The expression and the name of the quantity it gives: y of x, x of y (neither may stand on
  // its own right-hand side), r of theta. Anything else goes whole under the name "i", for which
  // the table computes nothing.
  const QString text = m_mthEquation->Text();
  QString expression = text;
  QString name = QStringLiteral("i");
  try {
    const auto holds = [this](const QString& side, const char* symbol) {
      return expression::ReplaceSymbol(m_state.FunctionTokens, side, QString::fromLatin1(symbol), QString()) != side;
    };
    if (text.startsWith(u"y=") && !holds(RightSide(text), "y")) {
      expression = RightSide(text);
      name = QStringLiteral("y");
    } else if (text.startsWith(u"x=") && !holds(RightSide(text), "x")) {
      expression = RightSide(text);
      name = QStringLiteral("x");
    } else if (text.startsWith(u"r=")) {
      expression = RightSide(text);
      name = QStringLiteral("r");
    }
  } catch (const core::RuntimeError&) {
    expression = text;
    name = QStringLiteral("i");
  }
  const double from = m_evaluation.EvaluateExpression(m_txtFrom->text());
  const double to = m_evaluation.EvaluateExpression(m_txtTo->text());
  const double step = core::NumericPrefix(m_txtStep->text());
  const QStringList pieces{core::Tag(this), plotcompiler::CompileEquation(expression, true), name,
                           core::FormatNumber(from), core::FormatNumber(to), core::FormatNumber(step)};
  const OpenTable openTable = m_openTable;
  const QPoint at = pos();
  Unload();
  if (openTable) openTable(pieces.join(u';'), at);
}

void frmPointEvaluator::btnNew_Click() {
  if (Unloading()) return;
  const OpenTable openTable = m_openTable;
  const QString tag = core::Tag(this);
  const QPoint at = pos();
  Unload();
  if (openTable) openTable(tag, at);
}

void frmPointEvaluator::Leave() {
  if (Unloading() || isHidden()) return;
  // The equation is read from the row again when it comes back; the range stays as typed.
  m_filled = false;
  hide();
}

void frmPointEvaluator::btnCancel_Click() {
  if (Unloading()) return;
  const int row = Row();
  RowTarget& target = m_target;
  Unload();
  target.FocusAfter(row);
}

}  // namespace dialogs
