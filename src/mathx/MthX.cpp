#include "MthX.h"

#include "MthXAccessible.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mathx {

namespace {

constexpr int kFrame = 2;              // pixels between the widget's edge and the picture
constexpr int kBlinkMilliseconds = 530;
const QColor kInertColor(0xC0, 0xC0, 0xC0);  // 12632256, the forms' grey

// The form's ink on a dark base (the dark look): the same hue, light enough to read there.
QColor OnBase(const QColor& ink, const QColor& base) {
  if (base.lightness() >= 128 || ink.lightnessF() >= 0.72) return ink;
  return QColor::fromHslF(std::max(0.0f, ink.hslHueF()), ink.hslSaturationF(), 0.75f);
}

QColor FromFormColor(int color) { return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF); }

}  // namespace

MthX::MthX(QWidget* parent) : QWidget(parent) {
  // Qt keeps one list of interface factories for the program; ours goes in with the first editor.
  static const bool described = (QAccessible::installFactory(&MthXAccessible::Create), true);
  (void)described;
  setAttribute(Qt::WA_InputMethodEnabled, true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::IBeamCursor);
  CopyText = [](const QString& text) { QGuiApplication::clipboard()->setText(text); };
  PasteText = [] { return QGuiApplication::clipboard()->text(); };
  m_blink.setInterval(kBlinkMilliseconds);
  connect(&m_blink, &QTimer::timeout, this, [this] {
    m_caretVisible = !m_caretVisible;
    update();
  });
  SetFontSize(m_fontSize);
  resize(sizeHint());
}

bool MthX::CaretCanMove(bool up) const {
  const int caret = m_buffer.Caret();
  return (up ? m_formula.PositionAbove(caret) : m_formula.PositionBelow(caret)) != caret;
}

void MthX::SetText(const QString& text) {
  if (text == m_buffer.Text()) return;
  m_buffer.SetText(text);
  TextChanged();
}

void MthX::SetEditMode(int mode) {
  m_editMode = mode;
  setFocusPolicy(Editable() ? Qt::StrongFocus : Qt::NoFocus);
  setCursor(Editable() ? Qt::IBeamCursor : Qt::ArrowCursor);
  if (!Editable() && hasFocus()) clearFocus();
  update();
}

void MthX::SetForeColor(int color) {
  // An inert editor keeps its colour.
  if (!Editable()) return;
  m_foreColor = color;
  update();
}

void MthX::SetFontSize(double points) {
  if (!std::isfinite(points) || points <= 0) return;
  m_fontSize = std::clamp(points, 4.0, 200.0);
  const double dpi = logicalDpiY() > 0 ? logicalDpiY() : 96;
  m_formula.SetPixelSize(m_fontSize * dpi / 72.0);
  Relayout();
}

QSize MthX::sizeHint() const {
  const QSizeF size = m_formula.Size();
  return {int(std::ceil(size.width())) + 2 * kFrame, int(std::ceil(size.height())) + 2 * kFrame};
}

QSize MthX::minimumSizeHint() const { return sizeHint(); }

QPointF MthX::FormulaTopLeft() const {
  // Centred in the height the form gives, at the left edge.
  const double spare = height() - m_formula.Size().height();
  return {double(kFrame), std::max(double(kFrame), std::floor(spare / 2))};
}

CaretPlace MthX::CaretPlaceOnScreen() const {
  CaretPlace place = m_formula.PlaceOf(m_buffer.Caret());
  const QPointF at = FormulaTopLeft();
  place.x += at.x();
  place.top += at.y();
  place.bottom += at.y();
  return place;
}

// Typesets the text, learns its stops and fits the size.
void MthX::Relayout() {
  m_formula.SetText(m_buffer.Text());
  std::vector<int> stops;
  for (const CaretPlace& place : m_formula.Places()) stops.push_back(place.position);
  m_buffer.SetStops(std::move(stops));
  updateGeometry();
  if (!parentWidget() || !parentWidget()->layout()) resize(sizeHint());
  CaretMoved();
}

// After any change of the text: the new picture first, then the forms are told.
void MthX::TextChanged() {
  Relayout();
  emit Change();
}

void MthX::CaretMoved() {
  m_caretVisible = true;
  if (hasFocus()) m_blink.start();
  update();
}

void MthX::Edited(bool changed) {
  if (changed) TextChanged();
  else CaretMoved();
}

void MthX::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  const bool dark = palette().base().color().lightness() < 128;
  const QPointF at = FormulaTopLeft();
  if (Editable() && hasFocus() && m_buffer.HasSelection()) {
    for (const QRectF& selected : m_formula.SelectionRects(m_buffer.SelectionStart(), m_buffer.SelectionEnd()))
      painter.fillRect(selected.translated(at), dark ? palette().highlight().color().darker(150)
                                                     : palette().highlight().color().lighter(160));
  }
  const QColor color = OnBase(Editable() ? FromFormColor(m_foreColor) : kInertColor, palette().base().color());
  if (m_buffer.Text().isEmpty() && !m_placeholder.isEmpty() && !hasFocus()) {
    // A hint where there is nothing yet, in the widget's own face, clearly no equation.
    QFont hint = font();
    hint.setItalic(true);
    painter.setFont(hint);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect().adjusted(kFrame + 4, 0, -kFrame, 0), Qt::AlignVCenter | Qt::AlignLeft, m_placeholder);
  }
  m_formula.Paint(painter, at, color);
  if (m_framed) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor edge = hasFocus() && Editable() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid);
    painter.setPen(QPen(edge, hasFocus() && Editable() ? 1.5 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
  }
  if (Editable() && hasFocus() && m_caretVisible) {
    const CaretPlace place = CaretPlaceOnScreen();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(std::round(place.x), place.top, 1.5, place.bottom - place.top), palette().text());
  }
}

void MthX::keyPressEvent(QKeyEvent* event) {
  if (!Editable()) return QWidget::keyPressEvent(event);
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::Cut)) {
    Copy();
    return Edited(m_buffer.Insert(QString()));
  }
  if (event->matches(QKeySequence::Paste)) {
    Paste();
    return;
  }
  if (event->matches(QKeySequence::Undo)) return Edited(m_buffer.Undo());
  if (event->matches(QKeySequence::Redo)) return Edited(m_buffer.Redo());
  if (event->matches(QKeySequence::SelectAll)) {
    m_buffer.SelectAll();
    return CaretMoved();
  }
  switch (event->key()) {
    case Qt::Key_Left: m_buffer.Left(shift); return CaretMoved();
    case Qt::Key_Right: m_buffer.Right(shift); return CaretMoved();
    case Qt::Key_Up: m_buffer.MoveTo(m_formula.PositionAbove(m_buffer.Caret()), shift); return CaretMoved();
    case Qt::Key_Down: m_buffer.MoveTo(m_formula.PositionBelow(m_buffer.Caret()), shift); return CaretMoved();
    case Qt::Key_Home: m_buffer.Home(shift); return CaretMoved();
    case Qt::Key_End: m_buffer.End(shift); return CaretMoved();
    case Qt::Key_Backspace: return Edited(m_buffer.Backspace());
    case Qt::Key_Delete: return Edited(m_buffer.Delete());
    default: break;
  }
  const QString typed = Cleaned(event->text());
  if (typed.isEmpty() || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
    return QWidget::keyPressEvent(event);
  Edited(m_buffer.Insert(typed));
}

void MthX::mousePressEvent(QMouseEvent* event) {
  m_dragged = false;
  if (!Editable() || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  setFocus(Qt::MouseFocusReason);
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  m_buffer.MoveTo(m_formula.PositionAt(event->position() - FormulaTopLeft()), shift);
  CaretMoved();
}

void MthX::mouseMoveEvent(QMouseEvent* event) {
  if (!Editable() || !(event->buttons() & Qt::LeftButton)) return QWidget::mouseMoveEvent(event);
  const int position = m_formula.PositionAt(event->position() - FormulaTopLeft());
  if (position != m_buffer.Caret()) m_dragged = true;
  m_buffer.MoveTo(position, true);
  CaretMoved();
}

void MthX::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && !m_dragged) emit Clicked();
  QWidget::mouseReleaseEvent(event);
}

// A double click selects the piece under the pointer (a number, a name; on a fraction's bar the
// whole fraction), or everything where there is none.
void MthX::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!Editable()) return QWidget::mouseDoubleClickEvent(event);
  if (const auto piece = m_formula.PieceAt(event->position() - FormulaTopLeft())) {
    m_buffer.MoveTo(piece->first, false);
    m_buffer.MoveTo(piece->second, true);
  } else {
    m_buffer.SelectAll();
  }
  CaretMoved();
}

void MthX::focusInEvent(QFocusEvent* event) {
  CaretMoved();
  QWidget::focusInEvent(event);
}

void MthX::focusOutEvent(QFocusEvent* event) {
  m_blink.stop();
  update();
  QWidget::focusOutEvent(event);
}

void MthX::inputMethodEvent(QInputMethodEvent* event) {
  if (!Editable()) return;
  const QString typed = Cleaned(event->commitString());
  Edited(m_buffer.Insert(typed));
  event->accept();
}

QVariant MthX::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImCursorRectangle) {
    const CaretPlace place = CaretPlaceOnScreen();
    return QRectF(place.x, place.top, 1, place.bottom - place.top);
  }
  if (query == Qt::ImSurroundingText) return m_buffer.Text();
  if (query == Qt::ImCursorPosition) return m_buffer.Caret();
  return QWidget::inputMethodQuery(query);
}

void MthX::Copy() {
  if (m_buffer.HasSelection() && CopyText) CopyText(m_buffer.SelectedText());
}

bool MthX::Paste() {
  if (!PasteText) return false;
  const QString text = Cleaned(PasteText());
  if (text.isEmpty()) return false;
  Edited(m_buffer.Insert(text));
  return true;
}

// A row is one line: line breaks and other control characters are dropped from what comes in.
QString MthX::Cleaned(const QString& text) {
  QString cleaned;
  for (QChar c : text)
    if (!c.isNull() && c.category() != QChar::Other_Control && c.category() != QChar::Other_Format) cleaned += c;
  return cleaned;
}

}  // namespace mathx
