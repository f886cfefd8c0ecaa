#include "frmAddPoint.h"

#include "core/NumberText.h"
#include "core/Tag.h"
#include "core/TextFunctions.h"
#include "core/Twips.h"
#include "PastedTable.h"
#include "platform/DataFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>

#include <cmath>

namespace dialogs {

using core::Px;

namespace {

// Lengths of the form, in twips.
constexpr double kFormWidth = 4000;
constexpr double kFormHeight = 5500;
constexpr double kGrowWidth = 100;
constexpr double kGrowHeight = 170;
constexpr double kLineGap = 60;        // between two lines, and under the last one to btnFade
constexpr double kExtentMargin = 120;  // under btnFade, to the end of the panel's extent

constexpr int kMostLines = 50;       // what typing, Enter and pasting fill the table to
constexpr int kMostComputed = 500;   // a guard on a description whose step never reaches its end
constexpr int kMargin = 12;          // pixels round the controls
constexpr int kIndexWidth = 26;
constexpr int kRemoveSize = 24;
constexpr int kMinFieldWidth = 128;
constexpr int kGap = 6;

const QString kCartesian = QStringLiteral("Cartesian");
const QString kPolar = QStringLiteral("Polar");
const QString kTheta = QStringLiteral("\u03b8");

enum class Head { Other, XY, YX, RTheta, ThetaR };

// The head of a point list, blanks let go.
Head HeadOf(const QString& text) {
  const QString head = QString(text).remove(u' ');
  for (const char* form : {"[x,y", "[X,Y"}) {
    if (head.startsWith(QLatin1String(form))) return Head::XY;
  }
  for (const char* form : {"[y,x", "[Y,X"}) {
    if (head.startsWith(QLatin1String(form))) return Head::YX;
  }
  for (const char* form : {"[r,q..symb", "[r,theta"}) {
    if (head.startsWith(QLatin1String(form))) return Head::RTheta;
  }
  for (const char* form : {"[q..symb,r", "[theta,r"}) {
    if (head.startsWith(QLatin1String(form))) return Head::ThetaR;
  }
  return Head::Other;
}

void Repolish(QWidget* widget) {
  widget->style()->unpolish(widget);
  widget->style()->polish(widget);
}

// The program writes to the fields while this lives: their change handler leaves the table alone.
class QuietFields {
public:
  explicit QuietFields(bool& quiet) : m_quiet(quiet), m_was(quiet) { m_quiet = true; }
  ~QuietFields() { m_quiet = m_was; }
  QuietFields(const QuietFields&) = delete;
  QuietFields& operator=(const QuietFields&) = delete;

private:
  bool& m_quiet;
  bool m_was;
};

// A value the program writes shows its start, sign and integer part, rather than its tail: a
// field scrolls to where its cursor is, and setText leaves the cursor at the end. A field being
// typed into keeps its cursor where the typing goes on, unless the whole value came at once.
void WriteShowingStart(QLineEdit* field, const QString& text, bool whole = false) {
  field->setText(text);
  if (whole || !field->hasFocus()) field->setCursorPosition(0);
}

}  // namespace

frmAddPoint::frmAddPoint(const QString& tag, RowTarget& target, core::SharedState& state,
                         expression::ScriptEvaluation& evaluation, platform::MessageBoxes& boxes, QWidget* parent)
    : QDialog(parent, Qt::Tool), m_target(target), m_state(state), m_evaluation(evaluation), m_boxes(boxes) {
  setObjectName(QStringLiteral("frmAddPoint"));
  setAttribute(Qt::WA_DeleteOnClose);
  setSizeGripEnabled(false);
  core::SetTag(this, tag);
  setWindowTitle(tr("Points of Function %1").arg(Row() + 1));
  setWindowIcon(QIcon(platform::DataFile(QStringLiteral("Icons/point-cartesian.svg"))));
  PasteText = [] { return QGuiApplication::clipboard()->text(); };

  m_lblGrid = new QLabel(tr("&Coordinates:"), this);
  m_lblGrid->setObjectName(QStringLiteral("lblPointGrid"));
  m_cmbPointGrid = new QComboBox(this);
  m_cmbPointGrid->setObjectName(QStringLiteral("cmbPointGrid"));
  m_cmbPointGrid->addItems({kCartesian, kPolar});
  m_cmbPointGrid->setCurrentText(kCartesian);
  m_lblGrid->setBuddy(m_cmbPointGrid);

  // The two column letters, set as a formula sets them.
  QFont letters = font();
  letters.setFamilies({QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif"),
                       QStringLiteral("DejaVu Serif"), QStringLiteral("serif")});
  letters.setItalic(true);
  letters.setPointSizeF(letters.pointSizeF() * 1.35);
  m_lblFirst = new QLabel(QStringLiteral("x"), this);
  m_lblFirst->setObjectName(QStringLiteral("lblFirstColumn"));
  m_lblSecond = new QLabel(QStringLiteral("y"), this);
  m_lblSecond->setObjectName(QStringLiteral("lblSecondColumn"));
  for (QLabel* label : {m_lblFirst, m_lblSecond}) {
    label->setFont(letters);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  }

  m_rszPoints = new QScrollArea(this);
  m_rszPoints->setObjectName(QStringLiteral("rszPoints"));
  m_rszPoints->setWidgetResizable(false);
  m_rszPoints->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_picPoints = new QWidget;
  m_picPoints->setObjectName(QStringLiteral("picPoints"));
  m_btnFade = new QLabel(m_picPoints);
  m_btnFade->setObjectName(QStringLiteral("btnFade"));
  m_btnFade->setWordWrap(true);
  m_btnFade->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  m_rszPoints->setWidget(m_picPoints);

  m_btnOK = new QPushButton(QStringLiteral("&OK"), this);
  m_btnOK->setObjectName(QStringLiteral("btnOK"));
  m_btnOK->setToolTip(tr("Write the points into the function's row"));
  m_btnCancel = new QPushButton(QStringLiteral("&Cancel"), this);
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));
  QWidget::setTabOrder(m_cmbPointGrid, m_btnOK);
  QWidget::setTabOrder(m_btnOK, m_btnCancel);

  connect(m_cmbPointGrid, &QComboBox::currentIndexChanged, this, &frmAddPoint::cmbPointGrid_Click);
  connect(m_btnOK, &QPushButton::clicked, this, &frmAddPoint::btnOK_Click);
  connect(m_btnCancel, &QPushButton::clicked, this, &frmAddPoint::btnCancel_Click);

  SetHint(QString(), false);
  AddNewPoint();  // line 0, there from the start
  Load();
  Refresh_Controls();
  m_opened = PointList();

  // It opens from nothing and grows to its size while it can already be typed into.
  resize(1, 1);
  connect(&m_tmrResize, &QTimer::timeout, this, &frmAddPoint::tmrResize_Timer);
  m_tmrResize.start(10);
}

frmAddPoint::~frmAddPoint() = default;

int frmAddPoint::Row() const { return static_cast<int>(core::NumericPrefix(core::Tag(this))); }

void frmAddPoint::SetRow(int row) {
  if (row < 0 || m_unloading) return;
  // A description not yet computed keeps its rest: only the row in front changes.
  QStringList pieces = core::Tag(this).split(u';');
  pieces[0] = QString::number(row);
  core::SetTag(this, pieces.join(u';'));
  setWindowTitle(tr("Points of Function %1").arg(row + 1));
}

void frmAddPoint::RowRemoved() {
  if (m_unloading || Row() < 0) return;
  core::SetTag(this, QStringLiteral("-1"));
  setWindowTitle(tr("Points of a Removed Function"));
  // Points that were only the row's own went with the row; what was typed or computed here, the
  // user decides on.
  bool drop = !Edited();
  if (!drop) {
    const auto answer = m_boxes.Show(QStringLiteral("The function of these points was removed. Drop the points?"),
                                     platform::MessageBoxes::Buttons::YesNo, platform::MessageBoxes::Icon::Question,
                                     QStringLiteral("Removed Function - [Msg-0032]"));
    drop = answer == platform::MessageBoxes::Answer::Yes;
  }
  if (drop) {
    Unload();
    return;
  }
  SetHint(QString(), true);
}

QString frmAddPoint::PointList() const {
  QString text = m_cmbPointGrid->currentText() == kPolar ? QStringLiteral("[r,q..symb") : QStringLiteral("[x,y");
  for (int i = 0; i < PointCount(); ++i) {
    if (!Filled(i)) continue;
    text += u';' + m_lines[std::size_t(i)].X->text().trimmed() + u',' + m_lines[std::size_t(i)].Y->text().trimmed();
  }
  return text + u']';
}

bool frmAddPoint::Edited() const { return PointList() != m_opened; }

bool frmAddPoint::Readable() const {
  for (const Line& line : m_lines) {
    if (line.X->property("invalid").toBool() || line.Y->property("invalid").toBool()) return false;
  }
  return true;
}

// OK waits while a field can't be computed: a "1,5" or ";" there would cut the row's point list
// apart, and a name that means nothing would be a point the plot can't show.
void frmAddPoint::RefreshOK() {
  const bool unreadable = !Readable();
  m_btnOK->setEnabled(!unreadable);
  if (unreadable) SetHint(tr("OK waits until every field marked ? holds a number."), true);
  else if (m_unreadable) SetHint(QString(), false);
  m_unreadable = unreadable;
}

QLabel* frmAddPoint::lblIndex(int line) const {
  return line >= 0 && line < PointCount() ? m_lines[std::size_t(line)].Index : nullptr;
}
QLineEdit* frmAddPoint::txtPoint_X(int line) const {
  return line >= 0 && line < PointCount() ? m_lines[std::size_t(line)].X : nullptr;
}
QLineEdit* frmAddPoint::txtPoint_Y(int line) const {
  return line >= 0 && line < PointCount() ? m_lines[std::size_t(line)].Y : nullptr;
}
QToolButton* frmAddPoint::btnRemove(int line) const {
  return line >= 0 && line < PointCount() ? m_lines[std::size_t(line)].Remove : nullptr;
}
QLabel* frmAddPoint::ValueOf(int line, int column) const {
  if (line < 0 || line >= PointCount()) return nullptr;
  return column == 0 ? m_lines[std::size_t(line)].ValueX : m_lines[std::size_t(line)].ValueY;
}

// The row's point list, if it holds one: the head chooses the coordinates and the order of the
// two numbers, and every point becomes a line. A head of no known kind reads as "x,y".
void frmAddPoint::Load() {
  const int row = Row();
  if (row < 0 || row > m_target.HighestIndex()) return;
  const QString text = m_target.RowText(row);
  if (!text.startsWith(u'[')) return;
  const Head head = HeadOf(text);
  if (head == Head::RTheta || head == Head::ThetaR) m_cmbPointGrid->setCurrentText(kPolar);
  const bool swapped = head == Head::YX || head == Head::ThetaR;
  const QStringList pieces = text.split(u';');
  for (qsizetype k = 1; k < pieces.size(); ++k) {
    if (k >= 2) AddNewPoint();
    const QString& piece = pieces[k];
    const int comma = core::InStr(piece, QStringLiteral(","));
    QString left = comma > 0 ? core::Left(piece, comma - 1) : piece;
    QString right = comma > 0 ? core::Mid(piece, comma + 1) : QString();
    left = left.remove(u']').trimmed();
    right = right.remove(u']').trimmed();
    SetLine(static_cast<int>(k) - 1, swapped ? right : left, swapped ? left : right);
  }
}

void frmAddPoint::Form_Activate() {
  if (m_activated || m_unloading) return;
  m_activated = true;
  const QString tag = core::Tag(this);
  if (tag.contains(u';')) ComputePoints(tag.split(u';'));
  FocusField(0, 0);
}

// The points of a description "row;expression;name;from;to;step" from the point evaluator. The
// name says which quantity the expression gives and which variable runs: y of x, x of y, or r of
// theta (which the compiled expression spells x). A parameter whose value fails leaves no line.
void frmAddPoint::ComputePoints(const QStringList& pieces) {
  core::SetTag(this, pieces.first());
  const qsizetype n = pieces.size();
  if (n < 6) return;
  // The numbers stand at the end: an expression with a ";" of its own keeps it.
  const QString expression = pieces.mid(1, n - 5).join(u';');
  const QString name = pieces[n - 4];
  const double from = core::NumericPrefix(pieces[n - 3]);
  const double to = core::NumericPrefix(pieces[n - 2]);
  const double step = core::NumericPrefix(pieces[n - 1]);
  QString variable;
  bool resultFirst = false;
  if (name == u"y") {
    variable = QStringLiteral("x");
  } else if (name == u"x") {
    variable = QStringLiteral("y");
    resultFirst = true;
  } else if (name == u"r") {
    variable = QStringLiteral("x");
    resultFirst = true;
    m_cmbPointGrid->setCurrentText(kPolar);
  } else {
    return;
  }
  const auto put = [&](double parameter) {
    const double value = m_evaluation.EvaluateWith(expression, variable, parameter);
    if (m_state.MathError) return;
    const QString p = core::FormatNumber(parameter);
    const QString v = core::FormatNumber(value);
    if (PointCount() > 1 || !Blank(0)) AddNewPoint();
    SetLine(PointCount() - 1, resultFirst ? v : p, resultFirst ? p : v);
  };
  put(from);
  // The parameter runs from one step after the start to the end, both included; counted in
  // whole steps, so that no rounding creeps in over the lines.
  const double slack = std::abs(step) * 1e-9;
  for (int k = 1; k <= kMostComputed; ++k) {
    const double parameter = from + k * step;
    const bool inside = step > 0 ? parameter <= to + slack : step < 0 ? parameter >= to - slack : false;
    if (!inside) break;
    put(parameter);
  }
  Refresh_Controls();
}

void frmAddPoint::AddNewPoint() {
  const int index = PointCount();
  Line line{};
  line.Index = new QLabel(QString::number(index + 1), m_picPoints);
  line.Index->setObjectName(QStringLiteral("lblIndex"));
  line.Index->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line.X = new QLineEdit(m_picPoints);
  line.X->setObjectName(QStringLiteral("txtPoint_X"));
  line.Y = new QLineEdit(m_picPoints);
  line.Y->setObjectName(QStringLiteral("txtPoint_Y"));
  line.ValueX = new QLabel(line.X);
  line.ValueY = new QLabel(line.Y);
  for (QLabel* value : {line.ValueX, line.ValueY}) {
    value->setObjectName(QStringLiteral("lblValue"));
    value->setAttribute(Qt::WA_TransparentForMouseEvents);
    value->hide();
  }
  line.Remove = new QToolButton(m_picPoints);
  line.Remove->setObjectName(QStringLiteral("btnRemove"));
  line.Remove->setText(QStringLiteral("\u00d7"));
  line.Remove->setToolTip(QStringLiteral("Remove This Point"));
  line.Remove->setFocusPolicy(Qt::NoFocus);
  line.Remove->setAutoRaise(true);
  line.Remove->setCursor(Qt::PointingHandCursor);

  for (QLineEdit* field : {line.X, line.Y}) {
    field->installEventFilter(this);
    field->setToolTip(tr("A number or an expression: 2.5, pi/2, sqrt(2) ..."));
  }
  connect(line.X, &QLineEdit::textChanged, this, [this, index] { PointChanged(index, 0); });
  connect(line.Y, &QLineEdit::textChanged, this, [this, index] { PointChanged(index, 1); });
  connect(line.Remove, &QToolButton::clicked, this, [this, index] { btnRemove_Click(index); });

  // Tab runs along the fields, line after line, and leaves the table for OK.
  QWidget::setTabOrder(m_lines.empty() ? static_cast<QWidget*>(m_cmbPointGrid) : m_lines.back().Y, line.X);
  QWidget::setTabOrder(line.X, line.Y);
  QWidget::setTabOrder(line.Y, m_btnOK);
  QWidget::setTabOrder(m_btnOK, m_btnCancel);

  m_lines.push_back(line);
  PlaceLines();
  for (QWidget* widget : {static_cast<QWidget*>(line.Index), static_cast<QWidget*>(line.X),
                          static_cast<QWidget*>(line.Y), static_cast<QWidget*>(line.Remove)}) {
    widget->show();
  }
}

void frmAddPoint::SetLine(int line, const QString& first, const QString& second) {
  if (line < 0 || line >= PointCount()) return;
  const QuietFields quiet(m_quiet);
  WriteShowingStart(m_lines[std::size_t(line)].X, first);
  WriteShowingStart(m_lines[std::size_t(line)].Y, second);
}

bool frmAddPoint::Filled(int line) const {
  return line >= 0 && line < PointCount() && !m_lines[std::size_t(line)].X->text().trimmed().isEmpty() &&
         !m_lines[std::size_t(line)].Y->text().trimmed().isEmpty();
}

bool frmAddPoint::Blank(int line) const {
  return line >= 0 && line < PointCount() && m_lines[std::size_t(line)].X->text().trimmed().isEmpty() &&
         m_lines[std::size_t(line)].Y->text().trimmed().isEmpty();
}

int frmAddPoint::LineOf(const QObject* field, int* column) const {
  for (int i = 0; i < PointCount(); ++i) {
    if (m_lines[std::size_t(i)].X == field || m_lines[std::size_t(i)].Y == field) {
      if (column) *column = m_lines[std::size_t(i)].X == field ? 0 : 1;
      return i;
    }
  }
  return -1;
}

// A change in either field of a line: its value is shown, and a line filled at the end of the
// table gets a fresh empty one under it, until the table holds 50.
void frmAddPoint::PointChanged(int line, int column) {
  if (line < 0 || line >= PointCount()) return;
  const Line& l = m_lines[std::size_t(line)];
  QLineEdit* field = column == 0 ? l.X : l.Y;
  ShowValue(field, column == 0 ? l.ValueX : l.ValueY);
  if (m_quiet) return;
  if (m_btnFade->property("warning").toBool() && !m_unreadable && Row() >= 0) SetHint(QString(), false);
  // Columns that came in through the field's own menu or a drop are spread over the lines.
  const QString text = field->text();
  if (text.contains(u'\t') || text.contains(u'\n') || text.contains(u'\r')) {
    {
      const QuietFields quiet(m_quiet);
      field->clear();
    }
    PasteTable(line, column, text);
    return;
  }
  if (line == PointCount() - 1 && PointCount() < kMostLines && Filled(line)) {
    AddNewPoint();
    Refresh_Controls();
    // The line typed in stays in view.
    m_rszPoints->ensureWidgetVisible(field, 0, Px(kLineGap));
  }
}

// What a field stands for, when it is no plain number: "= 1.5708" for "pi/2", "?" for a text
// that can't be computed (the plot leaves that point out). The row keeps the text as typed.
void frmAddPoint::ShowValue(QLineEdit* field, QLabel* value) {
  const QString text = field->text().trimmed();
  if (text.isEmpty() || IsPlainNumber(text)) {
    value->hide();
    value->setText(QString());
    field->setTextMargins(0, 0, 0, 0);
    field->setProperty("invalid", false);
    RefreshOK();
    return;
  }
  // A comma or a semicolon would cut the point apart in the row's text.
  const bool separator = text.contains(u',') || text.contains(u';');
  const double result = separator ? 0 : m_evaluation.EvaluateExpression(text);
  const bool failed = separator || m_state.MathError;
  value->setText(failed ? QStringLiteral("?") : QStringLiteral("= ") + QString::number(result, 'g', 5));
  value->setToolTip(separator ? tr("A comma or a semicolon can't stand in a point's value: use . as the decimal point.")
                    : failed  ? tr("This can't be computed: the point is left out of the plot.")
                           : QStringLiteral("= ") + core::FormatNumber(result));
  value->setProperty("invalid", failed);
  Repolish(value);
  if (field->property("invalid").toBool() != failed) {
    field->setProperty("invalid", failed);
    Repolish(field);
  }
  PlaceValue(field, value);
  value->show();
  RefreshOK();
}

void frmAddPoint::PlaceValue(QLineEdit* field, QLabel* value) {
  if (value->text().isEmpty()) return;
  value->ensurePolished();
  const int width = value->sizeHint().width();
  value->setGeometry(std::max(0, field->width() - width - 7), 0, width, field->height());
  field->setTextMargins(0, 0, width + 2, 0);
}

// All fields go into two working lists; the last line's widgets go, and the lists come back into
// the remaining lines without the removed one. The lists hold as many lines as the table does, so
// a table that the point evaluator filled to any length loses one line like any other.
void frmAddPoint::btnRemove_Click(int line) {
  if (m_unloading) return;
  if (line < 0 || line >= PointCount()) return;
  std::vector<QString> firsts;
  std::vector<QString> seconds;
  for (const Line& l : m_lines) {
    firsts.push_back(l.X->text());
    seconds.push_back(l.Y->text());
  }
  if (PointCount() > 1) {
    const Line last = m_lines.back();
    m_lines.pop_back();
    for (QWidget* widget : {static_cast<QWidget*>(last.Index), static_cast<QWidget*>(last.X),
                            static_cast<QWidget*>(last.Y), static_cast<QWidget*>(last.Remove)}) {
      widget->disconnect(this);
      widget->removeEventFilter(this);
      widget->hide();
      widget->deleteLater();  // the button clicked may be among them
    }
    for (int k = 0; k < PointCount(); ++k) {
      const std::size_t from = std::size_t(k < line ? k : k + 1);
      SetLine(k, firsts[from], seconds[from]);
    }
  } else {
    SetLine(0, QString(), QString());
  }
  Refresh_Controls();
  RefreshOK();
  FocusField(std::min(line, PointCount() - 1), 0);
}

void frmAddPoint::cmbPointGrid_Click() {
  const bool polar = m_cmbPointGrid->currentText() == kPolar;
  m_lblFirst->setText(polar ? QStringLiteral("r") : QStringLiteral("x"));
  m_lblSecond->setText(polar ? kTheta : QStringLiteral("y"));
}

// The point list in the normal head of the coordinates chosen; a line with an empty field is
// left out. A row that holds a function is replaced only when the user says so; points whose row
// was removed go into a new one.
void frmAddPoint::btnOK_Click() {
  if (m_unloading) return;
  if (!Readable()) {
    RefreshOK();
    return;
  }
  const QString text = PointList();
  RowTarget& target = m_target;
  int row = Row();
  if (row < 0 || row > target.HighestIndex()) {
    row = target.AddRow();
    if (row < 0) return;  // the list is full and has said so: the table stays
  } else if (!AskReplace(row, target.RowText(row))) {
    return;
  }
  Unload();
  target.SetRowText(row, text);
  target.FocusAfter(row);
}

bool frmAddPoint::AskReplace(int row, const QString& current) {
  if (current.trimmed().isEmpty() || current.startsWith(u'[')) return true;
  const auto answer = m_boxes.Show(QStringLiteral("Replace function %1 with these points?").arg(row + 1),
                                   platform::MessageBoxes::Buttons::YesNo, platform::MessageBoxes::Icon::Question,
                                   QStringLiteral("Replace Function - [Msg-0031]"));
  return answer == platform::MessageBoxes::Answer::Yes;
}

void frmAddPoint::btnCancel_Click() {
  if (m_unloading) return;
  const int row = Row();
  RowTarget& target = m_target;
  Unload();
  target.FocusAfter(row);
}

void frmAddPoint::PasteTable(int line, int column, const QString& text) {
  if (line < 0 || line >= PointCount()) return;
  std::vector<QStringList> table;
  for (const QString& row : LinesOf(text)) {
    if (row.trimmed().isEmpty()) continue;
    table.push_back(CellsOf(row));
  }
  if (table.empty()) return;
  // A spreadsheet's head line ("x", "y") is no point.
  if (table.size() > 1) {
    const QStringList& first = table.front();
    bool words = true;
    for (const QString& cell : first) {
      for (QChar c : cell) words = words && !c.isDigit();
    }
    bool named = false;
    for (const QString& cell : first) {
      const QString name = cell.toLower();
      if (name.isEmpty()) continue;
      m_evaluation.EvaluateExpression(cell);
      named = named || m_state.MathError || name == u"x" || name == u"y" || name == u"r" || name == u"theta" ||
              name == kTheta;
    }
    if (words && named) table.erase(table.begin());
  }
  int at = line;
  int left = 0;
  {
    const QuietFields quiet(m_quiet);
    for (const QStringList& cells : table) {
      if (at >= PointCount()) {
        if (PointCount() >= kMostLines) {
          ++left;
          continue;
        }
        AddNewPoint();
      }
      const Line& l = m_lines[std::size_t(at)];
      if (cells.size() >= 2) {
        WriteShowingStart(l.X, cells[0], true);
        WriteShowingStart(l.Y, cells[1], true);
      } else {
        WriteShowingStart(column == 0 ? l.X : l.Y, cells.value(0), true);
      }
      ++at;
    }
  }
  if (PointCount() < kMostLines && Filled(PointCount() - 1)) AddNewPoint();
  Refresh_Controls();
  FocusField(std::min(at, PointCount() - 1), at < PointCount() ? 0 : column);
  if (left > 0) SetHint(tr("%n pasted line(s) left out: the table holds 50 points.", "", left), true);
}

void frmAddPoint::EnterPressed(int line, int column) {
  if (column == 0 && m_lines[std::size_t(line)].Y->text().trimmed().isEmpty()) {
    FocusField(line, 1);
    return;
  }
  if (line + 1 < PointCount()) {
    FocusField(line + 1, 0);
    return;
  }
  if (PointCount() >= kMostLines || Blank(line)) return;
  AddNewPoint();
  Refresh_Controls();
  FocusField(line + 1, 0);
}

void frmAddPoint::FocusField(int line, int column) {
  if (line < 0 || line >= PointCount()) return;
  QLineEdit* field = column == 0 ? m_lines[std::size_t(line)].X : m_lines[std::size_t(line)].Y;
  field->setFocus();
  // All of it selected, to be typed over, with the cursor at its start so that the start shows.
  const int length = static_cast<int>(field->text().size());
  field->setSelection(length, -length);
  m_rszPoints->ensureWidgetVisible(field, 0, Px(kLineGap));
}

void frmAddPoint::SetHint(const QString& text, bool warning) {
  QString hint = text;
  if (hint.isEmpty() && Row() < 0) {
    hint = tr("The function was removed: OK puts these points into a new row.");
    warning = true;
  }
  if (hint.isEmpty()) hint = tr("Enter: next line  \u00b7  Ctrl+V: paste two columns");
  m_btnFade->setText(hint);
  m_btnFade->setProperty("warning", warning);
  Repolish(m_btnFade);
}

// The panel's lines, 60 twips apart, each as wide as the panel lets it be.
void frmAddPoint::PlaceLines() {
  const int frame = m_rszPoints->frameWidth();
  const int scrollBar = m_rszPoints->verticalScrollBar()->sizeHint().width();
  const int inner = std::max(0, m_rszPoints->width() - 2 * frame - scrollBar);
  const int height = m_lines.empty() ? 26 : std::max(24, m_lines.front().X->sizeHint().height());
  const int gap = Px(kLineGap);
  const int fieldWidth = std::max(40, (inner - kIndexWidth - 3 * kGap - kRemoveSize - 2) / 2);
  int top = gap + 2;
  for (const Line& line : m_lines) {
    line.Index->setGeometry(0, top, kIndexWidth, height);
    line.X->setGeometry(kIndexWidth + kGap, top, fieldWidth, height);
    line.Y->setGeometry(line.X->geometry().right() + 1 + kGap, top, fieldWidth, height);
    line.Remove->setGeometry(line.Y->geometry().right() + 1 + kGap / 2, top + (height - kRemoveSize) / 2, kRemoveSize,
                             kRemoveSize);
    PlaceValue(line.X, line.ValueX);
    PlaceValue(line.Y, line.ValueY);
    top += height + gap;
  }
  const int fadeTop = m_lines.empty() ? gap : m_lines.back().X->geometry().bottom() + 1 + gap;
  const int fadeWidth = std::max(0, inner - 2 * kGap);
  const int fadeHeight = std::max(m_btnFade->fontMetrics().height() + 4, m_btnFade->heightForWidth(fadeWidth));
  m_btnFade->setGeometry(kGap, fadeTop, fadeWidth, fadeHeight);
  m_picPoints->resize(inner, m_btnFade->geometry().bottom() + 1 + Px(kExtentMargin));
  // The column letters stand over their fields.
  if (!m_lines.empty()) {
    const QPoint origin = m_rszPoints->geometry().topLeft() + QPoint(frame, 0);
    const int letterHeight = m_lblFirst->sizeHint().height();
    const QRect x = m_lines.front().X->geometry();
    const QRect y = m_lines.front().Y->geometry();
    m_lblFirst->setGeometry(origin.x() + x.x(), origin.y() - letterHeight - 2, x.width(), letterHeight);
    m_lblSecond->setGeometry(origin.x() + y.x(), origin.y() - letterHeight - 2, y.width(), letterHeight);
  }
}

void frmAddPoint::Refresh_Controls() {
  PlaceLines();
  QScrollBar* bar = m_rszPoints->verticalScrollBar();
  bar->setValue(0);
  bar->setValue(bar->maximum());
}

// The controls stand where the grown form has them: while it grows, the window uncovers them.
void frmAddPoint::PlaceControls() {
  const QSize target = TargetSize();
  const int W = std::max(width(), target.width());
  const int H = std::max(height(), target.height());
  const QSize combo = m_cmbPointGrid->sizeHint();
  int y = 10;
  const int labelWidth = m_lblGrid->sizeHint().width();
  m_lblGrid->setGeometry(kMargin, y, labelWidth, combo.height());
  m_cmbPointGrid->setGeometry(kMargin + labelWidth + 8, y, std::max(combo.width(), 120), combo.height());
  y += combo.height() + 6 + m_lblFirst->sizeHint().height() + 2;
  const QSize button = m_btnOK->sizeHint().expandedTo(m_btnCancel->sizeHint()).expandedTo(QSize(88, 0));
  const int buttonsTop = H - kMargin - button.height();
  m_btnCancel->setGeometry(W - kMargin - button.width(), buttonsTop, button.width(), button.height());
  m_btnOK->setGeometry(m_btnCancel->x() - 8 - button.width(), buttonsTop, button.width(), button.height());
  m_rszPoints->setGeometry(kMargin, y, std::max(0, W - 2 * kMargin), std::max(0, buttonsTop - 10 - y));
  PlaceLines();
}

QSize frmAddPoint::TargetSize() const {
  const int frame = 2 * m_rszPoints->frameWidth() + m_rszPoints->verticalScrollBar()->sizeHint().width();
  const int lines = kIndexWidth + 3 * kGap + 2 * kMinFieldWidth + kRemoveSize + 2 + frame;
  const int top = m_lblGrid->sizeHint().width() + 8 + std::max(m_cmbPointGrid->sizeHint().width(), 120);
  const QSize button = m_btnOK->sizeHint().expandedTo(m_btnCancel->sizeHint()).expandedTo(QSize(88, 0));
  const int width = 2 * kMargin + std::max({lines, top, 2 * button.width() + 8});
  const int height = 10 + m_cmbPointGrid->sizeHint().height() + 6 + m_lblFirst->sizeHint().height() + 2 +
                     4 * (m_lines.front().X->sizeHint().height() + Px(kLineGap)) + 10 + button.height() + kMargin;
  return {std::max(Px(kFormWidth), width), std::max(Px(kFormHeight), height)};
}

// Grows by steps towards its size and never shrinks below it; a larger size that the user gives
// the window stays.
void frmAddPoint::tmrResize_Timer() {
  const QSize target = TargetSize();
  const int w = width() < target.width() ? std::min(width() + Px(kGrowWidth), target.width()) : width();
  const int h = height() < target.height() ? std::min(height() + Px(kGrowHeight), target.height()) : height();
  if (QSize(w, h) != size()) resize(w, h);
}

void frmAddPoint::Unload() {
  if (m_unloading) return;
  m_unloading = true;
  m_tmrResize.stop();
  close();
}

void frmAddPoint::closeEvent(QCloseEvent* event) {
  // The window's own close button is a Cancel.
  if (!m_unloading) {
    m_unloading = true;
    m_tmrResize.stop();
    m_target.FocusAfter(Row());
  }
  QDialog::closeEvent(event);
}

void frmAddPoint::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  PlaceControls();
}

void frmAddPoint::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // The first activation may come late, or not at all where the desktop activates no tool window.
  QTimer::singleShot(0, this, [this] { Form_Activate(); });
}

bool frmAddPoint::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate: Form_Activate(); break;
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        btnCancel_Click();
        return true;
      }
      break;
    default: break;
  }
  return QDialog::event(event);
}

bool frmAddPoint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    int column = 0;
    const int line = LineOf(watched, &column);
    if (line >= 0) {
      if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        EnterPressed(line, column);
        return true;
      }
      if (key->matches(QKeySequence::Paste)) {
        const QString text = PasteText ? PasteText() : QString();
        if (LooksLikeTable(text)) {
          PasteTable(line, column, text);
        } else {
          // One value; a spreadsheet's cell comes with a line break behind it.
          static_cast<QLineEdit*>(watched)->insert(text.trimmed());
        }
        return true;
      }
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace dialogs
