#include "Lexer.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <QHash>

#include <cmath>

namespace script {

namespace {

using core::RuntimeError;

bool IsAsciiLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool IsBlank(QChar c) { return c == u' ' || c == u'\t'; }

class Lexer {
public:
  explicit Lexer(const QString& text) : m_text(text) {}

  std::vector<Token> Run() {
    std::vector<Token> tokens;
    for (;;) {
      bool blank = false;
      while (m_at < m_text.size() && IsBlank(m_text[m_at])) ++m_at, blank = true;
      Token token = Next();
      token.AfterBlank = blank;
      const bool end = token.Kind == TokenKind::End;
      tokens.push_back(std::move(token));
      if (end) return tokens;
    }
  }

private:
  QChar Peek(qsizetype ahead = 0) const {
    return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar();
  }

  static Token Simple(TokenKind kind) {
    Token t;
    t.Kind = kind;
    return t;
  }

  static Token Operator(BinaryOperator op) {
    Token t;
    t.Kind = TokenKind::Binary;
    t.Operator = op;
    return t;
  }

  Token Next() {
    if (m_at >= m_text.size()) return Simple(TokenKind::End);
    const QChar c = m_text[m_at];
    if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) return Number();
    if (IsAsciiLetter(c)) return Word();
    if (c == u'"') return String();
    if (c == u'&' && (Peek(1) == u'h' || Peek(1) == u'H' || Peek(1) == u'o' || Peek(1) == u'O')) {
      return Radix();
    }
    ++m_at;
    switch (c.unicode()) {
      case u'+': return Simple(TokenKind::Plus);
      case u'-': return Simple(TokenKind::Minus);
      case u'*': return Operator(BinaryOperator::Multiply);
      case u'/': return Operator(BinaryOperator::Divide);
      case u'\\': return Operator(BinaryOperator::IntegerDivide);
      case u'^': return Operator(BinaryOperator::Power);
      case u'&': return Operator(BinaryOperator::Concatenate);
      case u'=': return Simple(TokenKind::Equals);
      case u'(': return Simple(TokenKind::OpenParen);
      case u')': return Simple(TokenKind::CloseParen);
      case u',': return Simple(TokenKind::Comma);
      case u'.': return Simple(TokenKind::Dot);
      case u':':
      case u'\n':
      case u'\r': return Simple(TokenKind::Separator);
      case u'<':
        if (Peek() == u'>') return ++m_at, Operator(BinaryOperator::NotEqual);
        if (Peek() == u'=') return ++m_at, Operator(BinaryOperator::LessEqual);
        return Operator(BinaryOperator::Less);
      case u'>':
        if (Peek() == u'=') return ++m_at, Operator(BinaryOperator::GreaterEqual);
        return Operator(BinaryOperator::Greater);
      default: throw RuntimeError::Of(RuntimeError::InvalidCharacter);
    }
  }

  // Digits with an optional fraction and exponent: "1.5E3", ".5", "10.". Whole numbers are
  // Integer or Long by size; anything with a point or an exponent, or too large, is a Double.
  Token Number() {
    const qsizetype start = m_at;
    bool real = false;
    while (IsDigit(Peek())) ++m_at;
    if (Peek() == u'.') {
      real = true;
      ++m_at;
      while (IsDigit(Peek())) ++m_at;
    }
    if ((Peek() == u'e' || Peek() == u'E') &&
        (IsDigit(Peek(1)) || ((Peek(1) == u'+' || Peek(1) == u'-') && IsDigit(Peek(2))))) {
      real = true;
      m_at += 2;
      while (IsDigit(Peek())) ++m_at;
    }
    const QString text = m_text.mid(start, m_at - start);
    const double value = core::StrictToDouble(text);
    Token t;
    t.Kind = TokenKind::Literal;
    t.Literal = (!real && value <= 2147483647.0) ? Value::Integral(static_cast<std::int64_t>(value))
                                                   : Value::Double(value);
    return t;
  }

  // "&H1F" and "&O17": Integer up to four hex digits' worth, Long up to eight, wrapping as the
  // language does ("&HFFFF" is -1).
  Token Radix() {
    const bool hex = Peek(1) == u'h' || Peek(1) == u'H';
    m_at += 2;
    std::uint64_t value = 0;
    qsizetype digits = 0;
    for (;; ++m_at, ++digits) {
      const QChar c = Peek();
      int digit = -1;
      if (IsDigit(c)) digit = c.unicode() - u'0';
      else if (hex && c.toLower() >= u'a' && c.toLower() <= u'f') digit = c.toLower().unicode() - u'a' + 10;
      if (digit < 0 || digit >= (hex ? 16 : 8)) break;
      value = value * (hex ? 16 : 8) + static_cast<std::uint64_t>(digit);
      if (value > 0xFFFFFFFFull) throw RuntimeError::Of(RuntimeError::Overflow);
    }
    if (digits == 0) throw RuntimeError::Of(RuntimeError::SyntaxError);
    Token t;
    t.Kind = TokenKind::Literal;
    if (value <= 0xFFFF) t.Literal = Value::Integer(static_cast<std::int16_t>(static_cast<std::uint16_t>(value)));
    else t.Literal = Value::Long(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
    return t;
  }

  Token String() {
    ++m_at;
    QString text;
    for (;;) {
      if (m_at >= m_text.size() || m_text[m_at] == u'\n' || m_text[m_at] == u'\r') {
        throw RuntimeError::Of(RuntimeError::UnterminatedString);
      }
      const QChar c = m_text[m_at++];
      if (c == u'"') {
        if (Peek() != u'"') break;
        ++m_at;  // "" stands for one quote
      }
      text += c;
    }
    Token t;
    t.Kind = TokenKind::Literal;
    t.Literal = Value::String(text);
    return t;
  }

  Token Word() {
    const qsizetype start = m_at;
    while (IsAsciiLetter(Peek()) || IsDigit(Peek()) || Peek() == u'_') ++m_at;
    const QString word = m_text.mid(start, m_at - start).toLower();
    static const QHash<QString, BinaryOperator> kWordOperators = {
        {QStringLiteral("mod"), BinaryOperator::Modulo}, {QStringLiteral("and"), BinaryOperator::And},
        {QStringLiteral("or"), BinaryOperator::Or},      {QStringLiteral("xor"), BinaryOperator::Xor},
        {QStringLiteral("eqv"), BinaryOperator::Eqv},    {QStringLiteral("imp"), BinaryOperator::Imp}};
    if (const auto op = kWordOperators.constFind(word); op != kWordOperators.cend()) return Operator(*op);
    if (word == u"not") return Simple(TokenKind::Not);
    Token t;
    t.Kind = TokenKind::Literal;
    if (word == u"true") t.Literal = Value::Boolean(true);
    else if (word == u"false") t.Literal = Value::Boolean(false);
    else if (word == u"empty") t.Literal = Value();
    else t.Kind = TokenKind::Identifier, t.Name = word;
    return t;
  }

  const QString& m_text;
  qsizetype m_at = 0;
};

}  // namespace

std::vector<Token> Tokenize(const QString& text) { return Lexer(text).Run(); }

}  // namespace script
