#pragma once

#include "CommandBars.h"

#include "platform/ColorChooser.h"

#include <QPointer>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QVBoxLayout;

namespace ribbon {

// One group of a ribbon tab, drawn from a Group control: its controls in columns from left to
// right (a large button is a column of its own; small buttons, sliders, colour pickers and labels
// stack three to a column; BeginGroup starts a new column behind a thin line), its caption centred
// under them, and a thin separator at its right. The group's Visible hides all of it.
class RibbonGroup : public QWidget {
  Q_OBJECT

public:
  RibbonGroup(CommandControl& group, CommandBars& bars, platform::ColorChooser& colors, QWidget* parent = nullptr);

  CommandControl* Control() const { return m_control; }
  QLabel* CaptionLabel() const { return m_caption; }

  // The view of one control of a group: a RibbonButton, ColorPickerButton, RibbonSlider or a label;
  // nullptr for a kind that a group does not hold.
  static QWidget* CreateView(CommandControl& control, CommandBars& bars, platform::ColorChooser& colors, QWidget* parent);

private:
  void Build(CommandBars& bars, platform::ColorChooser& colors);
  QVBoxLayout* NewColumn(bool behindLine);
  void LineUpSliders();
  void Follow();

  QPointer<CommandControl> m_control;
  QBoxLayout* m_columns;
  QLabel* m_caption;
};

}  // namespace ribbon
