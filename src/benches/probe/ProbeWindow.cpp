#include "ProbeWindow.h"

#include "core/NumberText.h"
#include "mathlang/Derivative.h"
#include "plot2d/NotablePoints.h"
#include "plot2d/PlotWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace probe {

namespace {

// Colours as the plot takes them: red in the low byte.
constexpr double Rgb(int r, int g, int b) { return r + g * 256.0 + b * 65536.0; }
constexpr double kCurveColor = Rgb(0x1f, 0x5f, 0xbf);
constexpr double kGuideColor = Rgb(0x90, 0x90, 0x90);
constexpr double kPointColor = Rgb(0x40, 0x40, 0x40);
constexpr double kMarkColor = Rgb(0xd0, 0x10, 0x10);

QString Plain(double v) { return QString::number(v, 'f', 10); }

// The row drawn over a stretch of x only.
QString Restricted(const QString& row, double from, double to) {
  const QString within = QStringLiteral("x>%1 and x<%2").arg(Plain(from), Plain(to));
  return row.contains(u';') ? row + QStringLiteral(" and ") + within : row + u';' + within;
}

}  // namespace

ProbeWindow::ProbeWindow(QWidget* parent) : QWidget(parent) {
  setWindowTitle(tr("Curve Probe — Quillograph"));
  setMinimumSize(820, 560);
  resize(1100, 700);
  CopyText = [](const QString& text) { QApplication::clipboard()->setText(text); };
  core::InitTables(m_state);
  expression::StartScriptEngine(m_engine, m_state);
  m_evaluation = std::make_unique<expression::ScriptEvaluation>(m_state, m_engine);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addWidget(BuildFields());
  m_message = new QLabel(this);
  m_message->setAccessibleName(tr("Message"));
  m_message->setWordWrap(true);
  m_message->setStyleSheet(QStringLiteral("color: #b00020;"));
  m_message->hide();
  layout->addWidget(m_message);
  auto* split = new QSplitter(Qt::Horizontal, this);
  m_plot = new plot2d::PlotWidget(split);
  m_plot->setAccessibleName(tr("Plot of the function"));
  m_plot->setMinimumSize(360, 300);
  split->addWidget(m_plot);
  split->addWidget(BuildSide());
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 2);
  layout->addWidget(split, 1);

  QWidget::setTabOrder(m_function, m_from);
  QWidget::setTabOrder(m_from, m_to);
  QWidget::setTabOrder(m_to, m_step);
  QWidget::setTabOrder(m_step, m_probe);
  QWidget::setTabOrder(m_probe, m_plot);
  QWidget::setTabOrder(m_plot, m_findings);
  QWidget::setTabOrder(m_findings, m_table);
  QWidget::setTabOrder(m_table, m_copy);
  Probe();
  m_function->setFocus();
}

QWidget* ProbeWindow::BuildFields() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  const auto field = [&](const QString& label, const QString& name, const QString& text, int width) {
    if (row->count() > 0) row->addSpacing(10);
    auto* caption = new QLabel(label, box);
    // The text's own width and a little more: squeezed, a short caption lost its last letter.
    caption->setMinimumWidth(caption->sizeHint().width() + 4);
    auto* edit = new QLineEdit(text, box);
    edit->setAccessibleName(name);
    caption->setBuddy(edit);
    if (width > 0) edit->setMaximumWidth(width);
    row->addWidget(caption);
    row->addWidget(edit, width > 0 ? 0 : 1);
    connect(edit, &QLineEdit::returnPressed, this, &ProbeWindow::Probe);
    return edit;
  };
  m_function = field(tr("&f(x) ="), tr("Function f(x)"), QStringLiteral("x^3-3x"), 0);
  m_function->setPlaceholderText(tr("x^3-3x, 1/(x-2), sqrt(x)"));
  m_from = field(tr("F&rom"), tr("From x"), QStringLiteral("-3"), 90);
  m_to = field(tr("&To"), tr("To x"), QStringLiteral("3"), 90);
  m_step = field(tr("&Step"), tr("Table step"), QStringLiteral("0.5"), 80);
  m_probe = new QPushButton(tr("&Probe"), box);
  m_probe->setAccessibleName(tr("Probe"));
  m_probe->setToolTip(tr("Examine the function over the range (Enter)"));
  row->addWidget(m_probe);
  connect(m_probe, &QPushButton::clicked, this, &ProbeWindow::Probe);
  return box;
}

QWidget* ProbeWindow::BuildSide() {
  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(6, 0, 0, 0);
  auto* findings = new QGroupBox(tr("Findings"), side);
  auto* findingsLayout = new QVBoxLayout(findings);
  m_findings = new QListWidget(findings);
  m_findings->setAccessibleName(tr("Findings"));
  m_findings->setAccessibleDescription(tr("Choose a finding to mark it on the plot"));
  findingsLayout->addWidget(m_findings);
  connect(m_findings, &QListWidget::currentRowChanged, this, &ProbeWindow::Mark);
  auto* table = new QGroupBox(tr("Table of values"), side);
  auto* tableLayout = new QVBoxLayout(table);
  m_table = new QTableWidget(0, 2, table);
  m_table->setAccessibleName(tr("Table of values"));
  m_table->setHorizontalHeaderLabels({QStringLiteral("x"), QStringLiteral("f(x)")});
  m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  m_table->verticalHeader()->hide();
  m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_table->installEventFilter(this);
  tableLayout->addWidget(m_table);
  m_copy = new QPushButton(tr("&Copy table"), table);
  m_copy->setAccessibleName(tr("Copy table"));
  m_copy->setToolTip(tr("Copy the table as tab-separated text (Ctrl+C in the table)"));
  connect(m_copy, &QPushButton::clicked, this, [this] { CopyText(m_tableText); });
  tableLayout->addWidget(m_copy, 0, Qt::AlignLeft);
  column->addWidget(findings, 1);
  column->addWidget(table, 1);
  return side;
}

bool ProbeWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_table && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    CopyText(m_tableText);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

// A range field reads as the program's range fields do: "2pi" and "-3/2" are numbers.
std::optional<double> ProbeWindow::ReadNumber(QLineEdit* field, const QString& name) {
  const QString text = field->text().trimmed();
  if (text.isEmpty()) {
    Fail(tr("%1 is empty: type a number").arg(name));
    return std::nullopt;
  }
  const double value = m_evaluation->EvaluateExpression(text);
  if (m_state.MathError || !std::isfinite(value)) {
    Fail(tr("%1 is not a number: \"%2\"").arg(name, text));
    return std::nullopt;
  }
  return value;
}

void ProbeWindow::Fail(const QString& text) {
  m_message->setText(text);
  m_message->show();
}

void ProbeWindow::Probe() {
  m_message->hide();
  QString error;
  auto curve = CurveFunction::Parse(m_function->text(), error);
  if (!curve) return Fail(error);
  const auto from = ReadNumber(m_from, tr("From"));
  const auto to = ReadNumber(m_to, tr("To"));
  const auto step = ReadNumber(m_step, tr("Step"));
  if (!from || !to || !step) return;
  if (!(*from < *to)) return Fail(tr("From must be less than To"));
  if (!(*step > 0)) return Fail(tr("Step must be more than 0"));
  if ((*to - *from) / *step >= CurveAnalysis::kMaxRows) {
    return Fail(tr("The step is too small: the table would have more than %1 rows").arg(CurveAnalysis::kMaxRows - 1));
  }
  std::optional<CurveFunction> first, second;
  QString ignored;
  if (const auto d1 = mathlang::Derivative(curve->Row())) {
    first = CurveFunction::Parse(*d1, ignored);
    if (const auto d2 = mathlang::Derivative(*d1)) second = CurveFunction::Parse(*d2, ignored);
  }
  if (!first) Fail(tr("This function has no derivative here: extrema, inflections and slopes are not shown"));
  m_curve = std::move(curve);
  m_xMin = *from;
  m_xMax = *to;
  const CurveAnalysis analysis(*m_curve, first, second, *from, *to);
  m_items = analysis.Items();
  FitRange(analysis);
  DrawScene(-1);
  AddNotablePoints();
  m_findings->blockSignals(true);
  m_findings->clear();
  for (const ProbeItem& item : m_items) m_findings->addItem(item.Text);
  if (m_items.empty()) m_findings->addItem(tr("Nothing special in this range"));
  m_findings->blockSignals(false);
  ShowTable(analysis.Table(*step));
  DrawScene(-1);
}

// The plot's own exact special points of the curve (its first), for what the analysis missed.
void ProbeWindow::AddNotablePoints() {
  const plot2d::Plot& scene = m_plot->Scene();
  if (scene.LastDrawing().Curves.empty()) return;
  std::vector<std::pair<ProbeItem::Kind, QPointF>> points;
  for (const plot2d::NotablePoint& point : plot2d::FindNotablePoints(scene.LastDrawing(), 0, scene.View())) {
    switch (point.What) {
      case plot2d::NotablePoint::Kind::Root: points.emplace_back(ProbeItem::Kind::Root, point.At); break;
      case plot2d::NotablePoint::Kind::Maximum: points.emplace_back(ProbeItem::Kind::Maximum, point.At); break;
      case plot2d::NotablePoint::Kind::Minimum: points.emplace_back(ProbeItem::Kind::Minimum, point.At); break;
      case plot2d::NotablePoint::Kind::YIntercept: points.emplace_back(ProbeItem::Kind::YIntercept, point.At); break;
      default: break;
    }
  }
  CurveAnalysis::MergeNotablePoints(m_items, points);
}

void ProbeWindow::ShowTable(const std::vector<TableRow>& rows) {
  m_tableText = CurveAnalysis::TableText(rows);
  m_table->setRowCount(static_cast<int>(rows.size()));
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    const TableRow& row = rows[static_cast<std::size_t>(i)];
    m_table->setItem(i, 0, new QTableWidgetItem(core::FormatNumber(row.X)));
    m_table->setItem(i, 1, new QTableWidgetItem(row.Y ? core::FormatNumber(*row.Y) : tr("undefined")));
  }
}

// y from the curve's values over the range, next to a pole its largest fiftieth on either side
// left out so that the pole does not flatten the rest; the found points always inside.
void ProbeWindow::FitRange(const CurveAnalysis& analysis) {
  std::vector<double> ys;
  for (int i = 0; i <= 400; ++i) {
    const double y = m_curve->At(m_xMin + (m_xMax - m_xMin) * i / 400);
    if (std::isfinite(y)) ys.push_back(y);
  }
  double low = -1, high = 1;
  if (!ys.empty()) {
    std::sort(ys.begin(), ys.end());
    const bool poles = std::any_of(analysis.Items().begin(), analysis.Items().end(),
                                   [](const ProbeItem& i) { return i.What == ProbeItem::Kind::VerticalAsymptote; });
    const std::size_t cut = poles ? ys.size() / 50 : 0;
    low = ys[cut];
    high = ys[ys.size() - 1 - cut];
  }
  for (const ProbeItem& item : analysis.Items()) {
    if (item.IsPoint() || item.What == ProbeItem::Kind::HorizontalAsymptote) {
      low = std::min(low, item.Y);
      high = std::max(high, item.Y);
    }
  }
  if (high - low < 1e-9) {
    low -= 1;
    high += 1;
  }
  const double margin = (high - low) * 0.1;
  plot2d::Plot& scene = m_plot->Scene();
  scene.SetDefaultRange(m_xMin, m_xMax, low - margin, high + margin);
  scene.ResetRange();
}

void ProbeWindow::Mark(int row) {
  if (m_curve) DrawScene(row);
}

// The curve, its asymptotes dashed, its points as dots, and the marked finding in red.
void ProbeWindow::DrawScene(int marked) {
  plot2d::Plot& scene = m_plot->Scene();
  scene.ClearAll();
  std::int32_t kind = 0;
  std::int16_t index = 1;
  const auto line = [&](const QString& text, double color, bool dashed) {
    scene.AddFunction(index++, text, color, false, kind, false, false, dashed, dashed ? 1 : 0);
  };
  line(m_curve->Row(), kCurveColor, false);
  for (int i = 0; i < static_cast<int>(m_items.size()); ++i) {
    const ProbeItem& item = m_items[static_cast<std::size_t>(i)];
    const bool mark = i == marked;
    const double color = mark ? kMarkColor : kGuideColor;
    double x = item.X, y = item.Y;
    switch (item.What) {
      case ProbeItem::Kind::VerticalAsymptote: line(QStringLiteral("x=") + Plain(item.X), color, true); break;
      case ProbeItem::Kind::HorizontalAsymptote: line(QStringLiteral("y=") + Plain(item.Y), color, true); break;
      case ProbeItem::Kind::Rising:
      case ProbeItem::Kind::Falling:
        if (mark) line(Restricted(m_curve->Row(), item.From, item.To), kMarkColor, false);
        break;
      case ProbeItem::Kind::Gap:
        // On the x axis: the stretch in red, or a red dot for a single point.
        if (!mark) break;
        if (item.To - item.From > 1e-9 * (m_xMax - m_xMin)) {
          line(QStringLiteral("y=0;x>%1 and x<%2").arg(Plain(item.From), Plain(item.To)), kMarkColor, false);
        } else {
          y = 0;
          scene.AddPoint(index++, x, y, 0, kMarkColor, false);
        }
        break;
      default: scene.AddPoint(index++, x, y, 0, mark ? kMarkColor : kPointColor, false); break;
    }
  }
  m_plot->Redraw();
}

}  // namespace probe
