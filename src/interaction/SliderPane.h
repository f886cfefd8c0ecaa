#pragma once

#include <QSlider>
#include <QToolButton>
#include <QWidget>

namespace interaction {

// A status bar slider with a button at each end. What the user does is reported as one scroll
// code: 0 a line left (the minus button, a key), 1 a line right, 2 and 3 a page left and right
// (a click beside the thumb), 4 the end of a drag, 5 the thumb moved to Pos, 6 and 7 to the ends.
class SliderPane : public QWidget {
  Q_OBJECT

public:
  SliderPane(const QString& caption, int highest, int lineStep, int pageStep, QWidget* parent = nullptr);

  QString Caption() const { return m_caption; }
  QSlider* Slider() const { return m_slider; }
  QToolButton* MinusButton() const { return m_minus; }
  QToolButton* PlusButton() const { return m_plus; }
  // Moves the thumb without reporting it.
  void SetPosition(int position);

signals:
  void Scrolled(int command, int position);

private:
  void Action(int action);

  QString m_caption;
  QSlider* m_slider;
  QToolButton* m_minus;
  QToolButton* m_plus;
};

}  // namespace interaction
