#pragma once

#include "AngleReader.h"

#include <QWidget>

#include <array>

class QComboBox;
class QLabel;
class QLineEdit;

namespace trigon {

class TrigGraph;
class UnitCircle;

// The bench's window: the angle typed or dragged, the unit circle with sin, cos and tan as
// segments, their values (exact at multiples of 30° and 45°), and their three graphs with the
// angle's point on each.
class TrigonWindow : public QWidget {
  Q_OBJECT

public:
  explicit TrigonWindow(QWidget* parent = nullptr);

  UnitCircle* Circle() const { return m_circle; }
  QLineEdit* AngleField() const { return m_angleField; }
  QComboBox* UnitBox() const { return m_unit; }
  QLabel* Message() const { return m_message; }
  QLabel* AngleText() const { return m_angleText; }
  QLabel* SinText() const { return m_values[0]; }
  QLabel* CosText() const { return m_values[1]; }
  QLabel* TanText() const { return m_values[2]; }
  TrigGraph* Graph(int i) const { return m_graphs[static_cast<size_t>(i)]; }

  // Reads the angle field and turns the circle to it, or says why it cannot.
  void ApplyTypedAngle();

private:
  QWidget* BuildAngleRow();
  QWidget* BuildValues();
  QWidget* BuildGraphs();
  void ShowAngle(double degrees);
  void Say(const QString& text, bool problem);

  AngleReader m_reader;
  UnitCircle* m_circle;
  QLineEdit* m_angleField = nullptr;
  QComboBox* m_unit = nullptr;
  QLabel* m_message = nullptr;
  QLabel* m_angleText = nullptr;
  std::array<QLabel*, 3> m_values{};
  std::array<TrigGraph*, 3> m_graphs{};
};

}  // namespace trigon
