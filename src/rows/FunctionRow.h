#pragma once

#include "SliderBounds.h"

#include <QFrame>
#include <QTextEdit>
#include <QToolButton>

#include <optional>

namespace mathx {
class MthX;
}

namespace rows {

class ColorButton;
class ConstantSlider;

// The widgets of one function row, all bearing the row's index. A row is no object of its own:
// what is known of it is read from these widgets each time it is needed. The group's top and
// height are kept in twips, as the layout pass works them out.
struct FunctionRow {
  QFrame* grpFunction = nullptr;        // the frame; its tag holds the attribute list
  ColorButton* colrFunction = nullptr;  // the colour, captioned with the row's number
  mathx::MthX* mthFunction = nullptr;   // the text; its tag is the change guard
  QTextEdit* rchfunNote = nullptr;      // the note, exactly over the editor
  QToolButton* btnMore = nullptr;       // opens the row's context menu
  QToolButton* imgInvisible = nullptr;  // the status icon, in the colour picker's place
  QToolButton* imgNote = nullptr;       // made and destroyed with the row, always hidden
  QToolButton* imgProblem = nullptr;    // the warning beside the editor: why the row draws nothing
  ConstantSlider* sliConstant = nullptr;  // the slider line under a constant row, hidden on others
  QFrame* ActiveLine_UP = nullptr;      // the four lines of the active row's frame
  QFrame* ActiveLine_Down = nullptr;
  QFrame* ActiveLine_Left = nullptr;
  QFrame* ActiveLine_Right = nullptr;
  double Top = 0;     // twips
  double Height = 0;  // twips
};

// The four items of a row that travel when rows are moved or removed; and its warning, which
// goes with its text until the next drawing says again what it is; and its slider's bounds, where
// the user chose them.
struct RowContents {
  QString Text;
  std::int32_t Color = 255;
  QString Attributes;
  QString NoteHtml;
  bool NoteVisible = false;
  QString Problem;
  std::optional<SliderBounds> Slider;
};

}  // namespace rows
