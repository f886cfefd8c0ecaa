#include "ReplotDriver.h"

#include "DisplayCommands.h"
#include "EquationCompiler.h"
#include "RowProblem.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/TextFunctions.h"
#include "expression/ConstantResolution.h"
#include "expression/SymbolFolding.h"

#include <algorithm>
#include <limits>

namespace plotcompiler {

namespace {

using core::At;
using core::Contains;
using core::InStr;
using core::Left;
using core::Mid;
using core::Replace;
using core::Split;
using core::StrictToBoolean;

const QString kAttributeSeparator = QStringLiteral(",");

bool Flag(const QStringList& options, int field) { return StrictToBoolean(At(options, field)); }

// The text left of the first "=", or "" when there is none.
QString LeftOfEquals(const QString& text) { return Left(text, std::max(InStr(text, QStringLiteral("=")) - 1, 0)); }

// The display command's keyword of a compiled command row: what stands behind the first "==>",
// without the brackets around it. A text too short to hold the brackets has no keyword.
QString KeywordOf(const QString& line) {
  const QString behind = Mid(line, InStr(line, QStringLiteral("==>")) + 3);
  if (behind.size() < 2) return {};
  return Mid(behind, 2, behind.size() - 2);
}

// The two texts of a point "a,b"; nothing where there is no comma to part them.
bool SplitPoint(const QString& item, QString& first, QString& second) {
  const int comma = InStr(item, QStringLiteral(","));
  if (comma == 0) return false;
  first = Left(item, comma - 1);
  second = Mid(item, comma + 1);
  return true;
}

// "Point 3", "Points 2, 5".
QString PointsWord(const QStringList& numbers) {
  return (numbers.size() == 1 ? QStringLiteral("Point ") : QStringLiteral("Points ")) + numbers.join(QStringLiteral(", "));
}

}  // namespace

// What outlives one row within a pass: the kind (a row that reaches the plot unclassified takes
// the kind of the row before it), the last compiled line, and the count of points so far.
struct ReplotDriver::RowPass {
  std::int32_t Kind = 0;
  QString Line;
  int PointCounter = 0;
};

ReplotDriver::ReplotDriver(core::SharedState& state, expression::ScriptEvaluation& evaluation, ReplotHost& host)
    : m_state(state), m_evaluation(evaluation), m_host(host) {}

void ReplotDriver::Replot(PlotControl& plot, Plot3DControl* plot3d) {
  plot.ClearAll(true, true, true, true, true);
  plot.SetShowIntegral(true);
  m_host.SetStatusText(QStringLiteral("Plotting..."));
  m_host.SetInputEnabled(false);

  plot.SetShowAxis(m_host.RibbonChecked(1087));
  plot.SetShowGrid(m_host.RibbonChecked(1088));
  plot.SetShowNumbers(m_host.RibbonChecked(1090));
  plot.SetShowOuterFrame(m_host.RibbonChecked(1089));
  plot.SetShowTips(m_host.RibbonChecked(1124));
  plot.SetTransparentBackground(m_host.RibbonChecked(1086));

  switch (m_host.SelectedTab()) {
    case 0: FunctionTab(plot); break;
    case 1: InequalityTab(plot); break;
    case 2: ParametricTab(plot); break;
    case 3:
      if (plot3d != nullptr) SurfaceTab(*plot3d);
      break;
    default: break;
  }

  m_host.SetStatusText(QStringLiteral("Ready..."));
  m_host.SetInputEnabled(true);
}

void ReplotDriver::FunctionTab(PlotControl& plot) {
  // Constants and commands are known before any row is drawn, wherever their rows stand.
  const QString lastKeyword = TakeConstantsAndCommands(plot);
  RowPass pass;
  for (int row = 0; row < m_host.RowCount(); ++row) m_host.SetRowProblem(row, DrawRow(plot, row, pass));
  AddArea(plot);
  plot.Redraw();
  if (lastKeyword == u"enterfullscreen") m_host.ShowFullScreen();
}

// The inequality's texts go to the plot as typed: neither compiled nor with constants put in.
void ReplotDriver::InequalityTab(PlotControl& plot) {
  plot.SetShowIntegral(false);
  const QString first = QStringLiteral("y") + m_host.InequalityRelation(0) + m_host.InequalityText(0);
  const QString second = QStringLiteral("y") + m_host.InequalityRelation(1) + m_host.InequalityText(1);
  plot.AddInequality(first, m_host.InequalityLineColor(), m_host.InequalityFillColor(), m_host.InequalityTwoSides(),
                     second);
  plot.Redraw();
}

void ReplotDriver::ParametricTab(PlotControl& plot) {
  plot.SetShowIntegral(false);
  const QString x = CompileEquation(m_host.ParametricX(), true);
  const QString y = CompileEquation(m_host.ParametricY(), true);
  const double min = m_evaluation.EvaluateExpression(m_host.ParametricMin());
  const double max = m_evaluation.EvaluateExpression(m_host.ParametricMax());
  plot.AddParametric(x, y, min, max, m_host.ParametricType() == u"Cartesian" ? 1 : 2, m_host.ParametricColor());
  plot.Redraw();
}

// The one surface of the 3D tab, through the plot's properties; its texts go as the editors hold
// them, but for a leading "z=", "y=", "x=" or "r=" and the polar tab's Greek names.
void ReplotDriver::SurfaceTab(Plot3DControl& plot) {
  const auto evaluate = [this](const char* name) {
    return m_evaluation.EvaluateExpression(m_host.Text3D(QString::fromLatin1(name)));
  };
  const int mesh = m_host.GridIndex() + 1;
  switch (m_host.Selected3DTab()) {
    case 0: {
      QString text = m_host.Text3D(QStringLiteral("mth_3D_Function"));
      const QString start = Left(text, 2);
      std::int32_t kind = 4;
      if (start == u"z=") kind = 1;
      else if (start == u"y=") kind = 2;
      else if (start == u"x=") kind = 3;
      if (kind != 4) text = Mid(text, 3);
      plot.SetGridCount(kind == 4 ? 1 : mesh);
      plot.SetEquation(text);
      plot.SetFunctionKind(kind);
      break;
    }
    case 1: {
      plot.SetGridCount(mesh);
      QString text = m_host.Text3D(QStringLiteral("mth_3D_Polar"));
      if (Left(text, 2) == u"r=") text = Mid(text, 3);
      text = Replace(Replace(text, QStringLiteral("q..symb"), QStringLiteral("theta")), QStringLiteral("f..var..symb"),
                     QStringLiteral("phi"));
      plot.SetEquation(text);
      plot.SetFunctionKind(5);
      plot.SetThetaMin(evaluate("txt_thetaMin"));
      plot.SetThetaMax(evaluate("txt_thetaMax"));
      plot.SetPhiMax(evaluate("txt_phiMax"));
      plot.SetPhiMin(evaluate("txt_phiMin"));
      break;
    }
    default:
      plot.SetGridCount(1);
      plot.SetEquation(m_host.Text3D(QStringLiteral("mth_3D_Para_x")) + u':' + m_host.Text3D(QStringLiteral("mth_3D_Para_y")) +
                       u':' + m_host.Text3D(QStringLiteral("mth_3D_Para_z")));
      plot.SetFunctionKind(6);
      plot.SetVMin(evaluate("txt_3D_vMin"));
      plot.SetVMax(evaluate("txt_3D_vMax"));
      plot.SetUMin(evaluate("txt_3D_uMin"));
      plot.SetUMax(evaluate("txt_3D_uMax"));
      break;
  }
  plot.SetZoom(core::NumericPrefix(m_host.ZoomText()));
  plot.Redraw();
}

QString ReplotDriver::TakeConstantsAndCommands(PlotControl& plot) {
  QString lastKeyword;
  for (int row = 0; row < m_host.RowCount(); ++row) {
    const QString line = CompileEquation(m_host.RowText(row), false);
    if (!Contains(line, QStringLiteral("="))) continue;
    if (expression::IsConstantName(m_state, LeftOfEquals(line))) {
      expression::StoreConstant(m_state, line);
    } else if (Left(line, 7) == u"command" && Contains(line, QStringLiteral("==>"))) {
      lastKeyword = KeywordOf(line);
      ApplyDisplayCommand(lastKeyword, plot);
    }
  }
  return lastKeyword;
}

bool ReplotDriver::HasSymbol(const QString& text, const QString& symbol) const {
  return expression::ReplaceSymbol(m_state.FunctionTokens, text, symbol, QString()) != text;
}

QString ReplotDriver::DrawRow(PlotControl& plot, int row, RowPass& pass) {
  const QString text = m_host.RowText(row);
  if (Left(text, 7) == u"command" || m_host.RowNoteVisible(row)) return {};
  const QStringList options = Split(m_host.RowAttributes(row), kAttributeSeparator);
  QString bare;  // the row compiled, before the constants' values go in
  const auto compiled = [&] {
    bare = CompileEquation(text, false);
    return expression::SubstituteConstants(m_state, bare);
  };

  // Classified by the raw text, the first test that holds.
  bool isPoint = false;
  bool classified = true;
  QString pointProblem;
  const auto startsWith = [&](const char16_t* form) {
    return text.startsWith(QStringView(form)) || text.startsWith(QStringLiteral("declare(") + QString::fromUtf16(form));
  };
  if (startsWith(u"x=")) {
    pass.Kind = 2, pass.Line = compiled();
  } else if (startsWith(u"y=")) {
    pass.Kind = 1, pass.Line = compiled();
  } else if (startsWith(u"r=")) {
    pass.Kind = 3, pass.Line = compiled();
  } else if (Left(text, 1) == u"[" && Flag(options, 4)) {
    isPoint = true;
    pointProblem = AddPoints(plot, row, options, pass);
  } else if ((HasSymbol(text, QStringLiteral("y")) || HasSymbol(text, QStringLiteral("x"))) &&
             Contains(text, QStringLiteral("=")) && !expression::IsConstantName(m_state, LeftOfEquals(text))) {
    pass.Kind = 4, pass.Line = compiled();
  } else {
    classified = false;
  }

  // The draw test.
  const bool hasSymbol = HasSymbol(text, QStringLiteral("r")) || HasSymbol(text, QStringLiteral("y")) ||
                         HasSymbol(text, QStringLiteral("x"));
  if (!hasSymbol) return isPoint ? pointProblem : NothingToDraw(text, options);
  if (Flag(options, 1) || isPoint) return pointProblem;  // an area row is drawn as the area
  const bool hasEquals = Contains(text, QStringLiteral("="));
  if (hasEquals && expression::IsConstantName(m_state, CompileEquation(LeftOfEquals(text), true))) return {};
  if (!Flag(options, 4)) return {};
  const QString mode = At(options, 5);
  const bool plain = core::Trim(mode) == u"0";
  const std::int32_t lineStyle = core::Trim(mode) == u"1" ? 1 : 2;
  const QString line = hasEquals ? pass.Line : text;
  plot.AddFunction(static_cast<std::int16_t>(row + 1), line, m_host.RowColor(row), Flag(options, 2), pass.Kind,
                   Flag(options, 0), Flag(options, 3), !plain, lineStyle);
  if (!hasEquals) return RowProblem::OfLine(line);
  // An equation that none of the tests took goes with the line of the row before it.
  if (!classified) return QStringLiteral("Cannot tell which curve this is: begin it with y=, x= or r=");
  const QString unset = RowProblem::UnsetConstants(m_state, bare);
  return unset.isEmpty() ? RowProblem::OfLine(line) : unset;
}

// A row the draw test turns away for want of x, y and r: said so, unless it is empty, hidden or a
// constant (which draws nothing by design).
QString ReplotDriver::NothingToDraw(const QString& text, const QStringList& options) const {
  // Read without the strictness of the draw test, which never looked at this field here.
  if (core::Trim(text).isEmpty() || core::Trim(options.value(4)).compare(u"False", Qt::CaseInsensitive) == 0) return {};
  const QString line = CompileEquation(text, false);
  if (Contains(line, QStringLiteral("=")) && expression::IsConstantName(m_state, LeftOfEquals(line))) return {};
  return QStringLiteral("Nothing to draw: the row has no x, y or r");
}

QString ReplotDriver::AddPoints(PlotControl& plot, int row, const QStringList& options, RowPass& pass) {
  const QString bare = CompileEquation(m_host.RowText(row), false);
  QString s = expression::SubstituteConstants(m_state, bare);
  s = Replace(Replace(s, QStringLiteral("["), QString()), QStringLiteral("]"), QString());
  struct Header {
    const char16_t* Name;
    std::int32_t Form;
    bool Reversed;
  };
  static const Header kHeaders[] = {
      {u"x,y", 1, false}, {u"y,x", 1, true}, {u"r,theta", 2, false}, {u"theta,r", 2, true}};
  const Header* header = nullptr;
  for (const Header& h : kHeaders) {
    const QString name = QString::fromUtf16(h.Name);
    if (Left(s, name.size()) == name && Flag(options, 4)) {
      header = &h;
      s = Replace(s, name + u';', QString());
      break;
    }
  }
  if (header == nullptr) return QStringLiteral("A list of points begins with x,y or y,x, r,theta or theta,r");

  const int items = static_cast<int>(core::Occurrences(s, QStringLiteral(";")));
  const double color = m_host.RowColor(row);
  const bool option3 = Flag(options, 3);
  QStringList oneNumber, failed;  // the numbers of the row's points that are not drawn, from 1
  for (int k = 0; k <= items; ++k) {
    ++pass.PointCounter;
    QString item = s;
    const int semicolon = InStr(s, QStringLiteral(";"));
    if (semicolon != 0) {
      item = Left(s, semicolon - 1);
      s = Mid(s, semicolon + 1);
    }
    QString first, second;
    if (!SplitPoint(item, first, second)) {  // a point with one number cannot be drawn
      oneNumber << QString::number(k + 1);
      continue;
    }
    if (header->Reversed) std::swap(first, second);
    double a = m_evaluation.EvaluateExpression(first);
    const bool failedFirst = m_state.MathError;
    double b = m_evaluation.EvaluateExpression(second);
    if (failedFirst || m_state.MathError) {  // its number is lost with it
      failed << QString::number(k + 1);
      continue;
    }
    const auto number = static_cast<std::int16_t>(std::min(pass.PointCounter, int{std::numeric_limits<std::int16_t>::max()}));
    plot.AddPoint(number, a, b, header->Form, color, option3);
  }
  const QString unset = RowProblem::UnsetConstants(m_state, bare);
  if (!unset.isEmpty()) return unset;
  QStringList problems;
  if (!failed.isEmpty()) problems << PointsWord(failed) + QStringLiteral(" cannot be computed");
  if (!oneNumber.isEmpty()) problems << PointsWord(oneNumber) + QStringLiteral(" must be two numbers with a comma between");
  return problems.join(QStringLiteral("; "));
}

void ReplotDriver::AddArea(PlotControl& plot) {
  int first = -1, second = -1;
  QStringList options;
  for (int row = 0; row < m_host.RowCount(); ++row) {
    options = Split(m_host.RowAttributes(row), kAttributeSeparator);
    if (!Flag(options, 1)) continue;
    if (first < 0) first = row;
    else second = row;
  }
  if (first < 0) {
    plot.SetShowIntegral(false);
    return;
  }
  const auto bare = [&](int row) {
    return CompileEquation(expression::SubstituteConstants(m_state, m_host.RowText(row)), true);
  };
  const QString a = bare(first);
  QString b = bare(std::max(second, 0));
  // The list left over from the walk, the last row's, decides whether the area is drawn.
  if (Flag(options, 4)) {
    bool hasSecond = second >= 0;
    const double min = m_evaluation.EvaluateExpression(m_host.IntegralMinText());
    const double max = m_evaluation.EvaluateExpression(m_host.IntegralMaxText());
    plot.AddIntegral(a, min, max, m_host.RowColor(first), hasSecond, b);
  }
  plot.SetIntegralMode(1);
}

}  // namespace plotcompiler
