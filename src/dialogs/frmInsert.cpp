#include "frmInsert.h"

#include "core/TextFunctions.h"
#include "core/Twips.h"
#include "expression/ExpressionNormaliser.h"
#include "mathlang/Derivative.h"
#include "mathlang/LineParser.h"
#include "mathx/MthX.h"
#include "mathx/RowParser.h"
#include "mathx/TypedInput.h"
#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"
#include "ribbon/MenuView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>

#include <limits>

namespace dialogs {

using core::Px;

namespace {

// Lengths of the form, in twips.
constexpr double kStandardMinWidth = 6895;
constexpr double kStandardMinHeight = 2445;
constexpr double kFormMinWidth = 6790;
constexpr double kFormMinHeight = 5165;
constexpr double kRightMargin = 200;
constexpr double kBottomMargin = 1300;
constexpr double kGrowWidth = 230;
constexpr double kGrowHeight = 180;

constexpr int kMargin = 12;  // pixels round the controls
constexpr int kDisplayCommands[] = {1046, 1049, 1050, 1051, 1053, 1055, 1056};

bool IsDisplayCommand(int id) {
  for (int command : kDisplayCommands) {
    if (command == id) return true;
  }
  return false;
}

}  // namespace

frmInsert::frmInsert(core::SharedState& state, platform::MessageBoxes& boxes, InsertTarget& target,
                     const QString& menuBarFile, QWidget* parent)
    : QDialog(parent, Qt::Tool), m_state(state), m_boxes(boxes), m_target(target) {
  setObjectName(QStringLiteral("frmInsert"));
  setWindowTitle(tr("Insert Equation"));
  setAttribute(Qt::WA_DeleteOnClose);
  setSizeGripEnabled(false);

  m_menuBar = new QMenuBar(this);
  m_bars.LoadDesignFile(menuBarFile);
  ribbon::MenuView::Attach(*m_menuBar, m_bars);
  connect(&m_bars, &ribbon::CommandBars::Executed, this, &frmInsert::CommandBars_Execute);

  m_grpAllControls = new QWidget(this);
  m_grpAllControls->setObjectName(QStringLiteral("grpAllControls"));
  m_lblStandard = new QLabel(tr("Standard Equation Style:"), m_grpAllControls);
  m_mthStandard = new mathx::MthX(m_grpAllControls);
  m_mthStandard->setObjectName(QStringLiteral("mthStandard"));
  m_mthStandard->setAccessibleName(tr("Standard Equation Style"));
  m_mthStandard->SetFontSize(20);
  m_mthStandard->SetFramed(true);
  m_grpControls = new QWidget(m_grpAllControls);
  m_grpControls->setObjectName(QStringLiteral("grpControls"));
  m_lblLinear = new QLabel(tr("Linear Equation Style:"), m_grpControls);
  m_txtLinear = new QLineEdit(m_grpControls);
  m_txtLinear->setObjectName(QStringLiteral("txtLinear"));
  m_txtLinear->setClearButtonEnabled(true);
  m_txtLinear->setPlaceholderText(tr("y=2x+1, x^2+y^2=9, r=2sin(3theta), y=x^2;0<x<3"));
  m_txtLinear->setMaxLength(std::numeric_limits<int>::max());  // a long paste is never cut short
  m_lblLinear->setBuddy(m_txtLinear);
  m_lblReason = new QLabel(m_grpControls);
  m_lblReason->setObjectName(QStringLiteral("lblReason"));
  m_lblReason->setAccessibleName(tr("Why the linear style can't be inserted"));
  m_lblReason->setStyleSheet(QStringLiteral("QLabel { color: rgb(192, 0, 0); }"));
  m_lblReason->setTextFormat(Qt::PlainText);
  m_btnInsert = new QPushButton(tr("&Insert"), m_grpAllControls);
  m_btnInsert->setObjectName(QStringLiteral("btnInsert"));
  m_btnInsert->setDefault(true);
  m_btnCancel = new QPushButton(tr("Cancel"), m_grpAllControls);
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));

  connect(m_mthStandard, &mathx::MthX::Change, this, &frmInsert::StandardChanged);
  connect(m_txtLinear, &QLineEdit::textChanged, this, &frmInsert::LinearChanged);
  connect(m_txtLinear, &QLineEdit::editingFinished, this, &frmInsert::LinearFinished);
  connect(m_btnInsert, &QPushButton::clicked, this, &frmInsert::Insert);
  connect(m_btnCancel, &QPushButton::clicked, this, &frmInsert::btnCancel_Click);

  Fill();
  StandardChanged();
  PlaceControls();
  // The window opens small and grows to its content, a step every millisecond.
  resize(WantedSize() / 4);
  m_tmrAnimater.setInterval(1);
  connect(&m_tmrAnimater, &QTimer::timeout, this, &frmInsert::Animate);
  m_tmrAnimater.start();
}

// The field loses the focus while the window's children go, and would report it to a dialog that
// is no longer one.
frmInsert::~frmInsert() { m_txtLinear->disconnect(this); }

void frmInsert::Fill() {
  const std::int16_t source = m_state.InsertSource;
  const double index = m_state.InsertIndex;
  const QString text = m_target.EditorText(source, index);
  QString standard = text;
  QString linear = plotcompiler::CompileEquation(text, false);
  if (source == 1) {
    const QString relation = QStringLiteral("y") + m_target.InequalityOperator(static_cast<int>(index));
    standard = relation + text;
    linear = relation + linear;
  } else if (source == 2) {
    standard = (index == 1 ? QStringLiteral("x=") : QStringLiteral("y=")) + text;
    linear = plotcompiler::CompileEquation(standard, false);
  }
  // The templates and commands that only a row can hold.
  for (const char* name : {"menuInsert"}) {
    if (auto* menu = m_bars.FindByName(QString::fromLatin1(name))) menu->SetVisible(source == 0);
  }
  for (int id : {1028, 1030}) {
    if (auto* button = m_bars.FindControl(id)) button->SetVisible(source == 0);
  }
  // What was typed for this editor before the dialog lost the activation comes back.
  m_base = standard;
  m_baseLinear = linear;
  const auto draft = m_target.Drafts().Find(source, index, m_base);
  if (draft) {
    standard = draft->Standard;
    linear = draft->Linear;
  }
  const QSignalBlocker quiet(m_txtLinear);
  m_mthStandard->SetText(standard);
  m_txtLinear->setText(linear);
  if (auto* derivative = m_bars.FindControl(1044)) derivative->SetEnabled(!linear.startsWith(u'['));
  // A draft may hold what was typed before it was converted.
  SetProblem(draft ? Problem(mathx::FromTypedInput(linear)) : QString());
}

// Brackets first, as the user sees them; then whether the normaliser and the compilers make an
// equation of it, and if not, what the line parser found.
QString frmInsert::Problem(const QString& linear) const {
  if (linear.trimmed().isEmpty()) return {};
  QString open;
  for (const QChar c : linear) {
    if (c == u'(' || c == u'[') {
      open.push_back(c);
    } else if (c == u')' || c == u']') {
      if (open.isEmpty()) return tr("a bracket is closed that was never opened");
      const QChar opened = open.back();
      open.chop(1);
      if ((c == u')') != (opened == u'(')) return tr("a bracket is closed with the wrong kind");
    }
  }
  if (!open.isEmpty()) return tr("a bracket is not closed");
  // The editor shows an empty box behind a last operator; the plot would have nothing to draw.
  const QString body = linear.trimmed();
  if (QStringLiteral("+-*/^=<>").contains(body.back())) return tr("the expression ends too early");
  const QString normal = expression::NormaliseExpression(m_state.FunctionTokens, linear);
  const QString row = plotcompiler::CompileInequalityRow(normal);
  if (!row.isEmpty() && mathx::ParseRow(row).kind != mathx::MathNode::Kind::PlainText) return {};
  QString why = mathlang::ParseLine(normal).Error;
  // 'unknown name "foo"' reads as "unknown name: foo".
  static const QRegularExpression quoted(QStringLiteral("^(.*) \"(.+)\"$"));
  const auto match = quoted.match(why);
  if (match.hasMatch()) why = match.captured(1) + QStringLiteral(": ") + match.captured(2);
  return why.isEmpty() ? tr("this can't be read as an equation") : why;
}

void frmInsert::SetProblem(const QString& reason) {
  const bool failed = !reason.isEmpty();
  m_txtLinear->setProperty("invalid", failed);
  m_txtLinear->setStyleSheet(failed ? QStringLiteral("QLineEdit { background: rgb(255, 0, 0); color: white; }") : QString());
  m_lblReason->setText(reason);
  m_btnInsert->setEnabled(!failed);
  if (auto* insert = m_bars.FindControl(1032)) insert->SetEnabled(!failed);
}

void frmInsert::StandardChanged() {
  const QSize asked = m_mthStandard->sizeHint();
  m_mthStandard->resize(std::max(asked.width(), Px(kStandardMinWidth)), std::max(asked.height(), Px(kStandardMinHeight)));
  PlaceControls();
  if (QApplication::focusWidget() == m_mthStandard) {
    m_txtLinear->setText(plotcompiler::CompileEquation(m_mthStandard->Text(), false));
  }
}

// What the user types or pastes is turned into the row language ("|x|" into "abs(x)", LaTeX
// into calls) before it is compiled, and the field shows the row at once, unless the user is
// still in the middle of a name or number that the conversion would cut ("√1" on the way to
// "√12"): then the field waits, but the standard style already shows what was understood.
void frmInsert::LinearChanged() {
  const QString typed = m_txtLinear->text();
  // Written by the program from the standard style, the text is that equation's.
  if (QApplication::focusWidget() != m_txtLinear) {
    m_lastLinear = typed;
    if (auto* derivative = m_bars.FindControl(1044)) derivative->SetEnabled(!typed.startsWith(u'['));
    SetProblem(QString());
    return;
  }
  const QString text = mathx::FromTypedInput(typed);
  if (text != typed && !StillTyping(typed)) ShowConverted(typed, text);
  m_lastLinear = m_txtLinear->text();
  if (auto* derivative = m_bars.FindControl(1044)) derivative->SetEnabled(!text.startsWith(u'['));
  const QString reason = Problem(text);
  SetProblem(reason);
  if (reason.isEmpty()) {
    m_mthStandard->SetText(plotcompiler::CompileInequalityRow(expression::NormaliseExpression(m_state.FunctionTokens, text)));
  }
}

// One character typed at the caret that may go on into a longer name or number.
bool frmInsert::StillTyping(const QString& typed) const {
  const int caret = m_txtLinear->cursorPosition();
  if (typed.size() != m_lastLinear.size() + 1 || caret < 1 || caret > typed.size()) return false;
  if (QStringView(typed).left(caret - 1) != QStringView(m_lastLinear).left(caret - 1)) return false;
  const QChar c = typed[caret - 1];
  const bool continues = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
                         c == u'.' || c == u'\\';
  return continues;
}

// The row in the field. What stood behind the caret stays behind it where the row still ends
// with it; otherwise the caret goes to the end.
void frmInsert::ShowConverted(const QString& typed, const QString& row) {
  const QString after = typed.mid(m_txtLinear->cursorPosition());
  const int caret = int(row.endsWith(after) ? row.size() - after.size() : row.size());
  const QSignalBlocker quiet(m_txtLinear);
  m_txtLinear->setText(row);
  m_txtLinear->setCursorPosition(caret);
}

// Leaving the field, what waited for the rest of a name is converted too.
void frmInsert::LinearFinished() {
  if (m_unloading) return;
  const QString typed = m_txtLinear->text();
  const QString row = mathx::FromTypedInput(typed);
  if (row == typed || m_txtLinear->property("invalid").toBool()) return;
  const QSignalBlocker quiet(m_txtLinear);
  m_txtLinear->setText(row);
  m_lastLinear = row;
}

void frmInsert::SetBoth(const QString& standard, const QString& linear) {
  const QSignalBlocker quiet(m_txtLinear);
  m_txtLinear->setText(linear);
  SetProblem(QString());
  m_mthStandard->SetText(standard);
  if (auto* derivative = m_bars.FindControl(1044)) derivative->SetEnabled(!linear.startsWith(u'['));
}

void frmInsert::CommandBars_Execute(ribbon::CommandControl& control) {
  const QString name = control.Name();
  if (name == u"mnuCartesian") {
    SetBoth(QStringLiteral("[x,y;,]"), QStringLiteral("[x,y;,]"));
    m_mthStandard->setFocus();
    return;
  }
  if (name == u"mnuPolar") {
    SetBoth(QStringLiteral("[r,q..symb;,]"), QStringLiteral("[r,theta;,]"));
    m_mthStandard->setFocus();
    return;
  }
  const auto setStandard = [this](const char* text) { m_mthStandard->SetText(QString::fromLatin1(text)); };
  switch (control.Id()) {
    case 1023:
    case 1028: setStandard("[x,y;,]"); break;
    case 1024:
    case 1030: setStandard("[r,q..symb;,]"); break;
    case 1029: setStandard("[y,x;,]"); break;
    case 1031: setStandard("[q..symb,r;,]"); break;
    case 1032: Insert(); break;
    case 1044: Derivative(); break;
    default:
      if (IsDisplayCommand(control.Id())) DisplayCommand(control);
      break;
  }
}

void frmInsert::Derivative() {
  const QString text = m_mthStandard->Text();
  const auto derivative = mathlang::Derivative(text);
  if (!derivative) {
    m_answering = true;
    m_boxes.Show(QStringLiteral("Could Not Derivative!"), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, QStringLiteral("[Derivative Error - [Err-0008]"));
    m_answering = false;
    return;
  }
  // A name "sqr" in the result comes out as "sqrt", and a "sqrt" stays.
  QString result = core::Replace(*derivative, QStringLiteral("sqrt"), QStringLiteral("###"));
  result = core::Replace(result, QStringLiteral("sqr"), QStringLiteral("sqrt"));
  result = core::Replace(result, QStringLiteral("###"), QStringLiteral("sqrt"));
  const int equals = core::InStr(text, QStringLiteral("="));
  if (equals > 0) result = core::Left(text, equals) + result;
  SetBoth(result, result);
}

void frmInsert::DisplayCommand(ribbon::CommandControl& control) {
  const bool was = control.Checked();
  for (int id : kDisplayCommands) {
    if (auto* item = m_bars.FindControl(id)) item->SetChecked(false);
  }
  control.SetChecked(!was);
  const bool on = control.Checked();
  QString text;
  if (control.Id() == 1053) {
    text = QStringLiteral("command==>[") + (on ? QStringLiteral("transparent") : QStringLiteral("opaque")) +
           QStringLiteral("background]");
  } else if (control.Id() == 1055) {
    if (on) text = QStringLiteral("command==>[enterfullscreen]");
  } else {
    text = QStringLiteral("command==>[") + (on ? QStringLiteral("show") : QStringLiteral("hide")) + control.Keyword() + u']';
  }
  // Into the linear style, and from there, as typed, into the standard one.
  const QString row = plotcompiler::CompileInequalityRow(expression::NormaliseExpression(m_state.FunctionTokens, text));
  SetBoth(row, text);
}

void frmInsert::Insert() {
  // The standard style shows the last good equation while the linear text is red: that is not
  // what the user typed, and it is not written.
  if (m_unloading || m_txtLinear->property("invalid").toBool()) return;
  const std::int16_t source = m_state.InsertSource;
  const double index = m_state.InsertIndex;
  m_target.Drafts().Drop(source, index);
  const QString text = m_mthStandard->Text();
  switch (source) {
    case 0: m_target.SetEditorText(0, index, text); break;
    case 1: {
      QString relation = QStringLiteral(">");
      if (text.contains(QStringLiteral(">="))) relation = QStringLiteral(">=");
      else if (text.contains(QStringLiteral("<="))) relation = QStringLiteral("<=");
      else if (text.contains(u'<')) relation = QStringLiteral("<");
      int at = core::InStr(text, QStringLiteral(">"));
      if (at == 0) at = core::InStr(text, QStringLiteral("<"));
      const QString right = core::Replace(core::Mid(text, at + 1), QStringLiteral("="), QString());
      m_target.SetInequalityOperator(static_cast<int>(index), relation);
      m_target.SetEditorText(1, index, right);
      break;
    }
    case 2: {
      const QString right = core::Mid(text, core::InStr(text, QStringLiteral("=")) + 1);
      m_target.SetEditorText(2, index == 1 ? 1 : 2, right);
      break;
    }
    case 3:
      m_target.SetEditorText(3, index, text);
      m_txtLinear->setText(text);
      break;
    default: break;
  }
  m_target.FocusAfter(source, true);
  Unload();
}

void frmInsert::btnCancel_Click() {
  if (m_unloading) return;
  m_target.Drafts().Drop(m_state.InsertSource, m_state.InsertIndex);
  m_target.FocusAfter(m_state.InsertSource, false);
  Unload();
}

void frmInsert::Cancel() {
  if (m_unloading) return;
  m_target.FocusAfter(m_state.InsertSource, false);
  Leave();
}

// Gone without Insert or Cancel: what differs from the opening is kept for the editor.
void frmInsert::Leave() {
  if (m_unloading) return;
  const std::int16_t source = m_state.InsertSource;
  const double index = m_state.InsertIndex;
  const InsertDraft draft{m_base, m_mthStandard->Text(), m_txtLinear->text()};
  const bool typed = draft.Standard != m_base || draft.Linear != m_baseLinear;
  if (typed) m_target.Drafts().Keep(source, index, draft);
  else m_target.Drafts().Drop(source, index);
  Unload();
}

void frmInsert::Unload() {
  if (m_unloading) return;
  m_unloading = true;
  m_tmrAnimater.stop();
  close();
}

void frmInsert::closeEvent(QCloseEvent* event) {
  // The window's own close button is a Cancel.
  if (!m_unloading) {
    m_target.Drafts().Drop(m_state.InsertSource, m_state.InsertIndex);
    m_target.FocusAfter(m_state.InsertSource, false);
    m_unloading = true;
    m_tmrAnimater.stop();
  }
  QDialog::closeEvent(event);
}

bool frmInsert::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate: m_mthStandard->setFocus(); break;
    case QEvent::WindowDeactivate:
      // A box or dialog of our own over the window is no leave.
      if (!m_answering && QApplication::activeModalWidget() == nullptr && !m_unloading) {
        const QWidget* active = QApplication::activeWindow();
        if (active == nullptr || !isAncestorOf(active)) Leave();
      }
      break;
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

QSize frmInsert::WantedSize() const {
  const QPoint standard = m_mthStandard->mapTo(this, QPoint(0, 0));
  const QPoint controls = m_grpControls->mapTo(this, QPoint(0, 0));
  const int width = standard.x() + m_mthStandard->width() + Px(kRightMargin);
  const int height = controls.y() + m_grpControls->height() + Px(kBottomMargin);
  return {std::max(width, Px(kFormMinWidth)), std::max(height, Px(kFormMinHeight))};
}

void frmInsert::Animate() {
  const QSize wanted = WantedSize();
  QSize next = size();
  next.setWidth(wanted.width() > width() ? std::min(width() + Px(kGrowWidth), wanted.width()) : wanted.width());
  next.setHeight(wanted.height() > height() ? std::min(height() + Px(kGrowHeight), wanted.height()) : wanted.height());
  if (next != size()) resize(next);
}

void frmInsert::PlaceControls() {
  const int menu = m_menuBar->sizeHint().height();
  m_menuBar->setGeometry(0, 0, width(), menu);
  m_grpAllControls->setGeometry(0, menu, width(), height() - menu);
  m_lblStandard->setGeometry(kMargin, kMargin - 4, m_mthStandard->width(), m_lblStandard->sizeHint().height());
  m_mthStandard->move(kMargin, m_lblStandard->geometry().bottom() + 4);
  const int linearHeight = m_txtLinear->sizeHint().height();
  const int labelHeight = m_lblLinear->sizeHint().height();
  const int reasonHeight = m_lblReason->fontMetrics().height() + 2;  // kept free, so nothing jumps
  m_grpControls->setGeometry(kMargin, m_mthStandard->geometry().bottom() + 10, m_mthStandard->width(),
                             labelHeight + 4 + linearHeight + 2 + reasonHeight);
  m_lblLinear->setGeometry(0, 0, m_grpControls->width(), labelHeight);
  m_txtLinear->setGeometry(0, labelHeight + 4, m_grpControls->width(), linearHeight);
  m_lblReason->setGeometry(0, m_txtLinear->geometry().bottom() + 3, m_grpControls->width(), reasonHeight);
  const QSize button = m_btnInsert->sizeHint().expandedTo(m_btnCancel->sizeHint()).expandedTo(QSize(96, 0));
  const int bottom = m_grpAllControls->height() - kMargin - button.height();
  m_btnCancel->setGeometry(m_grpAllControls->width() - kMargin - button.width(), bottom, button.width(), button.height());
  m_btnInsert->setGeometry(m_btnCancel->x() - 8 - button.width(), bottom, button.width(), button.height());
}

void frmInsert::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  PlaceControls();
}

}  // namespace dialogs
