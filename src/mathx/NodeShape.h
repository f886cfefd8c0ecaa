#pragma once

#include "MathNode.h"

namespace mathx {

// Questions about a parsed row's shape that the typesetter, the LaTeX and text export and the
// spoken form must answer alike, so that what is read out or copied matches what is shown.
class NodeShape {
public:
  // Whether a quotient's operand may stand in a built-up fraction: something that reads as one
  // piece (a bracket, a name, a number, a power, a root) rather than a run of terms. Nor a
  // quotient: x/2/3 stacked three high would not say which bar is the main one.
  static bool IsCompact(const MathNode& node);
  // A single "/" between two operands, asked without building a list to compare with.
  static bool IsQuotient(const MathNode& node);
  // The nodes whose characters meet at a gap of a product, for the choice between a dot and a
  // thin space: the one the reader meets first, and the one met last.
  static const MathNode& Leftmost(const MathNode& node);
  static const MathNode& Rightmost(const MathNode& node);
};

}  // namespace mathx
