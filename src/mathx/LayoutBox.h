#pragma once

#include <QString>

#include <vector>

namespace mathx {

// The faces of the typeset picture: variables italic, numbers, names and operators upright,
// display commands in a sans face of their own.
enum class FontRole { Italic, Upright, Sans };

// A place the caret may stand: before the character at position, drawn as a vertical line at x
// from ascent above the baseline to descent below it (all relative to the owning box's origin).
struct CaretSlot {
  int position = 0;
  double x = 0;
  double ascent = 0;
  double descent = 0;
};

// One box of the typeset picture. Boxes nest; each is placed by its origin in its parent: the
// left edge and the baseline, y growing downwards as on the screen.
struct LayoutBox {
  enum class Kind {
    Row,          // only its children
    Text,         // text in a face and size
    Rule,         // a filled bar: fraction bar, radical's overline, table lines
    RadicalSign,  // the hook of a radical, drawn to its box
    Fence,        // a bracket or bar drawn to the height of its box: ( ) [ ] { } |
    Frame,        // a rounded frame round its children: a display command
    Placeholder,  // a dotted square where an operand or a table cell is still empty
  };
  // What the box is to its formula, for readers such as tests and the selection.
  enum class Role {
    None, Base, Exponent, Numerator, Denominator, FractionBar, Radicand, RootIndex,
    TableHeader, TableRow, TableCell, TableRule, Command, Operator,
  };

  Kind kind = Kind::Row;
  Role role = Role::None;
  double x = 0;
  double y = 0;
  double width = 0;
  double ascent = 0;
  double descent = 0;

  QString text;
  FontRole font = FontRole::Upright;
  double size = 0;
  QChar fence;
  double thickness = 0;

  // The characters of the row text the box shows; -1 for boxes of no characters of their own.
  // A verbatim Text shows its characters one for one, so the caret may stand between them.
  int sourceBegin = -1;
  int sourceEnd = -1;
  bool verbatim = false;

  std::vector<CaretSlot> carets;
  std::vector<LayoutBox> children;

  double Height() const { return ascent + descent; }
};

}  // namespace mathx
