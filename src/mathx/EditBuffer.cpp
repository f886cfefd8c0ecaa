#include "EditBuffer.h"

#include <algorithm>

namespace mathx {

namespace {

// The bracket that closes the one at open, or -1.
int MatchingClose(const QString& text, int open) {
  const QChar opening = text[open];
  const QChar closing = opening == u'(' ? u')' : opening == u'[' ? u']' : u'}';
  int depth = 0;
  for (int i = open; i < text.size(); ++i) {
    if (text[i] == opening) ++depth;
    else if (text[i] == closing && --depth == 0) return i;
  }
  return -1;
}

bool IsOpening(QChar c) { return c == u'(' || c == u'[' || c == u'{'; }

}  // namespace

void EditBuffer::SetText(const QString& text) {
  m_undo.clear();
  m_redo.clear();
  m_typing = false;
  m_text = text;
  m_caret = m_anchor = int(text.size());
  m_stops = {0, int(text.size())};
}

void EditBuffer::SetStops(std::vector<int> stops) {
  stops.push_back(0);
  stops.push_back(int(m_text.size()));
  std::erase_if(stops, [&](int stop) { return stop < 0 || stop > m_text.size(); });
  std::sort(stops.begin(), stops.end());
  stops.erase(std::unique(stops.begin(), stops.end()), stops.end());
  m_stops = std::move(stops);
}

QString EditBuffer::SelectedText() const { return m_text.mid(SelectionStart(), SelectionEnd() - SelectionStart()); }

int EditBuffer::Previous(int position) const {
  auto at = std::lower_bound(m_stops.begin(), m_stops.end(), position);
  return at == m_stops.begin() ? 0 : *(at - 1);
}

int EditBuffer::Next(int position) const {
  auto at = std::upper_bound(m_stops.begin(), m_stops.end(), position);
  return at == m_stops.end() ? int(m_text.size()) : *at;
}

void EditBuffer::MoveTo(int position, bool extend) {
  m_caret = std::clamp(position, 0, int(m_text.size()));
  if (!extend) m_anchor = m_caret;
}

void EditBuffer::Left(bool extend) {
  // Without Shift a selection collapses to its start, as in every text field.
  if (!extend && HasSelection()) return MoveTo(SelectionStart(), false);
  MoveTo(Previous(m_caret), extend);
}

void EditBuffer::Right(bool extend) {
  if (!extend && HasSelection()) return MoveTo(SelectionEnd(), false);
  MoveTo(Next(m_caret), extend);
}

void EditBuffer::SelectAll() {
  m_anchor = 0;
  m_caret = int(m_text.size());
}

bool EditBuffer::RemoveSelection() {
  if (!HasSelection()) return false;
  const int from = SelectionStart();
  m_text.remove(from, SelectionEnd() - from);
  m_caret = m_anchor = from;
  EveryPositionAStop();
  return true;
}

bool EditBuffer::Insert(const QString& text) {
  if (text.isEmpty() && !HasSelection()) return false;
  Remember(text.size() == 1 && !HasSelection());
  const bool removed = RemoveSelection();
  if (text.isEmpty()) return removed;
  m_text.insert(m_caret, text);
  m_caret += int(text.size());
  m_anchor = m_caret;
  EveryPositionAStop();
  return true;
}

void EditBuffer::Remove(int from, int to) {
  // An opening piece takes its closing bracket with it.
  if (to > from && IsOpening(m_text[to - 1])) {
    const int close = MatchingClose(m_text, to - 1);
    if (close >= 0) m_text.remove(close, 1);
  }
  m_text.remove(from, to - from);
  m_caret = m_anchor = from;
  EveryPositionAStop();
}

// Stops are known again once the owner has typeset the changed text; until then every position
// is one.
void EditBuffer::EveryPositionAStop() {
  m_stops.clear();
  for (int i = 0; i <= m_text.size(); ++i) m_stops.push_back(i);
}

bool EditBuffer::Backspace() {
  if (!HasSelection() && m_caret == 0) return false;
  Remember(false);
  if (RemoveSelection()) return true;
  Remove(Previous(m_caret), m_caret);
  return true;
}

bool EditBuffer::Delete() {
  if (!HasSelection() && m_caret >= m_text.size()) return false;
  Remember(false);
  if (RemoveSelection()) return true;
  Remove(m_caret, Next(m_caret));
  return true;
}

}  // namespace mathx

namespace mathx {

// Keeps the state before a change. A typed character right after another one joins its step.
void EditBuffer::Remember(bool typing) {
  m_redo.clear();
  if (typing && m_typing && !m_undo.empty()) return;
  m_typing = typing;
  m_undo.push_back({m_text, m_caret, m_anchor});
  // A row's history need not be endless.
  if (m_undo.size() > 500) m_undo.erase(m_undo.begin());
}

void EditBuffer::Restore(const State& state) {
  m_text = state.text;
  m_caret = std::clamp(state.caret, 0, int(m_text.size()));
  m_anchor = std::clamp(state.anchor, 0, int(m_text.size()));
  m_typing = false;
  EveryPositionAStop();
}

bool EditBuffer::Undo() {
  if (m_undo.empty()) return false;
  m_redo.push_back({m_text, m_caret, m_anchor});
  const State state = m_undo.back();
  m_undo.pop_back();
  Restore(state);
  return true;
}

bool EditBuffer::Redo() {
  if (m_redo.empty()) return false;
  m_undo.push_back({m_text, m_caret, m_anchor});
  const State state = m_redo.back();
  m_redo.pop_back();
  Restore(state);
  return true;
}

}  // namespace mathx
