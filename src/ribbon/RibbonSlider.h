#pragma once

#include "CommandBars.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QSlider;

namespace ribbon {

// A slider of the ribbon: its caption, a compact slider between the control's Min and Max, and
// the current value. Moving it sets the control's Pos and executes the control once the value
// settles (on release, or at each key press); the value beside it follows the drag live. Caption,
// Enabled, Visible and Pos follow the control.
class RibbonSlider : public QWidget {
  Q_OBJECT

public:
  RibbonSlider(CommandControl& control, CommandBars& bars, QWidget* parent = nullptr);

  CommandControl* Control() const { return m_control; }
  QSlider* Slider() const { return m_slider; }
  QLabel* ValueLabel() const { return m_value; }
  // Sliders stacked in one column line up: their captions take the widest one's width.
  int CaptionWidth() const;
  void SetCaptionWidth(int width);
  // The key tip's keys in words ("Keys: Alt, V, Q"), for screen readers.
  void SetKeyTip(const QString& spoken);

private:
  void Follow();
  void Settle(int value);

  QPointer<CommandControl> m_control;
  CommandBars& m_bars;
  QLabel* m_caption;
  QSlider* m_slider;
  QLabel* m_value;
};

}  // namespace ribbon
