#pragma once

// The main window on fakes of the desktop that a test answers: message boxes, colour and file
// dialogs, settings in memory, program starts recorded. Commands run by id as the ribbon runs them.
#include "mathx/MthX.h"
#include "rows/FunctionList.h"
#include "rows/frmMain.h"

#include "FakeDesktop.h"
#include "StateSupport.h"

#include <memory>
#include <vector>

struct MainWindowFixture {
  MainWindowFixture() : state(InitialisedState()) {
    form = std::make_unique<rows::frmMain>(state, rows::MainServices{settings, boxes, colors, files, desktop});
  }
  rows::frmMain* operator->() { return form.get(); }
  rows::FunctionList& Rows() { return form->Functions(); }
  // Row texts from the top, rows added as needed.
  void Fill(const QStringList& texts) {
    for (int i = 0; i < texts.size(); ++i) {
      if (i > Rows().HighestIndex()) Rows().AddFunction(false);
      Rows().Row(i).mthFunction->SetText(texts[i]);
    }
  }

  // A command by id; those that live on the quick access bar and the backstage only (the file
  // commands) are fired through a control of their own.
  void Run(std::int32_t id) {
    if (ribbon::CommandControl* control = form->CommandBars().FindControl(id)) return form->CommandBars().Execute(*control);
    own.push_back(std::make_unique<ribbon::CommandControl>(ribbon::ControlKind::Button, id));
    form->CommandBars().Execute(*own.back());
  }

  core::SharedState state;
  MemorySettings settings;
  RecordingBoxes boxes;
  ScriptedColors colors;
  ScriptedFiles files;
  RecordingDesktop desktop;
  std::unique_ptr<rows::frmMain> form;
  std::vector<std::unique_ptr<ribbon::CommandControl>> own;
};
