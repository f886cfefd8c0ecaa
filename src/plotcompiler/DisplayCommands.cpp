#include "DisplayCommands.h"

#include "core/TextFunctions.h"

namespace plotcompiler {

void ApplyDisplayCommand(const QString& keyword, PlotControl& plot) {
  struct Command {
    const char16_t* Keyword;
    void (PlotControl::*Set)(bool);
    bool Value;
  };
  static const Command kCommands[] = {
      {u"showaxis", &PlotControl::SetShowAxis, true},
      {u"hideaxis", &PlotControl::SetShowAxis, false},
      {u"showgrid", &PlotControl::SetShowGrid, true},
      {u"hidegrid", &PlotControl::SetShowGrid, false},
      {u"shownumbers", &PlotControl::SetShowNumbers, true},
      {u"hidenumbers", &PlotControl::SetShowNumbers, false},
      {u"showouterframe", &PlotControl::SetShowOuterFrame, true},
      {u"hideouterframe", &PlotControl::SetShowOuterFrame, false},
      {u"showtips", &PlotControl::SetShowTips, true},
      {u"hidetips", &PlotControl::SetShowTips, false},
      {u"transparentbackground", &PlotControl::SetTransparentBackground, true},
      {u"opaquebackground", &PlotControl::SetTransparentBackground, false},
  };
  const QString trimmed = core::Trim(keyword);
  for (const Command& command : kCommands) {
    if (trimmed == QStringView(command.Keyword)) {
      (plot.*command.Set)(command.Value);
      return;
    }
  }
}

}  // namespace plotcompiler
