#pragma once

#include "CommandBars.h"

#include <QPointer>
#include <QToolButton>

#include <cstdint>

class QMenu;

namespace ribbon {

// How a button sits on the ribbon.
enum class ButtonStyle : std::uint8_t {
  Large,     // a 32 px icon over a caption of up to two lines, the full height of a group
  Small,     // a 16 px icon beside its caption, one of three rows
  IconOnly,  // a 16 px icon alone (the quick access bar)
};

// A ribbon button drawn from one control: Button, CheckBox or Popup. It follows the control's
// caption, tool tip, Enabled, Visible and Checked; a click executes the control through the bars.
// A toggle shows its check as a pressed look and never flips it itself: the command flips the
// control and the button follows. A popup opens its menu (drawn by MenuView) instead.
class RibbonButton : public QToolButton {
  Q_OBJECT

public:
  RibbonButton(CommandControl& control, CommandBars& bars, ButtonStyle style, QWidget* parent = nullptr);

  CommandControl* Control() const { return m_control; }
  ButtonStyle Style() const { return m_style; }
  // The key tip's keys in words ("Keys: Alt, H, R"), said after the control's description.
  void SetKeyTip(const QString& spoken);

  // The widths of the two lines of a large button's caption are kept under this.
  static constexpr int kLargeCaptionWidth = 64;
  static constexpr int kLargeIcon = 32;
  static constexpr int kSmallIcon = 16;
  static constexpr int kRowHeight = 24;
  static constexpr int kLargeHeight = 3 * kRowHeight + 2 * 2;

protected:
  void nextCheckState() override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Shows the control's state; a button of another kind adds its own.
  virtual void Follow();
  CommandBars& Bars() { return m_bars; }

private:
  void SetUpStyle();
  void SetUpPopup();
  void Execute();

  QPointer<CommandControl> m_control;
  CommandBars& m_bars;
  ButtonStyle m_style;
  QString m_keyTip;
};

// Moves the menu's own key bindings to the menu alone: the window's shortcuts execute the same
// controls, and two bindings of one key would make it ambiguous.
void KeepShortcutsInMenu(QMenu& menu);

}  // namespace ribbon
