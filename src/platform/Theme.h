#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

class QApplication;

namespace platform {

// The program's two looks. The light one is the style sheet as written; the dark one is the
// same sheet with every colour exchanged for its dark counterpart, chosen by what the colour is
// used for: a text colour for a light text, a background or border colour for a dark surface.
// One sheet is kept, so a rule added later is dark at once.
class Theme {
public:
  enum class Choice { Desktop, Light, Dark };

  // The settings' word for a choice and back: "Light", "Dark", "Desktop"; any other word is the
  // desktop's choice.
  static Choice ChoiceOf(const QString& word);
  static QString WordOf(Choice choice);

  // Whether the desktop asks for dark windows: its palette is dark, GTK_THEME names a dark
  // variant, or the desktop's colour scheme prefers dark.
  static bool DesktopPrefersDark(const QPalette& desktop);

  // The style sheet in the light or the dark look.
  static QString Sheet(const QString& lightSheet, bool dark);
  // The palette under the sheet, for what the sheet does not reach: plain labels, check boxes,
  // text areas, tool tips and the widgets that paint themselves.
  static QPalette Palette(bool dark);
  // One of the program's SVG icons for dark windows: dark strokes made light, light fills dark,
  // the accent colours brightened.
  static QByteArray DarkSvg(const QByteArray& lightSvg);

  // Sets the application's palette and its sheet, read from the data folder's
  // Ribbon/Quillograph.qss; every open window follows.
  static void Apply(QApplication& application, bool dark);
};

}  // namespace platform
