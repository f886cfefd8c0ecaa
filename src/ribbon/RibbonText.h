#pragma once

#include "CommandControl.h"

#include <QColor>
#include <QString>

#include <cstdint>

class QFontMetrics;
class QKeySequence;

// The texts and colours that the ribbon's views show for a control.
namespace ribbon {

// A caption as plain text, without its mnemonic marks: "Save &As" -> "Save As", "R&&D" -> "R&D".
QString PlainCaption(const QString& caption);

// A caption as a button shows it without a mnemonic of its own: a lone "&" goes, "&&" stays (a
// button draws "&&" as one ampersand).
QString ButtonCaption(const QString& caption);

// The Alt+letter key of a caption's mnemonic ("&View" -> Alt+V); empty when it has none.
QKeySequence MnemonicKey(const QString& caption);

// A large button's caption, broken into two lines at the space nearest its middle when it is wider
// than width; a caption without a space stays on one line.
QString TwoLineCaption(const QString& caption, const QFontMetrics& metrics, int width);

// The rich tool tip of a control: its title in bold (the tool tip, else the caption) with the
// shortcut, "Replot (F5)", and the description under it. Empty when there is nothing to say.
QString RichToolTip(const CommandControl& control);

// The controls keep colours with red in the low byte (255 is pure red).
QColor ToQColor(std::int32_t color);
std::int32_t FromQColor(const QColor& color);

}  // namespace ribbon
