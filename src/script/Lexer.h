#pragma once

#include "Operators.h"
#include "Value.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace script {

enum class TokenKind : std::uint8_t {
  Literal,      // a number, a string, True, False or Empty
  Identifier,   // a name, lower-cased (names are case-insensitive)
  Binary,       // an operator that only stands between two operands
  Minus,        // "-" and "+": binary or, before an operand, unary
  Plus,
  Not,
  Equals,       // "=": comparison inside an expression, assignment in a statement
  OpenParen,
  CloseParen,
  Comma,
  Dot,
  Separator,    // ":" or a line break between statements
  End
};

struct Token {
  TokenKind Kind = TokenKind::End;
  BinaryOperator Operator = BinaryOperator::Add;  // for Binary
  Value Literal;                                  // for Literal
  QString Name;                                   // for Identifier
  // Whether blanks stood before the token: "f (1)" is no call in the language's statements, but
  // inside an expression it is, so this is kept only for diagnostics.
  bool AfterBlank = false;
};

// The tokens of a text, ending with an End token. Raises RuntimeError 1032 for a character the
// language does not know, 1033 for an unterminated string and 6 for a number beyond the double
// range.
std::vector<Token> Tokenize(const QString& text);

}  // namespace script
