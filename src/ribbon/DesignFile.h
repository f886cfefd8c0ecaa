#pragma once

#include "CommandControl.h"

#include <QByteArray>

#include <memory>

// The design files of the command bars (data/Ribbon/*.xcb): a JSON document of our own shape,
//
//   { "commandbars": 1,
//     "controls": [ { "kind": "popup", "caption": "&Insert", "controls": [
//                       { "kind": "button", "id": 1032, "caption": "&Insert", "shortcut": "Ctrl+Return",
//                         "icon": "list-add", "tooltip": "...", "description": "..." } ] } ] }
//
// Each control has a kind (button, check, popup, slider, color, label, tab, group), and may have
// an id, a name, a caption, a tool tip and a description, an icon, a shortcut, a keyword,
// "begingroup" (a separator before it), "large", "checked", "enabled", "visible", "color",
// "min", "max", "pos", and controls of its own.
namespace ribbon {

constexpr qsizetype kMaxDesignFileSize = 4 * 1024 * 1024;

// The root control holding the file's controls; nullptr for a file that is no design file. Unknown
// keys are ignored, a control of an unknown kind is left out with what it holds.
std::unique_ptr<CommandControl> ReadDesign(const QByteArray& text);

}  // namespace ribbon
