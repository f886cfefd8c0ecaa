#pragma once

#include "AbacusEngine.h"

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace abacus {

// The calculator's window: an input line (Enter evaluates), the answer or the reason there is
// none, a Degrees/Radians choice, and the history. A history line goes back into the input with a
// double-click, Enter or "Use again", and Ctrl+C or "Copy" copies it as "expression = value".
class AbacusWindow : public QWidget {
  Q_OBJECT

public:
  explicit AbacusWindow(QWidget* parent = nullptr);

  // Evaluates the input line as Enter does.
  void Evaluate();
  void SetUnit(AngleUnit unit);
  AngleUnit Unit() const;

  QLineEdit* Input() const { return m_input; }
  QLabel* Result() const { return m_result; }
  QListWidget* History() const { return m_history; }
  QRadioButton* DegreesButton() const { return m_degrees; }
  QRadioButton* RadiansButton() const { return m_radians; }
  QPushButton* CopyButton() const { return m_copy; }

  // Puts text on the clipboard unless replaced, as tests do.
  std::function<void(const QString&)> CopyText;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* BuildInput();
  QWidget* BuildUnits();
  QWidget* BuildHistory();
  void ShowAnswer(const QString& expression, const Answer& answer);
  void UseAgain(QListWidgetItem* item);
  void Recall(int direction);
  void CopyCurrent();
  void UpdateButtons();

  AbacusEngine m_engine;
  int m_recall = -1;  // the history line that Up and Down last put into the input; -1 past the end
  QLineEdit* m_input = nullptr;
  QPushButton* m_evaluate = nullptr;
  QLabel* m_result = nullptr;
  QRadioButton* m_radians = nullptr;
  QRadioButton* m_degrees = nullptr;
  QListWidget* m_history = nullptr;
  QPushButton* m_use = nullptr;
  QPushButton* m_copy = nullptr;
  QPushButton* m_clear = nullptr;
};

}  // namespace abacus
