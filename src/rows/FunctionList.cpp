#include "FunctionList.h"

#include "ColorButton.h"
#include "ConstantSlider.h"
#include "RowBuilder.h"
#include "RowKind.h"
#include "RowMetrics.h"
#include "RowStatusIcons.h"

#include "core/ColorController.h"
#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "core/TextFunctions.h"
#include "core/Twips.h"
#include "mathx/MthX.h"
#include "mathx/SpokenForm.h"

#include <QBuffer>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace rows {

using core::Px;
using core::Tw;
using namespace metrics;

namespace {

constexpr double kRowGapForView = 60;  // twips left above or below a row scrolled into view

constexpr int kBottomBarHeight = 44;  // pixels: the buttons under the list

// Runs f with the editor's change guard set, as every write of the program does.
template <typename F>
void Quietly(mathx::MthX* editor, F&& f) {
  core::SetTag(editor, core::kQuiet);
  f();
  core::SetTag(editor, QString());
}

}  // namespace

FunctionList::FunctionList(core::SharedState& state, platform::MessageBoxes& boxes, platform::ColorChooser& chooser,
                           QWidget* parent)
    : QWidget(parent), m_state(state), m_boxes(boxes), m_chooser(chooser) {
  setObjectName(QStringLiteral("FunctionList"));
  m_grpFunctions = new QWidget(this);
  m_grpFunctions->setObjectName(QStringLiteral("grpFunctions"));
  m_grpFunctions->setAttribute(Qt::WA_StyledBackground);
  m_picFunction = new QWidget(m_grpFunctions);
  m_picFunction->setObjectName(QStringLiteral("picFunction"));
  m_scrlFunctions = new QScrollBar(Qt::Vertical, m_grpFunctions);
  m_scrlFunctions->setObjectName(QStringLiteral("scrlFunctions"));
  m_scrlFunctions->hide();
  connect(m_scrlFunctions, &QScrollBar::valueChanged, this, &FunctionList::Scroll);

  m_grpControlFunctions = new QWidget(this);
  m_grpControlFunctions->setObjectName(QStringLiteral("grp_Control_Functions"));
  auto* buttons = new QHBoxLayout(m_grpControlFunctions);
  buttons->setContentsMargins(6, 6, 6, 6);
  m_cmdAddFunction = new QPushButton(tr("&Add row"), m_grpControlFunctions);
  m_cmdAddFunction->setObjectName(QStringLiteral("cmdAddFunction"));
  m_cmdAddFunction->setToolTip(tr("Add a row under the last one (Ctrl+Shift+N)"));
  m_cmdAddFunction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+N")));
  m_cmdClearAllFunction = new QPushButton(tr("C&lear all"), m_grpControlFunctions);
  m_cmdClearAllFunction->setObjectName(QStringLiteral("cmdClearAllFunction"));
  m_cmdClearAllFunction->setToolTip(tr("Remove every row"));
  buttons->addWidget(m_cmdAddFunction);
  buttons->addWidget(m_cmdClearAllFunction);
  buttons->addStretch();
  connect(m_cmdAddFunction, &QPushButton::clicked, this, [this] {
    const int before = HighestIndex();
    AddFunction(false);
    emit CloseInsertRequested();
    // The new row takes the keyboard, ready for its equation, whether the button was clicked or
    // reached by its keys.
    if (HighestIndex() > before) FocusRow(HighestIndex());
  });
  connect(m_cmdClearAllFunction, &QPushButton::clicked, this, &FunctionList::ClearAllFunctions);

  // Row 0 exists from the start.
  m_rows.push_back(RowBuilder::Create(*m_picFunction, m_chooser, 0, false));
  FunctionRow& first = m_rows.front();
  first.Top = 0;
  first.Height = kMinRowHeight;
  first.colrFunction->SetColor(255);
  first.colrFunction->SetDefaultColor(255);
  Connect(0);
  core::SetTag(first.mthFunction, QString());
}

FunctionList::~FunctionList() = default;

void FunctionList::Connect(int index) {
  FunctionRow& row = Row(index);
  connect(row.mthFunction, &mathx::MthX::Clicked, this, [this, index] { EditorClicked(index); });
  connect(row.mthFunction, &mathx::MthX::Change, this, [this, index] { EditorChanged(index); });
  connect(row.colrFunction, &ColorButton::ColorChanged, this, [this, index] {
    SpeakRow(index);  // the row's colour is in what a screen reader says of it
    emit Changed();
  });
  connect(row.colrFunction, &ColorButton::FocusIn, this, [this, index] { SetActiveRow(index); });
  connect(row.rchfunNote, &QTextEdit::textChanged, this, [this] { emit Changed(); });
  connect(row.btnMore, &QToolButton::clicked, this, [this, index] {
    SetActiveRow(index);
    emit MoreRequested(index);
  });
  connect(row.sliConstant, &ConstantSlider::ValueChosen, this,
          [this, index](const QString& value) { SetConstantValue(index, value); });
  connect(row.sliConstant, &ConstantSlider::BoundsChanged, this, [this] { emit Changed(); });
  row.rchfunNote->installEventFilter(this);
  row.rchfunNote->viewport()->installEventFilter(this);
  row.grpFunction->installEventFilter(this);
  row.mthFunction->installEventFilter(this);
  for (QObject* o : {static_cast<QObject*>(row.rchfunNote), static_cast<QObject*>(row.rchfunNote->viewport()),
                     static_cast<QObject*>(row.grpFunction), static_cast<QObject*>(row.mthFunction)}) {
    o->setProperty("rowIndex", index);
  }
}

bool FunctionList::eventFilter(QObject* watched, QEvent* event) {
  const QVariant index = watched->property("rowIndex");
  if (!index.isValid()) return QWidget::eventFilter(watched, event);
  const int i = index.toInt();
  switch (event->type()) {
    case QEvent::FocusIn:
      if (watched != Row(i).mthFunction || static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
        SetActiveRow(i);
        ShowRow(i);
      }
      break;
    case QEvent::MouseButtonPress:
      if (watched == Row(i).grpFunction) SetActiveRow(i);
      break;
    case QEvent::MouseButtonRelease: {
      auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() == Qt::RightButton && watched != Row(i).mthFunction && watched != Row(i).grpFunction) {
        core::SetTag(this, QString::number(i));
        emit NoteMenuRequested(i, mouse->globalPosition().toPoint());
        return true;
      }
      break;
    }
    case QEvent::ToolTip:
      if (watched == Row(i).mthFunction) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), EditorToolTip(i), Row(i).mthFunction);
        return true;
      }
      break;
    case QEvent::ContextMenu:
      // The note's menu comes with the button's release, not the text box's own menu.
      if (watched == Row(i).rchfunNote || watched == Row(i).rchfunNote->viewport()) return true;
      break;
    case QEvent::KeyPress:
      if (watched == Row(i).mthFunction && RowKey(i, *static_cast<QKeyEvent*>(event))) return true;
      break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void FunctionList::SetActiveRow(int row) {
  m_activeRow = row;
  Refresh_ActivateLines();
}

void FunctionList::EditorClicked(int index) {
  SetActiveRow(index);
  if (core::Tag(Row(index).mthFunction) == core::kQuiet) return;
  m_state.InsertSource = 0;
  m_state.InsertIndex = index;
  emit InsertRequested(index);
}

void FunctionList::EditorChanged(int index) {
  FunctionRow& row = Row(index);
  if (core::Tag(row.mthFunction) == core::kQuiet) return;
  RowBuilder::FixEditorWidth(row);
  const double editorHeight = core::MaxValue(Tw(row.mthFunction->height()), kMinEditorHeight);
  row.mthFunction->resize(row.mthFunction->width(), Px(editorHeight));
  SyncSlider(row);
  row.Height = core::MaxValue(Tw(row.mthFunction->height()) + Tw(row.mthFunction->y()) + kRowMargin, kChangedRowHeight) +
               RowBuilder::SliderHeight(row);
  row.grpFunction->resize(row.grpFunction->width(), Px(row.Height));
  Refresh_mth_Height(false);
  RowBuilder::FixEditorWidth(row);
  emit ReplotRequested(false);
  emit Changed();
}

void FunctionList::AddFunction(bool ShowNote) {
  const int i = HighestIndex() + 1;
  if (i > kHighestRowIndex) {
    m_boxes.Show(QStringLiteral("The maximum number of functions is 110."), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, QStringLiteral("Max Function - [Info-0004]"));
    return;
  }
  const FunctionRow& previous = Row(i - 1);
  FunctionRow row = RowBuilder::Create(*m_picFunction, m_chooser, i, ShowNote);
  row.Top = previous.Top + previous.Height;
  row.Height = kMinRowHeight;
  const std::int32_t color = core::NextRowColor(previous.colrFunction->DefaultColor());
  row.colrFunction->SetColor(color);
  row.colrFunction->SetDefaultColor(color);
  row.grpFunction->show();
  m_rows.push_back(row);
  Connect(i);
  Quietly(row.mthFunction, [&] { row.mthFunction->SetText(QString()); });
  m_picHeight = row.Top + row.Height;
  Refresh_mth_Height(true);
  m_cmdAddFunction->setFocus();
}

RowContents FunctionList::Contents(int index) const {
  const FunctionRow& row = Row(index);
  return {row.mthFunction->Text(), row.colrFunction->Color(), core::Tag(row.grpFunction), row.rchfunNote->toHtml(),
          !row.rchfunNote->isHidden(), RowBuilder::Problem(row), row.sliConstant->UserBounds()};
}

void FunctionList::SetContents(int index, const RowContents& contents) {
  FunctionRow& row = Row(index);
  Quietly(row.mthFunction, [&] { row.mthFunction->SetText(contents.Text); });
  const QSignalBlocker colorQuiet(row.colrFunction);
  row.colrFunction->SetColor(contents.Color);
  core::SetTag(row.grpFunction, contents.Attributes);
  const QSignalBlocker noteQuiet(row.rchfunNote);
  row.rchfunNote->setHtml(contents.NoteHtml);
  row.rchfunNote->setVisible(contents.NoteVisible);
  RowBuilder::ShowProblem(row, contents.Problem);
  // A sweep belongs to the row that was here; the new one shows its slider at the next layout.
  row.sliConstant->SetPlaying(false);
  row.sliConstant->SetUserBounds(contents.Slider);
}

void FunctionList::SyncSlider(FunctionRow& row) {
  const auto constant = ConstantOfRow(m_state, row.mthFunction->Text(), !row.rchfunNote->isHidden());
  if (!constant) {
    row.sliConstant->SetPlaying(false);
    row.sliConstant->hide();
    return;
  }
  row.sliConstant->ShowValue(constant->Left.trimmed(), constant->Value);
  row.sliConstant->show();
}

// The row's text with the new number, through the editor as the insert dialog writes it: the
// change handler replots, marks the project and sets the slider from the text.
void FunctionList::SetConstantValue(int index, const QString& value) {
  FunctionRow& row = Row(index);
  const auto constant = ConstantOfRow(m_state, row.mthFunction->Text(), !row.rchfunNote->isHidden());
  if (constant) row.mthFunction->SetText(constant->Left + u'=' + value);
}

QString FunctionList::SliderText(int index) const {
  const FunctionRow& row = Row(index);
  const auto& bounds = row.sliConstant->UserBounds();
  if (!bounds || !ConstantOfRow(m_state, row.mthFunction->Text(), !row.rchfunNote->isHidden())) return {};
  return bounds->Text();
}

void FunctionList::SetSliderText(int index, const QString& text) {
  if (index < 0 || index > HighestIndex()) return;
  // Text that holds no bounds leaves the defaults, as a row that never had any.
  Row(index).sliConstant->SetUserBounds(SliderBounds::FromText(text));
}

void FunctionList::SetRowProblem(int row, const QString& why) {
  if (row < 0 || row > HighestIndex()) return;
  RowBuilder::ShowProblem(Row(row), why);
}

QString FunctionList::EditorToolTip(int row) const {
  const mathx::MthX& editor = *Row(row).mthFunction;
  if (editor.Text().isEmpty() || editor.sizeHint().width() <= editor.width()) return editor.toolTip();
  // The picture at the screen's density, shown at its size in logical pixels.
  const double ratio = editor.devicePixelRatioF();
  const QImage picture = editor.Typeset().Render(QColor(0, 0, 255), ratio);
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "PNG");
  const QSizeF size = editor.Typeset().Size();
  return QStringLiteral("<p><img src=\"data:image/png;base64,%1\" width=\"%2\" height=\"%3\"></p><p>%4</p>")
      .arg(QString::fromLatin1(png.toBase64()))
      .arg(std::ceil(size.width()))
      .arg(std::ceil(size.height()))
      .arg(editor.toolTip());
}

std::vector<RowContents> FunctionList::CopyRows() const {
  std::vector<RowContents> rows;
  for (int i = 0; i <= HighestIndex(); ++i) rows.push_back(Contents(i));
  return rows;
}

void FunctionList::RemoveFunction(int Index, bool Replot) {
  emit RowsRearranged();
  if (HighestIndex() == 0) {
    // The only row is reset, whatever the index; the plot keeps the curve until the next replot.
    FunctionRow& row = Row(0);
    core::SetTag(row.grpFunction, QString::fromLatin1(kDefaultAttributes));
    core::SetTag(row.mthFunction, core::kQuiet);
    row.mthFunction->SetText(QString());
    {
      const QSignalBlocker colorQuiet(row.colrFunction);
      row.colrFunction->SetColor(255);
      const QSignalBlocker noteQuiet(row.rchfunNote);
      row.rchfunNote->setPlainText(QString::fromLatin1(kDefaultNote));
      row.rchfunNote->hide();
    }
    RowBuilder::ShowProblem(row, QString());
    row.sliConstant->SetPlaying(false);
    row.sliConstant->SetUserBounds(std::nullopt);
    Refresh_mth_Height(false);
    core::SetTag(row.mthFunction, QString());
    emit RowsRenumbered({-1});
    emit Changed();
    return;
  }
  QList<int> renumbered;
  for (int i = 0; i <= HighestIndex(); ++i) renumbered.push_back(i < Index ? i : i == Index ? -1 : i - 1);
  if (Index == HighestIndex()) {
    core::SetTag(Row(Index).mthFunction, core::kQuiet);
    RowBuilder::Destroy(m_rows.back());
    m_rows.pop_back();
    Refresh_mth_Height(false);
    emit RowsRenumbered(renumbered);
    emit Changed();
    return;
  }
  const std::vector<RowContents> saved = CopyRows();
  core::SetTag(m_rows.back().mthFunction, core::kQuiet);
  RowBuilder::Destroy(m_rows.back());
  m_rows.pop_back();
  // Every row from the index on takes the contents of the row under it; an index past the end
  // moves nothing.
  for (int i = HighestIndex(); i >= Index && i >= 0; --i) SetContents(i, saved[static_cast<std::size_t>(i + 1)]);
  Refresh_mth_Height(false);
  emit RowsRenumbered(renumbered);
  emit Changed();
  if (Replot) emit ReplotRequested(true);
}

void FunctionList::MoveFunctionTo(int Index, int Target) {
  if (Target > HighestIndex() || Target < 0) return;
  if (Index < 0 || Index > HighestIndex()) return;
  const std::vector<RowContents> saved = CopyRows();
  SetContents(Index, saved[static_cast<std::size_t>(Target)]);
  SetContents(Target, saved[static_cast<std::size_t>(Index)]);
  Refresh_mth_Height(false);
  emit CloseInsertRequested();
  emit RowsRearranged();
  QList<int> renumbered;
  for (int i = 0; i <= HighestIndex(); ++i) renumbered.push_back(i == Index ? Target : i == Target ? Index : i);
  emit RowsRenumbered(renumbered);
  emit ReplotRequested(false);
  emit Changed();
}

void FunctionList::ClearAllFunctions() {
  m_activeRow = 0;
  const auto answer = m_boxes.Show(QStringLiteral("Are you sure you want to clear all functions?"),
                                   platform::MessageBoxes::Buttons::YesNo, platform::MessageBoxes::Icon::Question,
                                   QStringLiteral("Delete All Function - [Msg-0001]"));
  if (answer == platform::MessageBoxes::Answer::No) return;
  // The index rises while the list shrinks: each call takes one row, the last one resets row 0.
  const int n = HighestIndex();
  for (int i = 0; i <= n; ++i) RemoveFunction(i, false);
  emit ReplotRequested(false);
  m_scrlFunctions->setValue(0);
  Scroll(0);
}

void FunctionList::EndBulk() {
  if (m_bulk == 0 || --m_bulk > 0) return;
  Refresh_mth_Height(std::exchange(m_bulkScrollToEnd, false));
}

void FunctionList::Refresh_mth_Height(bool ScrollToEnd) {
  if (m_bulk > 0) {
    m_bulkScrollToEnd = m_bulkScrollToEnd || ScrollToEnd;
    return;
  }
  for (int i = 0; i <= HighestIndex(); ++i) {
    FunctionRow& row = Row(i);
    SyncSlider(row);
    row.Height = static_cast<float>(
        core::MaxValue(Tw(row.mthFunction->height()) + Tw(row.mthFunction->y()) + kRowMargin, kMinRowHeight) +
        RowBuilder::SliderHeight(row));
    core::SetTag(row.mthFunction, core::kQuiet);
    row.mthFunction->setVisible(row.rchfunNote->isHidden());
    RowBuilder::FixEditorWidth(row);
    // The note's caret and selection stay where the user left them: a note left wholly selected
    // would be replaced by the next key pressed.
    row.rchfunNote->setGeometry(row.mthFunction->x(), row.mthFunction->y(), Px(kEditorWidth), row.mthFunction->height());
    if (i != 0) row.Top = Row(i - 1).Top + Row(i - 1).Height;
    core::SetTag(row.mthFunction, QString());
    for (QFrame* line : {row.ActiveLine_UP, row.ActiveLine_Down, row.ActiveLine_Left, row.ActiveLine_Right}) {
      line->setVisible(i == m_activeRow);
    }
    RowBuilder::PlaceFrame(row);
    PlaceStatusIcon(row, i);
  }
  const FunctionRow& last = Row(HighestIndex());
  m_picHeight = last.Top + last.Height;
  // Shown or hidden before the rows are placed, so that they take the width it leaves them.
  m_scrlFunctions->setVisible(m_picHeight > m_listHeight);
  PlaceList();
  // Rows keep their widgets when their contents move: the chain changes only with their number.
  if (std::exchange(m_chainedRows, HighestIndex() + 1) != HighestIndex() + 1) ChainTabOrder();
  m_scrlFunctions->setMaximum(std::max(0, static_cast<int>(m_picHeight - m_listHeight + kScrollMargin)));
  m_scrlFunctions->setSingleStep(static_cast<int>(Row(0).Height));
  m_scrlFunctions->setPageStep(static_cast<int>(5 * Row(0).Height));
  // A list that fits its window goes back to its top: with no scroll bar there is no other way back
  // to rows scrolled out of sight.
  if (m_scrlFunctions->isHidden()) m_scrlFunctions->setValue(0);
  if (ScrollToEnd) m_scrlFunctions->setValue(m_scrlFunctions->maximum());
  Scroll(m_scrlFunctions->value());
}

void FunctionList::SpeakRow(int index) {
  if (index < 0 || index > HighestIndex()) return;
  FunctionRow& row = Row(index);
  const QStringList options = core::Split(core::Tag(row.grpFunction), QStringLiteral(","));
  bool visible = true;
  core::TryStep([&] { visible = core::StrictToBoolean(core::At(options, 4)); });
  const bool hasCommand = row.mthFunction->Text().contains(QStringLiteral("command"));
  // Said anew only when the text changed: the layout pass comes here for every row.
  const QString text = row.mthFunction->Text();
  if (row.mthFunction->property("spokenOf").toString() != text || !row.mthFunction->property("spoken").isValid()) {
    row.mthFunction->setProperty("spokenOf", text);
    row.mthFunction->setProperty("spoken", mathx::SpokenForm::OfRow(text));
  }
  RowBuilder::Speak(row, index, row.mthFunction->property("spoken").toString(), visible || hasCommand,
                    !row.rchfunNote->isHidden());
}

void FunctionList::PlaceStatusIcon(FunctionRow& row, int index) {
  const QStringList options = core::Split(core::Tag(row.grpFunction), QStringLiteral(","));
  const bool hasCommand = row.mthFunction->Text().contains(QStringLiteral("command"));
  bool visible = true;
  core::TryStep([&] { visible = core::StrictToBoolean(core::At(options, 4)); });
  const bool showIcon = hasCommand == visible;
  RowBuilder::ShowDrawn(row, visible || hasCommand);
  row.imgInvisible->setVisible(showIcon);
  if (showIcon) row.imgInvisible->setIcon(RowStatusIcons::Icon(RowStatusIcons::Hidden));
  if (hasCommand) row.imgInvisible->setIcon(RowStatusIcons::Icon(RowStatusIcons::Command));
  if (!row.rchfunNote->isHidden()) {
    row.imgInvisible->setIcon(RowStatusIcons::Icon(RowStatusIcons::Note));
    row.imgInvisible->show();
    row.colrFunction->hide();
  } else {
    row.colrFunction->setVisible(row.imgInvisible->isHidden());
  }
  SpeakRow(index);
  row.imgInvisible->setToolTip(!row.rchfunNote->isHidden() ? tr("A note")
                               : hasCommand                ? tr("A display command")
                                                           : tr("Hidden: not drawn"));
}

void FunctionList::Refresh_ActivateLines() {
  for (int i = 0; i <= HighestIndex(); ++i) {
    const FunctionRow& row = Row(i);
    for (QFrame* line : {row.ActiveLine_UP, row.ActiveLine_Down, row.ActiveLine_Left, row.ActiveLine_Right}) {
      line->setVisible(i == m_activeRow);
    }
  }
}

void FunctionList::SetListHeight(double twips) {
  m_listHeight = twips;
  PlaceList();
}

// The rows' frames at their tops, the list as high as its rows, and the scroll bar beside it.
void FunctionList::PlaceList() {
  const int scrollWidth = m_scrlFunctions->sizeHint().width();
  const int width = m_grpFunctions->width() - (m_scrlFunctions->isHidden() ? 0 : scrollWidth);
  m_picFunction->resize(width, Px(m_picHeight));
  for (FunctionRow& row : m_rows) row.grpFunction->setGeometry(0, Px(row.Top), width, Px(row.Height));
  m_scrlFunctions->setGeometry(m_grpFunctions->width() - scrollWidth, 0, scrollWidth, Px(m_listHeight));
}

// The keyboard's ways through the list from a row's editor, so that no row needs the mouse: Enter
// or F2 opens the insert dialog, Up and Down go to the row above or below, with Ctrl they move the
// row there, Ctrl+Delete removes it (a step that Undo takes back), the Menu key or Shift+F10 opens
// its menu.
bool FunctionList::RowKey(int i, const QKeyEvent& key) {
  const bool ctrl = key.modifiers() & Qt::ControlModifier;
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2: EditorClicked(i); return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
      // Within a fraction or a power the caret goes up and down in the equation first.
      if (!ctrl && Row(i).mthFunction->CaretCanMove(key.key() == Qt::Key_Up)) return false;
      const int to = i + (key.key() == Qt::Key_Up ? -1 : 1);
      if (to < 0 || to > HighestIndex()) return true;
      if (ctrl) MoveFunctionTo(i, to);
      FocusRow(to);
      return true;
    }
    case Qt::Key_Delete:
      // The editor takes typing in place, so Delete deletes a character there: the row itself goes
      // with Ctrl+Delete, or with Delete once it is empty.
      if (!ctrl && !Row(i).mthFunction->Text().isEmpty()) return false;
      RemoveFunction(i, true);
      FocusRow(std::min(i, HighestIndex()));
      return true;
    case Qt::Key_F10:
      if (!(key.modifiers() & Qt::ShiftModifier)) return false;
      [[fallthrough]];
    case Qt::Key_Menu:
      SetActiveRow(i);
      emit MoreRequested(i);
      return true;
    default: return false;
  }
}

// Tab goes through the rows from the top, each row's colour, editor, menu button and slider in
// turn, and then to the buttons under the list; rows made later would otherwise come last in the
// window's chain, after everything else.
void FunctionList::ChainTabOrder() {
  QWidget* previous = nullptr;
  const auto next = [&previous](QWidget* widget) {
    if (previous != nullptr) QWidget::setTabOrder(previous, widget);
    previous = widget;
  };
  for (const FunctionRow& row : m_rows) {
    for (QWidget* widget : {static_cast<QWidget*>(row.colrFunction), static_cast<QWidget*>(row.mthFunction),
                            static_cast<QWidget*>(row.imgProblem), static_cast<QWidget*>(row.btnMore)})
      next(widget);
    for (QWidget* widget : row.sliConstant->TabOrder()) next(widget);
  }
  next(m_cmdAddFunction);
  next(m_cmdClearAllFunction);
}

void FunctionList::FocusRow(int row) {
  SetActiveRow(row);
  Row(row).mthFunction->setFocus(Qt::OtherFocusReason);
  ShowRow(row);
}

// Scrolls the list as little as it takes for the row to be seen whole.
void FunctionList::ShowRow(int row) {
  if (!m_scrlFunctions->isVisible() || row < 0 || row > HighestIndex()) return;
  const FunctionRow& shown = Row(row);
  const double top = m_scrlFunctions->value() - kListTop;  // the list's top, in the picture's twips
  const double visible = m_listHeight - kListTop;
  double wanted = m_scrlFunctions->value();
  if (shown.Top < top) wanted = shown.Top + kListTop - kRowGapForView;
  else if (shown.Top + shown.Height > top + visible) wanted = shown.Top + shown.Height - visible + kListTop + kRowGapForView;
  m_scrlFunctions->setValue(static_cast<int>(wanted));
}

void FunctionList::Scroll(int position) { m_picFunction->move(0, Px(kListTop - position)); }

void FunctionList::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int w = width();
  m_grpControlFunctions->setGeometry(0, height() - kBottomBarHeight, w, kBottomBarHeight);
  const double listHeight = Tw(height()) - Tw(kBottomBarHeight) - Tw(m_grpFunctions->y()) - 60;
  m_grpFunctions->setGeometry(0, 0, w, Px(listHeight));
  SetListHeight(listHeight);
  Refresh_mth_Height(false);
}

void FunctionList::wheelEvent(QWheelEvent* event) {
  if (!m_scrlFunctions->isVisible()) return;
  const int steps = event->angleDelta().y() / 120;
  m_scrlFunctions->setValue(m_scrlFunctions->value() - steps * m_scrlFunctions->singleStep());
  event->accept();
}

}  // namespace rows
