#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

namespace rows {

// Redraws the plot by itself when what a replot reads has changed since the last drawing. The
// form calls Check after every change; a change made by typing waits until the typing pauses, so
// that a keystroke never waits for a drawing, and a click draws at once.
class AutoReplot : public QObject {
  Q_OBJECT

public:
  static constexpr int kTypingPauseMs = 150;

  // inputs: the text of everything a replot reads; replot: draws, and then calls Drawn.
  AutoReplot(std::function<QString()> inputs, std::function<void()> replot, QObject* parent = nullptr);

  // A change happened; typed says it came from the keyboard.
  void Check(bool typed);
  // A drawing of the inputs as they stand now has been made, by whatever path.
  void Drawn();
  // Whether a drawing is waiting for the typing to pause.
  bool Pending() const { return m_timer.isActive(); }
  // Turns the automatic drawing off and on (while a project is read, for example).
  void SetEnabled(bool enabled) { m_enabled = enabled; }

private:
  void Fire();

  std::function<QString()> m_inputs;
  std::function<void()> m_replot;
  QString m_drawn;
  QTimer m_timer;
  bool m_enabled = true;
};

}  // namespace rows
