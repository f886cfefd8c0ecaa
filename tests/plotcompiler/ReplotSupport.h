#pragma once

#include "core/NumberText.h"
#include "expression/ScriptEvaluation.h"
#include "plotcompiler/PlotControl.h"
#include "plotcompiler/ReplotDriver.h"
#include "plotcompiler/ReplotHost.h"
#include "script/ScriptControl.h"

#include "StateSupport.h"

#include <QMap>
#include <QStringList>

#include <map>
#include <vector>

// A plot that writes down every call it gets, one line each, numbers as the program writes them.
class RecordingPlot : public plotcompiler::PlotControl {
public:
  void ClearAll(bool a, bool b, bool c, bool d, bool e) override {
    calls << QStringLiteral("ClearAll %1%2%3%4%5").arg(a).arg(b).arg(c).arg(d).arg(e);
  }
  void AddFunction(std::int16_t index, const QString& line, double color, bool option2, std::int32_t& kind,
                   bool option0, bool option3, bool hasLineStyle, std::int32_t lineStyle) override {
    calls << QStringLiteral("AddFunction %1 %2 color=%3 kind=%4 o2=%5 o0=%6 o3=%7 style=%8,%9")
                 .arg(index).arg(line, core::FormatNumber(color)).arg(kind).arg(option2).arg(option0).arg(option3)
                 .arg(hasLineStyle).arg(lineStyle);
    if (kindAfter >= 0) kind = kindAfter;
  }
  void AddPoint(std::int16_t number, double& a, double& b, std::int32_t form, double color, bool option3) override {
    calls << QStringLiteral("AddPoint %1 %2,%3 form=%4 color=%5 o3=%6")
                 .arg(number).arg(core::FormatNumber(a), core::FormatNumber(b)).arg(form)
                 .arg(core::FormatNumber(color)).arg(option3);
  }
  void AddIntegral(const QString& functionA, double min, double max, double color, bool& hasSecond,
                   QString& functionB) override {
    calls << QStringLiteral("AddIntegral %1 %2..%3 color=%4 second=%5 %6")
                 .arg(functionA, core::FormatNumber(min), core::FormatNumber(max), core::FormatNumber(color))
                 .arg(hasSecond).arg(functionB);
  }
  void AddInequality(const QString& first, double, double, bool hasSecond, const QString& second) override {
    calls << QStringLiteral("AddInequality %1 %2 %3").arg(first).arg(hasSecond).arg(second);
  }
  void AddParametric(const QString& x, const QString& y, double min, double max, std::int32_t type, double) override {
    calls << QStringLiteral("AddParametric %1 %2 %3..%4 type=%5")
                 .arg(x, y, core::FormatNumber(min), core::FormatNumber(max)).arg(type);
  }
  void Redraw() override { calls << QStringLiteral("Redraw"); }
  void SetShowIntegral(bool v) override { properties["ShowIntegral"] = v; }
  void SetIntegralMode(std::int32_t v) override { properties["IntegralMode"] = v; }
  void SetShowAxis(bool v) override { properties["ShowAxis"] = v; }
  void SetShowGrid(bool v) override { properties["ShowGrid"] = v; }
  void SetShowNumbers(bool v) override { properties["ShowNumbers"] = v; }
  void SetShowOuterFrame(bool v) override { properties["ShowOuterFrame"] = v; }
  void SetShowTips(bool v) override { properties["ShowTips"] = v; }
  void SetTransparentBackground(bool v) override { properties["TransparentBackground"] = v; }

  // The calls of one kind ("AddFunction", "AddPoint", ...).
  QStringList Calls(const QString& kind) const {
    QStringList found;
    for (const QString& call : calls) {
      if (call.startsWith(kind + u' ') || call == kind) found << call;
    }
    return found;
  }

  QStringList calls;
  std::map<std::string, int> properties;
  int kindAfter = -1;  // the kind the plot writes back, where a test wants one
};

// The main form as the driver sees it: rows of text, colour, note and attribute list.
class FakeReplotHost : public plotcompiler::ReplotHost {
public:
  struct Row {
    QString Text;
    std::int32_t Color = 255;
    bool Note = false;
    QString Attributes = QStringLiteral("False,False,False,True,True,0");
  };

  int RowCount() const override { return static_cast<int>(rows.size()); }
  QString RowText(int row) const override { return rows.at(static_cast<std::size_t>(row)).Text; }
  std::int32_t RowColor(int row) const override { return rows.at(static_cast<std::size_t>(row)).Color; }
  bool RowNoteVisible(int row) const override { return rows.at(static_cast<std::size_t>(row)).Note; }
  QString RowAttributes(int row) const override { return rows.at(static_cast<std::size_t>(row)).Attributes; }
  void SetRowProblem(int row, const QString& why) override { problems[row] = why; }
  int SelectedTab() const override { return tab; }
  bool RibbonChecked(std::int32_t id) const override { return checks.count(id) ? checks.at(id) : false; }
  QString IntegralMinText() const override { return integralMin; }
  QString IntegralMaxText() const override { return integralMax; }
  void SetStatusText(const QString& text) override { statusTexts << text; }
  void SetInputEnabled(bool enabled) override {
    inputEnabled = enabled;
    enabledChanges.push_back(enabled);
  }
  void ShowFullScreen() override { fullScreens++, events << QStringLiteral("FullScreen"); }
  QString InequalityText(int side) const override { return inequality[side]; }
  QString InequalityRelation(int side) const override { return relations[side]; }
  std::int32_t InequalityLineColor() const override { return 255; }
  std::int32_t InequalityFillColor() const override { return 65280; }
  bool InequalityTwoSides() const override { return twoSides; }
  QString ParametricX() const override { return parametric[0]; }
  QString ParametricY() const override { return parametric[1]; }
  QString ParametricMin() const override { return parametric[2]; }
  QString ParametricMax() const override { return parametric[3]; }
  QString ParametricType() const override { return parametricType; }
  std::int32_t ParametricColor() const override { return 16711680; }
  int Selected3DTab() const override { return tab3D; }
  QString Text3D(const QString& name) const override { return texts3D.value(name); }
  int GridIndex() const override { return gridIndex; }
  QString ZoomText() const override { return zoom; }

  // Rows from their texts, every one with the default attributes.
  void SetTexts(const QStringList& texts) {
    rows.clear();
    for (const QString& text : texts) rows.push_back({text});
  }

  std::vector<Row> rows;
  std::map<int, QString> problems;  // what the driver said of each row, last
  int tab = 0;
  std::map<std::int32_t, bool> checks{{1087, true}, {1088, true}, {1090, true}, {1089, true}, {1124, true}, {1086, false}};
  QString integralMin = QStringLiteral("-1"), integralMax = QStringLiteral("1");
  QStringList statusTexts;
  bool inputEnabled = true;
  std::vector<bool> enabledChanges;
  int fullScreens = 0;
  QStringList events;
  QString inequality[2] = {QStringLiteral("x^2"), QStringLiteral("x+2")};
  QString relations[2] = {QStringLiteral(">"), QStringLiteral("<=")};
  bool twoSides = false;
  QString parametric[4] = {QStringLiteral("cos(t)"), QStringLiteral("sin(t)"), QStringLiteral("-pi"), QStringLiteral("pi")};
  QString parametricType = QStringLiteral("Cartesian");
  int tab3D = 0;
  QMap<QString, QString> texts3D{{"txt_thetaMin", "-2*pi"}, {"txt_thetaMax", "2*pi"}, {"txt_phiMin", "0"},
                                 {"txt_phiMax", "pi"}, {"txt_3D_uMin", "0"}, {"txt_3D_uMax", "2"},
                                 {"txt_3D_vMin", "0"}, {"txt_3D_vMax", "2"}};
  int gridIndex = 2;
  QString zoom = QStringLiteral("1");
};

// A 3D plot that writes down what it is given.
class RecordingPlot3D : public plotcompiler::Plot3DControl {
public:
  void SetEquation(const QString& text) override { calls << "Equation=" + text; }
  void SetFunctionKind(std::int32_t kind) override { calls << QStringLiteral("FunctionKind=%1").arg(kind); }
  void SetGridCount(std::int32_t count) override { calls << QStringLiteral("GridCount=%1").arg(count); }
  void SetZoom(double zoom) override { calls << "Zoom=" + core::FormatNumber(zoom); }
  void SetThetaMin(double v) override { calls << "ThetaMin=" + core::FormatNumber(v); }
  void SetThetaMax(double v) override { calls << "ThetaMax=" + core::FormatNumber(v); }
  void SetPhiMin(double v) override { calls << "PhiMin=" + core::FormatNumber(v); }
  void SetPhiMax(double v) override { calls << "PhiMax=" + core::FormatNumber(v); }
  void SetUMin(double v) override { calls << "UMin=" + core::FormatNumber(v); }
  void SetUMax(double v) override { calls << "UMax=" + core::FormatNumber(v); }
  void SetVMin(double v) override { calls << "VMin=" + core::FormatNumber(v); }
  void SetVMax(double v) override { calls << "VMax=" + core::FormatNumber(v); }
  void Redraw() override { calls << "Redraw"; }
  QStringList calls;
};

// The driver with its state and script engine, started as the main form starts them.
struct ReplotFixture {
  ReplotFixture() : state(InitialisedState()), evaluation(state, engine), driver(state, evaluation, host) {
    expression::StartScriptEngine(engine, state);
  }

  // One replot of the rows; returns the plot's calls.
  QStringList Replot(const QStringList& texts) {
    host.SetTexts(texts);
    return Replot();
  }
  QStringList Replot() {
    plot = RecordingPlot{};
    plot3d = RecordingPlot3D{};
    driver.Replot(plot, &plot3d);
    return plot.calls;
  }

  core::SharedState state;
  script::ScriptControl engine;
  expression::ScriptEvaluation evaluation;
  FakeReplotHost host;
  plotcompiler::ReplotDriver driver;
  RecordingPlot plot;
  RecordingPlot3D plot3d;
};
