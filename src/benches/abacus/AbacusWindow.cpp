#include "AbacusWindow.h"

#include <algorithm>

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace abacus {

namespace {

constexpr int kExpressionRole = Qt::UserRole;

// The answer stands out from the rest: larger, and red when it is a reason rather than a value.
void StyleResult(QLabel* label, bool ok) {
  QFont font = label->font();
  font.setPointSizeF(QApplication::font().pointSizeF() * (ok ? 1.6 : 1.1));
  font.setBold(ok);
  label->setFont(font);
  label->setStyleSheet(ok ? QString() : QStringLiteral("color: #b00020;"));
}

}  // namespace

AbacusWindow::AbacusWindow(QWidget* parent) : QWidget(parent) {
  setWindowTitle(tr("Abacus — Quillograph"));
  setMinimumSize(460, 420);
  resize(560, 540);
  CopyText = [](const QString& text) { QApplication::clipboard()->setText(text); };
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(14, 14, 14, 14);
  layout->setSpacing(10);
  layout->addWidget(BuildInput());
  m_result = new QLabel(this);
  m_result->setAccessibleName(tr("Answer"));
  m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_result->setWordWrap(true);
  m_result->setMinimumHeight(40);
  m_result->setText(tr("Type an expression and press Enter."));
  StyleResult(m_result, false);
  m_result->setStyleSheet(QStringLiteral("color: #555555;"));
  layout->addWidget(m_result);
  layout->addWidget(BuildUnits());
  layout->addWidget(BuildHistory(), 1);
  setTabOrder(m_input, m_evaluate);
  setTabOrder(m_evaluate, m_radians);
  setTabOrder(m_radians, m_degrees);
  setTabOrder(m_degrees, m_history);
  setTabOrder(m_history, m_use);
  setTabOrder(m_use, m_copy);
  setTabOrder(m_copy, m_clear);
  m_input->setFocus();
  UpdateButtons();
}

QWidget* AbacusWindow::BuildInput() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(tr("&Expression:"), box);
  m_input = new QLineEdit(box);
  m_input->setAccessibleName(tr("Expression"));
  m_input->setPlaceholderText(tr("2+3*4, sqrt(2), sin(pi/6), ans/2"));
  m_input->setClearButtonEnabled(true);
  label->setBuddy(m_input);
  m_evaluate = new QPushButton(tr("="), box);
  m_evaluate->setAccessibleName(tr("Evaluate"));
  m_evaluate->setToolTip(tr("Evaluate (Enter)"));
  m_evaluate->setMinimumWidth(56);
  row->addWidget(label);
  row->addWidget(m_input, 1);
  row->addWidget(m_evaluate);
  connect(m_input, &QLineEdit::returnPressed, this, &AbacusWindow::Evaluate);
  m_input->installEventFilter(this);
  connect(m_evaluate, &QPushButton::clicked, this, &AbacusWindow::Evaluate);
  return box;
}

QWidget* AbacusWindow::BuildUnits() {
  auto* group = new QGroupBox(tr("Angles"), this);
  group->setAccessibleName(tr("Angles"));
  auto* row = new QHBoxLayout(group);
  m_radians = new QRadioButton(tr("&Radians"), group);
  m_radians->setAccessibleName(tr("Radians"));
  m_degrees = new QRadioButton(tr("&Degrees"), group);
  m_degrees->setAccessibleName(tr("Degrees"));
  m_degrees->setToolTip(tr("sin, cos and tan take degrees; asin, acos and atan give degrees"));
  m_radians->setChecked(true);
  auto* buttons = new QButtonGroup(group);
  buttons->addButton(m_radians);
  buttons->addButton(m_degrees);
  row->addWidget(m_radians);
  row->addWidget(m_degrees);
  row->addStretch(1);
  return group;
}

QWidget* AbacusWindow::BuildHistory() {
  auto* group = new QGroupBox(tr("History"), this);
  auto* column = new QVBoxLayout(group);
  m_history = new QListWidget(group);
  m_history->setAccessibleName(tr("History"));
  m_history->setAccessibleDescription(tr("Enter or a double-click puts a line back into the input; Ctrl+C copies it"));
  m_history->setAlternatingRowColors(true);
  QFont lines = m_history->font();
  lines.setPointSizeF(lines.pointSizeF() * 1.15);
  m_history->setFont(lines);
  column->addWidget(m_history, 1);
  auto* row = new QHBoxLayout;
  m_use = new QPushButton(tr("&Use again"), group);
  m_use->setAccessibleName(tr("Use again"));
  m_copy = new QPushButton(tr("&Copy"), group);
  m_copy->setAccessibleName(tr("Copy"));
  m_clear = new QPushButton(tr("C&lear history"), group);
  m_clear->setAccessibleName(tr("Clear history"));
  row->addWidget(m_use);
  row->addWidget(m_copy);
  row->addStretch(1);
  row->addWidget(m_clear);
  column->addLayout(row);
  auto* hint = new QLabel(tr("ans is the last answer. Up and Down in the input, Enter or a double-click on a line reuse it; Ctrl+C copies it."), group);
  hint->setWordWrap(true);
  hint->setStyleSheet(QStringLiteral("color: #555555;"));
  column->addWidget(hint);
  connect(m_history, &QListWidget::itemDoubleClicked, this, &AbacusWindow::UseAgain);
  m_history->installEventFilter(this);
  connect(m_history, &QListWidget::currentItemChanged, this, &AbacusWindow::UpdateButtons);
  connect(m_use, &QPushButton::clicked, this, [this] { UseAgain(m_history->currentItem()); });
  connect(m_copy, &QPushButton::clicked, this, &AbacusWindow::CopyCurrent);
  connect(m_clear, &QPushButton::clicked, this, [this] {
    m_history->clear();
    m_recall = -1;
    UpdateButtons();
  });
  return group;
}

void AbacusWindow::SetUnit(AngleUnit unit) { (unit == AngleUnit::Degrees ? m_degrees : m_radians)->setChecked(true); }

AngleUnit AbacusWindow::Unit() const { return m_degrees->isChecked() ? AngleUnit::Degrees : AngleUnit::Radians; }

void AbacusWindow::Evaluate() {
  const QString expression = m_input->text().trimmed();
  ShowAnswer(expression, m_engine.Evaluate(expression, Unit()));
}

// A value goes into the history and the input is emptied for the next line; a reason stays
// beside the text it is about, so the text can be corrected.
void AbacusWindow::ShowAnswer(const QString& expression, const Answer& answer) {
  StyleResult(m_result, answer.Ok);
  if (!answer.Ok) {
    m_result->setText(answer.Message);
    return;
  }
  m_result->setText(QStringLiteral("= ") + answer.Text);
  const QString unit = Unit() == AngleUnit::Degrees ? tr("  (degrees)") : QString();
  auto* item = new QListWidgetItem(expression + QStringLiteral(" = ") + answer.Text);
  item->setData(kExpressionRole, expression);
  item->setToolTip(expression + QStringLiteral(" = ") + answer.Text + unit);
  m_history->addItem(item);
  m_recall = -1;
  m_history->setCurrentItem(item);
  m_history->scrollToItem(item);
  m_input->clear();
  UpdateButtons();
}

// The input's Up and Down step through the history, as in a terminal; the history's own keys:
// Enter reuses the current line, Ctrl+C copies it.
bool AbacusWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  if (watched == m_input && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
    Recall(key->key() == Qt::Key_Up ? -1 : 1);
    return true;
  }
  if (watched != m_history) return QWidget::eventFilter(watched, event);
  if (key->matches(QKeySequence::Copy)) {
    CopyCurrent();
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    UseAgain(m_history->currentItem());
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void AbacusWindow::Recall(int direction) {
  const int count = m_history->count();
  if (count == 0) return;
  const int current = m_recall < 0 ? count : m_recall;
  const int row = std::clamp(current + direction, 0, count - 1);
  m_recall = row;
  m_history->setCurrentRow(row);
  m_input->setText(m_history->item(row)->data(kExpressionRole).toString());
}

void AbacusWindow::UseAgain(QListWidgetItem* item) {
  if (!item) return;
  m_input->setText(item->data(kExpressionRole).toString());
  m_input->setFocus();
  m_input->selectAll();
}

void AbacusWindow::CopyCurrent() {
  if (QListWidgetItem* item = m_history->currentItem()) CopyText(item->text());
}

void AbacusWindow::UpdateButtons() {
  const bool chosen = m_history->currentItem() != nullptr;
  m_use->setEnabled(chosen);
  m_copy->setEnabled(chosen);
  m_clear->setEnabled(m_history->count() > 0);
}

}  // namespace abacus
