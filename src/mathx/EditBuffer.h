#pragma once

#include <QString>

#include <algorithm>
#include <vector>

namespace mathx {

// The text being edited with its caret and selection, apart from any picture. The caret moves
// between stops, the positions that the typeset picture can show (a name such as "sqrt(" or
// "q..symb" is one piece, so the caret never stands inside it); typing inserts exactly what was
// typed. Deleting an opening piece, "(" or "sqrt(", deletes its closing bracket with it, so that
// a radical or a bracket goes as a whole and its content stays. Changes can be undone.
class EditBuffer {
public:
  const QString& Text() const { return m_text; }
  // New text: the caret goes to its end, the selection is dropped.
  void SetText(const QString& text);
  // The positions the caret may take, ascending; 0 and the text's length are always among them.
  void SetStops(std::vector<int> stops);

  int Caret() const { return m_caret; }
  int Anchor() const { return m_anchor; }
  bool HasSelection() const { return m_caret != m_anchor; }
  int SelectionStart() const { return std::min(m_caret, m_anchor); }
  int SelectionEnd() const { return std::max(m_caret, m_anchor); }
  QString SelectedText() const;

  // Moves the caret; with extend the anchor stays, so the selection grows or shrinks.
  void MoveTo(int position, bool extend);
  void Left(bool extend);
  void Right(bool extend);
  void Home(bool extend) { MoveTo(0, extend); }
  void End(bool extend) { MoveTo(int(m_text.size()), extend); }
  void SelectAll();

  // Each returns whether the text changed.
  bool Insert(const QString& text);
  bool Backspace();
  bool Delete();
  // Steps back and forth through the changes since the last SetText; characters typed one after
  // another are one step.
  bool Undo();
  bool Redo();

private:
  int Previous(int position) const;
  int Next(int position) const;
  bool RemoveSelection();
  void Remove(int from, int to);
  void EveryPositionAStop();
  struct State {
    QString text;
    int caret = 0;
    int anchor = 0;
  };
  void Remember(bool typing);
  void Restore(const State& state);

  QString m_text;
  std::vector<int> m_stops{0};
  int m_caret = 0;
  int m_anchor = 0;
  std::vector<State> m_undo;
  std::vector<State> m_redo;
  bool m_typing = false;  // the last change was a typed character
};

}  // namespace mathx
