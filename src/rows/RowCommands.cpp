#include "RowCommands.h"

#include "ColorButton.h"
#include "FunctionList.h"
#include "RowBuilder.h"
#include "RowMenu.h"
#include "RowStatusIcons.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Tag.h"
#include "core/TextFunctions.h"
#include "mathx/MthX.h"
#include "mathx/RowExport.h"
#include "platform/ColorChooser.h"
#include "platform/Desktop.h"

#include <QMimeData>
#include <QPushButton>
#include <QTextEdit>
#include <QTextCharFormat>

namespace rows {

namespace {

using core::At;
using core::BooleanText;

const QString kComma = QStringLiteral(",");

// The note's sizes, in order from 1145 to 1160.
constexpr int kSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

}  // namespace

RowCommands::RowCommands(FunctionList& rows, RowMenu& menu, platform::ColorChooser& colors, platform::Desktop& desktop)
    : m_rows(rows), m_menu(menu), m_colors(colors), m_desktop(desktop) {}

bool RowCommands::Execute(ribbon::CommandControl& control) {
  const int i = m_menu.Row();
  const auto done = [this] {
    if (Replot) Replot();
    if (ProjectChanged) ProjectChanged();
  };
  switch (control.Id()) {
    case 1107:
      m_rows.RemoveFunction(i, true);
      if (Replot) Replot();
      return true;
    case 1108:
      if (i != 0) m_rows.MoveFunctionUp(i);
      return true;
    case 1109:
      if (i != m_rows.HighestIndex()) m_rows.MoveFunctionDown(i);
      return true;
    case 1130:
    case 1132:
    case 1133:
      ExclusiveFlag(control, i);
      done();
      return true;
    case 1172:
    case 1173:
      Mode(control, i);
      done();
      return true;
    case 1162:
      Flag(control, i, 3);
      done();
      return true;
    case 1169:
      Flag(control, i, 4);
      done();
      return true;
    case 1135: Note(control, i); return true;
    case 1134:
      if (MoveTo) MoveTo(i);
      return true;
    case 1174:
      if (PointsOf) PointsOf(i);
      return true;
    // The active row: the menu makes its row the active one, and the key copies the row in work.
    case 1175: CopyRow(m_rows.ActiveRow()); return true;
    default: return NoteCommand(control, i);
  }
}

// The row as LaTeX and as readable text at once: the plain text of the clipboard is the LaTeX,
// which a LaTeX document takes and the insert dialog reads back; the HTML is the readable form,
// which a word processor prefers. A note copies its text; an empty row copies nothing.
void RowCommands::CopyRow(int row) {
  if (row < 0 || row > m_rows.HighestIndex()) return;
  const FunctionRow& shown = m_rows.Row(row);
  auto data = std::make_unique<QMimeData>();
  if (!shown.rchfunNote->isHidden()) {
    const QString note = shown.rchfunNote->toPlainText();
    if (note.isEmpty()) return;
    data->setText(note);
  } else {
    const QString text = shown.mthFunction->Text();
    if (text.isEmpty()) return;
    const QString latex = mathx::RowExport::ToLatex(text);
    data->setText(latex);
    data->setData(QStringLiteral("text/x-tex"), latex.toUtf8());
    data->setHtml(mathx::RowExport::ToPlainText(text).toHtmlEscaped());
  }
  m_desktop.SetClipboardData(std::move(data));
}

void RowCommands::SetAttributes(int row, const QString& attributes) {
  if (row < 0 || row > m_rows.HighestIndex()) throw core::RuntimeError::Of(core::RuntimeError::SubscriptOutOfRange);
  core::SetTag(m_rows.Row(row).grpFunction, attributes);
}

// One of three flags that exclude each other and the mode: the item's own check at its place,
// the other two cleared, the points and the visibility kept.
void RowCommands::ExclusiveFlag(ribbon::CommandControl& control, int row) {
  control.SetChecked(!control.Checked());
  for (std::int32_t id : {1130, 1132, 1133}) {
    if (id == control.Id()) continue;
    if (ribbon::CommandControl* other = m_menu.Item(id)) other->SetChecked(false);
  }
  const QStringList parts = core::Split(core::Tag(m_rows.Row(row).grpFunction), kComma);
  const QString on = BooleanText(control.Checked());
  const QString off = QStringLiteral("False");
  const QString tail = u',' + At(parts, 3) + u',' + At(parts, 4) + QStringLiteral(",0");
  switch (control.Id()) {
    case 1130: SetAttributes(row, on + u',' + off + u',' + off + tail); break;
    case 1132: SetAttributes(row, off + u',' + on + u',' + off + tail); break;
    default: SetAttributes(row, off + u',' + off + u',' + on + tail); break;
  }
}

void RowCommands::Mode(ribbon::CommandControl& control, int row) {
  control.SetChecked(!control.Checked());
  const QStringList parts = core::Split(core::Tag(m_rows.Row(row).grpFunction), kComma);
  const QString mode = control.Checked() ? (control.Id() == 1172 ? QStringLiteral("1") : QStringLiteral("2")) : QStringLiteral("0");
  SetAttributes(row, QStringLiteral("False,False,False,") + At(parts, 3) + u',' + At(parts, 4) + u',' + mode);
}

// The points flag (3) or the visibility (4), the other five fields kept.
void RowCommands::Flag(ribbon::CommandControl& control, int row, int position) {
  control.SetChecked(!control.Checked());
  QStringList parts = core::Split(core::Tag(m_rows.Row(row).grpFunction), kComma);
  for (int k = 0; k < 6; ++k) At(parts, k);  // fewer than six fields stop the command here
  parts[position] = BooleanText(control.Checked());
  SetAttributes(row, parts.mid(0, 6).join(kComma));
  if (position != 4) return;
  FunctionRow& r = m_rows.Row(row);
  r.imgInvisible->setVisible(!control.Checked());
  r.imgInvisible->setIcon(RowStatusIcons::Icon(RowStatusIcons::Hidden));
  r.colrFunction->setVisible(control.Checked());
  RowBuilder::ShowDrawn(r, control.Checked());
  m_rows.SpeakRow(row);
}

void RowCommands::Note(ribbon::CommandControl& control, int row) {
  control.SetChecked(!control.Checked());
  if (row < 0 || row > m_rows.HighestIndex()) throw core::RuntimeError::Of(core::RuntimeError::SubscriptOutOfRange);
  FunctionRow& r = m_rows.Row(row);
  r.imgInvisible->setIcon(RowStatusIcons::Icon(RowStatusIcons::Note));
  r.imgInvisible->setVisible(control.Checked());
  r.colrFunction->setVisible(!control.Checked());
  if (r.rchfunNote->isHidden()) {
    r.rchfunNote->show();
    r.mthFunction->hide();
  } else {
    core::SetTag(r.mthFunction, core::kQuiet);
    r.rchfunNote->hide();
    r.mthFunction->show();
    m_rows.cmdAddFunction()->setFocus();
    core::SetTag(r.mthFunction, QString());
  }
  m_rows.Refresh_mth_Height(false);
}

// The note's font, colour, sizes and clipboard, on its selection.
bool RowCommands::NoteCommand(ribbon::CommandControl& control, int row) {
  const std::int32_t id = control.Id();
  const bool isNoteCommand = (id >= 1144 && id <= 1161) || (id >= 1164 && id <= 1166) || id == 1137;
  if (!isNoteCommand) return false;
  if (row < 0 || row > m_rows.HighestIndex()) return true;
  QTextEdit& note = *m_rows.Row(row).rchfunNote;
  QTextCharFormat format;
  if (id == 1144) {
    const auto chosen = m_colors.Choose(ColorButton::ToQColor(control.Color()), QStringLiteral("Note colour"));
    if (!chosen) return true;
    control.SetColor(ColorButton::FromQColor(*chosen));
    format.setForeground(*chosen);
    note.mergeCurrentCharFormat(format);
  } else if (id >= 1145 && id <= 1160) {
    format.setFontPointSize(kSizes[id - 1145]);
    note.mergeCurrentCharFormat(format);
  } else if (id == 1137 || id == 1161) {
    // A cancelled dialog changes nothing.
    if (const auto font = m_desktop.ChooseFont(note.currentFont())) {
      format.setFont(*font);
      note.mergeCurrentCharFormat(format);
    }
  } else if (!note.isHidden()) {
    const QString selected = note.textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n');
    if (id == 1164 || id == 1166) {
      m_desktop.ClearClipboard();
      m_desktop.SetClipboardText(selected);
    }
    if (id == 1165) note.textCursor().insertText(m_desktop.ClipboardText());
    if (id == 1166) note.textCursor().insertText(QString());
  }
  return true;
}

}  // namespace rows
