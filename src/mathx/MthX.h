#pragma once

#include "EditBuffer.h"
#include "Formula.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace mathx {

// The equation editor: shows a row text typeset and, with EditMode 1, edits it. Text is kept
// exactly as given or typed; the rest of the program reads and writes it as a string. With
// EditMode 0 the editor is inert: it takes no keyboard or mouse input, ignores colour changes and
// shows its text greyed. After every change of Text the editor sizes itself to its content, then
// raises Change.
class MthX : public QWidget {
  Q_OBJECT

public:
  explicit MthX(QWidget* parent = nullptr);

  QString Text() const { return m_buffer.Text(); }
  void SetText(const QString& text);
  int EditMode() const { return m_editMode; }
  void SetEditMode(int mode);
  // The text colour as the forms keep colours: red in the low byte.
  int ForeColor() const { return m_foreColor; }
  void SetForeColor(int color);
  // Shown greyed while the text is empty and the editor has no focus.
  QString PlaceholderText() const { return m_placeholder; }
  void SetPlaceholderText(const QString& text) {
    m_placeholder = text;
    update();
  }
  // A field's frame round the picture, as a text field has: for editors that stand on a page
  // rather than in a row.
  bool Framed() const { return m_framed; }
  void SetFramed(bool framed) {
    m_framed = framed;
    update();
  }
  double FontSize() const { return m_fontSize; }
  void SetFontSize(double points);

  const Formula& Typeset() const { return m_formula; }
  int CaretPosition() const { return m_buffer.Caret(); }
  // Whether Up (or Down) would move the caret within the equation (out of a fraction's top, say)
  // rather than nowhere: where it would not, a list of editors may take the key to the next one.
  bool CaretCanMove(bool up) const;
  int SelectionStart() const { return m_buffer.SelectionStart(); }
  int SelectionLength() const { return m_buffer.SelectionEnd() - m_buffer.SelectionStart(); }
  QString SelectedText() const { return m_buffer.SelectedText(); }
  // Where the caret is drawn, in the widget's coordinates.
  CaretPlace CaretPlaceOnScreen() const;

  // The clipboard, unless replaced, as tests do.
  std::function<void(const QString&)> CopyText;
  std::function<QString()> PasteText;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

signals:
  // Text changed, by typing or by the program.
  void Change();
  // A click that did not drag, in either mode: the forms open their editors on it.
  void Clicked();

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

private:
  bool Editable() const { return m_editMode == 1; }
  QPointF FormulaTopLeft() const;
  void Edited(bool changed);
  void Relayout();
  void TextChanged();
  void CaretMoved();
  void Copy();
  bool Paste();
  static QString Cleaned(const QString& text);

  EditBuffer m_buffer;
  Formula m_formula;
  int m_editMode = 1;
  int m_foreColor = 0;
  double m_fontSize = 14;
  QString m_placeholder;
  bool m_framed = false;
  bool m_caretVisible = true;
  bool m_dragged = false;
  QTimer m_blink;
};

}  // namespace mathx
