#pragma once

#include "MainServices.h"

#include "core/SharedState.h"
#include "dialogs/frmInsert.h"
#include "expression/ScriptEvaluation.h"
#include "plotcompiler/ReplotDriver.h"
#include "ribbon/CommandBars.h"
#include "script/ScriptControl.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <memory>

class QLabel;
class QLineEdit;
class QTabWidget;

namespace plot2d {
class PlotWidget;
}
namespace plot3d {
class Plot3DWidget;
}

namespace rows {

class FunctionList;
class FormInsertTarget;
class FormReplotHost;

// The main window: the function list and the other input tabs on the left, the plot beside them,
// the status bar under them, the command bars above. It owns and wires its parts; each of them is
// a class of its own.
class frmMain : public QMainWindow {
  Q_OBJECT

public:
  frmMain(core::SharedState& state, const MainServices& services, QWidget* parent = nullptr);
  ~frmMain() override;

  // The replot driver on the form's own plots; the 3D plot only where asked.
  void Replot(bool with3D = true);
  void Refresh_mth_Height(bool scrollToEnd);
  void AddFunction(bool showNote);

  // The insert dialog for the editor that InsertSource and InsertIndex name; closing it.
  void ShowInsert();
  void CloseInsert();
  dialogs::frmInsert* Insert() const { return m_insert; }

  // Step 5 of the ribbon's start and the plot's settings-changed event: the ribbon's checks,
  // colours and zoom label follow the plot.
  void MirrorPlot(bool afterEvent);
  // The window's title: the program's name and the project's file, "*" while it has changes.
  void UpdateTitle();

  core::SharedState& State() { return m_state; }
  FunctionList& Functions() { return *m_functions; }
  QTabWidget* tabInput() const { return m_tabInput; }
  plot2d::PlotWidget& Plot() { return *m_plot; }
  plot3d::Plot3DWidget& Plot3D() { return *m_plot3d; }
  ribbon::CommandBars& CommandBars() { return m_commandBars; }
  QLineEdit* mnu_Integral_min() const { return m_integralMin; }
  QLineEdit* mnu_Integral_max() const { return m_integralMax; }
  QString StatusText(int pane) const;
  void SetStatusText(int pane, const QString& text);
  script::ScriptControl& SC() { return m_sc; }
  expression::ScriptEvaluation& Evaluation() { return m_evaluation; }

signals:
  // A replot has drawn; for tests and the full-screen form.
  void Replotted();

protected:
  void resizeEvent(QResizeEvent* event) override;

private:
  void Form_Load();
  void Form_Resize();
  void BuildInputTabs();
  void BuildPlots();
  void BuildStatusBar();
  void StartRibbon();
  void ProjectChanged();

  core::SharedState& m_state;
  MainServices m_services;
  script::ScriptControl m_sc;
  expression::ScriptEvaluation m_evaluation;
  ribbon::CommandBars m_commandBars;
  QWidget* m_ribbonHost;
  QWidget* m_rszControls;
  QTabWidget* m_tabInput;
  FunctionList* m_functions;
  QWidget* m_grpIntegralRange;
  QLineEdit* m_integralMin;
  QLineEdit* m_integralMax;
  plot2d::PlotWidget* m_plot;
  plot3d::Plot3DWidget* m_plot3d;
  QLabel* m_statusPane;
  std::unique_ptr<FormReplotHost> m_replotHost;
  std::unique_ptr<plotcompiler::ReplotDriver> m_replotDriver;
  std::unique_ptr<FormInsertTarget> m_insertTarget;
  QPointer<dialogs::frmInsert> m_insert;
  QTimer m_resizeSettled;  // a full-quality picture once the window has stopped changing size
};

}  // namespace rows
