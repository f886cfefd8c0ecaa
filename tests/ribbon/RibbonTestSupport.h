// What the ribbon's tests share: a design with tabs, groups and a control of every kind, and a
// record of the controls executed.
#pragma once

#include "ribbon/CommandBars.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QEvent>

#include <vector>

namespace ribbontest {

inline const QByteArray kDesign = R"({
  "commandbars": 1,
  "controls": [
    { "kind": "tab", "id": 3000, "caption": "&Home", "controls": [
      { "kind": "group", "id": 2001, "caption": "Plot", "controls": [
        { "kind": "button", "id": 1023, "caption": "Replot", "large": true, "icon": "replot", "shortcut": "F5",
          "description": "Draw every row again." },
        { "kind": "check", "id": 1087, "caption": "Axis", "large": true, "icon": "axis", "tooltip": "Show axis",
          "description": "The x and y axes." },
        { "kind": "check", "id": 1088, "caption": "Grid", "icon": "grid", "checked": true, "shortcut": "Ctrl+G" },
        { "kind": "button", "id": 1040, "caption": "Pan left", "icon": "pan-left" },
        { "kind": "button", "id": 1041, "caption": "Pan right", "icon": "pan-right" },
        { "kind": "button", "id": 1043, "caption": "Pan up", "icon": "pan-up" }
      ] },
      { "kind": "group", "id": 2002, "caption": "Look", "controls": [
        { "kind": "slider", "id": 1113, "caption": "Quality", "min": 1, "max": 100, "pos": 90 },
        { "kind": "color", "id": 1042, "caption": "Background", "color": 16777215, "tooltip": "Background colour" },
        { "kind": "label", "id": 1126, "caption": "Zoom: X and Y" },
        { "kind": "popup", "id": 1200, "caption": "Tools", "icon": "tool-area", "begingroup": true, "controls": [
          { "kind": "button", "id": 1201, "caption": "Area" },
          { "kind": "button", "id": 1202, "caption": "Slope", "shortcut": "Ctrl+Shift+S" }
        ] }
      ] }
    ] },
    { "kind": "tab", "id": 3001, "caption": "&View", "controls": [
      { "kind": "group", "id": 2003, "caption": "Show", "controls": [
        { "kind": "check", "id": 1090, "caption": "Numbers", "icon": "numbers" }
      ] }
    ] },
    { "kind": "tab", "id": 3002, "caption": "&Hidden", "visible": false }
  ]
})";

// Records the id of every control executed through the bars, in order.
struct ExecutedIds {
  explicit ExecutedIds(ribbon::CommandBars& bars) {
    QObject::connect(&bars, &ribbon::CommandBars::Executed, &bars, [this](ribbon::CommandControl& control) { ids.push_back(control.Id()); });
  }
  std::vector<int> ids;
};

// Widgets that the ribbon let go of with deleteLater, deleted now (the tests run no event loop).
inline void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

}  // namespace ribbontest
