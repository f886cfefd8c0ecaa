#pragma once

#include "CommandBars.h"

class QMenu;
class QMenuBar;

namespace ribbon {

// Menus drawn from command bars: every popup a menu, every other control an action that follows
// its control (caption, check, enabled, visible) and executes it through the bars. A toggle's
// check is not flipped by the menu: the command flips the control, and the action follows.
class MenuView {
public:
  // The menu bar of a form; built again whenever the bars are reloaded.
  static void Attach(QMenuBar& bar, CommandBars& bars);
  // The controls of a popup, as a menu.
  static void Fill(QMenu& menu, CommandControl& popup, CommandBars& bars);
};

}  // namespace ribbon
