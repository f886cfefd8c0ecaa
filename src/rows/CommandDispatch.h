#pragma once

#include "MainServices.h"
#include "RowCommands.h"

#include "ribbon/CommandBars.h"

#include <functional>

namespace rows {

class frmMain;

// Every command of the main window, by its id: the ribbon's buttons, toggles, sliders and colour
// pickers, the backstage's file commands and the row's and the note's menus. A toggle flips its
// control first and acts on the new value, so that what is stored is what the control shows. An
// error ends the command, told under "Ribbon error - [Err-0015]"; an id with no command says
// "Cooming soon".
class CommandDispatch {
public:
  CommandDispatch(frmMain& form, const MainServices& services, RowCommands& rows);

  void CommandBars_Execute(ribbon::CommandControl& control);

  // Where the range dialog opens for a command fired from the ribbon: the control's place on the
  // screen, in pixels.
  std::function<QPoint(std::int32_t id)> ControlPlace;
  // The contact form (the information pages bring it).
  std::function<void()> ShowContact;
  // The manual's window on a chapter ("index.html") or on a page of the program by its path.
  std::function<void(const QString&)> ShowHelp;

private:
  bool FileCommand(std::int32_t id);
  bool PictureCommand(std::int32_t id);
  bool ViewCommand(ribbon::CommandControl& control);
  bool Toggle(ribbon::CommandControl& control);
  bool ToolCommand(std::int32_t id);
  void Pan(std::int32_t id);
  void Zoom3D(bool in);
  void Redraw();

  frmMain& m_form;
  MainServices m_services;
  RowCommands& m_rows;
};

}  // namespace rows
