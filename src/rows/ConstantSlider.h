#pragma once

#include "SliderBounds.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QSlider;
class QToolButton;

namespace rows {

// The line under a constant row: a slider over the constant's value, its bounds and step in small
// fields, and a button that sweeps the value back and forth. The slider holds no value of its own
// that matters: it shows the row's number, and a move asks for a new one through ValueChosen,
// which the list writes into the row as typing would.
class ConstantSlider : public QWidget {
  Q_OBJECT

public:
  static constexpr int kSweepIntervalMs = 33;  // about 30 steps a second

  explicit ConstantSlider(QWidget* parent = nullptr);

  // The row's name (as the accessible names say it) and its value, which the bounds stretch to
  // hold. No signal comes back.
  void ShowValue(const QString& name, double value);
  // The bounds the user chose, or none while they are the defaults.
  const std::optional<SliderBounds>& UserBounds() const { return m_user; }
  void SetUserBounds(const std::optional<SliderBounds>& bounds);
  // The bounds in force: the user's or the defaults, widened to hold the value.
  const SliderBounds& Bounds() const { return m_bounds; }

  bool Playing() const { return m_sweep.isActive(); }
  void SetPlaying(bool playing);
  // One step of the sweep, turning round at either end; the timer calls it while playing.
  void Tick();

  // The controls in the order Tab visits them.
  std::vector<QWidget*> TabOrder() const;

  QToolButton* btnPlay() const { return m_play; }
  QSlider* sliValue() const { return m_slider; }
  QLineEdit* txtMin() const { return m_min; }
  QLineEdit* txtMax() const { return m_max; }
  QLineEdit* txtStep() const { return m_step; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

signals:
  // The value the slider was moved to, formatted as the row must show it.
  void ValueChosen(const QString& value);
  // The user changed the bounds or the step.
  void BoundsChanged();

private:
  QLineEdit* Field(const QString& name, const QString& tip, int chars);
  void Moved(int position);
  void BoundsEdited();
  void ShowBounds(bool fields);
  void ShowPlayButton();

  QToolButton* m_play;
  QLineEdit* m_min;
  QSlider* m_slider;
  QLineEdit* m_max;
  QLabel* m_stepLabel;
  QLineEdit* m_step;
  QTimer m_sweep;
  QString m_name;
  double m_value = 0;
  SliderBounds m_bounds;
  std::optional<SliderBounds> m_user;
  QString m_written;  // the value last chosen here, so that its echo from the row keeps the bounds
  int m_direction = 1;
  bool m_quiet = false;
};

}  // namespace rows
