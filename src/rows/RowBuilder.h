#pragma once

#include "FunctionRow.h"

#include "platform/ColorChooser.h"

class QWidget;

namespace rows {

// Makes and unmakes the widgets of a row, and places them inside the row's frame.
class RowBuilder {
public:
  // The widgets of a new row inside picFunction, each placed, the note hidden unless showNote.
  // The editor's tag is "NOT" when it comes back.
  static FunctionRow Create(QWidget& picFunction, platform::ColorChooser& chooser, int index, bool showNote);
  // Destroys the widgets in the order mthFunction, colrFunction, btnMore, rchfunNote, the four
  // frame lines, imgInvisible, imgNote, imgProblem, sliConstant, grpFunction.
  static void Destroy(FunctionRow& row);
  // The frame lines, the button beside the editor and the slider line under it, after the
  // editor's height changed.
  static void PlaceFrame(FunctionRow& row);
  // What the slider line adds to the row's height (twips): nothing where it is hidden.
  static double SliderHeight(const FunctionRow& row);
  // The editor's width, which the editor widens on its own.
  static void FixEditorWidth(FunctionRow& row);
  // The warning mark with why the row draws nothing in its tool tip; hidden when why is empty.
  static void ShowProblem(FunctionRow& row, const QString& why);
  static QString Problem(const FunctionRow& row);
  // A hidden row's equation greyed, a drawn one as it is.
  static void Speak(FunctionRow& row, int index, const QString& equation, bool drawn, bool note);
  static void ShowDrawn(FunctionRow& row, bool drawn);
};

}  // namespace rows
