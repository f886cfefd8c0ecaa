#pragma once

// The numbers of the function list's layout, in twips (see core/Twips.h).
namespace rows::metrics {

constexpr double kEditorWidth = 5295;       // every row's editor and note; set again after each resize
constexpr double kMinRowHeight = 1125;      // in the layout pass
constexpr double kChangedRowHeight = 1155;  // right after a text change
constexpr double kRowMargin = 60;           // under the editor
constexpr double kMinEditorHeight = 795;    // for the frame, and after a text change
constexpr double kFrameTop = 180;           // the active row's upper line
constexpr double kScrollMargin = 150;       // added to the scroll range
constexpr double kListTop = 120;            // the list's top at scroll position 0
constexpr int kHighestRowIndex = 108;       // so that the list holds at most 109 rows

// Where the widgets stand in a row.
constexpr double kEditorLeft = 705;
constexpr double kEditorTop = 225;
constexpr double kColorLeft = 135;
constexpr double kColorSize = 450;
constexpr double kMoreSize = 375;
constexpr double kMoreGap = 90;
constexpr double kFrameOutset = 60;  // the frame's side lines, outside the editor
constexpr double kFrameLine = 30;    // its lines' thickness
constexpr double kSliderGap = 60;    // between the editor's frame and a constant's slider line
constexpr double kSliderHeight = 390;  // the slider line, added to a constant row's height

constexpr const char* kDefaultAttributes = "False,False,False,True,True,0";
constexpr const char* kDefaultNote = "Your note here.";

}  // namespace rows::metrics
