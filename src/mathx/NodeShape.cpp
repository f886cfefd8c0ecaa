#include "NodeShape.h"

namespace mathx {

using Kind = MathNode::Kind;

bool NodeShape::IsCompact(const MathNode& node) {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Word: case Kind::Call:
    case Kind::Group: case Kind::Power: case Kind::Radical: case Kind::Abs: case Kind::Placeholder:
      return true;
    case Kind::Unary: return node.text == u"!" || IsCompact(node.children[0]);
    default: return false;
  }
}

bool NodeShape::IsQuotient(const MathNode& node) { return node.ops.size() == 1 && node.ops.front() == u"/"; }

const MathNode& NodeShape::Leftmost(const MathNode& node) {
  const MathNode* at = &node;
  while ((at->kind == Kind::Binary || at->kind == Kind::Power || at->kind == Kind::Chain) && !at->children.empty())
    at = &at->children.front();
  return *at;
}

const MathNode& NodeShape::Rightmost(const MathNode& node) {
  const MathNode* at = &node;
  while (at->kind == Kind::Binary && !at->children.empty()) at = &at->children.back();
  return *at;
}

}  // namespace mathx
