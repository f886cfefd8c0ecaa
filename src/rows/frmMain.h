#pragma once

#include "MainServices.h"

#include "core/SharedState.h"
#include "dialogs/frmInsert.h"
#include "dialogs/frmRange.h"
#include "expression/ScriptEvaluation.h"
#include "help/HelpWindow.h"
#include "output/frmContactUS.h"
#include "output/frmFullScreen.h"
#include "output/pageSamples.h"
#include "plotcompiler/ReplotDriver.h"
#include "ribbon/CommandBars.h"
#include "script/ScriptControl.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>

class QLineEdit;

namespace plot2d {
class PlotWidget;
}
namespace plot3d {
class Plot3DWidget;
}
namespace interaction {
class PlotButtons;
class StatusPanes;
}
namespace project {
class ProjectForm;
}
namespace ribbon {
class Backstage;
class RibbonBar;
}

namespace rows {

class CommandDispatch;
class FileCommands;
class RowCommands;
class RowDialogs;
class RowMenu;
class FormProject;
class FunctionList;
class FormInsertTarget;
class FormReplotHost;
class AutoReplot;
class InputTabs;
class FormHistory;
class UndoCommands;
class ThemeSwitch;

// The main window: the input tabs on the left, the plot beside them with its floating buttons,
// the status bar under them, the command bars above. It owns and wires its parts; each of them is
// a class of its own.
class frmMain : public QMainWindow {
  Q_OBJECT

public:
  frmMain(core::SharedState& state, const MainServices& services, QWidget* parent = nullptr);
  ~frmMain() override;

  // The replot driver on the form's own plots; the 3D plot only where asked.
  void Replot(bool with3D = true);
  // The same into other plots (full screen, the export page): the rows are the form's.
  void ReplotInto(plotcompiler::PlotControl& plot, plotcompiler::Plot3DControl* plot3d);
  void Refresh_mth_Height(bool scrollToEnd);
  // The project files: the writer and the reader on this form, and the commands with dialogs.
  // Whether the file holds the project now / whether the project was read (else it is as it was).
  bool SaveProject(const QString& path);
  bool LoadProject(const QString& path);
  void SaveThisFile();
  void OpenThisFile();
  FileCommands& Files() { return *m_files; }
  // The form as the project reader and writer see it.
  project::ProjectForm& ProjectInterface();
  void AddFunction(bool showNote);

  // The insert dialog for the editor that InsertSource and InsertIndex name; closing it.
  void ShowInsert();
  void CloseInsert();
  dialogs::frmInsert* Insert() const { return m_insert; }
  // The range dialog in a mode ("Plot Range", "Default Range", "3D Range") at a place.
  void ShowRange(const QString& mode, QPoint at);
  dialogs::frmRange* Range() const { return m_range; }
  void ShowFullScreen();
  output::frmFullScreen* FullScreen() const { return m_fullScreen; }
  // The contact form, growing open in the middle of the screen.
  void ShowContact();
  // The manual inside the program, on a chapter ("plot.html#zoom") or on a page by its path.
  void ShowHelp(const QString& page);
  help::HelpWindow* Help() const { return m_help; }
  output::frmContactUS* Contact() const { return m_contact; }
  output::pageSamples& Samples() { return *m_samples; }

  // The ribbon's checks, colours and zoom label follow the plot: all at the start, and again on
  // the plot's settings-changed event.
  void MirrorPlot(bool afterEvent);
  // The ribbon's and the menus' commands, by id.
  void CommandBars_Execute(ribbon::CommandControl& control);
  // The window's tool tips as rich tool tips: a title and its text.
  void ToolTipReNew();
  // The display toggles that act on the 2D plot alone, enabled or not.
  void Change3D(bool enable);
  // The window's title: the program's name and the project's file, "*" while it has changes.
  void UpdateTitle();
  // ProjectChanged as it is now: whether saving would write other bytes than the project's file
  // holds (for a project without a file, than the one the window started with or last read).
  bool RefreshProjectChanged();
  // The project as it is now is the one its file holds (after a save, a load, a sample).
  void MarkSaved();
  // Undo and Redo, and the history they take their steps from.
  UndoCommands& Undo() { return *m_undo; }
  // What follows a read of the project: the ribbon and the status bar show the plot's values.
  void AfterRead();

  core::SharedState& State() { return m_state; }
  InputTabs& Tabs() { return *m_tabs; }
  FunctionList& Functions();
  QTabWidget* tabInput() const;
  plot2d::PlotWidget& Plot() { return *m_plot; }
  plot3d::Plot3DWidget& Plot3D() { return *m_plot3d; }
  interaction::PlotButtons& Buttons() { return *m_buttons; }
  interaction::StatusPanes& Panes() { return *m_panes; }
  ThemeSwitch& Theme() { return *m_theme; }
  ribbon::CommandBars& CommandBars() { return m_commandBars; }
  ribbon::RibbonBar& Ribbon() { return *m_ribbon; }
  ribbon::Backstage& BackstageView() { return *m_backstage; }
  RowMenu& FunctionMenu() { return *m_rowMenu; }
  RowDialogs& RowForms() { return *m_rowDialogs; }
  CommandDispatch& Dispatch() { return *m_dispatch; }
  QLineEdit* mnu_Integral_min() const;
  QLineEdit* mnu_Integral_max() const;
  QString StatusText(int pane) const;
  void SetStatusText(int pane, const QString& text);
  script::ScriptControl& SC() { return m_sc; }
  expression::ScriptEvaluation& Evaluation() { return m_evaluation; }
  bool Prepared3D() const { return m_prepared3D; }
  int Prepare3DCalls() const { return m_prepare3DCalls; }
  AutoReplot& Redrawing() { return *m_autoReplot; }

signals:
  // A replot has drawn; for tests and the full-screen form.
  void Replotted();

protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  void Form_Load();
  void Form_Resize();
  void tabInput_Click(int index);
  void WireParts();
  void WatchChanges();
  void StartRibbon();
  void MirrorSliders();
  void CreateFileMenu();
  void ProjectChanged();
  void CheckChanged();
  void SaveSliderSettings();
  void ToggleEqualScales(ribbon::CommandControl& control);
  bool eventFilter(QObject* watched, QEvent* event) override;
  void ApplyZoom(const QString& text);

  core::SharedState& m_state;
  MainServices m_services;
  script::ScriptControl m_sc;
  expression::ScriptEvaluation m_evaluation;
  ribbon::CommandBars m_commandBars;
  QWidget* m_ribbonHost;
  ribbon::RibbonBar* m_ribbon = nullptr;
  ribbon::Backstage* m_backstage = nullptr;
  QWidget* m_rszControls;
  InputTabs* m_tabs;
  plot2d::PlotWidget* m_plot;
  plot3d::Plot3DWidget* m_plot3d;
  interaction::PlotButtons* m_buttons;
  interaction::StatusPanes* m_panes;
  std::unique_ptr<FormReplotHost> m_replotHost;
  std::unique_ptr<plotcompiler::ReplotDriver> m_replotDriver;
  std::unique_ptr<FormInsertTarget> m_insertTarget;
  std::unique_ptr<FormProject> m_project;
  std::unique_ptr<FileCommands> m_files;
  std::unique_ptr<RowMenu> m_rowMenu;
  std::unique_ptr<RowCommands> m_rowCommands;
  std::unique_ptr<RowDialogs> m_rowDialogs;
  std::unique_ptr<CommandDispatch> m_dispatch;
  std::unique_ptr<ThemeSwitch> m_theme;
  QPointer<dialogs::frmInsert> m_insert;
  QPointer<dialogs::frmRange> m_range;
  QPointer<output::frmFullScreen> m_fullScreen;
  QPointer<output::frmContactUS> m_contact;
  QPointer<help::HelpWindow> m_help;
  output::pageSamples* m_samples = nullptr;
  bool m_prepared3D = false;
  int m_prepare3DCalls = 0;
  QTimer m_resizeSettled;  // a full-quality picture once the window has stopped changing size
  QTimer m_changeCheck;    // ProjectChanged worked out again once the events of a change are done
  AutoReplot* m_autoReplot = nullptr;
  std::unique_ptr<FormHistory> m_historyTarget;
  UndoCommands* m_undo = nullptr;
  bool m_reading = false;  // a project is being read: its changes are no steps
  bool m_typed = false;     // the last input came from the keyboard
  QString m_savedText;     // what the writer wrote or the reader read last, or the fresh project
};

}  // namespace rows
