#include "RowLexer.h"

namespace mathx {

namespace {

bool IsLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Length of an editor symbol ("q..symb", "f..var..symb") at position i, or 0.
int SymbolLength(const QString& text, int i) {
  if (!IsLetter(text[i])) return 0;
  const QStringView rest = QStringView(text).mid(i + 1);
  if (rest.startsWith(u"..symb")) return 7;
  if (rest.startsWith(u"..var..symb")) return 12;
  return 0;
}

int NumberLength(const QString& text, int i) {
  int j = i;
  while (j < text.size() && IsDigit(text[j])) ++j;
  if (j < text.size() && text[j] == u'.') {
    ++j;
    while (j < text.size() && IsDigit(text[j])) ++j;
  }
  return j - i;
}

int NameLength(const QString& text, int i) {
  int j = i;
  while (j < text.size() && IsLetter(text[j]) && SymbolLength(text, j) == 0) ++j;
  // "log10" is a name of its own: the common logarithm.
  if (QStringView(text).mid(i, j - i).endsWith(u"log") && QStringView(text).mid(j).startsWith(u"10"))
    j += 2;
  return j - i;
}

int OperatorLength(const QString& text, int i) {
  static const char16_t* const pairs[] = {u"<=", u">=", u"=<", u"=>", u"<>"};
  for (const char16_t* pair : pairs)
    if (QStringView(text).mid(i).startsWith(QStringView(pair))) return 2;
  return QStringView(u"+-*/^=<>\\!").contains(text[i]) ? 1 : 0;
}

RowToken::Kind SingleKind(QChar c) {
  switch (c.unicode()) {
    case u'(': case u'[': case u'{': return RowToken::Kind::Open;
    case u')': case u']': case u'}': return RowToken::Kind::Close;
    case u',': return RowToken::Kind::Comma;
    case u';': return RowToken::Kind::Semicolon;
    default: return RowToken::Kind::Unknown;
  }
}

}  // namespace

std::vector<RowToken> LexRow(const QString& text) {
  std::vector<RowToken> tokens;
  int i = 0;
  while (i < text.size()) {
    const QChar c = text[i];
    if (c.isSpace()) {
      ++i;
      continue;
    }
    RowToken token;
    int length = 0;
    if ((length = SymbolLength(text, i)) > 0) {
      token.kind = RowToken::Kind::Symbol;
    } else if (IsLetter(c)) {
      token.kind = RowToken::Kind::Name;
      length = NameLength(text, i);
    } else if (IsDigit(c) || (c == u'.' && i + 1 < text.size() && IsDigit(text[i + 1]))) {
      token.kind = RowToken::Kind::Number;
      length = NumberLength(text, i);
    } else if ((length = OperatorLength(text, i)) > 0) {
      token.kind = RowToken::Kind::Operator;
    } else {
      token.kind = SingleKind(c);
      length = 1;
    }
    token.begin = i;
    token.end = i + length;
    token.text = text.mid(i, length);
    tokens.push_back(token);
    i += length;
  }
  tokens.push_back({RowToken::Kind::End, QString(), int(text.size()), int(text.size())});
  return tokens;
}

}  // namespace mathx
