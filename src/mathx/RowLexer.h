#pragma once

#include <QString>

#include <vector>

namespace mathx {

// One piece of a row text. Positions are offsets into the text (begin inclusive, end exclusive),
// so that every box of the typeset picture can say which characters it shows.
struct RowToken {
  enum class Kind { Number, Name, Symbol, Operator, Open, Close, Comma, Semicolon, Unknown, End };
  Kind kind = Kind::End;
  QString text;
  int begin = 0;
  int end = 0;
};

// Cuts a row text into tokens. Blanks separate tokens and are dropped. A run of letters is one
// Name token (the parser splits "xsin" into its names); the editor's Greek spellings such as
// "q..symb" and "f..var..symb" are one Symbol token; "log10" is one Name. Operators are the
// single characters + - * / ^ = < > \ ! and the pairs <= >= =< => <>. Anything else is Unknown.
std::vector<RowToken> LexRow(const QString& text);

}  // namespace mathx
