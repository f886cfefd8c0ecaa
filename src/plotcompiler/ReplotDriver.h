#pragma once

#include "Plot3DControl.h"
#include "PlotControl.h"
#include "ReplotHost.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace plotcompiler {

// The one procedure in which rows become drawings. Replot clears the plot, copies the ribbon's
// display checks to it and draws what the selected input tab holds: on the function tab, every
// row (constants and display commands first, then curves, points and the area between marked
// rows); on the inequality and parametric tabs, their one region or curve; on the 3D tab, the
// surface. It keeps nothing between calls but the constants' values in the shared state. On the
// function tab it tells the host, row by row, why a row draws nothing: the plot stays silent.
//
// An attribute list that is not six fields of "True"/"False" and a number is an error the driver
// does not handle: it raises core::RuntimeError to the caller, with the tab strip left disabled
// until a replot succeeds.
class ReplotDriver {
public:
  ReplotDriver(core::SharedState& state, expression::ScriptEvaluation& evaluation, ReplotHost& host);

  void Replot(PlotControl& plot, Plot3DControl* plot3d = nullptr);

private:
  struct RowPass;

  void FunctionTab(PlotControl& plot);
  void InequalityTab(PlotControl& plot);
  void ParametricTab(PlotControl& plot);
  void SurfaceTab(Plot3DControl& plot);
  QString TakeConstantsAndCommands(PlotControl& plot);
  // Each returns why the row draws nothing, or "" (see RowProblem).
  QString DrawRow(PlotControl& plot, int row, RowPass& pass);
  QString AddPoints(PlotControl& plot, int row, const QStringList& options, RowPass& pass);
  QString NothingToDraw(const QString& text, const QStringList& options) const;
  void AddArea(PlotControl& plot);
  bool HasSymbol(const QString& text, const QString& symbol) const;

  core::SharedState& m_state;
  expression::ScriptEvaluation& m_evaluation;
  ReplotHost& m_host;
};

}  // namespace plotcompiler
