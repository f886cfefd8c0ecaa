#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace mathx {

// Characters of the row text, begin inclusive and end exclusive; begin -1 when the text lacks
// them (a bracket that is still to be typed).
struct SourceRange {
  int begin = -1;
  int end = -1;
  bool Valid() const { return begin >= 0; }
};

// The parsed row text: what a mathematician would see in it. Every node knows the characters it
// covers and, in marks, the characters of its own syntax (brackets, operators, commas, names),
// because the typeset picture shows some of them differently or not at all and the caret must
// still find its way through them.
struct MathNode {
  enum class Kind {
    Number,       // text: the digits
    Variable,     // text: one letter
    Greek,        // text: the Greek letter (or π)
    Word,         // text: a function name with nothing to apply it to, shown upright
    Call,         // text: function name; children: arguments; marks: name, open, commas, close
    Group,        // text: the two brackets; children: the content; marks: open, close
    Binary,       // a sum, a product or a quotient; ops: + - * / \ mod, or "" where the factors
                  // stand side by side; marks: one per op (none for ""). A quotient has two
                  // children and nothing else.
    Unary,        // text: - or + in front, ! behind; marks: operator
    Power,        // children: base, exponent; marks: ^
    Chain,        // relations, "and"/"or", and the ; or , of a list; ops: one per gap; marks: ops
    Radical,      // children: radicand and, for xroot, the index; marks: name, open, comma, close
    Abs,          // children: the argument; marks: name, open, close
    Declare,      // children: equation, condition; marks: name, open, comma, close
    Domain,       // children: variable, lower, upper; text: the bounds digit; marks: name, open,
                  // three commas, the bounds, close
    PointTable,   // children: TableRow nodes, the header first; marks: "[", the ";"s, "]"
    TableRow,     // children: two cells; marks: the ","
    Placeholder,  // an operand still to be typed, or an empty table cell
    Command,      // text: the command as a phrase ("show grid")
    PlainText,    // text: the row text as it stands, when it does not parse
  };

  Kind kind = Kind::PlainText;
  QString text;
  int begin = 0;
  int end = 0;
  QStringList ops;
  std::vector<SourceRange> marks;
  std::vector<MathNode> children;
  // A Group whose brackets the picture leaves out: the parts of a built-up fraction, an exponent.
  bool hideBrackets = false;
};

}  // namespace mathx
